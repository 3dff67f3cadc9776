// Between C++ (UTF-8) and Foundation: strings, ranges, strong references.
#pragma once

#import "Platform.h"

#include "Text.h"

#include <string>
#include <string_view>
#include <utility>

namespace samplehost {

/// Keeps an Objective-C object alive; `T` is the class without its star. Copying is left out on purpose: each object
/// here has one owner.
template <typename T> class Owned {
public:
    Owned() = default;
    Owned(Owned &&other) noexcept : object_(std::exchange(other.object_, nil)) {}
    Owned &operator=(Owned &&other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    Owned(const Owned &) = delete;
    Owned &operator=(const Owned &) = delete;
    ~Owned() { [object_ release]; }

    /// Takes over a reference that `alloc`, `copy` or `retain` returned.
    static Owned adopt(T *object) {
        Owned owned;
        owned.object_ = object;
        return owned;
    }

    [[nodiscard]] T *get() const { return object_; }
    explicit operator bool() const { return object_ != nil; }

private:
    T *object_ = nil;
};

/// Takes over a new object: `own([[NSImage alloc] init])`.
template <typename T> Owned<T> own(T *object) {
    return Owned<T>::adopt(object);
}
/// Retains an object that somebody else owns.
template <typename T> Owned<T> keep(T *object) {
    return Owned<T>::adopt([object retain]);
}

/// An autoreleased string; broken UTF-8 is read as Latin-1 rather than lost.
inline NSString *toNSString(std::string_view text) {
    NSString *string = [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                               encoding:NSUTF8StringEncoding] autorelease];
    if (string == nil) {
        string = [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                         encoding:NSISOLatin1StringEncoding] autorelease];
    }
    return string;
}

/// The string's text; empty for nil.
inline std::string toUTF8(NSString *string) {
    const char *text = [string UTF8String];
    return text == nullptr ? std::string() : std::string(text);
}

/// The range of a text view's string that stands for a range of bytes of the same text, and back.
inline NSRange toNSRange(std::string_view text, TextRange range) {
    const auto start = utf16Offset(text, range.start);
    return NSMakeRange(start, utf16Offset(text, range.end()) - start);
}
inline TextRange toTextRange(std::string_view text, NSRange range) {
    const auto start = utf8Offset(text, range.location);
    return {start, utf8Offset(text, NSMaxRange(range)) - start};
}

/// A colour from 0xRRGGBB.
inline NSColor *toNSColor(unsigned color, double alpha = 1) {
    const auto channel = [color](unsigned shift) { return ((color >> shift) & 0xFFU) / 255.0; };
    return [NSColor colorWithCalibratedRed:channel(16) green:channel(8) blue:channel(0) alpha:alpha];
}

} // namespace samplehost
