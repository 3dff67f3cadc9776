#import "PresentationWindows.h"

@implementation QVPresentedWindow

- (NSScreen *)screen {
    return _hidesScreen ? nil : [super screen];
}

- (id)contentView {
    return _hidesContent ? nil : [super contentView];
}

- (void)makeKeyAndOrderFront:(id)sender {
    ++_broughtToFront;
    [super makeKeyAndOrderFront:sender];
}

- (void)sendEvent:(NSEvent *)event {
    if ([event type] == NSLeftMouseDown || [event type] == NSLeftMouseUp) {
        [_events addObject:event];
    }
    [super sendEvent:event];
}

- (void)dealloc {
    [_events release];
    [super dealloc];
}

@end

@interface QVPlainColourView : NSView {
@public
    unsigned _colour;
}
@end

@implementation QVPlainColourView

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (void)drawRect:(NSRect)rect {
    [[NSColor colorWithDeviceRed:((_colour >> 16) & 0xff) / 255.0
                           green:((_colour >> 8) & 0xff) / 255.0
                            blue:(_colour & 0xff) / 255.0
                           alpha:1] set];
    NSRectFill([self bounds]);
}

@end

namespace test {

namespace {

QVPresentedWindow *makeWindow(NSRect rect, unsigned colour) {
    QVPresentedWindow *window =
        [[QVPresentedWindow alloc] initWithContentRect:rect
                                             styleMask:NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask
                                               backing:NSBackingStoreBuffered
                                                 defer:NO];
    [window setReleasedWhenClosed:NO];
    window->_events = [[NSMutableArray alloc] init];
    QVPlainColourView *view = [[[QVPlainColourView alloc] initWithFrame:rect] autorelease];
    view->_colour = colour;
    [window setContentView:view];
    return window;
}

} // namespace

void PresentationWindows::SetUp() {
    platform::prepareAppKit();
    ASSERT_TRUE(arrange(usualDisplays(2)));
    provider().currentDisplayConfiguration() = {};
    slides_ = makeWindow(NSMakeRect(500, 250, 300, 200), slidesColour);
    document_ = makeWindow(NSMakeRect(100, 300, 600, 400), documentColour);
    [slides_ orderFront:nil];
    [document_ makeKeyAndOrderFront:nil];
    controller_ = [[QVAppKitController alloc] init];
    [controller_ setupToolbarInWindow:document_];
    runUntilQuiet(document_);
    document_->_broughtToFront = 0;
    [document_->_events removeAllObjects];
}

void PresentationWindows::TearDown() {
    [controller_ endFullscreenSetup];
    [slides_ close];
    [document_ close];
    [controller_ release];
    [slides_ release];
    [document_ release];
}

NSScreen *PresentationWindows::screen(NSUInteger index) {
    return [[NSScreen screens] objectAtIndex:index];
}

bool PresentationWindows::shows(unsigned colour, NSUInteger screenIndex) {
    return runUntil([&] {
        const NSRect frame = NSInsetRect([screen(screenIndex) frame], 2, 2);
        for (const double x : {NSMinX(frame), NSMidX(frame), NSMaxX(frame)}) {
            for (const double y : {NSMinY(frame), NSMidY(frame), NSMaxY(frame)}) {
                if (screenPixel(NSMakePoint(x, y)) != colour) {
                    return false;
                }
            }
        }
        return true;
    });
}

void PresentationWindows::store(const std::string &presenter, const std::string &slideshow) {
    provider().currentDisplayConfiguration().names = {.slideshow = slideshow, .presenter = presenter};
    provider().storeScreenSelection();
}

appkitglue::RoutingSettingsProvider &PresentationWindows::provider() {
    return *appkitglue::RoutingSettingsProvider::shared();
}

} // namespace test
