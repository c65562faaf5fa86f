// Sound and music; see Menu_Options.h.

#include "menus/Menu_Options.h"

#include "audio/MusicPlayer.h"
#include "audio/SoundManager.h"
#include "engine/PreferenceStore.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

namespace {

// Of the one menu of this kind; null while there is none.
GuiOptionChooser* musicChooser = nullptr;
GuiOptionChooser* soundChooser = nullptr;

// The choosers' indices.
constexpr unsigned off = 0;
constexpr unsigned on = 1;

void ApplyAndGoBack(GuiAnimatedButton& button) {
    const bool sound = soundChooser->selected == on;
    const bool music = musicChooser->selected == on;
    SoundManager::SetMasterVolume(sound ? 1.0f : 0.0f);
    MusicPlayer::SetVolume(music ? 255 : 0);
    const PreferenceKey key = PreferenceStore::OpenOrCreateKey("software/Vantrel/Preferences");
    key.SetValue("Music", music ? "1" : "0");
    key.SetValue("Sound", sound ? "1" : "0");
    MenuAction::GoBack(button);
}

GuiOptionChooser* AddSwitch(MenuBuilder& builder, const std::string& name) {
    GuiOptionChooser& chooser = builder.AddChooser(name);
    chooser.SetOverSound(builder.Own().GetString("optionChooserSound_over"));
    chooser.SetClickSound(builder.Own().GetString("optionChooserSound_clicked"));
    chooser.AddOption("off");
    chooser.AddOption("on");
    return &chooser;
}

}  // namespace

Menu_Options::Menu_Options() {
    MenuBuilder builder(*this, "cfg\\menu_options.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel("musicLabel", "Music");
    builder.AddLabel("soundLabel", "Sound");
    musicChooser = AddSwitch(builder, "musicChooser");
    soundChooser = AddSwitch(builder, "soundChooser");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    MenuAction::Bind<ApplyAndGoBack>(back);

    MapKeyAlong(VirtualKey::down, {musicChooser, soundChooser, &back});
    MapKeyAlong(VirtualKey::tab, {musicChooser, soundChooser, &back, musicChooser});
    MapKeyAlong(VirtualKey::up, {&back, soundChooser, musicChooser});
    SetDefaultFocus(&back);
    Menu_Options::Reset();
}

void Menu_Options::Reset() {
    soundChooser->SetSelected(SoundManager::MasterVolume() == 0.0f ? off : on);
    musicChooser->SetSelected(MusicPlayer::Volume() == 0 ? off : on);
    GuiScreen::Reset();
}
