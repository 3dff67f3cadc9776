#include "AboutScreenView.h"
#include "ViewLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace appkitglue;
using namespace appkitglue::ui;
using testing::ElementsAre;

View plain(std::string string, std::optional<FontRole> font, std::optional<ColorRole> color = {}) {
    return {Text{std::move(string), false, font, color}};
}

View key(std::string string, std::optional<FontRole> font, std::optional<ColorRole> color) {
    return {Text{std::move(string), true, font, color}};
}

View padded(EdgeInsets insets, View view) {
    return {Padding{insets}, {std::move(view)}};
}
View padded(double all, View view) {
    return padded({all, all, all, all}, std::move(view));
}

View row(const std::string& name, const std::string& author, const std::string& url) {
    const RoundedRectangle shape{4, ColorRole::accent, std::nullopt};
    const View label(Decoration{shape, false}, {padded(5, key("Open", {}, ColorRole::white))});
    return {Identity{name},
            {padded(16, View(Stack{Axis::horizontal, Alignment::center, 8},
                             {View(Stack{Axis::vertical, Alignment::leading, 8},
                                   {plain(name, FontRole::headline), plain(author, FontRole::subheadline)}),
                              View(Spacer{}), View(Button{{"open " + url, {}}}, {label})}))}};
}

const std::vector<AboutSection> twoSections{{"One", {{"a", "A", "u"}, {"b", "B", "v"}, {"a", "C", "w"}}}, {"Two", {}}};

View expectedScreen() {
    const View one(Identity{"One"}, {View(Stack{Axis::vertical, Alignment::leading, 8},
                                          {plain("One", FontRole::subheadline), row("b", "B", "v"), row("a", "A", "u"),
                                           row("a", "C", "w")})});
    const View two(Identity{"Two"},
                   {View(Stack{Axis::vertical, Alignment::leading, 8}, {plain("Two", FontRole::subheadline)})});
    const View list(
        Decoration{{8, ColorRole::controlBackground, std::nullopt}, false},
        {padded(5, View(ScrollView{true}, {View(Stack{Axis::vertical, Alignment::leading, 8}, {one, two})}))});
    const View close(TapTarget{{"dismiss", {}}}, {View(Decoration{{8, ColorRole::accent, StrokeStyle{1, 10, {}}}, true},
                                                       {padded(7, key("Close", FontRole::body, ColorRole::accent))})});
    return padded(16, View(Stack{Axis::vertical, Alignment::leading, 12},
                           {padded({5, 0, 15, 0}, plain("About Quorvel", FontRole::title)),
                            plain("Quorvel uses several open source solutions", FontRole::headline),
                            plain("I wouldn't have been able to develop it without them", FontRole::body), list,
                            padded(0, View(Stack{Axis::horizontal, Alignment::center, 8}, {close}))}));
}

// The names of the rows of a section, as shown.
std::vector<std::string> shownNames(const AboutSection& section) {
    std::vector<std::string> names;
    for (const View& child : section.body().children)
        if (const auto* identity = std::get_if<Identity>(&child.content))
            names.push_back(identity->id);
    return names;
}

// Finds the first view of a kind, in the order of the tree.
template <class T> const T* find(const View& view) {
    if (const auto* found = std::get_if<T>(&view.content))
        return found;
    for (const View& child : view.children)
        if (const auto* found = find<T>(child))
            return found;
    return nullptr;
}

TEST(AboutScreen, IsThisTree) {
    EXPECT_EQ((AboutScreenView{std::make_shared<AboutScreenState>()}.body(twoSections)), expectedScreen());
}

TEST(AboutScreen, ShowsTheSharedSections) {
    const AboutScreenView view{std::make_shared<AboutScreenState>()};
    EXPECT_EQ(View(view), view.body(AboutSections::allSections()));
}

TEST(AboutScreen, LibrariesAreInDescendingOrder) {
    EXPECT_THAT(shownNames(AboutSections::allSections()[0]),
                ElementsAre("simplecss", "VideoPlayer ", "Tatsi", "TOMLDecoder ", "Syntect", "SplitKit", "Splash",
                            "Sparkle", "Sentry ", "SDWebImageSwiftUI ", "RetroTransition", "Rayon-RS ",
                            "Pulldown Cmark", "Macaw", "KaTeX", "KWTransition", "Container Transitions",
                            "Aho-Corasick "));
}

