#include "EnvironmentLocale_p.h"

#include <algorithm>
#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
QByteArray firstSet(std::initializer_list<const char *> variables)
{
    for (const char *const variable : variables) {
        QByteArray value = qgetenv(variable);
        if (!value.isEmpty())
            return value;
    }
    return QByteArrayLiteral("C");
}

/// The part of a text before a mark; all of it where there is none.
QByteArray partBefore(char mark, const QByteArray &text)
{
    const qsizetype at = text.indexOf(mark);
    return at < 0 ? text : text.left(at);
}

/// "C", "POSIX", and these with a codeset ("C.UTF-8").
bool isWithoutLanguage(const QByteArray &name)
{
    const QByteArray plain = partBefore('@', partBefore('.', name));
    return plain == "C" || plain == "POSIX";
}

/// Scripts by the modifiers that the C library's locales have for them.
struct Script
{
    const char *modifier;
    const char16_t *code;
};
constexpr std::array Scripts{
    Script{"latin", u"Latn"},     Script{"cyrillic", u"Cyrl"}, Script{"devanagari", u"Deva"},
    Script{"iqtelif", u"Latn"},   Script{"arabic", u"Arab"},   Script{"hebrew", u"Hebr"},
    Script{"mongolian", u"Mong"},
};

QString withScript(const QString &name, QStringView script)
{
    const qsizetype region = name.indexOf(u'_');
    return region < 0 ? QString(name + u'_' + script)
                      : QString(name.left(region) + u'_' + script + name.mid(region));
}

QString withModifier(const QString &name, const QByteArray &modifier)
{
    if (modifier.contains('='))
        return name + u'@' + QString::fromLatin1(modifier);
    if (modifier == "valencia")
        return name + u"_VALENCIA"_s;
    // The Saho of Eritrea stand there as a variety of Afar.
    if (modifier == "saaho" && name.startsWith(u"aa"))
        return u"ssy"_s + name.mid(2);
    const auto script = std::find_if(Scripts.begin(), Scripts.end(),
                                     [&](const Script &each) { return modifier == each.modifier; });
    return script == Scripts.end() ? name : withScript(name, script->code);
}
} // namespace

QByteArray EnvironmentLocale::nameFor(const char *category)
{
    return firstSet({"LC_ALL", category, "LANG"});
}

QByteArray EnvironmentLocale::nameForTexts()
{
    const QByteArray name = nameFor("LC_MESSAGES");
    if (isWithoutLanguage(name))
        return name;
    const QByteArray languages = qgetenv("LANGUAGE");
    const QByteArray first = partBefore(':', languages);
    return first.isEmpty() ? name : first;
}

QString EnvironmentLocale::identifierOf(const QByteArray &name)
{
    if (isWithoutLanguage(name))
        return u"en_US"_s;
    const QByteArray unmodified = partBefore('@', name);
    const QByteArray modifier = name.mid(unmodified.size() + 1);
    const QByteArray plain = partBefore('.', unmodified);
    return withModifier(QString::fromLatin1(plain), modifier);
}
