#include "NamedCharacterSets.h"

#include <map>
#include <stdexcept>

NSCharacterSet testing_support::characterSetNamed(const QString &name)
{
    using Factory = const NSCharacterSet &(*)();
    static const std::map<QString, Factory> sets = {
        {QStringLiteral("alphanumeric"), NSCharacterSet::alphanumericCharacterSet},
        {QStringLiteral("alphanumerics"), NSCharacterSet::alphanumericCharacterSet},
        {QStringLiteral("capitalizedLetter"), NSCharacterSet::capitalizedLetterCharacterSet},
        {QStringLiteral("control"), NSCharacterSet::controlCharacterSet},
        {QStringLiteral("decimalDigit"), NSCharacterSet::decimalDigitCharacterSet},
        {QStringLiteral("letter"), NSCharacterSet::letterCharacterSet},
        {QStringLiteral("lowercaseLetter"), NSCharacterSet::lowercaseLetterCharacterSet},
        {QStringLiteral("newline"), NSCharacterSet::newlineCharacterSet},
        {QStringLiteral("nonBase"), NSCharacterSet::nonBaseCharacterSet},
        {QStringLiteral("punctuation"), NSCharacterSet::punctuationCharacterSet},
        {QStringLiteral("symbol"), NSCharacterSet::symbolCharacterSet},
        {QStringLiteral("uppercaseLetter"), NSCharacterSet::uppercaseLetterCharacterSet},
        {QStringLiteral("whitespace"), NSCharacterSet::whitespaceCharacterSet},
        {QStringLiteral("whitespaceAndNewline"), NSCharacterSet::whitespaceAndNewlineCharacterSet},
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
    if (arguments.contains(QStringLiteral("named"))) {
        const auto set = characterSetNamed(arguments.value(QStringLiteral("named")).toString());
        return arguments.value(QStringLiteral("inverted")).toBool() ? set.invertedSet() : set;
    }
    return NSCharacterSet::characterSetWithCharactersInString(
        arguments.value(QStringLiteral("chars")).toString());
}
