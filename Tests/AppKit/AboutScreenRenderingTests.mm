// Long because: the pieces of one page share their set-up and are measured one by one.
#import "AboutScreenView.h"
#import "Input.h"
#import "QVAboutScreen.h"
#import "RenderedViews.h"
#import "RetainPtr.h"
#import "StringBridging.h"
#import "TestSupport.h"
#import "ViewFonts.h"
#import "ViewRenderer.h"
#import "WeakObjCPtr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace appkitglue;
using testing::ElementsAre;

@interface DismissCounter : NSObject {
@public
    int count;
    id sender;
}
- (void)dismissed:(id)from;
@end

@implementation DismissCounter
- (void)dismissed:(id)from {
    count++;
    sender = from;
}
@end

namespace {

template <class T> void collect(NSView *view, std::vector<T *> &found) {
    for (NSView *child in [view subviews]) {
        if ([child isKindOfClass:[T class]])
            found.push_back(static_cast<T *>(child));
        collect(child, found);
    }
}

template <class T> std::vector<T *> all(NSView *view) {
    std::vector<T *> found;
    collect(view, found);
    return found;
}

QVLabelButton *buttonTitled(NSView *view, NSString *title) {
    for (QVLabelButton *button : all<QVLabelButton>(view))
        if ([[button title] isEqualToString:title])
            return button;
    return nil;
}

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

// A window with a view that fills it.
struct Shown {
    explicit Shown(NSView *view, NSSize size = NSMakeSize(480, 560))
        : window(adoptNS([[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, size.width, size.height)
                                                     styleMask:NSTitledWindowMask | NSResizableWindowMask
                                                       backing:NSBackingStoreBuffered
                                                         defer:NO])) {
        [window.get() setReleasedWhenClosed:NO];
        [window.get() setContentView:view];
        [window.get() makeKeyAndOrderFront:nil];
        test::runUntil([&] { return [window.get() isKeyWindow]; });
        test::runUntilQuiet(window.get());
    }
    ~Shown() { [window.get() close]; }
    RetainPtr<NSWindow> window;
};

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

// A program of the name xdg-open in front of PATH that notes the addresses it is given.
class RecordingOpener : public testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path() / ("opener-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "xdg-open") << "#!/bin/sh\nprintf '%s\\n' \"$1\" >> " << folder / "opened" << "\n";
        std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
        path = std::getenv("PATH");
        setenv("PATH", (folder.string() + ":" + path).c_str(), 1);
    }
    void TearDown() override {
        setenv("PATH", path.c_str(), 1);
        std::filesystem::remove_all(folder);
    }
    std::vector<std::string> opened() const {
        std::ifstream file(folder / "opened");
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }
    std::filesystem::path folder;
    std::string path;
};

TEST_F(RecordingOpener, OpenOpensTheProjectPage) {
    const auto screen = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
    [buttonTitled(screen.get(), @"Open") performClick:nil];
    EXPECT_TRUE(test::runUntil([&] { return !opened().empty(); }));
    EXPECT_THAT(opened(), ElementsAre("https://github.com/linebender/simplecss"));
}

TEST_F(RecordingOpener, AnAddressThatIsNoneOpensNothing) {
    const auto environment = ui::workspaceEnvironment();
    for (const char *address : {"", "not an address", "nothing", "\xFF"})
        Library{"n", "a", address}.open(environment);
    Library{"n", "a", "https://last.example"}.open(environment);
    EXPECT_TRUE(test::runUntil([&] { return !opened().empty(); }));
    EXPECT_THAT(opened(), ElementsAre("https://last.example"));
}

TEST(AboutScreenForHosts, CloseSendsTheActionOfTheMoment) {
    const auto screen = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
    QVLabelButton *const close = buttonTitled(screen.get(), @"Close");
    const auto counter = adoptNS([[DismissCounter alloc] init]);
    [close performClick:nil];
    [screen.get() setDismissTarget:counter.get()];
    [close performClick:nil];
    EXPECT_EQ(counter.get()->count, 0);
    [screen.get() setDismissAction:@selector(dismissed:)];
    [close performClick:nil];
    EXPECT_EQ(counter.get()->count, 1);
    EXPECT_EQ(counter.get()->sender, screen.get());
    [screen.get() setDismissAction:nullptr];
    [close performClick:nil];
    EXPECT_EQ(counter.get()->count, 1);
}

TEST(AboutScreenForHosts, DoesNotKeepTheTarget) {
    const auto screen = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
    @autoreleasepool {
        const auto counter = adoptNS([[DismissCounter alloc] init]);
        [screen.get() setDismissTarget:counter.get()];
        [screen.get() setDismissAction:@selector(dismissed:)];
        EXPECT_EQ([screen.get() dismissTarget], counter.get());
    }
    EXPECT_EQ([screen.get() dismissTarget], nil);
    [buttonTitled(screen.get(), @"Close") performClick:nil];
}

TEST(AboutScreenForHosts, ClosesItsWindowFromAnAction) {
    const auto controller = adoptNS([[QVAboutScreenViewController alloc] initWithNibName:nil bundle:nil]);
    QVAboutScreenView *const screen = [controller.get() aboutScreenView];
    Shown shown(screen);
    [screen setDismissTarget:shown.window.get()];
    [screen setDismissAction:@selector(close)];
    test::click(buttonTitled(screen, @"Close"));
    EXPECT_TRUE(test::runUntil([&] { return ![shown.window.get() isVisible]; }));
}

TEST(AboutScreenForHosts, IsFreedWithItsOwner) {
    WeakObjCPtr<NSView> screen;
    @autoreleasepool {
        const auto owned = adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]);
        screen = owned.get();
    }
    EXPECT_FALSE(static_cast<bool>(screen));
}

double secondsFor(std::size_t count) {
    std::vector<Library> libraries;
    for (std::size_t i = 0; i < count; i++)
        libraries.push_back({"Library " + std::to_string(i), "Author " + std::to_string(i % 100), "https://a.example"});
    const AboutScreenView screen{std::make_shared<AboutScreenState>()};
    const auto environment = ui::appKitLayoutEnvironment();
    const auto start = std::chrono::steady_clock::now();
    const auto view = screen.body({{"Libraries", std::move(libraries)}});
    const auto layout = ui::layOut(view, {480, 560}, environment);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(layout.children[0].children[3].frame.width, 448);
    return elapsed.count();
}

TEST(AboutScreenSize, TenThousandLibrariesAreLaidOut) {
    for (const std::size_t count : {100U, 1'000U, 10'000U})
        std::printf("%zu libraries: described and laid out in %.1f ms\n", count, secondsFor(count) * 1000);
}

} // namespace
