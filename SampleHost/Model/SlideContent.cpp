#include "SlideContent.h"

#include "Deck.h"

#include <algorithm>
#include <array>
#include <cmark.h>
#include <iterator>
#include <memory>
#include <utility>

namespace samplehost {

namespace {

/// Deeper than this nobody writes; deeper ones would only exhaust the stack.
constexpr int deepestNesting = 50;

struct NodeFree {
    void operator()(cmark_node* node) const { cmark_node_free(node); }
};

std::string literal(cmark_node* node) {
    const char* text = cmark_node_get_literal(node);
    return text == nullptr ? std::string() : std::string(text);
}

/// Adds text to the last run when the style is the same.
void append(std::vector<Run>& runs, Run run) {
    if (run.text.empty()) {
        return;
    }
    if (!runs.empty()) {
        Run& last = runs.back();
        if (last.bold == run.bold && last.italic == run.italic && last.code == run.code && last.link == run.link) {
            last.text += run.text;
            return;
        }
    }
    runs.push_back(std::move(run));
}

/// The runs of a node's inline children; a soft break becomes `softBreak`.
void collectRuns(cmark_node* parent, const Run& style, char softBreak, std::vector<Run>& runs, int nesting = 0) {
    if (nesting > deepestNesting) {
        return;
    }
    for (auto* node = cmark_node_first_child(parent); node != nullptr; node = cmark_node_next(node)) {
        Run run = style;
        switch (cmark_node_get_type(node)) {
        case CMARK_NODE_TEXT:
            run.text = literal(node);
            append(runs, run);
            break;
        case CMARK_NODE_CODE:
            run.text = literal(node);
            run.code = true;
            append(runs, run);
            break;
        case CMARK_NODE_SOFTBREAK:
            run.text = softBreak;
            append(runs, run);
            break;
        case CMARK_NODE_LINEBREAK:
            run.text = "\n";
            append(runs, run);
            break;
        case CMARK_NODE_EMPH:
            run.italic = true;
            collectRuns(node, run, softBreak, runs, nesting + 1);
            break;
        case CMARK_NODE_STRONG:
            run.bold = true;
            collectRuns(node, run, softBreak, runs, nesting + 1);
            break;
        case CMARK_NODE_LINK:
            run.link = true;
            collectRuns(node, run, softBreak, runs, nesting + 1);
            break;
        default:
            collectRuns(node, run, softBreak, runs, nesting + 1);
        }
    }
}

/// `[^2]` as a small raised 2.
void raiseFootnoteMarks(std::vector<Run>& runs) {
    constexpr std::array<std::string_view, 10> raised{"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    for (Run& run : runs) {
        if (run.code) {
            continue;
        }
        auto open = run.text.find("[^");
        while (open != std::string::npos) {
            const auto close = run.text.find(']', open);
            if (close == std::string::npos) {
                break;
            }
            std::string mark;
            for (const char c : run.text.substr(open + 2, close - open - 2)) {
                mark += c >= '0' && c <= '9' ? std::string(raised.at(static_cast<std::size_t>(c - '0')))
                                             : std::string(1, c);
            }
            run.text.replace(open, close + 1 - open, mark);
            open = run.text.find("[^", open + mark.size());
        }
    }
}

bool isTableRule(std::string_view line) {
    return line.find('-') != std::string_view::npos && line.find('|') != std::string_view::npos &&
           line.find_first_not_of("|-: \t") == std::string_view::npos;
}

/// The rows of a paragraph that is written as a table, else nothing. cmark knows no tables.
std::vector<std::vector<std::vector<Run>>> tableRows(const std::vector<Run>& runs) {
    const auto text = plainText(runs);
    const auto lines = linesOf(text);
    if (lines.size() < 2 || !isTableRule(trimmed(lines[1].text)) || !trimmed(lines[0].text).starts_with('|')) {
        return {};
    }
    std::vector<std::vector<std::vector<Run>>> rows{{{}}};
    for (const Run& run : runs) {
        for (const char c : run.text) {
            if (c == '\n') {
                rows.push_back({{}});
            } else if (c == '|' && !run.code) {
                rows.back().emplace_back();
            } else {
                Run piece = run;
                piece.text = c;
                append(rows.back().back(), piece);
            }
        }
    }
    rows.erase(rows.begin() + 1);
    for (auto& row : rows) {
        const auto blank = [](const std::vector<Run>& cell) { return trimmed(plainText(cell)).empty(); };
        if (!row.empty() && blank(row.front())) {
            row.erase(row.begin());
        }
        if (!row.empty() && blank(row.back())) {
            row.pop_back();
        }
        for (auto& cell : row) {
            if (!cell.empty()) {
                cell.front().text.erase(0,
                                        std::min(cell.front().text.find_first_not_of(' '), cell.front().text.size()));
                cell.back().text.erase(cell.back().text.find_last_not_of(' ') + 1);
                std::erase_if(cell, [](const Run& run) { return run.text.empty(); });
            }
        }
    }
    return rows;
}

class BlockBuilder {
public:
    std::vector<Block> blocks;

    void addChildren(cmark_node* parent, int depth, bool quoted) {
        for (auto* node = cmark_node_first_child(parent); node != nullptr; node = cmark_node_next(node)) {
            addNode(node, depth, quoted);
        }
    }

private:
    void addNode(cmark_node* node, int depth, bool quoted) {
        if (nesting_ > deepestNesting) {
            return;
        }
        ++nesting_;
        addNodeOfAnyKind(node, depth, quoted);
        --nesting_;
    }

