#include "IsolatedText.h"

#include <QGuiApplication>

namespace {
constexpr QChar FirstStrongIsolate(0x2068);
constexpr QChar PopIsolate(0x2069);
} // namespace

QString IsolatedText::of(const QString &text)
{
    return QGuiApplication::isRightToLeft() && !text.isEmpty()
               ? FirstStrongIsolate + text + PopIsolate
               : text;
}
