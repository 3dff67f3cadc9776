// Makes paragraphs of the events of an HTML parser.
#pragma once

#include "HTMLDocument.h"
#include "HTMLStyleSheet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace html {

/// Names and values of an element's attributes, names in lower case.
using Attributes = std::vector<std::pair<std::string_view, std::string_view>>;

/// What a page consists of, in its order. Events need not be balanced.
class Events {
public:
    virtual ~Events() = default;
    /// `name` is in lower case. Returns false to end the page here.
    virtual bool startElement(std::string_view name, const Attributes& attributes) = 0;
    virtual void endElement(std::string_view name) = 0;
    /// `text` is UTF-8.
    virtual void characters(std::string_view text) = 0;
};

/// Takes the elements and characters of a page in their order and gives its paragraphs.
class Builder : public Events {
public:
    /// `fontSize` is the size of plain text in points.
    Builder(double fontSize, StyleSheet sheet);

    /// Refuses elements that are nested too deep.
    bool startElement(std::string_view name, const Attributes& attributes) override;
    void endElement(std::string_view name) override;
    void characters(std::string_view text) override;

    /// The page; the builder is used up.
    [[nodiscard]] Document finish();

private:
    enum class List : std::uint8_t { none, bulleted, numbered };

    /// An open element.
    struct Element {
        std::string name;
        Style style;
        double indent = 0;
        double marginTop = 0;
        double marginBottom = 0;
        Alignment alignment = Alignment::natural;
        bool block = false;
        bool preformatted = false;
        bool hidden = false;
        List list = List::none;
        int number = 0;
    };

    [[nodiscard]] const Element& top() const { return elements_.back(); }
    void applyStyle(Element& element, const Attributes& attributes);
    void startBlock(Element& element, const Attributes& attributes);
    void startList(Element& element, const Attributes& attributes);
    void startItem(const Attributes& attributes);
    void startSpecial(Element& element, const Attributes& attributes);
    void closeTop();

    void openParagraph();
    void endParagraph();
    void append(std::string_view text);
    void appendCollapsed(std::string_view text);
    void appendPreformatted(std::string_view text);
    void lineBreak();

    double fontSize_;
    double rootSize_;
    StyleSheet sheet_;
    std::vector<Element> elements_;
    std::vector<std::size_t> lists_;
    Document document_;
    Paragraph paragraph_;
    std::string marker_;
    double space_ = 0;
    bool open_ = false;
    bool afterSpace_ = true;
};

} // namespace html
