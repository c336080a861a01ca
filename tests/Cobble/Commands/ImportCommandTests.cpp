#include "CommandSupport.h"

#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

using namespace Qt::StringLiterals;

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
    return runInProcess(QStringList({u"import"_s, path, u"--dry-run"_s}) + options);
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
    const QString path = newFile(u"My friends.csv"_s,
                                 "First Name;E-mail;e mail;\r\nAnn;a@example.com;;x\r\nBob\r\n");
    const CommandResult result = import(path);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(result.output, u"Library:         My friends\n"
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
                             "kt_field      text  1     0         1\n"_s);
}

TEST(ImportCommand, ShowsTypesAndWhatIsNotRead)
{
    QByteArray contents = "Paid;When\n";
    for (int row = 1; row <= 20; ++row)
        contents += QByteArray::number(row) + ",50 €;" + QByteArray::number(row) + ".3.2008\n";
    const QString path = newFile(u"paid.csv"_s, contents + "a\ncow;30.2.2008\n");
    const CommandResult result = import(path, {u"--locale"_s, u"de_DE"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.endsWith(
        u"Column name  Type            Read  Not read  Empty\n"
        "kt_paid      currency (EUR)  20    2         0\n"
        "kt_when      date            20    1         1\n"
        "\n"
        "Column name  Read as           Since                   "
        "Contradicting\n"
        "kt_paid      1.234,5           20 of 20 values decide\n"
        "kt_when      day, month, year  8 of 20 values decide\n"
        "\n"
        "Row  Column name  Text       Not read, since\n"
        "21   kt_paid      a          The text is no amount in EUR, or has something else in it.\n"
        "22   kt_paid      cow        The text is no amount in EUR, or has something else in it.\n"
        "22   kt_when      30.2.2008  There is no such date.\n"_s))
        << qPrintable(result.output);
}

namespace {
/// The lines of a report between a title and the next empty line.
QStringList tableIn(const QString &report, const QString &title)
{
    const qsizetype begin = report.indexOf(title);
    return begin < 0
               ? QStringList()
               : report.mid(begin).section(u"\n\n"_s, 0, 0).split(u'\n', Qt::SkipEmptyParts).mid(1);
}

CommandResult importTyped(const QByteArray &contents, const QStringList &options = {})
{
    return import(newFile(u"typed.csv"_s, contents),
                  QStringList{u"--locale"_s, u"en_US"_s} + options);
}

const QString Decisions = u"Column name  Read as"_s;
const QString UnreadTitle = u"Row  Column name  Text"_s;
} // namespace

TEST(ImportCommand, OneDateDecidesHowTheOthersAreRead)
{
    QByteArray contents = "When\n";
    for (int day = 1; day <= 12; ++day)
        contents += QByteArray::number(day) + "/2/2016\n";
    const CommandResult open = importTyped(contents);
    EXPECT_EQ(tableIn(open.output, Decisions),
              QStringList{u"kt_when      month, day, year  no value decides; the locale's own"_s});
    const CommandResult decided = importTyped(contents + "13/2/2016\n");
    EXPECT_EQ(tableIn(decided.output, Decisions),
              QStringList{u"kt_when      day, month, year  1 of 13 values decide"_s});
    EXPECT_FALSE(decided.output.contains(UnreadTitle));
}

TEST(ImportCommand, TellsWhatContradicts)
{
    QByteArray contents = "When\n";
    for (int day = 13; day <= 28; ++day)
        contents += QByteArray::number(day) + "/2/2016\n";
    const CommandResult result = importTyped(contents + "2/14/2016\n1/2/2016\n");
    EXPECT_EQ(tableIn(result.output, Decisions),
              QStringList{u"kt_when      day, month, year  16 of 18 values decide  row 17"_s});
    EXPECT_EQ(
        tableIn(result.output, UnreadTitle),
        QStringList{
            u"17   kt_when      2/14/2016  The text contradicts what the other texts of its column are read by."_s});
}

TEST(ImportCommand, TwoHandsDecideNothing)
{
    QByteArray contents = "Price\n";
    for (int row = 0; row < 7; ++row)
        contents += "\"1,5\"\n1.5\n\"1,234\"\n1.234\n";
    const CommandResult result = importTyped(contents, {u"--decimal"_s, u"Price=point"_s});
    EXPECT_EQ(tableIn(result.output, Decisions),
              QStringList{u"kt_price     1,234.5  you say so  rows 1, 5, 9, 13, 17 and 2 more"_s});
    const QByteArray open = QByteArray("3/4/2016\n").repeated(20);
    const CommandResult mixed = importTyped("When\n" + open + "13/2/2016\n2/14/2016\n");
    EXPECT_EQ(tableIn(mixed.output, Decisions),
              QStringList{u"kt_when      month, day, year  "
                          "the values contradict each other; the locale's own  row 21"_s});
}

TEST(ImportCommand, DoesAsItIsTold)
{
    const QByteArray contents = "When,Price,Cost\n3/2/2016,1.234,$5\n4/2/2016,5.678,$6\n";
    EXPECT_EQ(
        tableIn(importTyped(contents).output, Decisions),
        (QStringList{u"kt_when      month, day, year  no value decides; the locale's own"_s,
                     u"kt_price     1,234.5           no value decides; the locale's own"_s}));
    const CommandResult told =
        importTyped(contents, {u"--order"_s, u"When=dmy"_s, u"--decimal"_s, u"Price=comma"_s,
                               u"--unit"_s, u"Cost=USD"_s});
    EXPECT_EQ(tableIn(told.output, Decisions),
              (QStringList{u"kt_when      day, month, year  you say so"_s,
                           u"kt_price     1.234,5           you say so"_s,
                           u"kt_cost      USD               you say so"_s}));
}

TEST(ImportCommand, StoresWhatWasDecided)
{
    const QByteArray contents = "When,Price\n3/2/2016,1.234\n13/2/2016,\"0,5\"\n";
    const CommandResult stored =
        runInProcess({u"import"_s, newFile(u"dates.csv"_s, contents), u"--locale"_s, u"en_US"_s});
    ASSERT_EQ(stored.exitCode, 0) << qPrintable(stored.errors);
    const CommandResult shown = runInProcess({u"show"_s, u"dates"_s, u"--locale"_s, u"en_US"_s});
    EXPECT_TRUE(shown.output.contains(u"2/3/2016"_s)) << qPrintable(shown.output);
    EXPECT_TRUE(shown.output.contains(u"1,234"_s)) << qPrintable(shown.output);
}

TEST(ImportCommand, RejectsConventionsThatThereAreNot)
{
    const QString path = newFile(u"a.csv"_s, "When\n3/2/2016\n");
    for (const QStringList &options :
         {QStringList{u"--order"_s, u"When=dym"_s}, QStringList{u"--order"_s, u"dmy"_s},
          QStringList{u"--decimal"_s, u"When=;"_s}, QStringList{u"--unit"_s, u"When=XXX"_s},
          QStringList{u"--unit"_s, u"When="_s}}) {
        const CommandResult result = import(path, options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_TRUE(
            result.errors.startsWith(u"cobble: bad %1 '%2'\n"_s.arg(options[0], options[1])))
            << qPrintable(result.errors.left(80));
    }
    const CommandResult unknown = import(path, {u"--order"_s, u"a=b=dmy"_s});
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_TRUE(unknown.errors.contains(u"there is no column 'a=b'"_s))
        << qPrintable(unknown.errors);
}

TEST(ImportCommand, RejectsUnknownLocales)
{
    const QString path = newFile(u"a.csv"_s, "a\n1\n");
    const CommandResult result = import(path, {u"--locale"_s, u"xx"_s});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.errors.startsWith(u"cobble: unknown locale 'xx'\n"_s));
}

TEST(ImportCommand, TheLibraryIsNamedAfterTheFile)
{
    const auto libraryOf = [](const char16_t *name) {
        return valueOf(import(newFile(QString::fromUtf16(name), "a,b\n")), u"Library:"_s);
    };
    EXPECT_EQ(libraryOf(u"wines.csv"), u"wines"_s);
    EXPECT_EQ(libraryOf(u"wines.2024.csv"), u"wines.2024"_s);
    EXPECT_EQ(libraryOf(u"wines"), u"wines"_s);
    EXPECT_EQ(libraryOf(u".csv"), u".csv"_s);
    EXPECT_EQ(libraryOf(u"公司.csv"), u"公司"_s);
}

TEST(ImportCommand, TheLibraryCanBeNamed)
{
    const CommandResult result =
        import(newFile(u"a.csv"_s, "a,b\n"), {u"--library"_s, u"Wine List"_s});
    EXPECT_EQ(valueOf(result, u"Library:"_s), u"Wine List"_s);
    EXPECT_EQ(valueOf(result, u"Table:"_s), u"kt_wine_list"_s);
}

TEST(ImportCommand, TheSeparatorCanBeGiven)
{
    const QString path = newFile(u"a.csv"_s, "a,b:c\n1,2:3\n");
    const auto separatorAndColumns = [&](const QString &option) {
        const CommandResult result = import(path, {option});
        return QString(valueOf(result, u"Separator:"_s) + u' ' + valueOf(result, u"Columns:"_s));
    };
    EXPECT_EQ(separatorAndColumns(u"--separator=:"_s), u": 2"_s);
    EXPECT_EQ(separatorAndColumns(u"--separator=comma"_s), u"comma 2"_s);
    EXPECT_EQ(separatorAndColumns(u"--separator=,"_s), u"comma 2"_s);
    EXPECT_EQ(separatorAndColumns(u"--separator=\\t"_s), u"tab 1"_s);
    EXPECT_EQ(separatorAndColumns(u"--separator=tab"_s), u"tab 1"_s);
    EXPECT_EQ(separatorAndColumns(u"--separator=|"_s), u"pipe 1"_s);
}

TEST(ImportCommand, HeadersCannotSteerTheTerminal)
{
    const CommandResult result = import(newFile(u"a.csv"_s, "\"two\nlines\",\x1b[31mred\n"));
    EXPECT_TRUE(result.output.contains(u"two\\nlines"_s));
    EXPECT_TRUE(result.output.contains(u"\\u001b[31mred"_s));
    EXPECT_FALSE(result.output.contains(QChar(0x1b)));
}

TEST(ImportCommand, AnUnclosedQuoteIsAWarning)
{
    const QString path = newFile(u"a.csv"_s, "a,b\n1,2\n3,\"4\n5,6\n");
    const CommandResult result = import(path);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors,
              QString(u"cobble: " + path +
                      u": line 3: a quote is never closed; everything to the end of the file "
                      u"was read as one field\n"));
    EXPECT_EQ(valueOf(result, u"Rows read:"_s), u"2"_s);
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
        const QString path = newFile(u"x.csv"_s, QByteArray(row.contents, row.size));
        const CommandResult result = import(path);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, QString());
        EXPECT_EQ(result.errors,
                  QString(u"cobble: " + path + u": " + QString::fromUtf16(row.reason) + u'\n'));
    }
}

