#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

/// The ring around one view: when it is to be seen, and the overlay that shows it. What the two
/// containers have in common.
///
/// Children cover what their parent paints, and a view cannot paint outside of itself, so that the
/// ring is a widget of its own in an ancestor, above the view and around it.
class KTFocusRing : public QObject
{
public:
    /// \param changed is called when the keyboard focus, the window or the view's place may have
    /// changed what is to be seen.
    KTFocusRing(QWidget *view, std::function<void()> changed);
    ~KTFocusRing() override;

    /// Whether the keyboard focus is in the view, and the window is the one that has the keyboard.
    bool shouldDraw() const;
    /// The widget that has the keyboard focus in the view's window.
    QWidget *firstResponder() const;

    /// Shows or hides the ring as shouldDraw() says.
    void display();
    /// The rectangle of the ring in the view's coordinates.
    static QRect rectAround(const QRect &bounds);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QWidget *canvas() const;
    void follow();
    void place();

    QWidget *_view;
    std::function<void()> _changed;
    QPointer<QWidget> _overlay;
    QList<QPointer<QWidget>> _followed;
};
