#include "AboutSections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace appkitglue;
using testing::ElementsAre;
using testing::HasSubstr;

// The file holds a raw string literal.
constexpr std::string_view expectedPage =
#include "Expected/AboutPage.html.inc"
    ;

std::vector<std::string> names(const AboutSection& section) {
    std::vector<std::string> result;
    std::ranges::transform(section.libraries, std::back_inserter(result), &Library::name);
    return result;
}

TEST(AboutData, HasThreeSectionsInOrder) {
    const auto& sections = AboutSections::allSections();
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[0].title, "Libraries");
    EXPECT_THAT(names(sections[0]),
                ElementsAre("SplitKit", "Container Transitions", "KWTransition", "RetroTransition", "Tatsi", "Splash",
                            "Pulldown Cmark", "Syntect", "Aho-Corasick ", "Rayon-RS ", "SDWebImageSwiftUI ",
                            "TOMLDecoder ", "Sentry ", "VideoPlayer ", "Sparkle", "KaTeX", "simplecss", "Macaw"));
    EXPECT_EQ(sections[1].title, "Fonts");
    EXPECT_THAT(names(sections[1]),
                ElementsAre("Archivo Black", "Open Sans ", "Fira Sans ", "Gravitas One ", "Enriqueta ", "Bowlby One ",
                            "Inter ", "JetBrains Mono ", "PT Mono ", "Nunito", "Playfair Display", "Martel", "Lora"));
    EXPECT_EQ(sections[2].title, "Icons");
    EXPECT_THAT(names(sections[2]), ElementsAre("Bug Image", "File Icons"));
}

TEST(AboutData, IsBuiltOnce) {
    EXPECT_EQ(&AboutSections::allSections(), &AboutSections::allSections());
}

TEST(AboutData, EveryRowHasAnAuthorAndAnAddress) {
    for (const auto& section : AboutSections::allSections())
        for (const auto& library : section.libraries) {
            EXPECT_FALSE(library.author.empty()) << library.name;
            EXPECT_TRUE(library.urlString.starts_with("https://")) << library.name;
        }
}

TEST(AboutData, IsIdentifiedByNameAndTitle) {
    const Library library{"n", "a", "u"};
    EXPECT_EQ(library.id(), "n");
    EXPECT_NE(library, (Library{"n", "a", "other"}));
    EXPECT_EQ((AboutSection{"t", {}}.id()), "t");
}

TEST(AboutPage, TemplateHas664Characters) {
    EXPECT_EQ(AboutSections::pageTemplate().size(), 664U);
}

TEST(AboutPage, IsExactlyThis) {
    EXPECT_EQ(AboutSections::aboutPageHTML("1.2.3", "45"), expectedPage);
}

TEST(AboutPage, ShowsVersionAndBuildInBoldLabels) {
    EXPECT_THAT(AboutSections::aboutPageHTML("Unknown", "Unknown"),
                HasSubstr("<h5><b>Version:</b> Unknown, <b>Build:</b> Unknown</h5><br/>"));
}

TEST(AboutPage, HasNoBlankAfterTheFirstSentence) {
    EXPECT_THAT(AboutSections::aboutPageHTML("", ""),
                HasSubstr("<p>Quorvel uses several open source solutions.I wouldn't have been able to develop it "
                          "without them.</p>"));
}

TEST(AboutPage, EscapesNothing) {
    EXPECT_THAT(AboutSections::aboutPageHTML("<&>", "'"), HasSubstr("</b> <&>, <b>"));
}

TEST(AboutPage, ReplacesEachMarkerOnceInASinglePass) {
    EXPECT_EQ(AboutSections::filledTemplate("a{content}b{content}c", "<{content}>"), "a<{content}>b<{content}>c");
    EXPECT_EQ(AboutSections::filledTemplate("none", "x"), "none");
    EXPECT_THAT(AboutSections::aboutPageHTML("{content}", "1"), HasSubstr("</b> {content}, <b>"));
}

} // namespace
