// A slide's Markdown as blocks of styled text, ready to be laid out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace samplehost {

/// A stretch of text in one style.
struct Run {
    std::string text;
    bool bold = false;
    bool italic = false;
    bool code = false;
    bool link = false;

    bool operator==(const Run&) const = default;
};

enum class BlockKind { heading, paragraph, listItem, quote, code, table, image, rule, footnote };

/// One block of a slide.
struct Block {
    BlockKind kind = BlockKind::paragraph;
    /// Of a heading 1 to 6, of a list entry its depth from 1.
    int level = 0;
    /// What stands before a list entry ("•", "2.") or a footnote ("1").
    std::string marker;
    std::vector<Run> runs;
    /// Of a table: rows of cells of runs, the heading row first.
    std::vector<std::vector<std::vector<Run>>> rows;
    /// Of an image: the path as written; `runs` holds the description.
    std::string path;
};

/// The blocks of a slide's Markdown. Raw HTML is left out.
std::vector<Block> blocksOf(std::string_view markdown);

/// The text of the runs, without styles.
std::string plainText(const std::vector<Run>& runs);

} // namespace samplehost
