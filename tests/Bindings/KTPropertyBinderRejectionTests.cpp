// Values that the other side of a binding does not take, and what is shown where there is none.

#include <KTUtility/KTPropertyBinder>

#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/NSArrayController>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSError>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueObserving>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <QLineEdit>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {
/// A record with every kind of number.
class Numbers : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool flag MEMBER flag)
    Q_PROPERTY(char letter MEMBER letter)
    Q_PROPERTY(short small MEMBER small)
    Q_PROPERTY(ushort smallUnsigned MEMBER smallUnsigned)
    Q_PROPERTY(int number MEMBER number)
    Q_PROPERTY(uint numberUnsigned MEMBER numberUnsigned)
    Q_PROPERTY(qint64 large MEMBER large)
    Q_PROPERTY(quint64 largeUnsigned MEMBER largeUnsigned)
    Q_PROPERTY(float single MEMBER single)
    Q_PROPERTY(double price MEMBER price)
    Q_PROPERTY(NSDecimalNumber exact MEMBER exact)
    Q_PROPERTY(Level level MEMBER level)

public:
    enum Level { Low, Middle, High };
    Q_ENUM(Level)

    bool flag = false;
    char letter = 0;
    short small = 0;
    ushort smallUnsigned = 0;
    int number = 0;
    uint numberUnsigned = 0;
    qint64 large = 0;
    quint64 largeUnsigned = 0;
    float single = 0;
    double price = 0;
    NSDecimalNumber exact;
    Level level = Low;
};

/// A record that takes even numbers only, cuts larger ones, and says why not.
class Choosy : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant number READ number WRITE setNumber NOTIFY numberChanged)

public:
    QVariant number() const { return _number; }
    void setNumber(const QVariant &number)
    {
        _number = number;
        Q_EMIT numberChanged();
    }
    Q_INVOKABLE bool validateValue(QVariant *value, const QString &key, NSError *error)
    {
        asked += key;
        if (value->toInt() > 100)
            *value = 100;
        const bool isGood = value->toInt() % 2 == 0;
        if (!isGood)
            *error = NSError(u"Choosy"_s, 1, u"Only even numbers."_s);
        return isGood;
    }

    QStringList asked;

Q_SIGNALS:
    void numberChanged();

private:
    QVariant _number = 2;
};

/// A view that writes down what was rejected.
class Watched
{
public:
    Watched()
    {
        view.valueBinder.setValueWasRejected([this](const QVariant &value, const QString &reason) {
            values += value;
            reasons += reason;
        });
    }

    BoundView view;
    QVariantList values;
    QStringList reasons;
};

const QString Number = u"number"_s;
} // namespace

TEST(KTPropertyBinderRejection, WhatFormattersReadCanBeSetOnEveryNumber)
{
    Numbers record;
    const QVariant read = QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"2.75"));
    for (const char *const key :
         {"flag", "letter", "small", "smallUnsigned", "number", "numberUnsigned", "large",
          "largeUnsigned", "single", "price", "exact", "level"}) {
        SCOPED_TRACE(key);
        Watched watched;
        watched.view.bind(NSValueBinding, &record, QString::fromLatin1(key), {});
        watched.view.type(read);
        EXPECT_EQ(watched.reasons, QStringList());
    }
    EXPECT_TRUE(record.flag);
    EXPECT_EQ(record.letter + record.small + record.smallUnsigned, 6);
    EXPECT_EQ(record.number, 2);
    EXPECT_EQ(record.numberUnsigned, 2U);
    EXPECT_EQ(record.large + qint64(record.largeUnsigned), 4);
    EXPECT_EQ(record.single, 2.75F);
    EXPECT_EQ(record.price, 2.75);
    EXPECT_EQ(record.exact, NSDecimalNumber::decimalNumberWithString(u"2.75"));
    EXPECT_EQ(record.level, Numbers::High);
}

TEST(KTPropertyBinderRejection, WhatIsTypedWronglyIsToldAndStays)
{
    ObservedRecord record(u"record"_s, 5);
    for (const QVariant &typed : {QVariant(u"abc"_s), QVariant(u""_s), QVariant(u"12abc"_s),
                                  QVariant(), QVariant(QVariantList{1})}) {
        Watched watched;
        watched.view.bind(NSValueBinding, &record, Number, {});
        EXPECT_NO_THROW(watched.view.type(typed));
        EXPECT_EQ(watched.values, QVariantList{typed});
        EXPECT_EQ(watched.reasons.size(), 1);
        EXPECT_TRUE(watched.reasons.value(0).contains(u"for the key number"));
        EXPECT_EQ(watched.view.value(), typed);
        EXPECT_EQ(record.number(), 5);
        EXPECT_NO_THROW(watched.view.valueBinder.setCurrentValue(typed));
        EXPECT_EQ(watched.reasons.size(), 2);
        // Without the hook, too.
        watched.view.valueBinder.setValueWasRejected({});
        EXPECT_NO_THROW(watched.view.type(typed));
    }
}

