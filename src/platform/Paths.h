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

/// Forgets cached directory listings, so that new files are seen.
void ForgetListings();

}  // namespace Platform
