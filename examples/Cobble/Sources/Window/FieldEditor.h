#pragma once

#include "Fields/FieldType.h"

#include <QWidget>

class ProblemLabel;
class QLineEdit;
class TextInput;

/// Where a person types the value of a field: one line, for texts as many as they have.
///
/// Return commits what was typed, Escape takes it back; leaving the editor commits, too. In texts,
/// Shift+Return begins a new line. What cannot be read stays, with the reason below it.
///
/// \code
/// FieldEditor editor(FieldType::Number);
/// connect(&editor, &FieldEditor::committed, row, [&](const QString &text) {
///     editor.setProblem(row->setText(text).reason());
/// });
/// \endcode
class FieldEditor : public QWidget
{
    Q_OBJECT

public:
    explicit FieldEditor(FieldType type, QWidget *parent = nullptr);

    QString text() const;
    /// Shows a value, in place of what was typed.
    void setText(const QString &text);
    /// Whether something was typed that is not committed.
    bool isEdited() const { return text() != _text; }
    /// What stands in an empty editor.
    void setPlaceholderText(const QString &text);
    /// Why the text cannot be read; nil takes the message away.
    void setProblem(const QString &reason);
    /// The reason shown; nil if there is none.
    QString problem() const;
    /// Has what was typed read, if anything was.
    void commit();
    /// Shows the value again that the field has, as Escape does.
    void takeBack() { setText(_text); }
    /// What a screen reader calls the editor.
    void setTitle(const QString &title);
    /// The widget that has the cursor.
    QWidget *input() const;

Q_SIGNALS:
    /// A text was typed and is to be read.
    void committed(const QString &text);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void addInput(QWidget *input);
    void makeTextInput();
    void fitHeight();
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);

    QLineEdit *_line = nullptr;
    TextInput *_lines = nullptr;
    ProblemLabel *_problem = nullptr;
    /// What was shown last.
    QString _text;
};
