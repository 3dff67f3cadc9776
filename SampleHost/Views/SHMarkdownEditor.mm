#import "SHMarkdownEditor.h"

#import "Bridge.h"
#import "Fonts.h"

#include "MarkdownColouring.h"

#include <algorithm>
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

/// A style is a kind's number from 1, or plain; marked text has a bit more.
constexpr char plainStyle = 0;
constexpr char markedStyle = 0x40;

/// The style of each byte.
std::string stylesOf(const std::string &text, const std::vector<TextRange> &marks) {
    std::string styles(text.size(), plainStyle);
    if (text.size() > longestColoured) {
        return styles;
    }
    for (const ColouredRange &part : colouring(text)) {
        const auto style = static_cast<char>(static_cast<int>(part.kind) + 1);
        for (auto i = part.range.start; i < std::min(part.range.end(), styles.size()); ++i) {
            styles[i] = style;
        }
    }
    for (const TextRange &mark : marks) {
        for (auto i = mark.start; i < std::min(mark.end(), styles.size()); ++i) {
            styles[i] = static_cast<char>(styles[i] | markedStyle);
        }
    }
    return styles;
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
    _colouredText.clear();
    _colouredStyles.clear();
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

/// Gives the bytes from `start` to `end` the look of their styles.
- (void)applyStyles:(std::string_view)styles of:(std::string_view)text from:(std::size_t)start to:(std::size_t)end {
    NSTextStorage *storage = [self textStorage];
    const Utf16Offsets offsets(text);
    const auto within = [&](std::size_t from, std::size_t to) {
        const NSRange range = NSMakeRange(offsets[from], offsets[to] - offsets[from]);
        return NSIntersectionRange(range, NSMakeRange(0, [storage length]));
    };
    const NSRange all = within(start, end);
    if (all.length == 0) {
        return;
    }
    [storage beginEditing];
    [storage setAttributes:[self plainAttributes] range:all];
    for (std::size_t from = start; from < end;) {
        const char style = styles[from];
        const auto to = std::min(std::min(styles.find_first_not_of(style, from), styles.size()), end);
        const NSRange range = within(from, to);
        if (style != plainStyle && range.length > 0) {
            [self addStyle:style range:range];
        }
        from = to;
    }
    [storage endEditing];
}

- (void)addStyle:(char)style range:(NSRange)range {
    NSTextStorage *storage = [self textStorage];
    if ((style & markedStyle) != 0) {
        [storage addAttribute:NSBackgroundColorAttributeName value:toNSColor(0xE8A317, 0.45) range:range];
    }
    const int number = style & ~markedStyle;
    if (number == plainStyle) {
        return;
    }
    const auto kind = static_cast<TextKind>(number - 1);
    [storage addAttribute:NSForegroundColorAttributeName value:toNSColor(colorOf(kind, _theme)) range:range];
    if (kind == TextKind::heading || kind == TextKind::strong) {
        [storage addAttribute:NSFontAttributeName value:_boldFont range:range];
    }
}

- (void)colour {
    if (_editorFont == nil) {
        return;
    }
    _colouring = true;
    auto text = toUTF8([[self textStorage] string]);
    auto styles = stylesOf(text, _marks);
    // What stands before and after the change keeps its look: laying a long text out anew takes long.
    const auto least = std::min(text.size(), _colouredText.size());
    std::size_t before = 0;
    while (before < least && text[before] == _colouredText[before] && styles[before] == _colouredStyles[before]) {
        ++before;
    }
    std::size_t after = 0;
    while (after < least - before && text[text.size() - 1 - after] == _colouredText[_colouredText.size() - 1 - after] &&
           styles[styles.size() - 1 - after] == _colouredStyles[_colouredStyles.size() - 1 - after]) {
        ++after;
    }
    const auto lineStart = before == 0 ? std::string::npos : text.rfind('\n', before - 1);
    const auto lineEnd = text.find('\n', text.size() - after);
    [self applyStyles:styles
                   of:text
                 from:lineStart == std::string::npos ? 0 : lineStart + 1
                   to:lineEnd == std::string::npos ? text.size() : lineEnd];
    _colouredText = std::move(text);
    _colouredStyles = std::move(styles);
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
