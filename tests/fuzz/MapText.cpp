// Any bytes as a map: refused with a reason, or compiled to a level file that can be read, and
// that as a map again compiles to the same.

#include "Compile.h"
#include "Decompile.h"
#include "MapReader.h"
#include "fuzz/Harness.h"

namespace {

std::optional<LevelFile> CompileText(std::span<const std::byte> text, std::string& reason) {
    const auto objects = ReadMap(text, reason);
    return objects ? Compile(*objects, reason) : std::nullopt;
}

}  // namespace

void Try(std::string_view input) {
    std::string reason;
    const auto level = CompileText(BytesOf(input), reason);
    if (!level) {
        return Expect(!reason.empty());
    }
    const auto bytes = level->Serialise();
    std::uint32_t version = 0;
    const auto read = LevelFile::Parse(bytes, reason, version);
    const std::string map = read ? Decompile(*read) : "";
    const auto again = CompileText(BytesOf(map), reason);
    Expect(again && again->Serialise() == bytes);
}
