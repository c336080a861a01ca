#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

// Private to property lists: the two readers. Each returns nil and an error text for data that is
// not a property list of its kind.

QVariant readXMLPropertyList(const QByteArray &data, QString *error);
QVariant readBinaryPropertyList(const QByteArray &data, QString *error);
