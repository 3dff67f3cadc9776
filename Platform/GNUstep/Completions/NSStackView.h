#pragma once

#import <AppKit/AppKit.h>

#if !__has_include(<AppKit/NSStackView.h>)

typedef NS_ENUM(NSInteger, NSStackViewDistribution) {
    NSStackViewDistributionGravityAreas = -1,
    NSStackViewDistributionFill = 0,
    NSStackViewDistributionFillEqually,
    NSStackViewDistributionFillProportionally,
    NSStackViewDistributionEqualSpacing,
    NSStackViewDistributionEqualCentering,
};

/// Lays views out in a row or a column. There are no constraints here: a view has the size that it had when it was
/// added, but for what the distribution and the alignment stretch. Hidden views take no room from the next layout on: a
/// change of the stack or its size.
@interface NSStackView : NSView {
    NSMutableArray *_arrangedSubviews;
    NSMutableArray *_naturalSizes;
    NSUserInterfaceLayoutOrientation _orientation;
    NSLayoutAttribute _alignment;
    NSStackViewDistribution _distribution;
    CGFloat _spacing;
    NSEdgeInsets _edgeInsets;
}
/// A horizontal stack of these views, as wide and high as they need. Not retained for the caller.
+ (instancetype)stackViewWithViews:(NSArray *)views;
/// Horizontal unless set.
@property (nonatomic) NSUserInterfaceLayoutOrientation orientation;
/// Where views lie across the stack: top, centre (unless set) or bottom of a row; leading, centre or trailing of a
/// column; width or height stretches them.
@property (nonatomic) NSLayoutAttribute alignment;
/// What happens to the room that the views leave; "gravity areas" (unless set) leaves it at the end.
@property (nonatomic) NSStackViewDistribution distribution;
/// Between two views, in points; 8 unless set.
@property (nonatomic) CGFloat spacing;
/// Kept free around the views, in points; none unless set.
@property (nonatomic) NSEdgeInsets edgeInsets;
/// The views in their order: from the left or from the top.
@property (nonatomic, readonly) NSArray *arrangedSubviews;
- (void)addArrangedSubview:(NSView *)view;
- (void)insertArrangedSubview:(NSView *)view atIndex:(NSInteger)index;
/// The view stays a subview.
- (void)removeArrangedSubview:(NSView *)view;
/// What the views need, in points.
- (NSSize)fittingSize;
@end

#endif
