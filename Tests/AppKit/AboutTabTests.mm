#import "Input.h"
#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include "AboutSections.h"
#include "StringBridging.h"

#include <gmock/gmock.h>
#include <objc/runtime.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace appkitglue;
using testing::HasSubstr;

namespace {

struct Link {
    std::string text;
    std::string address;
    NSUInteger location;
};

// Stands for the info dictionary of the program while it exists.
class InfoDictionary {
public:
    explicit InfoDictionary(NSDictionary *dictionary) {
        current_ = dictionary;
        original_ = method_setImplementation(method(), reinterpret_cast<IMP>(&InfoDictionary::read));
    }
    InfoDictionary(const InfoDictionary &) = delete;
    InfoDictionary &operator=(const InfoDictionary &) = delete;
    ~InfoDictionary() { method_setImplementation(method(), original_); }

private:
    static Method method() { return class_getInstanceMethod([NSBundle class], @selector(infoDictionary)); }
    static id read(id self, SEL command) {
        return self == [NSBundle mainBundle] ? current_ : reinterpret_cast<id (*)(id, SEL)>(original_)(self, command);
    }

    static inline NSDictionary *current_ = nil;
    static inline IMP original_ = nullptr;
};

class AboutTab : public test::PreferencesWindowFixture {
protected:
    void openTab() {
        open();
        press("About");
    }

    static NSTextStorage *text() { return [[about() textView] textStorage]; }
    static std::string content() { return toUTF8([text() string]); }

    static std::vector<Link> links() {
        std::vector<Link> result;
        for (NSUInteger i = 0; i < [text() length];) {
            NSRange range{};
            id link = [text() attribute:NSLinkAttributeName
                                atIndex:i
                  longestEffectiveRange:&range
                                inRange:NSMakeRange(0, [text() length])];
            if (link != nil) {
                NSString *address = [link isKindOfClass:[NSURL class]] ? [link absoluteString] : link;
                result.push_back({toUTF8([[text() string] substringWithRange:range]), toUTF8(address), range.location});
            }
            i = NSMaxRange(range);
        }
        return result;
    }
};

TEST_F(AboutTab, ShowsUnknownForAHostWithoutAVersion) {
    openTab();
    EXPECT_THAT(content(), HasSubstr("Version: Unknown, Build: Unknown"));
    for (NSString *label in @[ @"Version:", @"Build:" ]) {
        const NSRange range = [[text() string] rangeOfString:label];
        NSFont *font = [text() attribute:NSFontAttributeName atIndex:range.location effectiveRange:nullptr];
        EXPECT_TRUE([[NSFontManager sharedFontManager] traitsOfFont:font] & NSBoldFontMask) << toUTF8(label);
    }
    EXPECT_EQ([about() aboutPageHTML], AboutSections::aboutPageHTML("Unknown", "Unknown"));
}

TEST_F(AboutTab, ShowsTheHostsVersionAndBuild) {
    const InfoDictionary info(@{@"CFBundleShortVersionString" : @"2.1", @"CFBundleVersion" : @"345"});
    openTab();
    EXPECT_THAT(content(), HasSubstr("Version: 2.1, Build: 345"));
}

TEST_F(AboutTab, ShowsUnknownForAVersionThatIsNoText) {
    const InfoDictionary info(@{@"CFBundleShortVersionString" : @(2.1), @"CFBundleVersion" : @"345"});
    openTab();
    EXPECT_THAT(content(), HasSubstr("Version: Unknown, Build: 345"));
}

TEST_F(AboutTab, JoinsTheTwoSentencesWithoutABlank) {
    openTab();
    EXPECT_THAT(content(),
                HasSubstr("Quorvel uses several open source solutions.I wouldn't have been able to develop it "
                          "without them."));
}

TEST_F(AboutTab, LinksEveryLibraryInTheOrderOfTheData) {
    openTab();
    std::vector<std::string> expected{"Quorvel Website " + std::string(AboutSections::website)};
    for (const auto &section : AboutSections::allSections()) {
        for (const auto &library : section.libraries) {
            expected.push_back(library.name + " " + library.urlString);
        }
    }
    std::vector<std::string> shown;
    for (const auto &link : links()) {
        shown.push_back(link.text + " " + link.address);
    }
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(shown.size(), 1U + 18 + 13 + 2);
    EXPECT_THAT(content(), HasSubstr("\u2022\tAho-Corasick by "));
}

TEST_F(AboutTab, ReplacesThePageEachTimeItAppears) {
    openTab();
    const std::string first = content();
    [[about() textView] setString:@"something else"];
    press("General");
    press("About");
    EXPECT_EQ(content(), first);
    EXPECT_TRUE(NSEqualSizes([[about() textView] textContainerInset], NSMakeSize(20, 20)));
    EXPECT_FALSE([[about() textView] isEditable]);
}

TEST_F(AboutTab, OpensALinkThatIsClicked) {
    const std::string opened = test::temporaryPath("opened");
    const std::string program = test::temporaryPath("xdg-open");
    std::ofstream(program) << "#!/bin/sh\necho \"$1\" >> '" << opened << "'\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const std::string path = std::getenv("PATH");
    setenv("PATH", (std::filesystem::path(program).parent_path().string() + ":" + path).c_str(), 1);
    openTab();
    const Link link = links().at(1);
    NSTextView *view = [about() textView];
    NSLayoutManager *layout = [view layoutManager];
    const NSRect glyph =
        [layout boundingRectForGlyphRange:[layout glyphRangeForCharacterRange:NSMakeRange(link.location + 1, 2)
                                                         actualCharacterRange:nullptr]
                          inTextContainer:[view textContainer]];
    const NSPoint origin = [view textContainerOrigin];
    test::runUntilQuiet(window());
    test::click(window(), [view convertPoint:NSMakePoint(NSMidX(glyph) + origin.x, NSMidY(glyph) + origin.y)
                                      toView:nil]);
    std::string line;
    EXPECT_TRUE(test::runUntil([&] {
        std::ifstream file(opened);
        return static_cast<bool>(std::getline(file, line)) && !line.empty();
    }));
    EXPECT_EQ(line, link.address);
    setenv("PATH", path.c_str(), 1);
}

TEST_F(AboutTab, HoldsAStateWithoutADismissAction) {
    openTab();
    ASSERT_NE([about() aboutState], nullptr);
    EXPECT_FALSE([about() aboutState]->dismissAction());
}

} // namespace
