#pragma once
// While a view magnifies its pictures, their smaller copies are never looked at. A software
// renderer that knows so beforehand fills the screen in two thirds of the time.

#include <cstdint>

/// Draws with the present modelview matrix, in client pixels. While it lives, and while the
/// view magnifies, textures are read without their smaller copies; nothing looks any different.
class MagnifiedSampling {
public:
    MagnifiedSampling();
    ~MagnifiedSampling();
    MagnifiedSampling(const MagnifiedSampling&) = delete;
    MagnifiedSampling& operator=(const MagnifiedSampling&) = delete;

    /// Whether textures of that size keep it when they are uploaded, or are shrunk to powers of
    /// two: if they are enlarged, the view may look at their smaller copies after all.
    static bool Suits(std::uint32_t width, std::uint32_t height);
    /// For the textures bound next; at first it is off.
    void Use(bool wanted);

private:
    unsigned sampler = 0;  ///< 0: the textures' own way is kept
};
