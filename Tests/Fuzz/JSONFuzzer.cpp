// Any bytes as each of the records: what is read can be written and reads back equal.
#include "JSONCoding.h"
#include "MenuItem+Ext.h"
#include "Screen.h"
#include "SettingsPayload.h"

#include <cstdint>
#include <cstdlib>

using namespace appkitglue;

namespace {

template <class Record> void check(std::string_view json) {
    const auto record = Record::decode(json);
    if (!record) {
        if (record.error().expected.empty() || record.error().found.empty())
            std::abort();
        return;
    }
    const auto text = record->encode();
    if (!text || Record::decode(*text) != *record)
        std::abort();
}

// Menus end the process for entries of unknown types: only texts that cannot hold one are given to them.
bool mayHoldUnknownType(std::string_view json) {
    for (std::size_t at = 0; (at = json.find("typeTag", at)) != std::string_view::npos; at++) {
        const auto value = json.substr(at).starts_with("typeTag\":\"") ? json.substr(at + 10) : std::string_view();
        if (!value.starts_with("item\"") && !value.starts_with("nested\"") && !value.starts_with("separator\""))
            return true;
    }
    return json.find('\\') != std::string_view::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view json(reinterpret_cast<const char*>(data), size);
    check<SettingsPayload>(json);
    check<ScreenHandling>(json);
    check<MenuPoint>(json);
    if (!mayHoldUnknownType(json)) {
        check<MenuItem>(json);
        check<MenuEvent>(json);
    }
    if (json::parse(json) && !json::isUTF8(json))
        std::abort();
    return 0;
}
