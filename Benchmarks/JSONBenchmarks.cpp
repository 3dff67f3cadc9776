// Reading and writing the settings record, beside what the JSON library alone takes for the same text.
#include "JSONCoding.h"
#include "SettingsPayload.h"

#include <benchmark/benchmark.h>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

namespace {

using namespace appkitglue;

// A record as a host with `themes` themes sends it; 40 make about 10 KB.
SettingsPayload record(std::int64_t themes) {
    SettingsPayload payload;
    payload.affectedKey = "generalTheme";
    payload.editorFontName = "JetBrainsMono-Regular";
    payload.editorFontSize = 13.5;
    for (std::int64_t i = 0; i < themes; i++) {
        const std::string name = "Theme " + std::to_string(i);
        for (const char* picture : {"title", "text", "code"})
            payload.allPreviewPaths[name].push_back("/Applications/Quorvel/Previews/" + name + "/" + picture + ".png");
        payload.allGeneralThemes.push_back(name);
        payload.allEditorThemes.push_back("Editor " + name);
    }
    return payload;
}

void perByte(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(std::int64_t(text.size()) * std::int64_t(state.iterations()));
    state.counters["bytes"] = double(text.size());
}

void SettingsRead(benchmark::State& state) {
    const std::string text = record(state.range(0)).encode().value();
    for (auto _ : state)
        benchmark::DoNotOptimize(SettingsPayload::decode(text));
    perByte(state, text);
}

void SettingsReadDocumentOnly(benchmark::State& state) {
    const std::string text = record(state.range(0)).encode().value();
    for (auto _ : state)
        benchmark::DoNotOptimize(json::parse(text));
    perByte(state, text);
}

void SettingsReadLibraryOnly(benchmark::State& state) {
    const std::string text = record(state.range(0)).encode().value();
    for (auto _ : state)
        benchmark::DoNotOptimize(boost::json::parse(text));
    perByte(state, text);
}

void SettingsWrite(benchmark::State& state) {
    const auto payload = record(state.range(0));
    const std::string text = payload.encode().value();
    for (auto _ : state)
        benchmark::DoNotOptimize(changeMessage(payload, SettingsKeys::editorTheme));
    perByte(state, text);
}

void SettingsWriteLibraryOnly(benchmark::State& state) {
    const std::string text = record(state.range(0)).encode().value();
    const auto document = boost::json::parse(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(boost::json::serialize(document));
    perByte(state, text);
}

BENCHMARK(SettingsRead)->Arg(4)->Arg(40)->Arg(400);
BENCHMARK(SettingsReadDocumentOnly)->Arg(40);
BENCHMARK(SettingsReadLibraryOnly)->Arg(40);
BENCHMARK(SettingsWrite)->Arg(4)->Arg(40)->Arg(400);
BENCHMARK(SettingsWriteLibraryOnly)->Arg(40);

} // namespace
