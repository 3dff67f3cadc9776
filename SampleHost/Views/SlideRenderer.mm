#import "SlideRenderer.h"

#import "Bridge.h"
#import "Fonts.h"
#import "SlideLayout.h"

#include <algorithm>
#include <cmath>

namespace samplehost {

namespace {

constexpr double footMargin = 40;

/// Saves the graphics state as long as it lives.
class GraphicsState {
public:
    GraphicsState() { [NSGraphicsContext saveGraphicsState]; }
    ~GraphicsState() { [NSGraphicsContext restoreGraphicsState]; }
    GraphicsState(const GraphicsState &) = delete;
    GraphicsState &operator=(const GraphicsState &) = delete;
};

void fill(NSRect rect, Color color, double alpha = 1) {
    [toNSColor(color, alpha) set];
    [[NSBezierPath bezierPathWithRect:rect] fill];
}

void fillRounded(NSRect rect, double radius, Color color) {
    [toNSColor(color) set];
    [[NSBezierPath bezierPathWithRoundedRect:rect xRadius:radius yRadius:radius] fill];
}

/// The background in bands: a gradient that every drawing back end can do.
void drawBackground(const SlideStyle &style) {
    const SlideTheme &theme = style.theme;
    const double width = style.size.width;
    const double height = style.size.height;
    fill(NSMakeRect(0, 0, width, height), theme.backgroundTop);
    if (theme.backgroundTop == theme.backgroundBottom) {
        return;
    }
    constexpr int bands = 48;
    for (int i = 0; i < bands; ++i) {
        const double part = (i + 0.5) / bands;
        const auto mix = [part, &theme](unsigned shift) {
            const double top = (theme.backgroundTop >> shift) & 0xFFU;
            const double bottom = (theme.backgroundBottom >> shift) & 0xFFU;
            return (top + (bottom - top) * part) / 255;
        };
        [[NSColor colorWithCalibratedRed:mix(16) green:mix(8) blue:mix(0) alpha:1] set];
        const double y = height * (bands - 1 - i) / bands;
        [[NSBezierPath bezierPathWithRect:NSMakeRect(0, y, width, height / bands + 1)] fill];
    }
}

void drawDecoration(const SlideStyle &style) {
    const SlideTheme &theme = style.theme;
    const double width = style.size.width;
    const double height = style.size.height;
    switch (theme.decoration) {
    case Decoration::none:
        break;
    case Decoration::bandAtTop:
        fill(NSMakeRect(0, height - 26, width, 26), theme.accent);
        break;
    case Decoration::barAtLeft:
        fill(NSMakeRect(0, 0, 30, height), theme.accent);
        break;
    case Decoration::underline:
        fill(NSMakeRect(120, 66, 180, 5), theme.accent);
        break;
    case Decoration::frame: {
        [toNSColor(theme.accent) set];
        NSBezierPath *path = [NSBezierPath bezierPathWithRoundedRect:NSMakeRect(28, 28, width - 56, height - 56)
                                                             xRadius:14
                                                             yRadius:14];
        [path setLineWidth:5];
        [path stroke];
        break;
    }
    case Decoration::corner: {
        [toNSColor(theme.accent, 0.22) set];
        [[NSBezierPath bezierPathWithOvalInRect:NSMakeRect(width - 330, height - 300, 560, 560)] fill];
        [toNSColor(theme.accent, 0.5) set];
        [[NSBezierPath bezierPathWithOvalInRect:NSMakeRect(width - 130, height - 130, 260, 260)] fill];
        break;
    }
    }
}

/// Draws blocks and the foot in the rectangle of a slide whose lower left corner is the origin.
class ContentDrawer {
public:
    ContentDrawer(const SlideStyle &style, double unit)
        : style_(style), unit_(unit), width_(style.size.width * unit), height_(style.size.height * unit) {}

    void drawBlock(const PlacedBlock &block) const {
        const double bottom = height_ - block.y - block.height;
        double textTop = block.y;
        double textHeight = block.height;
        if (block.image) {
            [block.image.get() drawInRect:NSMakeRect(block.x, bottom, block.width, block.height)
                                 fromRect:NSZeroRect
                                operation:NSCompositeSourceOver
                                 fraction:1];
            return;
        }
        switch (block.kind) {
        case BlockKind::table:
            drawTable(block);
            return;
        case BlockKind::rule:
            fill(NSMakeRect(block.x, bottom, block.width, 3 * unit_), style_.theme.accent, 0.6);
            return;
        case BlockKind::quote:
            fillRounded(NSMakeRect(block.x - quoteInset * unit_, bottom, 8 * unit_, block.height), 4 * unit_,
                        style_.theme.accent);
            break;
        case BlockKind::code: {
            const double padding = codePadding * unit_;
            fillRounded(NSMakeRect(block.x - padding, bottom, block.width + 2 * padding, block.height), 14 * unit_,
                        style_.theme.codeBackground);
            textTop += padding;
            textHeight -= 2 * padding;
            break;
        }
        default:
            break;
        }
        if (block.marker) {
            drawText(block.marker.get(), block.x - block.markerWidth, textTop, block.markerWidth, textHeight);
        }
        drawText(block.text.get(), block.x, textTop, block.width, textHeight);
    }

