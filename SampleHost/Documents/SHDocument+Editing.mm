#import "SHDocument.h"

#import "SHAppDelegate.h"
#import "SHSlideshow.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <utility>

using namespace samplehost;

namespace {

/// What the Undo menu says about an action.
std::string undoNameOf(Action action) {
    switch (action) {
    case Action::addSlide:
        return "Add Slide";
    case Action::headlineLevel1:
    case Action::headlineLevel2:
    case Action::headlineLevel3:
        return "Headline";
    case Action::quote:
        return "Quote";
    case Action::numberedList:
    case Action::bulletedList:
        return "List";
    case Action::code:
        return "Code";
    case Action::footnote:
        return "Footnote";
    case Action::table:
        return "Table";
    case Action::website:
        return "Website";
    case Action::comment:
        return "Comment";
    case Action::duplicateSlide:
        return "Duplicate Slide";
    case Action::deleteSlide:
        return "Delete Slide";
    default:
        return "Change";
    }
}

std::size_t wordsIn(std::string_view text) {
    std::size_t words = 0;
    bool counted = false;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool letter = byte >= 0x80U || std::isalnum(byte) != 0;
        words += letter && !counted ? 1 : 0;
        counted = letter || (counted && c != ' ' && c != '\n' && c != '\t');
    }
    return words;
}

} // namespace

@implementation SHDocument (Editing)

- (const std::string &)text {
    return _text;
}

- (const Deck &)deck {
    return _deck;
}

- (std::size_t)currentSlide {
    return _current;
}

- (TextRange)selection {
    return toTextRange(_text, [_editor selectedRange]);
}

- (SlideStyle)style {
    const Settings &settings = [[_application settings] settings];
    return {.theme = slideThemeNamed(_deck.settings.theme.value_or(settings.generalTheme)),
            .size = slideSizeNamed(_deck.settings.size.value_or(settings.generalSlideSize)),
            .footer = _deck.settings.footer.value_or(""),
            .directory = toUTF8([_path stringByDeletingLastPathComponent]),
            .number = 0,
            .count = _deck.slides.size()};
}

- (ShownSlide)shownSlide:(std::size_t)slide {
    ShownSlide shown{.slide = _deck.slides[std::min(slide, _deck.slides.size() - 1)], .style = [self style]};
    shown.style.number = slide + 1;
    return shown;
}

#pragma mark Showing

- (void)refreshLists {
    std::vector<ShownSlide> slides;
    for (std::size_t i = 0; i < _deck.slides.size(); ++i) {
        slides.push_back([self shownSlide:i]);
        // The captions tell the numbers; without them a slide that moves keeps its picture.
        slides.back().style.number = 0;
    }
    std::set<std::size_t> found;
    for (const SearchHit &hit : _hits) {
        found.insert(hit.slide);
    }
    std::vector<std::size_t> visible;
    for (std::size_t i = 0; i < slides.size(); ++i) {
        if (_search.empty() || found.contains(i)) {
            visible.push_back(i);
        }
    }
    [_grid setSlides:slides visible:visible highlighted:found];
    [_list setSlides:std::move(slides) visible:std::move(visible) highlighted:std::move(found)];
}

- (void)refresh {
    _deck = parseDeck(_text);
    _hits = findInDeck(_deck, _text, _search);
    std::vector<TextRange> marks;
    for (const SearchHit &hit : _hits) {
        marks.push_back(hit.range);
    }
    [_editor setMarks:std::move(marks)];
    [self refreshLists];
    [self refreshSelection];
    [_window.get() setDocumentEdited:[self isEdited] ? YES : NO];
    [_slideshow.get() documentDidChange];
}

- (void)refreshSelection {
    _current = _deck.slideAt([self selection].start);
    [_list select:_current];
    [_grid select:_current];
    [_preview show:[self shownSlide:_current]];
    NSString *notes = toNSString(_deck.slides[_current].notes);
    if (![notes isEqualToString:[_notes string]]) {
        [_notes setString:notes];
    }
    auto status = "Slide " + std::to_string(_current + 1) + " of " + std::to_string(_deck.slides.size()) + "   ·   " +
                  std::to_string(wordsIn(_deck.slides[_current].markdown)) + " words";
    if (!_search.empty()) {
        status += "   ·   " + std::to_string(_hits.size()) + (_hits.size() == 1 ? " match" : " matches") + " for “" +
                  _search + "”";
    }
    [_status setStringValue:toNSString(status)];
}

- (void)goToSlide:(std::size_t)slide {
    if (slide >= _deck.slides.size()) {
        return;
    }
    const auto &range = _deck.slides[slide].range;
    const auto start = std::max(range.start, slide == 0 ? _deck.settingsRange.end() : 0);
    const auto first = std::min(_text.find_first_not_of("\r\n", start), range.end());
    const NSRange place = toNSRange(_text, {std::max(start, first), 0});
    [_editor setSelectedRange:place];
    [_editor scrollRangeToVisible:place];
    [self refreshSelection];
}

