#pragma once

#include <QByteArray>
#include <QVariantMap>

#include <optional>

namespace KTPrivate {
/// What readXMLPropertyList() would return, for a flat dictionary of plain texts in the usual form;
/// nothing for everything else, right or wrong.
std::optional<QVariantMap> readPlainXMLPropertyList(const QByteArray &data);
} // namespace KTPrivate
