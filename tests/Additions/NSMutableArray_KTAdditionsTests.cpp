#include <KTUtility/NSException>
#include <KTUtility/NSMutableArray_KTAdditions>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSMutableArray_KTAdditions, MovedObjectsLandBeforeTheElementAtTheIndex)
{
    const auto moved = [](QStringList list, const char16_t *object, qsizetype index) {
        KTMutableArrayAdditions::moveObject(list, QString::fromUtf16(object), index);
        return list.join(QString());
    };
    const QStringList letters{u"A"_s, u"B"_s, u"C"_s, u"D"_s};
    EXPECT_EQ(moved(letters, u"A", 2), u"BACD"_s);
    EXPECT_EQ(moved(letters, u"A", 9), u"BCDA"_s);
    EXPECT_EQ(moved(letters, u"A", 4), u"BCDA"_s);
    EXPECT_EQ(moved(letters, u"D", 0), u"DABC"_s);
    EXPECT_EQ(moved(letters, u"B", 1), u"ABCD"_s);
    EXPECT_EQ(moved(letters, u"X", 1), u"AXBCD"_s);
    EXPECT_EQ(moved(letters, u"A", -1), u"BCDA"_s);
}

TEST(NSMutableArray_KTAdditions, TheMovedObjectMayBeAReferenceIntoTheList)
{
    QStringList list{u"A"_s, u"B"_s};
    KTMutableArrayAdditions::moveObject(list, list[0], 5);
    EXPECT_EQ(list.join(QString()), u"BA"_s);
    KTMutableArrayAdditions::insertObjects(list, list, 1);
    EXPECT_EQ(list.join(QString()), u"BBAA"_s);
}

TEST(NSMutableArray_KTAdditions, ObjectsMayBeOfADerivedClass)
{
    QList<QObject *> list;
    TestField field;
    KTStackAdditions::push(list, &field);
    KTStackAdditions::push(list, nullptr);
    KTMutableArrayAdditions::moveObject(list, &field, 2);
    EXPECT_EQ(list, QList<QObject *>({nullptr, &field}));
    KTMutableArrayAdditions::insertObjects(list, {&field, &field}, 0);
    EXPECT_EQ(list.count(&field), 3);
    KTMutableArrayAdditions::moveObject(list, nullptr, 0);
    EXPECT_EQ(list.first(), nullptr);
    QVariantList values;
    KTStackAdditions::push(values, 3);
    EXPECT_EQ(KTStackAdditions::pop(values), QVariant(3));
}

TEST(NSMutableArray_KTAdditions, InsertingBeyondTheEndRaises)
{
    QStringList list{u"A"_s};
    EXPECT_THROW(KTMutableArrayAdditions::insertObjects(list, list, 2), NSException);
    EXPECT_THROW(KTMutableArrayAdditions::insertObjects(list, list, -1), NSException);
    EXPECT_EQ(list.size(), 1);
}
