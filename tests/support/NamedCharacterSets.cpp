#include "NamedCharacterSets.h"

#include <map>
#include <stdexcept>

using namespace Qt::StringLiterals;

NSCharacterSet testing_support::characterSetNamed(const QString &name)
{
    using Factory = const NSCharacterSet &(*)();
    static const std::map<QString, Factory> sets = {
        {u"alphanumeric"_s, NSCharacterSet::alphanumericCharacterSet},
        {u"alphanumerics"_s, NSCharacterSet::alphanumericCharacterSet},
        {u"capitalizedLetter"_s, NSCharacterSet::capitalizedLetterCharacterSet},
        {u"control"_s, NSCharacterSet::controlCharacterSet},
        {u"decimalDigit"_s, NSCharacterSet::decimalDigitCharacterSet},
        {u"letter"_s, NSCharacterSet::letterCharacterSet},
        {u"lowercaseLetter"_s, NSCharacterSet::lowercaseLetterCharacterSet},
        {u"newline"_s, NSCharacterSet::newlineCharacterSet},
        {u"nonBase"_s, NSCharacterSet::nonBaseCharacterSet},
        {u"punctuation"_s, NSCharacterSet::punctuationCharacterSet},
        {u"symbol"_s, NSCharacterSet::symbolCharacterSet},
        {u"uppercaseLetter"_s, NSCharacterSet::uppercaseLetterCharacterSet},
        {u"whitespace"_s, NSCharacterSet::whitespaceCharacterSet},
        {u"whitespaceAndNewline"_s, NSCharacterSet::whitespaceAndNewlineCharacterSet},
    };
    if (name.endsWith(u" inverted"))
        return characterSetNamed(name.chopped(9)).invertedSet();
    const auto found = sets.find(name);
    if (found == sets.end())
        throw std::out_of_range("no character set " + name.toStdString());
    return found->second();
}

NSCharacterSet testing_support::characterSetFrom(const QJsonObject &arguments)
{
    if (arguments.contains(u"named"_s)) {
        const auto set = characterSetNamed(arguments.value(u"named"_s).toString());
        return arguments.value(u"inverted"_s).toBool() ? set.invertedSet() : set;
    }
    return NSCharacterSet::characterSetWithCharactersInString(
        arguments.value(u"chars"_s).toString());
}
