// Every text of the gallery can be read, in light and in dark: its contrast is measured from the pixels on the screen.
#import "FlatTheme.h"
#import "Gallery.h"
#import "Input.h"
#import "MenuKeyboard.h"
#import "Platform.h"
#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr double readable = 4.5;
constexpr double readableWhenDisabled = 3;

double luminance(unsigned rgb) {
    const auto linear = [rgb](unsigned shift) {
        const double value = ((rgb >> shift) & 255U) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

double contrast(unsigned a, unsigned b) {
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// How often each colour occurs in a rectangle of a window.
std::map<unsigned, int> coloursIn(NSWindow *window, NSRect rect) {
    std::map<unsigned, int> colours;
    auto *display = static_cast<Display *>([GSServerForWindow(window) serverDevice]);
    XSync(display, False);
    const NSPoint origin = [window convertBaseToScreen:rect.origin];
    const int screenHeight = static_cast<int>(NSHeight([[NSScreen mainScreen] frame]));
    const int y = screenHeight - static_cast<int>(origin.y + NSHeight(rect));
    XImage *image =
        XGetImage(display, DefaultRootWindow(display), static_cast<int>(origin.x), y,
                  static_cast<unsigned>(NSWidth(rect)), static_cast<unsigned>(NSHeight(rect)), AllPlanes, ZPixmap);
    for (int row = 0; image != nullptr && row < image->height; row++) {
        for (int column = 0; column < image->width; column++) {
            colours[static_cast<unsigned>(XGetPixel(image, column, row) & 0xffffffUL)]++;
        }
    }
    if (image != nullptr) {
        XDestroyImage(image);
    }
    return colours;
}

// The contrast between the most frequent colour and that which differs most from it: the strokes of the text. (Thin
// strokes are drawn paler than their colour: what is measured is at most what was asked for.)
double textContrast(NSWindow *window, NSRect rect) {
    const auto colours = coloursIn(window, rect);
    if (colours.empty()) {
        return 0;
    }
    const auto byCount = [](const auto &a, const auto &b) { return a.second < b.second; };
    const unsigned background = std::max_element(colours.begin(), colours.end(), byCount)->first;
    double best = 1;
    for (const auto &[colour, count] : colours) {
        best = std::max(best, contrast(colour, background));
    }
    return best;
}

struct Text {
    NSString *name;
    NSView *view;
    NSRect rect; // in the view
    double needed;
};

class ThemeContrastTest : public testing::TestWithParam<flattheme::Look> {
protected:
    void SetUp() override {
        pool = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
        flattheme::registerDefaults();
        flattheme::install();
        flattheme::setLook(GetParam());
        gallery = [[Gallery alloc] init];
        ASSERT_TRUE(test::giveKeyboard([gallery window]));
    }

    void TearDown() override {
        [gallery release];
        flattheme::setLook(flattheme::Look::light);
        [pool release];
    }

    // What remains of a control without its frame, and without what lies left and right of its title.
    Text text(NSString *name, double needed, CGFloat left = 8, CGFloat right = 8) {
        NSView *view = [gallery control:name];
        NSRect rect = NSInsetRect([view bounds], 0, 4);
        rect.origin.x += left;
        rect.size.width -= left + right;
        return {name, view, rect, needed};
    }

    Text part(NSString *name, NSView *view, NSRect rect) { return {name, view, rect, readable}; }

    void expectReadable(const Text &text) {
        NSWindow *window = [text.view window];
        const NSRect rect = [text.view convertRect:text.rect toView:nil];
        double measured = 0;
        test::runUntil(
            [&] {
                measured = textContrast(window, rect);
                return measured >= text.needed;
            },
            3);
        EXPECT_GE(measured, text.needed) << [text.name UTF8String];
    }

    NSAutoreleasePool *pool = nil;
    Gallery *gallery = nil;
};

} // namespace

TEST_P(ThemeContrastTest, ControlsAreReadable) {
    constexpr CGFloat glyph = 20;
    constexpr CGFloat arrow = 26;
    for (NSString *name in @[ @"cancel", @"default", @"toggle", @"label", @"field", @"placeholder", @"search" ]) {
        expectReadable(text(name, readable));
    }
    for (NSString *name in @[ @"checkBox", @"uncheckedBox", @"radio", @"radioOff", @"boxed" ]) {
        expectReadable(text(name, readable, glyph, 0));
    }
    for (NSString *name in @[ @"popUp", @"pullDown", @"combo" ]) {
        expectReadable(text(name, readable, 8, arrow));
    }
    expectReadable(text(@"disabledButton", readableWhenDisabled));
    expectReadable(text(@"disabledField", readableWhenDisabled));
    expectReadable(text(@"disabledBox", readableWhenDisabled, glyph, 0));
    expectReadable(text(@"segments", readable, 8, 58));
    expectReadable(text(@"segments", readable, 58, 8));
}

TEST_P(ThemeContrastTest, TablesTextsTabsAndBoxesAreReadable) {
    NSTableView *table = [gallery control:@"table"];
    expectReadable(part(@"row", table, NSInsetRect([table frameOfCellAtColumn:0 row:0], 2, 2)));
    expectReadable(part(@"selected row", table, NSInsetRect([table frameOfCellAtColumn:0 row:2], 2, 2)));
    NSView *header = [table headerView];
    expectReadable(part(@"header", header, NSInsetRect([[table headerView] headerRectOfColumn:0], 4, 4)));

    NSTextView *textView = [gallery control:@"text"];
    expectReadable(part(@"text", textView, NSMakeRect(4, 16, 200, 14)));
    NSLayoutManager *layout = [textView layoutManager];
    NSRect selection = [layout boundingRectForGlyphRange:[textView selectedRange]
                                         inTextContainer:[textView textContainer]];
    selection.origin.x += [textView textContainerOrigin].x;
    selection.origin.y += [textView textContainerOrigin].y;
    expectReadable(part(@"selection", textView, NSInsetRect(selection, 2, 1)));

    NSTabView *tabs = [gallery control:@"tabs"];
    expectReadable(part(@"chosen tab", tabs, NSMakeRect(16, 5, 60, 16)));
    expectReadable(part(@"other tab", tabs, NSMakeRect(96, 5, 60, 16)));
    NSBox *box = [gallery control:@"box"];
    expectReadable(part(@"box", box, [box titleRect]));
}

TEST_P(ThemeContrastTest, ToolbarLabelsAndMenusAreReadable) {
    NSView *item = [gallery toolbarButton:@"General"];
    ASSERT_NE(item, nil);
    const CGFloat width = NSWidth([item bounds]);
    expectReadable(part(@"toolbar label", item,
                        NSMakeRect(4, [item isFlipped] ? NSHeight([item bounds]) - 20 : 3, width - 8, 17)));

    NSMenuView *bar = platform::menuBarOf([gallery window]);
    ASSERT_NE(bar, nil);
    expectReadable(part(@"menu bar", bar, NSInsetRect([bar rectOfItemAtIndex:0], 4, 4)));

    double chosen = 0;
    double disabled = 0;
    platform::asyncAfter(0.3, [&] {
        NSMenuView *menu = [bar attachedMenuView];
        const auto measured = [menu](NSInteger index) {
            const NSRect row = [menu convertRect:NSInsetRect([menu rectOfItemAtIndex:index], 6, 5) toView:nil];
            return textContrast([menu window], row);
        };
        chosen = measured([menu highlightedItemIndex]);
        disabled = measured(0);
        test::pressKeys({"Escape", "Escape"});
    });
    test::pressKey("F10");
    test::runUntil([&] { return chosen > 0; });
    EXPECT_GE(chosen, readable);
    EXPECT_GE(disabled, readableWhenDisabled);
}

INSTANTIATE_TEST_SUITE_P(Looks, ThemeContrastTest, testing::Values(flattheme::Look::light, flattheme::Look::dark),
                         [](const auto &look) { return look.param == flattheme::Look::dark ? "Dark" : "Light"; });
