#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace KTPrivate {
/// The property list in data that begin with "bplist00".
/// \param error receives what is wrong.
/// \return nil if the data are no property list.
QVariant readBinaryPropertyList(const QByteArray &data, QString *error);
} // namespace KTPrivate
