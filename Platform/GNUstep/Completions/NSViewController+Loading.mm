// GNUstep's view controllers are not told that their view was loaded.
#import "NSViewController+Loading.h"

@implementation NSViewController (Loading)

- (void)viewDidLoad {
}

- (BOOL)isViewLoaded {
    return view != nil;
}

// Sent by the nib's loader to its owner and to the controllers in it.
- (void)awakeFromNib {
    if ([self isViewLoaded]) {
        [self viewDidLoad];
    }
}

@end
