#import "TutorialViews.h"

#import "TutorialDrawing.h"

namespace tutorial = appkitglue::tutorial;

@implementation TutorialHeadlinesView

- (void)awakeFromNib {
    [self setWantsLayer:YES];
}

@end

@implementation TutorialBarView

- (void)drawRect:(NSRect)rect {
    // The blue of the pager's dots, whatever the accent colour is.
    NSColor *blue = [NSColor colorWithDeviceRed:0x3b / 255.0 green:0x78 / 255.0 blue:0xe7 / 255.0 alpha:1];
    tutorial::drawPanel([self bounds], [self bounds].size.height / 2, blue, nil);
}

@end

@implementation TutorialLabel

- (void)drawRect:(NSRect)rect {
    tutorial::drawPanel([self bounds], [self bounds].size.height / 2, [NSColor controlAccentColor], nil);
    tutorial::drawCentredText([self stringValue], [self bounds], 11, tutorial::Weight::bold, [NSColor whiteColor]);
}

@end

@implementation TutorialPagerButton

- (void)awakeFromNib {
    NSString *name = [self tag] == 1 ? @"pager_selected" : @"pager_unselected";
    NSString *path = [[NSBundle bundleForClass:[TutorialPagerButton class]] pathForImageResource:name];
    if (path != nil) {
        [self setImage:[[[NSImage alloc] initWithContentsOfFile:path] autorelease]];
    }
}

@end
