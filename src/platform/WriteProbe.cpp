// Whether a file could be written, before hours go into what it is to hold.

#include <unistd.h>

#include <cstdlib>
#include <string>

#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace Platform {

bool CanWriteFile(const fs::path& path) {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    if (error || !path.has_filename() ||
        (fs::exists(real, error) && !fs::is_regular_file(real, error))) {
        return false;
    }
    std::string probe = (real.parent_path() / ".vantrel-XXXXXX").string();
    const int file = mkstemp(probe.data());
    if (file < 0) {
        return false;
    }
    close(file);
    unlink(probe.c_str());
    return true;
}

}  // namespace Platform
