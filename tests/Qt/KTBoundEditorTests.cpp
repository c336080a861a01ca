// Check boxes, combo boxes, date edits and text edits that are bound to values.

#include <KTUtility/KTBoundEditor>

#include <KTUtility/KTBoundCheckBox>
#include <KTUtility/KTBoundComboBox>
#include <KTUtility/KTBoundDateEdit>
#include <KTUtility/KTBoundTextEdit>
#include <KTUtility/NSSelectionMarker>

#include "ModelSupport.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
const QDate Day(2026, 3, 5);

/// An editor in a window, of which the focus can be taken away.
template<typename Editor>
class EditorTest : public ModelTest
{
protected:
    EditorTest() : ModelTest(3)
    {
        auto *const rows = new QVBoxLayout(&window);
        editor = new Editor;
        rows->addWidget(editor);
        rows->addWidget(&other);
        window.show();
        window.activateWindow();
        other.setFocus();
        turn();
        QObject::connect(editor, &Editor::rejected,
                         [this](const QString &why) { rejections += why; });
    }
    ~EditorTest() override { other.setParent(nullptr); }

    void focus()
    {
        editor->setFocus();
        turn();
    }
    void leave()
    {
        other.setFocus();
        turn();
    }

    QWidget window;
    Editor *editor;
    QLineEdit other;
    QStringList rejections;
};

using KTBoundCheckBoxTests = EditorTest<KTBoundCheckBox>;
using KTBoundComboBoxTests = EditorTest<KTBoundComboBox>;
using KTBoundDateEditTests = EditorTest<KTBoundDateEdit>;
using KTBoundTextEditTests = EditorTest<KTBoundTextEdit>;
} // namespace

// --- Check box ----------------------------------------------------------------------------------

TEST_F(KTBoundCheckBoxTests, FollowsAndSets)
{
    editor->bindTo(record(0), u"isPaid");
    EXPECT_FALSE(editor->isChecked());
    record(0)->setPaid(true);
    EXPECT_TRUE(editor->isChecked());
    EXPECT_EQ(editor->value(), true);
    editor->click();
    EXPECT_FALSE(record(0)->isPaid());
    EXPECT_FALSE(editor->isChecked());
}

TEST_F(KTBoundCheckBoxTests, IsHalfCheckedForSeveralValues)
{
    record(0)->setPaid(true);
    editor->bindTo(&controller, u"selection.isPaid");
    EXPECT_FALSE(editor->isEnabled());
    controller.setSelectionIndexes({0, 1});
    EXPECT_TRUE(editor->isEnabled());
    EXPECT_EQ(editor->checkState(), Qt::PartiallyChecked);
    editor->click();
    EXPECT_EQ(editor->checkState(), Qt::Checked);
    EXPECT_TRUE(record(0)->isPaid() && record(1)->isPaid());
    editor->click();
    EXPECT_EQ(editor->checkState(), Qt::Unchecked);
    EXPECT_FALSE(editor->isTristate());
}

TEST_F(KTBoundCheckBoxTests, PutsBackWhatIsRejected)
{
    record(0)->setPaid(true);
    record(0)->isLocked = true;
    editor->bindTo(record(0), u"isPaid");
    editor->click();
    EXPECT_TRUE(editor->isChecked());
    EXPECT_EQ(rejections, QStringList{u"The book refuses."_s});
    EXPECT_EQ(editor->accessibleDescription(), u"The book refuses."_s);
    EXPECT_EQ(editor->toolTip(), u"The book refuses."_s);
    record(0)->isLocked = false;
    editor->click();
    EXPECT_EQ(editor->accessibleDescription(), u""_s);
}

