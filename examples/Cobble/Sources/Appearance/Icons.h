#pragma once

#include <QIcon>

class QString;

// The icons of the desktop's theme; where it has none of a name, drawings in the colour of texts.

namespace Icons {
/// An icon by its name in the icon themes of freedesktop.org, "edit-find". Null if neither
/// the theme nor the program has it.
QIcon named(const QString &name);
/// The icon of what a menu item sends, "importFile:". Null for most of them.
QIcon ofAction(const QString &action);
/// That of the program.
QIcon application();
} // namespace Icons
