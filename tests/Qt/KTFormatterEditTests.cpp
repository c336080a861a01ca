// A line edit whose text a formatter shows and reads.

#include <KTUtility/KTFormatterEdit>

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSSelectionMarker>

#include "ModelSupport.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
class KTFormatterEditTests : public ModelTest
{
protected:
    KTFormatterEditTests() : ModelTest(3)
    {
        prices->setDecimalPlaces(2);
        edit.setFormatter(prices);
        auto *const rows = new QVBoxLayout(&window);
        rows->addWidget(&edit);
        rows->addWidget(&other);
        window.show();
        window.activateWindow();
        other.setFocus();
        turn();
        QObject::connect(
            &edit, &KTFormatterEdit::rejected,
            [this](const QString &text, const QString &why) { rejections += text + u": " + why; });
    }
    ~KTFormatterEditTests() override
    {
        edit.setParent(nullptr);
        other.setParent(nullptr);
    }

    void focus()
    {
        edit.setFocus();
        turn();
    }
    void leave()
    {
        other.setFocus();
        turn();
    }
    void press(Qt::Key key) { QTest::keyClick(edit.lineEdit(), key); }
    /// In place of what is there.
    void type(const QString &text)
    {
        focus();
        edit.lineEdit()->selectAll();
        for (const QChar unit : text)
            QTest::keyClick(edit.lineEdit(), unit.toLatin1());
    }
    const QLabel *reasonLine() const { return edit.findChild<QLabel *>(u"reason"_s); }

    QWidget window;
    KTFormatterEdit edit;
    QLineEdit other;
    std::shared_ptr<KTNumberFormatter> prices = std::make_shared<KTNumberFormatter>();
    QStringList rejections;
};
} // namespace

TEST_F(KTFormatterEditTests, ShowsTheValueAndTheTextForEditing)
{
    edit.setValue(1234.5);
    EXPECT_EQ(edit.text(), u"1,234.50"_s);
    focus();
    EXPECT_EQ(edit.text(), u"1234.5"_s);
    leave();
    EXPECT_EQ(edit.text(), u"1,234.50"_s);
    EXPECT_FALSE(edit.isModified());
    edit.setReadOnly(true);
    focus();
    EXPECT_TRUE(edit.isReadOnly());
    EXPECT_EQ(edit.text(), u"1,234.50"_s);
}

TEST_F(KTFormatterEditTests, NegativeValuesAreRedUntilTheyAreEdited)
{
    const auto colour = [this] { return edit.lineEdit()->palette().color(QPalette::Text); };
    edit.setValue(-1);
    EXPECT_EQ(colour(), QColor(Qt::red));
    focus();
    EXPECT_NE(colour(), QColor(Qt::red));
    leave();
    EXPECT_EQ(colour(), QColor(Qt::red));
    edit.setValue(1);
    EXPECT_NE(colour(), QColor(Qt::red));
}

TEST_F(KTFormatterEditTests, ReturnAndLeavingReadTheText)
{
    const QSignalSpy committed(&edit, &KTFormatterEdit::committed);
    type(u"(1,234.5)"_s);
    EXPECT_TRUE(edit.isModified());
    EXPECT_TRUE(edit.value().isNull());
    press(Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(edit.value(), -1234.5));
    EXPECT_EQ(edit.text(), u"-1234.5"_s);
    type(u"7"_s);
    leave();
    EXPECT_TRUE(NSObject::isEqual(edit.value(), 7));
    EXPECT_EQ(edit.text(), u"7.00"_s);
    type(u""_s);
    press(Qt::Key_Delete);
    press(Qt::Key_Enter);
    EXPECT_TRUE(edit.value().isNull());
    EXPECT_EQ(committed.count(), 3);
}

TEST_F(KTFormatterEditTests, WhatWasNotChangedIsNotRead)
{
    edit.setValue(1.23456789);
    const QSignalSpy committed(&edit, &KTFormatterEdit::committed);
    focus();
    press(Qt::Key_Return);
    leave();
    EXPECT_EQ(edit.value(), 1.23456789);
    EXPECT_EQ(committed.count(), 0);
}

