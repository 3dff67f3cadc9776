#pragma once

#import <AppKit/AppKit.h>

@interface NSWindow (RepresentedURL)
/// The file that the window shows; nil for none. Setting it does not change the title.
- (void)setRepresentedURL:(NSURL *)url;
- (NSURL *)representedURL;
@end
