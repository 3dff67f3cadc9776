// test: displays=2
#import "Displays.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

std::vector<std::string> names() {
    std::vector<std::string> result;
    for (NSScreen *screen in [NSScreen screens]) {
        result.emplace_back([[screen localizedName] UTF8String]);
    }
    return result;
}

class DisplayName : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(test::arrange(test::usualDisplays(2))); }
    void TearDown() override {
        test::nameDisplay("DUMMY0", "");
        test::nameDisplay("DUMMY1", "");
    }
};

using testing::ElementsAre;

TEST_F(DisplayName, IsTheOutputsNameWhenTheDisplayTellsNone) {
    EXPECT_THAT(names(), ElementsAre("DUMMY0", "DUMMY1"));
}

TEST_F(DisplayName, IsWhatTheDisplayTells) {
    test::nameDisplay("DUMMY1", "Projector");
    EXPECT_THAT(names(), ElementsAre("DUMMY0", "Projector"));
}

TEST_F(DisplayName, KeepsAllThirteenCharacters) {
    test::nameDisplay("DUMMY0", "ABCDEFGHIJKLM");
    EXPECT_THAT(names(), ElementsAre("ABCDEFGHIJKLM", "DUMMY1"));
}

TEST_F(DisplayName, OfBlanksCountsAsNone) {
    test::nameDisplay("DUMMY0", "   ");
    EXPECT_THAT(names(), ElementsAre("DUMMY0", "DUMMY1"));
}

TEST_F(DisplayName, KeepsQuotesEmojiAndLatinLetters) {
    test::nameDisplay("DUMMY0", "\"A\" 📽");
    test::nameDisplay("DUMMY1", "Gr\xFC\xDF"
                                "e \xD7");
    EXPECT_THAT(names(), ElementsAre("\"A\" 📽", "Grüße ×"));
}

TEST_F(DisplayName, BelongsToTheDisplayNotToItsPlace) {
    test::nameDisplay("DUMMY0", "Left");
    test::nameDisplay("DUMMY1", "Right");
    ASSERT_TRUE(test::arrange({{"DUMMY0", 1440, 900, 1920, 0, false}, {"DUMMY1", 1920, 1080, 0, 0, true}}));
    EXPECT_TRUE(test::runUntil([] { return names() == std::vector<std::string>{"Right", "Left"}; }));
}

TEST_F(DisplayName, DiffersForMirroredDisplays) {
    test::nameDisplay("DUMMY0", "Laptop");
    test::nameDisplay("DUMMY1", "Projector");
    ASSERT_TRUE(test::arrange({{"DUMMY0", 1440, 900, 0, 0, true}, {"DUMMY1", 1440, 900, 0, 0, false}}));
    EXPECT_THAT(names(), ElementsAre("Laptop", "Projector"));
}

TEST_F(DisplayName, OfARemovedDisplayIsEmpty) {
    NSScreen *second = [[[NSScreen screens] objectAtIndex:1] retain];
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_EQ(std::string([[second localizedName] UTF8String]), "");
    [second release];
}

} // namespace
