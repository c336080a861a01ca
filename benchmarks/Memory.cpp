#include "Memory.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTLogger>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTPropertyBinder>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSData_KTArchives>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/NSKeyValueObservation>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSString_KTNaming>

#include <QDateTime>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>
#include <malloc.h>
#include <memory>
#include <unicode/decimfmt.h>
#include <unicode/smpdtfmt.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// The bytes that are in use, with what malloc needs to manage them.
size_t bytesInUse()
{
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

// --- Bytes of one object ------------------------------------------------------------------------

constexpr int ObjectCount = 1000;

/// The bytes that each of many objects takes, with all that it owns. What all share is made before.
template<typename Make>
double bytesOfEach(const Make &make)
{
    using Object = decltype(make());
    std::vector<Object> objects;
    objects.reserve(ObjectCount + 1);
    objects.push_back(make());
    const size_t before = bytesInUse();
    for (int index = 0; index < ObjectCount; ++index)
        objects.push_back(make());
    return double(bytesInUse() - before) / ObjectCount;
}

template<typename Formatter>
double bytesOfFormatter(const QString &text)
{
    return bytesOfEach([&text] {
        auto formatter = std::make_unique<Formatter>();
        // Used, so that what is made on demand is there.
        QVariant value;
        formatter->getObjectValue(&value, text);
        formatter->stringForObjectValue(value);
        return formatter;
    });
}

double bytesOfDecimalFormat()
{
    return bytesOfEach([] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::NumberFormat>(
            icu::NumberFormat::createInstance(icu::Locale("en_US"), UNUM_DECIMAL, status));
    });
}

double bytesOfDateFormat()
{
    return bytesOfEach([] {
        UErrorCode status = U_ZERO_ERROR;
        return std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(u"M/d/yy"),
                                                       icu::Locale("en_US"), status);
    });
}

/// A component with a level, as the logger keeps it once its settings are read.
double bytesOfComponent()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"levels.plist"_s);
    QVariantMap levels;
    for (int index = 0; index < ObjectCount; ++index)
        levels.insert(u"Component %1"_s.arg(index), 1);
    NSDictionary::writeToFile({{KTLoggerComponentsKey, levels}}, path, true);
    levels.clear();
    KTLogger logger;
    const size_t before = bytesInUse();
    logger.loadConfigFile(path);
    return double(bytesInUse() - before) / ObjectCount;
}

double bytesOfCategory()
{
    return bytesOfEach([] { return std::make_unique<QLoggingCategory>("category"); });
}

/// What stands in for a view and for a record.
class Observed : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name NOTIFY nameChanged)

public:
    QString name;

Q_SIGNALS:
    void nameChanged();
};

double bytesOfBinder()
{
    static Observed view;
    static Observed record;
    const QString name = u"name"_s;
    return bytesOfEach([&name] {
        auto binder = std::make_unique<KTPropertyBinder>(name, name, &view);
        binder->bind(name, &record, name, {});
        return binder;
    });
}

double bytesOfObservation()
{
    static Observed record;
    return bytesOfEach([] {
        return std::make_unique<NSKeyValueObservation>(
            &record, u"name"_s, NSKeyValueObservingOptionNew, [](const NSKeyValueChange &) {});
    });
}

double bytesOfConnection()
{
    static Observed record;
    return bytesOfEach([] {
        auto receiver = std::make_unique<QObject>();
        QObject::connect(&record, &Observed::nameChanged, receiver.get(), [] {});
        return receiver;
    });
}

void printObject(const char *object, double ours, const char *peer, double peers)
{
    std::printf("%-46s %12.0f %12.0f %7.2f  %s\n", object, ours, peers, ours / peers, peer);
}

void printFormatters()
{
    const QString date = u"3/4/08"_s;
    const QString time = u"9:05"_s;
    const QString number = u"1,234.5"_s;
    const double decimal = bytesOfDecimalFormat();
    const double simple = bytesOfDateFormat();
    const auto besideDecimal = [decimal](const char *object, double bytes) {
        printObject(object, bytes, "DecimalFormat", decimal);
    };
    const auto besideSimple = [simple](const char *object, double bytes) {
        printObject(object, bytes, "SimpleDateFormat", simple);
    };
    besideDecimal("KTNumberFormatter", bytesOfFormatter<KTNumberFormatter>(number));
    besideDecimal("KTCurrencyFormatter", bytesOfFormatter<KTCurrencyFormatter>(number));
    besideDecimal("KTPhoneNumberFormatter", bytesOfFormatter<KTPhoneNumberFormatter>(number));
    besideSimple("KTDateTimeFormatter", bytesOfFormatter<KTDateTimeFormatter>(date));
    besideSimple("KTTimeFormatter", bytesOfFormatter<KTTimeFormatter>(time));
    besideSimple("KTDurationFormatter", bytesOfFormatter<KTDurationFormatter>(time));
}

void printObjects()
{
    std::printf("\n%-46s %12s %12s %7s  %s\n", "one object (bytes, with all that it owns)", "ours",
                "peer", "ratio", "peer");
    printFormatters();
    printObject("component of the logger that is on", bytesOfComponent(), "QLoggingCategory",
                bytesOfCategory());
    const double connection = bytesOfConnection();
    printObject("KTPropertyBinder, bound", bytesOfBinder(), "QObject with a connection",
                connection);
    printObject("NSKeyValueObservation", bytesOfObservation(), "QObject with a connection",
                connection);
}

// --- Bytes of one locale ------------------------------------------------------------------------

