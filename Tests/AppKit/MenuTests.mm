#import "DocumentWindow.h"
#import "MenuBuilding.h"
#import "MenuEventDelegate.h"

#include "StringBridging.h"

#import <objc/runtime.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What was asked to pop up last. Showing a menu would block the test until somebody chooses.
struct PopUp {
    int count = 0;
    RetainPtr<NSMenu> menu;
    RetainPtr<NSMenuItem> positioningItem;
    NSPoint location = NSZeroPoint;
    NSView *view = nil;
    std::vector<std::string> sentBefore;
    RecordingHost *host = nil;
};
PopUp popUp;

BOOL recordPopUp(id menu, SEL, NSMenuItem *item, NSPoint location, NSView *view) {
    ++popUp.count;
    popUp.menu = RetainPtr<NSMenu>(menu);
    popUp.positioningItem = RetainPtr<NSMenuItem>(item);
    popUp.location = location;
    popUp.view = view;
    popUp.sentBefore = popUp.host->log;
    return YES;
}

/// One line for each entry: "title symbol tag", submenus indented.
std::string outline(NSMenu *menu, const std::string &indent = "") {
    std::string text;
    for (NSMenuItem *item in [menu itemArray]) {
        if ([item isSeparatorItem]) {
            text += indent + "-\n";
            continue;
        }
        text += indent + toUTF8([item title]);
        if (id tag = [item representedObject]) {
            text += " " + toUTF8([tag description]);
        }
        text += "\n";
        if ([item hasSubmenu]) {
            text += outline([item submenu], indent + "  ");
        }
    }
    return text;
}

} // namespace

class Menus : public test::DocumentWindow {
protected:
    Menus() {
        popUp = PopUp();
        popUp.host = host.get();
        method_ = class_getInstanceMethod([NSMenu class], @selector(popUpMenuPositioningItem:atLocation:inView:));
        original_ = method_setImplementation(method_, reinterpret_cast<IMP>(recordPopUp));
        menu = adoptNS([[NSMenu alloc] initWithTitle:@""]);
    }
    ~Menus() override {
        method_setImplementation(method_, original_);
        popUp = PopUp();
    }

    /// Chooses the entry with this title, at any depth, as a click does.
    void choose(NSMenu *from, NSString *title) {
        for (NSMenuItem *item in [from itemArray]) {
            if ([item hasSubmenu]) {
                choose([item submenu], title);
            } else if ([[item title] isEqualToString:title]) {
                [from performActionForItemAtIndex:[from indexOfItem:item]];
            }
        }
    }

    void populate(const std::vector<MenuItem> &items) {
        populateMenu(menu.get(), items, controller.get(), @selector(didTapMenuItem:));
    }

    NSMenuItem *itemAt(NSInteger index) { return static_cast<NSMenuItem *>([menu.get() itemAtIndex:index]); }

    RetainPtr<NSMenu> menu;

private:
    Method method_;
    IMP original_;
};

TEST_F(Menus, BuildsTheInsertMenu) {
    populate(MenuItem::insertionStructure());
    EXPECT_EQ(outline(menu.get()), "Headlines\n"
                                   "  Level 1 3\n"
                                   "  Level 2 4\n"
                                   "  Level 3 5\n"
                                   "Quote 6\n"
                                   "Lists\n"
                                   "  Bulleted List 8\n"
                                   "  Numbered List 7\n"
                                   "Code 9\n"
                                   "Footnote 10\n"
                                   "Table 11\n"
                                   "Website 12\n"
                                   "-\n"
                                   "Comment 13\n");
}

TEST_F(Menus, GivesTheInsertMenuItsSymbols) {
    populate(MenuItem::insertionStructure());
    const char *const symbols[] = {
        "h.circle", "text.quote", "text.justify", "chevron.left.slash.chevron.right", "textformat.superscript", "table",
        "globe",    nullptr,      "bubble.right"};
    NSInteger index = 0;
    for (const char *symbol : symbols) {
        NSImage *image = [itemAt(index++) image];
        EXPECT_TRUE(symbol != nullptr ? shows(image, symbol) : image == nil)
            << (symbol != nullptr ? symbol : "separator");
    }
    NSMenu *headlines = [itemAt(0) submenu];
    NSMenu *lists = [itemAt(2) submenu];
    EXPECT_TRUE(shows([[headlines itemAtIndex:0] image], "1.circle"));
    EXPECT_TRUE(shows([[headlines itemAtIndex:1] image], "2.circle"));
    EXPECT_TRUE(shows([[headlines itemAtIndex:2] image], "3.circle"));
    EXPECT_TRUE(shows([[lists itemAtIndex:0] image], "list.bullet"));
    EXPECT_TRUE(shows([[lists itemAtIndex:1] image], "list.number"));
}

