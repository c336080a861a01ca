#include "Translations.h"

#include <KTUtility/NSBundle>
#include <KTUtility/NSLocale>

#include <QCoreApplication>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

void installTranslations(const NSLocale &locale)
{
    static std::unique_ptr<QTranslator> installed;
    if (installed)
        QCoreApplication::removeTranslator(installed.get());
    installed.reset();
    const QString path =
        NSBundle::mainBundle().pathForResource(u"cobble_"_s + locale.languageCode(), u"qm"_s);
    if (path.isNull())
        return;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(path))
        return;
    installed = std::move(translator);
    QCoreApplication::installTranslator(installed.get());
}
