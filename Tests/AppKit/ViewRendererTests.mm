// Long because: the pieces of one page share their set-up and are measured one by one.
#import "AboutScreenView.h"
#import "Input.h"
#import "RenderingSupport.h"
#import "StringBridging.h"
#import "ViewFonts.h"
#import "ViewRenderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace appkitglue;
using test::all;
using test::Shown;
using testing::ElementsAre;

namespace {

NSRect frameOf(const ui::Layout &layout) {
    return ui::toNSRect(layout.frame);
}

// The frames that the layout gives to the views of a kind outside buttons, in the order of the tree.
template <class... Kinds>
void collectFrames(const ui::View &view, const ui::Layout &layout, std::vector<NSRect> &frames) {
    if ((std::holds_alternative<Kinds>(view.content) || ...)) {
        frames.push_back(frameOf(layout));
        return;
    }
    if (std::holds_alternative<ui::Button>(view.content) || std::holds_alternative<ui::TapTarget>(view.content))
        return;
    for (std::size_t i = 0; i < view.children.size(); i++)
        collectFrames<Kinds...>(view.children[i], layout.children[i], frames);
}

template <class T> std::vector<NSRect> frames(const std::vector<T *> &views) {
    std::vector<NSRect> result;
    for (T *view : views)
        result.push_back([view frame]);
    return result;
}

bool equal(const std::vector<NSRect> &a, const std::vector<NSRect> &b) {
    return std::ranges::equal(a, b, [](NSRect x, NSRect y) { return NSEqualRects(x, y); });
}

RetainPtr<QVHostingView> host(std::function<ui::View()> body, std::shared_ptr<ObservableObject> observed = {}) {
    const auto view = adoptNS([[QVHostingView alloc] initWithFrame:NSMakeRect(0, 0, 300, 200)]);
    [view.get() showBody:std::move(body) observing:std::move(observed) environment:{}];
    return view;
}

struct Names : ObservableObject {
    std::vector<std::string> names;
    void set(std::vector<std::string> newNames) {
        names = std::move(newNames);
        announce();
    }
    ui::View body() const {
        std::vector<ui::View> views;
        for (const auto &name : names)
            views.push_back(ui::text(name).identified(name.substr(0, 1)));
        return ui::stack({ui::Axis::vertical, ui::Alignment::leading, 8}, std::move(views));
    }
};

std::vector<std::string> labels(NSView *view) {
    std::vector<std::string> texts;
    for (QVTextLabel *label : all<QVTextLabel>(view))
        texts.push_back(toUTF8([label stringValue]));
    return texts;
}

TEST(ViewRenderer, FramesAreThoseOfTheLayout) {
    const auto state = std::make_shared<AboutScreenState>();
    const auto view = host([screen = AboutScreenView{state}] { return screen.body(); }, state);
    Shown shown(view.get());
    const auto &tree = [view.get() shownView];
    const auto &layout = [view.get() shownLayout];
    EXPECT_EQ(layout, ui::layOut(tree, {480, 560}, ui::appKitLayoutEnvironment()));
    std::vector<NSRect> texts, buttons, shapes, scrollViews;
    collectFrames<ui::Text>(tree, layout, texts);
    collectFrames<ui::Button, ui::TapTarget>(tree, layout, buttons);
    collectFrames<ui::Decoration>(tree, layout, shapes);
    collectFrames<ui::ScrollView>(tree, layout, scrollViews);
    EXPECT_EQ(texts.size(), 3 + 3 + 2 * 33U);
    EXPECT_EQ(buttons.size(), 34U);
    EXPECT_TRUE(equal(frames(all<QVTextLabel>(view.get())), texts));
    EXPECT_TRUE(equal(frames(all<QVLabelButton>(view.get())), buttons));
    EXPECT_TRUE(equal(frames(all<QVShapeView>(view.get())), shapes));
    EXPECT_TRUE(equal(frames(all<NSScrollView>(view.get())), scrollViews));
    test::savePicture(shown.window.get(), "about-screen");
}

unsigned rgb(NSColor *color) {
    NSColor *const converted = [color colorUsingColorSpaceName:NSDeviceRGBColorSpace];
    const auto part = [](double value) { return unsigned(std::lround(value * 255)); };
    return part([converted redComponent]) << 16 | part([converted greenComponent]) << 8 |
           part([converted blueComponent]);
}

// How many pixels beside a point, on its line, have the same colour as it.
int run(NSWindow *window, NSPoint point, int step) {
    const unsigned color = test::pixel(window, point);
    int count = 0;
    while (count < 100 && test::pixel(window, NSMakePoint(point.x + (count + 1) * step, point.y)) == color)
        count++;
    return count;
}

TEST(ViewRenderer, PaddingsAreSeenOnScreen) {
    const auto view = host([] {
        return ui::button({"b", {}}, ui::text("IIII")
                                         .foreground(ui::ColorRole::white)
                                         .padding(5)
                                         .background(ui::RoundedRectangle::filled(4, ui::ColorRole::accent)))
            .padding(16);
    });
    Shown shown(view.get(), NSMakeSize(200, 100));
    [shown.window.get() makeFirstResponder:nil];
    test::spin(0.05);
    NSButton *const button = all<QVLabelButton>(view.get())[0];
    const NSRect frame = [button convertRect:[button bounds] toView:nil];
    const unsigned accent = rgb(ui::colorFor(ui::ColorRole::accent));
    NSWindow *const window = shown.window.get();
    const auto isAccent = [&](double x) { return test::pixel(window, NSMakePoint(x, NSMidY(frame))) == accent; };
    ASSERT_TRUE(test::runUntil([&] { return isAccent(NSMinX(frame) + 2); }));
    // Filled from edge to edge, and no ink of the text within 5 points of an edge.
    EXPECT_FALSE(isAccent(NSMinX(frame) - 1));
    EXPECT_FALSE(isAccent(NSMaxX(frame)));
    for (int i = 0; i < 5; i++) {
        EXPECT_TRUE(isAccent(NSMinX(frame) + i)) << i;
        EXPECT_TRUE(isAccent(NSMaxX(frame) - 1 - i)) << i;
    }
    // The first letter begins within its own side bearing.
    EXPECT_LE(run(window, NSMakePoint(NSMinX(frame), NSMidY(frame)), 1), 5 + 3);
}

TEST(ViewRenderer, OutlinesAreOnePointWide) {
    const auto view = host(
        [] { return ui::text("").padding(20).overlay(ui::RoundedRectangle::stroked(8, ui::ColorRole::accent, 1)); });
    Shown shown(view.get(), NSMakeSize(200, 100));
    NSView *const shape = all<QVShapeView>(view.get())[0];
    const NSRect frame = [shape convertRect:[shape bounds] toView:nil];
    const unsigned accent = rgb(ui::colorFor(ui::ColorRole::accent));
    const auto at = [&](double x) { return test::pixel(shown.window.get(), NSMakePoint(x, NSMidY(frame))); };
    EXPECT_TRUE(test::runUntil([&] { return at(NSMinX(frame)) == accent; }));
    EXPECT_NE(at(NSMinX(frame) - 1), accent);
    EXPECT_NE(at(NSMinX(frame) + 1), accent);
    EXPECT_EQ(at(NSMaxX(frame) - 1), accent);
}

TEST(ViewRenderer, FollowsItsSize) {
    const auto view =
        host([] { return ui::hStack(ui::Alignment::center, 0, ui::text("a"), ui::spacer(), ui::text("b")); });
    [view.get() setFrameSize:NSMakeSize(500, 100)];
    EXPECT_EQ(NSMaxX([all<QVTextLabel>(view.get())[1] frame]), 500);
    [view.get() setFrameSize:NSMakeSize(250, 100)];
    EXPECT_EQ(NSMaxX([all<QVTextLabel>(view.get())[1] frame]), 250);
}

TEST(ViewRenderer, ChangesOnlyWhatDiffers) {
    const auto names = std::make_shared<Names>();
    names->names = {"a1", "b1", "c1"};
    const auto view = host([names] { return names->body(); }, names);
    const auto before = all<QVTextLabel>(view.get());
    ASSERT_EQ(before.size(), 3U);
    const NSUInteger changes = [view.get() changeCount];
    names->set({"a1", "b2", "c1"});
    EXPECT_TRUE(test::runUntil([&] { return labels(view.get())[1] == "b2"; }));
    EXPECT_EQ(all<QVTextLabel>(view.get()), before);
    EXPECT_EQ([view.get() changeCount], changes + 1);
    names->set({"a1", "b2", "c1"});
    test::spin(0.05);
    EXPECT_EQ([view.get() changeCount], changes + 1);
}

TEST(ViewRenderer, KeepsViewsOfElementsThatMove) {
    const auto names = std::make_shared<Names>();
    names->names = {"a", "b", "c"};
    const auto view = host([names] { return names->body(); }, names);
    NSView *const b = all<QVTextLabel>(view.get())[1];
    names->set({"b", "d"});
    EXPECT_TRUE(test::runUntil([&] { return all<QVTextLabel>(view.get()).size() == 2; }));
    EXPECT_TRUE([b superview] == view.get());
    EXPECT_THAT(labels(view.get()), testing::UnorderedElementsAre("b", "d"));
    EXPECT_LT([b frame].origin.y, 100);
}

TEST(ViewRenderer, ManyAnnouncementsCauseOneUpdate) {
    const auto names = std::make_shared<Names>();
    int asked = 0;
    const auto view = host([names, &asked] { return asked++, names->body(); }, names);
    for (int i = 0; i < 100; i++)
        names->set({std::to_string(i)});
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(test::runUntil([&] { return asked == 2; }));
    EXPECT_THAT(labels(view.get()), ElementsAre("99"));
}

TEST(ViewRenderer, AnEndedViewIsNotTold) {
    const auto names = std::make_shared<Names>();
    auto view = host([names] { return names->body(); }, names);
    EXPECT_EQ(names.use_count(), 3);
    names->set({"a"});
    view = nullptr;
    EXPECT_TRUE(test::runUntil([&] { return names.use_count() == 1; }));
    names->set({"b"});
}

TEST(ViewRenderer, AnotherKindOfViewReplacesTheAppKitView) {
    const auto names = std::make_shared<Names>();
    const auto view =
        host([names] { return names->names.empty() ? ui::text("a") : ui::button({}, ui::text("b")); }, names);
    names->set({"x"});
    EXPECT_TRUE(test::runUntil([&] { return all<QVLabelButton>(view.get()).size() == 1; }));
    EXPECT_EQ([[view.get() subviews] count], 1U);
}

TEST(ViewRenderer, ButtonsAreReachedAndPressedWithTheKeys) {
    std::vector<std::string> pressed;
    const auto press = [&](std::string name) {
        return ui::Action{name, [&pressed, name](const ui::ViewEnvironment &) { pressed.push_back(name); }};
    };
    const auto view = host([&] {
        return ui::hStack(ui::Alignment::center, 8, ui::button(press("one"), ui::text("One").padding(5)),
                          ui::text("Two").padding(5).onTap(press("two")));
    });
    Shown shown(view.get());
    [shown.window.get() makeFirstResponder:all<QVLabelButton>(view.get())[0]];
    ASSERT_TRUE(test::giveKeyboard(shown.window.get()));
    test::pressKeys({"space", "Tab", "space"});
    EXPECT_TRUE(test::runUntil([&] { return pressed == std::vector<std::string>{"one", "two"}; }));
    test::pressKeys({"Tab", "Return"});
    EXPECT_TRUE(test::runUntil([&] { return pressed == std::vector<std::string>{"one", "two", "one"}; }));
}

TEST(ViewRenderer, ButtonsAreClickedWithThePointer) {
    int pressed = 0;
    const auto view = host([&] {
        return ui::button({"b", [&](const ui::ViewEnvironment &) { pressed++; }}, ui::text("Press").padding(10));
    });
    Shown shown(view.get());
    test::click(all<QVLabelButton>(view.get())[0]);
    EXPECT_TRUE(test::runUntil([&] { return pressed == 1; }));
}

TEST(ViewRenderer, ButtonsThatGetTheKeysComeIntoSight) {
    const auto view = host([] {
        std::vector<ui::View> buttons;
        for (int i = 0; i < 50; i++)
            buttons.push_back(ui::button({std::to_string(i), {}}, ui::text(std::to_string(i)).padding(5)));
        return ui::scrollView(ui::stack({ui::Axis::vertical, ui::Alignment::leading, 8}, std::move(buttons)));
    });
    Shown shown(view.get());
    QVLabelButton *const last = all<QVLabelButton>(view.get()).back();
    EXPECT_TRUE(NSIsEmptyRect([last visibleRect]));
    [shown.window.get() makeFirstResponder:last];
    EXPECT_FALSE(NSIsEmptyRect([last visibleRect]));
}

TEST(ViewRenderer, TellsWhatButtonsAreFor) {
    const auto view = host([] { return AboutSection{"t", {{"Name", "Author", "u"}}}.body(); });
    EXPECT_TRUE([[all<QVLabelButton>(view.get())[0] accessibilityLabel] isEqualToString:@"Open Name"]);
    EXPECT_TRUE([[all<QVTextLabel>(view.get())[0] accessibilityLabel] isEqualToString:@"t"]);
}

} // namespace
