// Any bytes as a map: refused with a reason, or compiled to a level file that can be read, and
// that as a map again compiles to the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "Compile.h"
#include "Decompile.h"
#include "MapReader.h"

namespace {

std::optional<LevelFile> CompileText(std::span<const std::byte> text, std::string& reason) {
    const auto objects = ReadMap(text, reason);
    return objects ? Compile(*objects, reason) : std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string reason;
    const auto level = CompileText(std::as_bytes(std::span(data, size)), reason);
    if (!level) {
        return reason.empty() ? (std::abort(), 0) : 0;
    }
    const auto bytes = level->Serialise();
    std::uint32_t version = 0;
    const auto read = LevelFile::Parse(bytes, reason, version);
    const std::string map = read ? Decompile(*read) : "";
    const auto again = CompileText(std::as_bytes(std::span(map)), reason);
    if (!again || again->Serialise() != bytes) {
        std::abort();
    }
    return 0;
}
