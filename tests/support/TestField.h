#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

/// A record as the tests need it: properties of several types, one that may be nil, a parent that
/// forms key paths, and methods of every return type that conditions look at.
class TestField : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int id MEMBER _identifier)
    Q_PROPERTY(QString name MEMBER _name)
    Q_PROPERTY(QVariant order READ order WRITE setOrder)
    Q_PROPERTY(int size MEMBER _size)
    Q_PROPERTY(bool flag MEMBER _flag)
    Q_PROPERTY(QString label MEMBER _label)
    Q_PROPERTY(TestField *parent MEMBER _parent)
    Q_PROPERTY(double weight READ weight)

public:
    explicit TestField(const QString &name = {}, int size = 0) : _name(name), _size(size) {}

    QVariant order() const { return _order; }
    void setOrder(const QVariant &order);
    double weight() const { return _size / 2.0; }
    QString name() const { return _name; }
    int size() const { return _size; }
    int timesOrdered() const { return _timesOrdered; }

    Q_INVOKABLE bool flagged() const { return _flag; }
    Q_INVOKABLE char sizeChar() const { return char(_size); }
    Q_INVOKABLE int sizeInt() const { return _size; }
    Q_INVOKABLE uint sizeUInt() const { return uint(_size); }
    Q_INVOKABLE ushort sizeUShort() const { return ushort(_size); }
    Q_INVOKABLE qlonglong sizeLong() const { return _size; }
    Q_INVOKABLE QVariant sizeObject() const { return _size; }
    Q_INVOKABLE bool sizeOver(int limit) const { return _size > limit; }
    Q_INVOKABLE int sizeModulo(int divisor) const { return _size % divisor; }
    Q_INVOKABLE QString labelIfSmall(const QVariant &limit) const;
    Q_INVOKABLE int getAnswer() const { return 42; }
    Q_INVOKABLE bool isHidden() const { return !_flag; }
    Q_INVOKABLE void doNothing() {}
    Q_INVOKABLE int ambiguous(int) const { return 1; }
    Q_INVOKABLE int ambiguous(const QString &) const { return 1; }

    int _identifier = 0;
    QString _name;
    QVariant _order;
    int _size = 0;
    bool _flag = false;
    QString _label;
    TestField *_parent = nullptr;

private:
    int _timesOrdered = 0;
};

/// An object that decides about others.
class TestJudge : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE bool accept(TestField *field, int limit) const { return field->size() > limit; }
    Q_INVOKABLE int acceptInt(TestField *field, int limit) const { return field->size() - limit; }
    Q_INVOKABLE short acceptShort(TestField *field, int limit) const;
    Q_INVOKABLE qlonglong acceptLong(TestField *field, int limit) const;
    Q_INVOKABLE QVariant acceptObject(TestField *field, int limit) const;
    Q_INVOKABLE QString describe(TestField *field, const QString &prefix);

    int calls() const { return _calls; }

private:
    int _calls = 0;
};

/// A value with properties.
class TestPoint
{
    Q_GADGET
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(int order MEMBER order)

public:
    Q_INVOKABLE bool isRight() const { return x > 0; }

    int x = 0;
    int order = 0;

    friend bool operator==(const TestPoint &, const TestPoint &) = default;
};
