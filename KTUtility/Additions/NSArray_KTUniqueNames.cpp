#include "NSArray_KTUniqueNames.h"

#include "NSString_KTAdditions.h"
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Text/NSStringCase.h>
#include <KTUtility/Platform/Text/NSStringTrim.h>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
// What a failed precondition reports as its place.
constexpr char16_t SourceFile[] = u"Additions/NSArray_KTAdditions";
constexpr int NilBaseLine = 154;
constexpr int EmptyBaseLine = 156;

constexpr int LargestNumber = std::numeric_limits<int>::max();

void failPrecondition(int line, const QString &description)
{
    NSAssertionHandler::currentHandler()->handleFailureInMethod(
        u"uniqueStringWithBase:forKey:"_s, NSAssertionSubject::instanceOf(u"NSArray"_s),
        QString::fromUtf16(SourceFile), line, description);
}

/// A number as it is written behind a name, from 1 to \a limit; 0 for anything else.
size_t writtenNumber(QStringView digits, size_t limit)
{
    if (digits.isEmpty() || digits.front() == u'0')
        return 0;
    size_t number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9' || number > limit)
            return 0;
        number = number * 10 + size_t(digit.unicode() - u'0');
    }
    return number <= limit ? number : 0;
}
} // namespace

KTAdditions::NameClashes::NameClashes(const QString &base, const QString &separator,
                                      qsizetype count)
    : _base(base), _separator(separator), _takenNumbers(size_t(count) + 2)
{
}

void KTAdditions::NameClashes::seeValue(const QVariant &value)
{
    if (value.typeId() == QMetaType::QString)
        seeName(QStringView(*static_cast<const QString *>(value.constData())));
}

void KTAdditions::NameClashes::seeName(QStringView name)
{
    // nil equals nothing, not even nil.
    if (_base.isNull() || name.isNull() || !name.startsWith(_base))
        return;
    const QStringView rest = name.sliced(_base.size());
    if (rest.isEmpty())
        _isBaseTaken = true;
    else if (rest.startsWith(_separator))
        takeNumber(writtenNumber(rest.sliced(_separator.size()), size_t(LargestNumber)));
}

void KTAdditions::NameClashes::takeNumber(size_t number)
{
    if (number < _takenNumbers.size())
        _takenNumbers[number] = true;
    else
        _largeNumbers.insert(number);
}

int KTAdditions::NameClashes::firstFreeNumber() const
{
    if (!_isBaseTaken)
        return 0;
    const auto free = std::find(_takenNumbers.begin() + 1, _takenNumbers.end(), false);
    auto number = size_t(free - _takenNumbers.begin());
    while (_largeNumbers.contains(number))
        ++number;
    return int(number);
}

QString KTAdditions::NameClashes::name(int number) const
{
    return number == 0 ? _base : QString(_base + _separator + QString::number(number));
}

QString KTAdditions::trimmedUniqueBase(const QString &base)
{
    if (base.isNull())
        failPrecondition(NilBaseLine, u"NSArray_KTAdditions basename can't be null"_s);
    const QString trimmed = NSString::stringByTrimmingWhitespaceAndNewlines(base);
    if (trimmed.isEmpty())
        failPrecondition(EmptyBaseLine, u"NSArray_KTAdditions basename can't be empty"_s);
    return trimmed;
}

QString KTAdditions::strippedUniqueBase(const QString &base)
{
    return stringByStrippingCharactersInSet(base,
                                            NSCharacterSet::whitespaceAndNewlineCharacterSet());
}

QString KTAdditions::lowercaseValue(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? NSString::lowercaseString(value.toString())
                                                : QString();
}
