#pragma once
// Files that are read or replaced whole, by their real paths.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

namespace Platform {

/// No file that is read whole is larger; the largest of the game's own has a hundredth of it.
inline constexpr std::size_t largestWholeFile = std::size_t{256} << 20;
/// The whole file, if it is a regular one of that size at most and can be read.
std::optional<std::vector<std::byte>> ReadWholeFile(const std::filesystem::path& path);
/// Replaces the file, or makes it, in one step; see FileUpdate::Write.
bool WriteWholeFile(const std::filesystem::path& path, const void* data, std::size_t size);

/// Whether `WriteWholeFile` would succeed now, found out with an empty temporary file.
bool CanWriteFile(const std::filesystem::path& path);

}  // namespace Platform
