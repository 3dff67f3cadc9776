#import "Tutorials.h"

#import "QVAppKitController.h"

using namespace appkitglue;

@interface NotificationRecorder : NSObject {
@public
    std::vector<std::string> *_log;
}
@end

@implementation NotificationRecorder

- (void)sampleRequested:(NSNotification *)notification {
    _log->push_back([notification object] == nil && [notification userInfo] == nil ? "sample" : "sample with more");
}

- (void)metricPosted:(NSNotification *)notification {
    NSDictionary *info = [notification userInfo];
    std::string text = toUTF8([info objectForKey:@"metric"]) + ": " + toUTF8([info objectForKey:@"payload"]);
    if ([notification object] != nil || [info count] != 2) {
        text += " with more";
    }
    _log->push_back(text);
}

@end

namespace test {

TutorialReports::TutorialReports() : recorder_(adoptNS([[NotificationRecorder alloc] init])) {
    recorder_.get()->_log = &log;
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center addObserver:recorder_.get()
               selector:@selector(sampleRequested:)
                   name:@"OpenSampleDocumentNotification"
                 object:nil];
    [center addObserver:recorder_.get()
               selector:@selector(metricPosted:)
                   name:@"MetricsFromAppKitNotification"
                 object:nil];
}

TutorialReports::~TutorialReports() {
    [[NSNotificationCenter defaultCenter] removeObserver:recorder_.get()];
}

Tutorial::Tutorial() {
    platform::prepareAppKit();
    @autoreleasepool { // loading a nib leaves references behind
        windowController =
            adoptNS([[StartupTutorialWindowController alloc] initWithWindowNibName:@"StartupTutorialMacOS"]);
        [windowController.get() showWindow:nil];
        window = [windowController.get() window];
        controller = static_cast<StartupTutorialViewController *>([window contentViewController]);
    }
}

Tutorial::~Tutorial() {
    if ([window isVisible]) {
        [window close];
    }
}

namespace {

RetainPtr<NSView> viewOf(Class aClass, NSRect frame) {
    return adoptNS(static_cast<NSView *>([[aClass alloc] initWithFrame:frame]));
}

void connect(StartupTutorialViewController *controller, NSView *parent, NSString *outlet, Class aClass) {
    const auto connected = viewOf(aClass, NSMakeRect(10, 10, 200, 100));
    [parent addSubview:connected.get()];
    [controller setValue:connected.get() forKey:outlet];
}

} // namespace

QuietTutorial::QuietTutorial() {
    platform::prepareAppKit();
    window = adoptNS([[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 400, 300)
                                                 styleMask:NSTitledWindowMask | NSClosableWindowMask
                                                   backing:NSBackingStoreBuffered
                                                     defer:NO]);
    [window.get() setReleasedWhenClosed:NO];
    controller = adoptNS([[StartupTutorialViewController alloc] initWithNibName:nil bundle:nil]);
    StartupTutorialViewController *c = controller.get();
    NSView *content = [window.get() contentView];
    [c setView:content];
    for (NSString *outlet in @[ @"containerView", @"bluebar", @"headlinesContainer" ]) {
        connect(c, content, outlet, [NSView class]);
    }
    for (NSString *outlet in
         @[ @"contentBoxEmpty", @"contentBoxDrawing", @"contentBoxTm2", @"contentBoxTm3", @"contentBoxTm4" ]) {
        connect(c, nil, outlet, [NSView class]);
    }
    connect(c, content, @"descriptionField", [NSTextField class]);
    connect(c, content, @"pagerStackView", NSClassFromString(@"NSStackView"));
    for (NSString *outlet in @[
             @"nextActionButton", @"buttonSampleDocument", @"buttonFinish", @"pagerButton1", @"pagerButton2",
             @"pagerButton3", @"pagerButton4"
         ]) {
        connect(c, content, outlet, [NSButton class]);
    }
    NSInteger tag = 0;
    for (NSButton *button in @[ [c pagerButton1], [c pagerButton2], [c pagerButton3], [c pagerButton4] ]) {
        [button setTag:++tag];
    }
    [[c containerView] addSubview:[c contentBoxEmpty]];
    [c setCurrentStep:Steps::tm1];
    [c setCurrentView:[c contentBoxEmpty]];
    [window.get() setDelegate:c];
    [window.get() orderFront:nil];
}

QuietTutorial::~QuietTutorial() {
    if ([window.get() isVisible]) {
        [window.get() close];
    }
    [window.get() setDelegate:nil];
}

} // namespace test
