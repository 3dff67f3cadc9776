// What each command does to a document's text: pure functions from text and selection to one replacement.
#pragma once

#include "Deck.h"
#include "Text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace samplehost {

/// The action codes that the toolbar and its menus send, with the meaning that this application gives to them.
enum class Action {
    addSlide = 1,
    media,
    headlineLevel1,
    headlineLevel2,
    headlineLevel3,
    quote,
    numberedList,
    bulletedList,
    code,
    footnote,
    table,
    website,
    comment,
    inspector,
    report,
    document,
    arrange,
    play,
    duplicateSlide,
    deleteSlide,
    insert,
    themes
};

/// The action of a code; nothing outside 1 to 22.
std::optional<Action> actionFromCode(long long code);

/// The action's name as the log writes it, equal to the enumerator's.
std::string_view nameOf(Action action);

/// One replacement in a text and what is selected after it.
struct Edit {
    TextRange replaced;
    std::string text;
    TextRange selection;

    bool operator==(const Edit&) const = default;
};

/// `text` after `edit`.
std::string applied(std::string_view text, const Edit& edit);

/// The same edit without what it replaces by itself at either end: as little of a text as possible is touched.
Edit narrowed(std::string_view text, const Edit& edit);

/// What `action` does to `text` with `selection`; nothing for the actions that open something instead.
std::optional<Edit> editFor(Action action, std::string_view text, TextRange selection);

/// Inserts an image reference on a line of its own; the description stays selected.
Edit insertImage(std::string_view text, TextRange selection, std::string_view path, std::string_view description);

/// Puts a mark such as `**` around the selection, or takes it away where it is already there.
Edit toggleMark(std::string_view text, TextRange selection, std::string_view mark);

/// Moves slide `from` so that it becomes slide `to`. Nothing when that changes nothing or a number is out of range.
std::optional<Edit> moveSlide(std::string_view text, std::size_t from, std::size_t to);

/// Takes a slide out; the last remaining one is emptied instead.
std::optional<Edit> deleteSlide(std::string_view text, std::size_t index);

/// Inserts a copy of a slide after it.
std::optional<Edit> duplicateSlide(std::string_view text, std::size_t index);

/// Writes the document's settings at its top; settings without a value take the comment away.
Edit writeSettings(std::string_view text, const DocumentSettings& settings);

/// Replaces the notes of a slide: all its comments become one at its end; empty notes take them away.
std::optional<Edit> writeNotes(std::string_view text, std::size_t index, std::string_view notes);

} // namespace samplehost
