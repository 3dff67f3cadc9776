#import "PreferencesWindowController.h"

#include "NeverDestroyed.h"
#include "Outlets.h"

#include <cmath>

using namespace appkitglue;

namespace {

constexpr std::string_view unit = "PreferencesWindowController";

enum Tab : NSUInteger { general, editor, presenter, about };

RetainPtr<PreferencesWindowController> &currentController() {
    static NeverDestroyed<RetainPtr<PreferencesWindowController>> controller;
    return controller.get();
}

// The tabs' identifiers, which are those of the toolbar's items too, in index order.
NSArray<NSString *> *tabIdentifiers() {
    return @[ @"general", @"editor", @"presenter", @"about" ];
}

} // namespace

@implementation PreferencesWindowController

@synthesize provider = _provider;
@synthesize store = _store;

QV_STRONG_OUTLET(NSView, generalView, setGeneralView)
QV_STRONG_OUTLET(NSView, editorView, setEditorView)
QV_STRONG_OUTLET(NSView, presenterView, setPresenterView)
QV_STRONG_OUTLET(NSView, aboutView, setAboutView)
QV_WEAK_OUTLET(NSTabView, tabView, setTabView)
QV_STRONG_OUTLET(GeneralSettingsViewController, generalViewController, setGeneralViewController)
QV_STRONG_OUTLET(EditorSettingsViewController, editorViewController, setEditorViewController)
QV_STRONG_OUTLET(PresenterSettingsViewController, presenterViewController, setPresenterViewController)
QV_STRONG_OUTLET(AboutSettingsViewController, aboutViewController, setAboutViewController)

+ (PreferencesWindowController *)current {
    return currentController().get();
}

+ (void)openPreferences {
    platform::prepareAppKit();
    if (const auto previous = std::exchange(currentController(), nullptr)) {
        [previous.get() close];
    }
    currentController() = adoptNS([[PreferencesWindowController alloc] initWithWindowNibName:@"Preferences"]);
    [currentController().get() setProvider:RoutingSettingsProvider::shared()];
    [currentController().get() showWindow:nil];
}

+ (void)openPreferencesOnAbout {
    [self openPreferences];
    // A later turn, so that the window has finished loading.
    platform::async([] { [currentController().get() selectAboutTab]; });
}

- (instancetype)initWithWindow:(NSWindow *)window {
    return [super initWithWindow:window];
}

- (instancetype)initWithCoder:(NSCoder *)coder {
    return [super initWithCoder:coder];
}

- (void)windowDidLoad {
    [super windowDidLoad];
    const auto store = std::make_shared<SettingsStore>(requiredValue(_provider, unit, "provider"));
    [requiredOutlet(_generalViewController.get(), unit, "generalViewController")
        setStore:std::shared_ptr<GeneralStore>(store, &store->general)];
    [self addTab:general controller:_generalViewController.get()];
    [requiredOutlet(_editorViewController.get(), unit, "editorViewController")
        setStore:std::shared_ptr<EditorStore>(store, &store->editor)];
    [self addTab:editor controller:_editorViewController.get()];
    [requiredOutlet(_presenterViewController.get(), unit, "presenterViewController")
        setStore:std::shared_ptr<PresenterStore>(store, &store->presenter)];
    [self addTab:presenter controller:_presenterViewController.get()];
    [requiredOutlet(_aboutViewController.get(), unit, "aboutViewController")
        setStore:std::shared_ptr<AboutStore>(store, &store->about)];
    [self addTab:about controller:_aboutViewController.get()];
    _store = store;
    [self selectTab:general];
    [[[self window] toolbar] setSelectedItemIdentifier:@"general"];
    [[self window] center];
}

- (void)addTab:(Tab)tab controller:(PreferencesBaseViewController *)controller {
    NSTabView *tabView = requiredOutlet([self tabView], unit, "tabView");
    const auto item = adoptNS([[NSTabViewItem alloc] initWithIdentifier:[tabIdentifiers() objectAtIndex:tab]]);
    NSView *view = [controller view];
    // The tab view stretches its tabs: the height that the interface file gave them is remembered.
    _naturalHeights[tab] = NSHeight([view frame]);
    [item.get() setView:view];
    [item.get() setInitialFirstResponder:[view nextKeyView]];
    [tabView addTabViewItem:item.get()];
}

- (void)selectTab:(Tab)tab {
    [requiredOutlet([self tabView], unit, "tabView") selectTabViewItemAtIndex:static_cast<NSInteger>(tab)];
    [self fitWindowAnimated:NO];
}

- (void)didSelectGeneralTabWithSender:(id)sender {
    [self selectTab:general];
}

- (void)didSelectEditorTabWithSender:(id)sender {
    [self selectTab:editor];
}

- (void)didSelectSlideshowTabWithSender:(id)sender {
    [self selectTab:presenter];
}

- (void)didSelectAboutTabWithSender:(id)sender {
    [self selectTab:about];
}

- (void)selectAboutTab {
    [self selectTab:about];
    NSToolbar *toolbar = [[self window] toolbar];
    [toolbar setSelectedItemIdentifier:[static_cast<NSToolbarItem *>([[toolbar items] lastObject]) itemIdentifier]];
}

- (void)fitWindowAnimated:(BOOL)animated {
    const std::array<PreferencesBaseViewController *, 4> controllers{
        _generalViewController.get(), _editorViewController.get(), _presenterViewController.get(),
        _aboutViewController.get()};
    NSTabView *tabView = [self tabView];
    const auto index = static_cast<std::size_t>([tabView indexOfTabViewItem:[tabView selectedTabViewItem]]);
    if (index >= controllers.size()) {
        return;
    }
    NSWindow *window = [self window];
    NSView *content = [window contentView];
    const CGFloat height = [controllers[index] contentHeightFor:_naturalHeights[index]];
    const CGFloat missing = height - NSHeight([content bounds]);
    // In the window's own units, which are others where the user interface is scaled.
    const CGFloat difference =
        std::copysign([content convertSize:NSMakeSize(0, std::abs(missing)) toView:nil].height, missing);
    NSRect frame = [window frame];
    frame.origin.y -= difference;
    frame.size.height += difference;
    // Through the animator at once, too: an animation of the tab that was left must not have the last word.
    [NSAnimationContext beginGrouping];
    if (!animated) {
        [[NSAnimationContext currentContext] setDuration:0];
    }
    [[window animator] setFrame:frame display:[window isVisible]];
    [NSAnimationContext endGrouping];
}

- (void)changeFont:(id)sender {
    EditorSettingsViewController *controller =
        requiredOutlet(_editorViewController.get(), unit, "editorViewController");
    platform::async([controller = retainPtr(controller)] { [controller.get() applySelectedFont]; });
}

- (void)refreshEditorFont {
    if (_store) {
        [requiredOutlet(_editorViewController.get(), unit, "editorViewController")
            displayFont:_store->editor.font().get()];
    }
}

// The items are those of the interface file; some AppKits ask their toolbar's delegate for the lists all the same.
- (NSToolbarItem *)toolbar:(NSToolbar *)toolbar
        itemForItemIdentifier:(NSString *)identifier
    willBeInsertedIntoToolbar:(BOOL)flag {
    return nil;
}

- (NSArray *)toolbarDefaultItemIdentifiers:(NSToolbar *)toolbar {
    return tabIdentifiers();
}

- (NSArray *)toolbarAllowedItemIdentifiers:(NSToolbar *)toolbar {
    return tabIdentifiers();
}

- (NSArray *)toolbarSelectableItemIdentifiers:(NSToolbar *)toolbar {
    return tabIdentifiers();
}

@end
