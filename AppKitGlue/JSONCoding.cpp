#include "JSONCoding.h"

#include <boost/json/serialize.hpp>

#include <array>
#include <charconv>
#include <cmath>

namespace appkitglue {

std::string DecodingError::description() const {
    std::string text = codingPath.empty() ? "" : codingPath + ": ";
    text += "expected " + expected + ", found " + found;
    if (byteOffset)
        text += " at byte " + std::to_string(*byteOffset);
    return text;
}

std::string EncodingError::description() const {
    return (codingPath.empty() ? "" : codingPath + ": ") + "cannot write " + found;
}

} // namespace appkitglue

namespace appkitglue::json {

namespace {

std::string kindName(const boost::json::value* value) {
    if (!value)
        return "nothing";
    switch (value->kind()) {
    case boost::json::kind::null:
        return "null";
    case boost::json::kind::bool_:
        return "a Boolean";
    case boost::json::kind::string:
        return "a string";
    case boost::json::kind::array:
        return "an array";
    case boost::json::kind::object:
        return "an object";
    case boost::json::kind::int64:
        return "the number " + std::to_string(value->get_int64());
    case boost::json::kind::uint64:
        return "the number " + std::to_string(value->get_uint64());
    case boost::json::kind::double_:
        return "the number " + numberText(value->get_double());
    }
    return {};
}

void appendStep(std::string& path, std::string_view name, bool element, std::size_t index) {
    if (element) {
        path += '[' + std::to_string(index) + ']';
        return;
    }
    if (!path.empty())
        path += '.';
    path += name;
}

// How many bytes the UTF-8 sequence at the start of `text` has; 0 if it is not well formed.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned first = byte(0);
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    for (std::size_t i = 1; i < length; i++)
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
    // Longer forms than needed, surrogates, and what lies behind U+10FFFF.
    const unsigned second = byte(1);
    const bool bad = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                     (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return bad ? 0 : length;
}

} // namespace

bool isUTF8(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string numberText(double number) {
    if (number == 0)
        return std::signbit(number) ? "-0.0" : "0";
    std::array<char, 32> buffer;
    const auto outcome = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), outcome.ptr};
}

bool Value::read(bool& result) const {
    if (!m_value || !m_value->is_bool())
        return fail("a Boolean");
    result = m_value->get_bool();
    return true;
}

bool Value::read(std::string& result) const {
    if (!m_value || !m_value->is_string())
        return fail("a string");
    const auto& text = m_value->get_string();
    result.assign(text.data(), text.size());
    return true;
}

bool Value::read(double& result) const {
    if (!m_value || !m_value->is_number())
        return fail("a number");
    if (m_value->is_double())
        result = m_value->get_double();
    else
        result = m_value->is_int64() ? double(m_value->get_int64()) : double(m_value->get_uint64());
    return true;
}

bool Value::read(std::int64_t& result) const {
    if (m_value && m_value->is_int64()) {
        result = m_value->get_int64();
        return true;
    }
    // 2^63 as a double is exact; the largest double below it still fits.
    if (m_value && m_value->is_double()) {
        const double number = m_value->get_double();
        if (number == std::trunc(number) && number >= -0x1p63 && number < 0x1p63) {
            result = static_cast<std::int64_t>(number);
            return true;
        }
    }
    return fail("a 64-bit integer");
}

const boost::json::array* Value::array() const {
    if (m_value && m_value->is_array())
        return &m_value->get_array();
    fail("an array");
    return nullptr;
}

const boost::json::object* Value::object() const {
    if (m_value && m_value->is_object())
        return &m_value->get_object();
    fail("an object");
    return nullptr;
}

bool Value::fail(std::string_view expected) const {
    if (!m_error->has_value())
        m_error->emplace(path(), std::string(expected), kindName(m_value), std::nullopt);
    return false;
}

std::string Value::path() const {
    if (!m_parent)
        return {};
    std::string result = m_parent->path();
    appendStep(result, m_name, m_name.data() == nullptr, m_index);
    return result;
}

void Writer::open(char bracket, bool array) {
    beginValue();
    m_text += bracket;
    m_levels.push_back({.array = array});
}

void Writer::close(char bracket) {
    m_levels.pop_back();
    m_text += bracket;
}

void Writer::beginValue() {
    if (m_levels.empty() || !m_levels.back().array)
        return;
    if (m_levels.back().count++ > 0)
        m_text += ',';
}

void Writer::key(std::string_view name) {
    Level& level = m_levels.back();
    if (level.count++ > 0)
        m_text += ',';
    level.name = name;
    quoted(name);
    m_text += ':';
}

void Writer::write(bool value) {
    beginValue();
    m_text += value ? "true" : "false";
}

void Writer::write(std::int64_t value) {
    beginValue();
    m_text += std::to_string(value);
}

void Writer::write(double value) {
    beginValue();
    if (!std::isfinite(value))
        return fail("a number that is not finite");
    m_text += numberText(value);
}

void Writer::write(std::string_view value) {
    beginValue();
    quoted(value);
}

void Writer::quoted(std::string_view text) {
    unsigned allBits = 0;
    bool plain = true;
    for (const char c : text) {
        allBits |= static_cast<unsigned char>(c);
        plain &= static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
    }
    if (allBits >= 0x80 && !isUTF8(text))
        return fail("a string that is not UTF-8");
    if (plain)
        m_text.append(1, '"').append(text).append(1, '"');
    else
        m_text += boost::json::serialize(boost::json::string_view(text.data(), text.size()));
}

void Writer::fail(std::string_view found) {
    if (m_error)
        return;
    m_error.emplace();
    for (const Level& level : m_levels)
        appendStep(m_error->codingPath, level.name, level.array, level.count - 1);
    m_error->found = found;
}

std::expected<std::string, EncodingError> Writer::finish() {
    if (m_error)
        return std::unexpected(std::move(*m_error));
    return std::move(m_text);
}

} // namespace appkitglue::json
