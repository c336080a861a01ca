#include "FuzzInput.h"

#include <KTUtility/NSFormatter>

#include <QMetaProperty>

#include <array>

namespace {
constexpr std::array<const char16_t *, 16> Locales = {
    u"en_US",
    u"de_DE",
    u"de_CH",
    u"fr_FR",
    u"fr_CH",
    u"ja_JP",
    u"ja_JP@calendar=japanese",
    u"tr_TR",
    u"ar_EG",
    u"hi_IN",
    u"fa_IR",
    u"th_TH@calendar=buddhist",
    u"sv_SE",
    u"pt_BR",
    u"he_IL",
    u"C",
};

/// The greatest number that options are set to: styles and places lie far below.
constexpr int LargestOption = 40;
} // namespace

uint8_t FuzzInput::byte()
{
    if (_bytes.empty())
        return 0;
    const uint8_t first = _bytes.front();
    _bytes = _bytes.subspan(1);
    return first;
}

qint64 FuzzInput::number()
{
    quint64 bits = 0;
    for (int count = below(9); count > 0; --count)
        bits = bits << 8 | byte();
    return qint64(bits);
}

QByteArray FuzzInput::rest()
{
    const QByteArray all(reinterpret_cast<const char *>(_bytes.data()), qsizetype(_bytes.size()));
    _bytes = {};
    return all;
}

QString FuzzInput::text()
{
    const bool isUnits = byte() == 0xFF;
    const QByteArray all = rest();
    if (!isUnits)
        return QString::fromUtf8(all);
    QString units;
    for (qsizetype index = 0; index + 1 < all.size(); index += 2)
        units += QChar(uchar(all.at(index)), uchar(all.at(index + 1)));
    return units;
}

QString FuzzInput::locale()
{
    return QString::fromUtf16(Locales[size_t(below(int(Locales.size())))]);
}

void FuzzInput::setOptions(NSFormatter *formatter)
{
    const QStringList keys = formatter->optionsKeys().value_or(QStringList());
    for (const QString &key : keys) {
        const int position = formatter->metaObject()->indexOfProperty(key.toLatin1().constData());
        const QMetaProperty property = formatter->metaObject()->property(position);
        if (property.typeId() == QMetaType::Bool)
            property.write(formatter, flag());
        else if (property.typeId() == QMetaType::Int || property.typeId() == QMetaType::UInt)
            property.write(formatter, below(LargestOption));
    }
}
