#include "TextDecoder.h"

#include <QStringDecoder>

#include <unicode/ucnv.h>

#include <algorithm>
#include <utility>

namespace {
/// How many bytes a sequence of UTF-8 has, by its first.
qsizetype lengthBy(unsigned char first)
{
    if (first >= 0xf0)
        return 4;
    return first >= 0xe0 ? 3 : first >= 0xc0 ? 2 : 1;
}

/// The length of a sequence at the end that is not whole.
qsizetype incompleteEnd(QByteArrayView bytes)
{
    for (qsizetype length = 1; length <= std::min<qsizetype>(3, bytes.size()); ++length) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - length]);
        if ((byte & 0xc0) != 0x80)
            return lengthBy(byte) > length ? length : 0;
    }
    return 0;
}
} // namespace

void TextDecoder::Close::operator()(UConverter *converter) const
{
    ucnv_close(converter);
}

TextDecoder::TextDecoder(const QString &encoding) : _isUtf8(encoding == u"UTF-8")
{
    UErrorCode status = U_ZERO_ERROR;
    _converter.reset(ucnv_open(encoding.toLatin1().constData(), &status));
    ucnv_setToUCallBack(_converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
}

TextDecoder::~TextDecoder() = default;
TextDecoder::TextDecoder(TextDecoder &&other) noexcept = default;

bool TextDecoder::decode(QByteArrayView bytes, bool isLast, QString *text)
{
    return _isUtf8 ? decodeUtf8(bytes, isLast, text) : convert(bytes, isLast, text);
}

/// Qt's decoder is many times as fast; it does not say where an error is.
bool TextDecoder::decodeUtf8(QByteArrayView bytes, bool isLast, QString *text)
{
    if (!_beginning.isEmpty()) {
        const QByteArray whole = std::exchange(_beginning, QByteArray()) + bytes;
        return decodeUtf8(whole, isLast, text);
    }
    if (!isLast) {
        const qsizetype left = incompleteEnd(bytes);
        _beginning = bytes.last(left).toByteArray();
        bytes.chop(left);
    }
    const qsizetype size = text->size();
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
    text->resize(size + decoder.requiredSpace(bytes.size()));
    const QChar *const end = decoder.appendToBuffer(text->data() + size, bytes);
    text->resize(end - text->constData());
    if (!decoder.hasError())
        return true;
    text->resize(size);
    ucnv_reset(_converter.get());
    convert(bytes, true, text);
    return false;
}

bool TextDecoder::convert(QByteArrayView bytes, bool isLast, QString *text)
{
    const char *source = bytes.data();
    const char *const sourceEnd = source + bytes.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR) {
        const qsizetype size = text->size();
        text->resize(size + (sourceEnd - source) + 16);
        auto *const start = reinterpret_cast<UChar *>(text->data());
        UChar *target = start + size;
        status = U_ZERO_ERROR;
        ucnv_toUnicode(_converter.get(), &target, start + text->size(), &source, sourceEnd, nullptr,
                       UBool(isLast), &status);
        text->resize(target - start);
    }
    return U_SUCCESS(status);
}
