// The handle's side of the texture cache: each handle holds one reference by name.

#include "graphics/Texture.h"

#include <utility>

#include "engine/Text.h"
#include "graphics/TextureManager.h"

Texture::Texture() : name("No_Texture_Specified") {
    Acquire("NO_TEXTURE");
    UpperCase(name);
}

Texture::Texture(std::string newName, const char* resourceName) : name(std::move(newName)) {
    Acquire(resourceName);
}

Texture::Texture(const Texture& other) : name(other.name) {
    Acquire("");
}

Texture& Texture::operator=(const Texture& other) {
    if (this != &other) {
        Release();
        name = other.name;
        Acquire("");
    }
    return *this;
}

Texture::~Texture() {
    Release();
}

void Texture::SetName(const std::string& newName) {
    std::string upper = UpperCased(newName);
    if (upper != name) {
        Release();
        name = std::move(upper);
        Acquire("");
    }
}

void Texture::AssignIfDifferent(const Texture& other) {
    if (glName != other.glName) {
        *this = other;
    }
}

void Texture::Acquire(const char* resourceName) {
    const TextureRecord& record = TextureManager::Acquire(name, resourceName);
    width = record.width;
    height = record.height;
    glName = record.glName;
    hasAlpha = record.hasAlpha;
    generation = TextureManager::Generation();
}

void Texture::Release() {
    if (generation == TextureManager::Generation()) {
        TextureManager::Release(name);
    }
}

std::vector<Texture> LoadFrames(const std::string& name) {
    std::vector<std::string> files;
    TextureManager::ExpandFrameNames(name, files);
    if (files.empty()) {
        files.push_back(name);
    }
    std::vector<Texture> frames;
    frames.reserve(files.size());
    for (const std::string& file : files) {
        frames.emplace_back(file, "DEFAULT_SPRITE");
    }
    return frames;
}
