#include "RememberedColumns.h"

#include <KTUtility/NSUserDefaults>

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {
const QString ColumnsPrefix = u"columns "_s;
const QString WidthsKey = u"widths"_s;
const QString SortKey = u"sort"_s;
const QString DescendingKey = u"descending"_s;
constexpr int LeastWidth = 16;
constexpr int LargestWidth = 4000;
} // namespace

RememberedColumns::RememberedColumns(QHeaderView *header) : _header(header) {}

QVariantMap RememberedColumns::layout() const
{
    QVariantMap widths;
    for (int column = 0; column < _header->count(); ++column)
        widths.insert(_keys.value(column), _header->sectionSize(column));
    return {{WidthsKey, widths},
            // There are no settings without a value.
            {SortKey, _keys.value(_header->sortIndicatorSection(), u""_s)},
            {DescendingKey, _header->sortIndicatorOrder() == Qt::DescendingOrder}};
}

void RememberedColumns::apply(const QVariantMap &layout)
{
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
