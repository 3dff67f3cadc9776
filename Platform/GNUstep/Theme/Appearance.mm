// The look in use and how it changes: by the host, by the windows' appearance, by the desktop.
#import "DesktopLook.h"
#import "ElementHooks.h"
#import "FlatTheme.h"
#import "Glyphs.h"
#import "NSAppearance+Windows.h"
#import "Palette.h"
#import "Platform.h"
#import "QVFlatTheme.h"

namespace flattheme {

NSString *const lookDidChangeNotification = @"FlatThemeLookDidChangeNotification";

namespace {

struct State {
    Look look = Look::automatic;
    bool dark = false;
    bool installed = false;
};

State &state() {
    static State current;
    return current;
}

// Colours that a window was given by value at its creation are given anew; a window with a colour of its own keeps it.
void recolourWindows() {
    for (NSWindow *window in [NSApp windows]) {
        [[[window contentView] superview] setNeedsDisplay:YES];
        [[window contentView] setNeedsDisplay:YES];
    }
}

void activate(bool dark) {
    state().dark = dark;
    setDarkPalette(dark);
    if (!state().installed) {
        return;
    }
    QVFlatTheme *theme = [[[QVFlatTheme alloc] init] autorelease];
    [GSTheme setTheme:theme];
    installGlyphs();
    recolourWindows();
    [[NSNotificationCenter defaultCenter] postNotificationName:lookDidChangeNotification object:nil];
}

void askDesktop() {
    askDesktopWhetherDark([](bool dark) {
        if (state().look == Look::automatic && dark != state().dark) {
            activate(dark);
        }
    });
}

} // namespace

} // namespace flattheme

using namespace flattheme;

@interface QVFlatThemeObserver : NSObject
- (void)applicationBecameActive:(NSNotification *)notification;
- (void)windowAppearanceChanged:(NSNotification *)notification;
@end

@implementation QVFlatThemeObserver

- (void)applicationBecameActive:(NSNotification *)notification {
    if (currentLook() == Look::automatic) {
        askDesktop();
    }
}

- (void)windowAppearanceChanged:(NSNotification *)notification {
    NSWindow *window = [notification object];
    NSAppearance *appearance = [window appearance] != nil ? [window appearance] : [NSApp appearance];
    if (appearance == nil) {
        setLook(Look::automatic);
        return;
    }
    setLook([[appearance name] rangeOfString:@"Dark"].location != NSNotFound ? Look::dark : Look::light);
}

@end

void flattheme::registerDefaults() {
    NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
    [defaults registerDefaults:@{
        @"NSMenuInterfaceStyle" : @"NSWindows95InterfaceStyle",
        @"NSScrollViewInterfaceStyle" : @"NSMacintoshInterfaceStyle",
        @"GSSuppressAppIcon" : @"YES",
        @"GSFirstCommandKey" : @"Control_L",
        @"GSSecondCommandKey" : @"Control_R",
        @"GSFirstControlKey" : @"Super_L",
        @"GSFirstAlternateKey" : @"Alt_L",
    }];
}

void flattheme::install() {
    if (state().installed) {
        return;
    }
    state().installed = true;
    // Not yet: what it touches starts helper processes, for which it is too early while the application launches.
    platform::async([] { platform::prepareAppKit(); });
    installFieldHooks();
    installButtonHooks();
    installSegmentHooks();
    installTableHooks();
    installToolbarHooks();
    installPopUpHooks();
    installScrollerHooks();
    installMenuHooks();
    installWindowHooks();
    activate(state().dark);
    // Any change of the defaults puts the theme back that they name. Registered only now: a name without a theme of
    // that name loaded is looked up on disk.
    [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"GSTheme" : [QVFlatTheme flatThemeName]}];

    static QVFlatThemeObserver *observer = [[QVFlatThemeObserver alloc] init];
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center addObserver:observer
               selector:@selector(applicationBecameActive:)
                   name:NSApplicationDidBecomeActiveNotification
                 object:nil];
    [center addObserver:observer
               selector:@selector(windowAppearanceChanged:)
                   name:QVWindowAppearanceDidChangeNotification
                 object:nil];
    if (state().look == Look::automatic) {
        askDesktop();
    }
}

void flattheme::setLook(Look look) {
    state().look = look;
    if (look == Look::automatic) {
        askDesktop();
        return;
    }
    const bool dark = look == Look::dark;
    if (dark != state().dark) {
        activate(dark);
    }
}

flattheme::Look flattheme::currentLook() {
    return state().look;
}

bool flattheme::isDark() {
    return state().dark;
}
