#pragma once

#include "Library/Library.h"
#include "Text/Outcome.h"

#include <QStringList>

// Fields as command lines describe them.

namespace FieldSettings {
/// Fails for what is no type of a field.
Outcome<FieldType> typeIn(const QString &name);
/// The field that "NAME:TYPE" describes; one of texts if there is no colon.
Outcome<LibraryField> fieldIn(const QString &text);
/// Gives a field options of its type, typed as "key=value". Amounts get a currency in any case,
/// that of the user's locale, so that they do not change with it.
Outcome<> apply(const QStringList &options, LibraryField *field);
} // namespace FieldSettings