TEST_F(Menus, WiresOnlyTheActionableEntriesAtEveryDepth) {
    populate(
        {MenuItem::nested("Outer", "table", {MenuItem::nested("Inner", "globe", {MenuItem::item("Deep", 5, "plus")})}),
         MenuItem::separator()});
    NSMenuItem *outer = itemAt(0);
    NSMenuItem *inner = static_cast<NSMenuItem *>([[outer submenu] itemAtIndex:0]);
    NSMenuItem *deep = static_cast<NSMenuItem *>([[inner submenu] itemAtIndex:0]);
    for (NSMenuItem *holder in @[ outer, inner ]) {
        EXPECT_NE([holder target], controller.get());
        EXPECT_FALSE(sel_isEqual([holder action], @selector(didTapMenuItem:)));
        EXPECT_EQ([holder representedObject], nil);
        EXPECT_EQ(toUTF8([[holder submenu] title]), toUTF8([holder title]));
    }
    EXPECT_EQ([deep target], controller.get());
    EXPECT_TRUE(sel_isEqual([deep action], @selector(didTapMenuItem:)));
    EXPECT_TRUE([[deep representedObject] isEqual:[NSNumber numberWithInt:5]]);
    EXPECT_EQ([deep tag], 0);
    EXPECT_EQ(toUTF8([deep keyEquivalent]), "");
    EXPECT_TRUE([itemAt(1) isSeparatorItem]);
}

TEST_F(Menus, AppendsAndShowsAnEntryWithAnUnknownSymbol) {
    [menu.get() addItemWithTitle:@"First" action:nullptr keyEquivalent:@""];
    populate({MenuItem::item("Strange", 6, "no.such.symbol"), MenuItem::item("Big", INT64_MAX, "plus")});
    EXPECT_EQ(outline(menu.get()), "First\nStrange 6\nBig 9223372036854775807\n");
    EXPECT_EQ([itemAt(1) image], nil);
    EXPECT_NE([itemAt(2) image], nil);
}

TEST_F(Menus, ReportsTheOpenedInsertMenuBeforeItShows) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(40, 50, 60, 24)]);
    [controller.get() toolbarInsertMenuActionWithSender:sender.get()];
    EXPECT_EQ(popUp.count, 1);
    EXPECT_THAT(popUp.sentBefore, ElementsAre("action 21"));
    EXPECT_THAT(host.get()->log, ElementsAre("action 21"));
    EXPECT_EQ(toUTF8([popUp.menu.get() title]), "");
    EXPECT_EQ(popUp.positioningItem.get(), [popUp.menu.get() itemAtIndex:0]);
    EXPECT_TRUE(NSEqualPoints(popUp.location, NSMakePoint(0, 29)));
    EXPECT_EQ(popUp.view, sender.get());
}

TEST_F(Menus, OpensUnderThePressedInsertButton) {
    NSButton *pressed = button(addItem(@"insert"));
    [pressed performClick:nil];
    EXPECT_EQ(popUp.view, pressed);
    EXPECT_EQ([popUp.menu.get() numberOfItems], 9);
}

TEST_F(Menus, ShowNothingForASenderWithoutAPlace) {
    [controller.get() toolbarInsertMenuActionWithSender:[[[NSMenuItem alloc] init] autorelease]];
    [controller.get() toolbarInsertMenuActionWithSender:nil];
    EXPECT_EQ(popUp.count, 0);
    EXPECT_THAT(host.get()->log, ElementsAre("action 21", "action 21"));
}

TEST_F(Menus, ReportsTheChosenList) {
    [button(addItem(@"insert")) performClick:nil];
    choose(popUp.menu.get(), @"Numbered List");
    choose(popUp.menu.get(), @"Bulleted List");
    EXPECT_THAT(host.get()->log, ElementsAre("action 21", "action 7", "action 8"));
    EXPECT_THAT(host.get()->argumentClasses, ElementsAre("number", "number", "number"));
}

