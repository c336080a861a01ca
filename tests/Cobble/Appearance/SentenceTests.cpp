#include "Appearance/Sentence.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(Sentence, HasACapitalAndAFullStop)
{
    const struct
    {
        QString reason;
        QString sentence;
    } rows[] = {
        {QString(), QString()},
        {u"the file is empty"_s, u"The file is empty."_s},
        {u"Please choose a file."_s, u"Please choose a file."_s},
        {u"é is missing"_s, u"É is missing."_s},
        {u"is it really?"_s, u"Is it really?"_s},
        {u"/a/b.csv: there is no such file"_s, u"/a/b.csv: there is no such file."_s},
        {u"contacts.csv is no folder"_s, u"contacts.csv is no folder."_s},
        {u"'x' is no table"_s, u"'x' is no table."_s},
        {u"there is no “x.”"_s, u"There is no “x.”"_s},
        {u"Es gibt keine Bibliothek „x“"_s, u"Es gibt keine Bibliothek „x“."_s},
        {u"ファイルが空です"_s, u"ファイルが空です。"_s},
        {u"ファイルが空です。"_s, u"ファイルが空です。"_s},
        {u"ライブラリ「x」はありません"_s, u"ライブラリ「x」はありません。"_s},
        {u"\""_s, u"\"."_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(Sentence::of(row.reason), row.sentence);
}
