// Entry point of all test programs.

#include <gtest/gtest.h>

// The GL driver leaks a little in code that is unloaded at exit, which no leak report could
// name; so nothing is ever unloaded while tests run.
extern "C" int dlclose(void* /*handle*/) {
    return 0;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