    void drawFoot() const {
        const double half = width_ / 2 - 130 * unit_;
        const double top = height_ - (footMargin + 34) * unit_;
        if (!style_.footer.empty()) {
            const double below = style_.theme.decoration == Decoration::underline ? 12 * unit_ : 0;
            drawText(footText(style_.footer, NSLeftTextAlignment), 120 * unit_, top + below, half, 34 * unit_);
        }
        if (style_.number > 0) {
            drawText(footText(std::to_string(style_.number), NSRightTextAlignment), width_ / 2, top, half + 10 * unit_,
                     34 * unit_);
        }
    }

private:
    /// Draws text whose top left corner stands `y` below the slide's top. The rectangle is a little larger than the
    /// text was measured: rounding must not take its last line.
    void drawText(NSAttributedString *text, double x, double y, double width, double height) const {
        [text drawWithRect:NSMakeRect(x, height_ - y - height - 2, width + 1, height + 2)
                   options:NSStringDrawingUsesLineFragmentOrigin];
    }

    void drawTable(const PlacedBlock &block) const {
        const double padding = cellPadding * unit_;
        std::size_t columns = 1;
        for (const auto &row : block.cells) {
            columns = std::max(columns, row.size());
        }
        const double cellWidth = block.width / static_cast<double>(columns);
        double y = block.y;
        for (std::size_t row = 0; row < block.cells.size(); ++row) {
            const double height = block.rowHeights[row];
            const NSRect line = NSMakeRect(block.x, height_ - y - height, block.width, height);
            if (row == 0) {
                fillRounded(line, 6 * unit_, style_.theme.codeBackground);
            }
            fill(NSMakeRect(NSMinX(line), NSMinY(line), NSWidth(line), std::max(2 * unit_, 0.5)), style_.theme.accent,
                 row == 0 ? 1 : 0.35);
            for (std::size_t column = 0; column < block.cells[row].size(); ++column) {
                drawText(block.cells[row][column].get(), block.x + cellWidth * static_cast<double>(column) + padding,
                         y + padding, std::max(cellWidth - 2 * padding, 20 * unit_), height - 2 * padding);
            }
            y += height;
        }
    }

    NSAttributedString *footText(const std::string &text, NSTextAlignment alignment) const {
        NSMutableParagraphStyle *paragraph = [[[NSMutableParagraphStyle alloc] init] autorelease];
        [paragraph setAlignment:alignment];
        [paragraph setLineBreakMode:NSLineBreakByTruncatingTail];
        NSDictionary<NSString *, id> *attributes = @{
            NSFontAttributeName : fontOf(Family::sans, 24 * unit_, false, false),
            NSForegroundColorAttributeName : toNSColor(style_.theme.text, 0.75),
            NSParagraphStyleAttributeName : paragraph
        };
        return [[[NSAttributedString alloc] initWithString:toNSString(text) attributes:attributes] autorelease];
    }

