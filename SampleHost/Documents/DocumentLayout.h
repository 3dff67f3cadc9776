// The views of a document window and the few window services that documents share.
#pragma once

#import "SHMarkdownEditor.h"
#import "SHSlideListView.h"
#import "SHSlideView.h"

namespace samplehost {

/// The views of a document window; all are owned by `root`, which is autoreleased.
struct DocumentViews {
    NSView *root;
    NSSplitView *split;
    SHMarkdownEditor *editor;
    SHSlideListView *list;
    SHSlideView *preview;
    NSTextView *notes;
    NSTextField *status;
};

DocumentViews buildDocumentViews(NSRect frame);

/// Gives the three columns their first widths.
void layOutSplit(NSSplitView *split);

/// Where the window of the document number `place` (from 0) stands: always the same place on the same display.
NSRect documentFrame(NSUInteger place);

/// A scroll view around `view`, which takes its width.
NSScrollView *scrolling(NSView *view, NSRect frame);

/// Text in a window: not editable, no border; autoreleased.
NSTextField *labelWith(NSString *text, NSRect frame, NSFont *font);

/// Whether windows are drawn in dark colours now.
bool usesDarkColors();

/// Tells the user something; waits until it is read.
void showAlert(NSString *message, NSString *detail);

} // namespace samplehost
