#pragma once

#include <QLocale>

namespace testing_support {
/// Qt's default locale, as the application sets it, until the object goes out of scope.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale &locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(_before); }
    DefaultLocale(DefaultLocale &&) = delete;

private:
    QLocale _before;
};
} // namespace testing_support
