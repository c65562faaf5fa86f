#pragma once
// The one piece of music that plays: streamed from its file, with a pause that keeps its
// place. No playlist, no cross-fade, no work per frame. Without a device, Play fails and the
// game goes on without music.

#include <cstdint>
#include <string>

namespace MusicPlayer {

/// Takes the device, and on or off from the player's choice. Adds the console commands.
void Initialise();
void Shutdown();

/// Starts a piece from its beginning in place of another; false if it can't be played.
bool Play(const std::string& fileName, bool loop);
/// Closes the piece; true also if there is none.
bool Stop();
/// Stops where it is, to be resumed there; false without a piece.
bool Pause();
bool Resume();

/// 0 to 255.
void SetVolume(std::uint8_t value);
/// 0 while there was no device to start with.
std::uint8_t Volume();

}  // namespace MusicPlayer
