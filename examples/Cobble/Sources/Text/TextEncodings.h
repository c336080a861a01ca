#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>

/// The encodings that text files can be in.
namespace TextEncodings {
/// What stands for "find it out" where a name is asked for.
inline const QString Automatic = QStringLiteral("auto");

/// Their names, as people know them: "UTF-8", "UTF-16LE", "windows-1252", "ISO-8859-15".
const QStringList &names();

/// The name of names() that is meant, in any case and by any alias: "windows-1252" for "cp1252".
std::optional<QString> named(const QString &name);

/// What bytes that are no UTF-8 are probably in; nil if that cannot be said. Bytes of ISO 8859-1 are
/// taken for windows-1252, which has a character more where ISO 8859-1 has none that are used.
///
/// \code
/// TextEncodings::guessed("Stra\xdf" "e, M\xfcller");    // "windows-1252"
/// \endcode
QString guessed(QByteArrayView bytes);
} // namespace TextEncodings
