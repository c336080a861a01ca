#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/Platform/Files/StoredValue_p.h>

#include "support/TestSupport.h"

#include <QColor>
#include <QDate>
#include <QPoint>
#include <QRect>
#include <QSize>
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

enum class Form { Itself, Text, Data, None };

struct Row
{
    QVariant value;
    Form form;
};

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
    };
    for (const Row &row : rows) {
        EXPECT_EQ(formOf(row.value), row.form) << row.value.typeName();
        const QVariant stored = StoredValue::formOf(row.value).value_or(QVariant());
        EXPECT_EQ(StoredValue::valueOf(stored, row.value.metaType()), row.value)
            << row.value.typeName();
    }
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
