// The texture cache and the order in which an image's sources are tried.

#include "graphics/TextureManager.h"

#include <algorithm>
#include <map>

#include "engine/BufferedFile.h"
#include "engine/Text.h"
#include "graphics/ImageReader.h"
#include "graphics/TgaReader.h"
#include "platform/Assert.h"
#include "platform/Paths.h"

namespace TextureManager {

namespace {

/// Set when the map has gone at the end of the process: handles that are static in other
/// modules may outlive it.
bool mapGone = false;

struct RecordMap {
    // Byte order of the keys is the order of `List`.
    std::map<std::string, TextureRecord> byKey;
    ~RecordMap() { mapGone = true; }
};

/// Made at first use, as static handles may also come before this file's own statics.
std::map<std::string, TextureRecord>& Records() {
    static RecordMap map;
    return map.byKey;
}

std::uint32_t generation = 0;
std::uint32_t reloadCount = 0;
TextureDevice* device = nullptr;
TextureQuality quality = TextureQuality::Full;
int anisotropy = 1;
int maxAnisotropy = 1;
bool hasAnisotropy = false;
bool hasCompression = false;
/// Without a device names still need numbers, as handles compare by them.
std::uint32_t lastNumber = 0;

bool IsOwner(const TextureRecord& record) {
    return record.ownerThread == std::this_thread::get_id();
}

void Upload(const TextureRecord& record, const std::vector<std::uint32_t>& pixels) {
    const TextureDevice::Options options{quality, hasCompression, hasAnisotropy ? anisotropy : 0};
    device->Upload(record.glName, pixels.data(), record.width, record.height, options);
}

bool LoadTga(BufferedFile& file, TextureRecord& record) {
    TgaImage image;
    if (!ReadTga(file, image)) {
        return false;
    }
    record.width = image.width;
    record.height = image.height;
    record.bytesPerPixel = 4;
    record.hasAlpha = true;
    Upload(record, image.pixels);
    return true;
}

bool LoadTgaFile(TextureRecord& record) {
    if (!record.name.ends_with(".TGA")) {
        return false;
    }
    DiskFile file;
    file.Open(record.name);
    return LoadTga(file, record);
}

bool LoadImageFile(TextureRecord& record) {
    const auto path = Platform::FindFile(record.name);
    if (!path) {
        return false;
    }
    const auto file = device->LoadImage(*path);
    if (!file || file->width < 1 || file->height < 1) {
        return false;
    }
    const ConvertedImage image = ConvertImage(*file);
    if (image.pixels.empty()) {
        return false;
    }
    record.width = file->width;
    record.height = file->height;
    record.bytesPerPixel = image.bytesPerPixel;
    record.hasAlpha = image.hasAlpha;
    Upload(record, image.pixels);
    return true;
}

bool LoadResource(TextureRecord& record) {
    ResourceFile file;
    file.Open(record.resourceName);
    return LoadTga(file, record);
}

void LoadCheckerboard(TextureRecord& record) {
    constexpr std::uint32_t side = 16;
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            pixels.push_back((x + y) % 2 == 0 ? 0xFFFFFFFF : 0xFF000000);
        }
    }
    record.width = side;
    record.height = side;
    record.bytesPerPixel = 4;
    Upload(record, pixels);
}

/// First load and reload alike: every source is tried anew.
void Load(TextureRecord& record) {
    record.width = 0;
    record.height = 0;
    record.bytesPerPixel = 0;
    record.hasAlpha = false;
    record.loadedFromFile = true;
    if (!device || LoadTgaFile(record) || LoadImageFile(record)) {
        return;
    }
    record.loadedFromFile = false;
    if (!LoadResource(record)) {
        LoadCheckerboard(record);
    }
}

void DeleteAll() {
    if (device) {
        for (const auto& [key, record] : Records()) {
            device->Delete(record.glName);
        }
    }
    Records().clear();
    ++generation;
}

}  // namespace

void UseDevice(TextureDevice* newDevice) {
    device = newDevice;
}

std::uint32_t Generation() {
    return generation;
}

