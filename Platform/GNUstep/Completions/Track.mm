#import "Track.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <string>

namespace platform::animation {

namespace {

Track frameTrack(NSView *view) {
    Track track {
        view, @selector(frame), 4, nullptr, nullptr
    };
    track.read = [view] {
        const NSRect frame = [view frame];
        return Values{frame.origin.x, frame.origin.y, frame.size.width, frame.size.height};
    };
    track.write = [view](const Values &v) {
        NSView *parent = [view superview];
        [parent setNeedsDisplayInRect:NSIntegralRect(NSInsetRect([view frame], -1, -1))];
        const NSRect frame = NSMakeRect(v[0], v[1], v[2], v[3]);
        if (NSEqualSizes(frame.size, [view frame].size)) {
            [view setFrameOrigin:frame.origin];
        } else {
            [view setFrame:frame];
            [view setNeedsDisplay:YES];
        }
        [parent setNeedsDisplayInRect:NSIntegralRect(NSInsetRect(frame, -1, -1))];
    };
    return track;
}

Track frameTrack(NSWindow *window) {
    Track track {
        window, @selector(frame), 4, nullptr, nullptr, true
    };
    track.read = [window] {
        const NSRect frame = [window frame];
        return Values{frame.origin.x, frame.origin.y, frame.size.width, frame.size.height};
    };
    track.write = [window](const Values &v) {
        const NSRect frame = NSMakeRect(std::round(v[0]), std::round(v[1]), std::round(v[2]), std::round(v[3]));
        [window setFrame:frame display:YES];
    };
    return track;
}

std::optional<Track> propertyTrack(id target, SEL getter, SEL setter) {
    if (![target respondsToSelector:getter]) {
        return std::nullopt;
    }
    NSMethodSignature *signature = [target methodSignatureForSelector:getter];
    const std::size_t parts = partsOfType([signature methodReturnType]);
    if (parts == 0 || [signature numberOfArguments] != 2) {
        return std::nullopt;
    }
    Track track{target, getter, parts, nullptr, nullptr};
    track.read = [target, getter] {
        NSInvocation *call = [NSInvocation invocationWithMethodSignature:[target methodSignatureForSelector:getter]];
        [call setSelector:getter];
        [call invokeWithTarget:target];
        Values values{};
        [call getReturnValue:values.data()];
        return values;
    };
    track.write = [target, setter](const Values &values) {
        NSInvocation *call = [NSInvocation invocationWithMethodSignature:[target methodSignatureForSelector:setter]];
        [call setSelector:setter];
        Values copy = values;
        [call setArgument:copy.data() atIndex:2];
        [call invokeWithTarget:target];
    };
    return track;
}

// The getter of "setAlphaValue:" is "alphaValue".
SEL getterOf(SEL setter) {
    std::string name = sel_getName(setter);
    if (name.size() < 5 || !name.starts_with("set") || name.find(':') != name.size() - 1) {
        return nullptr;
    }
    name = name.substr(3, name.size() - 4);
    name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
    return sel_registerName(name.c_str());
}

std::optional<Change> frameChange(id target, SEL setter, const double *argument) {
    const bool isWindow = [target isKindOfClass:[NSWindow class]];
    if (!isWindow && ![target isKindOfClass:[NSView class]]) {
        return std::nullopt;
    }
    std::size_t first = 0;
    std::size_t count = 2;
    if (sel_isEqual(setter, @selector(setFrame:)) || sel_isEqual(setter, @selector(setFrame:display:))) {
        count = 4;
    } else if (sel_isEqual(setter, @selector(setFrameSize:))) {
        first = 2;
    } else if (!sel_isEqual(setter, @selector(setFrameOrigin:))) {
        return std::nullopt;
    }
    Change change{isWindow ? frameTrack(static_cast<NSWindow *>(target)) : frameTrack(static_cast<NSView *>(target)),
                  first, count};
    std::copy_n(argument, count, change.values.begin());
    return change;
}

} // namespace

std::size_t partsOfType(const char *encoding) {
    std::size_t parts = 0;
    for (const char *c = encoding; *c != '\0'; ++c) {
        if (*c == '{') {
            c = std::strchr(c, '=');
            if (c == nullptr) {
                return 0;
            }
        } else if (*c == 'd') {
            ++parts;
        } else if (*c != '}') {
            return 0;
        }
    }
    return parts <= maximumParts ? parts : 0;
}

std::optional<Change> changeBySetter(id target, SEL setter, const double *argument) {
    if (auto change = frameChange(target, setter, argument)) {
        return change;
    }
    SEL getter = getterOf(setter);
    auto track = getter != nullptr ? propertyTrack(target, getter, setter) : std::nullopt;
    if (!track) {
        return std::nullopt;
    }
    Change change{*track, 0, track->parts};
    std::copy_n(argument, track->parts, change.values.begin());
    return change;
}

} // namespace platform::animation
