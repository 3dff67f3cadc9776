#import "SlideLayout.h"

#import "Fonts.h"

#include <algorithm>
#include <cmath>

namespace samplehost {

namespace {

constexpr double sideMargin = 120;
constexpr double topMargin = 90;
constexpr double bottomMargin = 100;
constexpr double smallestScale = 0.35;

struct TextLook {
    Family family;
    double size;
    Color color;
    bool bold;
    NSTextAlignment alignment = NSLeftTextAlignment;
};

double heightOf(NSAttributedString *text, double width) {
    const NSRect bounds = [text boundingRectWithSize:NSMakeSize(width, 1e5)
                                             options:NSStringDrawingUsesLineFragmentOrigin];
    return std::ceil(NSHeight(bounds));
}

NSDictionary<NSString *, id> *attributesOf(const Run &run, const TextLook &look, const SlideTheme &theme) {
    NSMutableParagraphStyle *paragraph = [[[NSMutableParagraphStyle alloc] init] autorelease];
    [paragraph setAlignment:look.alignment];
    [paragraph setLineSpacing:look.size * 0.22];
    const auto family = run.code ? Family::mono : look.family;
    const auto size = run.code && look.family != Family::mono ? look.size * 0.9 : look.size;
    NSMutableDictionary<NSString *, id> *attributes = [NSMutableDictionary dictionary];
    [attributes setObject:paragraph forKey:NSParagraphStyleAttributeName];
    [attributes setObject:fontOf(family, size, look.bold || run.bold, run.italic) forKey:NSFontAttributeName];
    const bool accented = run.link || (run.code && look.family != Family::mono);
    [attributes setObject:toNSColor(accented ? theme.accent : look.color) forKey:NSForegroundColorAttributeName];
    if (run.link) {
        [attributes setObject:[NSNumber numberWithInt:NSUnderlineStyleSingle] forKey:NSUnderlineStyleAttributeName];
    }
    return attributes;
}

Owned<NSAttributedString> styled(const std::vector<Run> &runs, const TextLook &look, const SlideTheme &theme) {
    NSMutableAttributedString *text = [[NSMutableAttributedString alloc] init];
    for (const Run &run : runs) {
        NSAttributedString *piece = [[NSAttributedString alloc] initWithString:toNSString(run.text)
                                                                    attributes:attributesOf(run, look, theme)];
        [text appendAttributedString:piece];
        [piece release];
    }
    return own<NSAttributedString>(text);
}

NSImage *imageAt(const std::string &path, const std::string &directory) {
    NSString *name = toNSString(path);
    if (![name isAbsolutePath]) {
        name = [toNSString(directory) stringByAppendingPathComponent:name];
    }
    BOOL isDirectory = NO;
    if (![[NSFileManager defaultManager] fileExistsAtPath:name isDirectory:&isDirectory] || isDirectory) {
        return nil;
    }
    return [[[NSImage alloc] initWithContentsOfFile:name] autorelease];
}

/// Lays blocks out at one scale of the text.
class Layouter {
public:
    /// `scale` is that of the text alone.
    Layouter(const SlideStyle &style, double unit, double scale, bool isTitle)
        : style_(style), unit_(unit), scale_(scale * unit), isTitle_(isTitle) {
        width_ = (style.size.width - 2 * sideMargin) * unit;
    }

    std::vector<PlacedBlock> placed;

    /// The height of everything but the images, which take what is left.
    double place(const std::vector<Block> &blocks) {
        double y = 0;
        for (const Block &block : blocks) {
            PlacedBlock place = measured(block);
            y += placed.empty() ? 0 : gapBefore(block.kind);
            place.y = y;
            y += place.height;
            placed.push_back(std::move(place));
        }
        return y;
    }

    /// Gives the images their share of the free height and moves everything to where it stands on the slide.
    void settle(double used, double available) {
        const auto isImage = [](const PlacedBlock &block) { return static_cast<bool>(block.image); };
        const auto images = std::ranges::count_if(placed, isImage);
        const double share = images > 0 ? std::max((available - used) / static_cast<double>(images), 60 * unit_) : 0;
        double shift = topMargin * unit_;
        if (isTitle_) {
            shift += std::max(0.0, (available - used - share * static_cast<double>(images)) * 0.45);
        }
        for (PlacedBlock &block : placed) {
            block.y += shift;
            if (block.image) {
                fitImage(block, share);
                shift += block.height;
            }
        }
    }

private:
    double gapBefore(BlockKind kind) const {
        const double base = kind == BlockKind::listItem ? 18 : 34;
        return base * scale_;
    }

    void fitImage(PlacedBlock &block, double height) const {
        const NSSize size = [block.image.get() size];
        const double factor = std::min(width_ / std::max(size.width, 1.0), height / std::max(size.height, 1.0));
        block.width = size.width * factor;
        block.height = size.height * factor;
        block.x = sideMargin * unit_ + (width_ - block.width) / 2;
    }

