#include "support/Places.h"

std::filesystem::path SourceDirectory() {
    return SOURCE_DIRECTORY;
}

std::filesystem::path BuildDirectory() {
    return BUILD_DIRECTORY;
}

std::filesystem::path ToolProgram(const std::string& name) {
    return BuildDirectory() / "tools" / name / name;
}
