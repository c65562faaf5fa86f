#pragma once
// Short samples: the cache that loads each file once, and the master volume. The rest of the
// program holds Sound objects (audio/Sound.h).
//
// Order of calls: Initialise, InitialiseCache, then Sound objects; at the end the objects go,
// then ShutdownCache, Shutdown. Without a device all of it is silent.

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Audio.h"

struct SoundSample {
    Platform::SampleId buffer = 0;     ///< 0: the file couldn't be loaded
    std::uint32_t referenceCount = 0;  ///< Sound objects on it
};

namespace SoundManager {

/// Takes the device, and the master volume from the player's choice; does nothing if the
/// device is there already.
void Initialise();
void Shutdown();
/// Whether sounds can be heard.
bool HasDevice();

/// Empties the cache and adds its console commands.
void InitialiseCache();
void ShutdownCache();

/// Held within 0..1; a Sound takes it on at its next Play, PlayLooped or SetVolume.
void SetMasterVolume(float volume);
float MasterVolume();

/// The sample of that file, in any case, with one more reference. A file that can't be loaded
/// is tried once and gives a sample without a buffer.
const SoundSample& Acquire(std::string_view name);
/// Gives a reference back; the last one unloads the sample.
void Release(std::string_view name);

}  // namespace SoundManager
