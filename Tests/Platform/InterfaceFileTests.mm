#import "Platform.h"
#import "TestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

namespace {

using testing::ElementsAre;

constexpr const char *interfaceFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0" toolsVersion="21507" targetRuntime="MacOSX.Cocoa">
    <objects>
        <customObject id="-2" userLabel="File's Owner" customClass="NSObject"/>
        <customObject id="-1" userLabel="First Responder" customClass="FirstResponder"/>
        <customObject id="-3" userLabel="Application" customClass="NSObject"/>
        <customView id="top">
            <rect key="frame" x="0.0" y="0.0" width="400" height="200"/>
            <autoresizingMask key="autoresizingMask"/>
            <subviews>
                <popUpButton fixedFrame="YES" translatesAutoresizingMaskIntoConstraints="NO" id="popup">
                    <rect key="frame" x="17" y="150" width="206" height="26"/>
                    <autoresizingMask key="autoresizingMask" flexibleMaxX="YES" flexibleMinY="YES"/>
                    <popUpButtonCell key="cell" type="push" bezelStyle="rounded" id="popup-cell">
                        <font key="font" metaFont="menu" size="13"/>
                        <menu key="menu" id="menu"/>
                    </popUpButtonCell>
                </popUpButton>
                <box fixedFrame="YES" boxType="oldStyle" borderType="none" titlePosition="noTitle" id="box">
                    <rect key="frame" x="0.0" y="0.0" width="400" height="100"/>
                    <autoresizingMask key="autoresizingMask"/>
                    <view key="contentView" id="content">
                        <rect key="frame" x="0.0" y="0.0" width="400" height="100"/>
                        <autoresizingMask key="autoresizingMask" widthSizable="YES" heightSizable="YES"/>
                        <subviews>
                            <customView fixedFrame="YES" id="inner">
                                <rect key="frame" x="10" y="20" width="30" height="40"/>
                                <autoresizingMask key="autoresizingMask" flexibleMaxX="YES" flexibleMinY="YES"/>
                            </customView>
                        </subviews>
                    </view>
                </box>
            </subviews>
        </customView>
    </objects>
</document>
)";

class InterfaceFile : public testing::Test {
protected:
    InterfaceFile() {
        platform::prepareAppKit();
        const std::string path = test::binaryDirectory() + "/test-output/InterfaceFile.xib";
        std::ofstream(path) << interfaceFile;
        NSURL *url = [NSURL fileURLWithPath:[NSString stringWithUTF8String:path.c_str()]];
        nib_ = [[NSNib alloc] initWithContentsOfURL:url];
        objects_ = [[NSMutableArray alloc] init];
        NSObject *owner = [[[NSObject alloc] init] autorelease];
        [nib_ instantiateNibWithExternalNameTable:@{NSNibOwner : owner, NSNibTopLevelObjects : objects_}];
    }

    ~InterfaceFile() override {
        [objects_ release];
        [nib_ release];
    }

    NSView *view(Class aClass) const {
        for (id object in objects_) {
            if ([object isKindOfClass:[NSView class]]) {
                for (NSView *subview in [object subviews]) {
                    if ([subview isKindOfClass:aClass]) {
                        return subview;
                    }
                }
            }
        }
        return nil;
    }

private:
    NSNib *nib_ = nil;
    NSMutableArray *objects_ = nil;
};

TEST_F(InterfaceFile, GivesOpaqueViews) {
    NSView *popUp = view([NSPopUpButton class]);
    ASSERT_NE(popUp, nil);
    EXPECT_EQ([popUp alphaValue], 1);
}

TEST_F(InterfaceFile, LeavesTheMarginsOfPopUpButtonsFree) {
    EXPECT_TRUE(NSEqualRects([view([NSPopUpButton class]) frame], NSMakeRect(20, 150, 200, 26)));
}

TEST_F(InterfaceFile, KeepsTheContentOfABoxWithoutATitle) {
    auto *box = static_cast<NSBox *>(view([NSBox class]));
    ASSERT_NE(box, nil);
    EXPECT_TRUE(NSEqualSizes([[box contentView] frame].size, NSMakeSize(400, 100)));
    NSView *inner = [[[box contentView] subviews] objectAtIndex:0];
    EXPECT_TRUE(NSEqualRects([inner frame], NSMakeRect(10, 20, 30, 40)));
}

TEST(PopUpButton, TakesManyTitlesAndKeepsOneOfEach) {
    platform::prepareAppKit();
    NSPopUpButton *button = [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(0, 0, 100, 26) pullsDown:NO] autorelease];
    [button addItemsWithTitles:@[ @"a", @"b", @"a", @"c" ]];
    EXPECT_TRUE(([[button itemTitles] isEqual:@[ @"b", @"a", @"c" ]]));
    EXPECT_GE([button indexOfSelectedItem], 0);
    [button addItemsWithTitles:@[ @"b" ]];
    EXPECT_TRUE(([[button itemTitles] isEqual:@[ @"a", @"c", @"b" ]]));
}

TEST(LinkColor, IsReadableOnTextBackgrounds) {
    NSColor *link = [[NSColor linkColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    NSColor *paper = [[NSColor textBackgroundColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    ASSERT_NE(link, nil);
    const auto luminance = [](NSColor *color) {
        return 0.2126 * std::pow([color redComponent], 2.2) + 0.7152 * std::pow([color greenComponent], 2.2) +
               0.0722 * std::pow([color blueComponent], 2.2);
    };
    const double a = luminance(link) + 0.05;
    const double b = luminance(paper) + 0.05;
    EXPECT_GT(std::max(a, b) / std::min(a, b), 4.5);
}

} // namespace
