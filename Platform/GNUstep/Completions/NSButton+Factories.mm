// GNUstep 0.29 lacks the methods that make a ready button.
#import "NSButton+Factories.h"

namespace {

// What both kinds share. The caller sets the content and the size.
void makePushButton(NSButton *button, id target, SEL action) {
    [button setButtonType:NSMomentaryPushInButton];
    [button setBezelStyle:NSRoundedBezelStyle];
    [button setFont:[NSFont systemFontOfSize:[NSFont systemFontSize]]];
    [button setTarget:target];
    [button setAction:action];
}

} // namespace

@implementation NSButton (QVFactories)

+ (instancetype)buttonWithTitle:(NSString *)title target:(id)target action:(SEL)action {
    NSButton *button = [[[self alloc] initWithFrame:NSZeroRect] autorelease];
    makePushButton(button, target, action);
    [button setTitle:title];
    [button sizeToFit];
    constexpr CGFloat margin = 8; // on each side, as push buttons have it
    const NSSize fitting = [button frame].size;
    [button setFrameSize:NSMakeSize(fitting.width + 2 * margin, fitting.height < 24 ? 24 : fitting.height)];
    return button;
}

+ (instancetype)buttonWithImage:(NSImage *)image target:(id)target action:(SEL)action {
    NSButton *button = [[[self alloc] initWithFrame:NSZeroRect] autorelease];
    makePushButton(button, target, action);
    [button setTitle:@""];
    [button setImage:image];
    [button setImagePosition:NSImageOnly];
    const NSSize size = [image size];
    [button setFrameSize:NSMakeSize(size.width + 18, size.height + 8)];
    return button;
}

@end
