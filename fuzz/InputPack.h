#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// The inputs of a corpus as one file.
///
/// A pack is its inputs and nothing else: for each one its length in bytes, a number of 32 bits with
/// the lowest byte first, then the bytes themselves. They are sorted by content and each of them
/// stands there once, so that the same inputs always make the same file.
class InputPack
{
public:
    /// \param inputs in any order; of those that are equal, one is taken.
    explicit InputPack(QList<QByteArray> inputs);

    /// What a file's bytes say.
    /// \return nothing if there is no input in them, or if they end before
    /// the last one does; \p errorDescription, unless it is null, says which.
    static std::optional<InputPack> fromBytes(const QByteArray &bytes,
                                              QString *errorDescription = nullptr);
    /// The same of a file, which may be missing, too.
    static std::optional<InputPack> fromFile(const QString &path,
                                             QString *errorDescription = nullptr);
    /// The files of a folder, of which there must be one.
    static std::optional<InputPack> fromFolder(const QString &folder,
                                               QString *errorDescription = nullptr);

    const QList<QByteArray> &inputs() const { return _inputs; }
    QByteArray bytes() const;

    /// Replaces a file.
    /// \return whether all was written.
    bool writeFile(const QString &path) const;
    /// Writes each input into a file of the folder, which is made, under the name that libFuzzer
    /// would give it.
    /// \return whether all was written.
    bool writeFolder(const QString &folder) const;

private:
    QList<QByteArray> _inputs;
};
