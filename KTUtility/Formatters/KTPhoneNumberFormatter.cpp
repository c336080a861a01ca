#include "KTPhoneNumberFormatter.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView Separators = u" -,./()[]{}";
constexpr QChar Placeholder = u'#';

QString withoutSeparators(const QString &text)
{
    QString result = text;
    return result.removeIf([](QChar unit) { return Separators.contains(unit); });
}

/// What of a pattern has to stand at the start of a number.
QString literalsOf(const QString &pattern)
{
    return withoutSeparators(pattern).remove(Placeholder);
}

/// The values of the digits of a text, of any script; nothing if it has anything else.
std::optional<QList<int>> digitsOf(QStringView text)
{
    QList<int> digits;
    for (qsizetype index = 0; index < text.size();) {
        const NSCodePoint point = NSCodePointAt(text, index);
        if (!NSCharacterSet::decimalDigitCharacterSet().characterIsMember(point.character))
            return std::nullopt;
        digits.append(QChar::digitValue(point.character));
        index += point.length;
    }
    return digits;
}

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
} // namespace

KTPhoneNumberFormatter::KTPhoneNumberFormatter() : KTPhoneNumberFormatter(patternSets()) {}

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
    if (formatIndex < 0 || formatIndex >= _sets.size())
        return;
    _formatStrings = _sets.at(formatIndex);
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
    for (const QString &pattern : *_formatStrings) {
        const QString shown = applyFormat(pattern, text);
        if (!shown.isNull())
            return shown.isEmpty() ? QString() : shown;
    }
    return text;
}

bool KTPhoneNumberFormatter::getObjectValue(QVariant *value, const QString &forString,
                                            QString *) const
{
    if (value)
        *value = forString;
    return true;
}

QString KTPhoneNumberFormatter::applyFormat(const QString &format, const QString &toString) const
{
    KTLog(kLog_FormattersPhoneNumbers, 4, u"applyFormat: %@ toString: %@", format, toString);
    const QString typed = withoutSeparators(toString);
    const QString literals = literalsOf(format);
    if (!literals.isEmpty() && !typed.startsWith(literals))
        return {};
    const std::optional<QList<int>> digits = digitsOf(QStringView(typed).mid(literals.size()));
    if (!digits || digits->size() != format.count(Placeholder))
        return {};
    QString result = format.isNull() ? u""_s : format;
    qsizetype next = 0;
    for (QChar &unit : result) {
        if (unit == Placeholder)
            unit = QChar(char16_t(u'0' + digits->at(next++)));
    }
    return result;
}
