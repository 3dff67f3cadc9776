// Random use of the remembered pairs of displays against a model that is written differently: a list of strings.
#include "Screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace appkitglue;

namespace {

constexpr int steps = 100'000;

const std::vector<std::string> displayNamesInUse{"Built-in", "Projector", "Twin", "Twin", "", "A \"B\" × 📽"};

/// Remembers pairs as one text each, in the order of their first use.
struct Model {
    std::vector<std::string> order;
    std::map<std::string, double> lastUse;

    static std::string text(const Screen& screen) {
        return screen.name + "|" + (screen.isMain ? "m" : "o") + "|" + std::to_string(screen.width) + "|" +
               std::to_string(screen.height);
    }
    static std::string text(const Screen& presenter, const Screen& slideshow) {
        return text(presenter) + "->" + text(slideshow);
    }
    void use(const Screen& presenter, const Screen& slideshow, double now) {
        const auto pair = text(presenter, slideshow);
        if (!lastUse.contains(pair))
            order.push_back(pair);
        lastUse[pair] = now;
    }
};

class ScreenStoreModel : public testing::Test {
protected:
    unsigned seed_ = std::getenv("QV_SEED") != nullptr ? static_cast<unsigned>(std::atoi(std::getenv("QV_SEED")))
                                                       : std::random_device{}();
    std::minstd_rand random_{seed_};

    unsigned below(std::size_t limit) { return static_cast<unsigned>(random_() % limit); }

    std::vector<Screen> anyDisplays() {
        std::vector<Screen> displays;
        const unsigned count = below(4);
        for (unsigned i = 0; i < count; ++i)
            displays.push_back({displayNamesInUse[below(displayNamesInUse.size())], i == 0,
                                1280 + 160 * static_cast<int>(below(3)), 720});
        if (displays.size() > 1 && below(2) == 0)
            std::swap(displays[0], displays[1]);
        return displays;
    }
};

const Screen* firstShown(const std::string& displayName, const std::vector<Screen>& displays) {
    for (const auto& display : displays)
        if (display.displayName() == displayName)
            return &display;
    return nullptr;
}

void expectEqual(const ScreenHandling& handling, const Model& model) {
    ASSERT_EQ(handling.combinations.size(), model.order.size());
    for (std::size_t i = 0; i < model.order.size(); ++i) {
        const auto& combination = handling.combinations[i];
        ASSERT_EQ(Model::text(combination.presenter, combination.slideshow), model.order[i]);
        ASSERT_EQ(combination.lastUse, model.lastUse.at(model.order[i]));
    }
}

TEST_F(ScreenStoreModel, AgreesWithAListOfPairsOverManySteps) {
    std::printf("QV_SEED=%u\n", seed_);
    ScreenHandling handling;
    Model model;
    std::vector<Screen> displays = anyDisplays();
    for (int step = 0; step < steps; ++step) {
        if (below(4) == 0)
            displays = anyDisplays();
        if (below(2) == 0) {
            const auto any = [&] {
                return displays.empty() || below(8) == 0 ? "None  1×1" : displays[below(displays.size())].displayName();
            };
            const ScreenNames chosen{any(), any()};
            const double now = step + 0.125;
            const auto pair = handling.remember(chosen, displays, now);
            const Screen* presenter = firstShown(chosen.presenter, displays);
            const Screen* slideshow = firstShown(chosen.slideshow, displays);
            ASSERT_EQ(pair.has_value(), presenter != nullptr && slideshow != nullptr) << step;
            if (pair) {
                ASSERT_EQ(*pair, (ScreenPair{*presenter, *slideshow}));
                model.use(*presenter, *slideshow, now);
                ASSERT_EQ(handling.combinations.size(), model.order.size()) << step;
            }
        } else {
            const auto names = handling.restoredNames(displays);
            std::optional<ScreenNames> expected;
            if (displays.size() >= 2) {
                const auto &a = displays[0], &b = displays[1];
                if (model.lastUse.contains(Model::text(a, b)))
                    expected = ScreenNames{b.displayName(), a.displayName()};
                else if (model.lastUse.contains(Model::text(b, a)))
                    expected = ScreenNames{a.displayName(), b.displayName()};
            }
            ASSERT_EQ(names, expected) << step;
        }
        if (step % 1'000 == 0) {
            ASSERT_NO_FATAL_FAILURE(expectEqual(handling, model)) << step;
            ASSERT_EQ(ScreenHandling::decode(handling.encode().value()).value(), handling) << step;
        }
    }
    expectEqual(handling, model);
    EXPECT_GT(model.order.size(), 100U);
}

} // namespace
