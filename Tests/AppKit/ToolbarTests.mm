#import "DocumentWindow.h"
#import "TestSupport.h"

#include "StringBridging.h"

#import <objc/runtime.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

using namespace appkitglue;
using test::DocumentWindow;
using testing::ElementsAre;
using testing::IsEmpty;

class Toolbar : public DocumentWindow {
protected:
    NSToolbarItem *make(NSString *identifier) {
        return [controller.get() toolbar:toolbar.get() itemForItemIdentifier:identifier willBeInsertedIntoToolbar:YES];
    }
};

TEST_F(Toolbar, OffersSixDefaultItemsWithTheFlexibleSpaceFirst) {
    NSArray *expected =
        @[ NSToolbarFlexibleSpaceItemIdentifier, @"themes", @"document", @"search", @"report", @"tabOverview" ];
    EXPECT_TRUE([[controller.get() toolbarDefaultItemIdentifiers:toolbar.get()] isEqual:expected]);
    NSArray *shown = [[toolbar.get() items] valueForKey:@"itemIdentifier"];
    EXPECT_TRUE([shown isEqual:expected]) << toUTF8([shown description]);
}

TEST_F(Toolbar, AllowsTheItemsFromAddSlideToSearch) {
    NSArray *expected = @[
        @"addSlide", @"media", @"insert", NSToolbarSpaceItemIdentifier, @"inspector", @"report",
        NSToolbarSpaceItemIdentifier, @"arrange", @"play", NSToolbarSpaceItemIdentifier, @"themes", @"document",
        @"search"
    ];
    EXPECT_TRUE([[controller.get() toolbarAllowedItemIdentifiers:toolbar.get()] isEqual:expected]);
}

TEST_F(Toolbar, GivesFreshListsAndItems) {
    EXPECT_NE([controller.get() toolbarDefaultItemIdentifiers:toolbar.get()],
              [controller.get() toolbarDefaultItemIdentifiers:toolbar.get()]);
    EXPECT_NE(make(@"media"), make(@"media"));
}

namespace {

/// A row of what the toolbar offers. `view` tells where tag and action are: in a button of the item or in the item.
struct Row {
    const char *identifier;
    const char *label;
    const char *symbol;
    bool view;
    const char *action;
    int tag;
    const char *toolTip;
};

const Row rows[] = {
    {"addSlide", "Add Slide", "plus", false, "toolbarTargetActionWithSender:", 1, "Insert Slide"},
    {"media", "Media", "photo", true, "toolbarPopoverActionWithSender:", 2, "Insert Media"},
    {"insert", "Insert", "square.on.circle", true, "toolbarInsertMenuActionWithSender:", 0, "Insert Elements"},
    {"inspector", "Inspector", "paintbrush", true, "toolbarPopoverActionWithSender:", 14, "Slide or Element Inspector"},
    {"document", "Overrides", "gear", true, "toolbarPopoverActionWithSender:", 16, "Document Settings"},
    {"arrange", "Arrange", "rectangle.grid.2x2", false, "toolbarTargetActionWithSender:", 17, "Rearrange Slides"},
    {"play", "Play", "play.circle", true, "toolbarPopoverActionWithSender:", 18, "Play"},
    {"themes", "Themes", "paintpalette.fill", true, "toolbarPopoverActionWithSender:", 22, ""},
    {"tabOverview", "Tab Overview", "rectangle.on.rectangle", true, "toolbarTabOverviewActionWithSender:", 0,
     "Show / Hide Tab Overview"},
};

} // namespace

TEST_F(Toolbar, MakesTheImageItemsOfTheTable) {
    for (const Row &row : rows) {
        SCOPED_TRACE(row.identifier);
        NSToolbarItem *made = make(toNSString(row.identifier));
        EXPECT_EQ(toUTF8([made itemIdentifier]), row.identifier);
        EXPECT_EQ(toUTF8([made label]), row.label);
        EXPECT_EQ(toUTF8([made toolTip]), row.toolTip);
        EXPECT_TRUE([made isBordered]);
        EXPECT_TRUE(shows([made image], row.symbol));
        EXPECT_EQ(toUTF8([[made image] accessibilityDescription]), row.label);
        id carrier = made;
        if (row.view) {
            ASSERT_TRUE([[made view] isKindOfClass:[NSButton class]]);
            carrier = [made view];
            EXPECT_EQ([carrier image], [made image]);
            EXPECT_EQ([[carrier cell] bezelStyle], 11);
            EXPECT_EQ([made tag], 0);
        } else {
            EXPECT_EQ([made view], nil);
        }
        EXPECT_EQ([carrier target], controller.get());
        EXPECT_EQ(toUTF8(NSStringFromSelector([carrier action])), row.action);
        EXPECT_EQ([carrier tag], row.tag);
    }
}