TEST(KTPropertyBinderRejection, TheModelIsAskedBefore)
{
    Choosy record;
    Watched watched;
    watched.view.bind(
        NSValueBinding, &record, Number,
        NSBindingOptions::withTransformer(KTBaseValueTransformer::valueTransformer()));
    watched.view.type(5);
    EXPECT_EQ(record.number(), QVariant(4U));
    watched.view.type(4);
    EXPECT_EQ(watched.reasons, QStringList{u"Only even numbers."_s});
    EXPECT_EQ(record.number(), QVariant(4U));
    EXPECT_EQ(watched.view.value(), QVariant(4));
    // It may put another value in the place of what is typed.
    watched.view.type(1000);
    EXPECT_EQ(record.number(), QVariant(100));
    EXPECT_EQ(watched.view.value(), QVariant(101U));
    EXPECT_EQ(record.asked, QStringList({Number, Number, Number}));
}

TEST(KTPropertyBinderRejection, AllSelectedObjectsAreAsked)
{
    Choosy first, second;
    NSArrayController controller;
    controller.setContent({QVariant::fromValue(&first), QVariant::fromValue(&second)});
    controller.setSelectionIndexes({0, 1});
    Watched watched;
    watched.view.bind(NSValueBinding, &controller, u"selection.number"_s, {});
    watched.view.type(7);
    EXPECT_EQ(watched.reasons, QStringList{u"Only even numbers."_s});
    EXPECT_EQ(first.number(), QVariant(2));
    watched.view.type(8);
    EXPECT_EQ(second.number(), QVariant(8));
    EXPECT_EQ(second.asked, QStringList{Number});
}

TEST(KTPropertyBinderRejection, TheHookMayDeleteTheOwner)
{
    ObservedRecord record(u"record"_s, 5);
    auto view = std::make_unique<BoundView>();
    view->bind(NSValueBinding, &record, Number, {});
    view->valueBinder.setValueWasRejected([&](const QVariant &, const QString &) { view.reset(); });
    view->type(u"abc"_s);
    EXPECT_FALSE(view);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
}

TEST(KTPropertyBinderRejection, ANilInTheMiddleIsNoNumber)
{
    testing_support::needApplication();
    ObservedRecord record, next(u"next"_s, 7);
    record.setNext(&next);
    QSpinBox spin;
    QStringList reasons;
    KTPropertyBinder binder(NSValueBinding, NSValueBinding, &spin);
    binder.setValueWasRejected([&](const QVariant &, const QString &reason) { reasons += reason; });
    binder.bind(NSValueBinding, &record, u"next.number"_s);
    EXPECT_EQ(spin.value(), 7);
    EXPECT_NO_THROW(record.setNext(nullptr));
    EXPECT_EQ(spin.value(), 7);
    EXPECT_EQ(reasons.size(), 1);
    EXPECT_TRUE(reasons.value(0).contains(u"could not set nil"));
}

TEST(KTPropertyBinderRejection, AnObjectThatLacksTheKeyHasNoValue)
{
    ObservedRecord record, next(u"next"_s);
    QObject bare;
    record.setAny(QVariant::fromValue(&next));
    Watched watched;
    watched.view.bind(NSValueBinding, &record, u"any.name"_s, {});
    EXPECT_EQ(watched.view.value(), QVariant(u"next"_s));
    EXPECT_NO_THROW(record.setAny(QVariant::fromValue(&bare)));
    EXPECT_FALSE(watched.view.value().isValid());
    EXPECT_EQ(watched.reasons, QStringList());
}

TEST(KTPropertyBinderRejection, ADynamicPropertyThatIsTakenAwayHasNoValue)
{
    testing_support::needApplication();
    QObject object;
    object.setProperty("x", 1);
    Watched watched;
    watched.view.bind(NSValueBinding, &object, u"x"_s, {});
    object.setProperty("x", QVariant());
    EXPECT_FALSE(watched.view.value().isValid());
    object.setProperty("x", 2);
    EXPECT_EQ(watched.view.value(), QVariant(2));
}

TEST(KTPropertyBinderRejection, BindersThatAnswerEachOtherComeToAnEnd)
{
    // Each counts one on, for ever.
    const auto counting =
        NSBindingOptions::withTransformer(KTBaseValueTransformer::valueTransformer());
    ObservedRecord one, other;
    QStringList reasons;
    const auto keep = [&](const QVariant &, const QString &reason) { reasons += reason; };
    KTPropertyBinder forth(Number, NSValueBinding, &other);
    KTPropertyBinder back(Number, NSValueBinding, &one);
    forth.setValueWasRejected(keep);
    back.setValueWasRejected(keep);
    forth.bind(NSValueBinding, &one, Number, counting);
    EXPECT_EQ(other.number(), 1);
    EXPECT_NO_THROW(back.bind(NSValueBinding, &other, Number, counting));
    ASSERT_EQ(reasons.size(), 1);
    EXPECT_TRUE(reasons.value(0).contains(u"changes whenever it is set"));
    // The next change has its rounds again.
    EXPECT_NO_THROW(one.setNumber(5));
    EXPECT_EQ(reasons.size(), 2);
    EXPECT_GT(one.number(), 100);
    forth.unbind(NSValueBinding);
    one.setNumber(5);
    EXPECT_EQ(reasons.size(), 2);
}

