#include "WindowLanguage.h"

#include <KTUtility/KTTranslations>
#include <KTUtility/NSLocale>

#include <QGuiApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

WindowLanguage::WindowLanguage()
{
    const QLocale locale(NSLocale::currentLocale(NSLocale::Category::Texts).localeIdentifier());
    KTTranslations::install(u":/Cobble/Translations/cobble"_s, locale);
    QGuiApplication::setLayoutDirection(locale.textDirection());
}

WindowLanguage::~WindowLanguage()
{
    KTTranslations::remove();
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}
