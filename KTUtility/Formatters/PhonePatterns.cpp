#include "PhonePatterns_p.h"

#include "PhoneDigits_p.h"

using namespace KTPrivate;

PhonePatterns::PhonePatterns(const QStringList &patterns) : _patterns(patterns)
{
    _literals.reserve(patterns.size());
    _first.reserve(patterns.size());
    for (const QString &pattern : patterns)
        _literals.append(PhoneDigits::literalsOf(pattern));
    for (qsizetype index = 0; index < patterns.size(); ++index)
        add(index);
}

void PhonePatterns::add(qsizetype index)
{
    const QStringView literals = _literals.at(index);
    const Shape shape(literals, _patterns.at(index).count(PhoneDigits::Placeholder));
    if (!_first.contains(shape))
        _first.insert(shape, index);
    _literalLengths.insert(literals.size());
    _mostUnits = std::max(_mostUnits, literals.size() + 2 * shape.second);
}

std::optional<QString> PhonePatterns::firstFitting(const QString &number) const
{
    const QString typed = PhoneDigits::withoutSeparators(number);
    if (typed.size() > _mostUnits)
        return std::nullopt;
    qsizetype first = _patterns.size();
    for (const qsizetype length : _literalLengths) {
        if (length > typed.size())
            break;
        const QStringView text = typed;
        if (const auto digits = PhoneDigits::valuesOf(text.mid(length)))
            first = std::min(first, _first.value({text.left(length), digits->size()}, first));
    }
    return first < _patterns.size() ? std::optional(_patterns.at(first)) : std::nullopt;
}
