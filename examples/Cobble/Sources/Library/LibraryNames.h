#pragma once

#include "Library.h"

#include <QStringList>

// The names that the database has for libraries and fields, made of those that people see.

namespace LibraryNames {
/// Gives a library the names that it still lacks.
/// \param tables the names of the tables that there are.
Library completed(Library library, const QStringList &tables);
/// Gives a field the names that it still lacks: those of its column, its property and its label.
/// \param columns the columns that there are.
LibraryField completed(LibraryField field, const QStringList &columns);
/// The first of "base", "base1", "base2" … that is none of some names, whatever their case.
QString unique(const QString &base, const QStringList &taken);
} // namespace LibraryNames