TEST_F(Menus, ReportsNothingForTheMediaMenuUntilHelpIsChosen) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 60, 30)]);
    [controller.get() toolbarMediaMenuActionWithSender:sender.get()];
    EXPECT_EQ(popUp.count, 1);
    EXPECT_THAT(host.get()->log, IsEmpty());
    EXPECT_EQ(outline(popUp.menu.get()), "Help 1\n");
    EXPECT_TRUE(shows([[popUp.menu.get() itemAtIndex:0] image], "text.quote"));
    choose(popUp.menu.get(), @"Help");
    EXPECT_THAT(host.get()->log, ElementsAre("action 1"));
}

TEST_F(Menus, OpenEvenWhenNobodyIsToldOfThem) {
    [controller.get() clearWindowToolbar];
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 60, 30)]);
    [controller.get() toolbarInsertMenuActionWithSender:sender.get()];
    EXPECT_EQ(popUp.count, 1);
    choose(popUp.menu.get(), @"Quote");
    EXPECT_THAT(host.get()->log, IsEmpty());
}

TEST_F(Menus, BuildSubmenusWithoutEntries) {
    populate({MenuItem::nested("Empty", "table", {})});
    EXPECT_EQ([menu.get() numberOfItems], 1);
    EXPECT_EQ([[itemAt(0) submenu] numberOfItems], 0);
}

TEST_F(Menus, ShowButNeverReportEntriesThatAreNoAction) {
    populate(
        {MenuItem::item("Zero", 0, "plus"), MenuItem::item("Beyond", 23, "plus"), MenuItem::item("Last", 22, "plus")});
    EXPECT_EQ(outline(menu.get()), "Zero 0\nBeyond 23\nLast 22\n");
    for (NSString *title in @[ @"Zero", @"Beyond", @"Last" ]) {
        choose(menu.get(), title);
    }
    EXPECT_THAT(host.get()->log, ElementsAre("action 22"));
}

TEST_F(Menus, ReportNothingForARepresentedObjectThatIsNoInteger) {
    const auto item = adoptNS([[NSMenuItem alloc] init]);
    for (id object in @[ @"7", [NSNumber numberWithDouble:7.5], [NSNull null] ]) {
        [item.get() setRepresentedObject:object];
        [controller.get() didTapMenuItem:item.get()];
    }
    [item.get() setRepresentedObject:nil];
    [controller.get() didTapMenuItem:item.get()];
    [controller.get() didTapMenuItem:nil];
    EXPECT_THAT(host.get()->log, IsEmpty());
}

/// Reaches the pop-up with lists that the two menus never are.
@interface QVAppKitController (MenuPopUp)
- (void)popUpMenu:(const std::vector<MenuItem> &)items sender:(NSView *)sender;
@end

TEST_F(Menus, StaySilentWithoutEntries) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 60, 30)]);
    [controller.get() popUpMenu:{} sender:sender.get()];
    EXPECT_EQ(popUp.count, 0);
}

TEST_F(Menus, PopUpWithSubmenusOnly) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 60, 30)]);
    [controller.get() popUpMenu:{MenuItem::nested("A", "table", {}), MenuItem::nested("B", "table", {})}
                         sender:sender.get()];
    EXPECT_EQ(popUp.count, 1);
    EXPECT_EQ(outline(popUp.menu.get()), "A\nB\n");
}

TEST_F(Menus, PositionThemselvesByALeadingSeparator) {
    const auto sender = adoptNS([[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 60, 30)]);
    [controller.get() popUpMenu:{MenuItem::separator(), MenuItem::item("Code", 9, "plus")} sender:sender.get()];
    EXPECT_EQ(popUp.count, 1);
    EXPECT_TRUE([popUp.positioningItem.get() isSeparatorItem]);
}

/// A receiver as a host declares it.
@interface ChoiceReceiver : NSObject <MenuEventDelegate>
@end

@implementation ChoiceReceiver
- (void)didTapMenuItem:(NSNumber *)tag {
}
@end

TEST_F(Menus, DeclareTheirReceiver) {
    EXPECT_TRUE([ChoiceReceiver conformsToProtocol:@protocol(MenuEventDelegate)]);
    Protocol *receiver = NSProtocolFromString(@"MenuEventDelegate");
    EXPECT_NE(protocol_getMethodDescription(receiver, @selector(didTapMenuItem:), YES, YES).name, nullptr);
}
