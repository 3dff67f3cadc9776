// Describing, comparing and laying out the About screen, by its number of libraries. Measuring texts costs nothing
// here.
#include "AboutScreenView.h"
#include "ViewLayout.h"

#include <benchmark/benchmark.h>

namespace {

using namespace appkitglue;

std::vector<AboutSection> sections(std::int64_t count) {
    AboutSection section{"Libraries", {}};
    for (std::int64_t i = 0; i < count; i++)
        section.libraries.push_back({"Library " + std::to_string(i), "Author", "https://a.example"});
    return {section};
}

ui::LayoutEnvironment environment() {
    return {[](const std::string& text, ui::FontRole, double) { return ui::Size{7.0 * double(text.size()), 16}; }, 12};
}

void AboutDescribe(benchmark::State& state) {
    const auto data = sections(state.range(0));
    const AboutScreenView screen{std::make_shared<AboutScreenState>()};
    for (auto _ : state)
        benchmark::DoNotOptimize(screen.body(data));
    state.SetComplexityN(state.range(0));
}

void AboutLayOut(benchmark::State& state) {
    const auto view = AboutScreenView{std::make_shared<AboutScreenState>()}.body(sections(state.range(0)));
    const auto surroundings = environment();
    for (auto _ : state)
        benchmark::DoNotOptimize(ui::layOut(view, {480, 560}, surroundings));
    state.SetComplexityN(state.range(0));
}

void AboutCompare(benchmark::State& state) {
    const AboutScreenView screen{std::make_shared<AboutScreenState>()};
    const auto data = sections(state.range(0));
    const auto a = screen.body(data), b = screen.body(data);
    for (auto _ : state)
        benchmark::DoNotOptimize(a == b);
    state.SetComplexityN(state.range(0));
}

BENCHMARK(AboutDescribe)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(AboutLayOut)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(AboutCompare)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace
