#pragma once
// Names to files. Names come upper-cased and with backslashes; each component is matched
// exactly first and then without regard to case. A name is looked up in the working
// directory first and then in the data root; names that climb out of their root are refused.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

/// Whether the name came from a person or from data. Data may not name absolute paths or
/// climb with "..".
enum class NameSource { Data, Person };

/// The real file behind a name, if there is one.
std::optional<std::filesystem::path> FindFile(std::string_view name,
                                              NameSource source = NameSource::Data);

/// Where to write a file of that name: in the working directory, with its directories matched
/// without regard to case; missing directories are made. None if the name isn't allowed.
std::optional<std::filesystem::path> WritablePath(std::string_view name);

/// Names of the files of a directory that match a pattern with "*", without regard to case,
/// ascending by name, as they are on disk; working directory and data root together, each
/// name once. `pattern` is like "lev\\*.swah".
std::vector<std::string> ListFiles(std::string_view pattern);

/// No file that is read whole is larger; the largest of the game's own has a hundredth of it.
inline constexpr std::size_t largestWholeFile = std::size_t{256} << 20;
/// The whole file, if it is a regular one of that size at most and can be read.
std::optional<std::vector<std::byte>> ReadWholeFile(const std::filesystem::path& path);
/// Replaces the file, or makes it, in one step; see FileUpdate::Write.
bool WriteWholeFile(const std::filesystem::path& path, const void* data, std::size_t size);

/// Whether `WriteWholeFile` would succeed now, found out with an empty temporary file.
bool CanWriteFile(const std::filesystem::path& path);

/// The directory that the game's data is read from.
std::filesystem::path DataRoot();
/// Sets the data root; with `first`, it is looked up before the working directory.
void UseDataRoot(const std::filesystem::path& root, bool first = false);
/// Finds the data root from VANTREL_DATA, a "data" directory beside the program or its
/// source tree, or the install's share directory.
void FindDataRoot(const std::filesystem::path& program);
/// Makes the user's data directory the working directory if the program is an installed one.
void EnterUserDirectory();
/// Forgets cached directory listings, so that new files are seen.
void ForgetListings();

/// The user's configuration directory for Vantrel, absolute; not created by this call. Empty if the
/// environment tells neither it nor a home.
std::filesystem::path ConfigDirectory();

}  // namespace Platform
