#include "TextOrder.h"

#include <QLocale>

#include <unicode/ucol.h>

#include <algorithm>

namespace {
/// A key of an ordinary text fits.
constexpr int32_t OrdinaryKey = 128;

void set(UCollator *collator, UColAttribute attribute, UColAttributeValue value)
{
    UErrorCode status = U_ZERO_ERROR;
    ucol_setAttribute(collator, attribute, value, &status);
}
} // namespace

TextOrder::TextOrder(const QString &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const QByteArray name = QLocale(locale).bcp47Name().replace(u'-', u'_').toLatin1();
    _collator.reset(ucol_open(name.constData(), &status));
    if (!_collator)
        return;
    set(_collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON);
    set(_collator.get(), UCOL_STRENGTH, UCOL_TERTIARY);
    set(_collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON);
    set(_collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE);
}

void TextOrder::Close::operator()(UCollator *collator) const
{
    ucol_close(collator);
}

std::weak_ordering TextOrder::compare(QStringView left, QStringView right) const
{
    if (!_collator)
        return QtPrivate::compareStrings(left, right) <=> 0;
    return int(ucol_strcoll(_collator.get(), left.utf16(), int32_t(left.size()), right.utf16(),
                            int32_t(right.size()))) <=> 0;
}

void TextOrder::appendKey(QStringView text, QByteArray *keys) const
{
    if (!_collator) {
        keys->append(text.toUtf8()).append('\0');
        return;
    }
    const qsizetype before = keys->size();
    const auto make = [&](int32_t room) {
        keys->resize(before + room);
        return ucol_getSortKey(_collator.get(), text.utf16(), int32_t(text.size()),
                               reinterpret_cast<uint8_t *>(keys->data() + before), room);
    };
    int32_t length = make(OrdinaryKey);
    if (length > OrdinaryKey)
        length = make(length);
    keys->resize(before + length);
}
