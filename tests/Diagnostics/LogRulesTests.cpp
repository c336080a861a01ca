#include <KTUtility/Diagnostics/LogRules_p.h>
#include <KTUtility/KTLogger>
#include <KTUtility/NSPropertyListSerialization>

#include "support/EnvironmentGuard.h"
#include "support/RunNamedProgram.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using testing_support::runNamedProgram;
using testing_support::standardErrorOf;

namespace {
struct Row
{
    const char16_t *text;
    QVariantMap levels;
    QStringList rejected;
};
} // namespace

TEST(LogRules, AreReadFromOneText)
{
    const Row rows[] = {
        {u"", {}, {}},
        {u"Import=4,Undo=7", {{u"Import"_s, 4}, {u"Undo"_s, 7}}, {}},
        {u" Drag & Drop = 3 ,", {{u"Drag & Drop"_s, 3}}, {}},
        {u"Import=4,Import=0", {{u"Import"_s, 0}}, {}},
        {u"a=b=2", {}, {u"a=b=2"_s}},
        {u"Import=4;Undo=7,Sync=1", {{u"Sync"_s, 1}}, {u"Import=4;Undo=7"_s}},
        {u"Import;Undo=7", {}, {u"Import;Undo=7"_s}},
        {u"Import,=4,Undo=8,Tests=-1,x=y,Sync=5",
         {{u"Sync"_s, 5}},
         {u"Import"_s, u"=4"_s, u"Undo=8"_s, u"Tests=-1"_s, u"x=y"_s}},
    };
    for (const Row &row : rows) {
        const LogRules rules = LogRules::in(row.text);
        EXPECT_EQ(rules.levels, row.levels) << QString::fromUtf16(row.text).toStdString();
        EXPECT_EQ(rules.rejected, row.rejected) << QString::fromUtf16(row.text).toStdString();
    }
}

TEST(LogRules, OfTheEnvironmentAreInForceAndNotSaved)
{
    const QString home = testing_support::useFreshHome();
    const auto result = runNamedProgram({u"log"_s}, {{u"KTLOG"_s, u"Import=4"_s}});
    EXPECT_EQ(result.facts.value(u"importLevel"_s).toInt(), 4);
    const QString folder = home + u"/.local/share/Cobble/";
    EXPECT_TRUE(testing_support::contentsOf(folder + u"Logs/cobble.log").contains("at work"));
    EXPECT_FALSE(QFile::exists(folder + u"Preferences/org.cobble.Cobble.ktlogger.plist"));
    EXPECT_EQ(runNamedProgram({}).facts.value(u"importLevel"_s).toInt(), 0);
}

TEST(LogRules, StandUntilALevelIsSet)
{
    testing_support::useFreshHome();
    const QMap<QString, QString> environment{{u"KTLOG"_s, u"Import=2,Sync=3"_s}};
    const auto levelAfter = [&](const QString &step) {
        return runNamedProgram({step}, environment).facts.value(u"importLevel"_s).toInt();
    };
    EXPECT_EQ(levelAfter(u"useSettings"_s), 2);
    EXPECT_EQ(levelAfter(u"raise levels"_s), 7);
    // Saved as 7 by now; the environment comes first again.
    EXPECT_EQ(levelAfter(u"useSettings"_s), 2);
    EXPECT_EQ(levelAfter(u"switch off"_s), 0);
}

TEST(LogRules, WhatIsNoneIsToldOnce)
{
    testing_support::useFreshHome();
    const testing_support::EnvironmentGuard rules("KTLOG", "Tests=much,Tests=5");
    const QString first =
        standardErrorOf([] { EXPECT_EQ(KTLogger().levelOfComponent(kLog_Tests), 5); });
    const QString second = standardErrorOf([] { KTLogger(); });
    EXPECT_TRUE(first.endsWith(u"KTLOG: \"Tests=much\" is no rule such as \"Import=4\"\n"))
        << first.toStdString();
    EXPECT_EQ(second, QString());
}
