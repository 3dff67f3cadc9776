#import "DocumentLayout.h"

#import "Fonts.h"

#include "FlatTheme.h"

#include <algorithm>

namespace samplehost {

namespace {

constexpr double statusHeight = 26;
constexpr double listWidth = 210;
constexpr double notesHeight = 190;

NSTextView *notesView(NSScrollView *scroll) {
    const NSSize size = [scroll contentSize];
    NSTextView *notes = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, size.width, size.height)] autorelease];
    [notes setMinSize:NSMakeSize(0, size.height)];
    [notes setMaxSize:NSMakeSize(1e7, 1e7)];
    [notes setVerticallyResizable:YES];
    [notes setHorizontallyResizable:NO];
    [notes setAutoresizingMask:NSViewWidthSizable];
    [[notes textContainer] setWidthTracksTextView:YES];
    [notes setTextContainerInset:NSMakeSize(10, 8)];
    [notes setEditable:NO];
    [notes setSelectable:YES];
    [notes setRichText:NO];
    [notes setFont:[NSFont systemFontOfSize:13]];
    return notes;
}

/// The preview with the notes below it.
NSView *buildPreviewColumn(NSRect frame, DocumentViews &views) {
    NSView *column = [[[NSView alloc] initWithFrame:frame] autorelease];
    const double width = NSWidth(frame);
    const auto preview =
        own([[SHSlideView alloc] initWithFrame:NSMakeRect(0, notesHeight, width, NSHeight(frame) - notesHeight)]);
    [preview.get() setFramed:true];
    [preview.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [column addSubview:preview.get()];
    views.preview = preview.get();

    NSTextField *heading =
        labelWith(@"Notes", NSMakeRect(12, notesHeight - 26, width - 24, 20), [NSFont boldSystemFontOfSize:12]);
    [heading setAutoresizingMask:NSViewWidthSizable | NSViewMaxYMargin];
    [column addSubview:heading];

    NSScrollView *scroll =
        [[[NSScrollView alloc] initWithFrame:NSMakeRect(12, 12, width - 24, notesHeight - 42)] autorelease];
    [scroll setHasVerticalScroller:YES];
    [scroll setAutohidesScrollers:YES];
    [scroll setBorderType:NSLineBorder];
    [scroll setAutoresizingMask:NSViewWidthSizable | NSViewMaxYMargin];
    views.notes = notesView(scroll);
    [scroll setDocumentView:views.notes];
    [column addSubview:scroll];
    return column;
}

} // namespace

NSScrollView *scrolling(NSView *view, NSRect frame) {
    NSScrollView *scroll = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
    [scroll setHasVerticalScroller:YES];
    [scroll setBorderType:NSNoBorder];
    [scroll setDrawsBackground:NO];
    [view setFrameSize:[scroll contentSize]];
    [view setAutoresizingMask:NSViewWidthSizable];
    [scroll setDocumentView:view];
    return scroll;
}

NSTextField *labelWith(NSString *text, NSRect frame, NSFont *font) {
    NSTextField *label = [[[NSTextField alloc] initWithFrame:frame] autorelease];
    [label setStringValue:text];
    [label setEditable:NO];
    [label setSelectable:NO];
    [label setBordered:NO];
    [label setBezeled:NO];
    [label setDrawsBackground:NO];
    [label setFont:font];
    return label;
}

DocumentViews buildDocumentViews(NSRect frame) {
    DocumentViews views{};
    views.root = [[[NSView alloc] initWithFrame:frame] autorelease];
    const double height = NSHeight(frame) - statusHeight;
    const NSRect all = NSMakeRect(0, statusHeight, NSWidth(frame), height);
    const auto split = own([[NSSplitView alloc] initWithFrame:all]);
    [split.get() setVertical:YES];
    [split.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [views.root addSubview:split.get()];
    views.split = split.get();

    const auto list = own([[SHSlideListView alloc] initWithFrame:NSMakeRect(0, 0, listWidth, height)]);
    views.list = list.get();
    [split.get() addSubview:scrolling(list.get(), NSMakeRect(0, 0, listWidth, height))];

    const double half = (NSWidth(frame) - listWidth) / 2;
    NSScrollView *editorScroll = [SHMarkdownEditor scrollableEditorWithFrame:NSMakeRect(0, 0, half, height)];
    views.editor = [editorScroll documentView];
    [split.get() addSubview:editorScroll];
    [split.get() addSubview:buildPreviewColumn(NSMakeRect(0, 0, half, height), views)];

    views.status = labelWith(@"", NSMakeRect(14, 4, NSWidth(frame) - 28, 18), [NSFont systemFontOfSize:11]);
    [views.status setAutoresizingMask:NSViewWidthSizable | NSViewMaxYMargin];
    [views.root addSubview:views.status];
    return views;
}

void layOutSplit(NSSplitView *split) {
    NSArray<NSView *> *columns = [split subviews];
    if ([columns count] != 3) {
        return;
    }
    const double height = NSHeight([split bounds]);
    const double divider = [split dividerThickness];
    const double rest = NSWidth([split bounds]) - listWidth - 2 * divider;
    const double editorWidth = std::round(rest * 0.47);
    [[columns objectAtIndex:0] setFrame:NSMakeRect(0, 0, listWidth, height)];
    [[columns objectAtIndex:1] setFrame:NSMakeRect(listWidth + divider, 0, editorWidth, height)];
    [[columns objectAtIndex:2]
        setFrame:NSMakeRect(listWidth + 2 * divider + editorWidth, 0, rest - editorWidth, height)];
    [split setNeedsDisplay:YES];
}

NSRect documentFrame(NSUInteger place) {
    const NSRect screen = [[[NSScreen screens] objectAtIndex:0] visibleFrame];
    const double width = std::min(1300.0, NSWidth(screen) - 40);
    const double height = std::min(840.0, NSHeight(screen) - 40);
    const double step = 26.0 * static_cast<double>(place % 5);
    const double x = std::min(NSMinX(screen) + 60 + step, NSMaxX(screen) - width);
    const double y = std::max(NSMaxY(screen) - height - 20 - step, NSMinY(screen));
    return NSMakeRect(std::max(x, NSMinX(screen)), y, width, height);
}

bool usesDarkColors() {
    return flattheme::isDark();
}

void showAlert(NSString *message, NSString *detail) {
    const auto alert = own([[NSAlert alloc] init]);
    [alert.get() setMessageText:message];
    [alert.get() setInformativeText:detail];
    [alert.get() addButtonWithTitle:@"OK"];
    [alert.get() runModal];
}

} // namespace samplehost
