#include <KTUtility/Diagnostics/LogComponents_p.h>
#include <KTUtility/Diagnostics/LogSettingsFile_p.h>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLogComponent>

#include "support/RunNamedProgram.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(KTLogComponent, NamesAreNotEmptyAndHoldNoControls)
{
    static_assert(KTLogComponent::isName(u"Import"));
    static_assert(KTLogComponent::isName(u"Drag & Drop — ä"));
    static_assert(!KTLogComponent::isName(u""));
    static_assert(!KTLogComponent::isName(u"a\n"));
    static_assert(!KTLogComponent::isName(u"a\x7F"));
    static_assert(!KTLogComponent::isName(u"a\u0085"));
    static_assert(!KTLogComponent::isName(u"Nul\0x"));
    static_assert(!KTLogComponent::isName(u"a\xFFFE"));
    static_assert(!KTLogComponent::isName(u"a\xFDD0"));
    static_assert(!KTLogComponent::isName(u"a\xD83D"));
    static_assert(!KTLogComponent::isName(u"\xDE00z"));
    static_assert(!KTLogComponent::isName(u"\xD83D\xD83D\xDE00"));
    static_assert(KTLogComponent::isName(u"\U0001F600"));
    EXPECT_TRUE(KTLogComponent::isName(kLog_Tests.toStdU16String()));
}

TEST(KTLogComponent, SettingsHoldWhateverIsAName)
{
    int names = 0;
    for (char32_t unit = 0; unit < 0x10000; ++unit) {
        const QString name{QChar(unit)};
        if (!KTLogComponent::isName(name.toStdU16String()))
            continue;
        ++names;
        ASSERT_TRUE(LogSettingsFile::canHoldName(name)) << quint32(unit);
    }
    EXPECT_EQ(names, 0x10000 - 0x20 - 0x21 - 0x800 - 0x20 - 2);
}

TEST(KTLogComponent, WhatIsNoNameIsNotDeclared)
{
    const QStringList before = LogComponents::declared();
    for (const QString &name : {QString(), u""_s, u"a\nb"_s, QString(QChar(0)),
                                QString(u"a"_s + QChar(0xFFFE)), QString(QChar(0xD800))})
        LogComponents::declare(name);
    EXPECT_EQ(LogComponents::declared(), before);
}

TEST(KTLogComponent, StandsForItsNameWhereverOneIsTaken)
{
    // Built in, so that it is in the list and no other test sees a new one.
    const KTLogComponent component(kLog_Tests);
    EXPECT_EQ(component.name(), kLog_Tests);
    const KTLogCapture capture(component, 4);
    KTLog(component, 4, u"%d rows", 3);
    KTLog(component, 5, u"%d rows", 4);
    EXPECT_EQ(capture.messages(), QStringList{u"3 rows"_s});
    EXPECT_EQ(capture.entries().constFirst().component, kLog_Tests);
}

TEST(KTLogComponent, IsListedOnceAndKeepsItsPlace)
{
    const KTLogComponent first(kLog_Tests);
    const KTLogComponent second(kLog_Undo);
    const KTLogComponent again(kLog_Tests);
    const QStringList declared = LogComponents::declared();
    EXPECT_EQ(declared.count(kLog_Tests), 1);
    EXPECT_LT(declared.indexOf(kLog_Tests), declared.indexOf(kLog_Undo));
    EXPECT_EQ(LogComponents::inMenu().size(), 39);
}

TEST(KTLogComponent, DeclaredOnesStandBehindTheBuiltInOnes)
{
    testing_support::useFreshHome();
    const QStringList menu = testing_support::runNamedProgram({}).texts(u"menu"_s);
    EXPECT_EQ(menu.mid(38), (QStringList{u"Upgrade"_s, u"Import"_s, u"Sync"_s}));
}