TEST_F(KTFormatterEditTests, WhatCannotBeReadStaysWithTheReason)
{
    edit.setValue(5);
    type(u"1.2.3"_s);
    EXPECT_TRUE(edit.reason().isEmpty());
    press(Qt::Key_Return);
    EXPECT_EQ(edit.text(), u"1.2.3"_s);
    EXPECT_EQ(edit.value(), 5);
    EXPECT_FALSE(edit.reason().isEmpty());
    EXPECT_TRUE(reasonLine()->isVisible());
    EXPECT_EQ(reasonLine()->text(), edit.reason());
    EXPECT_EQ(edit.lineEdit()->accessibleDescription(), edit.reason());
    leave();
    EXPECT_EQ(edit.text(), u"1.2.3"_s);
    EXPECT_EQ(rejections.size(), 2);
    // The next letter may be right.
    focus();
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    EXPECT_TRUE(edit.reason().isEmpty());
    EXPECT_FALSE(reasonLine()->isVisible());
    press(Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(edit.value(), 1.2));
}

TEST_F(KTFormatterEditTests, EveryRejectionHasAReason)
{
    const struct
    {
        std::shared_ptr<const NSFormatter> formatter;
        QString text;
    } table[] = {
        {prices, u"12 abc"_s},
        {std::make_shared<KTCurrencyFormatter>(), u"12,50 EE"_s},
        {std::make_shared<KTDateTimeFormatter>(), u"99.99.2026"_s},
        {std::make_shared<KTDateTimeFormatter>(), u"foo"_s},
    };
    for (const auto &[formatter, text] : table) {
        edit.setFormatter(formatter);
        type(text);
        EXPECT_FALSE(edit.commit());
        EXPECT_FALSE(edit.reason().isEmpty()) << text.toStdString();
        EXPECT_FALSE(edit.reason().startsWith(u"Error Domain"_s));
        press(Qt::Key_Escape);
    }
}

TEST_F(KTFormatterEditTests, EscapeRestoresAndIsThenForOthers)
{
    struct Keys : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += int(event->type() == QEvent::KeyPress);
            return false;
        }
        int count = 0;
    } keys;
    window.installEventFilter(&keys);
    edit.setValue(5);
    type(u"6x"_s);
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_EQ(edit.text(), u"5"_s);
    EXPECT_TRUE(edit.reason().isEmpty());
    EXPECT_EQ(keys.count, 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(keys.count, 1);
    press(Qt::Key_Return);
    EXPECT_EQ(keys.count, 2);
}

TEST_F(KTFormatterEditTests, PartialTextsAreJudgedWhileTyping)
{
    const struct
    {
        QString text;
        QValidator::State state;
        bool hasReason;
    } table[] = {
        {u"12"_s, QValidator::Acceptable, false},
        {u"-"_s, QValidator::Intermediate, false},
        {u"(1"_s, QValidator::Intermediate, false},
        {u"12a"_s, QValidator::Invalid, true},
    };
    for (const auto &[text, state, hasReason] : table) {
        type(text);
        EXPECT_EQ(edit.inputState(), state) << text.toStdString();
        EXPECT_EQ(!edit.reason().isEmpty(), hasReason) << text.toStdString();
        press(Qt::Key_Escape);
    }
    EXPECT_EQ(edit.inputState(), QValidator::Acceptable);
    EXPECT_EQ(rejections, QStringList());
}

TEST_F(KTFormatterEditTests, FollowsWhatItIsBoundTo)
{
    edit.bindTo(record(0), u"amount");
    EXPECT_EQ(edit.text(), u"1.00"_s);
    record(0)->setAmount(2);
    EXPECT_EQ(edit.text(), u"2.00"_s);
    type(u"3.5"_s);
    EXPECT_EQ(record(0)->amount(), 2);
    press(Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 3.5));
    edit.unbind();
    record(0)->setAmount(4);
    EXPECT_EQ(edit.text(), u"3.5"_s);
    EXPECT_EQ(edit.boundObject(), nullptr);
}

