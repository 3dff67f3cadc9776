// The slides of a document as a column of small pictures, or as a grid in which they are moved by dragging.
#pragma once

#import "Platform.h"

#import "Bridge.h"
#import "SHSlideView.h"

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

/// Lies in a scroll view, whose width it takes. Flipped; its frame is at least as high as the visible part.
@interface SHSlideListView : NSView {
    std::vector<samplehost::ShownSlide> _slides;
    std::vector<std::size_t> _visible;
    std::set<std::size_t> _highlighted;
    std::map<std::string, samplehost::Owned<NSImage>> _pictures;
    std::size_t _selected;
    std::size_t _dragged;
    std::size_t _dropAt;
    NSPoint _pressedAt;
    bool _grid;
    bool _dragging;
    std::function<void(std::size_t)> _selectHandler;
    std::function<void(std::size_t)> _openHandler;
    std::function<void(std::size_t, std::size_t)> _moveHandler;
}

/// A grid instead of a column.
- (void)setGrid:(bool)grid;
/// The slides, which of them are shown (in order), and which of them stand out.
- (void)setSlides:(std::vector<samplehost::ShownSlide>)slides
          visible:(std::vector<std::size_t>)visible
      highlighted:(std::set<std::size_t>)highlighted;
- (void)select:(std::size_t)slide;
/// Adapts the frame to the scroll view's size.
- (void)fit;

/// A slide was clicked; a slide was double-clicked or opened with Return; a slide was dropped at another place.
- (void)setSelectHandler:(std::function<void(std::size_t)>)handler;
- (void)setOpenHandler:(std::function<void(std::size_t)>)handler;
- (void)setMoveHandler:(std::function<void(std::size_t from, std::size_t to)>)handler;

@end
