// Sound and music; see Menu_Options.h.

#include "menus/Menu_Options.h"

#include <string>

#include "audio/MusicPlayer.h"
#include "audio/SoundManager.h"
#include "engine/Console.h"
#include "engine/PreferenceStore.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"
#include "platform/VirtualKeys.h"

namespace {

/// A chooser with "off" and "on", and which of them it showed at first. Only a change is stored:
/// without a sound device all is off, which isn't the player's choice.
struct Switch {
    GuiOptionChooser* chooser = nullptr;
    unsigned shown = 0;

    bool IsOn() const;
    void Show(bool isOn);
    /// Stores what the player changed.
    void Keep(const PreferenceKey& key, const char* name) const;
};

// Of the one menu of this kind; without choosers while there is none.
Switch music;
Switch sound;

// The choosers' indices.
constexpr unsigned off = 0;
constexpr unsigned on = 1;

bool Switch::IsOn() const {
    return chooser->selected == on;
}

void Switch::Show(bool isOn) {
    shown = isOn ? on : off;
    chooser->SetSelected(shown);
}

void Switch::Keep(const PreferenceKey& key, const char* name) const {
    if (chooser->selected != shown && !key.SetValue(name, IsOn() ? "1" : "0")) {
        Console::Print(std::string("\nUnable to store the preference ") + name);
    }
}

void ApplyAndGoBack(GuiAnimatedButton& button) {
    SoundManager::SetMasterVolume(sound.IsOn() ? 1.0f : 0.0f);
    MusicPlayer::SetVolume(music.IsOn() ? 255 : 0);
    const PreferenceKey key = PreferenceStore::OpenOrCreateKey("software/Vantrel/Preferences");
    music.Keep(key, "Music");
    sound.Keep(key, "Sound");
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
    music.chooser = AddSwitch(builder, "musicChooser");
    sound.chooser = AddSwitch(builder, "soundChooser");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    MenuAction::Bind<ApplyAndGoBack>(back);

    MapKeyAlong(VirtualKey::down, {music.chooser, sound.chooser, &back});
    MapKeyAlong(VirtualKey::tab, {music.chooser, sound.chooser, &back, music.chooser});
    MapKeyAlong(VirtualKey::up, {&back, sound.chooser, music.chooser});
    SetDefaultFocus(&back);
    Menu_Options::Reset();
}

void Menu_Options::Reset() {
    sound.Show(SoundManager::MasterVolume() != 0.0f);
    music.Show(MusicPlayer::Volume() != 0);
    GuiScreen::Reset();
}
