#include "EventLog.h"

#include "Edits.h"

#include <boost/json.hpp>

namespace samplehost::eventlog {

namespace {

namespace json = boost::json;

json::value optionalText(const std::optional<std::string>& text) {
    return text ? json::value(*text) : json::value(nullptr);
}

std::string nameOfCode(long long code) {
    const auto known = actionFromCode(code);
    return known ? std::string(nameOf(*known)) : std::string();
}

} // namespace

std::string action(long long code) {
    return json::serialize(json::object{{"event", "action"}, {"code", code}, {"name", nameOfCode(code)}});
}

std::string search(const std::optional<std::string>& text) {
    return json::serialize(json::object{{"event", "search"}, {"text", optionalText(text)}});
}

std::string popover(long long code, double x, double y, double width, double height) {
    return json::serialize(json::object{{"event", "popover"},
                                        {"code", code},
                                        {"name", nameOfCode(code)},
                                        {"x", x},
                                        {"y", y},
                                        {"width", width},
                                        {"height", height}});
}

std::string preferencesRead() {
    return json::serialize(json::object{{"event", "preferenceValues"}});
}

std::string preferencesWritten(std::string_view record) {
    json::error_code error;
    json::value value = json::parse(json::string_view(record.data(), record.size()), error);
    json::object line{{"event", "setPreferencesValues"}, {"affectedKey", nullptr}};
    if (error) {
        value = json::string(record.data(), record.size());
    } else if (const auto* object = value.if_object(); object != nullptr && object->contains("affectedKey")) {
        line["affectedKey"] = object->at("affectedKey");
    }
    line["record"] = std::move(value);
    return json::serialize(line);
}

std::string notification(std::string_view name, const std::optional<std::string>& metric,
                         const std::optional<std::string>& payload) {
    json::object line{{"event", "notification"}, {"name", std::string(name)}};
    if (metric) {
        line["metric"] = *metric;
    }
    if (payload) {
        line["payload"] = *payload;
    }
    return json::serialize(line);
}

std::string slideshow(std::string_view what, std::size_t slide, std::string_view detail) {
    return json::serialize(json::object{
        {"event", "slideshow"}, {"what", std::string(what)}, {"slide", slide + 1}, {"detail", std::string(detail)}});
}

std::string note(std::string_view what, std::string_view detail) {
    return json::serialize(json::object{{"event", std::string(what)}, {"detail", std::string(detail)}});
}

} // namespace samplehost::eventlog

namespace samplehost {

void LogFile::write(std::string_view line) {
    if (file_.is_open()) {
        file_ << line << '\n' << std::flush;
    }
}

} // namespace samplehost
