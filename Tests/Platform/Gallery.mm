#import "Gallery.h"

@interface Gallery (Building)
- (void)add:(NSView *)view named:(NSString *)name at:(NSRect)frame;
- (void)addButtons;
- (void)addFields;
- (void)addSliders;
- (void)addTables;
- (void)addTabs;
- (void)addToolbar;
@end

@implementation Gallery

- (id)init {
    if ((self = [super init]) == nil) {
        return nil;
    }
    [Gallery installMainMenu];
    _controls = [[NSMutableDictionary alloc] init];
    _window = [[NSWindow alloc] initWithContentRect:NSMakeRect(60, 60, 820, 470)
                                          styleMask:NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask
                                            backing:NSBackingStoreBuffered
                                              defer:NO];
    [_window setReleasedWhenClosed:NO];
    [_window setTitle:@"Gallery"];
    [self addToolbar];
    [self addButtons];
    [self addFields];
    [self addSliders];
    [self addTables];
    [self addTabs];
    [_window makeKeyAndOrderFront:nil];
    return self;
}

- (void)dealloc {
    [[_window toolbar] setDelegate:nil];
    [[self control:@"table"] setDataSource:nil];
    [_window close];
    [_window release];
    [_controls release];
    [super dealloc];
}

- (NSWindow *)window {
    return _window;
}

- (id)control:(NSString *)name {
    return [_controls objectForKey:name];
}

- (NSArray *)names {
    return [[_controls allKeys] sortedArrayUsingSelector:@selector(compare:)];
}

static NSView *findToolbarButton(NSView *view, NSString *title) {
    if ([view isKindOfClass:[NSButton class]] && [[(NSButton *)view title] isEqualToString:title]) {
        return view;
    }
    for (NSView *subview in [view subviews]) {
        if (NSView *found = findToolbarButton(subview, title)) {
            return found;
        }
    }
    return nil;
}

- (NSView *)toolbarButton:(NSString *)identifier {
    for (NSView *view in [[[_window contentView] superview] subviews]) {
        if (view != [_window contentView]) {
            if (NSView *found = findToolbarButton(view, identifier)) {
                return found;
            }
        }
    }
    return nil;
}

- (NSInteger)numberOfRowsInTableView:(NSTableView *)tableView {
    return 30;
}

- (id)tableView:(NSTableView *)tableView objectValueForTableColumn:(NSTableColumn *)column row:(NSInteger)row {
    return [NSString stringWithFormat:@"%@ %d", [column identifier], static_cast<int>(row)];
}

- (NSArray *)toolbarAllowedItemIdentifiers:(NSToolbar *)toolbar {
    return @[ @"General", @"Fonts", @"Export", NSToolbarFlexibleSpaceItemIdentifier, @"Search" ];
}

- (NSArray *)toolbarDefaultItemIdentifiers:(NSToolbar *)toolbar {
    return [self toolbarAllowedItemIdentifiers:toolbar];
}

- (NSArray *)toolbarSelectableItemIdentifiers:(NSToolbar *)toolbar {
    return @[ @"General", @"Fonts" ];
}

- (NSToolbarItem *)toolbar:(NSToolbar *)toolbar
        itemForItemIdentifier:(NSString *)identifier
    willBeInsertedIntoToolbar:(BOOL)inserted {
    NSToolbarItem *item = [[[NSToolbarItem alloc] initWithItemIdentifier:identifier] autorelease];
    [item setLabel:identifier];
    if ([identifier isEqualToString:@"Search"]) {
        NSSearchField *search = [[[NSSearchField alloc] initWithFrame:NSMakeRect(0, 0, 150, 24)] autorelease];
        [[search cell] setPlaceholderString:@"Find"];
        [item setView:search];
        [item setMinSize:NSMakeSize(150, 24)];
        [item setMaxSize:NSMakeSize(150, 24)];
        if (inserted) {
            [_controls setObject:search forKey:@"search"];
        }
        return item;
    }
    [item setImage:[NSImage imageNamed:@"NSFontPanel"]];
    [item setTarget:self];
    [item setAction:@selector(chooseItem:)];
    return item;
}

- (void)chooseItem:(id)sender {
}

+ (NSMenu *)installMainMenu {
    static NSMenu *menu;
    if (menu != nil) {
        return menu;
    }
    menu = [[NSMenu alloc] initWithTitle:@"Gallery"];
    for (NSString *title in @[ @"File", @"Edit", @"View" ]) {
        id<NSMenuItem> item = [menu addItemWithTitle:title action:NULL keyEquivalent:@""];
        NSMenu *submenu = [[[NSMenu alloc] initWithTitle:title] autorelease];
        [submenu addItemWithTitle:[title stringByAppendingString:@" One"]
                           action:@selector(chooseOne:)
                    keyEquivalent:@"1"];
        [submenu addItemWithTitle:[title stringByAppendingString:@" Two"]
                           action:@selector(chooseTwo:)
                    keyEquivalent:@""];
        [submenu addItem:[NSMenuItem separatorItem]];
        [submenu addItemWithTitle:@"Unavailable" action:@selector(neverImplemented:) keyEquivalent:@"u"];
        id<NSMenuItem> more = [submenu addItemWithTitle:@"More" action:NULL keyEquivalent:@""];
        NSMenu *moreMenu = [[[NSMenu alloc] initWithTitle:@"More"] autorelease];
        [[moreMenu addItemWithTitle:@"Checked" action:@selector(chooseOne:) keyEquivalent:@""] setState:NSOnState];
        [submenu setSubmenu:moreMenu forItem:more];
        [menu setSubmenu:submenu forItem:item];
    }
    [NSApp setMainMenu:menu];
    return menu;
}

