#pragma once
// Where the sources and the build lie. No other object of the tests holds a path, so that a
// compiler cache serves them to every checkout.

#include <filesystem>
#include <string>

/// Absolute.
std::filesystem::path SourceDirectory();

/// Of the build that the calling program belongs to. Absolute.
std::filesystem::path BuildDirectory();

/// The program of a tool, such as "vantrel-sim", in that build.
std::filesystem::path ToolProgram(const std::string& name);
