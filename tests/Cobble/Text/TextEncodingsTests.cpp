#include "Text/TextEncodings.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TextEncodings, AreFoundByAnyOfTheirNames)
{
    const std::pair<QString, QString> names[] = {
        {u"utf-8"_s, u"UTF-8"_s},
        {u"UTF8"_s, u"UTF-8"_s},
        {u"WINDOWS-1252"_s, u"windows-1252"_s},
        {u"cp1252"_s, u"windows-1252"_s},
        {u"latin1"_s, u"ISO-8859-1"_s},
        {u"iso8859-15"_s, u"ISO-8859-15"_s},
        {u"UTF-16LE"_s, u"UTF-16LE"_s},
        {u"sjis"_s, u"Shift_JIS"_s},
    };
    for (const auto &[name, encoding] : names)
        EXPECT_EQ(TextEncodings::named(name).value_or(u"none"_s), encoding) << name.toStdString();
    for (const QString &name : {u""_s, u"windows"_s, u"UTF-7"_s, u"äö"_s, TextEncodings::Automatic})
        EXPECT_FALSE(TextEncodings::named(name)) << name.toStdString();
}

TEST(TextEncodings, EachIsFoundByItsOwnName)
{
    for (const QString &name : TextEncodings::names())
        EXPECT_EQ(TextEncodings::named(name), name);
}

TEST(TextEncodings, AreGuessedFromTheBytes)
{
    const std::pair<QByteArray, QString> texts[] = {
        {"Stra\xdf"
         "e und Gr\xfc\xdf"
         "e, M\xfcller aus K\xf6ln, sch\xf6n und \xfc"
         "ber\n",
         u"windows-1252"_s},
        // Russian
        {QByteArray("\xcf\xf0\xe8\xe2\xe5\xf2, \xea\xe0\xea \xe4\xe5\xeb\xe0? "
                    "\xdd\xf2\xee \xef\xf0\xee\xf1\xf2\xee\xe9 \xf2\xe5\xea\xf1\xf2.\n")
             .repeated(4),
         u"windows-1251"_s},
        {QByteArray("N\0a\0m\0e\0\n\0A\0n\0n\0\n\0", 18), u"UTF-16LE"_s},
        {QByteArray("\0N\0a\0m\0e\0\n\0A\0n\0n\0\n", 18), u"UTF-16BE"_s},
    };
    for (const auto &[bytes, encoding] : texts)
        EXPECT_EQ(TextEncodings::guessed(bytes), encoding) << bytes.toHex().constData();
}
