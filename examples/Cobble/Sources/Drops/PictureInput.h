#pragma once

#include <QWidget>

class QMimeData;
class QToolButton;

/// The ways in which a field of media gets a file: buttons that choose one, paste and remove it, and
/// files and pictures that are dropped on the picture.
///
/// \code
/// auto *const input = new PictureInput(mediaField);
/// QObject::connect(input, &PictureInput::given, this, [](const QString &path) { store(path); });
/// \endcode
class PictureInput : public QWidget
{
    Q_OBJECT

public:
    /// \param target takes what is dropped.
    explicit PictureInput(QWidget *target, QWidget *parent = nullptr);

    /// Whether there is a file that can be removed.
    void setHasFile(bool hasFile);
    /// Takes the file, else the picture, that was dropped or copied.
    /// \return false if there is neither.
    bool take(const QMimeData &content);
    void paste();

Q_SIGNALS:
    /// A file, which may be gone afterwards.
    void given(const QString &path);
    void refused(const QString &why);
    void removed();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QToolButton *addButton(const QString &name, const QString &title);
    void choose();
    void takeFiles(const QMimeData &content);
    void takeImage(const QImage &image);

    QToolButton *_remove;
};
