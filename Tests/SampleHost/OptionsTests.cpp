#include "Options.h"

using samplehost::parseOptions;

namespace {

samplehost::Options parsed(const std::vector<const char*>& arguments) {
    return parseOptions(arguments);
}

} // namespace

TEST(OptionsTest, ReadsOptionsAndFiles) {
    const auto options = parsed({"--log", "/tmp/l", "a.md", "--defaults-fresh", "b.md", "--bundle", "x.bundle"});
    EXPECT_EQ(options.log, "/tmp/l");
    EXPECT_EQ(options.bundle, "x.bundle");
    EXPECT_TRUE(options.freshDefaults);
    EXPECT_EQ(options.files, (std::vector<std::string>{"a.md", "b.md"}));
    EXPECT_EQ(options.error, "");
}

TEST(OptionsTest, DefaultsOfOneRunAreNoFiles) {
    EXPECT_EQ(parsed({"-GSTheme", "Other", "a.md"}).files, (std::vector<std::string>{"a.md"}));
}

TEST(OptionsTest, SaysWhatItDoesNotUnderstand) {
    EXPECT_EQ(parsed({"--log"}).error, "--log needs a value");
    EXPECT_EQ(parsed({"--nonsense"}).error, "unknown option --nonsense");
    EXPECT_TRUE(parsed({"--help"}).help);
}
