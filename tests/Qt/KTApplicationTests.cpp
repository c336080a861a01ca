#include <KTUtility/KTApplication>

#include <KTUtility/NSBundle>
#include <KTUtility/NSException>
#include <KTUtility/NSPropertyListSerialization>

#include "support/RunNamedProgram.h"
#include "support/TestSupport.h"

#include <QDir>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::NamedProgramResult;
using testing_support::runNamedProgram;

namespace {
const QJsonObject Expenses{{u"identifier"_s, u"org.example.expenses"_s},
                           {u"folder"_s, u"Expenses"_s},
                           {u"logFile"_s, u"spent.log"_s},
                           {u"plugInFolders"_s, QJsonArray{u"/usr/lib/expenses/PlugIns"_s}}};
const QJsonObject Books{{u"identifier"_s, u"org.example.Books"_s}};

class KTApplicationTests : public testing::Test
{
protected:
    QString data(const QString &path) const { return home + u"/.local/share/" + path; }
    QString text(const QString &path) const { return QString::fromUtf8(contentsOf(data(path))); }
    QVariantMap dictionary(const QString &path) const
    {
        return NSDictionary::dictionaryWithContentsOfFile(data(path)).value_or(QVariantMap());
    }
    /// The entries of the user's data.
    QStringList folders() const
    {
        return QDir(data({})).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    QString home = testing_support::useFreshHome();
};

struct Rejected
{
    KTApplication::Identity identity;
    QString reason;
};

KTApplication::Identity expenses()
{
    return {.identifier = u"org.example.expenses"_s, .folder = u"Expenses"_s};
}
} // namespace

TEST_F(KTApplicationTests, AProgramHasItsOwnFolderSettingsLogAndPlugIns)
{
    const NamedProgramResult result =
        runNamedProgram({Expenses, u"useSettings"_s, u"raise levels"_s, u"log"_s});
    EXPECT_EQ(result.texts(u"rejections"_s), QStringList{QString()});
    EXPECT_EQ(result.text(u"identifier"_s), u"org.example.expenses");
    EXPECT_EQ(result.text(u"library"_s), data(u"Expenses"_s));
    EXPECT_EQ(dictionary(u"Expenses/Preferences/org.example.expenses.plist"_s),
              (QVariantMap{{u"rows"_s, 5}}));
    EXPECT_EQ(result.text(u"levels"_s),
              data(u"Expenses/Preferences/org.example.expenses.ktlogger.plist"_s));
    EXPECT_TRUE(
        text(u"Expenses/Logs/spent.log"_s).endsWith(u"[Import] org.example.expenses at work\n"))
        << text(u"Expenses/Logs/spent.log"_s).toStdString();
    EXPECT_EQ(result.texts(u"searchFolders"_s),
              (QStringList{data(u"Expenses/PlugIns/Exporters"_s),
                           u"/usr/lib/expenses/PlugIns/Exporters"_s}));
    EXPECT_EQ(folders(), QStringList{u"Expenses"_s});
}

TEST_F(KTApplicationTests, WhatIsLeftEmptyIsNamedAfterTheIdentifier)
{
    const NamedProgramResult result = runNamedProgram({Books, u"raise levels"_s, u"log"_s});
    EXPECT_EQ(result.text(u"folder"_s), u"Books");
    EXPECT_EQ(result.text(u"logFile"_s), u"books.log");
    EXPECT_TRUE(text(u"Books/Logs/books.log"_s).contains(u"org.example.Books at work"));
    EXPECT_EQ(folders(), QStringList{u"Books"_s});
}

TEST_F(KTApplicationTests, TwoProgramsHaveTwoLogs)
{
    runNamedProgram({Expenses, u"raise levels"_s, u"log"_s});
    runNamedProgram({Books, u"raise levels"_s, u"log"_s});
    EXPECT_TRUE(text(u"Expenses/Logs/spent.log"_s).contains(u"org.example.expenses at work"));
    EXPECT_FALSE(text(u"Expenses/Logs/spent.log"_s).contains(u"Books"));
    EXPECT_TRUE(text(u"Books/Logs/books.log"_s).contains(u"org.example.Books at work"));
    EXPECT_EQ(folders(), (QStringList{u"Books"_s, u"Expenses"_s}));
}

TEST_F(KTApplicationTests, AProgramThatSaysNothingIsNamedAsBefore)
{
    const NamedProgramResult result =
        runNamedProgram({u"useSettings"_s, u"raise levels"_s, u"log"_s});
    EXPECT_EQ(result.text(u"identifier"_s), u"org.cobble.Cobble");
    EXPECT_EQ(result.text(u"library"_s), data(u"Cobble"_s));
    EXPECT_TRUE(text(u"Cobble/Logs/cobble.log"_s).contains(u"org.cobble.Cobble at work"));
    EXPECT_EQ(result.texts(u"searchFolders"_s).size(), 3);
    EXPECT_EQ(folders(), QStringList{u"Cobble"_s});
}

TEST_F(KTApplicationTests, TestModeLeavesTheUsersFilesAlone)
{
    const NamedProgramResult result =
        runNamedProgram({u"testMode"_s, Expenses, u"useSettings"_s, u"raise levels"_s, u"log"_s});
    const QString folder = home + u"/.qttest/share/Expenses";
    EXPECT_EQ(result.text(u"library"_s), folder);
    EXPECT_TRUE(QFile::exists(folder + u"/Preferences/org.example.expenses.plist"));
    EXPECT_TRUE(contentsOf(folder + u"/Logs/spent.log").contains("at work"));
    EXPECT_EQ(result.texts(u"searchFolders"_s).constFirst(), folder + u"/PlugIns/Exporters");
    EXPECT_EQ(folders(), QStringList());
}

TEST_F(KTApplicationTests, TheLogMenuListsWhatTheProgramSays)
{
    const QStringList own{u"Import"_s, u"Sync"_s};
    EXPECT_EQ(runNamedProgram({Books}).texts(u"menu"_s), own);
    const QStringList unnamed = runNamedProgram({}).texts(u"menu"_s);
    EXPECT_EQ(unnamed.size(), 39 + 2);
    EXPECT_EQ(unnamed.mid(39), own);
    QJsonObject both = Books;
    both.insert(u"showsBuiltIn"_s, true);
    EXPECT_EQ(runNamedProgram({both}).texts(u"menu"_s), unnamed);
    QJsonObject chosen = Books;
    chosen.insert(u"logComponents"_s, QJsonArray{u"Tests"_s, u"Sync"_s});
    EXPECT_EQ(runNamedProgram({chosen}).texts(u"menu"_s), (QStringList{u"Tests"_s, u"Sync"_s}));
    chosen.insert(u"showsBuiltIn"_s, true);
    const QStringList mixed = runNamedProgram({chosen}).texts(u"menu"_s);
    EXPECT_EQ(mixed.mid(38), (QStringList{u"Upgrade"_s, u"Sync"_s}));
}

TEST_F(KTApplicationTests, IsToldOnceAndInTime)
{
    const auto rejections = [](const QJsonArray &steps) {
        return runNamedProgram(steps).texts(u"rejections"_s);
    };
    EXPECT_EQ(rejections({Expenses, u"useSettings"_s, Expenses}), (QStringList{{}, {}}));
    EXPECT_EQ(rejections({Expenses, Books}),
              (QStringList{{}, u"The program is org.example.expenses already."_s}));
    EXPECT_EQ(
        rejections({u"useSettings"_s, Expenses}),
        QStringList{u"It is too late: the program's identifier has been asked for already."_s});
    EXPECT_EQ(rejections({u"raise levels"_s, Expenses}),
              QStringList{u"It is too late: the log file has been asked for already."_s});
}

TEST_F(KTApplicationTests, ALateIdentityChangesNothing)
{
    const QString before = NSHostIdentifier();
    EXPECT_THROW(KTApplication::setIdentity(expenses()), NSException);
    EXPECT_EQ(NSHostIdentifier(), before);
    EXPECT_FALSE(KTApplication::identity().has_value());
}

TEST_F(KTApplicationTests, RejectsWhatCannotNameAnything)
{
    EXPECT_TRUE(KTApplication::reasonToReject(expenses()).isNull());
    EXPECT_TRUE(KTApplication::reasonToReject({.identifier = u"x"_s}).isNull());
    QList<Rejected> rows(10, {expenses(), {}});
    rows[0] = {{}, u"The identifier is missing."_s};
    rows[1].identity.identifier = u"org/example"_s;
    rows[1].reason = u"The identifier \"org/example\" cannot be the name of a file."_s;
    rows[2].identity.folder = u".."_s;
    rows[2].reason = u"The folder \"..\" cannot be the name of a file."_s;
    rows[3].identity.logFile = u"logs/expenses.log"_s;
    rows[3].reason = u"The log file \"logs/expenses.log\" cannot be the name of a file."_s;
    rows[4].identity.plugInFolders = {u"/usr/lib/x"_s, u"PlugIns"_s};
    rows[4].reason = u"The plug-in folder \"PlugIns\" is no absolute path."_s;
    rows[5].identity.logComponents = {u"Import"_s, QString(QChar(7))};
    rows[5].reason = u"\"" + QString(QChar(7)) + u"\" cannot be the name of a log component.";
    rows[6].identity.identifier = u"org.example."_s;
    rows[6].identity.folder.clear();
    rows[6].reason = u"The folder is missing."_s;
    const QString impossible[] = {u"a\nb"_s, QString(224, u'x'), QString(112, u'ä')};
    for (int index = 0; index < 3; ++index) {
        rows[7 + index].identity.identifier = impossible[index];
        rows[7 + index].reason =
            u"The identifier \"" + impossible[index] + u"\" cannot be the name of a file.";
    }
    EXPECT_TRUE(KTApplication::reasonToReject({.identifier = QString(219, u'x')}).isNull());
    for (const Rejected &row : std::as_const(rows)) {
        EXPECT_EQ(KTApplication::reasonToReject(row.identity), row.reason);
        try {
            KTApplication::setIdentity(row.identity);
            FAIL() << row.reason.toStdString();
        } catch (const NSException &exception) {
            EXPECT_EQ(exception.name(), NSInvalidArgumentException);
            EXPECT_EQ(exception.reason(), row.reason);
        }
    }
}
