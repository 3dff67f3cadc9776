#include "HTMLDocument.h"

#include "HTMLBuilder.h"

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <utility>

namespace html {

namespace {

struct FreeContext {
    void operator()(htmlParserCtxtPtr context) const { htmlFreeParserCtxt(context); }
};

// Each stray end tag makes the parser compare it with all open elements: a page that is nothing else ends early.
constexpr std::size_t maximumWork = 200'000'000;

struct Reader {
    Events& events;
    htmlParserCtxtPtr context;
    std::size_t work = 0;
};

std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

void startElement(void* userData, const xmlChar* name, const xmlChar** attributes) {
    auto& reader = *static_cast<Reader*>(userData);
    Attributes list;
    for (const xmlChar** pair = attributes; pair != nullptr && pair[0] != nullptr; pair += 2) {
        list.emplace_back(view(pair[0]), view(pair[1]));
    }
    if (!reader.events.startElement(view(name), list)) {
        xmlStopParser(reader.context);
    }
}

void endElement(void* userData, const xmlChar* name) {
    static_cast<Reader*>(userData)->events.endElement(view(name));
}

void characters(void* userData, const xmlChar* text, int length) {
    static_cast<Reader*>(userData)->events.characters(
        {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
}

void countError(void* userData, const char* /*format*/, ...) {
    auto& reader = *static_cast<Reader*>(userData);
    reader.work += static_cast<std::size_t>(reader.context->nameNr);
    if (reader.work > maximumWork) {
        xmlStopParser(reader.context);
    }
}

// Events instead of a tree: nothing here depends on how deep the page is nested.
void read(const std::string& text, Events& events) {
    const std::unique_ptr<htmlParserCtxt, FreeContext> context(
        htmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size())));
    if (context == nullptr) {
        return;
    }
    Reader reader{.events = events, .context = context.get()};
    xmlSwitchEncoding(context.get(), XML_CHAR_ENCODING_UTF8);
    htmlCtxtUseOptions(context.get(), HTML_PARSE_RECOVER | HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
    htmlSAXHandler handler{};
    handler.startElement = startElement;
    handler.endElement = endElement;
    handler.characters = characters;
    handler.ignorableWhitespace = characters;
    handler.cdataBlock = characters;
    handler.error = countError;
    handler.initialized = 1;
    *context->sax = handler;
    context->userData = &reader;
    htmlParseDocument(context.get());
    if (context->myDoc != nullptr) {
        xmlFreeDoc(context->myDoc);
        context->myDoc = nullptr;
    }
}

// The rules of all style elements: they also hold for what stands before them.
class StyleReader : public Events {
public:
    bool startElement(std::string_view name, const Attributes& /*attributes*/) override {
        inside_ = name == "style";
        return true;
    }
    void endElement(std::string_view /*name*/) override {
        sheet_.add(std::exchange(text_, {}));
        inside_ = false;
    }
    void characters(std::string_view text) override {
        if (inside_) {
            text_ += text;
        }
    }
    [[nodiscard]] StyleSheet sheet() { return std::move(sheet_); }

private:
    StyleSheet sheet_;
    std::string text_;
    bool inside_ = false;
};

// How many bytes of `bytes` make one valid character; zero when the first one begins none.
std::size_t characterLength(std::string_view bytes) {
    const auto at = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U; };
    const auto continues = [&](std::size_t i) { return (at(i) & 0xc0U) == 0x80U; };
    const unsigned first = at(0);
    if (first < 0x80) {
        return first == 0 ? 0 : 1;
    }
    if (first >= 0xc2 && first < 0xe0) {
        return continues(1) ? 2 : 0;
    }
    if ((first & 0xf0U) == 0xe0) {
        const bool valid = !(first == 0xe0 && at(1) < 0xa0) && !(first == 0xed && at(1) >= 0xa0);
        return valid && continues(1) && continues(2) ? 3 : 0;
    }
    if (first >= 0xf0 && first < 0xf5) {
        const bool valid = !(first == 0xf0 && at(1) < 0x90) && !(first == 0xf4 && at(1) >= 0x90);
        return valid && continues(1) && continues(2) && continues(3) ? 4 : 0;
    }
    return 0;
}

} // namespace

std::string Paragraph::text() const {
    std::string result;
    for (const auto& run : runs) {
        result += run.text;
    }
    return result;
}

std::string validUtf8(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
    }
    std::string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto length = characterLength(bytes);
        result.append(length == 0 ? std::string_view("\xEF\xBF\xBD") : bytes.substr(0, length));
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

Document parse(std::string_view utf8, double fontSize) {
    constexpr std::size_t maximumSize = 1'000'000'000;
    if (utf8.empty() || utf8.size() >= maximumSize / 3) {
        return {};
    }
    const std::string text = validUtf8(utf8);
    StyleReader styles;
    read(text, styles);
    Builder builder(fontSize, styles.sheet());
    read(text, builder);
    return builder.finish();
}

} // namespace html
