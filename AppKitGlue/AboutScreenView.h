// The About screen as a declarative view. In an Objective-C or Swift host see QVAboutScreen.h.
#pragma once

#include "AboutSections.h"
#include "ObservableObject.h"
#include "ViewTree.h"

namespace appkitglue {

/// What the About screen observes.
class AboutScreenState : public ObservableObject {
public:
    /// What "Close" does; empty at first, when it does nothing.
    const std::function<void()>& dismissAction() const { return m_dismissAction; }
    void setDismissAction(std::function<void()> action);

private:
    std::function<void()> m_dismissAction;
};

/// A title, two sentences, the acknowledged libraries, fonts and icons, and "Close".
struct AboutScreenView {
    /// Not null.
    std::shared_ptr<AboutScreenState> state;

    /// The screen with the shared sections.
    ui::View body() const { return body(AboutSections::allSections()); }
    /// The screen with other sections.
    ui::View body(const std::vector<AboutSection>& sections) const;
};

} // namespace appkitglue
