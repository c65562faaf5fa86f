// The version, as CMake hands it over.

#include "engine/Version.h"

const char* const programVersion = VANTREL_VERSION;
