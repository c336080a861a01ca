#include "PackedLevels_p.h"

#include <limits>

using namespace KTPrivate;

void PackedLevels::add(QStringView name, int level)
{
    _names += name;
    _entries.push_back({qint32(_names.size()), level});
}

void PackedLevels::squeeze()
{
    _names.squeeze();
    _entries.shrink_to_fit();
}

QStringView PackedLevels::nameAt(size_t index) const
{
    const qsizetype begin = index > 0 ? _entries[index - 1].end : 0;
    return QStringView(_names).sliced(begin, _entries[index].end - begin);
}

int PackedLevels::levelOf(QStringView name) const
{
    for (size_t index = 0; index < count(); ++index) {
        if (nameAt(index) == name)
            return levelAt(index);
    }
    return 0;
}

StoredLevels::StoredLevels(const QVariantMap &levels)
{
    const bool areLong = !levels.isEmpty() && levels.first().typeId() == QMetaType::Type::LongLong;
    _type = QMetaType(areLong ? QMetaType::LongLong : QMetaType::Int);
    for (auto entry = levels.begin(); entry != levels.end(); ++entry) {
        if (isPacked(entry.key(), entry.value()))
            _packed.add(entry.key(), entry.value().toInt());
        else
            _others.insert(entry.key(), entry.value());
    }
    _packed.squeeze();
}

bool StoredLevels::isPacked(const QString &name, const QVariant &level) const
{
    using Limits = std::numeric_limits<int>;
    return !name.isEmpty() && level.metaType() == _type && level.toLongLong() >= Limits::min() &&
           level.toLongLong() <= Limits::max();
}

QVariantMap StoredLevels::levels() const
{
    QVariantMap levels = _others;
    for (size_t index = 0; index < _packed.count(); ++index) {
        QVariant level = _packed.levelAt(index);
        level.convert(_type);
        levels.insert(_packed.nameAt(index).toString(), level);
    }
    return levels;
}
