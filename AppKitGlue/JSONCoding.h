// Strict JSON reading and writing for the records that are exchanged with the host.
#pragma once

#include "DecodingError.h"

#include <boost/json/value.hpp>

#include <cstdint>
#include <expected>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace appkitglue::json {

/// The deepest nesting of arrays and objects that is read.
constexpr std::size_t maximumDepth = 512;

/// Parses `text`, which has to be one JSON document in UTF-8 and nothing else but white space around it. Numbers too
/// large for a double are refused, all others are rounded correctly. Of members with the same name the last one counts.
std::expected<boost::json::value, DecodingError> parse(std::string_view text) noexcept;

/// The shortest decimal text that reads back as `number`, which must be finite. Whole numbers have no fraction: `14`.
std::string numberText(double number);

/// Whether `text` is well-formed UTF-8.
bool isUTF8(std::string_view text) noexcept;

/// A value inside a parsed document that knows where it stands. The reading functions return whether they succeeded;
/// the first failure is kept and every caller just passes `false` on. Values live on the stack while reading.
class Value {
public:
    Value(const boost::json::value& document, std::optional<DecodingError>& error)
        : m_value(&document), m_error(&error) {}

    bool read(bool& result) const;
    bool read(std::string& result) const;
    /// Every number is a double; one that stands as an integer is rounded to the nearest.
    bool read(double& result) const;
    /// An integer, whether it is written as `3`, `3.0` or `3e0`; a fraction or more than 64 bits is an error.
    bool read(std::int64_t& result) const;
    template <class T> bool read(std::vector<T>& result) const;
    template <class T> bool read(std::map<std::string, T>& result) const;
    /// Any other type is read by its own `bool decode(const json::Value&, T&)`.
    template <class T> bool read(T& result) const { return decode(*this, result); }

    /// Reads a member that has to be there.
    template <class T> bool member(std::string_view name, T& result) const;
    /// Reads a member that may be missing or null.
    template <class T> bool optionalMember(std::string_view name, std::optional<T>& result) const;
    /// Reads element 0, which has to be there, of this array; further elements are ignored.
    template <class T> bool firstElement(T& result) const;

    /// Notes that something else was expected here. Always false.
    bool fail(std::string_view expected) const;

private:
    Value(const boost::json::value* value, const Value& parent, std::string_view name, std::size_t index)
        : m_value(value), m_error(parent.m_error), m_parent(&parent), m_name(name), m_index(index) {}
    const boost::json::array* array() const;
    const boost::json::object* object() const;
    std::string path() const;

    const boost::json::value* m_value; // null: missing
    std::optional<DecodingError>* m_error;
    const Value* m_parent = nullptr;
    std::string_view m_name; // no data: an element
    std::size_t m_index = 0;
};

/// Writes JSON text without white space, members in the order of the calls.
class Writer {
public:
    void beginObject() { open('{', false); }
    void endObject() { close('}'); }
    void beginArray() { open('[', true); }
    void endArray() { close(']'); }
    /// Begins a member of the open object; its value follows. `name` is used until then.
    void key(std::string_view name);

    void write(bool value);
    void write(std::int64_t value);
    void write(double value);
    void write(std::string_view value);
    void write(const std::string& value) { write(std::string_view(value)); }
    void write(const char* value) { write(std::string_view(value)); }
    template <class T> void write(const std::vector<T>& values);
    template <class T> void write(const std::map<std::string, T>& values);
    /// Any other type is written by its own `void encode(json::Writer&, const T&)`.
    template <class T> void write(const T& value) { encode(*this, value); }

    template <class T> void member(std::string_view name, const T& value) {
        key(name);
        write(value);
    }

    /// The text, or the first thing that could not be written.
    std::expected<std::string, EncodingError> finish();

private:
    struct Level {
        bool array;
        std::size_t count = 0;
        std::string_view name = {};
    };
    void open(char bracket, bool array);
    void close(char bracket);
    void beginValue();
    void quoted(std::string_view text);
    void fail(std::string_view found);

    std::string m_text;
    std::vector<Level> m_levels;
    std::optional<EncodingError> m_error;
};

/// Reads a whole document into a `T`.
template <class T> std::expected<T, DecodingError> decoded(std::string_view text) {
    auto document = parse(text);
    if (!document)
        return std::unexpected(std::move(document.error()));
    std::optional<DecodingError> error;
    T result{};
    Value(*document, error).read(result);
    if (error)
        return std::unexpected(std::move(*error));
    return result;
}

/// Writes a `T` as a whole document.
template <class T> std::expected<std::string, EncodingError> encoded(const T& value) {
    Writer writer;
    writer.write(value);
    return writer.finish();
}

template <class T> bool Value::read(std::vector<T>& result) const {
    const auto* elements = array();
    if (!elements)
        return false;
    result.clear();
    result.reserve(elements->size());
    for (const auto& element : *elements) {
        result.emplace_back();
        if (!Value(&element, *this, {}, result.size() - 1).read(result.back()))
            return false;
    }
    return true;
}

template <class T> bool Value::read(std::map<std::string, T>& result) const {
    const auto* members = object();
    if (!members)
        return false;
    result.clear();
    for (const auto& [name, value] : *members) {
        const std::string_view key(name.data(), name.size());
        if (!Value(&value, *this, key, 0).read(result[std::string(key)]))
            return false;
    }
    return true;
}

template <class T> bool Value::member(std::string_view name, T& result) const {
    const auto* members = object();
    return members && Value(members->if_contains({name.data(), name.size()}), *this, name, 0).read(result);
}

template <class T> bool Value::optionalMember(std::string_view name, std::optional<T>& result) const {
    const auto* members = object();
    if (!members)
        return false;
    const auto* value = members->if_contains({name.data(), name.size()});
    result.reset();
    return !value || value->is_null() || Value(value, *this, name, 0).read(result.emplace());
}

template <class T> bool Value::firstElement(T& result) const {
    const auto* elements = array();
    return elements && Value(elements->empty() ? nullptr : &elements->front(), *this, {}, 0).read(result);
}

template <class T> void Writer::write(const std::vector<T>& values) {
    beginArray();
    for (const T& value : values)
        write(value);
    endArray();
}

template <class T> void Writer::write(const std::map<std::string, T>& values) {
    beginObject();
    for (const auto& [name, value] : values)
        member(name, value);
    endObject();
}

} // namespace appkitglue::json
