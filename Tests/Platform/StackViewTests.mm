#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

NSView *box(CGFloat width, CGFloat height) {
    return [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, width, height)] autorelease];
}

std::string frames(NSStackView *stack) {
    std::string text;
    for (NSView *view in [stack arrangedSubviews]) {
        text += [NSStringFromRect([view frame]) UTF8String];
    }
    return text;
}

std::string rect(int x, int y, int width, int height) {
    return [NSStringFromRect(NSMakeRect(x, y, width, height)) UTF8String];
}

class StackView : public testing::Test {
protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
    }
    void TearDown() override { [pool_ release]; }
    NSAutoreleasePool *pool_ = nil;
};

TEST_F(StackView, ARowKeepsTheSizesAndCentresItsViews) {
    NSStackView *stack = [NSStackView stackViewWithViews:@[ box(40, 20), box(60, 30) ]];
    EXPECT_EQ([stack frame].size.width, 108);
    EXPECT_EQ([stack frame].size.height, 30);
    [stack setFrameSize:NSMakeSize(200, 50)];
    EXPECT_EQ(frames(stack), rect(0, 15, 40, 20) + rect(48, 10, 60, 30));
    [stack setAlignment:NSLayoutAttributeTop];
    EXPECT_EQ(frames(stack), rect(0, 30, 40, 20) + rect(48, 20, 60, 30));
}

TEST_F(StackView, AColumnBeginsAtTheTop) {
    NSStackView *stack = [NSStackView stackViewWithViews:@[ box(40, 20), box(60, 30) ]];
    [stack setOrientation:NSUserInterfaceLayoutOrientationVertical];
    [stack setAlignment:NSLayoutAttributeLeading];
    [stack setSpacing:4];
    [stack setFrameSize:NSMakeSize(100, 100)];
    EXPECT_EQ(frames(stack), rect(0, 80, 40, 20) + rect(0, 46, 60, 30));
    [stack setEdgeInsets:NSEdgeInsetsMake(10, 5, 0, 0)];
    EXPECT_EQ(frames(stack), rect(5, 70, 40, 20) + rect(5, 36, 60, 30));
}

TEST_F(StackView, DistributesItsRoom) {
    NSStackView *stack = [NSStackView stackViewWithViews:@[ box(40, 20), box(60, 20) ]];
    [stack setFrameSize:NSMakeSize(208, 20)];
    [stack setDistribution:NSStackViewDistributionFill];
    EXPECT_EQ(frames(stack), rect(0, 0, 40, 20) + rect(48, 0, 160, 20));
    [stack setDistribution:NSStackViewDistributionFillEqually];
    EXPECT_EQ(frames(stack), rect(0, 0, 100, 20) + rect(108, 0, 100, 20));
    [stack setDistribution:NSStackViewDistributionFillProportionally];
    EXPECT_EQ(frames(stack), rect(0, 0, 80, 20) + rect(88, 0, 120, 20));
    [stack setDistribution:NSStackViewDistributionEqualSpacing];
    EXPECT_EQ(frames(stack), rect(0, 0, 40, 20) + rect(148, 0, 60, 20));
}

TEST_F(StackView, HiddenAndRemovedViewsTakeNoRoom) {
    NSView *first = box(40, 20);
    NSView *second = box(60, 20);
    NSStackView *stack = [NSStackView stackViewWithViews:@[ first, second ]];
    [first setHidden:YES];
    [stack setFrameSize:NSMakeSize(208, 20)];
    EXPECT_EQ([second frame].origin.x, 0);
    [first setHidden:NO];
    [stack setFrameSize:NSMakeSize(209, 20)];
    EXPECT_EQ([second frame].origin.x, 48);
    [first removeFromSuperview];
    EXPECT_EQ([[stack arrangedSubviews] count], 1U);
    EXPECT_EQ([second frame].origin.x, 0);
}

constexpr const char *layout = R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0" toolsVersion="14460.31" targetRuntime="MacOSX.Cocoa" propertyAccessControl="none">
  <objects>
    <customObject id="-2" userLabel="File's Owner" customClass="NSObject"/>
    <customObject id="-1" userLabel="First Responder" customClass="FirstResponder"/>
    <customObject id="-3" userLabel="Application" customClass="NSObject"/>
    <window title="Stack" id="w1">
      <windowStyleMask key="styleMask" titled="YES"/>
      <rect key="contentRect" x="100" y="100" width="300" height="200"/>
      <view key="contentView" id="v1">
        <rect key="frame" x="0.0" y="0.0" width="300" height="200"/>
        <subviews>
          <stackView distribution="fill" orientation="vertical" alignment="leading" spacing="6" id="s1">
            <rect key="frame" x="10" y="10" width="200" height="100"/>
            <subviews>
              <textField verticalHuggingPriority="750" id="t1">
                <rect key="frame" x="0.0" y="0.0" width="120" height="22"/>
                <textFieldCell key="cell" selectable="YES" editable="YES" borderStyle="bezel" placeholderString="Type here" drawsBackground="YES" id="c1">
                  <font key="font" metaFont="system" size="13"/>
                </textFieldCell>
              </textField>
              <button verticalHuggingPriority="750" id="b1">
                <rect key="frame" x="0.0" y="0.0" width="80" height="24"/>
                <buttonCell key="cell" type="push" title="OK" bezelStyle="rounded" id="bc1">
                  <font key="font" metaFont="system" size="13"/>
                </buttonCell>
              </button>
            </subviews>
          </stackView>
        </subviews>
      </view>
    </window>
  </objects>
</document>
)";

TEST_F(StackView, LoadsFromALayoutResourceWithItsAttributes) {
    const std::string path = std::string([NSTemporaryDirectory() UTF8String]) + "/Stack.xib";
    std::ofstream(path) << layout;
    NSURL *url = [NSURL fileURLWithPath:[NSString stringWithUTF8String:path.c_str()]];
    NSNib *nib = [[[NSNib alloc] initWithContentsOfURL:url] autorelease];
    NSArray *objects = nil;
    NSObject *owner = [[[NSObject alloc] init] autorelease];
    ASSERT_TRUE([nib instantiateNibWithOwner:owner topLevelObjects:&objects]);
    NSWindow *window = nil;
    for (id object in objects) {
        if ([object isKindOfClass:[NSWindow class]]) {
            window = object;
        }
    }
    ASSERT_NE(window, nil);
    NSStackView *stack = [[[window contentView] subviews] objectAtIndex:0];
    ASSERT_TRUE([stack isKindOfClass:[NSStackView class]]);
    EXPECT_EQ([stack orientation], NSUserInterfaceLayoutOrientationVertical);
    EXPECT_EQ([stack spacing], 6);
    EXPECT_EQ([stack distribution], NSStackViewDistributionFill);
    EXPECT_EQ([stack alignment], NSLayoutAttributeLeading);
    EXPECT_EQ(frames(stack), rect(0, 78, 120, 22) + rect(0, 0, 80, 72));
    NSTextField *field = [[stack arrangedSubviews] objectAtIndex:0];
    EXPECT_TRUE([[field placeholderString] isEqualToString:@"Type here"]);
    [window close];
}

} // namespace
