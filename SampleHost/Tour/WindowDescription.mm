#import "WindowDescription.h"

#import "Platform.h"

#include <boost/json.hpp>

#include <cstdio>
#include <fstream>
#include <unistd.h>

namespace json = boost::json;

namespace samplehost {

namespace {

// The text that a view shows, or nil. Asked by selector: views of many classes have one of these.
NSString *shownText(NSView *view) {
    if ([view isKindOfClass:[NSPopUpButton class]]) {
        return [(NSPopUpButton *)view titleOfSelectedItem];
    }
    if ([view isKindOfClass:[NSButton class]] || [view isKindOfClass:[NSBox class]]) {
        return [(NSButton *)view title];
    }
    if ([view isKindOfClass:[NSTextField class]]) {
        return [(NSTextField *)view stringValue];
    }
    if ([view isKindOfClass:[NSText class]]) {
        NSString *string = [(NSText *)view string];
        return [string length] > 4000 ? [string substringToIndex:4000] : string;
    }
    if ([view respondsToSelector:@selector(toolbarItem)]) {
        return [(NSToolbarItem *)[view performSelector:@selector(toolbarItem)] label];
    }
    return nil;
}

json::array frameOnScreen(NSView *view, NSRect rectangle) {
    NSWindow *window = [view window];
    const NSRect inWindow = [view convertRect:rectangle toView:nil];
    const NSPoint origin = [window convertBaseToScreen:inWindow.origin];
    // The X screen's height: the bottom of AppKit's coordinates lies at the bottom of the whole X screen.
    CGFloat top = 0;
    for (NSScreen *screen in [NSScreen screens]) {
        top = std::max(top, NSMaxY([screen frame]));
    }
    return {origin.x, top - origin.y - NSHeight(inWindow), NSWidth(inWindow), NSHeight(inWindow)};
}

void describeMenuItems(NSMenuView *menuView, json::array &views) {
    NSMenu *menu = [menuView menu];
    for (NSInteger index = 0; index < [menu numberOfItems]; index++) {
        NSMenuItem *item = [menu itemAtIndex:index];
        views.push_back(json::object{
            {"class", "NSMenuItem"},
            {"text", [[item title] UTF8String]},
            {"frame", frameOnScreen(menuView, [menuView rectOfItemAtIndex:index])},
            {"enabled", static_cast<bool>([item isEnabled])},
            {"separator", static_cast<bool>([item isSeparatorItem])},
        });
    }
}

json::object describeView(NSView *view, int depth) {
    json::object object{
        {"class", [NSStringFromClass([view class]) UTF8String]},
        {"frame", frameOnScreen(view, [view bounds])},
        {"visible", frameOnScreen(view, [view visibleRect])},
        {"size", json::array{NSWidth([view bounds]), NSHeight([view bounds])}},
        {"depth", depth},
    };
    if (NSString *text = shownText(view);[text length] > 0) {
        object["text"] = [text UTF8String];
    }
    if ([[view toolTip] length] > 0) {
        object["tip"] = [[view toolTip] UTF8String];
    }
    if ([view isKindOfClass:[NSControl class]]) {
        NSControl *control = (NSControl *)view;
        object["enabled"] = static_cast<bool>([control isEnabled]);
        if ([control cell] != nil && ![view isKindOfClass:[NSMatrix class]] &&
            ![view isKindOfClass:[NSTableView class]]) {
            const NSSize size = [[control cell] cellSize];
            object["needs"] = json::array{size.width, size.height};
        }
        if ([view isKindOfClass:[NSButton class]]) {
            object["state"] = [(NSButton *)view state];
        }
    }
    if ([[view window] firstResponder] == view) {
        object["focused"] = true;
    }
    return object;
}

void describeTree(NSView *view, int depth, json::array &views) {
    if ([view isHidden] || [view alphaValue] <= 0) {
        return;
    }
    views.push_back(describeView(view, depth));
    if ([view isKindOfClass:[NSMenuView class]]) {
        describeMenuItems((NSMenuView *)view, views);
        return;
    }
    for (NSView *child in [view subviews]) {
        describeTree(child, depth + 1, views);
    }
}

} // namespace

std::string describeWindows() {
    json::array windows;
    for (NSWindow *window in [NSApp windows]) {
        if (![window isVisible] || [window contentView] == nil) {
            continue;
        }
        NSView *root = [window contentView];
        while ([root superview] != nil) {
            root = [root superview];
        }
        json::array views;
        describeTree(root, 0, views);
        windows.push_back(json::object{
            {"title", [[window title] ?: @"" UTF8String]},
            {"class", [NSStringFromClass([window class]) UTF8String]},
            {"key", static_cast<bool>([window isKeyWindow])},
            {"frame", frameOnScreen(root, [root bounds])},
            {"content", frameOnScreen([window contentView], [[window contentView] bounds])},
            {"views", std::move(views)},
        });
    }
    return json::serialize(json::object{{"windows", std::move(windows)}});
}

} // namespace samplehost

@interface QVDescriptionResponder : NSObject {
    std::string _path;
}
- (instancetype)initWithPath:(const std::string &)path;
- (void)lookForRequest:(NSTimer *)timer;
@end

@implementation QVDescriptionResponder

- (instancetype)initWithPath:(const std::string &)path {
    if ((self = [super init]) != nil) {
        _path = path;
    }
    return self;
}

- (void)lookForRequest:(NSTimer *)timer {
    const std::string request = _path + ".request";
    if (access(request.c_str(), F_OK) != 0) {
        return;
    }
    // Written aside and renamed, so that a reader never sees half of it.
    const std::string written = _path + ".new";
    std::ofstream(written) << samplehost::describeWindows();
    std::rename(written.c_str(), _path.c_str());
    std::remove(request.c_str());
}

@end

namespace samplehost {

void answerDescriptionRequests(const std::string &path) {
    QVDescriptionResponder *responder = [[QVDescriptionResponder alloc] initWithPath:path];
    NSTimer *timer = [NSTimer timerWithTimeInterval:0.03
                                             target:responder
                                           selector:@selector(lookForRequest:)
                                           userInfo:nil
                                            repeats:YES];
    for (NSString *mode in @[ NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode ]) {
        [[NSRunLoop mainRunLoop] addTimer:timer forMode:mode];
    }
    [responder release];
}

} // namespace samplehost
