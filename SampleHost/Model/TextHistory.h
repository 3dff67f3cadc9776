// Undo and redo of a document's text, whichever way it was changed.
#pragma once

#include "Edits.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace samplehost {

/// Remembers the changes of a text as replacements, and says how to go back and forth. Typing on at one place counts as
/// one change.
class TextHistory {
public:
    /// Notes that `before` became `after` with `selection` as it was before. `name` is what the Undo menu says
    /// ("Typing", "Add Slide"). Does nothing when the texts are equal.
    void record(std::string_view before, std::string_view after, TextRange selection, std::string name);

    /// Ends the change that typing adds to.
    void breakCoalescing() { open_ = false; }

    /// The edit that takes the last change back, or nothing. The caller applies it.
    std::optional<Edit> undo();
    /// The edit that makes the last undone change again, or nothing.
    std::optional<Edit> redo();

    /// The names of the changes that undo and redo would act on; empty when there is none.
    [[nodiscard]] std::string undoName() const { return undone_.empty() ? std::string() : undone_.back().name; }
    [[nodiscard]] std::string redoName() const { return redone_.empty() ? std::string() : redone_.back().name; }

    /// A number that changes with every change and comes back when it is undone: equal numbers mean equal texts.
    [[nodiscard]] std::size_t mark() const { return undone_.empty() ? 0 : undone_.back().serial; }

private:
    struct Change {
        std::size_t start;
        std::string removed;
        std::string inserted;
        TextRange selection;
        std::string name;
        std::size_t serial;
    };

    bool extendLast(const Change& change);

    std::vector<Change> undone_;
    std::vector<Change> redone_;
    std::size_t serial_ = 0;
    bool open_ = false;
};

} // namespace samplehost
