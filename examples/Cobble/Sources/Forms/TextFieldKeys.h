#pragma once

#include <QObject>

/// Lets text fields have the keys that they use before any shortcut of a window gets them: while
/// one types, Ctrl+Backspace deletes a word, and Ctrl+Z takes back what was typed. A field into which
/// nothing was typed leaves Ctrl+Z to the window.
///
/// \code
/// TextFieldKeys keys;
/// qApp->installEventFilter(&keys);
/// \endcode
class TextFieldKeys : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject *object, QEvent *event) override;
};