/// What the first text with common forms makes in a locale, beyond what a field makes without them;
/// all fields of the process share it.
template<typename Formatter>
double bytesOfLocale(const QString &locale, const QString &text)
{
    const auto bytesOfReading = [&](bool readsCommonForms) {
        const size_t before = bytesInUse();
        Formatter formatter;
        formatter.setReadsCommonForms(readsCommonForms);
        QVariant value;
        formatter.getObjectValue(&value, text);
        formatter.stringForObjectValue(value);
        return double(bytesInUse()) - double(before);
    };
    NSLocale::setCurrentLocale(NSLocale(locale));
    bytesOfReading(false);
    const double bytes = bytesOfReading(true);
    const double ofField = bytesOfReading(true);
    NSLocale::resetCurrentLocale();
    return bytes - ofField;
}

void printLocale(const QString &locale)
{
    const QString text = u"3 x"_s;
    std::printf("%-46s %12.0f %12.0f %12.0f\n", qPrintable(locale),
                bytesOfLocale<KTDateTimeFormatter>(locale, text),
                bytesOfLocale<KTCurrencyFormatter>(locale, text),
                bytesOfLocale<KTDurationFormatter>(locale, text));
}

void printLocales()
{
    std::printf("\n%-46s %12s %12s %12s\n", "common forms of one locale (bytes, shared)", "dates",
                "money", "durations");
    for (const QString &locale : {u"en_GB"_s, u"de_DE"_s, u"pl_PL"_s, u"ar_EG"_s, u"ja_JP"_s})
        printLocale(locale);
}

// --- Growth -------------------------------------------------------------------------------------

constexpr int ConversionCount = 1'000'000;
/// Before the count begins: what is made once is made.
constexpr int FirstCount = 20'000;

/// Bytes by which a million repetitions make the process larger, no two of them of the same text.
void printGrowth(const char *conversion, const std::function<void(int)> &convert)
{
    for (int turn = 0; turn < FirstCount; ++turn)
        convert(turn);
    const size_t before = bytesInUse();
    for (int turn = FirstCount; turn < FirstCount + ConversionCount; ++turn)
        convert(turn);
    const auto growth = qint64(bytesInUse()) - qint64(before);
    std::printf("%-46s %12lld%s\n", conversion, static_cast<long long>(growth),
                growth > ConversionCount / 100 ? "  GROWS" : "");
}

/// A text is read and shown again.
void printGrowthOf(const char *conversion, const NSFormatter &formatter,
                   const std::function<QString(int)> &text)
{
    printGrowth(conversion, [&](int turn) {
        QVariant value;
        formatter.getObjectValue(&value, text(turn));
        formatter.stringForObjectValue(value);
    });
}

QString numberText(int turn)
{
    return QString::number(turn);
}

QString timeText(int turn)
{
    return u"%1:%2"_s.arg(turn / 60 % 24).arg(turn % 60, 2, 10, QChar(u'0'));
}

QString dateText(int turn)
{
    return QDate(1950, 1, 1).addDays(turn % 36'000).toString(u"M/d/yyyy"_s);
}

void printGrowthsOfFormatters()
{
    printGrowthOf("numbers, read and shown", KTNumberFormatter(), numberText);
    printGrowthOf("money, read and shown", KTCurrencyFormatter(), numberText);
    printGrowthOf("dates, read and shown", KTDateTimeFormatter(), dateText);
    printGrowthOf("texts that are no date", KTDateTimeFormatter(), numberText);
    printGrowthOf("times, read and shown", KTTimeFormatter(), timeText);
    printGrowthOf("durations, read and shown", KTDurationFormatter(), timeText);
    KTDateTimeFormatter typed;
    typed.setReadsCommonForms(true);
    printGrowthOf("dates with common forms, read and shown", typed, dateText);
    printGrowthOf("phone numbers, shown", KTPhoneNumberFormatter(), numberText);
}

void printGrowths()
{
    std::printf("\n%-46s %12s\n", "growth over 1,000,000 conversions", "bytes");
    printGrowthsOfFormatters();
    printGrowth("names of 1,000 fields made identifiers",
                [](int turn) { KTAdditions::propertyString(u"Field Name %1"_s.arg(turn % 1000)); });
    printGrowth("property lists written and read", [](int turn) {
        const QVariantMap record{{u"key %1"_s.arg(turn % 1000), turn}};
        NSPropertyListSerialization::propertyListFromData(
            NSPropertyListSerialization::dataWithPropertyList(record));
    });
    printGrowth("data archived and back", [](int turn) {
        KTAdditions::initWithStringArchive(KTAdditions::archiveToString(QByteArray::number(turn)));
    });
    NSDateFormatter zones;
    zones.setDateFormat(u"H:mm zzzz"_s);
    printGrowth("times with their zone's name, shown", [&zones](int turn) {
        zones.stringFromDate(QDateTime::fromSecsSinceEpoch(qint64(turn) * 2000, Qt::UTC));
    });
    KTLogger logger;
    logger.setLevelOfComponent(4, kLog_Tests);
    printGrowth("lines of the log", [&logger](int turn) {
        logger.logComponent(kLog_Tests, 4, __FILE__, __LINE__, u"%d", turn);
    });
    Observed view;
    Observed record;
    KTPropertyBinder binder(u"name"_s, u"name"_s, &view);
    binder.bind(u"name"_s, &record, u"name"_s, {});
    printGrowth("values through a binder",
                [&record](int turn) { record.setProperty("name", QString::number(turn)); });
}
} // namespace

void printMemory()
{
    printObjects();
    printLocales();
    printGrowths();
}

#include "Memory.moc"
