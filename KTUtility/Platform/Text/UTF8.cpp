#include "UTF8_p.h"

#include <QStringEncoder>

using namespace KTPrivate;

char *KTPrivate::writeUTF8(char *to, QStringView text)
{
    // An encoder that keeps a state would wait for the other half of a pair.
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    return encoder.appendToBuffer(to, text);
}

QByteArray KTPrivate::utf8Of(QStringView text)
{
    QByteArray bytes(3 * text.size(), Qt::Uninitialized);
    bytes.truncate(writeUTF8(bytes.data(), text) - bytes.constData());
    return bytes;
}
