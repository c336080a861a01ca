#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/Platform/Files/StoredValue_p.h>

#include "support/TestSupport.h"

#include <QColor>
#include <QCoreApplication>
#include <QDate>
#include <QFont>
#include <QKeySequence>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTranslator>
#include <QUrl>
#include <QUuid>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Only a program knows what it is.
struct Foreign
{
    int number = 0;
};

/// Of which Qt knows no names.
enum class Nameless : quint8 { First, Second };

enum class Form { Itself, Text, Data, None };

struct Row
{
    QVariant value;
    Form form;
};

/// What stands in a file, as it is read again.
QVariant throughFile(const QVariant &stored)
{
    const QVariantMap file{{u"key"_s, stored}};
    return NSPropertyListSerialization::propertyListFromData(
               NSPropertyListSerialization::dataWithPropertyList(file))
        .toMap()
        .value(u"key"_s);
}

template<typename T>
std::optional<T> valueOf(const QVariant &stored)
{
    const auto value = StoredValue::valueOf(stored, QMetaType::fromType<T>());
    return value ? std::optional<T>(value->template value<T>()) : std::nullopt;
}

Form formOf(const QVariant &value)
{
    const std::optional<QVariant> stored = StoredValue::formOf(value);
    if (!stored)
        return Form::None;
    if (stored->metaType() == value.metaType())
        return Form::Itself;
    return stored->typeId() == QMetaType::QString ? Form::Text : Form::Data;
}
} // namespace

TEST(StoredValue, EachTypeHasOneFormAndComesBack)
{
    const Row rows[] = {
        {5, Form::Itself},
        {u"a"_s, Form::Itself},
        {QByteArray("a"), Form::Itself},
        {QVariantMap{{u"a"_s, 1}}, Form::Itself},
        {QDate(2026, 3, 5), Form::Text},
        {QTime(17, 30, 1, 5), Form::Text},
        {QUrl(u"https://example.org/ä"_s), Form::Text},
        {QUuid(u"{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"_s), Form::Text},
        {QVariant(QChar(u'a')), Form::Data},
        {QVariant::fromValue(NSDecimalNumber(125)), Form::Itself},
        {QSize(640, 480), Form::Data},
        {QPointF(0.1, -2), Form::Data},
        {QRect(1, 2, 3, 4), Form::Data},
        {QColor(1, 2, 3, 4), Form::Text},
        {u""_s, Form::Itself},
        {QDateTime(QDate(2026, 3, 5), QTime(1, 2, 3), Qt::UTC), Form::Itself},
        {QStringList(), Form::Itself},
        {QStringList{u"a"_s}, Form::Itself},
        {QStringList{u"a"_s, u"b"_s}, Form::Itself},
        {QVariantList{1, u"b"_s}, Form::Itself},
        {QVariantHash{{u"a"_s, 1}, {u"b"_s, QVariantList{1}}}, Form::Itself},
        {QVariant::fromValue(QList<int>{1, 2}), Form::Data},
        {QVariant::fromValue(Qt::AlignTop), Form::Itself},
        {QVariant::fromValue(Qt::Alignment(Qt::AlignTop | Qt::AlignRight)), Form::Itself},
        {QVariant::fromValue(QKeySequence(Qt::CTRL | Qt::Key_S)), Form::Text},
        {QFont(u"Sans"_s, 9), Form::Data},
        {1.1F, Form::Itself},
        {true, Form::Itself},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(formOf(row.value), row.form) << row.value.typeName();
        const QVariant stored = StoredValue::formOf(row.value).value_or(QVariant());
        EXPECT_EQ(StoredValue::valueOf(stored, row.value.metaType()), row.value)
            << row.value.typeName();
        EXPECT_EQ(StoredValue::valueOf(throughFile(stored), row.value.metaType()), row.value)
            << row.value.typeName();
    }
}

TEST(StoredValue, EnumerationsWithoutNamesComeBack)
{
    const auto stored = StoredValue::formOf(QVariant::fromValue(Nameless::Second));
    ASSERT_TRUE(stored.has_value());
    EXPECT_EQ(valueOf<Nameless>(*stored), Nameless::Second);
    EXPECT_EQ(valueOf<Nameless>(throughFile(*stored)), Nameless::Second);
    EXPECT_EQ(valueOf<Nameless>(1), Nameless::Second);
    EXPECT_FALSE(valueOf<Nameless>(257).has_value());
    EXPECT_FALSE(valueOf<Nameless>(0.5).has_value());
}

TEST(StoredValue, NumbersAreExactOrNone)
{
    EXPECT_FALSE(valueOf<int>(qint64(5000000000)).has_value());
    EXPECT_FALSE(valueOf<uint>(qint64(5000000000)).has_value());
    EXPECT_EQ(valueOf<qint64>(qint64(5000000000)), 5000000000);
    EXPECT_EQ(valueOf<double>(qint64(5000000000)), 5e9);
    EXPECT_FALSE(valueOf<int>(2.7).has_value());
    EXPECT_EQ(valueOf<int>(2.0), 2);
    EXPECT_FALSE(valueOf<uint>(-1).has_value());
    EXPECT_FALSE(valueOf<quint8>(300).has_value());
    EXPECT_EQ(valueOf<quint8>(200), 200);
    EXPECT_FALSE(valueOf<qint64>(quint64(-1)).has_value());
    EXPECT_EQ(valueOf<float>(1.1), 1.1F);
    EXPECT_FALSE(valueOf<float>(1e300).has_value());
    EXPECT_EQ(valueOf<int>(true), 1);
    EXPECT_EQ(valueOf<NSDecimalNumber>(2.5), NSDecimalNumber(2.5));
    EXPECT_EQ(valueOf<QString>(12), u"12"_s);
}