    void addNodeOfAnyKind(cmark_node* node, int depth, bool quoted) {
        switch (cmark_node_get_type(node)) {
        case CMARK_NODE_HEADING:
            addText(node, BlockKind::heading, cmark_node_get_heading_level(node));
            break;
        case CMARK_NODE_PARAGRAPH:
            addParagraph(node, quoted);
            break;
        case CMARK_NODE_BLOCK_QUOTE:
            addChildren(node, depth, true);
            break;
        case CMARK_NODE_LIST:
            addList(node, depth + 1);
            break;
        case CMARK_NODE_CODE_BLOCK: {
            auto text = literal(node);
            text.erase(text.find_last_not_of('\n') + 1);
            blocks.push_back({.kind = BlockKind::code,
                              .level = 0,
                              .marker = {},
                              .runs = {{.text = text, .code = true}},
                              .rows = {},
                              .path = {}});
            break;
        }
        case CMARK_NODE_THEMATIC_BREAK:
            blocks.push_back({.kind = BlockKind::rule, .level = 0, .marker = {}, .runs = {}, .rows = {}, .path = {}});
            break;
        default:
            break;
        }
    }

    void addText(cmark_node* node, BlockKind kind, int level) {
        Block block{.kind = kind, .level = level, .marker = {}, .runs = {}, .rows = {}, .path = {}};
        collectRuns(node, {}, ' ', block.runs);
        raiseFootnoteMarks(block.runs);
        if (!trimmed(plainText(block.runs)).empty()) {
            blocks.push_back(std::move(block));
        }
    }

    void addParagraph(cmark_node* node, bool quoted) {
        std::vector<Run> runs;
        collectRuns(node, {}, '\n', runs);
        if (auto rows = tableRows(runs); !rows.empty()) {
            blocks.push_back(
                {.kind = BlockKind::table, .level = 0, .marker = {}, .runs = {}, .rows = std::move(rows), .path = {}});
            return;
        }
        for (auto* child = cmark_node_first_child(node); child != nullptr;) {
            auto* next = cmark_node_next(child);
            if (cmark_node_get_type(child) == CMARK_NODE_IMAGE) {
                addImage(child);
                cmark_node_free(child);
            }
            child = next;
        }
        addText(node, quoted ? BlockKind::quote : BlockKind::paragraph, 0);
    }

    void addImage(cmark_node* node) {
        Block block{.kind = BlockKind::image, .level = 0, .marker = {}, .runs = {}, .rows = {}, .path = {}};
        const char* url = cmark_node_get_url(node);
        block.path = url == nullptr ? "" : url;
        collectRuns(node, {}, ' ', block.runs);
        blocks.push_back(std::move(block));
    }

    void addList(cmark_node* list, int depth) {
        const bool numbered = cmark_node_get_list_type(list) == CMARK_ORDERED_LIST;
        int number = std::max(cmark_node_get_list_start(list), 0);
        for (auto* item = cmark_node_first_child(list); item != nullptr; item = cmark_node_next(item)) {
            auto marker = numbered ? std::to_string(number++) + "." : std::string(depth == 1 ? "•" : "–");
            for (auto* child = cmark_node_first_child(item); child != nullptr; child = cmark_node_next(child)) {
                if (cmark_node_get_type(child) != CMARK_NODE_PARAGRAPH) {
                    addNode(child, depth, false);
                    continue;
                }
                addText(child, BlockKind::listItem, depth);
                if (!blocks.empty() && blocks.back().kind == BlockKind::listItem) {
                    blocks.back().marker = std::exchange(marker, {});
                }
            }
        }
    }

    int nesting_ = 0;
};

/// Takes lines `[^1]: text` out of the Markdown: cmark knows no footnotes.
std::string withoutFootnotes(std::string_view markdown, std::vector<Block>& footnotes) {
    std::string rest;
    FenceTracker fences;
    for (const Line& line : linesOf(markdown)) {
        const auto close = line.text.find("]:");
        if (fences.isCode(line.text) || !line.text.starts_with("[^") || close == std::string_view::npos) {
            rest += std::string(line.text) + "\n";
            continue;
        }
        Block note{.kind = BlockKind::footnote, .level = 0, .marker = {}, .runs = {}, .rows = {}, .path = {}};
        note.marker = line.text.substr(2, close - 2);
        note.runs.push_back({.text = std::string(trimmed(line.text.substr(close + 2)))});
        footnotes.push_back(std::move(note));
    }
    return rest;
}

} // namespace

std::string plainText(const std::vector<Run>& runs) {
    std::string text;
    for (const Run& run : runs) {
        text += run.text;
    }
    return text;
}

std::vector<Block> blocksOf(std::string_view markdown) {
    std::vector<Block> footnotes;
    const auto text = withoutFootnotes(markdown, footnotes);
    const std::unique_ptr<cmark_node, NodeFree> document(
        cmark_parse_document(text.data(), text.size(), CMARK_OPT_VALIDATE_UTF8));
    BlockBuilder builder;
    builder.addChildren(document.get(), 0, false);
    std::ranges::move(footnotes, std::back_inserter(builder.blocks));
    return std::move(builder.blocks);
}

} // namespace samplehost
