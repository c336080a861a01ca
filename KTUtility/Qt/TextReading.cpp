#include "TextReading_p.h"

#include <KTUtility/Formatters/KTCurrencyFormatter.h>
#include <KTUtility/Formatters/KTNumberFormatter.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QCoreApplication>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
bool hasNoText(const QVariant &value)
{
    return NSObject::isNil(value) || NSIsControllerMarker(value);
}

/// No number has them, whatever is typed behind. (Currencies have names.)
bool hasForeignLetters(const NSFormatter *formatter, const QString &text)
{
    const auto *const numbers = dynamic_cast<const KTNumberFormatter *>(formatter);
    if (!numbers || numbers->readsCommonForms() ||
        dynamic_cast<const KTCurrencyFormatter *>(formatter))
        return false;
    return std::ranges::any_of(text, [](QChar each) { return each.isLetter(); });
}

/// Formatters are asked while views paint and people type, where what they raise is not to end the
/// program: this stands for the one that did.
constexpr QStringView Formatter = u"a formatter";

bool reads(const NSFormatter *formatter, const QString &text)
{
    QVariant value;
    bool isRead = false;
    guarded(Formatter, [&] { isRead = formatter->getObjectValue(&value, text); });
    return isRead;
}
} // namespace

TextReading TextReading::of(const NSFormatter *formatter, const QString &text)
{
    if (!formatter)
        return {true, text, {}};
    if (text.trimmed().isEmpty())
        return {true, {}, {}};
    KTReadResult result = KTReadResult::rejected({});
    guarded(Formatter, [&] { result = formatter->read(text); });
    return {result.hasValue(), result.value(), result.error()};
}

QValidator::State TextReading::judge(const NSFormatter *formatter, const QString &text)
{
    if (!formatter || text.trimmed().isEmpty() || reads(formatter, text))
        return QValidator::Acceptable;
    return hasForeignLetters(formatter, text) ? QValidator::Invalid : QValidator::Intermediate;
}

QString TextReading::completed(const NSFormatter *formatter, const QString &text)
{
    const QString trimmed = text.trimmed();
    if (!formatter || trimmed.isEmpty())
        return {};
    const QStringList meant{trimmed, trimmed + u')', trimmed + u'0', trimmed.chopped(1)};
    const auto found = std::ranges::find_if(meant, [&](const QString &each) {
        return !each.trimmed().isEmpty() && reads(formatter, each);
    });
    return found == meant.end() ? QString() : *found;
}

QString KTPrivate::rejectionForPeople(const QVariant &value, const QString &reason)
{
    if (NSObject::isNil(value))
        return QCoreApplication::translate("KTFormatterEdit", "A value is needed here.");
    if (reason.isEmpty() || reason.startsWith(u'[') || reason.contains(u" 0x"_s))
        return QCoreApplication::translate("KTFormatterEdit", "This value cannot be stored here.");
    return reason;
}

QString KTPrivate::shownText(const NSFormatter *formatter, const QVariant &value)
{
    if (hasNoText(value))
        return u""_s;
    QString text;
    guarded(Formatter, [&] {
        text = formatter ? formatter->stringForObjectValue(value) : NSObject::description(value);
    });
    return text.isNull() ? u""_s : text;
}

QString KTPrivate::editingText(const NSFormatter *formatter, const QVariant &value)
{
    if (!formatter || hasNoText(value))
        return shownText(formatter, value);
    QString text;
    guarded(Formatter, [&] { text = formatter->editingStringForObjectValue(value); });
    return text.isNull() ? u""_s : text;
}

QVariant KTPrivate::shownColour(const NSFormatter *formatter, const QVariant &value)
{
    if (!formatter || hasNoText(value))
        return {};
    std::optional<NSAttributedString> text;
    guarded(Formatter, [&] { text = formatter->attributedStringForObjectValue(value); });
    return text ? text->attribute(NSForegroundColorAttributeName, 0) : QVariant();
}
