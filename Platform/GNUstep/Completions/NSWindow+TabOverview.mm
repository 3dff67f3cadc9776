// GNUstep's windows have no tabs and so no overview of them.
#import "NSWindow+TabOverview.h"

@implementation NSWindow (TabOverview)

- (void)toggleTabOverview:(id)sender {
}

@end
