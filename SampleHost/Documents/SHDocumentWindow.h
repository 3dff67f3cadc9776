// A document's window. While a slideshow runs, keys go to the show wherever the focus is.
#pragma once

#import "Platform.h"

#include <functional>

@interface SHDocumentWindow : NSWindow {
    std::function<bool(NSEvent *)> _keyFilter;
}

/// Asked about each key press first; what it takes goes no further. Empty for none.
- (void)setKeyFilter:(std::function<bool(NSEvent *)>)filter;

@end
