#include "UserSettings.h"

#include "ValueWords.h"

#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTOptionsKeys>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSLocale>

#include <QMetaProperty>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString LocaleOption = u"locale"_s;

QVariant flagIn(const QString &text)
{
    static const QStringList yes{u"yes"_s, u"true"_s, u"on"_s, u"1"_s};
    static const QStringList no{u"no"_s, u"false"_s, u"off"_s, u"0"_s};
    if (yes.contains(text.toLower()))
        return true;
    return no.contains(text.toLower()) ? QVariant(false) : QVariant();
}

template<typename Number>
QVariant numberIn(const QString &text, Number (QString::*read)(bool *, int) const)
{
    bool isNumber = false;
    const Number number = (text.*read)(&isNumber, 10);
    return isNumber ? QVariant(number) : QVariant();
}

/// Three letters A to Z, as ISO 4217 has them; a reader would take others for what they are not.
QVariant currencyCodeIn(const QString &text)
{
    const auto isCapital = [](QChar unit) { return unit >= u'A' && unit <= u'Z'; };
    const bool isCode = text.size() == 3 && std::all_of(text.begin(), text.end(), isCapital);
    return isCode ? QVariant(text) : QVariant();
}

/// A typed value in the type of a property; nil if it is none.
QVariant valueFor(const QMetaProperty &property, const QString &text)
{
    switch (property.metaType().id()) {
    case QMetaType::Bool:
        return flagIn(text);
    case QMetaType::UInt:
        return numberIn(text, &QString::toUInt);
    case QMetaType::Int:
        return numberIn(text, &QString::toInt);
    case QMetaType::QString:
        return QLatin1String(property.name()) == kKTFieldOption_currencyType ? currencyCodeIn(text)
                                                                             : QVariant(text);
    default:
        return {};
    }
}

/// The settings that can be typed.
QStringList keysOf(const NSFormatter &formatter)
{
    QStringList keys;
    const QMetaObject *const type = formatter.metaObject();
    for (int index = NSFormatter::staticMetaObject.propertyCount(); index < type->propertyCount();
         ++index) {
        const QMetaProperty property = type->property(index);
        if (property.metaType().id() < QMetaType::User)
            keys.append(QString::fromLatin1(property.name()));
    }
    return keys;
}

Outcome<> applyOne(const QString &option, NSFormatter *formatter)
{
    const QString key = option.section(u'=', 0, 0);
    const QString text = option.section(u'=', 1);
    const QStringList keys = keysOf(*formatter);
    if (!option.contains(u'=') || !keys.contains(key))
        return Failure{u"bad option '%1'; there are %2"_s.arg(
            option, keys.isEmpty() ? u"none"_s : keys.join(u", "_s))};
    const int index = formatter->metaObject()->indexOfProperty(key.toLatin1().constData());
    const QVariant value = valueFor(formatter->metaObject()->property(index), text);
    if (!value.isValid())
        return Failure{u"bad value '%1' for %2"_s.arg(text, key)};
    NSKeyValueCoding::setValue(formatter, value, key);
    return {};
}

/// A formatter can neither show nor read dates without a style.
Outcome<> checkStyles(const NSFormatter *formatter)
{
    const auto *const dates = qobject_cast<const KTDateTimeFormatter *>(formatter);
    if (!dates || dates->displayDate() || dates->displayTime())
        return {};
    return Failure{u"dateStyle and timeStyle cannot both be 0"_s};
}
} // namespace

LocaleScope::LocaleScope(const QString &identifier) : _isSet(!identifier.isNull())
{
    if (_isSet)
        NSLocale::setCurrentLocale(NSLocale(identifier));
    ValueWords::install(NSLocale::currentLocale(NSLocale::Category::Texts));
}

LocaleScope::~LocaleScope()
{
    if (!_isSet)
        return;
    NSLocale::resetCurrentLocale();
    ValueWords::install(NSLocale::currentLocale(NSLocale::Category::Texts));
}

void UserSettings::addLocaleOption(QCommandLineParser *parser)
{
    parser->addOption({LocaleOption, QString(), u"ID"_s});
}

QString UserSettings::localeIn(const QCommandLineParser &parser)
{
    return parser.isSet(LocaleOption) ? parser.value(LocaleOption) : QString();
}

Outcome<> UserSettings::checkLocale(const QCommandLineParser &parser)
{
    const QString identifier = localeIn(parser);
    if (identifier.isNull())
        return {};
    const QString language = NSLocale(identifier).languageCode();
    if (!language.isEmpty() && NSLocale::availableLocaleIdentifiers().contains(language))
        return {};
    return Failure{u"unknown locale '%1'"_s.arg(identifier)};
}

Outcome<> UserSettings::apply(const QStringList &options, NSFormatter *formatter)
{
    Outcome<> applied;
    for (const QString &option : options)
        applied = applied.andThen([&] { return applyOne(option, formatter); });
    return applied.andThen([&] { return checkStyles(formatter); });
}