TEST(AboutScreen, FontsAreInDescendingOrder) {
    EXPECT_THAT(shownNames(AboutSections::allSections()[1]),
                ElementsAre("Playfair Display", "PT Mono ", "Open Sans ", "Nunito", "Martel", "Lora", "JetBrains Mono ",
                            "Inter ", "Gravitas One ", "Fira Sans ", "Enriqueta ", "Bowlby One ", "Archivo Black"));
}

TEST(AboutScreen, FileIconsComeBeforeTheBugImage) {
    EXPECT_THAT(shownNames(AboutSections::allSections()[2]), ElementsAre("File Icons", "Bug Image"));
}

TEST(AboutScreen, CloseDoesNothingWithoutAnAction) {
    const View screen(AboutScreenView{std::make_shared<AboutScreenState>()});
    find<TapTarget>(screen)->action.perform({});
}

TEST(AboutScreen, CloseCallsTheActionOfTheMomentOfTheTap) {
    const auto state = std::make_shared<AboutScreenState>();
    const View screen(AboutScreenView{state});
    int first = 0, second = 0;
    state->setDismissAction([&] { first++; });
    find<TapTarget>(screen)->action.perform({});
    state->setDismissAction([&] { second++; });
    find<TapTarget>(screen)->action.perform({});
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST(AboutScreen, TheActionMayReplaceItself) {
    const auto state = std::make_shared<AboutScreenState>();
    const View screen(AboutScreenView{state});
    state->setDismissAction([state] { state->setDismissAction({}); });
    find<TapTarget>(screen)->action.perform({});
    EXPECT_FALSE(state->dismissAction());
}

TEST(AboutScreen, SettingTheActionIsAnnounced) {
    AboutScreenState state;
    int told = 0;
    const auto token = state.subscribe([&] { told++; });
    state.setDismissAction([] {});
    EXPECT_EQ(told, 1);
}

TEST(AboutScreen, OpenOpensTheAddressOfItsRow) {
    std::vector<std::string> opened;
    const ViewEnvironment environment{[&](const std::string& url) { opened.push_back(url); }};
    find<Button>(Library{"n", "a", "https://a.example"}.body())->action.perform(environment);
    EXPECT_THAT(opened, ElementsAre("https://a.example"));
    Library{"n", "a", "u"}.open({});
}

// Every character is 10 points wide and 20 high.
Size measureFixed(const std::string& text, FontRole, double) {
    return {10.0 * double(text.size()), 20};
}

TEST(AboutScreen, StandsLikeThisIn600By500Points) {
    const auto layout =
        layOut(AboutScreenView{std::make_shared<AboutScreenState>()}.body(twoSections), {600, 500}, {measureFixed, 12});
    const auto& stack = layout.children[0];
    EXPECT_EQ(layout.frame, (Rect{0, 0, 600, 500}));
    EXPECT_EQ(stack.frame, (Rect{16, 16, 568, 468}));
    EXPECT_EQ(stack.children[0].children[0].frame, (Rect{16, 21, 130, 20}));
    EXPECT_EQ(stack.children[1].frame, (Rect{16, 68, 420, 20}));
    EXPECT_EQ(stack.children[2].frame, (Rect{16, 100, 520, 20}));
    EXPECT_EQ(stack.children[3].frame, (Rect{16, 132, 568, 306}));
    const auto& scroll = stack.children[3].children[0].children[0];
    EXPECT_EQ(scroll.frame, (Rect{21, 137, 558, 296}));
    const auto& firstSection = scroll.children[0].children[0].children[0];
    EXPECT_EQ(firstSection.frame, (Rect{0, 0, 546, 284}));
    const auto& firstRow = firstSection.children[1].children[0].children[0];
    EXPECT_EQ(firstRow.frame, (Rect{16, 44, 514, 48}));
    EXPECT_EQ(firstRow.children[0].children[0].frame, (Rect{16, 44, 10, 20}));
    EXPECT_EQ(firstRow.children[0].children[1].frame, (Rect{16, 72, 10, 20}));
    EXPECT_EQ(firstRow.children[2].frame, (Rect{480, 53, 50, 30}));
    EXPECT_EQ(scroll.children[0].children[1].frame, (Rect{0, 292, 30, 20}));
    EXPECT_EQ(stack.children[4].frame, (Rect{16, 450, 64, 34}));
}

} // namespace
