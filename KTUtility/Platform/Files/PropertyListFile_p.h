#pragma once

#include <QString>
#include <QVariantMap>

namespace KTPrivate {
// Private to the platform and the logger: reading a file of settings, which must not be taken for
// empty where nobody knows what it holds.

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
} // namespace KTPrivate
