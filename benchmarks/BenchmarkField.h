#pragma once

#include <QObject>
#include <QString>

/// The record that the collection benchmarks look at.
class BenchmarkField : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int size MEMBER _size)
    Q_PROPERTY(QString name MEMBER _name)

public:
    BenchmarkField(int size, const QString &name) : _size(size), _name(name) {}

    Q_INVOKABLE bool isBiggerThan(int limit) const { return _size > limit; }

private:
    int _size;
    QString _name;
};