    TextLook lookOf(const Block &block) const {
        const SlideTheme &theme = style_.theme;
        const auto family = theme.serifText ? Family::serif : Family::sans;
        switch (block.kind) {
        case BlockKind::heading: {
            const double sizes[] = {isTitle_ ? 104.0 : 72.0, isTitle_ ? 64.0 : 58.0, 50, 44, 42, 42};
            const auto level = static_cast<std::size_t>(std::clamp(block.level, 1, 6) - 1);
            return {theme.serifHeadings ? Family::serif : Family::sans, sizes[level] * scale_,
                    level == 0 || !isTitle_ ? theme.heading : theme.text, level < 2 || !isTitle_};
        }
        case BlockKind::code:
            return {Family::mono, 34 * scale_, theme.text, false};
        case BlockKind::footnote:
            return {family, 24 * scale_, theme.text, false};
        case BlockKind::table:
            return {family, 34 * scale_, theme.text, false};
        default:
            return {family, 42 * scale_, theme.text, false};
        }
    }

    PlacedBlock measured(const Block &block) const {
        PlacedBlock place;
        place.kind = block.kind;
        place.x = sideMargin * unit_;
        place.width = width_;
        const TextLook look = lookOf(block);
        switch (block.kind) {
        case BlockKind::image:
            measureImage(block, look, place);
            return place;
        case BlockKind::table:
            measureTable(block, look, place);
            return place;
        case BlockKind::rule:
            place.height = 4 * unit_;
            return place;
        default:
            break;
        }
        double inset = 0;
        if (!block.marker.empty() || block.kind == BlockKind::listItem) {
            inset = look.size * (block.kind == BlockKind::footnote ? 1.2 : 1.5) * std::max(block.level, 1);
            place.markerWidth = look.size * 1.5;
            if (!block.marker.empty()) {
                const TextLook markerLook{look.family, look.size, style_.theme.accent, true};
                place.marker = styled({{.text = block.marker}}, markerLook, style_.theme);
            }
        } else if (block.kind == BlockKind::quote) {
            inset = quoteInset * unit_;
        } else if (block.kind == BlockKind::code) {
            inset = codePadding * unit_;
        }
        place.text = styled(block.runs, look, style_.theme);
        place.x += inset;
        place.width -= block.kind == BlockKind::code ? 2 * inset : inset;
        place.height = heightOf(place.text.get(), place.width);
        if (block.kind == BlockKind::code) {
            place.height += 2 * codePadding * unit_;
        }
        return place;
    }

    void measureImage(const Block &block, const TextLook &look, PlacedBlock &place) const {
        if (NSImage *image = imageAt(block.path, style_.directory); image != nil && [image isValid]) {
            place.image = keep(image);
            return;
        }
        place.kind = BlockKind::code;
        const auto description = plainText(block.runs);
        place.text = styled({{.text = "Missing image: " + (description.empty() ? block.path : description)}}, look,
                            style_.theme);
        place.x += codePadding * unit_;
        place.width -= 2 * codePadding * unit_;
        place.height = heightOf(place.text.get(), place.width) + 2 * codePadding * unit_;
    }

    void measureTable(const Block &block, const TextLook &look, PlacedBlock &place) const {
        std::size_t columns = 1;
        for (const auto &row : block.rows) {
            columns = std::max(columns, row.size());
        }
        const double cellWidth = width_ / static_cast<double>(columns) - 2 * cellPadding * unit_;
        for (const auto &row : block.rows) {
            TextLook rowLook = look;
            rowLook.bold = place.cells.empty();
            rowLook.color = place.cells.empty() ? style_.theme.heading : look.color;
            double height = look.size;
            auto &cells = place.cells.emplace_back();
            for (const auto &cell : row) {
                cells.push_back(styled(cell, rowLook, style_.theme));
                height = std::max(height, heightOf(cells.back().get(), std::max(cellWidth, 20 * unit_)));
            }
            place.rowHeights.push_back(height + 2 * cellPadding * unit_);
            place.height += place.rowHeights.back();
        }
    }

    const SlideStyle &style_;
    double unit_;
    double scale_;
    bool isTitle_;
    double width_ = 0;
};

/// A slide of a heading and little else stands in the middle.
bool isTitleSlide(const std::vector<Block> &blocks) {
    const auto plain = [](const Block &block) {
        return block.kind == BlockKind::heading ||
               (block.kind == BlockKind::paragraph && plainText(block.runs).size() < 160);
    };
    return !blocks.empty() && blocks.size() <= 3 && blocks.front().kind == BlockKind::heading &&
           blocks.front().level == 1 && std::ranges::all_of(blocks, plain);
}

} // namespace

std::vector<PlacedBlock> layOut(const Slide &slide, const SlideStyle &style, double unit) {
    const auto blocks = blocksOf(slide.markdown);
    const bool isTitle = isTitleSlide(blocks);
    const bool hasImage = std::ranges::any_of(blocks, [](const Block &b) { return b.kind == BlockKind::image; });
    const double available = (style.size.height - topMargin - bottomMargin) * unit;
    const double wanted = hasImage ? available * 0.6 : available;
    for (double scale = 1;; scale *= 0.9) {
        Layouter layouter(style, unit, scale, isTitle);
        const double used = layouter.place(blocks);
        if (used <= wanted || scale < smallestScale) {
            layouter.settle(used, available);
            return std::move(layouter.placed);
        }
    }
}

} // namespace samplehost
