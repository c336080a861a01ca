#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QStringList>
#include <QStringView>
#include <QVariantMap>

namespace KTPrivate {
/// Levels of components as a person writes them in one text: "Import=4,Drag & Drop=7". Blanks around
/// names and levels do not count; of two rules for a component the later one does.
struct LogRules
{
    /// Component name to level.
    QVariantMap levels;
    /// What is no rule: without a name, or with another level than 0 to 7.
    QStringList rejected;

    KTUTILITY_EXPORT static LogRules in(QStringView text);

    /// The levels that the environment variable KTLOG sets. What is no rule there is written to the
    /// console, once for each process.
    KTUTILITY_EXPORT static QVariantMap levelsOfEnvironment();
};
} // namespace KTPrivate
