// What observers are notified of when a value is set by key.

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>
#include <KTUtility/NSKeyValueObserving>
#include <KTUtility/NSObject>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

using NSKeyValueCoding::setValue;

namespace {
constexpr NSKeyValueObservingOptions All =
    NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld | NSKeyValueObservingOptionPrior;

/// Changes in every way that no signal reports.
class QuietModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int member MEMBER member)
    Q_PROPERTY(int told READ number WRITE setTold)
    Q_PROPERTY(int announced READ number WRITE setAnnounced)
    Q_PROPERTY(int strict READ number WRITE setStrict)

public:
    int number() const { return member; }
    Q_INVOKABLE int byMethod() const { return member; }
    Q_INVOKABLE void setByMethod(int value) { member = value; }
    void setTold(int value)
    {
        member = value;
        NSKeyValueObserving::didChangeValueForKey(this, u"told");
    }
    void setAnnounced(int value)
    {
        NSKeyValueObserving::willChangeValueForKey(this, u"announced");
        setTold(value);
        NSKeyValueObserving::didChangeValueForKey(this, u"announced");
    }
    void setStrict(int value)
    {
        if (value < 0)
            throw std::invalid_argument("negative");
        member = value;
    }

    int member = 1;
};

/// What an observation of a key is told while something is done: "before 1>-", "1>2".
template<typename Action>
QStringList toldWhile(QObject *object, const QString &key, Action action)
{
    QStringList told;
    const auto textOf = [](const std::optional<QVariant> &value) {
        return value ? NSObject::description(*value) : u"-"_s;
    };
    const NSKeyValueObservation observation(object, key, All, [&](const NSKeyValueChange &change) {
        told += (change.isPrior ? u"before "_s : u""_s) + textOf(change.oldValue) + u'>' +
                textOf(change.newValue);
    });
    action();
    return told;
}

QStringList toldOfSetting(QObject *object, const QString &key, int value)
{
    return toldWhile(object, key, [&] { setValue(object, value, key); });
}
} // namespace

TEST(NSKeyValueCodingNotification, WhatHasNoSignalIsToldOnceAndBefore)
{
    const QStringList expected{u"before 1>-"_s, u"1>5"_s};
    for (const QString &key : {u"member"_s, u"byMethod"_s, u"strict"_s, u"dynamic"_s}) {
        QuietModel model;
        model.setProperty("dynamic", 1);
        EXPECT_EQ(toldOfSetting(&model, key, 5), expected) << key.toStdString();
    }
}

TEST(NSKeyValueCodingNotification, EventsOfDynamicPropertiesTellNothingMore)
{
    testing_support::needApplication();
    QuietModel model;
    model.setProperty("dynamic", 1);
    EXPECT_EQ(toldOfSetting(&model, u"dynamic"_s, 5), QStringList({u"before 1>-"_s, u"1>5"_s}));
}

TEST(NSKeyValueCodingNotification, TheSameValueIsToldToo)
{
    QuietModel model;
    EXPECT_EQ(toldOfSetting(&model, u"member"_s, 1), QStringList({u"before 1>-"_s, u"1>1"_s}));
}

TEST(NSKeyValueCodingNotification, SettersThatTellThemselvesAreToldOnce)
{
    QuietModel model;
    EXPECT_EQ(toldOfSetting(&model, u"told"_s, 5), QStringList({u"before 1>-"_s, u"1>5"_s}));
    model.member = 1;
    // Both announcements are before.
    EXPECT_EQ(toldOfSetting(&model, u"announced"_s, 5),
              QStringList({u"before 1>-"_s, u"before 1>-"_s, u"1>5"_s}));
}

TEST(NSKeyValueCodingNotification, SignalsTellAsTheyDo)
{
    ObservedRecord record(u"a"_s, 1);
    EXPECT_EQ(toldOfSetting(&record, u"number"_s, 5), QStringList(u"1>5"_s));
}

TEST(NSKeyValueCodingNotification, PathsTellTheObjectAtTheirEnd)
{
    ObservedRecord record, next;
    record.setNext(&next);
    EXPECT_EQ(toldWhile(&record, u"next.silent"_s,
                        [&] { NSKeyValueCoding::setValueForKeyPath(&record, 3, u"next.silent"); }),
              QStringList({u"before 0>-"_s, u"0>3"_s}));
}

TEST(NSKeyValueCodingNotification, WhatFailsIsNotTold)
{
    QuietModel model;
    EXPECT_EQ(toldWhile(&model, u"strict"_s,
                        [&] {
                            EXPECT_THROW(setValue(&model, -1, u"strict"), std::invalid_argument);
                            setValue(&model, 2, u"strict");
                        }),
              QStringList({u"before 1>-"_s, u"before 1>-"_s, u"1>2"_s}));
    EXPECT_EQ(toldWhile(&model, u"member"_s,
                        [&] { EXPECT_THROW(setValue(&model, u"x", u"member"), NSException); }),
              QStringList());
}

TEST(NSKeyValueCodingNotification, ObservationsMayEndBeforeTheChange)
{
    QuietModel model;
    NSKeyValueObservation observation;
    int calls = 0;
    observation = NSKeyValueObservation(&model, u"member", All, [&](const NSKeyValueChange &) {
        ++calls;
        observation.invalidate();
    });
    setValue(&model, 5, u"member");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(model.member, 5);
}

TEST(NSKeyValueCodingNotification, TheOldValueIsThatOfTheAnnouncement)
{
    ObservedRecord record;
    EXPECT_EQ(toldWhile(&record, u"silent"_s,
                        [&] {
                            record.setSilent(3); // in silence
                            setValue(&record, 4, u"silent");
                        }),
              QStringList({u"before 3>-"_s, u"3>4"_s}));
}

TEST(NSKeyValueCodingNotification, AnObserverThatRaisesMutesNothing)
{
    QuietModel model;
    bool fails = true;
    int told = 0;
    const NSKeyValueObservation observation(&model, u"member"_s, All,
                                            [&](const NSKeyValueChange &change) {
                                                if (std::exchange(fails, false))
                                                    NSException::raise(u"Broken"_s, u"by hand"_s);
                                                told += change.isPrior ? 0 : 1;
                                            });
    EXPECT_THROW(setValue(&model, 2, u"member"), NSException);
    setValue(&model, 3, u"member");
    setValue(&model, 4, u"member");
    EXPECT_EQ(told, 2);
}

TEST(NSKeyValueCodingNotification, TheObjectMayGoBeforeTheChange)
{
    for (const char16_t *const key : {u"silent", u"extra"}) {
        auto record = std::make_unique<ObservedRecord>();
        record->setProperty("extra", 1);
        const NSKeyValueObservation observation(record.get(), QString::fromUtf16(key), All,
                                                [&](const NSKeyValueChange &change) {
                                                    if (change.isPrior)
                                                        record.reset();
                                                });
        setValue(record.get(), 2, key);
        EXPECT_FALSE(record);
    }
}

#include "NSKeyValueCodingNotificationTests.moc"
