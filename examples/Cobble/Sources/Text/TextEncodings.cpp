#include "TextEncodings.h"

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
struct CloseDetector
{
    void operator()(UCharsetDetector *detector) const { ucsdet_close(detector); }
};
using Detector = std::unique_ptr<UCharsetDetector, CloseDetector>;

/// ICU's own name of an encoding; empty if it has none.
QByteArray ownNameOf(const QString &name)
{
    UErrorCode status = U_ZERO_ERROR;
    const char *const own = ucnv_getAlias(name.toLatin1().constData(), 0, &status);
    return U_SUCCESS(status) ? QByteArray(own) : QByteArray();
}

/// The name that stands for an encoding that was detected.
QString standardName(const QString &detected)
{
    if (detected == u"ISO-8859-1")
        return u"windows-1252"_s;
    return TextEncodings::named(detected).value_or(QString());
}

/// Whether zeros stand in every other byte, as they do where most characters are Latin.
QString utf16In(QByteArrayView bytes)
{
    qsizetype zeros[2] = {0, 0};
    for (qsizetype index = 0; index < bytes.size(); ++index)
        zeros[index % 2] += bytes[index] == '\0';
    const qsizetype many = bytes.size() / 8;
    if (zeros[1] > many && zeros[0] == 0)
        return u"UTF-16LE"_s;
    return zeros[0] > many && zeros[1] == 0 ? u"UTF-16BE"_s : QString();
}
} // namespace

const QStringList &TextEncodings::names()
{
    static const QStringList names{
        u"UTF-8"_s,        u"UTF-16LE"_s,     u"UTF-16BE"_s,     u"windows-1250"_s,
        u"windows-1251"_s, u"windows-1252"_s, u"windows-1253"_s, u"windows-1254"_s,
        u"windows-1255"_s, u"windows-1256"_s, u"windows-1257"_s, u"windows-1258"_s,
        u"windows-874"_s,  u"ISO-8859-1"_s,   u"ISO-8859-2"_s,   u"ISO-8859-3"_s,
        u"ISO-8859-4"_s,   u"ISO-8859-5"_s,   u"ISO-8859-6"_s,   u"ISO-8859-7"_s,
        u"ISO-8859-8"_s,   u"ISO-8859-9"_s,   u"ISO-8859-10"_s,  u"ISO-8859-13"_s,
        u"ISO-8859-14"_s,  u"ISO-8859-15"_s,  u"KOI8-R"_s,       u"macintosh"_s,
        u"Shift_JIS"_s,    u"EUC-JP"_s,       u"ISO-2022-JP"_s,  u"GB18030"_s,
        u"Big5"_s,         u"EUC-KR"_s};
    return names;
}

std::optional<QString> TextEncodings::named(const QString &name)
{
    const QByteArray own = ownNameOf(name);
    const auto found = std::find_if(names().begin(), names().end(), [&](const QString &known) {
        return known.compare(name, Qt::CaseInsensitive) == 0 ||
               (!own.isEmpty() && ownNameOf(known) == own);
    });
    return found == names().end() ? std::nullopt : std::optional(*found);
}

QString TextEncodings::guessed(QByteArrayView bytes)
{
    if (const QString utf16 = utf16In(bytes); !utf16.isNull())
        return utf16;
    UErrorCode status = U_ZERO_ERROR;
    const Detector detector(ucsdet_open(&status));
    ucsdet_setText(detector.get(), bytes.data(), int32_t(bytes.size()), &status);
    int32_t count = 0;
    const UCharsetMatch **const matches = ucsdet_detectAll(detector.get(), &count, &status);
    for (int32_t index = 0; U_SUCCESS(status) && index < count; ++index) {
        const QString name =
            standardName(QString::fromLatin1(ucsdet_getName(matches[index], &status)));
        // The bytes are known to be none.
        if (!name.isNull() && !name.startsWith(u"UTF-"))
            return name;
    }
    return {};
}
