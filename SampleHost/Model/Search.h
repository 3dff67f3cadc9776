// Finding text on slides.
#pragma once

#include "Deck.h"

#include <string_view>
#include <vector>

namespace samplehost {

/// Where a text was found: the slide and the byte range in the document.
struct SearchHit {
    std::size_t slide = 0;
    TextRange range;

    bool operator==(const SearchHit&) const = default;
};

/// Every place in `text` where `wanted` stands, whatever the case, in order, without overlaps. Nothing for an empty
/// or blank `wanted`.
std::vector<SearchHit> findInDeck(const Deck& deck, std::string_view text, std::string_view wanted);

} // namespace samplehost
