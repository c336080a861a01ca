#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/NSData_KTAdditions>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <random>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QByteArray bytes(const char *hex)
{
    return QByteArray::fromHex(hex);
}

QString resultOf(const QString &operation, const QJsonObject &arguments)
{
    const QByteArray data = QByteArray::fromHex(arguments[u"hex"].toString().toLatin1());
    const QString text = arguments[u"s"].toString();
    const auto hexOf = [](const QByteArray &result) {
        return result.isNull() ? QString() : QString(u""_s + QString::fromLatin1(result.toHex()));
    };
    if (operation == u"base64String")
        return KTAdditions::base64String(data);
    if (operation == u"initWithBase64String:")
        return hexOf(KTAdditions::initWithBase64String(text));
    if (operation == u"md5Digest")
        return hexOf(KTAdditions::md5Digest(data));
    if (operation == u"sha1Digest")
        return hexOf(KTAdditions::sha1Digest(data));
    EXPECT_EQ(operation, u"initWithStringArchive:");
    return hexOf(KTAdditions::initWithStringArchive(text));
}

/// The rules of the encoder, byte by byte.
QByteArray encodedLiterally(const QByteArray &data)
{
    QByteArray text;
    qsizetype at = 0;
    while (at < data.size() && quint8(data[at]) != 0xFF) {
        QByteArray group(1, data[at++]);
        for (int place = 0; place < 2 && at < data.size(); ++place) {
            const char next = data[at++];
            if (quint8(next) == 0xFF)
                break;
            group += next;
        }
        text += group.toBase64();
    }
    return text;
}

QByteArray randomBytes(std::mt19937 &random, int limit, bool hasMarks)
{
    QByteArray data(int(random() % unsigned(limit)), Qt::Uninitialized);
    for (char &byte : data) {
        byte = char(random() % 255);
        if (hasMarks && random() % 5 == 0)
            byte = char(0xFF);
    }
    return data;
}
} // namespace

TEST(NSData_KTAdditions, AreAsTheTableSays)
{
    useFreshHome();
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"system/encodings.jsonl"_s)) {
        const KTLogCapture log(kLog_invalid, 7);
        const QString found = resultOf(row[u"op"].toString(), row[u"args"].toObject());
        const QString where =
            QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact)).left(300);
        QStringList messages;
        const QJsonArray logged = row[u"logs"].toArray();
        for (const QJsonValue &message : logged)
            messages.append(message[3].toString());
        if (row.contains(u"logs")) {
            EXPECT_EQ(log.messages(), messages) << qPrintable(where);
        }
        // What comes of the letters that were never read is left open.
        if (row.contains(u"completeGroups"))
            EXPECT_TRUE(found.startsWith(row[u"completeGroups"].toString())) << qPrintable(where);
        else
            EXPECT_EQ(found, row[u"out"].isNull() ? QString() : row[u"out"].toString())
                << qPrintable(where);
        ++rows;
    }
    EXPECT_EQ(rows, 75);
}

