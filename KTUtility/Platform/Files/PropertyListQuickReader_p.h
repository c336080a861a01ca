#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

namespace KTPrivate {
/// What readXMLPropertyList() would return, for dictionaries, arrays, plain texts, numbers, truth
/// values, dates and data in the usual form; nothing for everything else, right or wrong.
std::optional<QVariant> readPlainXMLPropertyList(const QByteArray &data);
} // namespace KTPrivate