    const SlideStyle &style_;
    double unit_;
    double width_;
    double height_;
};

/// Shapes are drawn in slide points: they scale without loss.
void drawGround(const SlideStyle &style, double unit) {
    const GraphicsState state;
    NSAffineTransform *scaling = [NSAffineTransform transform];
    [scaling scaleBy:unit];
    [scaling concat];
    drawBackground(style);
    drawDecoration(style);
}

/// The slide as pixels.
Owned<NSBitmapImageRep> pictureOf(const Slide &slide, const SlideStyle &style, double width) {
    const NSSize size = NSMakeSize(std::ceil(width), std::ceil(width * style.size.height / style.size.width));
    const NSRect all = NSMakeRect(0, 0, size.width, size.height);
    const auto image = own([[NSImage alloc] initWithSize:size]);
    [image.get() lockFocus];
    drawSlide(slide, style, all);
    auto bitmap = own([[NSBitmapImageRep alloc] initWithFocusedViewRect:all]);
    [image.get() unlockFocus];
    return bitmap;
}

/// The picture with each square of `factor` by `factor` pixels made one.
Owned<NSBitmapImageRep> reduced(NSBitmapImageRep *large, NSInteger factor) {
    const NSInteger width = std::max<NSInteger>([large pixelsWide] / factor, 1);
    const NSInteger height = std::max<NSInteger>([large pixelsHigh] / factor, 1);
    auto small = own([[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                                             pixelsWide:width
                                                             pixelsHigh:height
                                                          bitsPerSample:8
                                                        samplesPerPixel:3
                                                               hasAlpha:NO
                                                               isPlanar:NO
                                                         colorSpaceName:NSDeviceRGBColorSpace
                                                            bytesPerRow:0
                                                           bitsPerPixel:24]);
    const unsigned char *source = [large bitmapData];
    unsigned char *target = [small.get() bitmapData];
    const NSInteger sourceRow = [large bytesPerRow];
    const NSInteger sourcePixel = [large bitsPerPixel] / 8;
    const NSInteger targetRow = [small.get() bytesPerRow];
    if (source == nullptr || target == nullptr || sourcePixel < 3) {
        return small;
    }
    for (NSInteger y = 0; y < height; ++y) {
        for (NSInteger x = 0; x < width * 3; ++x) {
            const unsigned char *corner = source + y * factor * sourceRow + (x / 3) * factor * sourcePixel + x % 3;
            int sum = 0;
            for (NSInteger i = 0; i < factor * factor; ++i) {
                sum += corner[i / factor * sourceRow + i % factor * sourcePixel];
            }
            target[y * targetRow + x] = static_cast<unsigned char>(sum / (factor * factor));
        }
    }
    return small;
}

/// Darkens the picture's edge: a white slide on a white ground still has one.
void outline(NSBitmapImageRep *picture) {
    unsigned char *data = [picture bitmapData];
    const NSInteger width = [picture pixelsWide];
    const NSInteger height = [picture pixelsHigh];
    for (NSInteger y = 0; data != nullptr && y < height; ++y) {
        for (NSInteger x = 0; x < width; ++x) {
            if (x > 0 && y > 0 && x < width - 1 && y < height - 1) {
                continue;
            }
            unsigned char *pixel = data + y * [picture bytesPerRow] + x * 3;
            for (int i = 0; i < 3; ++i) {
                pixel[i] = static_cast<unsigned char>((pixel[i] + 2 * 0x90) / 3);
            }
        }
    }
}

} // namespace

NSRect slideRect(const SlideSize &size, NSRect area) {
    const double scale = std::min(NSWidth(area) / size.width, NSHeight(area) / size.height);
    const double width = std::floor(size.width * scale);
    const double height = std::floor(size.height * scale);
    return NSMakeRect(std::round(NSMidX(area) - width / 2), std::round(NSMidY(area) - height / 2), width, height);
}

void drawSlide(const Slide &slide, const SlideStyle &style, NSRect target) {
    if (NSWidth(target) < 1 || NSHeight(target) < 1) {
        return;
    }
    const GraphicsState state;
    NSRectClip(target);
    NSAffineTransform *place = [NSAffineTransform transform];
    [place translateXBy:NSMinX(target) yBy:NSMinY(target)];
    [place concat];
    const double unit = NSWidth(target) / style.size.width;
    drawGround(style, unit);
    const ContentDrawer drawer(style, unit);
    for (const PlacedBlock &block : layOut(slide, style, unit)) {
        drawer.drawBlock(block);
    }
    drawer.drawFoot();
}

NSImage *slideImage(const Slide &slide, const SlideStyle &style, double width) {
    // Drawn large and reduced: letters of four points have no shape of their own.
    constexpr NSInteger factor = 3;
    const auto large = pictureOf(slide, style, width * factor);
    const auto small = reduced(large.get(), factor);
    NSImage *image = [[[NSImage alloc] initWithSize:[small.get() size]] autorelease];
    // It is pixels already; a copy in the window server can get lost when displays change.
    [image setCacheMode:NSImageCacheNever];
    [image addRepresentation:small.get()];
    return image;
}

bool writeSlidePicture(const Slide &slide, const SlideStyle &style, double width, NSString *path) {
    constexpr NSInteger factor = 3;
    const auto picture = reduced(pictureOf(slide, style, width * factor).get(), factor);
    outline(picture.get());
    NSData *data = [picture.get() representationUsingType:NSPNGFileType properties:@{}];
    return data != nil && [data writeToFile:path atomically:YES];
}

} // namespace samplehost