TEST_F(Toolbar, MakesTheFeedbackItemWithoutImageLabelAndToolTip) {
    NSToolbarItem *made = make(@"report");
    auto *push = static_cast<NSButton *>([made view]);
    ASSERT_TRUE([push isKindOfClass:[NSButton class]]);
    EXPECT_EQ(toUTF8([push title]), "Feedback");
    EXPECT_EQ([[push cell] bezelStyle], 13);
    EXPECT_EQ([push target], controller.get());
    EXPECT_EQ(toUTF8(NSStringFromSelector([push action])), "toolbarTargetActionWithSender:");
    EXPECT_EQ([push tag], 0);
    EXPECT_EQ([made tag], 15);
    EXPECT_EQ([made image], nil);
    EXPECT_EQ(toUTF8([made label]), "");
    EXPECT_EQ(toUTF8([made toolTip]), "");
}

TEST_F(Toolbar, MakesTheSearchItem) {
    auto *made = static_cast<NSSearchToolbarItem *>(make(@"search"));
    ASSERT_TRUE([made isKindOfClass:[NSSearchToolbarItem class]]);
    EXPECT_EQ(toUTF8([made itemIdentifier]), "search");
    EXPECT_EQ(toUTF8([made label]), "");
    EXPECT_EQ([[made searchField] target], controller.get());
    EXPECT_EQ(toUTF8(NSStringFromSelector([[made searchField] action])), "searchFieldDidChangeWithSender:");
}

TEST_F(Toolbar, CutsNoItemOff) {
    for (NSString *identifier in @[ @"play", @"insert", @"media" ]) {
        addItem(identifier);
    }
    EXPECT_EQ([[toolbar.get() visibleItems] count], 9U);
    const NSRect last = [[item(@"tabOverview") view] convertRect:[[item(@"tabOverview") view] bounds] toView:nil];
    EXPECT_LT(NSMaxX(last), 1000);
    EXPECT_GT(NSMaxX(last), 900); // and the flexible space pushes it to the right
}

TEST_F(Toolbar, NarrowsTheSearchFieldBeforeItHidesItems) {
    NSView *field = [item(@"search") view];
    EXPECT_EQ(NSWidth([field frame]), 180);
    [window.get() setContentSize:NSMakeSize(500, 300)];
    EXPECT_TRUE(test::runUntil([field] { return NSWidth([field frame]) < 180; }));
    EXPECT_GE(NSWidth([field frame]), 80);
    EXPECT_EQ([[toolbar.get() visibleItems] count], 6U);
    [window.get() setContentSize:NSMakeSize(1000, 700)];
    EXPECT_TRUE(test::runUntil([field] { return NSWidth([field frame]) == 180; }));
}

TEST_F(Toolbar, ReportsThePressOfATargetItem) {
    [button(addItem(@"addSlide")) performClick:nil];
    [button(addItem(@"arrange")) performClick:nil];
    EXPECT_THAT(host.get()->log, ElementsAre("action 1", "action 17"));
    EXPECT_THAT(host.get()->argumentClasses, ElementsAre("number", "number"));
}

TEST_F(Toolbar, SendsNothingForFeedback) {
    [button(item(@"report")) performClick:nil];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

TEST_F(Toolbar, SendsNothingForATagThatIsNoAction) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)]);
    for (const NSInteger tag : {0, -1, 23, 1000}) {
        [sender.get() setTag:tag];
        [controller.get() toolbarTargetActionWithSender:sender.get()];
    }
    [controller.get() toolbarTargetActionWithSender:nil];
    EXPECT_THAT(host.get()->log, IsEmpty());
    [sender.get() setTag:22];
    [controller.get() toolbarTargetActionWithSender:sender.get()];
    EXPECT_THAT(host.get()->log, ElementsAre("action 22"));
}