TEST(ImportCommand, MissingFilesAndFoldersAreTold)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(import(home + u"/no.csv").errors,
              QString(u"cobble: " + home + u"/no.csv: No such file or directory\n"));
    EXPECT_EQ(import(home).errors, QString(u"cobble: " + home + u": is a folder, not a file\n"));
    EXPECT_EQ(import(home).exitCode, 1);
}

TEST(ImportCommand, FileNamesCannotBreakTheMessage)
{
    const CommandResult result = import(u"/no/such\nfile"_s);
    EXPECT_EQ(result.errors, u"cobble: /no/such\\nfile: No such file or directory\n"_s);
}

TEST(ImportCommand, AFileBehindTwoDashesMayBeginWithOne)
{
    const CommandResult result = runInProcess({u"import"_s, u"--"_s, u"-no.csv"_s});
    EXPECT_EQ(result.errors, u"cobble: -no.csv: No such file or directory\n"_s);
}

TEST(ImportCommand, LogsTheRunAndTheSchema)
{
    const QString path = newFile(u"contacts.csv"_s, "a,b\n1,2\n");
    KTLogCapture capture(kLog_ImportDialog, 4);
    capture.setLevelOfComponent(4, kLog_SchemaManager);
    import(path);
    EXPECT_EQ(capture.messages(),
              QStringList({QString(path + u": separator comma, 1 rows, 2 columns"),
                           u"library 'contacts': library entity lib_contacts, "
                           "entity Contacts, table kt_contacts"_s}));
}

