#pragma once
// While a view magnifies its textures, their mipmaps are never sampled. A software renderer that
// knows this beforehand fills the screen in two thirds of the time.

#include <cstdint>

/// Draws with the present modelview matrix, in client pixels. While it lives, and while the
/// view magnifies, textures are sampled without their mipmaps; nothing looks any different.
class MagnifiedSampling {
public:
    MagnifiedSampling();
    ~MagnifiedSampling();
    MagnifiedSampling(const MagnifiedSampling&) = delete;
    MagnifiedSampling& operator=(const MagnifiedSampling&) = delete;

    /// Whether textures of that size keep it when they are uploaded, or are shrunk to powers of
    /// two: if they are enlarged, the view may sample their mipmaps after all.
    static bool Suits(std::uint32_t width, std::uint32_t height);
    /// For the textures bound next; at first it is off.
    void Use(bool wanted);

private:
    unsigned sampler = 0;  ///< 0: the textures' own filters stay
};
