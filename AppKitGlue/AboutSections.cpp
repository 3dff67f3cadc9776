#include "AboutSections.h"

namespace appkitglue::AboutSections {

namespace {

AboutSection libraries() {
    return {"Libraries",
            {
                {"SplitKit", "Matteo Gavagnin", "https://github.com/macteo/SplitKit"},
                {"Container Transitions", "Joachim Bondo", "https://github.com/osteslag/custom-container-transitions"},
                {"KWTransition", "Kurt Wagner", "https://github.com/KurtWagner/KWTransition"},
                {"RetroTransition", "wcgray", "https://github.com/wcgray/RetroTransition"},
                {"Tatsi", "Awkward", "https://github.com/awkward/Tatsi"},
                {"Splash", "John Sundell", "https://github.com/JohnSundell/Splash"},
                {"Pulldown Cmark", "Raph Levien", "https://github.com/pulldown-cmark/pulldown-cmark"},
                {"Syntect", "Tristan Hume", "https://github.com/trishume/syntect"},
                {"Aho-Corasick ", "Andrew Gallant", "https://github.com/BurntSushi/aho-corasick"},
                {"Rayon-RS ", "Niko Matsakis and Josh Stone", "https://github.com/rayon-rs/rayon"},
                {"SDWebImageSwiftUI ", "SDWebImage", "https://github.com/SDWebImage/SDWebImageSwiftUI"},
                {"TOMLDecoder ", "Daniel Duan", "https://github.com/dduan/TOMLDecoder"},
                {"Sentry ", "Functional Software, Inc.", "https://github.com/getsentry/sentry-cocoa"},
                {"VideoPlayer ", "Gesen", "https://github.com/wxxsw/VideoPlayer"},
                {"Sparkle", "Sparkle Project", "https://sparkle-project.org"},
                {"KaTeX", "Khan Academy and contributors", "https://katex.org"},
                {"simplecss", "Yevhenii Reizner", "https://github.com/linebender/simplecss"},
                {"Macaw", "Exyte", "https://github.com/exyte/Macaw"},
            }};
}

AboutSection fonts() {
    return {"Fonts",
            {
                {"Archivo Black", "Omnibus-Type", "https://fonts.google.com/specimen/Archivo+Black"},
                {"Open Sans ", "Steve Matteson", "https://fonts.google.com/specimen/Open+Sans"},
                {"Fira Sans ", "Carrois Apostrophe", "https://fonts.google.com/specimen/Fira+Sans"},
                {"Gravitas One ", "Riccardo De Franceschi", "https://fonts.google.com/specimen/Gravitas+One"},
                {"Enriqueta ", "FontFuror", "https://fonts.google.com/specimen/Enriqueta"},
                {"Bowlby One ", "Vernon Adams", "https://fonts.google.com/specimen/Bowlby+One"},
                {"Inter ", "Rasmus Andersson", "https://rsms.me/inter/"},
                {"JetBrains Mono ", "JetBrains", "https://www.jetbrains.com/lp/mono/"},
                {"PT Mono ", "ParaType", "https://fonts.google.com/specimen/PT+Mono"},
                {"Nunito", "Vernon Adams, Cyreal and Jacques Le Bailly", "https://fonts.google.com/specimen/Nunito"},
                {"Playfair Display", "Claus Eggers Sørensen", "https://fonts.google.com/specimen/Playfair+Display"},
                {"Martel", "Dan Reynolds and Mathieu Réguer", "https://fonts.google.com/specimen/Martel"},
                {"Lora", "Cyreal", "https://fonts.google.com/specimen/Lora"},
            }};
}

AboutSection icons() {
    return {"Icons",
            {
                {"Bug Image", "The Bootstrap Authors", "https://icons.getbootstrap.com/icons/bug/"},
                {"File Icons", "The File Icons contributors", "https://github.com/file-icons/icons"},
            }};
}

} // namespace

const std::vector<AboutSection>& allSections() {
    static const std::vector<AboutSection> sections{libraries(), fonts(), icons()};
    return sections;
}

} // namespace appkitglue::AboutSections
