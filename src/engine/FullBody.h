#pragma once
// The amount of water that all others are counted against.

/// Particles in one full body of water: what a level begins with, and a perfect result.
inline constexpr unsigned fullBody = 128;
