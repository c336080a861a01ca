#include "Filter/FilterWriter.h"

#include "Filter/FilterParser.h"
#include "FilterSupport.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace filter_support;

TEST(FilterWriter, WritesWhatIsReadAgain)
{
    const LocaleScope scope(u"en_US"_s);
    const std::pair<const char16_t *, const char16_t *> rows[] = {
        {u"visits>7", u"Visits > 7"},
        {u"name = ada", u"Name = \"ada\""},
        {u"name =[C] 'a \"b\" \\\\'", u"Name =[c] \"a \\\"b\\\" \\\\\""},
        {u"checked in = x", u"\"Checked in\" = \"x\""},
        {u"visits in (1,2)", u"Visits IN (1; 2)"},
        {u"name in (a, 'b;c')", u"Name IN (\"a\"; \"b;c\")"},
        {u"born in march 2020", u"Born IN march 2020"},
        {u"born = March 5, 2008", u"Born = \"March 5, 2008\""},
        {u"not name contains x", u"Name NOT CONTAINS \"x\""},
        {u"not visits = 7", u"NOT Visits = 7"},
        {u"visits is not empty", u"Visits IS NOT EMPTY"},
        {u"visits between 1 and 2", u"Visits BETWEEN 1 AND 2"},
        {u"visits = 1 or visits = 2 and name = a", u"Visits = 1 OR (Visits = 2 AND Name = \"a\")"},
        {u"(visits = 1 or visits = 2) and not (name = a and name = b)",
         u"(Visits = 1 OR Visits = 2) AND NOT (Name = \"a\" AND Name = \"b\")"},
        {u"visits contains 1", u"Visits CONTAINS \"1\""},
    };
    const FilterFields fields(people());
    for (const auto &[typed, written] : rows) {
        FilterParser parser(QString::fromUtf16(typed), fields, FilterNotation::Typed);
        const std::optional<FilterNode> node = parser.parse();
        ASSERT_TRUE(node) << parser.problem().reason.toStdString();
        const QString text = FilterWriter::textOf(*node, fields);
        EXPECT_EQ(text, QString::fromUtf16(written));
        EXPECT_EQ(FilterParser(text, fields, FilterNotation::Typed).parse(), node)
            << text.toStdString();
    }
}

TEST(FilterWriter, QuotesNamesThatWouldBeReadAsSomethingElse)
{
    const LocaleScope scope(u"en_US"_s);
    Library library = people();
    const QStringList titles = {u"a = b"_s,    u"x and y"_s, u"Not done"_s, u"in"_s,
                                u"5\" disk"_s, u"it's"_s,    u" padded "_s, u"back\\slash"_s};
    for (qsizetype field = 0; field < titles.size(); ++field)
        library.fields[field].header = titles.at(field);
    const FilterFields fields(library);
    for (qsizetype field = 0; field < titles.size(); ++field) {
        for (const FilterNotation notation : {FilterNotation::Typed, FilterNotation::Portable}) {
            FilterComparison comparison;
            comparison.field = field;
            comparison.operation = FilterOperator::Empty;
            const QString text = FilterWriter::textOf(comparison, fields, notation);
            const auto node = FilterParser(text, fields, notation).parse();
            ASSERT_TRUE(node) << text.toStdString();
            EXPECT_EQ(node->comparison, comparison) << text.toStdString();
        }
    }
}

TEST(FilterWriter, HostileValuesStayWhatTheyAre)
{
    const LocaleScope scope(u"en_US"_s);
    const FilterFields fields(people());
    for (const QString &hostile : testing_support::hostileTexts()) {
        FilterComparison comparison;
        comparison.operation = FilterOperator::In;
        comparison.values = {{hostile.left(2000)}, {u"x"_s}};
        const QString text = FilterWriter::textOf(comparison, fields);
        const auto node = FilterParser(text, fields, FilterNotation::Typed).parse();
        ASSERT_TRUE(node) << text.left(40).toStdString();
        EXPECT_EQ(node->comparison, comparison);
    }
}
