#include "Search.h"

namespace samplehost {

std::vector<SearchHit> findInDeck(const Deck& deck, std::string_view text, std::string_view wanted) {
    std::vector<SearchHit> hits;
    if (trimmed(wanted).empty()) {
        return hits;
    }
    const auto folded = caseFolded(text);
    const auto needle = caseFolded(wanted);
    for (auto at = folded.find(needle); at != std::string::npos; at = folded.find(needle, at + needle.size())) {
        hits.push_back({deck.slideAt(at), {at, needle.size()}});
    }
    return hits;
}

} // namespace samplehost
