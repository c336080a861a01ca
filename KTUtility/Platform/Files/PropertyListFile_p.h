#pragma once

// Private to the library. For settings in files, which must not be taken for empty where nobody knows
// what they hold.

#include <QString>
#include <QVariantMap>

namespace KTPrivate {
/// What came of reading a dictionary from a file.
struct DictionaryReading
{
    enum class Result {
        Dictionary,
        NoFile,
        NoDictionary, ///< what is there is something else, or damaged
        Unreadable,   ///< the system does not let it be read, perhaps for now only
    };

    Result result = Result::NoFile;
    /// Empty without Result::Dictionary.
    QVariantMap dictionary;
};

DictionaryReading readDictionary(const QString &path);

/// Keeps a file that is there and cannot be read as a dictionary from being overwritten: as
/// "<path>.damaged", or with a number behind it if such a file was kept before.
bool moveDamagedFileAside(const QString &path);
} // namespace KTPrivate
