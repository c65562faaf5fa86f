// vantrel-level: makes level files from Tiled maps and back, checks them, and prints what the
// game makes of their geometry.

#include <cstddef>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "Check.h"
#include "Compile.h"
#include "Decompile.h"
#include "LevelInput.h"
#include "MapReader.h"
#include "Options.h"
#include "Print.h"
#include "engine/Version.h"
#include "platform/DataRoot.h"
#include "platform/WholeFile.h"

namespace {

/// Nothing else could bring back an input that was written over.
bool WriteOutput(const std::filesystem::path& input, const std::string& output,
                 std::span<const std::byte> bytes, std::string& failure) {
    std::error_code error;
    if (std::filesystem::equivalent(input, output, error)) {
        failure = output + ": is the input, and stays as it is";
    } else if (!Platform::CanWriteFile(output) ||
               !Platform::WriteWholeFile(output, bytes.data(), bytes.size())) {
        failure = output + ": cannot be written";
    } else {
        return true;
    }
    return false;
}

bool RunCompile(const Options& options, std::string& failure) {
    const std::string& mapName = options.files[0];
    const auto bytes = Platform::ReadWholeFile(mapName);
    if (!bytes) {
        failure = mapName + ": cannot be read";
        return false;
    }
    const auto objects = ReadMap(*bytes, failure);
    const auto level = objects ? Compile(*objects, failure) : std::nullopt;
    if (!level) {
        failure = mapName + ": " + failure;
        return false;
    }
    return WriteOutput(mapName, options.output, level->Serialise(), failure);
}

bool RunDecompile(const Options& options, std::string& failure) {
    const auto level = ReadLevel(options.files[0], failure);
    if (!level) {
        return false;
    }
    const std::string map = Decompile(*level);
    return WriteOutput(LevelPath(options.files[0]), options.output, std::as_bytes(std::span(map)),
                       failure);
}

/// The commands that read a level and print. `isSound` turns false where `check` finds errors.
bool RunPrinting(const Options& options, std::string& failure, bool& isSound) {
    const auto level = ReadLevel(options.files[0], failure);
    if (!level) {
        return false;
    }
    std::deque<LevelPolygon> polygons = MakePolygons(*level);
    if (options.command == "check") {
        isSound = PrintCheck(*level, polygons);
    } else if (options.command == "triangles") {
        PrintTriangles(polygons);
    } else if (options.command == "bsp") {
        PrintTree(polygons);
    } else if (!PrintCollisions(polygons, options.files[1], failure)) {
        return false;
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        failure = "standard output cannot be written";
        return false;
    }
    return true;
}

int Run(const Options& options) {
    std::string failure;
    bool isSound = true;
    bool isDone = false;
    if (options.command == "compile") {
        isDone = RunCompile(options, failure);
    } else if (options.command == "decompile") {
        isDone = RunDecompile(options, failure);
    } else {
        isDone = RunPrinting(options, failure, isSound);
    }
    if (!isDone) {
        std::fprintf(stderr, "vantrel-level: %s\n", failure.c_str());
    }
    return isDone && isSound ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const std::string& argument : arguments) {
        if (argument == "--help") {
            std::fputs(levelHelpText, stdout);
            return 0;
        }
        if (argument == "--version") {
            std::printf("vantrel-level %s\n", programVersion);
            return 0;
        }
    }
    std::string failure;
    const auto options = ParseOptions(arguments, failure);
    if (!options) {
        std::fprintf(stderr, "vantrel-level: %s\n", failure.c_str());
        return 2;
    }
    Platform::FindDataRoot(argv[0]);
    if (!options->dataRoot.empty()) {
        Platform::UseDataRoot(options->dataRoot, true);
    }
    return Run(*options);
}