TEST(StoredValue, NumbersAreReadFromTexts)
{
    EXPECT_EQ(valueOf<int>(u"-12"_s), -12);
    EXPECT_EQ(valueOf<quint64>(u"18446744073709551615"_s), quint64(-1));
    EXPECT_EQ(valueOf<double>(u"2.5"_s), 2.5);
    for (const QString &text : {u"2.7"_s, u"5000000000"_s, u"hello"_s, u""_s})
        EXPECT_FALSE(valueOf<int>(text).has_value()) << text.toStdString();
    EXPECT_FALSE(valueOf<quint8>(u"300"_s).has_value());
}

TEST(StoredValue, BooleansAreReadAsEverywhere)
{
    const QVariant rows[] = {u"hello"_s, u"NO"_s, u"YES"_s, u"1"_s, u"0"_s, u""_s,
                             0,          5,       0.5,      true,   false};
    for (const QVariant &stored : rows)
        EXPECT_EQ(valueOf<bool>(stored), NSObject::boolValue(stored))
            << stored.toString().toStdString();
    EXPECT_FALSE(valueOf<bool>(u"hello"_s).value());
    EXPECT_FALSE(valueOf<bool>(u"NO"_s).value());
    EXPECT_FALSE(valueOf<bool>(QVariantList{true}).has_value());
}

TEST(StoredValue, ListsAndDictionariesAreNothingElse)
{
    EXPECT_FALSE(valueOf<QStringList>(QVariantList{u"a"_s, 1}).has_value());
    EXPECT_FALSE(valueOf<QString>(QStringList{u"a"_s}).has_value());
    EXPECT_FALSE(valueOf<QVariantList>(QVariantMap{{u"a"_s, 1}}).has_value());
    EXPECT_FALSE(valueOf<QVariantMap>(QVariantList{1}).has_value());
    EXPECT_EQ(valueOf<QVariantList>(QStringList{u"a"_s}), QVariantList{u"a"_s});
    EXPECT_EQ(valueOf<QVariantMap>(QVariantHash{{u"a"_s, 1}}), (QVariantMap{{u"a"_s, 1}}));
}

TEST(StoredValue, TextsAreTheSameInAllLanguages)
{
    /// Calls keys what they are called in German.
    struct German : QTranslator
    {
        QString translate(const char *context, const char *text, const char *, int) const override
        {
            const bool isControl = QByteArray(context) == "QShortcut" && QByteArray(text) == "Ctrl";
            return isControl ? u"Strg"_s : QString();
        }
        bool isEmpty() const override { return false; }
    };
    testing_support::needApplication();
    const QKeySequence save(Qt::CTRL | Qt::Key_S);
    German german;
    QCoreApplication::installTranslator(&german);
    ASSERT_EQ(save.toString(QKeySequence::NativeText), u"Strg+S");
    const QVariant stored = StoredValue::formOf(save).value_or(QVariant());
    EXPECT_EQ(stored, QVariant(u"Ctrl+S"_s));
    EXPECT_EQ(valueOf<QKeySequence>(stored), save);
    QCoreApplication::removeTranslator(&german);
    EXPECT_EQ(valueOf<QKeySequence>(stored), save);
}

TEST(StoredValue, OtherValuesHaveNone)
{
    QObject object;
    for (const QVariant &value :
         {QVariant(), NSNull(), QVariant::fromValue(Foreign{}), QVariant::fromValue(&object),
          QVariant(QString(QChar(0))), QVariant(QVariantList{QSize(1, 2)}), QVariant(QDateTime())})
        EXPECT_EQ(formOf(value), Form::None) << QString::fromUtf8(value.typeName()).toStdString();
}

TEST(StoredValue, WhatIsOfAnotherTypeIsNone)
{
    const std::pair<QVariant, QMetaType> rows[] = {
        {u"soon"_s, QMetaType::fromType<QDate>()},
        {QByteArray("abc"), QMetaType::fromType<QSize>()},
        {QByteArray(1000, 'x'), QMetaType::fromType<QSize>()},
        {QByteArray("abc"), QMetaType::fromType<Foreign>()},
        {QVariantList{1, 2}, QMetaType::fromType<QSize>()},
        {QVariant(), QMetaType::fromType<QSize>()},
        {StoredValue::formOf(QSize(1, 2)).value_or(QVariant()), QMetaType::fromType<QPoint>()},
    };
    for (const auto &[stored, type] : rows)
        EXPECT_FALSE(StoredValue::valueOf(stored, type).has_value()) << type.name();
    EXPECT_EQ(StoredValue::valueOf(u"12"_s, QMetaType::fromType<int>()), QVariant(12));
}
