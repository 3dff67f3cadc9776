#include "ViewTree.h"

#include <gtest/gtest.h>

namespace {

using namespace appkitglue::ui;

struct Row {
    std::string name;
    const std::string& id() const { return name; }
    View body() const { return text(name).font(FontRole::headline); }
};

View plain(std::string string, std::optional<FontRole> font = {}, std::optional<ColorRole> color = {}) {
    return {Text{std::move(string), false, font, color}};
}

TEST(ViewTree, IsAValue) {
    const auto make = [] { return vStack(Alignment::leading, 12, text("a").padding(), spacer()); };
    EXPECT_EQ(make(), make());
    EXPECT_EQ(make(), View(Stack{Axis::vertical, Alignment::leading, 12},
                           {View(Padding{{16, 16, 16, 16}}, {plain("a")}), View(Spacer{})}));
    EXPECT_NE(make(), vStack(Alignment::leading, 12, text("b").padding(), spacer()));
}

TEST(ViewTree, ModifiersWrapInTheOrderOfTheirCalls) {
    const auto shape = RoundedRectangle::filled(8, ColorRole::controlBackground);
    EXPECT_EQ(text("a").padding(5).background(shape),
              View(Decoration{shape, false}, {View(Padding{{5, 5, 5, 5}}, {plain("a")})}));
    EXPECT_EQ(text("a").background(shape).padding(5),
              View(Padding{{5, 5, 5, 5}}, {View(Decoration{shape, false}, {plain("a")})}));
    EXPECT_EQ(text("a").overlay(shape), View(Decoration{shape, true}, {plain("a")}));
}

TEST(ViewTree, FontAndColourGoToTheTextsInsideThatHaveNone) {
    const auto view = vStack(Alignment::leading, 0, text("a").font(FontRole::title), text("b"))
                          .font(FontRole::body)
                          .foreground(ColorRole::accent);
    EXPECT_EQ(view.children[0], plain("a", FontRole::title, ColorRole::accent));
    EXPECT_EQ(view.children[1], plain("b", FontRole::body, ColorRole::accent));
}

TEST(ViewTree, TypesWithABodyAreViews) {
    EXPECT_EQ(View(Row{"a"}), plain("a", FontRole::headline));
    EXPECT_EQ(hStack(Alignment::center, 0, Row{"a"}).children[0], plain("a", FontRole::headline));
}

TEST(ViewTree, EachElementKeepsItsIdentity) {
    const auto views = forEach(std::vector<Row>{{"a"}, {"b"}}, [](const Row& row) { return row; });
    EXPECT_EQ(views, (std::vector<View>{View(Identity{"a"}, {plain("a", FontRole::headline)}),
                                        View(Identity{"b"}, {plain("b", FontRole::headline)})}));
}

TEST(ViewTree, ActionsAreEqualByName) {
    const auto nothing = [](const ViewEnvironment&) {};
    EXPECT_EQ((Action{"a", nothing}), (Action{"a", {}}));
    EXPECT_NE((Action{"a", nothing}), (Action{"b", nothing}));
}

TEST(ViewTree, KeysAreLookedUpOnce) {
    const auto twice = [](const std::string& key) { return key + key; };
    const auto view = localized(hStack(Alignment::center, 0, localizedText("Open"), text("Open")), twice);
    EXPECT_EQ(view.children[0], plain("OpenOpen"));
    EXPECT_EQ(view.children[1], plain("Open"));
    EXPECT_EQ(localized(view, twice), view);
}

TEST(ViewTree, StrokesHaveAMiterLimitOfTenAndNoDash) {
    const auto shape = RoundedRectangle::stroked(8, ColorRole::accent, 1);
    EXPECT_EQ(shape.stroke, (StrokeStyle{1, 10, {}}));
    EXPECT_FALSE(RoundedRectangle::filled(8, ColorRole::accent).stroke);
}

} // namespace
