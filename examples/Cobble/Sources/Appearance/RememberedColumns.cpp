#include "RememberedColumns.h"

#include <KTUtility/NSUserDefaults>

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {
const QString ColumnsPrefix = u"columns "_s;
const QString OrderKey = u"order"_s;
const QString WidthsKey = u"widths"_s;
const QString SortKey = u"sort"_s;
const QString DescendingKey = u"descending"_s;
constexpr int LeastWidth = 16;
constexpr int LargestWidth = 4000;
} // namespace

RememberedColumns::RememberedColumns(QHeaderView *header) : _header(header) {}

QVariantMap RememberedColumns::layout() const
{
    QVariantList order;
    QVariantMap widths;
    for (int place = 0; place < _header->count(); ++place) {
        const int column = _header->logicalIndex(place);
        order += _keys.value(column);
        widths.insert(_keys.value(column), _header->sectionSize(column));
    }
    return {{OrderKey, order},
            {WidthsKey, widths},
            // There are no settings without a value.
            {SortKey, _keys.value(_header->sortIndicatorSection(), u""_s)},
            {DescendingKey, _header->sortIndicatorOrder() == Qt::DescendingOrder}};
}

void RememberedColumns::apply(const QVariantMap &layout)
{
    int place = 0;
    for (const QVariant &key : layout.value(OrderKey).toList()) {
        const qsizetype column = _keys.indexOf(key.toString());
        if (column >= 0)
            _header->moveSection(_header->visualIndex(int(column)), place++);
    }
    const QVariantMap widths = layout.value(WidthsKey).toMap();
    for (qsizetype column = 0; column < _keys.size(); ++column) {
        const int width = widths.value(_keys.at(column)).toInt();
        if (width >= LeastWidth && width <= LargestWidth)
            _header->resizeSection(int(column), width);
    }
    const qsizetype sorted = _keys.indexOf(layout.value(SortKey).toString());
    if (layout.contains(SortKey))
        _header->setSortIndicator(int(sorted), layout.value(DescendingKey).toBool()
                                                   ? Qt::DescendingOrder
                                                   : Qt::AscendingOrder);
}

void RememberedColumns::open(const QString &name, const QStringList &keys)
{
    _name = name;
    _keys = keys;
    if (!_header || _header->count() != keys.size())
        return;
    apply(NSUserDefaults::standardUserDefaults()->dictionaryForKey(ColumnsPrefix + name));
    _opened = layout();
    _left.clear();
}

void RememberedColumns::save()
{
    if (isOpen()) {
        const QVariantMap now = _left.isEmpty() ? layout() : _left;
        if (now != _opened)
            NSUserDefaults::standardUserDefaults()->setObject(now, ColumnsPrefix + _name);
    }
    _opened.clear();
    _left.clear();
}

bool RememberedColumns::isOpen() const
{
    return _header && !_opened.isEmpty() && _header->count() == _keys.size();
}

void RememberedColumns::leave()
{
    if (isOpen() && _left.isEmpty())
        _left = layout();
}

void RememberedColumns::comeBack()
{
    if (isOpen() && !_left.isEmpty())
        apply(_left);
    _left.clear();
}
