// Strings, lists and bytes between C++ (UTF-8) and Foundation. For .mm files only.
#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>
#include <vector>

namespace appkitglue {

/// An autoreleased string; "" if `text` is not UTF-8.
inline NSString *toNSString(std::string_view text) {
    NSString *string = [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                               encoding:NSUTF8StringEncoding] autorelease];
    return string != nil ? string : @"";
}

/// The string's text; empty for nil and for a string that has no UTF-8 form.
inline std::string toUTF8(NSString *string) {
    const char *text = [string UTF8String];
    return text != nullptr ? std::string(text, [string lengthOfBytesUsingEncoding:NSUTF8StringEncoding])
                           : std::string();
}

/// An autoreleased array of strings.
inline NSArray<NSString *> *toNSArray(const std::vector<std::string> &texts) {
    NSMutableArray<NSString *> *array = [NSMutableArray arrayWithCapacity:texts.size()];
    for (const std::string &text : texts) {
        [array addObject:toNSString(text)];
    }
    return array;
}

/// The bytes as autoreleased data.
inline NSData *toNSData(std::string_view bytes) {
    return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

/// The data's bytes, valid as long as the data is and is not changed; empty for nil.
inline std::string_view bytesOf(NSData *data) {
    return {static_cast<const char *>([data bytes]), [data length]};
}

} // namespace appkitglue
