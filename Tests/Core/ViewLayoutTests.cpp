#include "ViewLayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace appkitglue::ui;

// Every character is 10 points wide and 20 high; lines are broken anywhere.
Size measureFixed(const std::string& text, FontRole, double width) {
    const double whole = 10.0 * double(text.size());
    if (whole <= width)
        return {whole, 20};
    const double perLine = std::max(1.0, std::floor(width / 10));
    return {perLine * 10, 20 * std::ceil(double(text.size()) / perLine)};
}

const LayoutEnvironment environment{measureFixed, 15};

Layout leaf(Rect frame) {
    return {frame, {}};
}

TEST(ViewLayout, SmallViewsAreCentredOnWholePoints) {
    EXPECT_EQ(layOut(text("abc"), {101, 50}, environment), leaf({35, 15, 30, 20}));
}

TEST(ViewLayout, LargeViewsBeginAtTheTopLeftCorner) {
    EXPECT_EQ(layOut(text("abc").padding(40), {20, 20}, environment),
              (Layout{{0, 0, 90, 140}, {leaf({40, 40, 10, 60})}}));
}

TEST(ViewLayout, TextsAreBrokenAtTheProposedWidth) {
    EXPECT_EQ(layOut(text("abcde"), {30, 100}, environment).frame, (Rect{0, 30, 30, 40}));
    EXPECT_EQ(idealSize(text("abcde"), environment), (Size{50, 20}));
}

TEST(ViewLayout, PaddingIsPerEdge) {
    EXPECT_EQ(layOut(text("a").padding({.top = 1, .leading = 2, .bottom = 4, .trailing = 8}), {20, 25}, environment),
              (Layout{{0, 0, 20, 25}, {leaf({2, 1, 10, 20})}}));
}

TEST(ViewLayout, VerticalStacksPlaceTheirChildrenBelowEachOther) {
    const auto stack = [](Alignment alignment) { return vStack(alignment, 12, text("abc"), text("a"), text("ab")); };
    EXPECT_EQ(layOut(stack(Alignment::leading), {30, 84}, environment),
              (Layout{{0, 0, 30, 84}, {leaf({0, 0, 30, 20}), leaf({0, 32, 10, 20}), leaf({0, 64, 20, 20})}}));
    EXPECT_EQ(layOut(stack(Alignment::center), {30, 84}, environment).children[2].frame.x, 5);
    EXPECT_EQ(layOut(stack(Alignment::trailing), {30, 84}, environment).children[1].frame.x, 20);
}

TEST(ViewLayout, HorizontalStacksPlaceTheirChildrenBesideEachOther) {
    const auto view = hStack(Alignment::center, 8, text("a").padding(10), text("ab"));
    EXPECT_EQ(layOut(view, {58, 40}, environment),
              (Layout{{0, 0, 58, 40}, {{{0, 0, 30, 40}, {leaf({10, 10, 10, 20})}}, leaf({38, 10, 20, 20})}}));
}

TEST(ViewLayout, EmptyStacksTakeNoSpace) {
    EXPECT_EQ(idealSize(stack({Axis::vertical, Alignment::leading, 8}, {}), environment), Size{});
}

TEST(ViewLayout, SpacersPushTheOthersApart) {
    const auto layout = layOut(hStack(Alignment::center, 8, text("ab"), spacer(), text("c")), {200, 20}, environment);
    EXPECT_EQ(layout,
              (Layout{{0, 0, 200, 20}, {leaf({0, 0, 20, 20}), leaf({28, 10, 154, 0}), leaf({190, 0, 10, 20})}}));
}

TEST(ViewLayout, SpacersShareTheirSpace) {
    const auto layout = layOut(hStack(Alignment::center, 0, spacer(), text("c"), spacer()), {110, 20}, environment);
    EXPECT_EQ(layout.children[1].frame, (Rect{50, 0, 10, 20}));
    EXPECT_EQ(layout.children[2].frame.width, 50);
}

TEST(ViewLayout, SpacersTakeNothingWhenNothingIsLeft) {
    const auto layout = layOut(hStack(Alignment::center, 0, text("abcdef"), spacer()), {30, 60}, environment);
    EXPECT_EQ(layout.children[0].frame, (Rect{0, 10, 30, 40}));
    EXPECT_EQ(layout.children[1].frame.width, 0);
}

TEST(ViewLayout, ShortTextsChooseFirstSoThatLongOnesGetTheRest) {
    const auto layout = layOut(hStack(Alignment::leading, 0, text("abcdefghijkl"), text("ab")), {100, 40}, environment);
    EXPECT_EQ(layout.children[0].frame, (Rect{0, 0, 80, 40}));
    EXPECT_EQ(layout.children[1].frame, (Rect{80, 0, 20, 20}));
}

TEST(ViewLayout, ScrollViewsTakeTheHeightThatIsLeft) {
    const auto view = vStack(Alignment::leading, 10, text("a"),
                             scrollView(vStack(Alignment::leading, 0, text("abcde"), text("b"))), text("c"));
    const auto layout = layOut(view, {100, 200}, environment);
    EXPECT_EQ(layout.children[1].frame, (Rect{17, 30, 65, 140}));
    EXPECT_EQ(layout.children[2].frame, (Rect{17, 180, 10, 20}));
}

TEST(ViewLayout, ScrolledContentHasItsOwnOriginAndLeavesRoomForTheIndicator) {
    const auto layout = layOut(scrollView(text("abcdefgh").padding(5)).padding(20), {100, 100}, environment);
    const Layout& scroll = layout.children[0];
    EXPECT_EQ(scroll.frame, (Rect{22, 20, 55, 60}));
    EXPECT_EQ(scroll.children[0].frame, (Rect{0, 0, 40, 70}));
    EXPECT_EQ(scroll.children[0].children[0].frame, (Rect{5, 5, 30, 60}));
}

TEST(ViewLayout, HiddenIndicatorsTakeNoRoom) {
    const View view(ScrollView{.showsIndicators = false}, {hStack(Alignment::leading, 0, spacer())});
    EXPECT_EQ(layOut(view, {100, 100}, environment).children[0].frame.width, 100);
}

TEST(ViewLayout, DecorationsButtonsAndTapTargetsAreAsLargeAsTheirChild) {
    const auto view =
        button({"b", {}}, text("ab").padding(5).background(RoundedRectangle::filled(4, ColorRole::accent)))
            .overlay(RoundedRectangle::stroked(4, ColorRole::accent, 1))
            .onTap({"t", {}})
            .identified("id");
    const Layout* layout = nullptr;
    const Layout whole = layOut(view, {30, 30}, environment);
    for (layout = &whole; layout->children.size() == 1 && layout->children[0].children.size() == 1;
         layout = &layout->children[0])
        EXPECT_EQ(layout->frame, (Rect{0, 0, 30, 30}));
    EXPECT_EQ(layout->children[0].frame, (Rect{5, 5, 20, 20}));
}

TEST(ViewLayout, SpacersStretchAlongTheirOwnStackOnly) {
    const auto view = vStack(Alignment::leading, 0, hStack(Alignment::center, 0, text("a"), spacer()), text("b"));
    EXPECT_EQ(layOut(view, {50, 100}, environment),
              (Layout{{0, 30, 50, 40},
                      {{{0, 30, 50, 20}, {leaf({0, 30, 10, 20}), leaf({10, 40, 40, 0})}}, leaf({0, 50, 10, 20})}}));
}

} // namespace
