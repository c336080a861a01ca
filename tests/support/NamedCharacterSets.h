#pragma once

#include <KTUtility/NSCharacterSet>

#include <QJsonObject>
#include <QString>

namespace testing_support {
/// The predefined set of this name as the tables write it ("letter", "whitespaceAndNewline").
NSCharacterSet characterSetNamed(const QString &name);

/// The set that a row's arguments name: "named", or "chars" as its members.
NSCharacterSet characterSetFrom(const QJsonObject &arguments);
} // namespace testing_support
