#include "UserSettings.h"

#include "Translations.h"

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSLocale>

#include <QMetaProperty>

#include <optional>

using namespace Qt::StringLiterals;

namespace {
const QString LocaleOption = u"locale"_s;

std::optional<bool> flagIn(const QString &text)
{
    static const QStringList yes{u"yes"_s, u"true"_s, u"on"_s, u"1"_s};
    static const QStringList no{u"no"_s, u"false"_s, u"off"_s, u"0"_s};
    if (yes.contains(text.toLower()))
        return true;
    return no.contains(text.toLower()) ? std::optional(false) : std::nullopt;
}

/// A typed value in the type of a property; nil if it is none.
QVariant valueFor(const QMetaProperty &property, const QString &text)
{
    bool isNumber = false;
    switch (property.metaType().id()) {
    case QMetaType::Bool: {
        const std::optional<bool> flag = flagIn(text);
        return flag ? QVariant(*flag) : QVariant();
    }
    case QMetaType::UInt: {
        const uint number = text.toUInt(&isNumber);
        return isNumber ? QVariant(number) : QVariant();
    }
    case QMetaType::Int: {
        const int number = text.toInt(&isNumber);
        return isNumber ? QVariant(number) : QVariant();
    }
    case QMetaType::QString:
        return text;
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

QString applyOne(const QString &option, NSFormatter *formatter)
{
    const QString key = option.section(u'=', 0, 0);
    const QString text = option.section(u'=', 1);
    const int index = formatter->metaObject()->indexOfProperty(key.toLatin1().constData());
    if (!option.contains(u'=') || index < 0 || !keysOf(*formatter).contains(key)) {
        const QString known = keysOf(*formatter).join(u", "_s);
        return u"bad option '%1'; there are %2"_s.arg(option, known.isEmpty() ? u"none"_s : known);
    }
    const QVariant value = valueFor(formatter->metaObject()->property(index), text);
    if (!value.isValid())
        return u"bad value '%1' for %2"_s.arg(text, key);
    NSKeyValueCoding::setValue(formatter, value, key);
    return {};
}
} // namespace

LocaleScope::LocaleScope(const QString &identifier) : _isSet(!identifier.isNull())
{
    if (_isSet)
        NSLocale::setCurrentLocale(NSLocale(identifier));
    installTranslations(NSLocale::currentLocale());
}

LocaleScope::~LocaleScope()
{
    if (!_isSet)
        return;
    NSLocale::resetCurrentLocale();
    installTranslations(NSLocale::currentLocale());
}

void UserSettings::addLocaleOption(QCommandLineParser *parser)
{
    parser->addOption({LocaleOption, QString(), u"ID"_s});
}

QString UserSettings::localeIn(const QCommandLineParser &parser)
{
    return parser.isSet(LocaleOption) ? parser.value(LocaleOption) : QString();
}

QString UserSettings::mistakeInLocale(const QString &identifier)
{
    if (identifier.isNull())
        return {};
    const QString &language = NSLocale(identifier).languageCode();
    if (!language.isEmpty() && NSLocale::availableLocaleIdentifiers().contains(language))
        return {};
    return u"unknown locale '%1'"_s.arg(identifier);
}

QString UserSettings::apply(const QStringList &options, NSFormatter *formatter)
{
    for (const QString &option : options) {
        const QString mistake = applyOne(option, formatter);
        if (!mistake.isNull())
            return mistake;
    }
    return {};
}
