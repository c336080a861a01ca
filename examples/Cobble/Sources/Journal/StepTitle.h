#pragma once

#include <QString>
#include <QVariantMap>

/// What a step of the journal is called: the kind of what it does, and what it is done to. The
/// journal keeps these rather than a sentence, so that every language has one; see StepText.
struct StepTitle
{
    QString kind;
    /// By the keys of StepParameters.
    QVariantMap parameters;
};

/// The kinds of steps. They stay in databases, so that none may change.
namespace StepKinds {
inline const QString Edit = QStringLiteral("edit");
inline const QString Insert = QStringLiteral("insert");
inline const QString Duplicate = QStringLiteral("duplicate");
inline const QString Delete = QStringLiteral("delete");
inline const QString Paste = QStringLiteral("paste");
inline const QString Fill = QStringLiteral("fill");
inline const QString Replace = QStringLiteral("replace");
inline const QString Import = QStringLiteral("import");
inline const QString NewLibrary = QStringLiteral("newLibrary");
inline const QString RenameLibrary = QStringLiteral("renameLibrary");
inline const QString RemoveLibrary = QStringLiteral("removeLibrary");
inline const QString AddField = QStringLiteral("addField");
inline const QString RenameField = QStringLiteral("renameField");
inline const QString MoveField = QStringLiteral("moveField");
inline const QString ChangeType = QStringLiteral("changeType");
inline const QString ChangeOptions = QStringLiteral("changeOptions");
inline const QString RemoveField = QStringLiteral("removeField");
/// Several changes to the fields of a library.
inline const QString ChangeFields = QStringLiteral("changeFields");
} // namespace StepKinds

namespace StepParameters {
/// The title of a field.
inline const QString Field = QStringLiteral("field");
/// The name of a library.
inline const QString Library = QStringLiteral("library");
/// How many records.
inline const QString Count = QStringLiteral("count");
} // namespace StepParameters
