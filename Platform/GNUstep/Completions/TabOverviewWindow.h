// The window that shows the application's open windows as thumbnails.
#pragma once

#import <AppKit/AppKit.h>

@class QVTabOverviewView;

@interface QVTabOverviewWindow : NSWindow {
    QVTabOverviewView *_overview;
    NSTimer *_timer;
    double _shownAt;
}
/// The overview that is shown, or nil.
+ (QVTabOverviewWindow *)current;
/// Shows the overview over `window`, with that window selected.
+ (void)showOverWindow:(NSWindow *)window;
/// The windows that are shown, in the order of their thumbnails.
- (NSArray *)shownWindows;
/// Where the thumbnail lies, in this window's coordinates.
- (NSRect)thumbnailRectAtIndex:(NSUInteger)index;
/// The index of the selected thumbnail.
- (NSUInteger)selectedIndex;
@end
