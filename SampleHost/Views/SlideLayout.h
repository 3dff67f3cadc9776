// The places of a slide's blocks.
#pragma once

#import "Platform.h"

#include "Bridge.h"
#include "SlideContent.h"
#include "SlideRenderer.h"

#include <vector>

namespace samplehost {

/// A block with the text as it is drawn and its place, in the units of where it is drawn; y grows downwards from the
/// slide's top.
struct PlacedBlock {
    BlockKind kind = BlockKind::paragraph;
    Owned<NSAttributedString> text;
    Owned<NSAttributedString> marker;
    Owned<NSImage> image;
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    double markerWidth = 0;
    /// Of a table: its cells' texts row by row, and the heights of its rows.
    std::vector<std::vector<Owned<NSAttributedString>>> cells;
    std::vector<double> rowHeights;
};

/// Space around code and in the cells of tables, in slide points.
inline constexpr double codePadding = 26;
inline constexpr double cellPadding = 14;
inline constexpr double quoteInset = 48;

/// Lays a slide out; text that is too much for the slide is made smaller until it fits or is hard to read. One slide
/// point becomes `unit` points: text is laid out in the size in which it is drawn, as scaled glyphs stand unevenly.
std::vector<PlacedBlock> layOut(const Slide &slide, const SlideStyle &style, double unit);

} // namespace samplehost
