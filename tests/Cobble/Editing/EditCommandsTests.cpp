#include "Editing/EditCommands.h"

#include "Editing/EditResponder.h"
#include "Editing/TextInputs.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// Records that take every command.
class WillingRecords : public EditResponder
{
public:
    QWidget *view() const override { return table; }
    bool canDo(EditCommand) const override { return isReady; }
    void perform(EditCommand command) override { performed += command; }

    QTableWidget *table = nullptr;
    bool isReady = true;
    QList<EditCommand> performed;
};
} // namespace

class EditCommandsTests : public testing_support::WindowedTest
{
protected:
    EditCommandsTests()
    {
        auto *const layout = new QVBoxLayout(&window);
        layout->addWidget(line);
        layout->addWidget(lines);
        layout->addWidget(records.table = new QTableWidget(2, 2));
        layout->addWidget(other);
        other->setFocusPolicy(Qt::StrongFocus);
        window.show();
        window.activateWindow();
        turn();
    }

    QWidget window;
    QLineEdit *line = new QLineEdit;
    QPlainTextEdit *lines = new QPlainTextEdit;
    QWidget *other = new QWidget;
    WillingRecords records;
    EditCommands commands{&records};
};

TEST_F(EditCommandsTests, TheTextFieldThatHasTheKeyboardGetsItsOwn)
{
    line->setFocus();
    line->setText(u"some words"_s);
    EXPECT_FALSE(commands.canDo(EditCommand::Cut));
    EXPECT_FALSE(commands.canDo(EditCommand::Copy));
    commands.perform(EditCommand::SelectAll);
    EXPECT_EQ(line->selectedText(), u"some words"_s);
    commands.perform(EditCommand::Cut);
    EXPECT_EQ(line->text(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"some words"_s);
    commands.perform(EditCommand::Paste);
    commands.perform(EditCommand::Paste);
    EXPECT_EQ(line->text(), u"some wordssome words"_s);
    EXPECT_FALSE(commands.canDo(EditCommand::CopyCell));
    EXPECT_FALSE(commands.canDo(EditCommand::PasteIntoCells));
    EXPECT_TRUE(records.performed.isEmpty());
}

TEST_F(EditCommandsTests, SeveralLinesAreATextFieldToo)
{
    lines->setFocus();
    lines->setPlainText(u"a\nb"_s);
    commands.perform(EditCommand::SelectAll);
    commands.perform(EditCommand::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"a\nb"_s);
    lines->setReadOnly(true);
    EXPECT_TRUE(commands.canDo(EditCommand::Copy));
    EXPECT_FALSE(commands.canDo(EditCommand::Cut));
    EXPECT_FALSE(commands.canDo(EditCommand::Paste));
}

TEST_F(EditCommandsTests, TheTableGetsTheOthers)
{
    records.table->setFocus();
    const QList<EditCommand> all{EditCommand::Cut, EditCommand::Paste, EditCommand::SelectAll};
    for (const EditCommand command : all)
        commands.perform(command);
    EXPECT_EQ(records.performed, all);
    records.isReady = false;
    EXPECT_FALSE(commands.canDo(EditCommand::Copy));
    commands.perform(EditCommand::Copy);
    EXPECT_EQ(records.performed, all);
}

TEST_F(EditCommandsTests, ElsewhereOnlyThoseOfTheWindowWork)
{
    other->setFocus();
    EXPECT_FALSE(commands.canDo(EditCommand::Cut));
    EXPECT_FALSE(commands.canDo(EditCommand::SelectAll));
    EXPECT_TRUE(commands.canDo(EditCommand::NewRecord));
    line->setFocus();
    commands.perform(EditCommand::NewRecord);
    commands.perform(EditCommand::Duplicate);
    EXPECT_EQ(records.performed,
              QList<EditCommand>({EditCommand::NewRecord, EditCommand::Duplicate}));
}

TEST_F(EditCommandsTests, WhatWasTypedIsTakenBackWhereItWasTyped)
{
    records.table->setFocus();
    EXPECT_FALSE(TextInputs::performInFocused(EditCommand::Undo));
    for (QWidget *const input : {static_cast<QWidget *>(line), static_cast<QWidget *>(lines)}) {
        const char *const text = input == line ? "text" : "plainText";
        input->setFocus();
        EXPECT_FALSE(TextInputs::performInFocused(EditCommand::Undo));
        QTest::keyClicks(input, u"x"_s);
        EXPECT_TRUE(TextInputs::performInFocused(EditCommand::Undo));
        EXPECT_EQ(input->property(text), u""_s);
        EXPECT_TRUE(TextInputs::performInFocused(EditCommand::Redo));
        EXPECT_EQ(input->property(text), u"x"_s);
    }
}
