// The choice of a level; see Menu_LoadMap.h.

#include "menus/Menu_LoadMap.h"

#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"
#include "menus/MenuHost.h"
#include "platform/Paths.h"
#include "platform/VirtualKeys.h"

namespace {

const std::string levelFolder = "lev\\";

GuiOptionChooser* mapChooser = nullptr;  // of the one menu of this kind
std::vector<std::string> levelNames;

/// The menu stays until the level is there. Without levels this asks for the folder, which
/// fails as any missing level does.
void LoadSelected(GuiAnimatedButton& /*button*/) {
    const std::size_t index = mapChooser->selected;
    MenuHost::Current().RequestMap(levelFolder +
                                   (index < levelNames.size() ? levelNames[index] : ""));
}

}  // namespace

Menu_LoadMap::Menu_LoadMap() {
    levelNames = Platform::ListFiles(levelFolder + "*.swah");
    MenuBuilder builder(*this, "cfg\\menu_loadMap.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel("mapLabel", "Choose Map to load");
    mapChooser = &builder.AddChooser("mapChooser");
    for (const std::string& name : levelNames) {
        mapChooser->AddOption(name);
    }
    mapChooser->SetSelected(0);
    GuiAnimatedButton& load = builder.AddButton("loadButton");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    MenuAction::Bind<LoadSelected>(load);
    MenuAction::Bind<MenuAction::GoBack>(back);

    back.MapKey(VirtualKey::up, &load);
    back.MapKey(VirtualKey::tab, &load);
    load.MapKey(VirtualKey::tab, &back);
    load.MapKey(VirtualKey::down, &back);
    SetDefaultFocus(&back);
}
