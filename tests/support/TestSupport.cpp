#include "TestSupport.h"

#include <KTUtility/NSObject>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLocale>

#include <cstdio>
#include <ctime>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

void PrintTo(const QString &text, std::ostream *stream)
{
    if (text.isNull())
        *stream << "nil";
    else
        *stream << '"' << text.toStdString() << '"';
}

void PrintTo(const QStringView &text, std::ostream *stream)
{
    PrintTo(text.toString(), stream);
}

void PrintTo(const QVariant &value, std::ostream *stream)
{
    *stream << (value.isValid() ? value.typeName() : "nil") << ' '
            << NSObject::description(value).toStdString();
}

namespace {
/// Standard error goes into memory as long as this lives: a disk may be full.
class CapturedError
{
public:
    CapturedError()
    {
        std::fflush(stderr);
        EXPECT_GE(::dup2(_memory, STDERR_FILENO), 0);
    }

    ~CapturedError()
    {
        std::fflush(stderr);
        ::dup2(_own, STDERR_FILENO);
        ::close(_own);
        ::close(_memory);
    }

    CapturedError(const CapturedError &) = delete;
    CapturedError &operator=(const CapturedError &) = delete;

    QString text() const
    {
        std::fflush(stderr);
        QFile file;
        EXPECT_TRUE(file.open(_memory, QIODevice::ReadOnly));
        EXPECT_TRUE(file.seek(0));
        return QString::fromUtf8(file.readAll());
    }

private:
    const int _own = ::dup(STDERR_FILENO);
    const int _memory = ::memfd_create("standard error", MFD_CLOEXEC);
};
} // namespace

namespace testing_support {
void pinEnvironment(const char *platform)
{
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("LANG", "C.UTF-8");
    qputenv("TZ", "America/New_York");
    ::tzset();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    pinAllButLocaleAndZone(platform);
}

void pinAllButLocaleAndZone(const char *platform)
{
    // It would go before the language of the locale.
    qunsetenv("LANGUAGE");
    qputenv("QT_QPA_PLATFORM", platform);
    useFreshHome();
}

QString useFreshHome()
{
    static QList<std::shared_ptr<QTemporaryDir>> homes;
    homes.append(std::make_shared<QTemporaryDir>());
    const QString home = homes.last()->path();
    qputenv("HOME", home.toLocal8Bit());
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("XDG_CONFIG_HOME");
    return home;
}

void needApplication()
{
    static int argumentCount = 1;
    static char name[] = "KTUtilityTests";
    static char *arguments[] = {name, nullptr};
    static auto *application = new QApplication(argumentCount, arguments);
    Q_UNUSED(application);
}

void turn()
{
    for (int round = 0; round < 5; ++round)
        QCoreApplication::processEvents();
}

QList<QJsonObject> rowsOf(const QString &table)
{
    QFile file(QStringLiteral(KTUTILITY_TEST_DATA) + u'/' + table);
    QList<QJsonObject> rows;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << "no table " << table.toStdString();
    while (!file.atEnd()) {
        const QJsonDocument row = QJsonDocument::fromJson(file.readLine());
        if (row.isObject())
            rows += row.object();
    }
    EXPECT_FALSE(rows.isEmpty()) << "empty table " << table.toStdString();
    return rows;
}

QString standardErrorOf(const std::function<void()> &action)
{
    const CapturedError captured;
    action();
    return captured.text();
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &contents)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(contents), contents.size());
}

QString megabyteOf(const QString &piece)
{
    return piece.repeated((1 << 20) / piece.size() + 1);
}

const QList<QString> &hostileTexts()
{
    static const QList<QString> texts = {
        QString(),
        u""_s,
        u" \t\n"_s,
        QString(QChar(0xD800)),
        QString(QChar(0xDC00)) + u'a' + QChar(0xD83D),
        u"e\u0301\u0301\u0301"_s,
        u"\u0301"_s,
        u"a%1b"_s.arg(QChar(0)),
        u"\u202Eשם משפחה"_s,
        u"الاسم الأول"_s,
        u"姓 名"_s,
        u"👩‍👩‍👧 😀"_s,
        u"%@ %s %n %d"_s,
        megabyteOf(u"a"_s),
        megabyteOf(u" a"_s),
        megabyteOf(u" "_s),
        megabyteOf(u"Ä-.😀"_s),
    };
    return texts;
}
} // namespace testing_support
