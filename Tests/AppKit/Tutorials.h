// Startup tutorials for tests, and what they report.
#pragma once

#import "StartupTutorialViewController.h"
#import "StartupTutorialWindowController.h"

#include "RetainPtr.h"
#include "StringBridging.h"

#include <memory>
#include <string>
#include <vector>

@class NotificationRecorder;

namespace test {

/// Writes down the notifications of tutorials while it lives.
class TutorialReports {
public:
    TutorialReports();
    TutorialReports(const TutorialReports &) = delete;
    TutorialReports &operator=(const TutorialReports &) = delete;
    ~TutorialReports();

    /// "sample" for each request of the sample document, "METRIC: PAYLOAD" for each metric, in their order. Anything
    /// that a notification has beyond that is written down as well.
    std::vector<std::string> log;

private:
    appkitglue::RetainPtr<NotificationRecorder> recorder_;
};

/// A tutorial from the bundle's nib, on screen. Closed at the end.
class Tutorial {
public:
    Tutorial();
    Tutorial(const Tutorial &) = delete;
    Tutorial &operator=(const Tutorial &) = delete;
    ~Tutorial();

    appkitglue::RetainPtr<StartupTutorialWindowController> windowController;
    NSWindow *window;
    StartupTutorialViewController *controller;
};

/// A tutorial made of plain views, whose introduction is over: it stands on its first page without having moved.
class QuietTutorial {
public:
    QuietTutorial();
    QuietTutorial(const QuietTutorial &) = delete;
    QuietTutorial &operator=(const QuietTutorial &) = delete;
    ~QuietTutorial();

    appkitglue::RetainPtr<NSWindow> window;
    appkitglue::RetainPtr<StartupTutorialViewController> controller;
};

} // namespace test
