#pragma once

#include <QString>

/// The language of everything that windows show, and the direction in which it is written, for as
/// long as it exists: those of the user's texts (LANGUAGE, LC_MESSAGES, or a locale that was set).
///
/// Without it texts are those of the sources, which lack the plural forms of English.
class WindowLanguage
{
public:
    WindowLanguage();
    ~WindowLanguage();
    WindowLanguage(const WindowLanguage &) = delete;
    WindowLanguage &operator=(const WindowLanguage &) = delete;

    /// The language that windows speak now, "en" without any.
    static QString current() { return _current; }

private:
    inline static QString _current = QStringLiteral("en");
};