TEST_F(Toolbar, AsksForAPopoverAtThePressedButton) {
    std::vector<std::string> expected;
    for (NSString *identifier in @[ @"media", @"inspector", @"play" ]) {
        addItem(identifier);
    }
    test::spin(0.05);
    const std::vector<std::pair<const char *, int>> popovers = {
        {"media", 2}, {"inspector", 14}, {"document", 16}, {"play", 18}, {"themes", 22}};
    for (const auto &[identifier, code] : popovers) {
        NSButton *pressed = button(item(toNSString(identifier)));
        expected.push_back(popoverEntry(code, pressed));
        [pressed performClick:nil];
    }
    EXPECT_EQ(host.get()->log, expected);
}

TEST_F(Toolbar, MeasuresThePopoverFromTheTopAndScalesItsX) {
    const auto plain = adoptNS([[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 1000, 800)
                                                           styleMask:NSBorderlessWindowMask
                                                             backing:NSBackingStoreBuffered
                                                               defer:NO]);
    [plain.get() setReleasedWhenClosed:NO];
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(77, 100, 60, 30)]);
    [sender.get() setTag:2];
    [[plain.get() contentView] addSubview:sender.get()];
    [controller.get() setupToolbarInWindow:plain.get()];
    [controller.get() toolbarPopoverActionWithSender:sender.get()];
    EXPECT_THAT(host.get()->log, ElementsAre("popover 2 (100, 700, 4, 30)"));
}

TEST_F(Toolbar, ReadsTheItemsOwnTagForAMenuItemInTheOverflow) {
    const auto choice = adoptNS([[NSMenuItem alloc] initWithTitle:@"Themes" action:nullptr keyEquivalent:@""]);
    [controller.get() toolbarPopoverActionWithSender:choice.get()];
    EXPECT_THAT(host.get()->log, IsEmpty()); // the button carries the code, the item none
    NSToolbarItem *themes = item(@"themes");
    [themes setTag:22];
    [controller.get() toolbarPopoverActionWithSender:choice.get()];
    EXPECT_THAT(host.get()->log, ElementsAre(popoverEntry(22, [themes view])));
}

