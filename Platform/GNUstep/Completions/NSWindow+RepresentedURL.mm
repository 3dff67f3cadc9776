// GNUstep's windows know the represented file by its path only, not as an address.
#import "NSWindow+RepresentedURL.h"

@implementation NSWindow (RepresentedURL)

- (void)setRepresentedURL:(NSURL *)url {
    NSString *path = [url path];
    [self setRepresentedFilename:path != nil ? path : @""];
}

- (NSURL *)representedURL {
    NSString *path = [self representedFilename];
    return [path length] > 0 ? [NSURL fileURLWithPath:path] : nil;
}

@end
