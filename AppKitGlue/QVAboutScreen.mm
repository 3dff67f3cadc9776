#import "QVAboutScreen.h"

#include "AboutScreenView.h"
#import "RetainPtr.h"
#import "ViewFonts.h"
#import "ViewRenderer.h"
#import "WeakObjCPtr.h"

using namespace appkitglue;

struct QVAboutScreenState {
    std::shared_ptr<AboutScreenState> state = std::make_shared<AboutScreenState>();
    WeakObjCPtr<id> target;
    bool hasTarget = false;
    SEL action = nullptr;
};

@implementation QVAboutScreenView

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self)
        [self build];
    return self;
}

- (instancetype)initWithCoder:(NSCoder *)coder {
    self = [super initWithCoder:coder];
    if (self)
        [self build];
    return self;
}

- (void)build {
    _state = std::make_unique<QVAboutScreenState>().release(); // deleted in dealloc: the header knows no C++
    const auto host = adoptNS([[QVHostingView alloc] initWithFrame:[self bounds]]);
    [host.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [host.get() showBody:[screen = AboutScreenView{_state->state}] { return screen.body(); }
               observing:_state->state
             environment:ui::workspaceEnvironment()];
    [self addSubview:host.get()];
    // The view owns the state, so this does not keep the view alive.
    _state->state->setDismissAction([weakSelf = WeakObjCPtr<QVAboutScreenView>(self)] {
        if (const auto strongSelf = weakSelf.get())
            [strongSelf.get() dismiss];
    });
}

- (void)dealloc {
    const std::unique_ptr<QVAboutScreenState> last(_state);
    [super dealloc];
}

- (void)dismiss {
    if (!_state->action)
        return;
    const auto target = _state->target.get();
    if (!_state->hasTarget || target)
        [NSApp sendAction:_state->action to:target.get() from:self];
}

- (id)dismissTarget {
    return _state->target.get().autorelease();
}

- (void)setDismissTarget:(id)target {
    _state->target = target;
    _state->hasTarget = target != nil;
}

- (SEL)dismissAction {
    return _state->action;
}

- (void)setDismissAction:(SEL)action {
    _state->action = action;
}

@end

@implementation QVAboutScreenViewController

- (void)loadView {
    [self setView:adoptNS([[QVAboutScreenView alloc] initWithFrame:NSMakeRect(0, 0, 480, 560)]).get()];
}

- (QVAboutScreenView *)aboutScreenView {
    return static_cast<QVAboutScreenView *>([self view]);
}

@end
