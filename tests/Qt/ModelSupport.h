#pragma once

#include "Expense.h"
#include "support/TestSupport.h"

#include <KTUtility/KTArrayModel>
#include <KTUtility/NSArrayController>

#include <QAbstractItemModelTester>
#include <QStringList>

#include <memory>
#include <vector>

/// What a model tells its views, as texts, and what a view makes of it: a list of its own, which it
/// changes as it is told only.
class ModelListener : public QObject
{
public:
    explicit ModelListener(KTArrayModel *model) : _model(model), _rows(objects())
    {
        QObject::connect(model, &QAbstractItemModel::rowsRemoved, this,
                         [this](const QModelIndex &, int first, int last) {
                             tell("removed %1-%2", first, last);
                             _rows.remove(first, last - first + 1);
                         });
        QObject::connect(model, &QAbstractItemModel::rowsInserted, this,
                         [this](const QModelIndex &, int first, int last) {
                             tell("inserted %1-%2", first, last);
                             for (int row = first; row <= last; ++row)
                                 _rows.insert(row, _model->objectAt(row));
                         });
        QObject::connect(
            model, &QAbstractItemModel::rowsMoved, this,
            [this](const QModelIndex &, int first, int last, const QModelIndex &, int before) {
                told += QStringLiteral("moved %1-%2 before %3").arg(first).arg(last).arg(before);
                const QVariantList moved = _rows.mid(first, last - first + 1);
                _rows.remove(first, moved.size());
                const qsizetype place = before > first ? before - moved.size() : before;
                for (qsizetype index = 0; index < moved.size(); ++index)
                    _rows.insert(place + index, moved.at(index));
            });
        QObject::connect(model, &QAbstractItemModel::layoutChanged, this, [this] {
            told += QStringLiteral("layout");
            _rows = objects();
        });
        QObject::connect(model, &QAbstractItemModel::modelReset, this,
                         [this] { told += QStringLiteral("reset"); });
        QObject::connect(model, &QAbstractItemModel::dataChanged, this,
                         [this](const QModelIndex &first, const QModelIndex &last) {
                             told += QStringLiteral("changed %1,%2-%3,%4")
                                         .arg(first.row())
                                         .arg(first.column())
                                         .arg(last.row())
                                         .arg(last.column());
                         });
    }

    /// What it was told since it was asked last.
    QStringList news() { return std::exchange(told, {}); }
    const QVariantList &rows() const { return _rows; }

    QStringList told;

private:
    void tell(const char *text, int first, int last)
    {
        told += QString::fromLatin1(text).arg(first).arg(last);
    }
    QVariantList objects() const
    {
        QVariantList list;
        for (int row = 0; row < _model->rowCount(); ++row)
            list += _model->objectAt(row);
        return list;
    }

    KTArrayModel *_model;
    QVariantList _rows;
};

/// A controller of some expenses: "a" for 1, "b" for 2, ….
class ModelTest : public testing_support::WindowedTest
{
protected:
    explicit ModelTest(int count = 5)
    {
        for (int index = 0; index < count; ++index)
            add(QString(QChar(u'a' + index % 26)), index + 1);
        showAll();
    }

    Expense *add(const QString &title, const QVariant &amount)
    {
        records.push_back(std::make_unique<Expense>(title, amount));
        return records.back().get();
    }
    static QVariant boxed(Expense *record) { return QVariant::fromValue(record); }
    QVariantList all() const
    {
        QVariantList list;
        for (const auto &each : records)
            list += boxed(each.get());
        return list;
    }
    void showAll() { controller.setContent(all()); }
    /// Shows the records with some letters, in that order.
    void show(const QString &letters)
    {
        QVariantList list;
        for (const QChar letter : letters)
            list += boxed(records.at(size_t(letter.unicode() - u'a')).get());
        controller.setContent(list);
    }
    Expense *record(size_t index) { return records.at(index).get(); }

    std::vector<std::unique_ptr<Expense>> records;
    NSArrayController controller;
};
