#pragma once

// The keys of objects that somebody observes.

#include "ChangeChain_p.h"
#include "NSKeyValueChange.h"

#include <QObject>
#include <QPointer>
#include <QProperty>
#include <QString>

#include <memory>
#include <vector>

class QMetaProperty;
namespace KTPrivate {
class KeyPathObserver;

/// One key of one object, and the observers whose paths lead over it, in the order in which the
/// observations were made. It lives as long as there are any.
class ObservedKey : public QObject, public ChangeSource
{
    Q_OBJECT

public:
    /// The key of an object, made at the first call. Null if the object, told that it is observed
    /// now, is destroyed.
    static ObservedKey *of(QObject *object, const QString &key);
    /// The same, null if nobody observes it.
    static ObservedKey *existing(const QObject *object, const QString &key);
    /// All observed keys of an object, in the order in which they came to be observed.
    static QList<ObservedKey *> allOf(const QObject *object);

    ~ObservedKey() override;

    /// Whose key it is; null once that is destroyed.
    QObject *object() const { return _object.data(); }

    /// \param step which key of the observer's path it is.
    void add(KeyPathObserver *observer, size_t step);
    void remove(KeyPathObserver *observer, size_t step);
    /// Destroys the key if nobody observes it.
    void goIfUnused();

    /// Announces a change; until didChange(), the property's signal says nothing.
    void willChange(NSKeyValueChangeKind kind, const QList<qsizetype> &indexes);
    void didChange(NSKeyValueChangeKind kind, const QList<qsizetype> &indexes);
    /// Whether a change is announced and not reported yet.
    bool isChanging() const { return _changing > 0; }
    /// What was announced did not happen.
    void cancelChange();

    bool eventFilter(QObject *object, QEvent *event) override;
    QString changingName() const override;

private Q_SLOTS:
    void notified();
    void objectIsGone();

private:
    struct Entry
    {
        KeyPathObserver *observer = nullptr; // null: removed
        quint64 serial = 0;
        size_t step = 0;

        friend bool operator==(const Entry &, const Entry &) = default;
    };
    /// What becomes of the exceptions of observers.
    enum class Raised { Passes, IsReported };
    class Telling;

    ObservedKey(QObject *object, const QString &key);
    void connectTo(QObject *object);
    void connectTo(QObject *object, const QMetaProperty &property);
    void forget();
    std::vector<Entry>::iterator placeOf(quint64 serial, size_t step);
    void insert(const Entry &entry);
    void tell(const NSKeyValueChange &change, Raised raised);
    void tellAdded(const NSKeyValueChange &change, Raised raised);
    void tell(const Entry &entry, const NSKeyValueChange &change, Raised raised) const;
    void tellThatFirstObserverCame();
    void tellThatLastObserverWent() const;
    bool isSettled() const;
    void takeInAdded();
    void settle();

    QPointer<QObject> _object;
    const QObject *_address;
    QString _key;
    quint64 _serial;
    // In the order of the observers' serials.
    std::vector<Entry> _entries;
    size_t _gaps = 0;
    // What was added during a notification.
    std::vector<Entry> _added;
    // Of a bindable property without signal.
    std::unique_ptr<QPropertyNotifier> _notifier;
    int _telling = 0;
    int _changing = 0;
};
} // namespace KTPrivate
