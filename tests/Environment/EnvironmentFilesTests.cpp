// What is written is the same, byte for byte, whatever the environment.

#include "EnvironmentSupport.h"

#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTLogger>
#include <KTUtility/KTMediaFilenameMunger>
#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSData_KTAdditions>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSString_KTNaming>
#include <KTUtility/NSUserDefaults>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Values/WallClock_p.h>

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
/// Letters whose case Turkish has otherwise, and values that locales write in their own ways.
QVariantMap values()
{
    return {{u"INFO"_s, u"Iıİi ٣"_s},
            {u"date"_s, QDateTime(QDate(2008, 3, 5), QTime(16, 27, 1), KTPrivate::UTC)},
            {u"number"_s, 1234567},
            {u"real"_s, 1234.5},
            {u"yes"_s, true}};
}

QByteArray document(const QByteArray &dictionary)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n<dict>\n" +
           dictionary + "</dict>\n</plist>\n";
}

const QByteArray &valuesAsXML()
{
    static const QByteArray xml =
        document("\t<key>INFO</key>\n\t<string>Iıİi ٣</string>\n"
                 "\t<key>date</key>\n\t<date>2008-03-05T16:27:01Z</date>\n"
                 "\t<key>number</key>\n\t<integer>1234567</integer>\n"
                 "\t<key>real</key>\n\t<real>1234.5</real>\n"
                 "\t<key>yes</key>\n\t<true/>\n");
    return xml;
}

QString preferences(const QString &home, const QString &domain)
{
    return home + u"/.local/share/Cobble/Preferences/" + domain + u".plist";
}

struct Naming
{
    const char16_t *title;
    const char16_t *property;
    const char16_t *entity;
    const char16_t *table;
    const char16_t *column;
};
constexpr Naming Names[] = {
    {u"TITLE INFO", u"titleInfo", u"TitleInfo", u"kt_title_info", u"kt_titleInfo"},
    {u"image id", u"imageId", u"ImageId", u"kt_image_id", u"kt_imageId"},
    {u"ISBN", u"iSBN", u"Isbn", u"kt_isbn", u"kt_iSBN"},
    {u"Field ٣", u"field٣", u"Field٣", u"kt_field_٣", u"kt_field٣"},
    {u"ID I İ", u"idII\u0307", u"IdII\u0307", u"kt_id_i_i\u0307", u"kt_idII\u0307"},
};
} // namespace

TEST(EnvironmentFiles, PropertyListsAreTheSameBytes)
{
    EXPECT_EQ(NSPropertyListSerialization::dataWithPropertyList(values()), valuesAsXML());
    EXPECT_EQ(
        NSPropertyListSerialization::propertyListFromData(valuesAsXML()).toMap().value(u"date"_s),
        values().value(u"date"_s));
}

TEST(EnvironmentFiles, UserDefaultsAreTheSameBytes)
{
    const QString home = testing_support::useFreshHome();
    const QString domain = u"org.example.INFO"_s;
    {
        NSUserDefaults defaults(domain);
        const QVariantMap given = values();
        for (auto each = given.begin(); each != given.end(); ++each)
            defaults.setObject(each.value(), each.key());
        EXPECT_EQ(defaults.stringForKey(u"real"_s), u"1234.5");
        EXPECT_EQ(defaults.stringForKey(u"number"_s), u"1234567");
    }
    EXPECT_EQ(contentsOf(preferences(home, domain)), valuesAsXML());
    EXPECT_EQ(NSUserDefaults(domain).doubleForKey(u"real"_s), 1234.5);
}

TEST(EnvironmentFiles, LoggerSettingsAreTheSameBytes)
{
    const QString home = testing_support::useFreshHome();
    KTLogger logger;
    logger.setLevelOfComponent(4, kLog_ImportDialog);
    EXPECT_EQ(contentsOf(preferences(home, u"org.cobble.Cobble.ktlogger"_s)),
              document("\t<key>components</key>\n\t<dict>\n\t\t<key>Import Dialog</key>\n"
                       "\t\t<integer>4</integer>\n\t</dict>\n\t<key>displayFileLine</key>\n"
                       "\t<false/>\n\t<key>writeToFile</key>\n\t<true/>\n"));
}