TEST(KTPropertyBinderRejection, PlaceholdersAreShownForMarkers)
{
    struct Case
    {
        QString option;
        QList<qsizetype> selection;
        QString path;
    };
    ObservedRecord first(u"A"_s), second(u"B"_s);
    NSArrayController controller;
    controller.setContent({QVariant::fromValue(&first), QVariant::fromValue(&second)});
    for (const Case &each :
         {Case{NSMultipleValuesPlaceholderBindingOption, {0, 1}, u"selection.name"_s},
          Case{NSNoSelectionPlaceholderBindingOption, {}, u"selection.name"_s},
          Case{NSNotApplicablePlaceholderBindingOption, {0}, u"selection.nothing"_s}}) {
        SCOPED_TRACE(each.option.toStdString());
        controller.setSelectionIndexes(each.selection);
        BoundView view, plain;
        view.bind(NSValueBinding, &controller, each.path, {{each.option, u"(several)"_s}});
        plain.bind(NSValueBinding, &controller, each.path, {});
        EXPECT_EQ(view.value(), QVariant(u"(several)"_s));
        EXPECT_FALSE(plain.value().isValid());
        // What is handed back as it was shown is not stored, other texts are.
        view.valueBinder.ownerKeyPathChanged();
        EXPECT_EQ(first.name() + second.name(), u"AB"_s);
    }
    controller.setSelectionIndexes({0, 1});
    BoundView view;
    view.bind(NSValueBinding, &controller, u"selection.name"_s,
              {{NSMultipleValuesPlaceholderBindingOption, u"(several)"_s}});
    view.type(u"C"_s);
    EXPECT_EQ(first.name() + second.name(), u"CC"_s);
    EXPECT_EQ(view.value(), QVariant(u"C"_s));
    second.setName(u"D"_s);
    EXPECT_EQ(view.value(), QVariant(u"(several)"_s));
}

TEST(KTPropertyBinderRejection, PlaceholdersThatTheOwnerHasChangedAreNotStored)
{
    testing_support::needApplication();
    ObservedRecord first(u"Ada"_s), second(u"Bob"_s);
    NSArrayController controller;
    controller.setContent({QVariant::fromValue(&first), QVariant::fromValue(&second)});
    controller.setSelectionIndexes({0, 1});
    for (const QVariant &placeholder : {QVariant(), QVariant(u"Multiple Values"_s)}) {
        QLineEdit edit;
        edit.setMaxLength(8);
        KTPropertyBinder binder(u"text"_s, NSValueBinding, &edit);
        binder.bind(NSValueBinding, &controller, u"selection.name"_s,
                    {{NSMultipleValuesPlaceholderBindingOption, placeholder}});
        EXPECT_EQ(edit.text(), placeholder.toString().left(8));
        binder.ownerKeyPathChanged();
        EXPECT_EQ(first.name() + second.name(), u"AdaBob"_s);
        edit.setText(u"Eve"_s);
        binder.ownerKeyPathChanged();
        EXPECT_EQ(first.name() + second.name(), u"EveEve"_s);
        first.setName(u"Ada"_s);
        second.setName(u"Bob"_s);
    }
}

TEST(KTPropertyBinderRejection, TransformersMayBeGivenByTheirOwnType)
{
    ObservedRecord record(u"record"_s, 1);
    BoundView view;
    view.bind(NSValueBinding, &record, Number,
              {{NSValueTransformerBindingOption,
                QVariant::fromValue(KTBaseValueTransformer::valueTransformer())}});
    EXPECT_EQ(view.value(), QVariant(2U));
    // What is none is no silent mistake.
    EXPECT_THROW(view.bind(NSValueBinding, &record, Number,
                           {{NSValueTransformerBindingOption, u"KTBaseValueTransformer"_s}}),
                 NSException);
    // What was bound before is so no longer.
    record.setNumber(7);
    EXPECT_EQ(view.value(), QVariant(2U));
}

TEST(KTPropertyBinderRejection, ABinderWithoutNameHandlesNothing)
{
    KTPropertyBinder binder;
    EXPECT_FALSE(binder.willHandleBindingName(QString()));
    EXPECT_FALSE(binder.willHandleBindingName(u""_s));
}

#include "KTPropertyBinderRejectionTests.moc"
