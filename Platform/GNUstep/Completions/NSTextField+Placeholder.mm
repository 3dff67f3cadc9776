// GNUstep 0.29 lacks the placeholder of text fields (their cells have one) and loses it when it reads a layout
// resource.
#import "NSTextField+Placeholder.h"

#import "Hooks.h"

namespace platform {

namespace {

Hook<id, NSCoder *> initWithCoder;

id initCellWithCoder(id self, SEL selector, NSCoder *coder) {
    NSTextFieldCell *cell = initWithCoder.original(self, selector, coder);
    // The key of an element's attribute; archives have their own keys, which GNUstep reads.
    if ([coder allowsKeyedCoding] && [coder containsValueForKey:@"placeholderString"]) {
        id placeholder = [coder decodeObjectForKey:@"placeholderString"];
        if ([placeholder isKindOfClass:[NSString class]]) {
            [cell setPlaceholderString:placeholder];
        }
    }
    return cell;
}

} // namespace

void installPlaceholderDecoding() {
    initWithCoder.install([NSTextFieldCell class], @selector(initWithCoder:), initCellWithCoder);
}

} // namespace platform

@implementation NSTextField (QVPlaceholder)

- (NSString *)placeholderString {
    NSCell *cell = [self cell];
    return [cell isKindOfClass:[NSTextFieldCell class]] ? [static_cast<NSTextFieldCell *>(cell) placeholderString]
                                                        : nil;
}

- (void)setPlaceholderString:(NSString *)placeholder {
    NSCell *cell = [self cell];
    if ([cell isKindOfClass:[NSTextFieldCell class]]) {
        [static_cast<NSTextFieldCell *>(cell) setPlaceholderString:placeholder];
        [self setNeedsDisplay:YES];
    }
}

@end
