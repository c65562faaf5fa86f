#pragma once
// The version of the game and its tools.

/// As the build has it, in CMakeLists.txt's `project`: "1.03".
extern const char* const programVersion;
