// A grid of window thumbnails with a selection.
#pragma once

#import <AppKit/AppKit.h>

@interface QVTabOverviewView : NSView {
    NSMutableArray *_windows;
    NSMutableArray *_pictures;
    NSUInteger _selected;
}
/// The windows to show; the selection stays on its window where it can.
- (void)setWindows:(NSArray *)windows;
- (NSArray *)windows;
- (NSUInteger)selectedIndex;
- (void)setSelectedIndex:(NSUInteger)index;
/// In this view's coordinates, the title below it included.
- (NSRect)rectAtIndex:(NSUInteger)index;
/// Takes the windows' pictures anew.
- (void)refresh;
@end
