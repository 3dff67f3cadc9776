// Scroll views whose content never agrees with their scrollers.
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

// Wants a scroller when there is none, and none when there is one: what text does that fits only without it.
@interface UndecidedContent : NSObject {
@public
    NSScrollView *scroll;
    int changes;
}
- (void)frameChanged:(NSNotification *)notification;
@end

@implementation UndecidedContent
- (void)frameChanged:(NSNotification *)notification {
    // Without an end of it the stack would overflow; the test stops before.
    if (++changes < 200) {
        [scroll setHasVerticalScroller:![scroll hasVerticalScroller]];
    }
}
@end

TEST(ScrollViewTest, StopsLayingOutWhenEachLayoutAsksForAnother) {
    @autoreleasepool {
        platform::prepareAppKit();
        NSScrollView *scroll = [[[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, 150, 60)] autorelease];
        [scroll setDocumentView:[[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 100, 50)] autorelease]];
        UndecidedContent *content = [[[UndecidedContent alloc] init] autorelease];
        content->scroll = scroll;
        [[scroll contentView] setPostsFrameChangedNotifications:YES];
        [[NSNotificationCenter defaultCenter] addObserver:content
                                                 selector:@selector(frameChanged:)
                                                     name:NSViewFrameDidChangeNotification
                                                   object:[scroll contentView]];
        [scroll setHasVerticalScroller:YES];
        [[NSNotificationCenter defaultCenter] removeObserver:content];
        EXPECT_GT(content->changes, 0);
        EXPECT_LT(content->changes, 50);
    }
}
