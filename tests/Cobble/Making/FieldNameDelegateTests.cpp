#include "Making/FieldNameDelegate.h"

#include "support/TestSupport.h"

#include <QLineEdit>
#include <QStandardItemModel>
#include <QTest>

using namespace Qt::StringLiterals;

using FieldNameDelegateTests = testing_support::WindowedTest;

TEST_F(FieldNameDelegateTests, ANameThatNobodyChangesStaysAsItIs)
{
    const QString strange = u"two\nlines "_s + QString(600, u'x');
    QStandardItemModel model(1, 1);
    const QModelIndex name = model.index(0, 0);
    model.setData(name, strange);
    const FieldNameDelegate delegate;
    const std::unique_ptr<QWidget> editor(delegate.createEditor(nullptr, {}, name));
    delegate.setEditorData(editor.get(), name);
    delegate.setModelData(editor.get(), &model, name);
    EXPECT_EQ(name.data(Qt::EditRole).toString(), strange);
    EXPECT_FALSE(editor->accessibleName().isEmpty());
    QTest::keyClick(editor.get(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor.get(), u"Name"_s);
    delegate.setModelData(editor.get(), &model, name);
    EXPECT_EQ(name.data(Qt::EditRole).toString(), u"Name"_s);
}
