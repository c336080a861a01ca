#include <KTUtility/Bindings/KeySetter_p.h>

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// What setting a value comes to: the value then, or why there is none.
template<typename Set>
QString outcome(ObservedRecord &record, const QString &key, const Set &set)
{
    try {
        set();
        return NSKeyValueCoding::valueForKey(&record, key).toString();
    } catch (const NSException &exception) {
        return exception.name();
    }
}
} // namespace

TEST(KeySetter, DoesWhatSettingByKeyDoes)
{
    const QVariant values[] = {
        QVariant(),         5,      5.75, u"text"_s,
        QString(),          u"7"_s, true, QVariant::fromValue(NSDecimalNumber(3)),
        QVariantList{1, 2},
    };
    for (const QString &key : {u"number"_s, u"name"_s, u"silent"_s, u"any"_s, u"greeting"_s,
                               u"list"_s, u"dynamic"_s, u"none"_s, u""_s}) {
        KeySetter setter(key);
        for (const QVariant &value : values) {
            ObservedRecord expected;
            ObservedRecord record;
            for (ObservedRecord *each : {&expected, &record})
                each->setProperty("dynamic", 1);
            const QString wanted =
                outcome(expected, key, [&] { NSKeyValueCoding::setValue(&expected, value, key); });
            EXPECT_EQ(outcome(record, key, [&] { setter.set(&record, value); }), wanted)
                << qPrintable(key) << ' ' << value.typeName();
        }
    }
}

TEST(KeySetter, SetsObjectsOfSeveralClasses)
{
    ObservedRecord record;
    QObject plain;
    KeySetter setter(u"objectName"_s);
    setter.set(&record, u"a"_s);
    setter.set(&plain, u"b"_s);
    setter.set(&record, u"c"_s);
    EXPECT_EQ(record.objectName(), u"c"_s);
    EXPECT_EQ(plain.objectName(), u"b"_s);
}

TEST(KeySetter, NotifiesOfWhatNoSignalReports)
{
    ObservedRecord record;
    KeySetter setter(u"silent"_s);
    setter.set(&record, 1);
    QList<int> told;
    const NSKeyValueObservation observation(
        &record, u"silent", NSKeyValueObservingOptionNew | NSKeyValueObservingOptionPrior,
        [&](const NSKeyValueChange &change) {
            told += change.isPrior ? -record.silent() : change.newValue->toInt();
        });
    setter.set(&record, 2);
    setter.set(&record, 3);
    EXPECT_EQ(told, QList<int>({-1, 2, -2, 3}));
}

TEST(KeySetter, SignalsTellOnce)
{
    ObservedRecord record;
    KeySetter setter(u"number"_s);
    int told = 0;
    const NSKeyValueObservation observation(&record, u"number", NSKeyValueObservingOptionNew,
                                            [&](const NSKeyValueChange &) { ++told; });
    setter.set(&record, 2);
    setter.set(&record, 2.5);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(record.number(), 2);
}
