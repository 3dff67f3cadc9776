#include "SlideshowState.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace samplehost {

SlideshowState::SlideshowState(std::size_t count, std::size_t first, bool exitAfterLast)
    : count_(std::max<std::size_t>(count, 1)), current_(std::min(first, count_ - 1)), exitAfterLast_(exitAfterLast) {}

bool SlideshowState::goTo(std::size_t slide) {
    const auto target = std::min(slide, count_ - 1);
    const bool changed = target != current_ || black_;
    current_ = target;
    black_ = false;
    return changed;
}

bool SlideshowState::goOn() {
    if (current_ + 1 < count_ || black_) {
        return goTo(black_ ? current_ : current_ + 1);
    }
    ended_ = exitAfterLast_;
    return ended_;
}

bool SlideshowState::goToNumber() {
    std::size_t number = 0;
    const auto result = std::from_chars(digits_.data(), digits_.data() + digits_.size(), number);
    digits_.clear();
    if (result.ec != std::errc()) {
        return goTo(count_ - 1);
    }
    return goTo(number == 0 ? 0 : number - 1);
}

bool SlideshowState::press(ShowKey key) {
    if (ended_) {
        return false;
    }
    if (key == ShowKey::enter && !digits_.empty()) {
        goToNumber();
        return true;
    }
    const bool typed = !digits_.empty();
    digits_.clear();
    switch (key) {
    case ShowKey::next:
    case ShowKey::enter:
        return goOn() || typed;
    case ShowKey::previous:
        return goTo(black_ || current_ == 0 ? current_ : current_ - 1) || typed;
    case ShowKey::first:
        return goTo(0) || typed;
    case ShowKey::last:
        return goTo(count_ - 1) || typed;
    case ShowKey::black:
        black_ = !black_;
        return true;
    case ShowKey::escape:
        ended_ = true;
        return true;
    }
    return false;
}

bool SlideshowState::pressDigit(char digit) {
    if (ended_ || digit < '0' || digit > '9') {
        return false;
    }
    digits_ += digit;
    return true;
}

void SlideshowState::setCount(std::size_t count) {
    count_ = std::max<std::size_t>(count, 1);
    current_ = std::min(current_, count_ - 1);
}

} // namespace samplehost
