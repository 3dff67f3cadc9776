#include "JSONCoding.h"

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/value_stack.hpp>

#include <charconv>
#include <cmath>

namespace appkitglue::json {

namespace {

namespace bj = boost::json;

// Builds the document as boost::json::parser does, but for numbers: the library's own conversion is off by one unit in
// the last place for some of them and turns 1e999 into infinity.
struct Handler {
    static constexpr std::size_t max_array_size = bj::array::max_size();
    static constexpr std::size_t max_object_size = bj::object::max_size();
    static constexpr std::size_t max_string_size = bj::string::max_size();
    static constexpr std::size_t max_key_size = bj::string::max_size();

    bj::value_stack stack;
    std::string number;
    std::size_t infiniteNumberLength = 0; // 0: there is none

    bool on_document_begin(bj::error_code&) {
        // Documents are read once and thrown away: they live in one block.
        stack.reset(bj::make_shared_resource<bj::monotonic_resource>());
        return true;
    }
    bool on_document_end(bj::error_code&) { return true; }
    bool on_object_begin(bj::error_code&) { return true; }
    bool on_object_end(std::size_t size, bj::error_code&) {
        stack.push_object(size);
        return true;
    }
    bool on_array_begin(bj::error_code&) { return true; }
    bool on_array_end(std::size_t size, bj::error_code&) {
        stack.push_array(size);
        return true;
    }
    bool on_key_part(bj::string_view text, std::size_t, bj::error_code&) {
        stack.push_chars(text);
        return true;
    }
    bool on_key(bj::string_view text, std::size_t, bj::error_code&) {
        stack.push_key(text);
        return true;
    }
    bool on_string_part(bj::string_view text, std::size_t, bj::error_code&) {
        stack.push_chars(text);
        return true;
    }
    bool on_string(bj::string_view text, std::size_t, bj::error_code&) {
        stack.push_string(text);
        return true;
    }
    bool on_number_part(bj::string_view text, bj::error_code&) {
        number.append(text.data(), text.size());
        return true;
    }
    bool on_int64(std::int64_t value, bj::string_view, bj::error_code&) {
        number.clear();
        stack.push_int64(value);
        return true;
    }
    bool on_uint64(std::uint64_t value, bj::string_view, bj::error_code&) {
        number.clear();
        stack.push_uint64(value);
        return true;
    }
    bool on_double(double approximate, bj::string_view text, bj::error_code& error) {
        number.append(text.data(), text.size());
        double value = 0;
        const auto outcome = std::from_chars(number.data(), number.data() + number.size(), value);
        // Out of range also says "too small", which rounds to zero or the smallest number.
        if (outcome.ec != std::errc())
            value = approximate;
        const std::size_t length = number.size();
        number.clear();
        if (!std::isfinite(value)) {
            infiniteNumberLength = length;
            error = bj::error::exponent_overflow;
            return false;
        }
        stack.push_double(value);
        return true;
    }
    bool on_bool(bool value, bj::error_code&) {
        stack.push_bool(value);
        return true;
    }
    bool on_null(bj::error_code&) {
        stack.push_null();
        return true;
    }
    bool on_comment_part(bj::string_view, bj::error_code&) { return true; }
    bool on_comment(bj::string_view, bj::error_code&) { return true; }
};

bj::parse_options options() {
    bj::parse_options result;
    result.max_depth = maximumDepth;
    return result;
}

DecodingError syntaxError(const bj::error_code& code, std::size_t offset, std::size_t size) {
    std::string found = code.message();
    if (code == bj::error::exponent_overflow)
        found = "a number too large for 64 bits";
    else if (code == bj::error::too_deep)
        found = "more than 512 levels";
    else if (code == bj::error::extra_data)
        found = "text behind the document";
    else if (code == bj::error::incomplete)
        found = size == 0 ? "no data" : "an unfinished document";
    return {{}, "one JSON document", std::move(found), offset};
}

} // namespace

std::expected<bj::value, DecodingError> parse(std::string_view text) noexcept {
    bj::basic_parser<Handler> parser(options());
    bj::error_code code;
    std::size_t used = parser.write_some(false, text.data(), text.size(), code);
    if (!code && used < text.size())
        code = bj::error::extra_data;
    if (code)
        return std::unexpected(syntaxError(code, used - parser.handler().infiniteNumberLength, text.size()));
    return parser.handler().stack.release();
}

} // namespace appkitglue::json
