#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QStringList>

/// The components of which the logging menu is made. Any thread may declare some.
namespace KTPrivate::LogComponents {
/// Enters a component behind those that are there, unless it is one of them or its name is none
/// (see KTLogComponent::isName()).
KTUTILITY_EXPORT void declare(const QString &name);

/// All that were declared, in their order.
KTUTILITY_EXPORT QStringList declared();

/// What the menu lists: the built-in ones and those that were declared, or what the program's
/// identity says. What is there once keeps its position.
KTUTILITY_EXPORT QStringList inMenu();
} // namespace KTPrivate::LogComponents