TEST_F(KTFormatterEditTests, WhatTheObjectDoesNotTakeStaysWithTheReason)
{
    edit.bindTo(record(0), u"amount");
    type(u"2000000"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(record(0)->amount(), 1);
    EXPECT_EQ(edit.text(), u"2000000"_s);
    EXPECT_EQ(edit.reason(), u"The book refuses."_s);
    EXPECT_EQ(edit.value(), 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(edit.text(), u"1"_s);
    edit.bindTo(record(0), u"count");
    type(u" "_s);
    press(Qt::Key_Return);
    EXPECT_EQ(edit.reason(), u"A value is needed here."_s);
}

TEST_F(KTFormatterEditTests, CursorAndHistorySurviveTheEcho)
{
    edit.bindTo(record(0), u"amount");
    type(u"123"_s);
    edit.lineEdit()->setCursorPosition(1);
    press(Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 123));
    EXPECT_EQ(edit.lineEdit()->cursorPosition(), 1);
    EXPECT_TRUE(edit.lineEdit()->isUndoAvailable());
    record(0)->setAmount(record(0)->amount());
    EXPECT_EQ(edit.lineEdit()->cursorPosition(), 1);
    edit.lineEdit()->undo();
    EXPECT_NE(edit.text(), u"123"_s);
    EXPECT_TRUE(edit.isModified());
}

TEST_F(KTFormatterEditTests, AChangeFromElsewhereDoesNotDisturbTyping)
{
    edit.bindTo(record(0), u"amount");
    type(u"12"_s);
    record(0)->setAmount(9);
    EXPECT_EQ(edit.text(), u"12"_s);
    EXPECT_EQ(edit.value(), 9);
    press(Qt::Key_Escape);
    EXPECT_EQ(edit.text(), u"9"_s);
}

TEST_F(KTFormatterEditTests, WhatIsTypedIsStoredWhereItBelongs)
{
    edit.bindTo(&controller, u"selection.amount");
    controller.setSelectionIndexes({0});
    type(u"12"_s);
    controller.setSelectionIndexes({1});
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 12));
    EXPECT_EQ(record(1)->amount(), 2);
    EXPECT_EQ(edit.text(), u"2"_s);
    EXPECT_FALSE(edit.isModified());
    type(u"oops"_s);
    controller.setSelectionIndexes({2});
    EXPECT_EQ(record(1)->amount(), 2);
    EXPECT_EQ(record(2)->amount(), 3);
    EXPECT_EQ(edit.text(), u"3"_s);
    ASSERT_EQ(rejections.size(), 1);
    EXPECT_TRUE(rejections.first().startsWith(u"oops: "_s));
}

TEST_F(KTFormatterEditTests, SelectionsWithoutOneValueHavePlaceholders)
{
    edit.setPlaceholderText(u"Amount"_s);
    edit.bindTo(&controller, u"selection.amount",
                {.nullPlaceholder = u"none"_s, .multiplePlaceholder = u"several"_s});
    const auto placeholder = [this] { return edit.lineEdit()->placeholderText(); };
    EXPECT_EQ(placeholder(), u"Nothing is selected"_s);
    EXPECT_FALSE(edit.isEnabled());
    EXPECT_EQ(edit.text(), u""_s);
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(placeholder(), u"several"_s);
    EXPECT_TRUE(edit.isEnabled());
    record(2)->setAmount({});
    controller.setSelectionIndexes({2});
    EXPECT_EQ(placeholder(), u"none"_s);
    controller.setSelectionIndexes({0, 1});
    type(u"8"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 8));
    EXPECT_TRUE(NSObject::isEqual(record(1)->amount(), 8));
    edit.bindTo(record(2), u"amount");
    EXPECT_EQ(placeholder(), u"Amount"_s);
}