TEST(NSData_KTAdditions, RunTheirExamples)
{
    EXPECT_EQ(KTAdditions::base64String("ABC"), u"QUJD");
    EXPECT_EQ(KTAdditions::base64String(bytes("41ff42")), u"QQ==Qg==");
    EXPECT_EQ(KTAdditions::initWithBase64String(u"QUJD"_s), "ABC");
    EXPECT_EQ(KTAdditions::md5Digest(QByteArray()).toHex(), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(KTAdditions::sha1Digest("abc").toHex(), "a9993e364706816aba3e25717850c26c9cd0d89d");
    const QByteArray picture = bytes("00ff10");
    EXPECT_EQ(KTAdditions::initWithStringArchive(KTAdditions::archiveToString(picture)), picture);
}

TEST(NSData_KTAdditions, PadShortGroups)
{
    EXPECT_EQ(KTAdditions::base64String("A"), u"QQ==");
    EXPECT_EQ(KTAdditions::base64String("AB"), u"QUI=");
    EXPECT_EQ(KTAdditions::base64String(""), u"");
    EXPECT_FALSE(KTAdditions::base64String("").isNull());
    EXPECT_EQ(KTAdditions::base64String(bytes("ff4142")), u"");
    EXPECT_EQ(KTAdditions::base64String(bytes("4142ff43")), u"QUI=Qw==");
    EXPECT_FALSE(KTAdditions::base64String(QByteArray(1000, 'x')).contains(u'\n'));
}

TEST(NSData_KTAdditions, FollowTheRulesOfEndMarksWhateverComes)
{
    std::mt19937 random(20080220);
    for (int round = 0; round < 3000; ++round) {
        const QByteArray data = randomBytes(random, 40, round % 2 == 0);
        ASSERT_EQ(KTAdditions::base64String(data), QString::fromLatin1(encodedLiterally(data)))
            << data.toHex().constData();
        if (!data.contains(char(0xFF))) {
            ASSERT_EQ(KTAdditions::initWithBase64String(KTAdditions::base64String(data)), data);
        }
    }
}

TEST(NSData_KTAdditions, PassOverWhatIsNoLetter)
{
    const KTLogCapture log(kLog_invalid, 7);
    EXPECT_EQ(KTAdditions::initWithBase64String(u" Q\nU\tJ-D."_s), "ABC");
    EXPECT_EQ(KTAdditions::initWithBase64String(u"QQ==QUJD"_s), "A");
    EXPECT_EQ(KTAdditions::initWithBase64String(u"QUJDQUI="_s), "ABCAB");
    EXPECT_TRUE(log.messages().isEmpty());
    const QByteArray nothing = KTAdditions::initWithBase64String(u"QUJDé"_s);
    EXPECT_TRUE(nothing.isEmpty());
    EXPECT_FALSE(nothing.isNull());
    EXPECT_EQ(KTAdditions::initWithBase64String(QString()), "");
    KTAdditions::initWithBase64String(u"QUJDQ"_s);
    EXPECT_EQ(log.messages(), QStringList(u"Base64Error: Premature end of Base64 string"_s));
}

TEST(NSData_KTAdditions, ArchiveDataAsTheTableSays)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/keyed_archive.jsonl"_s)) {
        const QString operation = row[u"op"].toString();
        if (!operation.startsWith(u"archive ") || !row.contains(u"input_hex"))
            continue;
        const QByteArray data = bytes(qPrintable(row[u"input_hex"].toString()));
        const QString text = row[u"expected"].toString();
        const QByteArray read = KTAdditions::initWithStringArchive(text);
        EXPECT_EQ(read, data);
        EXPECT_FALSE(read.isNull());
        if (operation.contains(u" immutable ")) {
            EXPECT_EQ(KTAdditions::archiveToString(data), text);
        }
        ++rows;
    }
    EXPECT_GE(rows, 5);
}

TEST(NSData_KTAdditions, RejectArchivesOfSomethingElse)
{
    const QString good = KTAdditions::archiveToString("ABC");
    const QStringList texts{
        QString(),
        u""_s,
        u"no archive"_s,
        u"é"_s,
        QString(good).replace(u"<integer>1</integer>"_s, u"<integer>7</integer>"_s),
        QString(good).replace(u"<integer>1</integer>"_s, u"<integer>-1</integer>"_s),
        QString(good).replace(u"<integer>1</integer>"_s, u"<string>1</string>"_s),
        QString(good).replace(u"<integer>1</integer>"_s, u"<real>1.4</real>"_s),
        QString(good).replace(u"<integer>1</integer>"_s, u"<real>1</real>"_s),
        QString(good).replace(u"<integer>1</integer>"_s, u"<true/>"_s),
        QString(good).replace(u"<integer>1</integer>"_s, u"<integer>0</integer>"_s),
        QString(good).replace(u"__xml__archive__"_s, u"other"_s),
        u"<plist version=\"1.0\"><array/></plist>"_s};
    for (const QString &text : texts)
        EXPECT_TRUE(KTAdditions::initWithStringArchive(text).isNull()) << qPrintable(text);
    for (const QString &text : hostileTexts()) {
        EXPECT_TRUE(KTAdditions::initWithStringArchive(text).isNull());
        KTAdditions::initWithBase64String(text);
    }
    EXPECT_EQ(KTAdditions::initWithStringArchive(KTAdditions::archiveToString(QByteArray())), "");
}

TEST(NSData_KTAdditions, ArchiveDataOfAnySize)
{
    // From here on, the text is longer than what is read of files.
    QByteArray data(24 << 20, Qt::Uninitialized);
    quint32 state = 1;
    for (char &byte : data) {
        state = state * 1'664'525 + 1'013'904'223;
        byte = char(state >> 24);
    }
    const QString text = KTAdditions::archiveToString(data);
    EXPECT_GT(text.size(), 32 << 20);
    EXPECT_TRUE(KTAdditions::initWithStringArchive(text) == data);
    EXPECT_TRUE(KTAdditions::initWithStringArchive(text.chopped(20)).isNull());
}
