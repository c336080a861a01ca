#include "InputPack.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype LengthSize = sizeof(quint32);

void say(QString *errorDescription, const QString &what)
{
    if (errorDescription)
        *errorDescription = what;
}

/// Takes the input that begins at an offset and moves on behind it; nothing if the bytes end first.
std::optional<QByteArray> takeInput(const QByteArray &bytes, qsizetype &offset)
{
    if (bytes.size() - offset < LengthSize)
        return std::nullopt;
    const auto length = qFromLittleEndian<quint32>(bytes.constData() + offset);
    if (qsizetype(length) > bytes.size() - offset - LengthSize)
        return std::nullopt;
    const QByteArray input = bytes.mid(offset + LengthSize, qsizetype(length));
    offset += LengthSize + qsizetype(length);
    return input;
}

std::optional<QByteArray> contentsOf(const QString &path, QString *errorDescription)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    say(errorDescription, u"%1: %2"_s.arg(path, file.errorString()));
    return std::nullopt;
}

bool writeContents(const QString &path, const QByteArray &contents)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() &&
           file.commit();
}

QString nameOf(const QByteArray &input)
{
    return QString::fromLatin1(QCryptographicHash::hash(input, QCryptographicHash::Sha1).toHex());
}
} // namespace

InputPack::InputPack(QList<QByteArray> inputs) : _inputs(std::move(inputs))
{
    std::sort(_inputs.begin(), _inputs.end());
    _inputs.erase(std::unique(_inputs.begin(), _inputs.end()), _inputs.end());
}

std::optional<InputPack> InputPack::fromBytes(const QByteArray &bytes, QString *errorDescription)
{
    QList<QByteArray> inputs;
    for (qsizetype offset = 0; offset < bytes.size();) {
        const std::optional<QByteArray> input = takeInput(bytes, offset);
        if (!input) {
            say(errorDescription, u"The pack ends within input %1."_s.arg(inputs.size()));
            return std::nullopt;
        }
        inputs.append(*input);
    }
    if (inputs.isEmpty()) {
        say(errorDescription, u"The pack is empty."_s);
        return std::nullopt;
    }
    return InputPack(inputs);
}

std::optional<InputPack> InputPack::fromFile(const QString &path, QString *errorDescription)
{
    const std::optional<QByteArray> bytes = contentsOf(path, errorDescription);
    return bytes ? fromBytes(*bytes, errorDescription) : std::nullopt;
}

std::optional<InputPack> InputPack::fromFolder(const QString &folder, QString *errorDescription)
{
    QList<QByteArray> inputs;
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        const std::optional<QByteArray> bytes =
            contentsOf(QDir(folder).filePath(name), errorDescription);
        if (!bytes)
            return std::nullopt;
        inputs.append(*bytes);
    }
    if (!inputs.isEmpty())
        return InputPack(inputs);
    say(errorDescription, u"%1 holds no input."_s.arg(folder));
    return std::nullopt;
}

QByteArray InputPack::bytes() const
{
    QByteArray bytes;
    for (const QByteArray &input : _inputs) {
        const quint32 length = qToLittleEndian(quint32(input.size()));
        bytes.append(reinterpret_cast<const char *>(&length), LengthSize);
        bytes.append(input);
    }
    return bytes;
}

bool InputPack::writeFile(const QString &path) const
{
    return writeContents(path, bytes());
}

bool InputPack::writeFolder(const QString &folder) const
{
    return QDir().mkpath(folder) &&
           std::all_of(_inputs.begin(), _inputs.end(), [&](const QByteArray &input) {
               return writeContents(QDir(folder).filePath(nameOf(input)), input);
           });
}
