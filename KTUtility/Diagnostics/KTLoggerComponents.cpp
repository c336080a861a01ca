#include "KTLoggerComponents.h"

#define KT_DEFINE_LOGGER_COMPONENT(constant, name)                                                 \
    const QString kLog_##constant = QStringLiteral(name);
KT_LOGGER_COMPONENTS(KT_DEFINE_LOGGER_COMPONENT)
#undef KT_DEFINE_LOGGER_COMPONENT

const QString kLog_invalid = QStringLiteral("invalid");
