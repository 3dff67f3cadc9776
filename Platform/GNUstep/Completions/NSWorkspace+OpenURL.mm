// GNUstep 0.29 knows no program for web and mail addresses: it shows an alert. The desktop's own opener takes them.
#import "Hooks.h"

#import <AppKit/AppKit.h>

#include <cstdlib>

namespace platform {

namespace {

Hook<BOOL, NSURL *> openURL;

NSString *openerOnPath() {
    const char *const path = std::getenv("PATH");
    NSString *folders = [NSString stringWithUTF8String:path != nullptr ? path : ""];
    for (NSString *folder in [folders componentsSeparatedByString:@":"]) {
        NSString *program = [folder stringByAppendingPathComponent:@"xdg-open"];
        if ([folder length] > 0 && [[NSFileManager defaultManager] isExecutableFileAtPath:program]) {
            return program;
        }
    }
    return nil;
}

bool isForTheDesktop(NSURL *url) {
    NSString *scheme = [[url scheme] lowercaseString];
    return [scheme isEqualToString:@"http"] || [scheme isEqualToString:@"https"] || [scheme isEqualToString:@"mailto"];
}

BOOL openWithDesktop(id self, SEL selector, NSURL *url) {
    if (!isForTheDesktop(url)) {
        return openURL.original(self, selector, url);
    }
    NSString *opener = openerOnPath();
    if (opener == nil) {
        return NO;
    }
    @try {
        // The task may outlive this method: it is kept until its program has ended.
        [NSTask launchedTaskWithLaunchPath:opener arguments:@[ [url absoluteString] ]];
        return YES;
    } @catch (NSException *) {
        return NO;
    }
}

} // namespace

void installOpenURLHook() {
    openURL.install([NSWorkspace class], @selector(openURL:), openWithDesktop);
}

} // namespace platform