void Initialise() {
    DeleteAll();
    anisotropy = 1;
    quality = TextureQuality::Full;
    maxAnisotropy = device ? device->MaxAnisotropy() : 0;
    hasAnisotropy = maxAnisotropy > 0;
    maxAnisotropy = std::max(maxAnisotropy, 1);
    hasCompression = device && device->HasCompression();
    if (hasCompression) {
        device->SetCompressionHint(true);
    }
}

void Shutdown() {
    DeleteAll();
    anisotropy = 1;
}

const TextureRecord& Acquire(const std::string& name, const char* resourceName) {
    auto& records = Records();
    std::string key = UpperCased(name);
    const auto found = records.find(key);
    if (found != records.end()) {
        TextureRecord& record = found->second;
        if (IsOwner(record)) {
            ++record.refCount;
        }
        return record;
    }
    TextureRecord& record = records[key];
    record.name = std::move(key);
    record.resourceName = resourceName ? resourceName : "";
    record.ownerThread = std::this_thread::get_id();
    record.glName = device ? device->Generate() : ++lastNumber;
    Load(record);
    record.refCount = 1;
    return record;
}

void Release(const std::string& name) {
    if (mapGone) {
        return;
    }
    auto& records = Records();
    const auto found = records.find(UpperCased(name));
    if (found == records.end() || !IsOwner(found->second)) {
        return;
    }
    TextureRecord& record = found->second;
    VANTREL_ASSERT(record.refCount > 0);
    if (--record.refCount == 0) {
        if (device) {
            device->Delete(record.glName);
        }
        records.erase(found);
    }
}

void List(std::vector<std::string>& lines) {
    for (const auto& [key, record] : Records()) {
        lines.push_back(key + (record.loadedFromFile ? "" : " (loading failed) ") + " : " +
                        std::to_string(record.bytesPerPixel * 8) + " BIT");
    }
}

std::uint32_t MemoryBytes() {
    std::uint32_t sum = 0;
    for (const auto& [key, record] : Records()) {
        sum += record.width * record.height * 4;
    }
    return sum;
}

void ReloadAll() {
    ++reloadCount;
    for (auto& [key, record] : Records()) {
        if (IsOwner(record)) {
            Load(record);
        }
    }
}

std::uint32_t ReloadCount() {
    return reloadCount;
}

bool HasAlpha(const std::string& name) {
    const auto found = Records().find(UpperCased(name));
    return found == Records().end() || found->second.hasAlpha;
}

void SetQuality(TextureQuality value) {
    if (value == quality) {
        return;
    }
    quality = value;
    if (hasCompression) {
        device->SetCompressionHint(quality != TextureQuality::Halved);
    }
    ReloadAll();
}

TextureQuality Quality() {
    return quality;
}

void SetAnisotropy(int value) {
    if (!hasAnisotropy) {
        return;
    }
    anisotropy = std::clamp(value, 1, maxAnisotropy);
    for (const auto& [key, record] : Records()) {
        device->SetAnisotropy(record.glName, anisotropy);
    }
}

int Anisotropy() {
    return anisotropy;
}

void ExpandFrameNames(std::string_view name, std::vector<std::string>& names) {
    std::string upper = UpperCased(name);
    const std::size_t frame = upper.rfind("_FRAME");
    if (frame == std::string::npos) {
        names.push_back(std::move(upper));
        return;
    }
    std::string pattern = upper.substr(0, frame) + "_FRAME*";
    if (const std::size_t dot = upper.rfind('.'); dot != std::string::npos) {
        pattern += upper.substr(dot);
    }
    const std::size_t slash = pattern.rfind('\\');
    const std::string directory =
        slash == std::string::npos ? std::string() : pattern.substr(0, slash + 1);
    // Frames count upwards, however the case of their names differs.
    std::vector<std::string> files = Platform::ListFiles(pattern);
    std::sort(files.begin(), files.end(), [](const std::string& a, const std::string& b) {
        return UpperCased(a) < UpperCased(b);
    });
    for (const std::string& file : files) {
        names.push_back(directory + file);
    }
}

}  // namespace TextureManager
