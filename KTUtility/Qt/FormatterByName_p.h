#pragma once

#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <QStringList>

#include <memory>

namespace KTPrivate {
/// A formatter of a registered class (see KT_REGISTER_CLASS) with some options, as a form says them.
/// What cannot be made or set is written to the log.
/// \param options each as "key=value".
/// \return null if the class is nil or unknown.
std::shared_ptr<NSFormatter> formatterByName(const QString &className, const QStringList &options);
} // namespace KTPrivate
