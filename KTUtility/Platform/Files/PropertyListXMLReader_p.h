#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace KTPrivate {
/// The property list in an XML text.
/// \param error receives what is wrong and where.
/// \return nil if the text is no property list.
QVariant readXMLPropertyList(const QByteArray &data, QString *error);
} // namespace KTPrivate
