// GNUstep 0.29 lacks the overview of an application's windows.
#import "NSWindow+TabOverview.h"

#import "TabOverviewWindow.h"

@implementation NSWindow (QVTabOverview)

- (IBAction)toggleTabOverview:(id)sender {
    if (QVTabOverviewWindow *shown = [QVTabOverviewWindow current]) {
        [shown close];
        return;
    }
    [QVTabOverviewWindow showOverWindow:self];
}

@end
