#include "CommandSupport.h"

#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

namespace {
/// The path of a new file with these contents.
QString newFile(const QString &name, const QByteArray &contents)
{
    const QString path = testing_support::useFreshHome() + u'/' + name;
    testing_support::writeFile(path, contents);
    return path;
}

/// Imports without storing.
CommandResult import(const QString &path, const QStringList &options = {})
{
    return runInProcess(QStringList({QStringLiteral("import"), path, QStringLiteral("--dry-run")}) +
                        options);
}

/// What the summary says behind a title.
QString valueOf(const CommandResult &result, const QString &title)
{
    const QStringList lines = result.output.split(u'\n');
    for (const QString &line : lines) {
        if (line.startsWith(title))
            return line.sliced(title.size()).trimmed();
    }
    return {};
}
} // namespace

TEST(ImportCommand, ShowsTheSchema)
{
    const QString path = newFile(QStringLiteral("My friends.csv"),
                                 "First Name;E-mail;e mail;\r\nAnn;a@example.com;;x\r\nBob\r\n");
    const CommandResult result = import(path);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(result.output,
              QStringLiteral("Library:         My friends\n"
                             "Library entity:  lib_my_friends\n"
                             "Entity:          MyFriends\n"
                             "Table:           kt_my_friends\n"
                             "Separator:       semicolon\n"
                             "Rows read:       2\n"
                             "Ragged rows:     1 with fewer or more fields than there are headers\n"
                             "Columns:         4\n"
                             "\n"
                             "#  Header      Label       Property   Internal name  Column name\n"
                             "1  First Name  First Name  firstName  firstName      kt_firstName\n"
                             "2  E-mail      Email       email      email          kt_email\n"
                             "3  e mail      E Mail      eMail      eMail1         kt_eMail1\n"
                             "4                                     field          kt_field\n"
                             "\n"
                             "Column name   Type  Read  Not read  Empty\n"
                             "kt_firstName  text  2     0         0\n"
                             "kt_email      text  1     0         1\n"
                             "kt_eMail1     text  0     0         2\n"
                             "kt_field      text  1     0         1\n"));
}

TEST(ImportCommand, ShowsTypesAndWhatIsNotRead)
{
    QByteArray contents = "Paid;When\n";
    for (int row = 1; row <= 20; ++row)
        contents += QByteArray::number(row) + ",50 €;" + QByteArray::number(row) + ".3.2008\n";
    const QString path = newFile(QStringLiteral("paid.csv"), contents + "a\ncow;30.2.2008\n");
    const CommandResult result =
        import(path, {QStringLiteral("--locale"), QStringLiteral("de_DE")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.endsWith(
        QStringLiteral("Column name  Type            Read  Not read  Empty\n"
                       "kt_paid      currency (EUR)  20    2         0\n"
                       "kt_when      date            20    1         1\n"
                       "\n"
                       "Row  Column name  Text       Not read, since\n"
                       "21   kt_paid      a          it is no amount in this currency\n"
                       "22   kt_paid      cow        it is no amount in this currency\n"
                       "22   kt_when      30.2.2008  it is no date or time\n")))
        << qPrintable(result.output);
}

TEST(ImportCommand, RefusesUnknownLocales)
{
    const QString path = newFile(QStringLiteral("a.csv"), "a\n1\n");
    const CommandResult result = import(path, {QStringLiteral("--locale"), QStringLiteral("xx")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.errors.startsWith(QStringLiteral("cobble: unknown locale 'xx'\n")));
}

TEST(ImportCommand, TheLibraryIsNamedAfterTheFile)
{
    const auto libraryOf = [](const char16_t *name) {
        return valueOf(import(newFile(QString::fromUtf16(name), "a,b\n")),
                       QStringLiteral("Library:"));
    };
    EXPECT_EQ(libraryOf(u"wines.csv"), QStringLiteral("wines"));
    EXPECT_EQ(libraryOf(u"wines.2024.csv"), QStringLiteral("wines.2024"));
    EXPECT_EQ(libraryOf(u"wines"), QStringLiteral("wines"));
    EXPECT_EQ(libraryOf(u".csv"), QStringLiteral(".csv"));
    EXPECT_EQ(libraryOf(u"公司.csv"), QStringLiteral("公司"));
}

TEST(ImportCommand, TheLibraryCanBeNamed)
{
    const CommandResult result = import(newFile(QStringLiteral("a.csv"), "a,b\n"),
                                        {QStringLiteral("--library"), QStringLiteral("Wine List")});
    EXPECT_EQ(valueOf(result, QStringLiteral("Library:")), QStringLiteral("Wine List"));
    EXPECT_EQ(valueOf(result, QStringLiteral("Table:")), QStringLiteral("kt_wine_list"));
}

TEST(ImportCommand, TheSeparatorCanBeGiven)
{
    const QString path = newFile(QStringLiteral("a.csv"), "a,b:c\n1,2:3\n");
    const auto separatorAndColumns = [&](const QString &option) {
        const CommandResult result = import(path, {option});
        return QString(valueOf(result, QStringLiteral("Separator:")) + u' ' +
                       valueOf(result, QStringLiteral("Columns:")));
    };
    EXPECT_EQ(separatorAndColumns(QStringLiteral("--separator=:")), QStringLiteral(": 2"));
    EXPECT_EQ(separatorAndColumns(QStringLiteral("--separator=comma")), QStringLiteral("comma 2"));
    EXPECT_EQ(separatorAndColumns(QStringLiteral("--separator=,")), QStringLiteral("comma 2"));
    EXPECT_EQ(separatorAndColumns(QStringLiteral("--separator=\\t")), QStringLiteral("tab 1"));
    EXPECT_EQ(separatorAndColumns(QStringLiteral("--separator=tab")), QStringLiteral("tab 1"));
    EXPECT_EQ(separatorAndColumns(QStringLiteral("--separator=|")), QStringLiteral("pipe 1"));
}

TEST(ImportCommand, HeadersCannotSteerTheTerminal)
{
    const CommandResult result =
        import(newFile(QStringLiteral("a.csv"), "\"two\nlines\",\x1b[31mred\n"));
    EXPECT_TRUE(result.output.contains(QStringLiteral("two\\nlines")));
    EXPECT_TRUE(result.output.contains(QStringLiteral("\\u001b[31mred")));
    EXPECT_FALSE(result.output.contains(QChar(0x1b)));
}

TEST(ImportCommand, AnUnclosedQuoteIsAWarning)
{
    const QString path = newFile(QStringLiteral("a.csv"), "a,b\n1,2\n3,\"4\n5,6\n");
    const CommandResult result = import(path);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors,
              QString(u"cobble: " + path +
                      u": line 3: a quote is never closed; everything to the end of the file "
                      u"was read as one field\n"));
    EXPECT_EQ(valueOf(result, QStringLiteral("Rows read:")), QStringLiteral("2"));
}

TEST(ImportCommand, WhatCannotBeImportedIsOneLine)
{
    struct FailureCase
    {
        const char *contents;
        qsizetype size;
        const char16_t *reason;
    };
    const QList<FailureCase> cases = {
        {"", 0, u"the file is empty"},
        {"\xef\xbb\xbf", 3, u"the file is empty"},
        {"\n\r\n", 3, u"there is nothing but blank lines"},
        {"a\0b", 3, u"not a text file"},
        {"a,b\nStra\xdf"
         "e",
         10, u"not a text file in UTF-8 (line 2)"},
    };
    for (const FailureCase &row : cases) {
        const QString path = newFile(QStringLiteral("x.csv"), QByteArray(row.contents, row.size));
        const CommandResult result = import(path);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, QString());
        EXPECT_EQ(result.errors,
                  QString(u"cobble: " + path + u": " + QString::fromUtf16(row.reason) + u'\n'));
    }
}

