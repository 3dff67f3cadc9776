#import "SHDocument.h"

#import "DocumentLayout.h"
#import "Fonts.h"
#import "SHAppDelegate.h"
#import "SHPopover.h"
#import "SHSlideshow.h"

#include "FlatTheme.h"

#include <fstream>
#include <utility>

using namespace samplehost;

@implementation SHDocument

- (instancetype)initWithText:(std::string)text
                        path:(NSString *)path
                       title:(NSString *)title
                 application:(SHAppDelegate *)application {
    self = [super init];
    if (self != nil) {
        _application = application;
        _path = [path copy];
        _text = std::move(text);
        [self buildWindow];
        [self installToolbar];
        if (_path != nil) {
            [_controller.get() setupToolbarURL:[NSURL fileURLWithPath:_path]];
        } else {
            [_window.get() setTitle:title];
        }
        [_editor setString:toNSString(_text)];
        [_editor setSelectedRange:NSMakeRange(0, 0)];
        _text = toUTF8([_editor string]);
        [self applySetting:@""];
        [[NSNotificationCenter defaultCenter] addObserver:self
                                                 selector:@selector(lookDidChange:)
                                                     name:flattheme::lookDidChangeNotification
                                                   object:nil];
        [[NSNotificationCenter defaultCenter] addObserver:self
                                                 selector:@selector(settingsDidChange:)
                                                     name:samplehost::settingsDidChange
                                                   object:nil];
    }
    return self;
}

- (void)dealloc {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [_editor setDelegate:nil];
    [_window.get() setDelegate:nil];
    [_path release];
    [super dealloc];
}

- (void)buildWindow {
    const NSUInteger place = [[_application documents] count];
    const NSRect frame = documentFrame(place);
    const NSUInteger style =
        NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;
    _window = own([[SHDocumentWindow alloc] initWithContentRect:[NSWindow contentRectForFrameRect:frame styleMask:style]
                                                      styleMask:style
                                                        backing:NSBackingStoreBuffered
                                                          defer:NO]);
    [_window.get() setReleasedWhenClosed:NO];
    [_window.get() setMinSize:NSMakeSize(860, 480)];
    [_window.get() setDelegate:self];
    const DocumentViews views = buildDocumentViews(NSMakeRect(0, 0, NSWidth(frame), NSHeight(frame)));
    _mainView = keep(views.root);
    _split = views.split;
    _editor = views.editor;
    _list = views.list;
    _preview = views.preview;
    _notes = views.notes;
    _status = views.status;
    [_editor setDelegate:static_cast<id>(self)];
    [_list setSelectHandler:[self](std::size_t slide) { [self goToSlide:slide]; }];
    [_list setOpenHandler:[self](std::size_t) { [[self window] makeFirstResponder:_editor]; }];
    [_list setMoveHandler:[self](std::size_t from, std::size_t to) {
        [self apply:moveSlide(_text, from, to) name:"Move Slide"];
    }];
    [_window.get() setContentView:views.root];
    _controller = keep(makeController());
    [_controller.get() setupToolbarInWindow:_window.get()];
    [_controller.get() setupDelegate:self];
    [_window.get() setInitialFirstResponder:_editor];
}

- (void)show {
    [_window.get() makeKeyAndOrderFront:nil];
    [_window.get() makeFirstResponder:_editor];
    layOutSplit(_split);
    [_list fit];
    [_editor fitToClip];
    [self goToSlide:0];
}

- (SHDocumentWindow *)window {
    return _window.get();
}

- (QVAppKitController *)controller {
    return _controller.get();
}

- (NSString *)path {
    return _path;
}

- (NSString *)title {
    return [_window.get() title];
}

- (SHSlideshow *)slideshow {
    return _slideshow.get();
}

- (bool)isEdited {
    return _history.mark() != _savedMark;
}

- (bool)isUntouched {
    return _path == nil && ![self isEdited] && _history.redoName().empty();
}

#pragma mark Settings

- (void)settingsDidChange:(NSNotification *)notification {
    [self applySetting:[[notification userInfo] objectForKey:@"key"]];
}

