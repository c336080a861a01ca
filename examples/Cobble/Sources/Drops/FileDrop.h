#pragma once

#include <QObject>
#include <QString>

#include <functional>

class DropHint;
class QDropEvent;
class QWidget;

/// Takes a file that is dropped onto a window, if an import reads files of its kind: csv, tsv, tab,
/// txt and vcf; while it is dragged there, the window says so. For everything else there is a
/// sentence. What is no file is left to the views within.
///
/// \code
/// auto *const drop = new FileDrop(window);
/// QObject::connect(drop, &FileDrop::dropped, this, &Controller::importDropped);
/// QObject::connect(drop, &FileDrop::refused, this, &Controller::tell);
/// \endcode
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// \param window owns this.
    explicit FileDrop(QWidget *window);

    /// Asked while something is dragged over the window; without one, files may always come.
    void setCondition(const std::function<bool()> &mayCome) { _mayCome = mayCome; }

Q_SIGNALS:
    void dropped(const QString &path);
    void refused(const QString &why);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    bool takes(const QDropEvent &event) const;
    void follow(QDropEvent *event, bool isDrag);
    void take(const QDropEvent &event);

    std::function<bool()> _mayCome;
    DropHint *_hint;
};
