// GNUstep 0.29 tracks menus with the mouse only: this is the loop for the keyboard.
#import "MenuKeyboard.h"

#include <vector>

namespace platform {

namespace {

class Tracking {
public:
    // `root` is a menu bar or the menu of a pop-up button, which is open already.
    Tracking(NSMenuView *root, bool isBar) : levels_{root}, isBar_(isBar) {}

    // Runs until the menu is left; the chosen item, or nil.
    NSMenuItem *run() {
        if (isBar_) {
            highlightNext(-1, 1);
            openSubmenu();
        } else if ([top() highlightedItemIndex] < 0) {
            highlightNext(-1, 1);
        }
        while (!done_) {
            @autoreleasepool {
                show();
                NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                    untilDate:[NSDate distantFuture]
                                                       inMode:NSEventTrackingRunLoopMode
                                                      dequeue:YES];
                handle(event);
            }
        }
        while (levels_.size() > 1) {
            closeSubmenu();
        }
        [levels_.front() setHighlightedItemIndex:-1];
        show();
        return chosen_;
    }

private:
    NSMenuView *top() const { return levels_.back(); }

    NSMenuItem *highlighted() const {
        const NSInteger index = [top() highlightedItemIndex];
        return index >= 0 ? [[top() menu] itemAtIndex:index] : nil;
    }

    void show() const {
        for (NSMenuView *level : levels_) {
            [[level window] displayIfNeeded];
            [[level window] flushWindowIfNeeded];
        }
    }

    static bool canBeChosen(NSMenuItem *item) {
        return ![item isSeparatorItem] && ([item isEnabled] || [item hasSubmenu]);
    }

    // The next item that can be chosen, from `start` in steps of 1 or -1, around the end.
    void highlightNext(NSInteger start, NSInteger step) {
        NSMenu *menu = [top() menu];
        const NSInteger count = [menu numberOfItems];
        for (NSInteger i = 1; i <= count; i++) {
            const NSInteger index = ((start + step * i) % count + count) % count;
            if (canBeChosen([menu itemAtIndex:index])) {
                [top() setHighlightedItemIndex:index];
                return;
            }
        }
    }

    void move(NSInteger step) {
        const NSInteger index = [top() highlightedItemIndex];
        highlightNext(index < 0 && step < 0 ? 0 : index, step);
    }

    void openSubmenu() {
        NSMenuItem *item = highlighted();
        if (![item hasSubmenu] || [[item submenu] numberOfItems] == 0) {
            return;
        }
        [[item submenu] update];
        [top() attachSubmenuForItemAtIndex:[top() highlightedItemIndex]];
        levels_.push_back([[item submenu] menuRepresentation]);
        highlightNext(-1, 1);
    }

    void closeSubmenu() {
        [top() setHighlightedItemIndex:-1];
        levels_.pop_back();
        const NSInteger index = [top() highlightedItemIndex];
        [top() detachSubmenu];
        [top() setHighlightedItemIndex:index];
    }

    // From one menu of the bar to its neighbour, which opens too.
    void moveAlongBar(NSInteger step) {
        // Closing a menu takes the bar's highlight away.
        const NSInteger index = [levels_.front() highlightedItemIndex];
        while (levels_.size() > 1) {
            closeSubmenu();
        }
        highlightNext(index, step);
        openSubmenu();
    }

    void choose() {
        NSMenuItem *item = highlighted();
        if ([item hasSubmenu]) {
            openSubmenu();
        } else if (item != nil) {
            chosen_ = item;
            done_ = true;
        }
    }

    void left() {
        if (levels_.size() > (isBar_ ? 2U : 1U)) {
            closeSubmenu();
        } else if (isBar_) {
            moveAlongBar(-1);
        }
    }

    void right() {
        if ((levels_.size() > 1 || !isBar_) && [highlighted() hasSubmenu]) {
            openSubmenu();
        } else if (isBar_) {
            moveAlongBar(1);
        }
    }

    void up() {
        if (isBar_ && levels_.size() == 1) {
            return;
        }
        move(-1);
    }

    void down() {
        if (isBar_ && levels_.size() == 1) {
            openSubmenu();
        } else {
            move(1);
        }
    }

