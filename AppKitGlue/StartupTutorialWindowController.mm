#import "StartupTutorialWindowController.h"

@implementation StartupTutorialWindowController

- (instancetype)initWithWindow:(NSWindow *)window {
    return [super initWithWindow:window];
}

- (instancetype)initWithCoder:(NSCoder *)coder {
    return [super initWithCoder:coder];
}

@end
