// Boxes and separators.
#import "Drawing.h"
#import "Palette.h"
#import "QVFlatTheme.h"

using namespace flattheme;

namespace {

void drawSeparator(NSRect bounds) {
    [colour(palette().border) set];
    if (NSWidth(bounds) > NSHeight(bounds)) {
        NSRectFill(NSMakeRect(NSMinX(bounds), NSMidY(bounds), NSWidth(bounds), 1));
    } else {
        NSRectFill(NSMakeRect(NSMidX(bounds), NSMinY(bounds), 1, NSHeight(bounds)));
    }
}

void drawCustomBox(NSBox *box, NSBorderType borderType) {
    const CGFloat width = [box borderWidth];
    NSBezierPath *path = roundedPath(NSInsetRect([box bounds], width / 2, width / 2), [box cornerRadius]);
    [[box fillColor] set];
    [path fill];
    if (borderType != NSNoBorder) {
        [[box borderColor] set];
        [path setLineWidth:width];
        [path stroke];
    }
}

} // namespace

@implementation QVFlatTheme (Boxes)

- (void)drawBoxInClipRect:(NSRect)clip
                  boxType:(NSBoxType)boxType
               borderType:(NSBorderType)borderType
                   inView:(NSBox *)box {
    if (boxType == NSBoxSeparator) {
        drawSeparator([box bounds]);
        return;
    }
    if (boxType == NSBoxCustom) {
        drawCustomBox(box, borderType);
        return;
    }
    if (borderType != NSNoBorder) {
        drawPanel([box borderRect], nil, colour(palette().border), 4);
    }
    if ([box titlePosition] != NSNoTitle) {
        // The title interrupts the line.
        [[[box window] backgroundColor] set];
        NSRectFill([box titleRect]);
        [[box titleCell] drawWithFrame:[box titleRect] inView:box];
    }
}

@end