TEST_F(KTBoundCheckBoxTests, ValuesAreTrueOrNot)
{
    const struct
    {
        QVariant value;
        Qt::CheckState state;
    } table[] = {{{}, Qt::Unchecked},
                 {2, Qt::Checked},
                 {0, Qt::Unchecked},
                 {u"YES"_s, Qt::Checked},
                 {NSMultipleValuesMarker(), Qt::PartiallyChecked},
                 {NSNoSelectionMarker(), Qt::Unchecked}};
    for (const auto &[value, state] : table) {
        QSignalSpy changed(editor, &KTBoundCheckBox::valueChanged);
        const bool isOther = !NSObject::isEqual(value, editor->value());
        editor->setValue(value);
        EXPECT_EQ(editor->checkState(), state);
        EXPECT_EQ(changed.count(), int(isOther));
    }
}

// --- Combo box ----------------------------------------------------------------------------------

TEST_F(KTBoundComboBoxTests, ChoicesHaveValues)
{
    editor->addChoice(u"None"_s, 0);
    editor->addChoice(u"One"_s, 1);
    editor->addItem(u"Many"_s);
    EXPECT_EQ(editor->valueAt(1), 1);
    EXPECT_EQ(editor->valueAt(2), u"Many"_s);
    EXPECT_EQ(editor->valueAt(9), QVariant());
    EXPECT_EQ(editor->indexOf(1.0), 1);
    EXPECT_EQ(editor->indexOf(u"Many"_s), 2);
    EXPECT_EQ(editor->indexOf(7), -1);
}

TEST_F(KTBoundComboBoxTests, FollowsAndSets)
{
    editor->addChoice(u"None"_s, 0);
    editor->addChoice(u"One"_s, 1);
    record(0)->setCount(1);
    editor->bindTo(record(0), u"count");
    EXPECT_EQ(editor->currentIndex(), 1);
    record(0)->setCount(0);
    EXPECT_EQ(editor->currentIndex(), 0);
    QTest::keyClick(editor, Qt::Key_Down);
    EXPECT_EQ(record(0)->count(), 1);
    record(0)->setCount(9);
    EXPECT_EQ(editor->currentIndex(), -1);
    EXPECT_EQ(editor->value(), 9);
}

TEST_F(KTBoundComboBoxTests, ShowsPlaceholders)
{
    editor->addChoice(u"None"_s, 0);
    editor->addChoice(u"One"_s, 1);
    record(0)->setCount(1);
    editor->bindTo(&controller, u"selection.count", {.multiplePlaceholder = u"several"_s});
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(editor->currentIndex(), -1);
    EXPECT_EQ(editor->placeholderText(), u"several"_s);
    QTest::keyClick(editor, Qt::Key_Down);
    EXPECT_EQ(record(0)->count(), 0);
    EXPECT_EQ(editor->currentIndex(), 0);
}

TEST_F(KTBoundComboBoxTests, ItemsMayComeLater)
{
    editor->bindTo(record(0), u"title");
    editor->addItems({u"x"_s, u"a"_s});
    turn();
    EXPECT_EQ(editor->currentIndex(), 1);
    EXPECT_EQ(record(0)->title(), u"a"_s);
}

TEST_F(KTBoundComboBoxTests, PutsBackWhatIsRejected)
{
    editor->addItems({u"a"_s, u"taken"_s});
    editor->bindTo(record(0), u"title");
    QTest::keyClick(editor, Qt::Key_Down);
    EXPECT_EQ(editor->currentText(), u"a"_s);
    EXPECT_EQ(rejections, QStringList{u"The book refuses."_s});
}

// --- Date edit ----------------------------------------------------------------------------------

TEST_F(KTBoundDateEditTests, FollowsAndSets)
{
    record(0)->setDue(Day);
    editor->bindTo(record(0), u"due");
    EXPECT_EQ(editor->date(), Day);
    record(0)->setDue(Day.addDays(1));
    EXPECT_EQ(editor->date(), Day.addDays(1));
    focus();
    editor->setCurrentSection(QDateTimeEdit::DaySection);
    QTest::keyClick(editor, Qt::Key_Up);
    EXPECT_EQ(record(0)->due(), Day.addDays(2));
    EXPECT_EQ(editor->value(), Day.addDays(2));
}

