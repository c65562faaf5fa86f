#pragma once
// The sounds of widgets: made silent, and heard from their start.

#include <memory>
#include <string>

class Sound;

/// A sound that isn't playing yet.
std::unique_ptr<Sound> MakeWidgetSound(const std::string& file);
/// From its start, at full volume; null is silent.
void PlayWidgetSound(Sound* sound);
