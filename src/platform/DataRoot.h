#pragma once
// What only the path lookup needs to know of the data root. See Paths.h.

namespace Platform {

/// Whether the data root is looked up before the working directory.
bool DataRootComesFirst();

}  // namespace Platform