TEST_F(KTBoundDateEditTests, ShowsDaysOfAllCenturies)
{
    for (const QDate &day : {QDate(1600, 1, 1), QDate(1752, 9, 13), QDate(800, 12, 25)}) {
        editor->setValue(day);
        EXPECT_EQ(editor->date(), day);
        EXPECT_EQ(editor->value().toDate(), day);
    }
}

TEST_F(KTBoundDateEditTests, ADayIsSetOnceItIsComplete)
{
    record(0)->setDue(Day);
    editor->setDisplayFormat(u"yyyy-MM-dd"_s);
    editor->bindTo(record(0), u"due");
    focus();
    editor->setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(editor, u"2031"_s);
    EXPECT_EQ(record(0)->due(), Day);
    leave();
    EXPECT_EQ(record(0)->due(), QDate(2031, 3, 5));
}

TEST_F(KTBoundDateEditTests, WhatIsTypedIsForTheController)
{
    for (const size_t index : {0u, 1u})
        record(index)->setDue(Day);
    editor->setDisplayFormat(u"yyyy-MM-dd"_s);
    editor->bindTo(&controller, u"selection.due");
    controller.setSelectionIndex(0);
    const auto type = [this] {
        focus();
        editor->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(editor, u"2031"_s);
    };
    type();
    EXPECT_TRUE(controller.isEditing());
    EXPECT_TRUE(controller.commitEditing());
    EXPECT_FALSE(controller.isEditing());
    EXPECT_EQ(record(0)->due(), QDate(2031, 3, 5));
    record(0)->setDue(Day);
    type();
    controller.discardEditing();
    EXPECT_EQ(editor->text(), u"2026-03-05"_s);
    // It is stored where it belongs.
    type();
    controller.setSelectionIndex(1);
    EXPECT_EQ(record(0)->due(), QDate(2031, 3, 5));
    EXPECT_EQ(record(1)->due(), Day);
    EXPECT_EQ(editor->text(), u"2026-03-05"_s);
    record(1)->isLocked = true;
    type();
    EXPECT_FALSE(controller.commitEditing());
    EXPECT_EQ(rejections, QStringList(u"The book refuses."_s));
}

TEST_F(KTBoundTextEditTests, WhatIsTypedIsForTheController)
{
    editor->bindTo(&controller, u"selection.title");
    controller.setSelectionIndex(0);
    focus();
    QTest::keyClicks(editor, u"x"_s);
    EXPECT_TRUE(controller.isEditing());
    EXPECT_TRUE(controller.commitEditing());
    EXPECT_FALSE(controller.isEditing());
    EXPECT_EQ(record(0)->title().size(), 2);
    QTest::keyClicks(editor, u"y"_s);
    controller.discardEditing();
    EXPECT_FALSE(controller.isEditing());
    EXPECT_EQ(editor->toPlainText().size(), 2);
}

TEST_F(KTBoundDateEditTests, WhatIsNoDayIsNotCommitted)
{
    record(0)->setDue(Day);
    editor->setDisplayFormat(u"dd.MM.yyyy"_s);
    editor->bindTo(&controller, u"selection.due");
    controller.setSelectionIndex(0);
    focus();
    editor->setSelectedSection(QDateTimeEdit::MonthSection);
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClicks(editor, u"0"_s);
    EXPECT_TRUE(controller.isEditing());
    controller.setCommitsBeforeSelecting(true);
    EXPECT_FALSE(controller.setSelectionIndex(1));
    EXPECT_TRUE(controller.isEditing());
    EXPECT_EQ(editor->text(), u"05.0.2026"_s);
    EXPECT_EQ(rejections, QStringList(u"This value cannot be stored here."_s));
    EXPECT_EQ(editor->toolTip(), u"This value cannot be stored here."_s);
    controller.discardEditing();
    EXPECT_EQ(editor->text(), u"05.03.2026"_s);
    EXPECT_EQ(editor->toolTip(), u""_s);
    EXPECT_TRUE(controller.setSelectionIndex(1));
    EXPECT_EQ(record(0)->due(), Day);
}

