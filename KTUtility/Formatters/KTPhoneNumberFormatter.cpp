#include "KTPhoneNumberFormatter.h"

#include "PhoneDigits_p.h"
#include "PhonePatterns_p.h"
#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QFile>
#include <QMutex>

using namespace Qt::StringLiterals;
using namespace KTPrivate;

namespace {
void failToLoad()
{
    NSAssertionHandler::currentHandler()->handleFailureInMethod(
        u"initialize"_s, NSAssertionSubject::classNamed(u"KTPhoneNumberFormatter"_s),
        u"Formatters/KTPhoneNumberFormatter"_s, __LINE__,
        u"PhoneNumberFormats.plist could not be loaded."_s);
}

QStringList patternsOf(const QVariant &set)
{
    QStringList patterns;
    const QVariantList elements = set.toList();
    for (const QVariant &pattern : elements)
        patterns.append(pattern.toString());
    return patterns;
}

/// The framework's patterns at an index, ordered once for all formatters.
std::shared_ptr<const PhonePatterns> frameworkPatterns(int formatIndex)
{
    static QMutex mutex;
    static QHash<int, std::shared_ptr<const PhonePatterns>> known;
    const QMutexLocker locker(&mutex);
    std::shared_ptr<const PhonePatterns> &patterns = known[formatIndex];
    if (!patterns) {
        patterns = std::make_shared<const PhonePatterns>(
            KTPhoneNumberFormatter::patternSets().at(formatIndex));
    }
    return patterns;
}
} // namespace

KTPhoneNumberFormatter::KTPhoneNumberFormatter() : KTPhoneNumberFormatter(patternSets())
{
    _isFramework = true;
}

KTPhoneNumberFormatter::KTPhoneNumberFormatter(const QList<QStringList> &sets) : _sets(sets) {}

QList<QStringList> KTPhoneNumberFormatter::patternSetsOfFile(const QString &path)
{
    QFile file(path);
    QVariant root;
    if (!path.isNull() && file.open(QIODevice::ReadOnly))
        root = NSPropertyListSerialization::propertyListFromData(file.readAll());
    if (root.metaType() != QMetaType::fromType<QVariantList>())
        failToLoad();
    QList<QStringList> sets;
    const QVariantList elements = root.toList();
    for (const QVariant &set : elements)
        sets.append(patternsOf(set));
    return sets;
}

const QList<QStringList> &KTPhoneNumberFormatter::patternSets()
{
    static const QList<QStringList> sets = patternSetsOfFile(
        NSBundle::frameworkBundle().pathForResource(u"PhoneNumberFormats"_s, u"plist"_s));
    return sets;
}

void KTPhoneNumberFormatter::setFormatIndex(int formatIndex)
{
    KTLog(kLog_FormattersPhoneNumbers, 4, u"setFormatIndex: %d", formatIndex);
    _formatStrings.reset();
    _patterns.reset();
    if (formatIndex < 0 || formatIndex >= _sets.size())
        return;
    _formatStrings = _sets.at(formatIndex);
    _patterns = _isFramework ? frameworkPatterns(formatIndex)
                             : std::make_shared<const PhonePatterns>(*_formatStrings);
    KTLog(kLog_FormattersPhoneNumbers, 4, u"format strings: %@", QVariant(*_formatStrings));
}

QString KTPhoneNumberFormatter::description() const
{
    return NSString::stringWithFormat(u"format strings: %@",
                                      _formatStrings ? QVariant(*_formatStrings) : QVariant());
}

QString KTPhoneNumberFormatter::stringForObjectValue(const QVariant &value) const
{
    KTLog(kLog_FormattersPhoneNumbers, 4, u"stringForObjectValue: %@", value);
    if (value.metaType() != QMetaType::fromType<QString>() || value.toString().isNull())
        return {};
    const QString text = value.toString();
    if (text.isEmpty() || !_formatStrings)
        return text;
    const QString shown = inFirstFittingPattern(text);
    if (shown.isNull())
        return text;
    return shown.isEmpty() ? QString() : shown;
}

QString KTPhoneNumberFormatter::inFirstFittingPattern(const QString &text) const
{
    if (!KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersPhoneNumbers, 4)) {
        const std::optional<QString> pattern = _patterns->firstFitting(text);
        return pattern ? applyFormat(*pattern, text) : QString();
    }
    // The log shows each pattern that is tried.
    for (const QString &pattern : *_formatStrings) {
        const QString shown = applyFormat(pattern, text);
        if (!shown.isNull())
            return shown;
    }
    return {};
}

bool KTPhoneNumberFormatter::getObjectValue(QVariant *value, const QString &forString,
                                            QString *) const
{
    if (value)
        *value = forString;
    if (readsCommonForms())
        setReading(readingOf(forString));
    return true;
}

/// "e164" is also what stands behind a "+" with separators in it, as people write it.
KTReading KTPhoneNumberFormatter::readingOf(const QString &text) const
{
    const FoldedText folded(text);
    // "+44 (0)20 …": the zero is not dialled from abroad.
    QString typed = folded.text().toString();
    if (typed.startsWith(u'+'))
        typed.remove(u"(0)"_s);
    const QString digits = PhoneDigits::withoutSeparators(typed);
    const KTReadingPart number{folded.rangeInText(0, folded.text().size()), u"number"_s, digits};
    if (PhoneDigits::isInternational(digits))
        return {u"e164"_s, {number}, {}, {}, {}};
    if (_formatStrings && _patterns->firstFitting(text))
        return {u"national"_s, {number}, {}, {}, {}};
    return {u"asTyped"_s, {}, {}, {}, {}};
}

QString KTPhoneNumberFormatter::applyFormat(const QString &format, const QString &toString) const
{
    KTLog(kLog_FormattersPhoneNumbers, 4, u"applyFormat: %@ toString: %@", format, toString);
    const QString typed = PhoneDigits::withoutSeparators(toString);
    const QString literals = PhoneDigits::literalsOf(format);
    if (!literals.isEmpty() && !typed.startsWith(literals))
        return {};
    const std::optional<QList<int>> digits =
        PhoneDigits::valuesOf(QStringView(typed).mid(literals.size()));
    if (!digits || digits->size() != format.count(PhoneDigits::Placeholder))
        return {};
    QString result = format.isNull() ? u""_s : format;
    qsizetype next = 0;
    for (QChar &unit : result) {
        if (unit == PhoneDigits::Placeholder)
            unit = QChar(char16_t(u'0' + digits->at(next++)));
    }
    return result;
}

KT_REGISTER_CLASS(KTPhoneNumberFormatter)
