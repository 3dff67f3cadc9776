// GNUstep 0.29 has no key for the menu bar, none to leave a text view, and its tab views, segmented controls, colour
// wells and pop-up buttons do not (or only half) work with keys.
#import "Hooks.h"
#import "MenuKeyboard.h"
#import "Platform.h"

#include <algorithm>

namespace {

unichar characterOf(NSEvent *event) {
    NSString *characters = [event charactersIgnoringModifiers];
    return [characters length] > 0 ? [characters characterAtIndex:0] : 0;
}

// Alt alone, pressed and released with nothing in between, opens the menu bar.
bool altAlone = false;

bool openMenuBar() {
    NSMenuView *bar = platform::menuBarOf([NSApp keyWindow]);
    if (bar == nil || [NSApp modalWindow] != nil) {
        return false;
    }
    platform::trackMenuBarWithKeys(bar);
    return true;
}

bool handleModifiers(NSEvent *event) {
    const NSUInteger modifiers =
        [event modifierFlags] & (NSAlternateKeyMask | NSShiftKeyMask | NSControlKeyMask | NSCommandKeyMask);
    const bool released = modifiers == 0 && altAlone;
    altAlone = modifiers == NSAlternateKeyMask;
    return released && openMenuBar();
}

// In a text view Tab writes a tab; with Control it leaves.
bool leaveTextView(NSEvent *event) {
    constexpr NSUInteger leaving = NSControlKeyMask | NSCommandKeyMask;
    NSWindow *window = [NSApp keyWindow];
    if (characterOf(event) != '\t' && characterOf(event) != NSBackTabCharacter) {
        return false;
    }
    if (([event modifierFlags] & leaving) == 0 || ![[window firstResponder] isKindOfClass:[NSTextView class]]) {
        return false;
    }
    const bool backwards = ([event modifierFlags] & NSShiftKeyMask) != 0;
    NSView *view = (NSView *)[window firstResponder];
    backwards ? [window selectKeyViewPrecedingView:view] : [window selectKeyViewFollowingView:view];
    return true;
}

bool handleKey(NSEvent *event) {
    altAlone = false;
    constexpr NSUInteger anyModifier = NSAlternateKeyMask | NSShiftKeyMask | NSControlKeyMask | NSCommandKeyMask;
    if (characterOf(event) == NSF10FunctionKey && ([event modifierFlags] & anyModifier) == 0) {
        return openMenuBar();
    }
    return leaveTextView(event);
}

platform::Hook<void, NSEvent *> sendEventHook;

void sendEvent(id self, SEL command, NSEvent *event) {
    bool handled = false;
    switch ([event type]) {
    case NSKeyDown:
        handled = handleKey(event);
        break;
    case NSFlagsChanged:
        handled = handleModifiers(event);
        break;
    case NSLeftMouseDown:
    case NSRightMouseDown:
        altAlone = false;
        break;
    default:
        break;
    }
    if (!handled) {
        sendEventHook.original(self, command, event);
    }
}

platform::Hook<BOOL> stepperAcceptsHook;

platform::Hook<void, NSEvent *> stepperKeyDownHook;

BOOL stepperAccepts(id self, SEL) {
    return [self isEnabled];
}

void stepperKeyDown(id self, SEL command, NSEvent *event) {
    const unichar key = characterOf(event);
    const bool up = key == NSUpArrowFunctionKey || key == NSRightArrowFunctionKey;
    const bool down = key == NSDownArrowFunctionKey || key == NSLeftArrowFunctionKey;
    if (!up && !down) {
        stepperKeyDownHook.original(self, command, event);
        return;
    }
    NSStepper *stepper = self;
    const double value = [stepper doubleValue] + (up ? [stepper increment] : -[stepper increment]);
    [stepper setDoubleValue:std::clamp(value, [stepper minValue], [stepper maxValue])];
    [stepper sendAction:[stepper action] to:[stepper target]];
}

platform::Hook<void, NSEvent *> popUpKeyDownHook;

void popUpKeyDown(id self, SEL command, NSEvent *event) {
    switch (characterOf(event)) {
    case ' ':
    case NSUpArrowFunctionKey:
    case NSDownArrowFunctionKey:
        platform::trackPopUpWithKeys(self);
        break;
    case '\t':
    case NSBackTabCharacter:
    case '\r':
    case 0x1b:
        // Not the pop-up button's: the window's.
        [[self nextResponder] keyDown:event];
        break;
    default:
        popUpKeyDownHook.original(self, command, event);
        break;
    }
}

} // namespace

namespace platform {

void installKeyboardAccess() {
    sendEventHook.install([NSApplication class], @selector(sendEvent:), sendEvent);
    popUpKeyDownHook.install([NSPopUpButton class], @selector(keyDown:), popUpKeyDown);
    stepperAcceptsHook.install([NSStepper class], @selector(acceptsFirstResponder), stepperAccepts);
    stepperKeyDownHook.install([NSStepper class], @selector(keyDown:), stepperKeyDown);
}

} // namespace platform

@interface NSTabView (QVKeyboard)
@end

@implementation NSTabView (QVKeyboard)

- (BOOL)acceptsFirstResponder {
    const NSTabViewType type = [self tabViewType];
    return type != NSNoTabsNoBorder && type != NSNoTabsBezelBorder && type != NSNoTabsLineBorder &&
           [self numberOfTabViewItems] > 1;
}

- (BOOL)becomeFirstResponder {
    [self setNeedsDisplay:YES];
    return YES;
}

- (BOOL)resignFirstResponder {
    [self setNeedsDisplay:YES];
    return YES;
}

- (void)keyDown:(NSEvent *)event {
    const NSInteger index = [self indexOfTabViewItem:[self selectedTabViewItem]];
    const unichar key = characterOf(event);
    if (key == NSLeftArrowFunctionKey && index > 0) {
        [self selectTabViewItemAtIndex:index - 1];
    } else if (key == NSRightArrowFunctionKey && index + 1 < [self numberOfTabViewItems]) {
        [self selectTabViewItemAtIndex:index + 1];
    } else if (key != NSLeftArrowFunctionKey && key != NSRightArrowFunctionKey) {
        [super keyDown:event];
    }
}

@end

@interface NSSegmentedControl (QVKeyboard)
@end

@implementation NSSegmentedControl (QVKeyboard)

- (BOOL)becomeFirstResponder {
    [self setNeedsDisplay:YES];
    return YES;
}

- (BOOL)resignFirstResponder {
    [self setNeedsDisplay:YES];
    return YES;
}

- (void)keyDown:(NSEvent *)event {
    const unichar key = characterOf(event);
    if (key != NSLeftArrowFunctionKey && key != NSRightArrowFunctionKey) {
        [super keyDown:event];
        return;
    }
    const NSInteger step = key == NSLeftArrowFunctionKey ? -1 : 1;
    for (NSInteger i = [self selectedSegment] + step; i >= 0 && i < [self segmentCount]; i += step) {
        if ([self isEnabledForSegment:i]) {
            [self setSelectedSegment:i];
            [self sendAction:[self action] to:[self target]];
            break;
        }
    }
}

@end

@interface NSColorWell (QVKeyboard)
@end

@implementation NSColorWell (QVKeyboard)

- (void)keyDown:(NSEvent *)event {
    if (characterOf(event) == ' ') {
        [self activate:YES];
    } else {
        [super keyDown:event];
    }
}

@end
