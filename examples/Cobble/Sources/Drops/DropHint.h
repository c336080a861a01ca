#pragma once

#include <QLabel>

/// Says over a window what happens when what is dragged there is let go of. It takes no clicks.
///
/// \code
/// auto *const hint = new DropHint(window, tr("Let go to import the file"));
/// hint->setVisible(isDraggedOver);
/// \endcode
class DropHint : public QLabel
{
    Q_OBJECT

public:
    /// \param window owns this; it is hidden at first.
    DropHint(QWidget *window, const QString &text);

    /// Covers the window while it is visible.
    void setVisible(bool isVisible) override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
