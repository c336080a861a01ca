#pragma once

// Private to the library. For what is no file and may be larger than one: property lists as text.

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace KTPrivate {
/// The property list in an XML text, however large. Depth and attributes are bounded, so that the
/// time that it takes grows with the size and no faster.
/// \param error receives what is wrong and where.
/// \return nil if the text is no property list.
QVariant readXMLPropertyList(const QByteArray &data, QString *error);
} // namespace KTPrivate
