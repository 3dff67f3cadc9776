// GNUstep 0.29 has no full screen mode of views.
#import "NSView+FullScreen.h"

#import "QVFullScreenSession.h"

NSString *const NSFullScreenModeAllScreens = @"NSFullScreenModeAllScreens";
NSString *const NSFullScreenModeApplicationPresentationOptions = @"NSFullScreenModeApplicationPresentationOptions";

@implementation NSView (QVFullScreen)

- (BOOL)enterFullScreenMode:(NSScreen *)screen withOptions:(NSDictionary *)options {
    if (screen == nil || [self window] == nil || [self isInFullScreenMode]) {
        return NO;
    }
    [QVFullScreenSession beginWithView:self
                                screen:screen
                   presentationOptions:[options objectForKey:NSFullScreenModeApplicationPresentationOptions]];
    return YES;
}

- (void)exitFullScreenModeWithOptions:(NSDictionary *)options {
    [[QVFullScreenSession sessionOfView:self] end];
}

- (BOOL)isInFullScreenMode {
    return [QVFullScreenSession sessionOfView:self] != nil;
}

@end
