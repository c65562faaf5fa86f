// The end of the process.

#include "platform/System.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

TEST(System, ExitSkipsTearDownWhileAskedTo) {
    const auto endWith = [](bool atOnce) {
        std::atexit([] { std::_Exit(9); });  // stands for the destructors of statics
        Platform::EndAtOnceOnExit(true);
        Platform::EndAtOnceOnExit(atOnce);
        std::exit(4);
    };
    EXPECT_EXIT(endWith(true), testing::ExitedWithCode(4), "");
    EXPECT_EXIT(endWith(false), testing::ExitedWithCode(9), "");
}

}  // namespace
