#pragma once
// Textures that many share: frames of an animation, pictures of an emitter. A copy refers to the
// same ones, which live as long as any copy.

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "graphics/Texture.h"

class TextureSet {
public:
    TextureSet() = default;
    explicit TextureSet(std::vector<Texture> textures)
        : shared(std::make_shared<const std::vector<Texture>>(std::move(textures))) {}

    std::size_t size() const { return shared ? shared->size() : 0; }
    bool empty() const { return size() == 0; }
    const Texture* data() const { return shared ? shared->data() : nullptr; }
    const Texture* begin() const { return data(); }
    const Texture* end() const { return data() + size(); }
    const Texture& operator[](std::size_t i) const { return (*shared)[i]; }

private:
    std::shared_ptr<const std::vector<Texture>> shared;
};
