#import "SHDocumentWindow.h"

#include <utility>

@implementation SHDocumentWindow

- (void)setKeyFilter:(std::function<bool(NSEvent *)>)filter {
    _keyFilter = std::move(filter);
}

- (void)sendEvent:(NSEvent *)event {
    // A copy: the filter may end the show, which takes the filter away.
    const auto filter = _keyFilter;
    if ([event type] == NSKeyDown && filter && filter(event)) {
        return;
    }
    [super sendEvent:event];
}

@end
