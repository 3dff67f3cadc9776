#import "SHMarkdownEditor.h"

#import "Bridge.h"
#import "Fonts.h"

#include "MarkdownColouring.h"

#include <utility>

using namespace samplehost;

namespace {

/// Longer texts stay uncoloured: typing in them has to stay quick.
constexpr std::size_t longestColoured = 300'000;

Color colorOf(TextKind kind, const EditorTheme &theme) {
    switch (kind) {
    case TextKind::heading:
        return theme.heading;
    case TextKind::emphasis:
    case TextKind::strong:
        return theme.emphasis;
    case TextKind::code:
        return theme.code;
    case TextKind::link:
        return theme.link;
    case TextKind::comment:
        return theme.comment;
    case TextKind::separator:
    case TextKind::mark:
        return theme.separator;
    }
    return theme.text;
}

} // namespace

@implementation SHMarkdownEditor

+ (NSScrollView *)scrollableEditorWithFrame:(NSRect)frame {
    NSScrollView *scroll = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
    [scroll setHasVerticalScroller:YES];
    [scroll setAutohidesScrollers:YES];
    [scroll setBorderType:NSNoBorder];
    const NSSize content = [scroll contentSize];
    const auto editor = own([[self alloc] initWithFrame:NSMakeRect(0, 0, content.width, content.height)]);
    [editor.get() setMinSize:NSMakeSize(0, content.height)];
    [editor.get() setMaxSize:NSMakeSize(1e7, 1e7)];
    [editor.get() setVerticallyResizable:YES];
    [editor.get() setHorizontallyResizable:NO];
    [editor.get() setAutoresizingMask:NSViewWidthSizable];
    [[editor.get() textContainer] setContainerSize:NSMakeSize(content.width, 1e7)];
    [[editor.get() textContainer] setWidthTracksTextView:YES];
    [editor.get() setTextContainerInset:NSMakeSize(14, 14)];
    [editor.get() setRichText:NO];
    [editor.get() setUsesFontPanel:NO];
    [editor.get() setImportsGraphics:NO];
    [editor.get() setAllowsUndo:NO];
    [scroll setDocumentView:editor.get()];
    return scroll;
}

- (void)dealloc {
    [_editorFont release];
    [_boldFont release];
    [super dealloc];
}

- (void)setTheme:(const EditorTheme &)theme font:(NSFont *)font {
    _theme = theme;
    if (font != _editorFont) {
        [_editorFont release];
        _editorFont = [font retain];
        [_boldFont release];
        _boldFont = [[[NSFontManager sharedFontManager] convertFont:font toHaveTrait:NSBoldFontMask] retain];
    }
    NSColor *background = toNSColor(theme.background);
    [self setBackgroundColor:background];
    [[self enclosingScrollView] setBackgroundColor:background];
    [self setInsertionPointColor:toNSColor(theme.text)];
    [self setSelectedTextAttributes:@{NSBackgroundColorAttributeName : toNSColor(theme.link, 0.3)}];
    [self setTypingAttributes:[self plainAttributes]];
    [self colour];
}

- (NSDictionary<NSString *, id> *)plainAttributes {
    NSMutableParagraphStyle *paragraph = [[[NSMutableParagraphStyle alloc] init] autorelease];
    [paragraph setLineSpacing:3];
    return @{
        NSFontAttributeName : _editorFont,
        NSForegroundColorAttributeName : toNSColor(_theme.text),
        NSParagraphStyleAttributeName : paragraph
    };
}

- (void)setMarks:(std::vector<TextRange>)marks {
    if (marks != _marks) {
        _marks = std::move(marks);
        [self colour];
    }
}

- (bool)isColouring {
    return _colouring;
}

- (void)colour {
    if (_editorFont == nil) {
        return;
    }
    _colouring = true;
    NSTextStorage *storage = [self textStorage];
    const NSUInteger length = [storage length];
    const auto text = toUTF8([storage string]);
    if (length == 0) {
        [self setTypingAttributes:[self plainAttributes]];
        _colouring = false;
        return;
    }
    [storage beginEditing];
    [storage setAttributes:[self plainAttributes] range:NSMakeRange(0, length)];
    if (text.size() <= longestColoured) {
        const Utf16Offsets offsets(text);
        const auto within = [&](TextRange range) {
            const auto start = offsets[range.start];
            return NSIntersectionRange(NSMakeRange(start, offsets[range.end()] - start), NSMakeRange(0, length));
        };
        for (const ColouredRange &part : colouring(text)) {
            const NSRange range = within(part.range);
            if (range.length == 0) {
                continue;
            }
            [storage addAttribute:NSForegroundColorAttributeName
                            value:toNSColor(colorOf(part.kind, _theme))
                            range:range];
            if (part.kind == TextKind::heading || part.kind == TextKind::strong) {
                [storage addAttribute:NSFontAttributeName value:_boldFont range:range];
            }
        }
        for (const TextRange &mark : _marks) {
            [storage addAttribute:NSBackgroundColorAttributeName value:toNSColor(0xE8A317, 0.45) range:within(mark)];
        }
    }
    [storage endEditing];
    [self setTypingAttributes:[self plainAttributes]];
    _colouring = false;
}

// The whole of the visible part takes clicks, however short the text is.
- (void)fitToClip {
    const NSSize visible = [[self enclosingScrollView] contentSize];
    [self setMinSize:NSMakeSize(0, visible.height)];
    [self sizeToFit];
    if (NSHeight([self frame]) < visible.height) {
        [self setFrameSize:NSMakeSize(NSWidth([self frame]), visible.height)];
    }
}

- (void)resizeWithOldSuperviewSize:(NSSize)size {
    [super resizeWithOldSuperviewSize:size];
    [self fitToClip];
}

- (void)keyDown:(NSEvent *)event {
    NSString *characters = [event charactersIgnoringModifiers];
    const unichar key = [characters length] > 0 ? [characters characterAtIndex:0] : 0;
    if (([event modifierFlags] & (NSCommandKeyMask | NSControlKeyMask)) != 0) {
        if (key == NSHomeFunctionKey) {
            return [self moveToBeginningOfDocument:nil];
        }
        if (key == NSEndFunctionKey) {
            return [self moveToEndOfDocument:nil];
        }
    }
    [super keyDown:event];
}

// Tab goes on to the next control in forms; in a text it is two blanks.
- (void)insertTab:(id)sender {
    (void)sender;
    [self insertText:@"  "];
}

@end
