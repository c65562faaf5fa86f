// The sounds of widgets; see WidgetSound.h.

#include "menus/WidgetSound.h"

#include "audio/Sound.h"

std::unique_ptr<Sound> MakeWidgetSound(const std::string& file) {
    auto sound = std::make_unique<Sound>(file);
    sound->Stop();
    return sound;
}

void PlayWidgetSound(Sound* sound) {
    if (sound) {
        sound->Rewind();
        sound->SetVolume(1.0f);
        sound->Play();
    }
}
