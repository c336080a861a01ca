#include "NSFont.h"

#include <QFontDatabase>
#include <QGuiApplication>

QFont NSFont::systemFontOfSize(int pixels)
{
    const bool hasFonts = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    QFont font = hasFonts ? QFontDatabase::systemFont(QFontDatabase::GeneralFont) : QFont();
    font.setPixelSize(pixels);
    return font;
}
