#import "ViewRenderer.h"

#import "Platform.h"
#import "StringBridging.h"
#import "ViewFonts.h"
#import "ViewReconciler.h"
#import "WeakObjCPtr.h"

namespace appkitglue {

struct ViewHost {
    std::function<ui::View()> body;
    std::shared_ptr<ObservableObject> observed;
    Subscription subscription;
    std::shared_ptr<ui::ViewEnvironment> environment = std::make_shared<ui::ViewEnvironment>();
    ui::LayoutEnvironment layoutEnvironment = ui::appKitLayoutEnvironment();
    ui::View view{ui::Spacer{}};
    ui::Layout layout;
    ui::Size laidOutSize;
    RenderedNode root;
    std::vector<NSButton *> buttons;
    std::size_t changes = 0;
    bool updateScheduled = false;
};

} // namespace appkitglue

using namespace appkitglue;

static std::string localizedString(const std::string &key) {
    NSString *name = toNSString(key);
    return toUTF8([[NSBundle mainBundle] localizedStringForKey:name value:name table:nil]);
}

@implementation QVHostingView

- (instancetype)initWithFrame:(NSRect)frame {
    platform::prepareAppKit();
    self = [super initWithFrame:frame];
    if (self)
        _host = std::make_unique<ViewHost>();
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)showBody:(std::function<ui::View()>)body
       observing:(std::shared_ptr<ObservableObject>)observed
     environment:(ui::ViewEnvironment)environment {
    *_host->environment = std::move(environment);
    _host->body = std::move(body);
    _host->observed = std::move(observed);
    _host->subscription = {};
    if (_host->observed)
        _host->subscription = _host->observed->subscribe([weakSelf = WeakObjCPtr<QVHostingView>(self)] {
            if (const auto strongSelf = weakSelf.get())
                [strongSelf.get() scheduleUpdate];
        });
    [self updateBody];
}

// Any number of announcements in one turn cause one update.
- (void)scheduleUpdate {
    if (std::exchange(_host->updateScheduled, true))
        return;
    platform::async([weakSelf = WeakObjCPtr<QVHostingView>(self)] {
        if (const auto strongSelf = weakSelf.get())
            [strongSelf.get() updateBody];
    });
}

- (void)updateBody {
    _host->updateScheduled = false;
    if (!_host->body)
        return;
    _host->view = ui::localized(_host->body(), localizedString);
    [self updateLayout];
}

- (void)updateLayout {
    if (!_host->body)
        return;
    _host->laidOutSize = {[self bounds].size.width, [self bounds].size.height};
    _host->layout = ui::layOut(_host->view, _host->laidOutSize, _host->layoutEnvironment);
    ViewReconciler reconciler(self, _host->environment);
    reconciler.update(_host->root, _host->view, _host->layout);
    _host->changes += reconciler.changes();
    [self chainButtons:reconciler.buttons()];
}

// The Tab key goes through the buttons in the order of the tree, then on to what follows this view.
- (void)chainButtons:(const std::vector<NSButton *> &)buttons {
    if (buttons == _host->buttons)
        return;
    NSView *following = _host->buttons.empty() ? [self nextKeyView] : [_host->buttons.back() nextKeyView];
    NSView *before = self;
    for (NSButton *button : buttons) {
        [before setNextKeyView:button];
        before = button;
    }
    [before setNextKeyView:following ? following : self];
    _host->buttons = buttons;
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    [self followSize];
}

// Some AppKits do not set the size through setFrameSize:.
- (void)setFrame:(NSRect)frame {
    [super setFrame:frame];
    [self followSize];
}

- (void)followSize {
    const NSSize size = [self bounds].size;
    if (_host && !(_host->laidOutSize == ui::Size{size.width, size.height}))
        [self updateLayout];
}

- (const ui::View &)shownView {
    return _host->view;
}

- (const ui::Layout &)shownLayout {
    return _host->layout;
}

- (NSUInteger)changeCount {
    return _host->changes;
}

@end
