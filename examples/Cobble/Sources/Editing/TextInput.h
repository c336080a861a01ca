#pragma once

#include <QPlainTextEdit>

/// A text edit that stays quick with texts of any length: Qt takes a minute to break a line in
/// which there is no space for a million letters, so that such lines are not broken.
class TextInput : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextInput(QWidget *parent = nullptr);

    /// The text with all its characters; toPlainText() turns non-breaking spaces into plain ones.
    QString text() const;
    /// Replaces the text.
    void setText(const QString &text);
    /// How high an input of one line is beside this one.
    int heightOfLineEdit() const;

protected:
    /// Has the frame of inputs of one line, which shows where the keyboard is.
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Shift+Return begins a new line, as Return does.
    void keyPressEvent(QKeyEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void setWrapModeFor(const QString &text);
    void paintFrame();
};
