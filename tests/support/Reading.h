#pragma once

#include <QObject>
#include <QProperty>
#include <QString>

/// A record with properties of several kinds: with a signal, bindable only, of other names than
/// their getters, and one that rounds.
class Reading : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int level READ level WRITE setLevel NOTIFY levelChanged)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(bool valid READ isValid WRITE setValid NOTIFY validChanged)
    Q_PROPERTY(int quiet READ quiet WRITE setQuiet BINDABLE bindableQuiet)
    Q_PROPERTY(double rounded READ rounded WRITE setRounded NOTIFY roundedChanged)
    Q_PROPERTY(int fixed READ fixed CONSTANT)
    Q_PROPERTY(QVariant any READ any WRITE setAny NOTIFY anyChanged)

public:
    int level() const { return _level; }
    void setLevel(int level)
    {
        if (std::exchange(_level, level) != level)
            Q_EMIT levelChanged();
    }
    QString title() const { return _title; }
    void setTitle(const QString &title)
    {
        ++titleSets;
        if (std::exchange(_title, title) != title)
            Q_EMIT titleChanged();
    }
    bool isValid() const { return _isValid; }
    void setValid(bool valid)
    {
        if (std::exchange(_isValid, valid) != valid)
            Q_EMIT validChanged();
    }
    int quiet() const { return _quiet; }
    void setQuiet(int quiet) { _quiet = quiet; }
    QBindable<int> bindableQuiet() { return &_quiet; }
    double rounded() const { return _rounded; }
    void setRounded(double value)
    {
        _rounded = qRound(value);
        Q_EMIT roundedChanged();
    }
    int fixed() const { return 7; }
    QVariant any() const { return _any; }
    void setAny(const QVariant &any)
    {
        _any = any;
        Q_EMIT anyChanged();
    }

    int titleSets = 0;

Q_SIGNALS:
    void levelChanged();
    void titleChanged();
    void validChanged();
    void roundedChanged();
    void anyChanged();

private:
    int _level = 1;
    QString _title;
    bool _isValid = false;
    QProperty<int> _quiet{1};
    double _rounded = 0;
    QVariant _any;
};
