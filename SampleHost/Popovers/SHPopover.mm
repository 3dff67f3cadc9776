#import "SHPopover.h"

#import "SHPopoverForm.h"

using namespace samplehost;

@implementation SHPopover

- (instancetype)initWithAction:(Action)action document:(SHDocument *)document application:(SHAppDelegate *)application {
    self = [super init];
    if (self != nil) {
        _action = action;
        _form = keep(formFor(action, document, application));
        [_form.get() setCloser:[self] { [self close]; }];
    }
    return self;
}

- (void)dealloc {
    [self close];
    [_form.get() setCloser:{}];
    [super dealloc];
}

- (Action)action {
    return _action;
}

- (bool)isShown {
    return [_popover.get() isShown];
}

- (void)showRelativeToRect:(NSRect)rect ofView:(NSView *)view {
    if (!_form) {
        return;
    }
    const auto controller = own([[NSViewController alloc] init]);
    [controller.get() setView:_form.get()];
    _popover = own([[NSPopover alloc] init]);
    [_popover.get() setContentViewController:controller.get()];
    [_popover.get() setContentSize:[_form.get() frame].size];
    [_popover.get() setBehavior:NSPopoverBehaviorTransient];
    [_popover.get() showRelativeToRect:rect ofView:view preferredEdge:NSMinYEdge];
    if (NSView *first = [_form.get() firstControl]; first != nil) {
        [[first window] makeFirstResponder:first];
    }
}

- (void)close {
    if ([_popover.get() isShown]) {
        [_popover.get() close];
    }
}

@end