TEST_F(KTBoundTextEditTests, WhatIsUndoneIsNotBeingEdited)
{
    editor->bindTo(&controller, u"selection.title");
    controller.setSelectionIndex(0);
    focus();
    QTest::keyClicks(editor, u"x"_s);
    EXPECT_TRUE(controller.isEditing());
    editor->undo();
    EXPECT_FALSE(editor->isModified());
    EXPECT_FALSE(controller.isEditing());
    editor->redo();
    EXPECT_TRUE(controller.isEditing());
    EXPECT_TRUE(controller.commitEditing());
    EXPECT_FALSE(controller.isEditing());
}

TEST_F(KTBoundDateEditTests, TimeAndZoneStay)
{
    const QDateTime moment(Day, QTime(17, 30), QTimeZone("Asia/Tokyo"));
    record(0)->setDue(moment);
    editor->bindTo(record(0), u"due");
    EXPECT_EQ(editor->date(), Day);
    editor->stepBy(1);
    const QDateTime now = record(0)->due().toDateTime();
    EXPECT_NE(now.date(), Day);
    EXPECT_EQ(now.time(), QTime(17, 30));
    EXPECT_EQ(now.timeZone(), moment.timeZone());
}

TEST_F(KTBoundDateEditTests, NilAndMarkersShowPlaceholders)
{
    editor->bindTo(&controller, u"selection.due", {.nullPlaceholder = u"never"_s});
    EXPECT_EQ(editor->text(), u"Nothing is selected"_s);
    EXPECT_FALSE(editor->isEnabled());
    controller.setSelectionIndexes({0});
    EXPECT_EQ(editor->text(), u"never"_s);
    record(0)->setDue(Day);
    EXPECT_EQ(editor->date(), Day);
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(editor->text(), u"Multiple values"_s);
    // Showing them has set nothing.
    EXPECT_EQ(record(0)->due(), Day);
    EXPECT_TRUE(record(1)->due().isNull());
}

TEST_F(KTBoundDateEditTests, BeginsToday)
{
    editor->bindTo(record(0), u"due");
    editor->stepBy(1);
    EXPECT_EQ(record(0)->due(), QDate::currentDate());
    EXPECT_EQ(editor->date(), QDate::currentDate());
}

TEST_F(KTBoundDateEditTests, DeleteSetsNilWhereThatIsAllowed)
{
    record(0)->setDue(Day);
    editor->bindTo(record(0), u"due");
    EXPECT_FALSE(editor->isNullable());
    focus();
    QTest::keyClick(editor, Qt::Key_Delete);
    EXPECT_EQ(record(0)->due(), Day);
    editor->setNullable(true);
    QTest::keyClick(editor, Qt::Key_Delete);
    EXPECT_TRUE(record(0)->due().isNull());
}

TEST_F(KTBoundDateEditTests, PutsBackWhatIsRejected)
{
    record(0)->setDue(Day);
    record(0)->isLocked = true;
    editor->bindTo(record(0), u"due");
    editor->stepBy(1);
    EXPECT_EQ(editor->date(), Day);
    EXPECT_EQ(rejections, QStringList{u"The book refuses."_s});
}

// --- Text edit ----------------------------------------------------------------------------------