TEST_F(Toolbar, IgnoresPopoverSendersWithoutAPlace) {
    const auto unknown = adoptNS([[NSMenuItem alloc] initWithTitle:@"Nobody" action:nullptr keyEquivalent:@""]);
    [controller.get() toolbarPopoverActionWithSender:unknown.get()];
    const auto viewless = adoptNS([[NSMenuItem alloc] initWithTitle:@"Arrange" action:nullptr keyEquivalent:@""]);
    addItem(@"arrange");
    [controller.get() toolbarPopoverActionWithSender:viewless.get()];
    [controller.get() toolbarPopoverActionWithSender:@"neither button nor menu item"];
    [controller.get() toolbarPopoverActionWithSender:nil];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

TEST_F(Toolbar, SendsTheSearchTextAndNilWhenItIsEmptied) {
    NSSearchField *field = [static_cast<NSSearchToolbarItem *>(item(@"search")) searchField];
    [field setStringValue:@"talk"];
    [field sendAction:[field action] to:[field target]];
    [field setStringValue:@""];
    [field sendAction:[field action] to:[field target]];
    EXPECT_THAT(host.get()->log, ElementsAre("search talk", "search nil"));
    EXPECT_THAT(host.get()->argumentClasses, ElementsAre("string", "nil"));
}

TEST_F(Toolbar, GivesTheSearchFieldTheFocusAndLeavesItsText) {
    [window.get() makeKeyWindow];
    NSSearchField *field = [static_cast<NSSearchToolbarItem *>(item(@"search")) searchField];
    [field setStringValue:@"talk"];
    [controller.get() highlightSearch];
    EXPECT_NE([field currentEditor], nil);
    EXPECT_EQ([window.get() firstResponder], [field currentEditor]);
    EXPECT_EQ(toUTF8([field stringValue]), "talk");
}

TEST_F(Toolbar, FocusesNothingWithoutAVisibleSearchItem) {
    for (NSUInteger i = [[toolbar.get() items] count]; i-- > 0;) {
        if ([[[[toolbar.get() items] objectAtIndex:i] itemIdentifier] isEqualToString:@"search"]) {
            [toolbar.get() removeItemAtIndex:static_cast<NSInteger>(i)];
        }
    }
    NSResponder *before = [window.get() firstResponder];
    [controller.get() highlightSearch];
    EXPECT_EQ([window.get() firstResponder], before);
    [window.get() setToolbar:nil];
    [controller.get() highlightSearch];
    EXPECT_EQ([window.get() firstResponder], before);
}

TEST_F(Toolbar, FlipsItsVisibilityWhateverIsAskedFor) {
    ASSERT_TRUE([toolbar.get() isVisible]);
    [controller.get() showToolbar];
    EXPECT_FALSE([toolbar.get() isVisible]);
    [controller.get() hideToolbar];
    EXPECT_TRUE([toolbar.get() isVisible]);
    [controller.get() hideToolbar];
    EXPECT_FALSE([toolbar.get() isVisible]);
}

TEST_F(Toolbar, TitlesTheWindowAfterTheFile) {
    NSURL *url = [NSURL fileURLWithPath:@"/talks/talk.md"];
    [controller.get() setupToolbarURL:url];
    EXPECT_TRUE([[window.get() representedURL] isEqual:url]);
    EXPECT_EQ(toUTF8([window.get() title]), "talk.md");
    [controller.get() setupToolbarURL:[NSURL URLWithString:@"file:///talks/spring/"]];
    EXPECT_EQ(toUTF8([window.get() title]), "spring");
    [controller.get() setupToolbarURL:nil];
    EXPECT_EQ([window.get() representedURL], nil);
    EXPECT_EQ(toUTF8([window.get() title]), "");
}

TEST_F(Toolbar, TellsTheHostNothingOfTheTabOverview) {
    ASSERT_NE(button(item(@"tabOverview")), nil);
    [button(item(@"tabOverview")) performClick:nil];
    [button(item(@"tabOverview")) performClick:nil];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

TEST_F(Toolbar, SendsNothingOnceCleared) {
    [controller.get() clearWindowToolbar];
    [button(addItem(@"addSlide")) performClick:nil];
    [button(item(@"themes")) performClick:nil];
    NSSearchField *field = [static_cast<NSSearchToolbarItem *>(item(@"search")) searchField];
    [field setStringValue:@"talk"];
    [field sendAction:[field action] to:[field target]];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

TEST_F(Toolbar, MayBeClearedWhileItSends) {
    host.get()->whileCalled = [this] { [controller.get() clearWindowToolbar]; };
    [button(addItem(@"addSlide")) performClick:nil];
    [button(item(@"addSlide")) performClick:nil];
    EXPECT_THAT(host.get()->log, ElementsAre("action 1"));
}

TEST_F(Toolbar, DoesNothingForAWindowThatIsGone) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)]);
    [sender.get() setTag:2];
    const WeakObjCPtr<NSWindow> weak(window.get());
    dropWindow();
    ASSERT_FALSE(weak) << "somebody keeps the window";
    [controller.get() setupToolbarURL:[NSURL fileURLWithPath:@"/talks/talk.md"]];
    [controller.get() showToolbar];
    [controller.get() hideToolbar];
    [controller.get() highlightSearch];
    [controller.get() toolbarTabOverviewActionWithSender:nil];
    [controller.get() forceUserInterfaceStyle:@"dark"];
    [controller.get() toolbarPopoverActionWithSender:sender.get()];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

class ToolbarStops : public Toolbar {
protected:
    ToolbarStops() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ToolbarStops, ForAnUnknownIdentifier) {
    EXPECT_EXIT(make(@"AddSlide"), testing::KilledBySignal(SIGABRT),
                testing::ContainsRegex("AppKitGlue/ToolbarManager:[0-9]+: Fatal error: Unknown Identifier AddSlide\n"));
}

namespace {

NSImage *noImage(id, SEL, NSString *, NSString *) {
    return nil;
}

} // namespace

TEST_F(ToolbarStops, ForASymbolThatTheSystemLacks) {
    const auto removeSymbols = [] {
        Method method = class_getClassMethod([NSImage class], @selector(imageWithSystemSymbolName:
                                                                         accessibilityDescription:));
        method_setImplementation(method, reinterpret_cast<IMP>(noImage));
    };
    // "report" shows no symbol, but needs it all the same.
    for (NSString *identifier in @[ @"addSlide", @"report" ]) {
        EXPECT_EXIT(
            (removeSymbols(), make(identifier)), testing::KilledBySignal(SIGABRT),
            testing::ContainsRegex("AppKitGlue/ToolbarManager:[0-9]+: Fatal error: Missing system symbol image "));
    }
}
