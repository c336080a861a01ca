#pragma once

#include "Editing/RejectedInput.h"
#include "Forms/DetailForm.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class FieldEditor;
class MediaField;
class PictureInput;
class QFormLayout;
class QLabel;

/// The form below a table of records: an editor for each field of what is selected.
///
/// Several selected records are edited at once; where they differ, the editor is empty and says so.
class DetailPane : public QWidget, public InputSource
{
    Q_OBJECT

public:
    /// \param records whose selection is edited; must outlive the pane.
    explicit DetailPane(NSArrayController *records, QWidget *parent = nullptr);
    ~DetailPane() override;

    void setFields(const QList<FormField *> &fields);

    /// Makes what it is given one change; if that fails, nothing is changed.
    using Changer = std::function<Outcome<>(const std::function<void()> &changes)>;
    /// What editors change records by, so that several records change all or not at all.
    void setChanger(const Changer &changer) { _changer = changer; }
    /// Asks whether so many records may get a value; the answer may come later.
    using Asker = std::function<void(const QString &field, qsizetype count,
                                     const std::function<void(bool isWanted)> &answer)>;
    void setAsker(const Asker &asker) { _asker = asker; }
    /// So many selected records get a value without a question.
    static constexpr qsizetype MostUnasked = 20;

    /// Has it stand for so many selected records that the controller has none of them; 0 for those
    /// that it has. What is typed then goes to all of them.
    void setManySelected(qsizetype count);
    /// Gives all of so many records a value of a field.
    using ManyChanger = std::function<Outcome<>(qsizetype field, const QVariant &value)>;
    void setManyChanger(const ManyChanger &changer) { _manyChanger = changer; }
    /// The editor of a field by its position; null if there is none.
    FieldEditor *editor(qsizetype field) const;

    /// Finds the file that a media URL stands for; nil if there is none.
    using FileFinder = std::function<QString(const QString &url)>;
    void setFileFinder(const FileFinder &finder) { _fileFinder = finder; }
    /// Stores a file, and gives its URL to what makes a record name it.
    using FileStorer = std::function<Outcome<>(
        const QString &path, const std::function<Outcome<>(const QString &url)> &use)>;
    void setFileStorer(const FileStorer &storer) { _fileStorer = storer; }
    /// What a media field gets its file by; null for other fields.
    PictureInput *pictureInput(qsizetype field) const;
    /// The picture of a media field by its position; null for other fields.
    MediaField *mediaField(qsizetype field) const;

    std::optional<RejectedInput> settle() override;
    bool isAsking(const std::function<void()> &then) override;

Q_SIGNALS:
    /// What was typed is gone, since others are shown than those that it was meant for.
    void inputLost(const QString &field, const QString &text);

private:
    /// What one field is edited by.
    struct Row
    {
        QPointer<FormRow> row;
        QPointer<FieldEditor> editor;
        /// Null for fields that are no media.
        QPointer<MediaField> mediaField;
        QPointer<PictureInput> pictureInput;

        friend bool operator==(const Row &, const Row &) = default;
    };

    void rebuild();
    void addRow(FormRow *formRow);
    void showSelection();
    QLabel *labelFor(const Row &row);
    QWidget *inputFor(const Row &row);
    void show(const Row &row) const;
    void showMany(const Row &row) const;
    void showMedia(const Row &row) const;
    void tellLost(const Row &row);
    void take(const Row &row, const QString &text);
    void askAndTake(const Row &row, const QString &text, qsizetype count);
    void answer(const Row &row, const QString &text, bool isWanted);
    void store(const Row &row, const QString &text);
    Outcome<> write(const Row &row, const QString &text);
    Outcome<> takeForMany(const Row &row, const QString &text);
    qsizetype selectedCount() const;
    void connectInput(const Row &row);
    void give(const Row &row, const QString &path);

    NSArrayController *_records;
    DetailForm _form;
    QFormLayout *_layout;
    QLabel *_manyLabel;
    qsizetype _manyCount = 0;
    QList<Row> _rows;
    /// What the editors show.
    QVariantList _shown;
    Changer _changer;
    Asker _asker;
    bool _isAsking = false;
    /// What waits for the answer.
    std::function<void()> _afterAnswer;
    ManyChanger _manyChanger;
    FileFinder _fileFinder;
    FileStorer _fileStorer;
};