    void escape() {
        if (levels_.size() > 1) {
            closeSubmenu();
        } else {
            done_ = true;
        }
    }

    void letter(NSString *characters) {
        NSMenu *menu = [top() menu];
        const NSInteger count = [menu numberOfItems];
        const NSInteger start = [top() highlightedItemIndex];
        for (NSInteger i = 1; i <= count; i++) {
            const NSInteger index = (start + i + count) % count;
            NSMenuItem *item = [menu itemAtIndex:index];
            const NSRange found = [[item title] rangeOfString:characters
                                                      options:NSCaseInsensitiveSearch | NSAnchoredSearch];
            if (canBeChosen(item) && found.location == 0) {
                [top() setHighlightedItemIndex:index];
                return;
            }
        }
    }

    void handleKey(NSString *characters) {
        switch ([characters length] > 0 ? [characters characterAtIndex:0] : 0) {
        case NSUpArrowFunctionKey:
            return up();
        case NSDownArrowFunctionKey:
            return down();
        case NSLeftArrowFunctionKey:
            return left();
        case NSRightArrowFunctionKey:
            return right();
        case NSHomeFunctionKey:
            return highlightNext(-1, 1);
        case NSEndFunctionKey:
            return highlightNext(0, -1);
        case '\r':
        case '\n':
        case 0x3: // Enter on the number pad
        case ' ':
            return choose();
        case 0x1b:
            return escape();
        case '\t':
        case NSF10FunctionKey:
            done_ = true;
            return;
        case 0:
            return;
        default:
            return letter(characters);
        }
    }

    void handle(NSEvent *event) {
        switch ([event type]) {
        case NSKeyDown:
            handleKey([event characters]);
            break;
        case NSLeftMouseDown:
        case NSRightMouseDown:
        case NSOtherMouseDown:
            // The mouse takes over.
            done_ = true;
            [NSApp postEvent:event atStart:YES];
            break;
        case NSKeyUp:
        case NSFlagsChanged:
        case NSMouseMoved:
            break;
        default:
            [NSApp sendEvent:event];
            // Another program or window was chosen, or the window has been closed.
            if ([NSApp keyWindow] == nil || ![[levels_.front() window] isVisible]) {
                done_ = true;
            }
            break;
        }
    }

    std::vector<NSMenuView *> levels_;
    bool isBar_;
    bool done_ = false;
    NSMenuItem *chosen_ = nil;
};

void perform(NSMenuItem *item) {
    NSMenu *menu = [item menu];
    const NSInteger index = menu != nil ? [menu indexOfItem:item] : -1;
    if (index >= 0) {
        [menu performActionForItemAtIndex:index];
    }
}

} // namespace

NSMenuView *menuBarOf(NSWindow *window) {
    for (NSView *view in [[[window contentView] superview] subviews]) {
        if ([view isKindOfClass:[NSMenuView class]] && [(NSMenuView *)view isHorizontal]) {
            return (NSMenuView *)view;
        }
    }
    return nil;
}

void trackMenuBarWithKeys(NSMenuView *bar) {
    [[bar menu] update];
    if ([[bar menu] numberOfItems] == 0) {
        return;
    }
    perform([[Tracking(bar, true).run() retain] autorelease]);
}

void trackPopUpWithKeys(NSPopUpButton *popUp) {
    NSPopUpButtonCell *cell = [popUp cell];
    if ([[cell menu] numberOfItems] == 0 || ![cell isEnabled]) {
        return;
    }
    [[cell menu] update];
    [cell attachPopUpWithFrame:[popUp bounds] inView:popUp];
    NSMenuView *view = [[cell menu] menuRepresentation];
    [view setHighlightedItemIndex:[cell pullsDown] ? 0 : [cell indexOfSelectedItem]];
    NSMenuItem *chosen = [[Tracking(view, false).run() retain] autorelease];
    [cell dismissPopUp];
    if (chosen == nil) {
        return;
    }
    if (![cell pullsDown] && [chosen menu] == [cell menu]) {
        [cell selectItem:chosen];
        [popUp setNeedsDisplay:YES];
    }
    perform(chosen);
}

} // namespace platform
