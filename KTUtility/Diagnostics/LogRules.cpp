#include "LogRules_p.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>

#include <QSet>

using namespace KTPrivate;

namespace {
constexpr const char *Variable = "KTLOG";
constexpr int HighestLevel = 7;

/// Takes one rule in.
/// \return false if it is none.
bool takeIn(QStringView rule, QVariantMap *levels)
{
    const qsizetype sign = rule.lastIndexOf(u'=');
    if (sign < 0)
        return false;
    bool isNumber = false;
    const QStringView name = rule.first(sign).trimmed();
    const int level = rule.sliced(sign + 1).trimmed().toInt(&isNumber);
    // A second rule, rather than a part of the name.
    const bool isOneRule = !name.contains(u'=') && !name.contains(u';');
    if (name.isEmpty() || !isOneRule || !isNumber || level < 0 || level > HighestLevel)
        return false;
    levels->insert(name.toString(), level);
    return true;
}

/// Reports what is no rule, unless that was done before.
void tell(const QString &rejected)
{
    static QSet<QString> told;
    if (told.contains(rejected))
        return;
    told.insert(rejected);
    NSLog(u"%s: \"%@\" is no rule such as \"Import=4\"", Variable, rejected);
}
} // namespace

LogRules LogRules::in(QStringView text)
{
    LogRules rules;
    for (const QStringView rule : text.split(u',')) {
        if (!rule.trimmed().isEmpty() && !takeIn(rule, &rules.levels))
            rules.rejected += rule.trimmed().toString();
    }
    return rules;
}

QVariantMap LogRules::levelsOfEnvironment()
{
    const LogRules rules = in(qEnvironmentVariable(Variable));
    for (const QString &each : rules.rejected)
        tell(each);
    return rules.levels;
}
