// The host stores the same values of the same file in every environment.

#include "EnvironmentSupport.h"

#include "Cobble/Commands/CommandSupport.h"
#include "Library/LibraryStore.h"

#include <KTUtility/NSObject>

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
class EnvironmentHostTests : public testing::Test
{
protected:
    EnvironmentHostTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
    }
    /// The host goes back to the environment's locale after its own.
    ~EnvironmentHostTests() override { environment_support::chooseCalendar(); }

    void run(const QStringList &arguments)
    {
        const CommandResult result = runInProcess(arguments + QStringList({u"--bundle"_s, bundle}));
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }
    void import(const QByteArray &contents)
    {
        tree.add(u"SIZE INFO.csv"_s, contents);
        run({u"import"_s, tree.path(u"SIZE INFO.csv"_s)});
    }
    std::unique_ptr<LibraryStore> store() const
    {
        auto opened = LibraryStore::open(KTDatabaseBundle(bundle), LibraryStore::Mode::Existing);
        EXPECT_TRUE(opened) << opened.reason().toStdString();
        return std::move(opened).valueOr(nullptr);
    }

    FileTree tree;
    QString bundle;
};

/// A stored value as text: dates at the zone's clock. Days alone have no time that counts (noon,
/// but the beginning of the day in Japan).
QString canonical(const LibraryField &field, const QVariant &value)
{
    if (value.typeId() != QMetaType::QDateTime)
        return NSObject::description(value);
    const QString text = environment_support::wallTime(value.toDateTime());
    return field.header == u"Born" ? text.left(10) : text;
}

const QByteArray Unambiguous = "TITLE ID;Count;Born;Seen;Notes;Phone\n"
                               "IIıİi;5;1984-06-06;2008-03-05 17:30:00;x 1;555-0125 x31\n"
                               "i;42;2024-02-29;2018-07-01T00:15:30;;+1 212 555 0135\n"
                               "٣;-7;1951-12-31;2001-01-01 12:00:00;1.;555 0195\n";
} // namespace

TEST_F(EnvironmentHostTests, StoresTheSameValuesOfUnambiguousTexts)
{
    import(Unambiguous);
    const auto opened = store();
    ASSERT_NE(opened, nullptr);
    const auto library = opened->libraryNamed(u"SIZE INFO"_s);
    ASSERT_TRUE(library);
    QStringList rows;
    for (RecordCursor records = opened->records(*library); records.next();) {
        QStringList values;
        for (qsizetype field = 0; field < library->fields.size(); ++field)
            values += canonical(library->fields.at(field), records.value(field));
        rows += values.join(u'|');
    }
    const QStringList expected = {
        u"IIıİi|5|1984-06-06|2008-03-05T17:30:00|x 1|555-0125 x31"_s,
        u"i|42|2024-02-29|2018-07-01T00:15:30|(null)|+1 212 555 0135"_s,
        u"٣|-7|1951-12-31|2001-01-01T12:00:00|1.|555 0195"_s,
    };
    EXPECT_EQ(rows, expected);
}

TEST_F(EnvironmentHostTests, NamesTheTablesTheSame)
{
    import(Unambiguous);
    const auto opened = store();
    ASSERT_NE(opened, nullptr);
    const auto library = opened->libraryNamed(u"size info"_s);
    ASSERT_TRUE(library);
    EXPECT_EQ(library->tableName, u"kt_size_info");
    EXPECT_EQ(library->libraryEntityName, u"lib_size_info");
    QStringList columns;
    for (const LibraryField &field : library->fields)
        columns += field.columnName;
    EXPECT_EQ(columns.join(u' '), u"kt_titleId kt_count kt_born kt_seen kt_notes kt_phone");
}

TEST_F(EnvironmentHostTests, ExportsTheSameBytesForOneLocale)
{
    import(Unambiguous);
    run({u"export"_s, u"SIZE INFO"_s, u"--locale"_s, u"en_US"_s, u"--to"_s,
         tree.path(u"out.csv"_s)});
    EXPECT_EQ(QString::fromUtf8(contentsOf(tree.path(u"out.csv"_s))),
              u"TITLE ID,Count,Born,Seen,Notes,Phone\r\n"
              u"IIıİi,5,6/6/1984,3/5/2008 5:30 PM,x 1,555-0125 x31\r\n"
              u"i,42,2/29/2024,7/1/2018 12:15 AM,,+1 (212) 555-0135\r\n"
              u"٣,-7,12/31/1951,1/1/2001 12:00 PM,1.,555-0195\r\n");
}

TEST_F(EnvironmentHostTests, ExportsValuesWithoutTheLocalesWriting)
{
    import("Count;Note\n1234;a\n5;b\n");
    run({u"export"_s, u"SIZE INFO"_s, u"--to"_s, tree.path(u"out.json"_s)});
    const QByteArray text = contentsOf(tree.path(u"out.json"_s));
    EXPECT_EQ(QString::fromUtf8(text.simplified()),
              uR"([ {"count": 1234, "note": "a"}, {"count": 5, "note": "b"} ])");
}

TEST_F(EnvironmentHostTests, WhatIsShownComesBackFromItsOwnExport)
{
    import(Unambiguous);
    const auto exportTo = [this](const QString &library, const QString &file) {
        run({u"export"_s, library, u"--to"_s, tree.path(file)});
        return QString::fromUtf8(contentsOf(tree.path(file)));
    };
    const QString first = exportTo(u"SIZE INFO"_s, u"Again.csv"_s);
    run({u"import"_s, tree.path(u"Again.csv"_s)});
    EXPECT_EQ(exportTo(u"Again"_s, u"2.csv"_s), first);
}
