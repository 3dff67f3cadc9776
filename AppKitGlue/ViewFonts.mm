#import "ViewFonts.h"

#import "Platform.h"
#import "StringBridging.h"

#include "ColorContrast.h"

#include <cmath>
#include <memory>
#include <unordered_map>

namespace appkitglue::ui {

namespace {

Size measured(const Text &text, double width) {
    const NSSize bounds = NSMakeSize(std::isinf(width) ? 1e6 : width, 1e6);
    const NSRect rect = [attributedText(text) boundingRectWithSize:bounds
                                                           options:NSStringDrawingUsesLineFragmentOrigin];
    return {std::ceil(rect.size.width), std::ceil(rect.size.height)};
}

// A text is measured once in one line and, only where it does not fit, once for each narrower width.
class TextSizes {
public:
    Size size(const std::string &text, FontRole font, double width) {
        const Text styled{.text = text, .isKey = false, .font = font, .color = {}};
        const std::string key = std::to_string(int(font)) + text;
        const auto whole = m_sizes.find(key);
        const Size oneLine = whole != m_sizes.end() ? whole->second : (m_sizes[key] = measured(styled, INFINITY));
        if (oneLine.width <= width)
            return oneLine;
        auto &broken = m_brokenSizes[std::to_string(std::floor(width)) + key];
        if (!broken)
            broken = measured(styled, std::max(1.0, std::floor(width)));
        return *broken;
    }

private:
    std::unordered_map<std::string, Size> m_sizes;
    std::unordered_map<std::string, std::optional<Size>> m_brokenSizes;
};

RGB rgb(NSColor *color) {
    NSColor *const plain = [color colorUsingColorSpaceName:NSDeviceRGBColorSpace];
    return plain ? RGB{[plain redComponent], [plain greenComponent], [plain blueComponent]} : RGB{};
}

double verticalScrollerWidth() {
    const NSSize size = NSMakeSize(100, 100);
    return 100 - [NSScrollView contentSizeForFrameSize:size
                                 hasHorizontalScroller:NO
                                   hasVerticalScroller:YES
                                            borderType:NSNoBorder]
                     .width;
}

} // namespace

NSFont *fontFor(FontRole role) {
    const double size = [NSFont systemFontSize];
    switch (role) {
    case FontRole::title:
        return [NSFont systemFontOfSize:std::round(size * 22 / 13)];
    case FontRole::headline:
        return [NSFont boldSystemFontOfSize:size];
    case FontRole::subheadline:
        return [NSFont systemFontOfSize:[NSFont smallSystemFontSize]];
    case FontRole::body:
        return [NSFont systemFontOfSize:size];
    }
    return nil;
}

NSColor *colorFor(ColorRole role) {
    switch (role) {
    case ColorRole::label:
        return [NSColor controlTextColor];
    case ColorRole::accent:
        return [NSColor controlAccentColor];
    case ColorRole::white:
        return [NSColor whiteColor];
    case ColorRole::controlBackground:
        return [NSColor controlBackgroundColor];
    }
    return nil;
}

NSColor *inkFor(ColorRole role) {
    NSColor *const color = colorFor(role);
    if (role != ColorRole::accent)
        return color;
    NSColor *const text = [NSColor controlTextColor];
    const double share = inkNeeded(rgb(color), rgb(text), rgb([NSColor windowBackgroundColor]));
    if (share == 0)
        return color;
    NSColor *const plain = [color colorUsingColorSpaceName:NSDeviceRGBColorSpace];
    return [plain blendedColorWithFraction:share ofColor:[text colorUsingColorSpaceName:NSDeviceRGBColorSpace]];
}

NSAttributedString *attributedText(const Text &text) {
    NSDictionary *attributes = @{
        NSFontAttributeName : fontFor(text.font.value_or(FontRole::body)),
        NSForegroundColorAttributeName : inkFor(text.color.value_or(ColorRole::label)),
    };
    return [[[NSAttributedString alloc] initWithString:toNSString(text.text) attributes:attributes] autorelease];
}

LayoutEnvironment appKitLayoutEnvironment() {
    return {[sizes = std::make_shared<TextSizes>()](const std::string &text, FontRole font, double width) {
                return sizes->size(text, font, width);
            },
            verticalScrollerWidth()};
}

ViewEnvironment workspaceEnvironment() {
    return {[](const std::string &address) {
        NSURL *url = [NSURL URLWithString:toNSString(address)];
        // Without a scheme no program can be responsible for it.
        if ([[url scheme] length] > 0)
            [[NSWorkspace sharedWorkspace] openURL:url];
    }};
}

} // namespace appkitglue::ui
