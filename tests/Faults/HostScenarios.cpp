// What the host writes.

#include "FaultScenario.h"

QList<FaultRow> hostScenarios()
{
    return {};
}
