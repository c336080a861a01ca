#pragma once

#include <QStringView>

#include <string_view>

namespace KTPrivate {
/// Whether a line on the console says where in the source it comes from.
enum class ConsoleLine { Plain, WithFileAndLine };

/// Writes a message to the console, in the platform's form.
void writeToConsole(ConsoleLine form, QStringView component, std::string_view fileName,
                    int lineNumber, QStringView message);
} // namespace KTPrivate
