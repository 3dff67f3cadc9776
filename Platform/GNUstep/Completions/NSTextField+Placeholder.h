#pragma once

#import <AppKit/AppKit.h>

@interface NSTextField (QVPlaceholder)
/// What the field shows, dimmed, while it is empty; nil for nothing. Layout resources set it too.
@property (nonatomic, copy) NSString *placeholderString;
@end
