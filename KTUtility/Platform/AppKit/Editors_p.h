#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

namespace KTPrivate {
/// The editors in which something is being typed, in the order in which that began. Destroyed ones
/// leave.
class Editors
{
public:
    /// \param editor is an NSEditor, or nothing is done.
    void begin(QObject *editor);
    void end(QObject *editor);
    bool isEmpty() const;

    /// Asks one after the other, each of which may destroy others.
    /// \return whether all have stored what was typed; the first that has not ends it.
    bool commit();
    void discard();

private:
    QList<QPointer<QObject>> _editors;
};
} // namespace KTPrivate
