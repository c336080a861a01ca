#pragma once

#include <QApplication>

/// The application of all widgets, without a screen.
struct Screen
{
    Screen()
    {
        static int count = 1;
        static char name[] = "benchmarks";
        static char *arguments[] = {name, nullptr};
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        static const auto *const application = new QApplication(count, arguments); // until the end
        Q_UNUSED(application)
    }
};
