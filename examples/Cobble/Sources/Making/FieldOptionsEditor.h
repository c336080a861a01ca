#pragma once

#include "Library/Library.h"

#include <QWidget>

class QFormLayout;

/// The settings of a field that its type has, below the type: how many decimal places, which currency
/// and so on.
///
/// \code
/// auto *const editor = new FieldOptionsEditor(tr("&Type:"), typeBox);
/// editor->setField(field);
/// connect(editor, &FieldOptionsEditor::changed, this, [&](const QVariantMap &options) {
///     field.options = options;
/// });
/// \endcode
class FieldOptionsEditor : public QWidget
{
    Q_OBJECT

public:
    /// \param type what stands above the settings, with its title.
    FieldOptionsEditor(const QString &title, QWidget *type);

    /// Shows the settings of a field; of one with the same type and settings they stay as they are.
    void setField(const LibraryField &field);
    /// Shows none.
    void clear();

Q_SIGNALS:
    /// All settings of the field, of which the user has changed one.
    void changed(const QVariantMap &options);

private:
    void addOptions(const FieldReader &reader);
    void addOption(const QString &key, const QVariant &value);
    void addFlag(const QString &key, bool isSet);
    void addCount(const QString &key, uint count);
    void addCurrency(const QString &key, const QString &code);
    void addStyle(const QString &key, uint style);
    void addRow(const QString &key, QWidget *input);
    void addToTabOrder(QWidget *input);
    void set(const QString &key, const QVariant &value);
    bool isOffered(const QString &key) const;
    static QString titleOf(const QString &key);

    FieldType _type = FieldType::Text;
    QVariantMap _options;
    QFormLayout *_layout;
    QWidget *_typeInput;
    /// The last one that Tab goes to.
    QWidget *_last;
};
