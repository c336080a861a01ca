#include "Import/ImportFile.h"

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <QDir>

using namespace Qt::StringLiterals;
using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
class ImportFileTests : public testing::Test
{
protected:
    ImportFileTests()
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        request.libraryName = u"People"_s;
        request.bundle = KTDatabaseBundle(tree.path(u"b.cobbledb"_s));
    }

    Outcome<ImportFile> read(const QString &name, const QByteArray &contents)
    {
        tree.add(name, contents);
        request.path = tree.path(name);
        return ImportFile::read(request);
    }

    /// The names of the libraries in the bundle.
    QStringList libraryNames() const
    {
        QStringList names;
        const auto store = LibraryStore::open(request.bundle, LibraryStore::Mode::Existing);
        const auto libraries = store ? (*store)->libraries().valueOr({}) : QList<Library>();
        for (const Library &library : libraries)
            names += library.name;
        return names;
    }

    FileTree tree;
    ImportRequest request;
};

/// The texts of the fields of the first row.
QStringList firstRowOf(const ImportFile &file)
{
    QStringList first;
    (void)file.rows->whileRows([&first](qint64, const QStringList &fields) {
        first = fields;
        return false;
    });
    return first;
}
} // namespace

TEST_F(ImportFileTests, RunsItsExample)
{
    const auto file = read(u"people.csv"_s, "Name,Age\nAnn,5\nBob,6\n");
    ASSERT_TRUE(file) << file.reason().toStdString();
    EXPECT_EQ(file->schema.libraryName, u"People");
    EXPECT_EQ(file->schema.columns.size(), 2);
    EXPECT_EQ(file->media.folder(), tree.root());
    EXPECT_EQ(file->extracted, nullptr);
    const auto stored = file->store(request);
    ASSERT_TRUE(stored) << stored.reason().toStdString();
    EXPECT_EQ(stored->recordCount, 2);
    EXPECT_EQ(stored->library.name, u"People");
    EXPECT_EQ(stored->values.columns[1].typeName, u"number");
    EXPECT_EQ(libraryNames(), QStringList(u"People"_s));
}

TEST_F(ImportFileTests, ItsExtensionSaysHowItIsRead)
{
    struct Row
    {
        QString name;
        QByteArray contents;
        QStringList headers;
        QStringList firstRow;
    };
    const Row rows[] = {
        {u"a.csv"_s, "a,b\n1,2\n", {u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}},
        {u"a.TSV"_s, "a\tb\n1\t2\n", {u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}},
        {u"a.txt"_s, "a;b\n1;2\n", {u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}},
        {u"plain"_s, "a,b\n1,2\n", {u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}},
        // Nobody reads such files, so that they are tried as separated texts.
        {u"a.none"_s, "a,b\n1,2\n", {u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}},
        {u"ä ö.csv"_s, "ä,日\nß,本\n", {u"ä"_s, u"日"_s}, {u"ß"_s, u"本"_s}},
    };
    for (const Row &row : rows) {
        const auto file = read(row.name, row.contents);
        ASSERT_TRUE(file) << row.name.toStdString() << ": " << file.reason().toStdString();
        EXPECT_EQ(file->rows->headers(), row.headers) << row.name.toStdString();
        EXPECT_EQ(firstRowOf(*file), row.firstRow) << row.name.toStdString();
    }
}

TEST_F(ImportFileTests, TheRequestMaySayTheSeparator)
{
    request.separator = u'|';
    const auto file = read(u"a.csv"_s, "a,b|c\n1,2|3\n");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->rows->separator(), u'|');
    EXPECT_EQ(file->rows->headers(), QStringList({u"a,b"_s, u"c"_s}));
}

