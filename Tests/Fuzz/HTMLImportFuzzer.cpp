// Any bytes as a page: what comes out is bounded and valid UTF-8.
#include "HTMLDocument.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    const auto document = html::parse(page, 12);
    for (const auto& paragraph : document.paragraphs) {
        const std::string text = "|" + paragraph.text(); // a byte order mark is one only at the start
        const bool bounded = paragraph.spaceBefore >= 0 && paragraph.spaceBefore <= 400 && paragraph.indent >= 0 &&
                             paragraph.indent <= 400;
        if (!bounded || html::validUtf8(text) != text) {
            std::abort();
        }
        for (const auto& run : paragraph.runs) {
            if (run.text.empty() || !(run.style.fontSize >= 1 && run.style.fontSize <= 400)) {
                std::abort();
            }
        }
    }
    return 0;
}
