#pragma once

#include "Fields/FieldType.h"
#include "Text/Outcome.h"

#include <QDialog>

#include <functional>

class ProblemLabel;
class QComboBox;
class QDialogButtonBox;
class QLineEdit;

/// A sheet that asks for the name of a library or a field, and for the type of a field. It stays, and
/// says why, as long as what is typed is refused.
///
/// \code
/// auto *const sheet = new NameSheet(window, tr("New Library"), [this](const QString &name, FieldType) {
///     return makeLibrary(name);
/// });
/// sheet->open();
/// \endcode
class NameSheet : public QDialog
{
    Q_OBJECT

public:
    /// Does what was asked for.
    using Answer = std::function<Outcome<>(const QString &name, FieldType type)>;

    /// It is destroyed when it ends.
    NameSheet(QWidget *window, const QString &title, const Answer &answer);

    void setName(const QString &name);
    /// Asks for a type, too.
    void needType();

    void accept() override;

private:
    QDialogButtonBox *makeButtons();
    FieldType type() const;

    Answer _answer;
    QLineEdit *_name;
    /// Null unless a type is asked for.
    QComboBox *_type = nullptr;
    ProblemLabel *_problem;
};
