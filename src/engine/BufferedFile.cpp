// The in-memory reader and its two sources.

#include "engine/BufferedFile.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "engine/EmbeddedResources.h"
#include "platform/Assert.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

void BufferedFile::Close() {
    data = {};
    position = 0;
    failed = true;
}

void BufferedFile::Adopt(std::vector<std::byte> block) {
    data = std::move(block);
    position = 0;
    failed = data.empty();
}

void BufferedFile::Read(void* destination, std::size_t byteCount) {
    if (byteCount > Remaining() || !IsOpen()) {
        failed = true;
        return;
    }
    if (byteCount > 0) {
        VANTREL_ASSERT(destination != nullptr);
        std::memcpy(destination, Cursor(), byteCount);
    }
    position += byteCount;
}

void BufferedFile::Seek(std::ptrdiff_t offset, int origin) {
    const auto size = static_cast<std::ptrdiff_t>(data.size());
    std::ptrdiff_t base = 0;
    switch (origin) {
        case FromHere:
            base = static_cast<std::ptrdiff_t>(position);
            break;
        case BackFromEnd:
            base = size;
            // The smallest number has no negative; being one off makes no difference that far out.
            offset = -std::max(offset, -std::numeric_limits<std::ptrdiff_t>::max());
            break;
        case FromStart:
            break;
        default:
            return;
    }
    // Compared as distances from the base, so that no sum can overflow.
    const std::ptrdiff_t held = std::clamp(offset, -base, size - base);
    failed = failed || held != offset;
    position = static_cast<std::size_t>(base + held);
}

void DiskFile::Open(const std::string& name) {
    Close();
    if (name.empty()) {
        return;
    }
    const auto path = Platform::FindFile(name);
    auto block = path ? Platform::ReadWholeFile(*path) : std::nullopt;
    if (block) {
        Adopt(std::move(*block));
    }
}

void ResourceFile::Open(const std::string& name) {
    Close();
    const auto bytes = EmbeddedResources::Find(name);
    Adopt({bytes.begin(), bytes.end()});
}
