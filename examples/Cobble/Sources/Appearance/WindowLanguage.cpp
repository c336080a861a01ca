#include "WindowLanguage.h"

#include <KTUtility/KTTranslations>
#include <KTUtility/NSLocale>

#include <QGuiApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

WindowLanguage::WindowLanguage()
{
    const QLocale locale(NSLocale::currentLocale(NSLocale::Category::Texts).localeIdentifier());
    _current = KTTranslations::install(u":/Cobble/Translations/cobble"_s, locale);
    QGuiApplication::setLayoutDirection(locale.textDirection());
}

WindowLanguage::~WindowLanguage()
{
    KTTranslations::remove();
    _current = u"en"_s;
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}
