// Where a running slideshow stands and what each key does to it.
#pragma once

#include <cstddef>
#include <string>

namespace samplehost {

/// The keys of a slideshow; digits are given apart.
enum class ShowKey { next, previous, first, last, enter, black, escape };

/// A slideshow from its first slide to its end. Numbers count from zero.
class SlideshowState {
public:
    /// A show of one slide.
    SlideshowState() : SlideshowState(1, 0, true) {}

    /// Starts on `first` (the last slide when there is no such one). `exitAfterLast`: going on after the last slide
    /// ends the show instead of doing nothing.
    SlideshowState(std::size_t count, std::size_t first, bool exitAfterLast);

    /// Does what the key says. Returns whether anything changed.
    bool press(ShowKey key);
    /// Adds a digit to the number that `enter` goes to. Returns whether anything changed: other characters do not.
    bool pressDigit(char digit);
    /// Follows an edit of the document while it is shown.
    void setCount(std::size_t count);

    [[nodiscard]] std::size_t current() const { return current_; }
    [[nodiscard]] std::size_t count() const { return count_; }
    [[nodiscard]] bool isBlack() const { return black_; }
    [[nodiscard]] bool hasEnded() const { return ended_; }
    /// The digits typed so far.
    [[nodiscard]] const std::string& digits() const { return digits_; }

private:
    bool goTo(std::size_t slide);
    bool goOn();
    bool goToNumber();

    std::size_t count_;
    std::size_t current_;
    bool exitAfterLast_;
    bool black_ = false;
    bool ended_ = false;
    std::string digits_;
};

} // namespace samplehost
