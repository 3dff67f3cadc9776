// The views that the nib of the startup tutorial names.
#pragma once

#import "Platform.h"

/// The block of headlines: it has a layer, so that the introduction can shrink it.
@interface TutorialHeadlinesView : NSView
@end

/// A blue bar.
@interface TutorialBarView : NSView
@end

/// A label on the drawing of the first page: white on the accent colour.
@interface TutorialLabel : NSTextField
@end

/// A pager dot. The nib cannot name the images, which lie in the bundle of this class.
@interface TutorialPagerButton : NSButton
@end

/// Markdown on the left, slides on the right.
@interface TutorialEditorDrawing : NSView
@end

/// The toolbar over a slide with a selected element.
@interface TutorialToolbarDrawing : NSView
@end

/// The document's overrides, and a slide with header and footer.
@interface TutorialOverridesDrawing : NSView
@end

/// A grid of slides, one of them on its way to another place.
@interface TutorialReorderDrawing : NSView
@end