TEST_F(KTFormatterEditTests, WhatAProgramDisablesStaysSo)
{
    edit.bindTo(&controller, u"selection.amount");
    controller.setSelectionIndexes({0});
    edit.setEnabled(false);
    controller.setSelectionIndexes({});
    controller.setSelectionIndexes({1});
    EXPECT_FALSE(edit.isEnabled());
    edit.setEnabled(true);
    edit.bindTo(&controller, u"selection.amount", {.disablesWithoutValue = false});
    controller.setSelectionIndexes({});
    EXPECT_TRUE(edit.isEnabled());
}

TEST_F(KTFormatterEditTests, IsBoundByNameAsWell)
{
    EXPECT_EQ(edit.exposedBindings(), QStringList{NSValueBinding});
    NSKeyValueBinding *const bound =
        qobject_cast<NSKeyValueBinding *>(static_cast<QObject *>(&edit));
    ASSERT_NE(bound, nullptr);
    bound->bind(NSValueBinding, &controller, u"selection.amount"_s,
                {{NSNoSelectionPlaceholderBindingOption, u"nobody"_s}});
    EXPECT_EQ(edit.lineEdit()->placeholderText(), u"nobody"_s);
    bound->bind(u"other"_s, record(0), u"amount"_s, {});
    EXPECT_EQ(edit.boundObject(), &controller);
    bound->unbind(u"other"_s);
    EXPECT_EQ(edit.boundObject(), &controller);
    bound->unbind(NSValueBinding);
    EXPECT_EQ(edit.boundObject(), nullptr);
}

TEST_F(KTFormatterEditTests, FormattersAreMadeByName)
{
    edit.setFormatterOptions({u"decimalPlaces=3"_s, u"displayThousandsSeparator = true"_s});
    edit.setFormatterClass(u"KTNumberFormatter"_s);
    edit.setValue(1234.5);
    EXPECT_EQ(edit.text(), u"1,234.500"_s);
    edit.setFormatterOptions({u"decimalPlaces=1"_s, u"displayThousandsSeparator=false"_s});
    EXPECT_EQ(edit.text(), u"1234.5"_s);
    EXPECT_EQ(edit.formatterOptions().size(), 2);
    EXPECT_EQ(edit.formatterClass(), u"KTNumberFormatter"_s);
    const QString logged = testing_support::standardErrorOf([this] {
        edit.setFormatterOptions({u"decimals=1"_s});
        edit.setFormatterClass(u"QObject"_s);
    });
    EXPECT_TRUE(logged.contains(u"\"decimals=1\" is no option of KTNumberFormatter"_s));
    EXPECT_TRUE(logged.contains(u"no formatter of the class \"QObject\""_s));
    EXPECT_EQ(edit.formatter(), nullptr);
}

TEST_F(KTFormatterEditTests, EveryFormatterHasAName)
{
    for (const QString &name :
         {u"KTNumberFormatter"_s, u"KTCurrencyFormatter"_s, u"KTDateTimeFormatter"_s,
          u"KTTimeFormatter"_s, u"KTDurationFormatter"_s, u"KTPhoneNumberFormatter"_s}) {
        edit.setFormatterClass(name);
        ASSERT_NE(edit.formatter(), nullptr) << name.toStdString();
        EXPECT_EQ(QString::fromLatin1(edit.formatter()->metaObject()->className()), name);
    }
}

TEST_F(KTFormatterEditTests, FollowsTheOptionsOfItsFormatter)
{
    edit.setValue(2);
    prices->setDecimalPlaces(1);
    EXPECT_EQ(edit.text(), u"2.0"_s);
    edit.setFormatter(nullptr);
    EXPECT_EQ(edit.text(), u"2"_s);
    prices->setDecimalPlaces(2);
    EXPECT_EQ(edit.text(), u"2"_s);
}

