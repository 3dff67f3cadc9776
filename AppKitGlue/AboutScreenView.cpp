#include "AboutScreenView.h"

#include <algorithm>

namespace appkitglue {

using namespace ui;

void AboutScreenState::setDismissAction(std::function<void()> action) {
    m_dismissAction = std::move(action);
    announce();
}

void Library::open(const ViewEnvironment& environment) const {
    if (environment.openURL)
        environment.openURL(urlString);
}

View Library::body() const {
    Action open{"open " + urlString,
                [library = *this](const ViewEnvironment& environment) { library.open(environment); }};
    return hStack(Alignment::center, defaultSpacing,
                  vStack(Alignment::leading, defaultSpacing, text(name).font(FontRole::headline),
                         text(author).font(FontRole::subheadline)),
                  spacer(),
                  button(std::move(open), localizedText("Open")
                                              .foreground(ColorRole::white)
                                              .padding(5)
                                              .background(RoundedRectangle::filled(4, ColorRole::accent))))
        .padding();
}

View AboutSection::body() const {
    std::vector<const Library*> sorted;
    sorted.reserve(libraries.size());
    for (const Library& library : libraries)
        sorted.push_back(&library);
    // Equal names keep their order, which is that of the addresses.
    std::ranges::sort(
        sorted, [](const Library* a, const Library* b) { return a->name == b->name ? a < b : a->name > b->name; });
    std::vector<View> children;
    children.reserve(sorted.size() + 1);
    children.push_back(text(title).font(FontRole::subheadline));
    for (const Library* library : sorted)
        children.push_back(library->body().identified(library->id()));
    return stack({Axis::vertical, Alignment::leading, defaultSpacing}, std::move(children));
}

View AboutScreenView::body(const std::vector<AboutSection>& sections) const {
    // Looked up at the time of the tap: it may be set, or replaced, while the screen is shown.
    Action dismiss{"dismiss", [state = state](const ViewEnvironment&) {
                       if (const auto action = state->dismissAction())
                           action();
                   }};
    return vStack(Alignment::leading, 12,
                  text(AboutSections::aboutTitle).font(FontRole::title).padding({.top = 5, .bottom = 15}),
                  text(AboutSections::aboutIntro.first).font(FontRole::headline),
                  text(AboutSections::aboutIntro.second).font(FontRole::body),
                  scrollView(stack({Axis::vertical, Alignment::leading, defaultSpacing},
                                   forEach(sections, [](const AboutSection& section) { return section.body(); })))
                      .padding(5)
                      .background(RoundedRectangle::filled(8, ColorRole::controlBackground)),
                  hStack(Alignment::center, defaultSpacing,
                         localizedText("Close")
                             .font(FontRole::body)
                             .foreground(ColorRole::accent)
                             .padding(7)
                             .overlay(RoundedRectangle::stroked(8, ColorRole::accent, 1))
                             .onTap(std::move(dismiss)))
                      .padding(0))
        .padding();
}

} // namespace appkitglue
