// Phone numbers beside the rules of patterns, written out step by step.

#include <KTUtility/KTPhoneNumberFormatter>

#include "support/Properties.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QString Separators = u" -,./()[]{}"_s;

class SetFormatter : public KTPhoneNumberFormatter
{
public:
    explicit SetFormatter(const QStringList &patterns) : KTPhoneNumberFormatter(sets)
    {
        sets = {patterns};
        setFormatIndex(0);
    }

    QList<QStringList> sets;
};

QString withoutSeparators(const QString &text)
{
    QString rest;
    for (const QChar character : text) {
        if (!Separators.contains(character))
            rest += character;
    }
    return rest;
}

/// The text in a pattern; nil if it does not fit.
QString inPattern(const QString &pattern, const QString &text)
{
    const QString literals = withoutSeparators(pattern).remove(u'#');
    QString digits = withoutSeparators(text);
    if (!digits.startsWith(literals))
        return {};
    digits.remove(0, literals.size());
    for (const QChar digit : std::as_const(digits)) {
        if (!digit.isDigit())
            return {};
    }
    if (digits.size() != pattern.count(u'#'))
        return {};
    QString result = u""_s;
    for (const QChar character : pattern) {
        if (character == u'#') {
            result += QString::number(digits.front().digitValue());
            digits.remove(0, 1);
        } else {
            result += character;
        }
    }
    return result;
}

QString shownBy(const QStringList &patterns, const QString &text)
{
    if (text.isEmpty())
        return u""_s;
    for (const QString &pattern : patterns) {
        const QString fitted = inPattern(pattern, text);
        if (!fitted.isNull())
            return fitted.isEmpty() ? QString() : fitted;
    }
    return text;
}

QString someTextOf(const QString &characters, int longest)
{
    QString text = u""_s;
    for (int count = someNumber(0, longest); count > 0; --count)
        text += characters.at(someNumber(0, int(characters.size()) - 1));
    return text;
}

/// A pattern's own digits, with other punctuation, or a text that has little to do with it.
QString someNumberFor(const QString &pattern)
{
    if (someNumber(0, 3) == 0)
        return someTextOf(u"0123456789+ -()x٣"_s, 12);
    QString text = u""_s;
    for (const QChar character : pattern) {
        if (character == u'#')
            text += u"0123456789٤९"_s.at(someNumber(0, 11));
        else if (someBool() || !Separators.contains(character))
            text += character;
        if (someNumber(0, 5) == 0)
            text += Separators.at(someNumber(0, 10));
    }
    return someNumber(0, 9) == 0 ? text.chopped(std::min<qsizetype>(1, text.size())) : text;
}
} // namespace

TEST(KTPhoneNumberFormatterModel, DigitsArePouredAsTheStepsSay)
{
    checkProperty("numbers in random patterns", 4000, [] {
        QStringList patterns;
        for (int count = someNumber(0, 4); count > 0; --count)
            patterns += someTextOf(u"#####+1 -().a"_s, 9);
        const SetFormatter formatter(patterns);
        const QString text = someNumberFor(patterns.isEmpty() ? u"###"_s : someOf(patterns));
        requireSame(formatter.stringForObjectValue(text), shownBy(patterns, text));
        for (const QString &pattern : std::as_const(patterns))
            requireSame(formatter.applyFormat(pattern, text), inPattern(pattern, text));
    });
}

TEST(KTPhoneNumberFormatterModel, WhatIsShownIsKeptAndShownTheSameAgain)
{
    checkProperty("numbers in the framework's patterns", 3000, [] {
        KTPhoneNumberFormatter formatter;
        const int index = someNumber(-1, int(KTPhoneNumberFormatter::patternSets().size()));
        formatter.setFormatIndex(index);
        const QStringList patterns = KTPhoneNumberFormatter::patternSets().value(index);
        const QString typed = someNumberFor(patterns.isEmpty() ? u"### ####"_s : someOf(patterns));
        const QString shown = formatter.stringForObjectValue(typed);
        requireSame(shown, shownBy(patterns, typed));
        QVariant value;
        RC_ASSERT(formatter.getObjectValue(&value, shown));
        requireSame(value.toString(), shown);
        requireSame(formatter.stringForObjectValue(value), shown);
        RC_ASSERT(formatter.getObjectValue(&value, typed));
        requireSame(value.toString(), typed);
    });
}
