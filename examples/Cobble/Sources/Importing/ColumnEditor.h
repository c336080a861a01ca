#pragma once

#include "ImportPreview.h"

#include <QObject>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QTableWidget;

/// What lets the user choose what becomes of each column of a file: the first rows as the library
/// would show them, and the choices for one column at a time.
///
/// \code
/// ColumnEditor editor(parts);
/// QObject::connect(&editor, &ColumnEditor::changed, [&] { preview(editor.choices()); });
/// editor.show(preview);
/// \endcode
class ColumnEditor : public QObject
{
    Q_OBJECT

public:
    /// The parts of the window, which must outlive this.
    struct Parts
    {
        QTableWidget *table = nullptr;   ///< the rows; a click chooses the column
        QComboBox *column = nullptr;     ///< all columns of the file
        QCheckBox *isStored = nullptr;   ///< whether the column is not left out
        QLineEdit *header = nullptr;     ///< what it is called in the library
        QComboBox *type = nullptr;       ///< the first entry is the type found
        QComboBox *convention = nullptr; ///< how its values are typed
        QComboBox *currency = nullptr;   ///< what its amounts are in
    };

    explicit ColumnEditor(const Parts &parts, QObject *parent = nullptr);

    /// Shows nothing, and forgets what was chosen, for another file.
    void clear();
    /// Shows that there is no preview. What was chosen stays, and can be chosen otherwise.
    void showNoRows();
    /// Shows what a file would become. What was chosen for other columns is forgotten.
    void show(const ImportPreview &preview);
    /// What was chosen.
    const ColumnChoices &choices() const { return _choices; }
    /// The columns that it was chosen for; nothing if none are shown.
    const std::optional<FileColumns> &columns() const { return _columns; }

Q_SIGNALS:
    /// Something else was chosen.
    void changed();

private:
    /// What is known of a column of the file.
    struct Known
    {
        std::optional<FieldType> type;
        QString typeTitle;
    };

    void connectParts();
    void showTitles(const ImportPreview &preview);
    void showRows(const ImportPreview &preview);
    void showColumns(const ImportPreview &preview);
    void showColumn();
    void showType(const ColumnChoice &choice, const Known &known);
    void showConvention(const ColumnChoice &choice, const Known &known);
    void showCurrency(const ColumnChoice &choice, const Known &known);
    void setEnabled(bool isEnabled);
    void chooseClicked(int tableColumn);
    void change(const std::function<void(ColumnChoice &)> &change);
    void tellConvention(ColumnChoice &choice) const;
    void fillColumnBox();
    QStringList headers() const;
    qsizetype current() const;

    Parts _parts;
    ColumnChoices _choices;
    std::optional<FileColumns> _columns;
    /// The column that is shown.
    qsizetype _column = -1;
    QList<Known> _known;
    /// The positions in the file of the columns of the table.
    QList<qsizetype> _shownColumns;
};