TEST(ImportCommand, MissingFilesAndFolders)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(import(home + u"/no.csv").errors,
              QString(u"cobble: " + home + u"/no.csv: No such file or directory\n"));
    EXPECT_EQ(import(home).errors, QString(u"cobble: " + home + u": is a folder, not a file\n"));
    EXPECT_EQ(import(home).exitCode, 1);
}

TEST(ImportCommand, FileNamesCannotBreakTheMessage)
{
    const CommandResult result = import(QStringLiteral("/no/such\nfile"));
    EXPECT_EQ(result.errors,
              QStringLiteral("cobble: /no/such\\nfile: No such file or directory\n"));
}

TEST(ImportCommand, AFileBehindTwoDashesMayBeginWithOne)
{
    const CommandResult result =
        runInProcess({QStringLiteral("import"), QStringLiteral("--"), QStringLiteral("-no.csv")});
    EXPECT_EQ(result.errors, QStringLiteral("cobble: -no.csv: No such file or directory\n"));
}

TEST(ImportCommand, LogsTheRunAndTheSchema)
{
    const QString path = newFile(QStringLiteral("contacts.csv"), "a,b\n1,2\n");
    KTLogCapture capture(kLog_ImportDialog, 4);
    capture.setLevelOfComponent(4, kLog_SchemaManager);
    import(path);
    EXPECT_EQ(capture.messages(),
              QStringList({QString(path + u": separator comma, 1 rows, 2 columns"),
                           QStringLiteral("library 'contacts': library entity lib_contacts, "
                                          "entity Contacts, table kt_contacts")}));
}

TEST(ImportCommand, LogsEachColumnInDetail)
{
    const QString path = newFile(QStringLiteral("a.csv"), "First Name,\n");
    KTLogCapture capture(kLog_ImportDialog, 7);
    import(path);
    EXPECT_EQ(capture.messages().sliced(1),
              QStringList({QStringLiteral("'First Name': label 'First Name', property firstName, "
                                          "internal name firstName, column kt_firstName"),
                           QStringLiteral("'': label '', property , internal name field, "
                                          "column kt_field")}));
}

TEST(ImportCommand, LogsNothingOnFailure)
{
    KTLogCapture capture(kLog_ImportDialog, 7);
    import(QStringLiteral("/no/such/file"));
    EXPECT_TRUE(capture.messages().isEmpty());
}

TEST(ImportCommand, TheSample)
{
    testing_support::useFreshHome();
    const CommandResult result = import(QStringLiteral(COBBLE_SAMPLES "/contacts.csv"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(valueOf(result, QStringLiteral("Separator:")), QStringLiteral("comma"));
    EXPECT_EQ(valueOf(result, QStringLiteral("Rows read:")), QStringLiteral("302"));
    EXPECT_EQ(valueOf(result, QStringLiteral("Ragged rows:")),
              QStringLiteral("9 with fewer or more fields than there are headers"));
    EXPECT_EQ(valueOf(result, QStringLiteral("Columns:")), QStringLiteral("24"));
    EXPECT_TRUE(result.output.contains(QStringLiteral(
        "11  balance        Balance        balance      balance1       kt_balance1")));
    EXPECT_TRUE(result.output.contains(QStringLiteral("kt_公司\n")));
    EXPECT_TRUE(result.output.contains(
        QStringLiteral("kt_donation     currency (USD)  280   3         19\n")));
    EXPECT_TRUE(result.output.contains(
        QStringLiteral("9    kt_memberSince  2/30/2008           it is no date or time\n")));
}
