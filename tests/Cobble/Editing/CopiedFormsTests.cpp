#include "Editing/CopiedForms.h"

#include "Text/HTMLTable.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
CopiedRecords twoRecords()
{
    CopiedRecords copied;
    copied.fields = {{u"Name"_s, FieldType::Text, {}}, {u"Notes"_s, FieldType::Text, {}}};
    copied.rows = {{{u"Ann"_s, u"Ann"_s}, {u"a\tb\nc"_s, u"a\tb\nc"_s}},
                   {{u"=1+1"_s, u"=1+1"_s}, {}}};
    return copied;
}
} // namespace

TEST(CopiedFormsTests, AllFormsAreOffered)
{
    const CopiedForms forms(twoRecords());
    EXPECT_TRUE(forms.hasText());
    EXPECT_TRUE(forms.hasHtml());
    EXPECT_TRUE(forms.hasFormat(u"text/csv"_s));
    EXPECT_TRUE(forms.hasFormat(CopiedRecords::MimeType));
    EXPECT_FALSE(forms.hasFormat(u"image/png"_s));
    EXPECT_TRUE(forms.data(u"image/png"_s).isEmpty());
}

TEST(CopiedFormsTests, EachFormHoldsTheRows)
{
    const CopiedForms forms(twoRecords());
    EXPECT_EQ(forms.text(), u"Ann\ta b c\n'=1+1\t\n"_s);
    EXPECT_EQ(forms.data(u"text/csv"_s), QByteArray("Name,Notes\r\nAnn,\"a\tb\nc\"\r\n'=1+1,\r\n"));
    EXPECT_EQ(HTMLTable::rows(forms.html()).size(), 3);
    EXPECT_EQ(HTMLTable::rows(forms.html()).at(2), QStringList({u"'=1+1"_s, u""_s}));
    EXPECT_EQ(CopiedRecords::read(forms.data(CopiedRecords::MimeType))->rows.size(), 2);
}
