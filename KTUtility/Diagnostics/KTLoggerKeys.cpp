#include "KTLoggerKeys.h"

using namespace Qt::StringLiterals;

const QString KTLoggerWriteToFileKey = u"writeToFile"_s;
const QString KTLoggerDisplayFileLineKey = u"displayFileLine"_s;
const QString KTLoggerComponentsKey = u"components"_s;
