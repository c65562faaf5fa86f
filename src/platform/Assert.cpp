#include "platform/Assert.h"

#include <cstdio>
#include <cstdlib>

namespace Platform {

void AssertFailed(const char* condition, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: broken precondition: %s\n", file, line, condition);
    std::abort();
}

}  // namespace Platform
