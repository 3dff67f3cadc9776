// A plain text view that colours Markdown and marks what a search found.
#pragma once

#import "Platform.h"

#include "Catalogue.h"
#include "Text.h"

#include <string>
#include <string_view>
#include <vector>

@interface SHMarkdownEditor : NSTextView {
    samplehost::EditorTheme _theme;
    NSFont *_editorFont;
    NSFont *_boldFont;
    std::vector<samplehost::TextRange> _marks;
    // The text as it was coloured last, with one style for each byte.
    std::string _colouredText;
    std::string _colouredStyles;
    bool _colouring;
}

/// An editor in a scroll view of that frame; autoreleased. The editor is the scroll view's document view.
+ (NSScrollView *)scrollableEditorWithFrame:(NSRect)frame;

- (void)setTheme:(const samplehost::EditorTheme &)theme font:(NSFont *)font;
/// What a search found: drawn on a coloured ground.
- (void)setMarks:(std::vector<samplehost::TextRange>)marks;
/// Makes the view at least as high as what of it can be seen.
- (void)fitToClip;
/// Colours what has changed since the last time.
- (void)colour;
/// Whether the text's attributes are changing and not the text.
- (bool)isColouring;

@end
