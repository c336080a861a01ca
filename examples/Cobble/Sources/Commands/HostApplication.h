#pragma once

#include <QCoreApplication>

#include <memory>

/// Makes the application object that a command line needs: one with windows for the commands that
/// draw, on the desktop's display or, where they only make pictures, on none; without windows for
/// all others.
///
/// \code
/// int main(int argc, char **argv)
/// {
///     const auto application = makeHostApplication(argc, argv);
///     …
/// \endcode
std::unique_ptr<QCoreApplication> makeHostApplication(int &argc, char **argv);

/// Whether the program has windows that nobody sees.
bool isWithoutDisplay();

/// Lets what Qt and plug-ins report from now on reach the terminal as one line each, without what
/// would steer it: texts from files may stand in it.
void passMessagesAsPrintable();