TEST(ImportCommand, LogsEachColumnInDetail)
{
    const QString path = newFile(u"a.csv"_s, "First Name,\n");
    KTLogCapture capture(kLog_ImportDialog, 7);
    import(path);
    EXPECT_EQ(capture.messages().sliced(1),
              QStringList({u"'First Name': label 'First Name', property firstName, "
                           "internal name firstName, column kt_firstName"_s,
                           u"'': label '', property , internal name field, "
                           "column kt_field"_s}));
}

TEST(ImportCommand, LogsNothingOnFailure)
{
    KTLogCapture capture(kLog_ImportDialog, 7);
    import(u"/no/such/file"_s);
    EXPECT_TRUE(capture.messages().isEmpty());
}

TEST(ImportCommand, ImportsTheSample)
{
    testing_support::useFreshHome();
    const CommandResult result = import(QStringLiteral(COBBLE_SAMPLES "/contacts.csv"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(valueOf(result, u"Separator:"_s), u"comma"_s);
    EXPECT_EQ(valueOf(result, u"Rows read:"_s), u"302"_s);
    EXPECT_EQ(valueOf(result, u"Ragged rows:"_s),
              u"9 with fewer or more fields than there are headers"_s);
    EXPECT_EQ(valueOf(result, u"Columns:"_s), u"24"_s);
    EXPECT_TRUE(result.output.contains(
        u"11  balance        Balance        balance      balance1       kt_balance1"_s));
    EXPECT_TRUE(result.output.contains(u"kt_公司\n"_s));
    EXPECT_TRUE(result.output.contains(u"kt_donation     currency (USD)  280   3         19\n"_s));
    EXPECT_TRUE(result.output.contains(
        u"9    kt_memberSince  2/30/2008           There is no such date.\n"_s));
}

TEST(ImportCommand, WhatIsToldDecidesTheType)
{
    const QByteArray clocks = "Took\n1:30\n0:45\n12:10\n";
    const CommandResult durations = importTyped(clocks, {u"--unit"_s, u"Took=m:s"_s});
    EXPECT_EQ(tableIn(durations.output, Decisions),
              QStringList{u"kt_took      minutes:seconds  you say so"_s});
    EXPECT_TRUE(durations.output.contains(u"duration"_s)) << qPrintable(durations.output);
    EXPECT_FALSE(importTyped(clocks).output.contains(u"duration"_s));
}

TEST(ImportCommand, TellsWhatItIsToldInVain)
{
    const CommandResult words =
        importTyped("Name\nAnn\nBob\n", {u"--unit"_s, u"Name=m:s"_s, u"--order"_s, u"Name=dmy"_s});
    EXPECT_EQ(tableIn(words.output, Decisions),
              QStringList{u"kt_name      text     told without effect: dmy, m:s"_s});
}

TEST(ImportCommand, ReadsOtherEncodingsIfItIsTold)
{
    const QByteArray german = "Stra\xdf"
                              "e;Ort\nM\xfchlweg, sch\xf6n;K\xf6ln\nGr\xfc"
                              "ner Weg;M\xfcnchen\n";
    const QString path = newFile(u"orte.csv"_s, german);
    EXPECT_TRUE(import(path).errors.contains(u"not a text file in UTF-8 (line 1)"));
    for (const QString &name : {u"auto"_s, u"windows-1252"_s, u"cp1252"_s}) {
        const CommandResult result = import(path, {u"--encoding"_s, name});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        EXPECT_EQ(valueOf(result, u"Encoding:"_s), u"windows-1252"_s);
        EXPECT_TRUE(result.output.contains(u"Straße"));
    }
    const CommandResult unknown = import(path, {u"--encoding"_s, u"klingon"_s});
    EXPECT_NE(unknown.exitCode, 0);
    EXPECT_TRUE(unknown.errors.contains(u"unknown encoding 'klingon'; there are auto, UTF-8,"));
    // Nothing is said of what everybody has.
    EXPECT_TRUE(valueOf(import(newFile(u"a.csv"_s, "a\n1\n")), u"Encoding:"_s).isNull());
}

TEST(ImportCommand, TakesColumnsAsItIsTold)
{
    const QString path = newFile(u"a.csv"_s, "nr,name=x,code\n1,Ann,5\n2,Bob,6\n");
    const CommandResult result = import(
        path, {u"--skip"_s, u"nr"_s, u"--rename"_s, u"name=x=Name"_s, u"--type"_s, u"code=text"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(valueOf(result, u"Columns:"_s), u"2"_s);
    EXPECT_EQ(valueOf(result, u"kt_name "_s), u"text  2     0         0"_s);
    EXPECT_EQ(valueOf(result, u"kt_code "_s), u"text  2     0         0"_s);
    for (const QStringList &options :
         {QStringList{u"--rename"_s, u"nr"_s}, QStringList{u"--rename"_s, u"nr= "_s},
          QStringList{u"--type"_s, u"nr=cow"_s}, QStringList{u"--type"_s, u"=text"_s}})
        EXPECT_TRUE(import(path, options)
                        .errors.contains(u"bad %1 '%2'"_s.arg(options.at(0), options.at(1))));
}

TEST(ImportCommand, FilesMayHaveNoHeaders)
{
    const CommandResult result = import(newFile(u"a.csv"_s, "1,Ann\n2,Bob\n"), {u"--no-header"_s});
    EXPECT_EQ(valueOf(result, u"Rows read:"_s), u"2"_s);
    EXPECT_TRUE(result.output.contains(u"1  Column 1"));
    EXPECT_TRUE(result.output.contains(u"2  Column 2"));
}

TEST(ImportCommand, SaysHowManyMoreAreNotRead)
{
    const CommandResult result =
        importTyped("When\n" + QByteArray("x\n").repeated(10'007), {u"--type"_s, u"When=date"_s});
    EXPECT_EQ(result.exitCode, 0);
    const QStringList listed = tableIn(result.output, u"Column name  Text"_s);
    ASSERT_EQ(listed.size(), 10'001);
    EXPECT_EQ(listed.constLast(), u"and 7 more, which are not listed"_s);
}
