#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace KTPrivate {
/// The XML text of a property list.
/// \param error receives why it cannot be written; may be null.
/// \return null if it cannot be.
QByteArray writeXMLPropertyList(const QVariant &propertyList, QString *error);
} // namespace KTPrivate
