#include "Making/FieldListModel.h"

#include "support/TestSupport.h"

#include <KTUtility/NSLocale>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {
Library nameAndSize()
{
    Library library;
    for (const QString &title : {u"Name"_s, u"Size"_s}) {
        LibraryField field;
        field.header = title;
        field.type = title == u"Size" ? FieldType::Number : FieldType::Text;
        library.fields.append(field);
    }
    return library;
}

class FieldListModelTests : public testing::Test
{
protected:
    FieldListModelTests()
        : model(nameAndSize())
        , tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
        , changes(&model, &FieldListModel::planChanged)
    {
        NSLocale::setCurrentLocale(NSLocale(u"en_US"_s));
    }
    ~FieldListModelTests() override { NSLocale::resetCurrentLocale(); }

    QString text(int row, int column) const { return model.index(row, column).data().toString(); }
    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row)
            names += text(row, FieldListModel::Name);
        return names;
    }

    FieldListModel model;
    QAbstractItemModelTester tester;
    QSignalSpy changes;
};
} // namespace

TEST_F(FieldListModelTests, ShowsNamesTypesAndExamples)
{
    EXPECT_EQ(names(), QStringList({u"Name"_s, u"Size"_s}));
    EXPECT_EQ(text(1, FieldListModel::Type), u"Number"_s);
    EXPECT_EQ(text(0, FieldListModel::Example), QString());
    EXPECT_EQ(text(1, FieldListModel::Example), u"-1,235"_s);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), u"Type"_s);
}

TEST_F(FieldListModelTests, NamesCanBeTypedOver)
{
    const QModelIndex size = model.index(1, FieldListModel::Name);
    EXPECT_TRUE(size.flags().testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(model.setData(size, u"Length\nin m"_s));
    EXPECT_EQ(text(1, FieldListModel::Name), u"Length…"_s);
    EXPECT_EQ(size.data(Qt::EditRole).toString(), u"Length\nin m"_s);
    EXPECT_FALSE(model.setData(model.index(1, FieldListModel::Type), u"Text"_s));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(FieldListModelTests, FieldsComeMoveAndGo)
{
    model.add();
    model.add();
    EXPECT_EQ(names(), QStringList({u"Name"_s, u"Size"_s, u"New Field"_s, u"New Field1"_s}));
    model.move(3, 0);
    model.move(0, 1);
    EXPECT_EQ(names(), QStringList({u"Name"_s, u"New Field1"_s, u"Size"_s, u"New Field"_s}));
    model.move(1, 1);
    model.remove(3);
    EXPECT_EQ(names(), QStringList({u"Name"_s, u"New Field1"_s, u"Size"_s}));
    EXPECT_EQ(changes.size(), 5);
}

TEST_F(FieldListModelTests, ATypeThatIsChosenAgainIsKept)
{
    model.setType(1, FieldType::Number);
    EXPECT_EQ(changes.size(), 0);
    model.setType(1, FieldType::Currency);
    EXPECT_TRUE(model.fieldAt(1).isRetyped);
    EXPECT_EQ(model.fieldAt(1).field.options.value(u"currencyType"_s).toString(), u"USD"_s);
    model.setType(1, FieldType::Number);
    EXPECT_TRUE(model.plan().isEmpty());
    model.setOptions(1, {{u"decimalPlaces"_s, 3u}});
    EXPECT_EQ(text(1, FieldListModel::Example), u"-1,234.500"_s);
    EXPECT_FALSE(model.plan().isEmpty());
}
