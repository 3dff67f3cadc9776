#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include <gmock/gmock.h>

namespace {

class SlideshowTabWithOneDisplay : public test::PreferencesWindowFixture {};

TEST_F(SlideshowTabWithOneDisplay, OffersNoChoiceForThePresenter) {
    open();
    press("Slideshow");
    EXPECT_FALSE([[slideshow() presenterButton] isEnabled]);
    EXPECT_FALSE([[slideshow() presenterApplyButton] isEnabled]);
    EXPECT_TRUE([[slideshow() slideshowButton] isEnabled]);
    EXPECT_EQ(test::titlesOf([slideshow() slideshowButton]).size(), 1U);
}

} // namespace
