#include "TextHistory.h"

#include <algorithm>

namespace samplehost {

namespace {

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Length of the common start of both texts, never inside a character.
std::size_t commonStart(std::string_view a, std::string_view b) {
    auto length = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
    while (length > 0 &&
           ((length < a.size() && isContinuation(a[length])) || (length < b.size() && isContinuation(b[length])))) {
        --length;
    }
    return length;
}

std::size_t commonEnd(std::string_view a, std::string_view b, std::size_t most) {
    std::size_t length = 0;
    while (length < most && a[a.size() - 1 - length] == b[b.size() - 1 - length]) {
        ++length;
    }
    while (length > 0 && isContinuation(a[a.size() - length])) {
        --length;
    }
    return length;
}

} // namespace

bool TextHistory::extendLast(const Change& change) {
    if (!open_ || undone_.empty() || undone_.back().name != change.name ||
        change.inserted.find('\n') != std::string::npos) {
        return false;
    }
    Change& last = undone_.back();
    if (change.removed.empty() && last.removed.empty() && change.start == last.start + last.inserted.size()) {
        last.inserted += change.inserted;
        last.serial = change.serial;
        return true;
    }
    if (change.inserted.empty() && last.inserted.empty() && change.start + change.removed.size() == last.start) {
        last.removed.insert(0, change.removed);
        last.start = change.start;
        last.serial = change.serial;
        return true;
    }
    return false;
}

void TextHistory::record(std::string_view before, std::string_view after, TextRange selection, std::string name) {
    if (before == after) {
        return;
    }
    const auto start = commonStart(before, after);
    const auto end = commonEnd(before, after, std::min(before.size(), after.size()) - start);
    Change change{.start = start,
                  .removed = std::string(before.substr(start, before.size() - start - end)),
                  .inserted = std::string(after.substr(start, after.size() - start - end)),
                  .selection = selection,
                  .name = std::move(name),
                  .serial = ++serial_};
    redone_.clear();
    if (!extendLast(change)) {
        undone_.push_back(std::move(change));
    }
    open_ = undone_.back().name == "Typing";
}

std::optional<Edit> TextHistory::undo() {
    if (undone_.empty()) {
        return std::nullopt;
    }
    open_ = false;
    redone_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    const Change& change = redone_.back();
    return Edit{
        .replaced = {change.start, change.inserted.size()}, .text = change.removed, .selection = change.selection};
}

std::optional<Edit> TextHistory::redo() {
    if (redone_.empty()) {
        return std::nullopt;
    }
    open_ = false;
    undone_.push_back(std::move(redone_.back()));
    redone_.pop_back();
    const Change& change = undone_.back();
    return Edit{.replaced = {change.start, change.removed.size()},
                .text = change.inserted,
                .selection = {change.start + change.inserted.size(), 0}};
}

} // namespace samplehost
