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
    tutorial::drawPanel([self bounds], [self bounds].size.height / 2, [NSColor controlAccentColor], nil);
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