- (void)find:(const std::string &)wanted {
    _search = wanted;
    [self refresh];
    if (!_hits.empty()) {
        const NSRange first = toNSRange(_text, _hits.front().range);
        [_editor setSelectedRange:first];
        [_editor scrollRangeToVisible:first];
        [self refreshSelection];
    }
}

#pragma mark Changing

- (void)apply:(const std::optional<Edit> &)edit name:(const std::string &)name {
    if (!edit) {
        return;
    }
    _changeName = name;
    _selectionBefore = [self selection];
    const Edit smallest = narrowed(_text, *edit);
    const NSRange range = toNSRange(_text, smallest.replaced);
    NSString *replacement = toNSString(smallest.text);
    if ([_editor shouldChangeTextInRange:range replacementString:replacement]) {
        [_editor replaceCharactersInRange:range withString:replacement];
        [_editor didChangeText];
    }
    const NSRange selected = toNSRange(_text, edit->selection);
    [_editor setSelectedRange:selected];
    [_editor scrollRangeToVisible:selected];
    _changeName.clear();
    [self refreshSelection];
}

- (void)perform:(Action)action {
    [self apply:editFor(action, _text, [self selection]) name:undoNameOf(action)];
}

- (BOOL)textView:(NSTextView *)view shouldChangeTextInRange:(NSRange)range replacementString:(NSString *)string {
    (void)view;
    (void)range;
    (void)string;
    if (_changeName.empty()) {
        _selectionBefore = [self selection];
    }
    return YES;
}

- (void)textDidChange:(NSNotification *)notification {
    if ([notification object] != _editor || [_editor isColouring]) {
        return;
    }
    auto after = toUTF8([_editor string]);
    if (_changeName != "Undo") {
        _history.record(_text, after, _selectionBefore, _changeName.empty() ? "Typing" : _changeName);
    }
    _text = std::move(after);
    [_editor colour];
    [self refresh];
}

- (void)textViewDidChangeSelection:(NSNotification *)notification {
    // While the text changes, the view's text is ahead of ours.
    if ([notification object] == _editor && !_deck.slides.empty() &&
        [[_editor string] length] == utf16Offset(_text, _text.size())) {
        [self refreshSelection];
    }
}

- (void)goThroughHistory:(const std::optional<Edit> &)edit {
    [self apply:edit name:"Undo"];
}

- (void)undoChange:(id)sender {
    (void)sender;
    [self goThroughHistory:_history.undo()];
}

- (void)redoChange:(id)sender {
    (void)sender;
    [self goThroughHistory:_history.redo()];
}

- (void)performTaggedAction:(id)sender {
    const auto action = actionFromCode([sender tag]);
    if (!action) {
        return;
    }
    switch (*action) {
    case Action::media:
    case Action::inspector:
    case Action::document:
    case Action::play:
    case Action::themes:
        [self showPopover:*action rect:NSZeroRect];
        break;
    case Action::arrange:
        [self toggleArranging];
        break;
    default:
        [self perform:*action];
    }
}

- (void)makeBold:(id)sender {
    (void)sender;
    [self apply:toggleMark(_text, [self selection], "**") name:"Bold"];
}

- (void)makeItalic:(id)sender {
    (void)sender;
    [self apply:toggleMark(_text, [self selection], "*") name:"Italic"];
}

- (void)makeCode:(id)sender {
    (void)sender;
    [self apply:toggleMark(_text, [self selection], "`") name:"Code"];
}

- (void)nextSlide:(id)sender {
    (void)sender;
    [self goToSlide:_current + 1];
}

- (void)previousSlide:(id)sender {
    (void)sender;
    if (_current > 0) {
        [self goToSlide:_current - 1];
    }
}

- (BOOL)validateMenuItem:(id)item {
    const SEL action = [item action];
    if (action == @selector(undoChange:) || action == @selector(redoChange:)) {
        const bool undo = action == @selector(undoChange:);
        const auto name = undo ? _history.undoName() : _history.redoName();
        [item setTitle:toNSString((undo ? "Undo " : "Redo ") + name)];
        return name.empty() ? NO : YES;
    }
    if (action == @selector(nextSlide:)) {
        return _current + 1 < _deck.slides.size() ? YES : NO;
    }
    if (action == @selector(previousSlide:)) {
        return _current > 0 ? YES : NO;
    }
    if (action == @selector(swapDisplays:)) {
        return [[NSScreen screens] count] > 1 ? YES : NO;
    }
    return YES;
}

@end
