#pragma once
// Where the game's data lies, and where the user's files go.

#include <filesystem>

namespace Platform {

/// The directory that the game's data is read from.
std::filesystem::path DataRoot();
/// Sets the data root; with `first`, it is looked up before the working directory.
void UseDataRoot(const std::filesystem::path& root, bool first = false);
/// Finds the data root from VANTREL_DATA, a "data" directory beside the program or its
/// source tree, or the install's share directory.
void FindDataRoot(const std::filesystem::path& program);
/// Makes the user's data directory the working directory if the program is an installed one.
void EnterUserDirectory();
/// Whether the data root is looked up before the working directory.
bool DataRootComesFirst();

/// The user's configuration directory for Vantrel, absolute; not created by this call. Empty if the
/// environment tells neither it nor a home.
std::filesystem::path ConfigDirectory();

}  // namespace Platform
