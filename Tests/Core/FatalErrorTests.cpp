#include "FatalError.h"

#include <gtest/gtest.h>

namespace {

TEST(FatalErrorDeathTest, WritesOneLineAndAborts) {
    EXPECT_EXIT(appkitglue::fatalError("Unit", 12, "the message"), testing::KilledBySignal(SIGABRT),
                "^AppKitGlue/Unit:12: Fatal error: the message\n$");
}

} // namespace
