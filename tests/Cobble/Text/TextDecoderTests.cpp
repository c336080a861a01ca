#include "Text/TextDecoder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct Encoded
{
    QString encoding;
    QByteArray bytes;
    QString text;
};

const Encoded Texts[] = {
    {u"UTF-8"_s, "a\xc3\x9f\xe5\x85\xac\xf0\x9f\x98\x80z", u"aß公😀z"_s},
    {u"UTF-16LE"_s, QByteArray("a\0\xdf\0\x6c\x51\x3d\xd8\x00\xde", 10), u"aß公😀"_s},
    {u"UTF-16BE"_s, QByteArray("\0a\0\xdf\x51\x6c\xd8\x3d\xde\x00", 10), u"aß公😀"_s},
    {u"windows-1252"_s,
     "5 \x80, Stra\xdf"
     "e",
     u"5 €, Straße"_s},
    {u"ISO-8859-2"_s,
     "\xa3\xf3"
     "d\xbc",
     u"Łódź"_s},
    {u"Shift_JIS"_s, "\x93\xfa\x96\x7b", u"日本"_s},
};
} // namespace

TEST(TextDecoder, TakesATextInAnyPieces)
{
    for (const auto &[encoding, bytes, expected] : Texts) {
        for (qsizetype first = 0; first <= bytes.size(); ++first) {
            for (qsizetype second = first; second <= bytes.size(); ++second) {
                TextDecoder decoder(encoding);
                QString text;
                EXPECT_TRUE(decoder.decode(bytes.first(first), false, &text));
                EXPECT_TRUE(decoder.decode(bytes.sliced(first, second - first), false, &text));
                EXPECT_TRUE(decoder.decode(bytes.sliced(second), true, &text));
                EXPECT_EQ(text, expected) << encoding.toStdString() << first << ' ' << second;
            }
        }
    }
}

TEST(TextDecoder, GivesWhatStandsBeforeAnError)
{
    const Encoded texts[] = {
        {u"UTF-8"_s,
         "ab\xff"
         "c",
         u"ab"_s},
        {u"UTF-8"_s, "ab\xc3", u"ab"_s},
        {u"UTF-8"_s, "a\xed\xa0\x80", u"a"_s},
        {u"UTF-16LE"_s, QByteArray("a\0\x3d\xd8", 4), u"a"_s},
        {u"UTF-16LE"_s, QByteArray("a\0b", 3), u"a"_s},
        {u"UTF-16BE"_s, QByteArray("\0a\xde\x00\0b", 6), u"a"_s},
        {u"Shift_JIS"_s, "a\x93", u"a"_s},
    };
    for (const auto &[encoding, bytes, before] : texts) {
        TextDecoder decoder(encoding);
        QString text;
        EXPECT_FALSE(decoder.decode(bytes, true, &text)) << bytes.toHex().constData();
        EXPECT_EQ(text, before);
    }
}

TEST(TextDecoder, AppendsToWhatIsThere)
{
    TextDecoder decoder(u"UTF-8"_s);
    QString text = u"x"_s;
    EXPECT_TRUE(decoder.decode("y", true, &text));
    EXPECT_EQ(text, u"xy"_s);
}
