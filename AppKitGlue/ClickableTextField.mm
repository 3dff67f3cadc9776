#import "ClickableTextField.h"

@implementation ClickableTextField

- (void)mouseDown:(NSEvent *)event {
    // Taken, so that the release comes here too.
}

- (void)mouseUp:(NSEvent *)event {
    if (NSPointInRect([self convertPoint:[event locationInWindow] fromView:nil], [self bounds])) {
        [self sendAction:[self action] to:[self target]];
    }
}

@end
