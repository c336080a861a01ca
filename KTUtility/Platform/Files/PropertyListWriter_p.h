#pragma once

// Private to the library. For what is no file and may be larger than one: property lists as text.

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace KTPrivate {
/// The XML text of a property list, however large.
/// \param error receives why it cannot be written; may be null.
/// \return null if it cannot be.
QByteArray writeXMLPropertyList(const QVariant &propertyList, QString *error);
} // namespace KTPrivate