// The desktop may answer what it prefers long after the window is there.
- (void)lookDidChange:(NSNotification *)notification {
    (void)notification;
    [self applySetting:@"editor"];
}

- (void)applySetting:(NSString *)key {
    const Settings &settings = [[_application settings] settings];
    const bool all = [key length] == 0;
    if (all || [key isEqualToString:@"generalAppearance"]) {
        [_controller.get() forceUserInterfaceStyle:toNSString(settings.generalAppearance)];
    }
    if (all || [key hasPrefix:@"editor"] || [key isEqualToString:@"generalAppearance"]) {
        [_editor setTheme:editorThemeNamed(settings.editorTheme, usesDarkColors())
                     font:editorFont(toNSString(settings.editorFontName), settings.editorFontSize)];
    }
    if (all || [key hasPrefix:@"general"]) {
        [self refresh];
    }
}

#pragma mark Files

- (bool)writeTo:(NSString *)path {
    NSError *error = nil;
    NSData *data = [NSData dataWithBytes:_text.data() length:_text.size()];
    if (![data writeToFile:path options:NSDataWritingAtomic error:&error]) {
        showAlert(@"The talk could not be saved.", error != nil ? [error localizedDescription] : path);
        return false;
    }
    _savedMark = _history.mark();
    _history.breakCoalescing();
    [_window.get() setDocumentEdited:NO];
    [_application log].write(eventlog::note("saved", toUTF8(path)));
    return true;
}

- (bool)save {
    return _path == nil ? [self saveAs] : [self writeTo:_path];
}

- (bool)saveAs {
    NSSavePanel *panel = [NSSavePanel savePanel];
    [panel setRequiredFileType:@"md"];
    NSString *directory = _path == nil ? NSHomeDirectory() : [_path stringByDeletingLastPathComponent];
    NSString *name = _path == nil ? @"Talk.md" : [_path lastPathComponent];
    if ([panel runModalForDirectory:directory file:name] != NSOKButton) {
        return false;
    }
    NSString *chosen = [panel filename];
    if (![self writeTo:chosen]) {
        return false;
    }
    [_path release];
    _path = [chosen copy];
    [_controller.get() setupToolbarURL:[NSURL fileURLWithPath:_path]];
    [self refresh];
    return true;
}

- (void)saveDocument:(id)sender {
    (void)sender;
    [self save];
}

- (void)saveDocumentAs:(id)sender {
    (void)sender;
    [self saveAs];
}

- (void)closeDocument:(id)sender {
    [_window.get() performClose:sender];
}

#pragma mark Closing

- (bool)mayClose {
    if (![self isEdited]) {
        return true;
    }
    [_window.get() makeKeyAndOrderFront:nil];
    const auto alert = own([[NSAlert alloc] init]);
    [alert.get() setMessageText:[NSString stringWithFormat:@"Save the changes to \u201c%@\u201d?", [self title]]];
    [alert.get() setInformativeText:@"Your changes will be lost if you do not save them."];
    [alert.get() addButtonWithTitle:@"Save"];
    [alert.get() addButtonWithTitle:@"Cancel"];
    [alert.get() addButtonWithTitle:@"Don\u2019t Save"];
    switch ([alert.get() runModal]) {
    case NSAlertFirstButtonReturn:
        return [self save];
    case NSAlertThirdButtonReturn:
        return true;
    default:
        return false;
    }
}

- (void)close {
    [_window.get() close];
}

- (BOOL)windowShouldClose:(id)sender {
    (void)sender;
    return [self mayClose] ? YES : NO;
}

- (void)windowWillClose:(NSNotification *)notification {
    (void)notification;
    if (_closed) {
        return;
    }
    _closed = true;
    [self closePopover];
    [_slideshow.get() end];
    // The callbacks hold this document: without this it would never go.
    [_controller.get() clearWindowToolbar];
    [[_window.get() toolbar] setDelegate:nil];
    [_window.get() setDelegate:nil];
    [_application documentDidClose:self];
}

- (void)windowDidResize:(NSNotification *)notification {
    (void)notification;
    [_list fit];
    [_grid fit];
}

@end
