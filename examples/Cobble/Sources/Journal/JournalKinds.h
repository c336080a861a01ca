#pragma once

#include <QString>

// The kinds of what a step of the journal consists of, as the database has them.

namespace JournalKinds {
inline const QString Records = QStringLiteral("records");
inline const QString Catalogue = QStringLiteral("catalogue");
} // namespace JournalKinds