TEST_F(KTBoundTextEditTests, LeavingAndControlReturnSetTheText)
{
    editor->bindTo(record(0), u"title");
    EXPECT_EQ(editor->toPlainText(), u"a"_s);
    focus();
    QTest::keyClicks(editor, u"x"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(record(0)->title(), u"a"_s);
    EXPECT_TRUE(editor->isModified());
    QTest::keyClick(editor, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(record(0)->title(), u"x\na"_s);
    EXPECT_FALSE(editor->isModified());
    QTest::keyClicks(editor, u"y"_s);
    leave();
    EXPECT_EQ(record(0)->title(), u"x\nya"_s);
}

TEST_F(KTBoundTextEditTests, SpacesThatDoNotBreakStay)
{
    const QString text = u"5\u00a0€\u2028more\n\u202fend"_s;
    record(0)->setTitle(text);
    editor->bindTo(record(0), u"title");
    EXPECT_EQ(editor->text(), text);
    focus();
    QTest::keyClicks(editor, u"x"_s);
    EXPECT_TRUE(editor->commit());
    EXPECT_EQ(record(0)->title(), QString(u'x' + text));
}

TEST_F(KTBoundTextEditTests, EscapeRestores)
{
    editor->bindTo(record(0), u"title");
    focus();
    QTest::keyClicks(editor, u"x"_s);
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(editor->toPlainText(), u"a"_s);
    EXPECT_EQ(record(0)->sets, 0);
}

TEST_F(KTBoundTextEditTests, CursorAndHistorySurviveTheEcho)
{
    editor->bindTo(record(0), u"title");
    focus();
    QTest::keyClicks(editor, u"xyz"_s);
    editor->moveCursor(QTextCursor::Left);
    EXPECT_TRUE(editor->commit());
    record(0)->setTitle(record(0)->title());
    EXPECT_EQ(editor->textCursor().position(), 2);
    EXPECT_TRUE(editor->document()->isUndoAvailable());
    QTest::keyClicks(editor, u"!"_s);
    record(0)->setTitle(u"elsewhere"_s);
    EXPECT_EQ(editor->toPlainText(), u"xy!za"_s);
}

TEST_F(KTBoundTextEditTests, WhatIsTypedIsStoredWhereItBelongs)
{
    editor->bindTo(&controller, u"selection.title", {.nullPlaceholder = u"Note"_s});
    EXPECT_EQ(editor->placeholderText(), u"Nothing is selected"_s);
    controller.setSelectionIndexes({0});
    QTest::keyClicks(editor, u"x"_s);
    controller.setSelectionIndexes({1});
    EXPECT_EQ(record(0)->title(), u"xa"_s);
    EXPECT_EQ(record(1)->title(), u"b"_s);
    EXPECT_EQ(editor->toPlainText(), u"b"_s);
    record(1)->setTitle({});
    EXPECT_EQ(editor->placeholderText(), u"Note"_s);
}

TEST_F(KTBoundTextEditTests, WhatIsRejectedStays)
{
    record(0)->setTitle(u""_s);
    editor->bindTo(record(0), u"title");
    focus();
    QTest::keyClicks(editor, u"taken"_s);
    EXPECT_FALSE(editor->commit());
    EXPECT_EQ(editor->toPlainText(), u"taken"_s);
    EXPECT_EQ(editor->value(), u""_s);
    EXPECT_EQ(editor->accessibleDescription(), u"The book refuses."_s);
    editor->restore();
    EXPECT_EQ(editor->toPlainText(), u""_s);
    EXPECT_EQ(editor->accessibleDescription(), u""_s);
}

// --- All ----------------------------------------------------------------------------------------

TEST_F(KTBoundTextEditTests, TheObjectMayBeDestroyedFirst)
{
    Expense brief(u"brief"_s);
    {
        Expense briefer(u"briefer"_s);
        editor->bindTo(&briefer, u"title");
    }
    EXPECT_EQ(editor->boundObject(), nullptr);
    QTest::keyClicks(editor, u"x"_s);
    EXPECT_TRUE(editor->commit());
    EXPECT_THROW(editor->bindTo(&brief, u"titel"), NSException);
    EXPECT_EQ(editor->boundObject(), nullptr);
}
