#include "ValueWords.h"

#include <KTUtility/NSBundle>
#include <KTUtility/NSLocale>

#include <QCoreApplication>
#include <QTranslator>

#include <memory>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {
/// The framework's texts without its sentences.
class WordTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *text, const char *note,
                      int count) const override
    {
        return std::string_view(context) == "Durations"
                   ? QTranslator::translate(context, text, note, count)
                   : QString();
    }
};
} // namespace

void ValueWords::install(const NSLocale &locale)
{
    static std::unique_ptr<WordTranslator> installed;
    installed.reset();
    const QString path = NSBundle::frameworkBundle().pathForResource(
        u"ktutility_"_s + locale.languageCode(), u"qm"_s);
    auto translator = std::make_unique<WordTranslator>();
    if (path.isNull() || !qApp || !translator->load(path))
        return;
    installed = std::move(translator);
    QCoreApplication::installTranslator(installed.get());
}