@end

namespace {

NSButton *button(NSString *title, NSButtonType type, NSBezelStyle style) {
    NSButton *made = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
    [made setTitle:title];
    [made setButtonType:type];
    [made setBezelStyle:style];
    return made;
}

NSScrollView *scrolled(NSView *document, NSSize size) {
    NSScrollView *made = [[[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, size.width, size.height)] autorelease];
    [made setHasVerticalScroller:YES];
    [made setBorderType:NSBezelBorder];
    [made setDocumentView:document];
    return made;
}

} // namespace

@implementation Gallery (Building)

- (void)add:(NSView *)view named:(NSString *)name at:(NSRect)frame {
    [view setFrame:frame];
    [[_window contentView] addSubview:view];
    [_controls setObject:view forKey:name];
}

- (void)addToolbar {
    NSToolbar *toolbar =
        [[[NSToolbar alloc] initWithIdentifier:[NSString stringWithFormat:@"Gallery %p", self]] autorelease];
    [toolbar setDelegate:self];
    [toolbar setDisplayMode:NSToolbarDisplayModeIconAndLabel];
    [_window setToolbar:toolbar];
    [toolbar setSelectedItemIdentifier:@"Fonts"];
    [_window setContentSize:NSMakeSize(820, 470)];
}

- (void)addButtons {
    NSButton *cancel = button(@"Cancel", NSMomentaryPushInButton, NSRoundedBezelStyle);
    [cancel setKeyEquivalent:@"\033"];
    [self add:cancel named:@"cancel" at:NSMakeRect(20, 425, 90, 28)];
    NSButton *ok = button(@"OK", NSMomentaryPushInButton, NSRoundedBezelStyle);
    [ok setKeyEquivalent:@"\r"];
    [self add:ok named:@"default" at:NSMakeRect(116, 425, 90, 28)];
    NSButton *off = button(@"Disabled", NSMomentaryPushInButton, NSRoundedBezelStyle);
    [off setEnabled:NO];
    [self add:off named:@"disabledButton" at:NSMakeRect(212, 425, 90, 28)];
    NSButton *toggle = button(@"Toggle", NSPushOnPushOffButton, NSRegularSquareBezelStyle);
    [toggle setState:NSOnState];
    [self add:toggle named:@"toggle" at:NSMakeRect(308, 425, 90, 28)];
    NSButton *round = button(@"", NSMomentaryPushInButton, NSHelpButtonBezelStyle);
    [self add:round named:@"help" at:NSMakeRect(404, 425, 28, 28)];

    NSButton *checked = button(@"Checked", NSSwitchButton, NSRoundedBezelStyle);
    [checked setState:NSOnState];
    [self add:checked named:@"checkBox" at:NSMakeRect(20, 390, 100, 22)];
    [self add:button(@"Unchecked", NSSwitchButton, NSRoundedBezelStyle)
        named:@"uncheckedBox"
           at:NSMakeRect(120, 390, 100, 22)];
    NSButton *offBox = button(@"Disabled", NSSwitchButton, NSRoundedBezelStyle);
    [offBox setEnabled:NO];
    [self add:offBox named:@"disabledBox" at:NSMakeRect(225, 390, 90, 22)];
    NSButton *radio = button(@"Radio", NSRadioButton, NSRoundedBezelStyle);
    [radio setState:NSOnState];
    [self add:radio named:@"radio" at:NSMakeRect(315, 390, 60, 22)];
    [self add:button(@"Off", NSRadioButton, NSRoundedBezelStyle) named:@"radioOff" at:NSMakeRect(380, 390, 60, 22)];
}