TEST_F(KTFormatterEditTests, TextsNeedNoFormatter)
{
    edit.setFormatter(nullptr);
    edit.bindTo(record(0), u"title");
    type(u"taken"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(edit.reason(), u"The book refuses."_s);
    type(u""_s);
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_EQ(record(0)->title(), u""_s);
    EXPECT_FALSE(record(0)->title().isNull());
}

TEST_F(KTFormatterEditTests, ScreenReadersKnowItsLabel)
{
    QWidget form;
    auto *const rows = new QFormLayout(&form);
    auto *const labelled = new KTFormatterEdit(prices);
    rows->addRow(u"&Amount"_s, labelled);
    form.show();
    EXPECT_EQ(labelled->lineEdit()->accessibleName(), u"Amount"_s);
    labelled->setAccessibleName(u"Price"_s);
    labelled->setFocus();
    form.activateWindow();
    turn();
    EXPECT_EQ(labelled->lineEdit()->accessibleName(), u"Price"_s);
}

TEST_F(KTFormatterEditTests, MayBeDestroyedByWhoIsTold)
{
    for (const bool byRecord : {true, false}) {
        auto *brief = new KTFormatterEdit(prices, &window);
        brief->show();
        brief->bindTo(record(0), u"amount");
        if (byRecord)
            QObject::connect(record(0), &Expense::amountChanged, brief, [brief] { delete brief; });
        else
            QObject::connect(brief, &KTFormatterEdit::valueChanged, brief,
                             [brief] { delete brief; });
        const QPointer<KTFormatterEdit> still = brief;
        brief->lineEdit()->setFocus();
        QTest::keyClicks(brief->lineEdit(), u"42"_s);
        QTest::keyClick(brief->lineEdit(), Qt::Key_Return);
        EXPECT_TRUE(still.isNull());
    }
    EXPECT_TRUE(NSObject::integerValue(record(0)->amount()) > 1);
}

TEST_F(KTFormatterEditTests, TheExampleOfTheHeader)
{
    auto *const amount = new KTFormatterEdit(std::make_shared<KTCurrencyFormatter>(), &window);
    controller.setSelectionIndexes({1});
    amount->bindTo(&controller, u"selection.amount", {.nullPlaceholder = u"none"_s});
    EXPECT_EQ(amount->text(), u"$2.00"_s);
}

TEST_F(KTFormatterEditTests, ShowsTheTextForEditingOnlyWithTheFocus)
{
    edit.setValue(1234.5);
    type(u"abc"_s);
    leave();
    EXPECT_EQ(edit.text(), u"abc"_s);
    edit.restore();
    EXPECT_EQ(edit.text(), u"1,234.50"_s);
    type(u"abc"_s);
    leave();
    edit.restore();
    edit.setValue(2234.5);
    EXPECT_EQ(edit.text(), u"2,234.50"_s);
    focus();
    EXPECT_EQ(edit.text(), u"2234.5"_s);
}

TEST_F(KTFormatterEditTests, RegistersWithItsControllerWhileSomebodyTypes)
{
    edit.bindTo(&controller, u"selection.amount");
    controller.setSelectionIndexes({0});
    focus();
    EXPECT_FALSE(controller.isEditing());
    type(u"12"_s);
    EXPECT_TRUE(controller.isEditing());
    EXPECT_TRUE(controller.commitEditing());
    EXPECT_FALSE(controller.isEditing());
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 12));
    type(u"34"_s);
    controller.discardEditing();
    EXPECT_FALSE(controller.isEditing());
    EXPECT_EQ(edit.text(), u"12"_s);
    type(u"oops"_s);
    EXPECT_FALSE(controller.commitEditing());
    EXPECT_EQ(edit.text(), u"oops"_s);
    EXPECT_FALSE(edit.reason().isEmpty());
    edit.unbind();
    EXPECT_FALSE(controller.isEditing());
}

TEST_F(KTFormatterEditTests, WhatCannotBeReadMayHoldTheSelection)
{
    controller.setCommitsBeforeSelecting(true);
    edit.bindTo(&controller, u"selection.amount");
    controller.setSelectionIndexes({0});
    type(u"oops"_s);
    EXPECT_FALSE(controller.setSelectionIndexes({1}));
    EXPECT_EQ(edit.text(), u"oops"_s);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{0});
    type(u"5"_s);
    EXPECT_TRUE(controller.setSelectionIndexes({1}));
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 5));
    EXPECT_EQ(edit.text(), u"2"_s);
}