TEST(EnvironmentFiles, LogLinesHaveEnglishDatesOfTheZonesClock)
{
    const QString home = testing_support::useFreshHome();
    KTLogger logger;
    logger.setLevelOfComponent(4, kLog_ImportDialog);
    const qint64 before = KTPrivate::WallClock::milliseconds();
    logger.logComponent(kLog_ImportDialog, 4, "INFO.cpp", 42, u"%@ %d %.2f %05d %@", u"Iıİi",
                        1234567, 1234.5, -42, 0.5);
    const qint64 after = KTPrivate::WallClock::milliseconds();
    const QString line =
        QString::fromUtf8(contentsOf(home + u"/.local/share/Cobble/Logs/cobble.log"));
    constexpr qsizetype DateLength = 28;
    EXPECT_EQ(line.mid(DateLength),
              u" [INFO.cpp:42][Import Dialog] Iıİi 1234567 1234.50 -0042 0.5\n");
    const QDateTime clock =
        QLocale::c().toDateTime(line.left(DateLength), u"ddd MMM dd yyyy HH:mm:ss.zzz"_s);
    ASSERT_TRUE(clock.isValid()) << line.toStdString();
    const auto clockOf = [](qint64 instant) {
        const QDateTime zoned =
            QDateTime::fromMSecsSinceEpoch(instant, environment_support::zone());
        return QDateTime(zoned.date(), zoned.time(), KTPrivate::UTC);
    };
    const QDateTime shown(clock.date(), clock.time(), KTPrivate::UTC);
    EXPECT_GE(shown, clockOf(before));
    EXPECT_LE(shown, clockOf(after));
}

TEST(EnvironmentFiles, MediaNamesAreTheSame)
{
    const FileTree tree;
    tree.add(u"IMAGE İı.JPG"_s);
    const QString stored =
        KTMediaFilenameMunger::copyFileToDbAndReturnDBStoredName(tree.path(u"IMAGE İı.JPG"_s));
    EXPECT_EQ(QFileInfo(stored).fileName(), u"IMAGE İı.0.JPG");
    tree.addCopies(u"IMAGE İı.%d.JPG"_s, 0, 12);
    EXPECT_EQ(QFileInfo(KTMediaFilenameMunger::makeDBStoredNamefromOriginalFileName(
                            tree.path(u"IMAGE İı.JPG"_s)))
                  .fileName(),
              u"IMAGE İı.13.JPG");
    const KTDatabaseBundle bundle(tree.path(u"INFO.cobbledb"_s));
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    EXPECT_EQ(
        QFileInfo(bundle.copyFilePathToMediaFolderAndReturnMediaPath(tree.path(u"IMAGE İı.JPG"_s)))
            .fileName(),
        u"IMAGE İı.0.JPG");
}

TEST(EnvironmentFiles, InternalNamesDoNotDependOnTheLanguage)
{
    for (const Naming &name : Names) {
        const QString title = QString::fromUtf16(name.title);
        EXPECT_EQ(KTAdditions::propertyString(title), QString::fromUtf16(name.property));
        EXPECT_EQ(KTAdditions::entityString(title), QString::fromUtf16(name.entity));
        EXPECT_EQ(KTAdditions::tableNameString(title), QString::fromUtf16(name.table));
        EXPECT_EQ(KTAdditions::tableColumnString(title), QString::fromUtf16(name.column));
    }
    EXPECT_EQ(KTAdditions::labelString(u"titleInfo"_s), u"Title Info");
    EXPECT_EQ(KTAdditions::properNounString(u"image"_s), u"Image");
    const QVariantList taken = {QVariantMap{{u"name"_s, u"title"_s}},
                                QVariantMap{{u"name"_s, u"TITLE1"_s}}};
    EXPECT_EQ(
        KTAdditions::internalCaseInsensitiveUniqueStringWithBase(taken, u"TITLE"_s, u"name"_s),
        u"TITLE2");
}