- (void)addFields {
    NSPopUpButton *popUp = [[[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO] autorelease];
    [popUp addItemsWithTitles:@[ @"Side by side", @"Stacked", @"Mirrored" ]];
    [self add:popUp named:@"popUp" at:NSMakeRect(20, 355, 140, 26)];
    NSPopUpButton *pullDown = [[[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:YES] autorelease];
    [pullDown addItemsWithTitles:@[ @"Actions", @"First", @"Second" ]];
    [self add:pullDown named:@"pullDown" at:NSMakeRect(166, 355, 110, 26)];
    NSComboBox *combo = [[[NSComboBox alloc] initWithFrame:NSZeroRect] autorelease];
    [combo addItemWithObjectValue:@"combo"];
    [combo setStringValue:@"combo"];
    [self add:combo named:@"combo" at:NSMakeRect(282, 355, 150, 26)];

    NSTextField *label = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
    [label setStringValue:@"Name:"];
    [label setBezeled:NO];
    [label setEditable:NO];
    [label setDrawsBackground:NO];
    [self add:label named:@"label" at:NSMakeRect(20, 322, 46, 20)];
    NSTextField *field = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
    [field setStringValue:@"Hello field"];
    [self add:field named:@"field" at:NSMakeRect(70, 320, 115, 24)];
    NSTextField *placeholder = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
    [[placeholder cell] setPlaceholderString:@"placeholder"];
    [self add:placeholder named:@"placeholder" at:NSMakeRect(193, 320, 115, 24)];
    NSTextField *disabled = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
    [disabled setStringValue:@"disabled"];
    [disabled setEnabled:NO];
    [self add:disabled named:@"disabledField" at:NSMakeRect(316, 320, 115, 24)];
}

- (void)addSliders {
    NSSlider *slider = [[[NSSlider alloc] initWithFrame:NSMakeRect(0, 0, 130, 20)] autorelease];
    [slider setDoubleValue:0.4];
    [self add:slider named:@"slider" at:NSMakeRect(20, 285, 130, 20)];
    NSProgressIndicator *progress = [[[NSProgressIndicator alloc] initWithFrame:NSZeroRect] autorelease];
    [progress setIndeterminate:NO];
    [progress setDoubleValue:45];
    [self add:progress named:@"progress" at:NSMakeRect(160, 285, 110, 18)];
    NSSegmentedControl *segments = [[[NSSegmentedControl alloc] initWithFrame:NSMakeRect(0, 0, 110, 24)] autorelease];
    [segments setSegmentCount:2];
    [segments setLabel:@"One" forSegment:0];
    [segments setLabel:@"Two" forSegment:1];
    [segments setWidth:50 forSegment:0];
    [segments setWidth:50 forSegment:1];
    [segments setSelectedSegment:1];
    [self add:segments named:@"segments" at:NSMakeRect(285, 282, 104, 24)];
    [self add:[[[NSStepper alloc] initWithFrame:NSZeroRect] autorelease]
        named:@"stepper"
           at:NSMakeRect(410, 281, 18, 26)];
}

- (void)addTables {
    NSTableView *table = [[[NSTableView alloc] initWithFrame:NSMakeRect(0, 0, 330, 200)] autorelease];
    for (NSString *name in @[ @"Name", @"Value" ]) {
        NSTableColumn *column = [[[NSTableColumn alloc] initWithIdentifier:name] autorelease];
        [[column headerCell] setStringValue:name];
        [column setWidth:160];
        [table addTableColumn:column];
    }
    [table setDataSource:self];
    [table selectRowIndexes:[NSIndexSet indexSetWithIndex:2] byExtendingSelection:NO];
    [_controls setObject:table forKey:@"table"];
    [self add:scrolled(table, NSMakeSize(350, 200)) named:@"tableScroll" at:NSMakeRect(450, 253, 350, 200)];

    NSTextView *text = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 330, 180)] autorelease];
    NSMutableString *lines = [NSMutableString string];
    for (int i = 0; i < 30; i++) {
        [lines appendFormat:@"Line %d of the text view with some words\n", i];
    }
    [text setString:lines];
    [text setSelectedRange:NSMakeRange(10, 12)];
    [_controls setObject:text forKey:@"text"];
    [self add:scrolled(text, NSMakeSize(350, 215)) named:@"textScroll" at:NSMakeRect(450, 20, 350, 215)];
}

- (void)addTabs {
    NSTabView *tabs = [[[NSTabView alloc] initWithFrame:NSMakeRect(0, 0, 412, 240)] autorelease];
    for (NSString *name in @[ @"General", @"Fonts", @"Advanced" ]) {
        NSTabViewItem *item = [[[NSTabViewItem alloc] initWithIdentifier:name] autorelease];
        [item setLabel:name];
        [item setView:[[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 400, 200)] autorelease]];
        [tabs addTabViewItem:item];
    }
    [self add:tabs named:@"tabs" at:NSMakeRect(20, 20, 412, 240)];
    NSBox *box = [[[NSBox alloc] initWithFrame:NSMakeRect(16, 20, 200, 100)] autorelease];
    [box setTitle:@"Options"];
    [[[tabs tabViewItemAtIndex:0] view] addSubview:box];
    NSButton *inside = button(@"In a box", NSSwitchButton, NSRoundedBezelStyle);
    [inside setFrame:NSMakeRect(10, 20, 120, 22)];
    [box addSubview:inside];
    [_controls setObject:box forKey:@"box"];
    [_controls setObject:inside forKey:@"boxed"];
}

@end