TEST_F(ImportFileTests, ColumnsOfMediaAreNamedByTheirHeaders)
{
    request.mediaHeaders = QStringList{u"Picture"_s};
    const auto file = read(u"a.csv"_s, "Name,Picture\nAnn,a.png\n");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->settings.types.value(1), FieldType::Media);
    EXPECT_FALSE(file->settings.types.contains(0));
    EXPECT_EQ(file->media.trustedColumns(), QSet<qsizetype>({1}));
    for (const QString &header : {u"picture"_s, u""_s, u"Pictur"_s}) {
        request.mediaHeaders = QStringList{header};
        EXPECT_EQ(ImportFile::read(request).reason(),
                  QString(u"there is no column '" + header + u"'"));
    }
}

TEST_F(ImportFileTests, MediaAreFoundFromTheFilesFolderOn)
{
    tree.add(u"folder/a.png"_s);
    const auto file = read(u"folder/a.csv"_s, "Name,Picture\nAnn,a.png\n");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->media.folder(), tree.path(u"folder"_s));
    EXPECT_TRUE(file->settings.isMedia(u"a.png"_s));
    EXPECT_FALSE(file->settings.isMedia(u"b.png"_s));
    EXPECT_FALSE(file->settings.isMedia(QString()));
}

TEST_F(ImportFileTests, APreviewLooksAtMediaAndStoresNothing)
{
    const LoopbackServer server;
    request.mediaHeaders = QStringList{u"Picture"_s};
    tree.add(u"a.png"_s);
    const auto file = read(u"a.csv"_s, "Picture\na.png\nnone.png\n/usr/share\n" +
                                           server.url(u"/pic.jpg"_s).toUtf8() + "\nftp://a/b\n");
    ASSERT_TRUE(file);
    const QJsonObject before = tree.contents();
    const auto values = file->preview(request);
    ASSERT_TRUE(values);
    EXPECT_EQ(values->columns.at(0).read, 2);
    QStringList reasons;
    for (const ImportValues::Unread &unread : values->unread)
        reasons += unread.reason;
    EXPECT_EQ(reasons, QStringList({u"there is no such file"_s, u"it is a folder"_s,
                                    u"it names no file"_s}));
    EXPECT_EQ(tree.contents(), before);
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(ImportFileTests, DownloadsCanBeCancelled)
{
    const LoopbackServer server;
    request.mediaHeaders = QStringList{u"Picture"_s};
    auto file = read(u"a.csv"_s, "Picture\n" + server.url(u"/pic.jpg"_s).toUtf8() + "\n");
    ASSERT_TRUE(file);
    file->settings.progress = [](qint64, qint64) { return false; };
    EXPECT_TRUE(file->store(request).isCancelled());
    EXPECT_TRUE(server.requests().isEmpty());
    EXPECT_FALSE(request.bundle.doesExist());
}

TEST_F(ImportFileTests, LargeFilesAreCopiedWithProgress)
{
    QFile large(tree.path(u"large.mov"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64(8) << 20));
    tree.add(u"small.png"_s);
    const auto callsFor = [this](const QByteArray &row) {
        request.mediaHeaders = QStringList{u"File"_s};
        auto file = read(u"a.csv"_s, "File\n" + row + '\n');
        QList<qint64> rows;
        file->settings.progress = [&rows](qint64 current, qint64) {
            rows += current;
            return true;
        };
        const auto stored = file->store(request);
        EXPECT_TRUE(stored) << stored.reason().toStdString();
        return rows;
    };
    EXPECT_EQ(callsFor("small.png"), QList<qint64>({0, 1}));
    const QList<qint64> rows = callsFor("large.mov");
    EXPECT_GE(rows.size(), 3);
    EXPECT_EQ(rows.last(), 1);
    EXPECT_EQ(QFileInfo(request.bundle.mediaFolderPath() + u"/large.0.mov").size(), qint64(8)
                                                                                        << 20);
}

TEST_F(ImportFileTests, WhatCannotBeReadIsSaid)
{
    request.path = tree.path(u"none.csv"_s);
    EXPECT_EQ(ImportFile::read(request).reason(), u"No such file or directory");
    request.path = tree.root();
    EXPECT_FALSE(ImportFile::read(request));
    EXPECT_FALSE(read(u"empty.csv"_s, ""));
    const QByteArray wide = QByteArray("x,").repeated(2000) + "\n";
    EXPECT_EQ(read(u"wide.csv"_s, wide).reason(),
              u"line 1 has 2001 columns, more than the 1999 that a library can have");
}

TEST_F(ImportFileTests, ALongFileIsStoredWhole)
{
    const auto file = read(u"a.csv"_s, "Name\n" + QByteArray("Ann\n").repeated(20'000));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->rows->rowCount(), 20'000);
    const auto stored = file->store(request);
    ASSERT_TRUE(stored) << stored.reason().toStdString();
    EXPECT_EQ(stored->recordCount, 20'000);
}

TEST_F(ImportFileTests, StoringTwiceMakesTwoLibrariesUnlessOneIsReplaced)
{
    const auto file = read(u"a.csv"_s, "Name\nAnn\n");
    ASSERT_TRUE(file);
    ASSERT_TRUE(file->store(request));
    ASSERT_TRUE(file->store(request));
    EXPECT_EQ(libraryNames(), QStringList({u"People"_s, u"People 1"_s}));
    request.replaces = true;
    const auto stored = file->store(request);
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->library.name, u"People");
    EXPECT_EQ(libraryNames().size(), 2);
}

TEST_F(ImportFileTests, AllOfItIsStoredOrNothing)
{
    auto file = read(u"a.csv"_s, "Name\nAnn\nBob\n");
    ASSERT_TRUE(file);
    file->settings.progress = [](qint64 row, qint64) { return row < 2; };
    const auto stored = file->store(request);
    EXPECT_FALSE(stored);
    EXPECT_TRUE(stored.isCancelled());
    EXPECT_EQ(tree.contents().keys(), QStringList(u"a.csv"_s));
}

TEST_F(ImportFileTests, AnotherImportIsWaitedForOnlySoLong)
{
    const auto file = read(u"a.csv"_s, "Name\nAnn\n");
    ASSERT_TRUE(file);
    const auto other = ImportTransaction::begin(request.bundle);
    ASSERT_TRUE(other);
    EXPECT_FALSE(file->store(request, 0));
    EXPECT_TRUE(libraryNames().isEmpty());
}

TEST_F(ImportFileTests, ColumnsAreLeftOutRenamedAndTyped)
{
    request.skipped = {u"secret"_s};
    request.newHeaders = {{u"nr"_s, u"Number"_s}};
    request.types = {{u"nr"_s, FieldType::Text}};
    request.conventions[u"when"_s].order = u"dmy"_s;
    const Outcome<ImportFile> file =
        read(u"a.csv"_s, "secret,nr,when\nx,1,2/3/2008\ny,2,3/4/2008\n");
    ASSERT_TRUE(file) << file.reason().toStdString();
    EXPECT_EQ(file->rows->headers(), QStringList({u"Number"_s, u"when"_s}));
    EXPECT_EQ(file->columns.headers, QStringList({u"secret"_s, u"nr"_s, u"when"_s}));
    const Outcome<StoredImport> stored = file->store(request);
    ASSERT_TRUE(stored) << stored.reason().toStdString();
    EXPECT_EQ(stored->library.fields.at(0).header, u"Number"_s);
    EXPECT_EQ(stored->library.fields.at(0).type, FieldType::Text);
    EXPECT_EQ(stored->values.columns.at(1).decision.readAs, u"day, month, year"_s);
}

TEST_F(ImportFileTests, ColumnsAreChosenByPositionWhereHeadersAreTheSame)
{
    request.columns[0].isSkipped = true;
    request.columns[1].header = u"second"_s;
    request.columns[2].type = FieldType::Text;
    const Outcome<ImportFile> file = read(u"a.csv"_s, "a,a,a\n1,2,3\n");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->rows->headers(), QStringList({u"second"_s, u"a"_s}));
    EXPECT_EQ(file->preview(request)->columns.at(1).typeName, u"text"_s);
    EXPECT_EQ(file->preview(request)->columns.at(0).typeName, u"number"_s);
}

TEST_F(ImportFileTests, OneColumnMustBeLeft)
{
    request.skipped = {u"a"_s};
    EXPECT_EQ(read(u"a.csv"_s, "a\n1\n").reason(), u"no column is left"_s);
    request.skipped = {u"b"_s};
    EXPECT_EQ(read(u"a.csv"_s, "a\n1\n").reason(), u"there is no column 'b'"_s);
}

TEST_F(ImportFileTests, ThePreviewShowsTheFirstRowsAsTheLibraryWould)
{
    request.locale = u"de_DE"_s;
    const Outcome<ImportFile> file =
        read(u"a.csv"_s, "Wer;Betrag;Wann\nAnn;1.234,50;3.4.2008\nBob;x;4.5.2008\nCy;;5.6.2008\n" +
                             QByteArray("Dee;1,5;1.1.2001\n").repeated(20));
    ASSERT_TRUE(file);
    ShownRows shown;
    shown.most = 3;
    const Outcome<ImportValues> values = file->preview(request, &shown);
    ASSERT_TRUE(values);
    EXPECT_EQ(values->unread.size(), 1);
    EXPECT_EQ(shown.types, QList<FieldType>({FieldType::Text, FieldType::Number, FieldType::Date}));
    EXPECT_EQ(shown.rows, QList<QStringList>({{u"Ann"_s, u"1,235"_s, u"4/3/2008"_s},
                                              {u"Bob"_s, u"x"_s, u"5/4/2008"_s},
                                              {u"Cy"_s, u""_s, u"6/5/2008"_s}}));
    EXPECT_EQ(libraryNames(), QStringList());
}

TEST_F(ImportFileTests, AFileThatChangesMeanwhileIsNotStored)
{
    const Outcome<ImportFile> file = read(u"a.csv"_s, "a\n1\n");
    tree.add(u"a.csv"_s, "a\n1\n2\n");
    EXPECT_EQ(file->store(request).reason(), u"the file was changed while it was read"_s);
    EXPECT_EQ(libraryNames(), QStringList());
}

TEST_F(ImportFileTests, ChoicesForOtherColumnsDoNotCount)
{
    request.columns[1].isSkipped = true;
    request.chosenFor = FileColumns{{u"a;x"_s, u"b;secret"_s}, true, u',', u"UTF-8"_s};
    const QByteArray contents = "a;x,b;secret\n1;2,3;4\n";
    request.separator = u',';
    auto file = read(u"a.csv"_s, contents);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->hasOtherColumns);
    EXPECT_EQ(file->rows->headers(), QStringList(u"a;x"_s));
    request.separator = u';';
    file = read(u"a.csv"_s, contents);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->hasOtherColumns);
    EXPECT_EQ(file->rows->headers(), QStringList({u"a"_s, u"x,b"_s, u"secret"_s}));
    // Where the first row is a row of values, columns are still where they were.
    request.separator = u',';
    request.hasHeaders = false;
    file = read(u"a.csv"_s, contents);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->hasOtherColumns);
    EXPECT_EQ(file->rows->headers(), QStringList(u"Column 1"_s));
}

TEST_F(ImportFileTests, AnImportTellsItsStep)
{
    const auto first = read(u"a.csv"_s, "Name\nAnn\n");
    const auto stored = first->store(request);
    ASSERT_TRUE(stored);
    const auto other = *read(u"b.csv"_s, "Name\nBob\n");
    const auto next = other.store(request);
    ASSERT_TRUE(next);
    EXPECT_GT(stored->step, 0);
    EXPECT_GT(next->step, stored->step);
    EXPECT_EQ(stored->stepTitle.kind, StepKinds::Import);
}
