#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>

namespace KTPrivate {
// Private to property lists: the readers. The first two return nil and an error text for data that
// is not a property list of their kind.

QVariant readXMLPropertyList(const QByteArray &data, QString *error);
QVariant readBinaryPropertyList(const QByteArray &data, QString *error);

/// What readXMLPropertyList() would return, for a flat dictionary of plain texts in the usual form;
/// nothing for everything else, right or wrong.
std::optional<QVariantMap> readPlainXMLPropertyList(const QByteArray &data);
} // namespace KTPrivate
