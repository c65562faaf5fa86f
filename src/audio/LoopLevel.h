#pragma once
// Loops whose loudness follows a level, and how such levels move with time.

#include <memory>

#include "audio/Sound.h"

/// A looping sound that is heard at a level and rests when there is nothing to hear.
class LevelLoop {
public:
    /// Makes the sound, once.
    void Create(std::string_view fileName);
    void Destroy() { sound.reset(); }
    /// Plays at the level, or stops if it is nearly silent.
    void Drive(float level);
    void Rest();

private:
    std::unique_ptr<Sound> sound;
};

// Rates are the fraction that is left after one second, so that nothing depends on the length
// of a step; 0 to 1.

/// What is left of `value` after `dt` seconds.
float Faded(float value, float rate, float dt);
/// `value` on its way to `target`.
float Approached(float value, float target, float rate, float dt);
/// Takes from `pending` what is due within `dt` seconds, and returns it: a burst is spent over
/// a moment.
float Spend(float& pending, float rate, float dt);
