#pragma once

#include "Library/Library.h"

#include <QCoreApplication>

/// What windows call a field.
class FieldTitle
{
    Q_DECLARE_TR_FUNCTIONS(FieldTitle)

public:
    FieldTitle() = delete;

    /// As it was titled; never the name of its column, which is nobody's business.
    static QString of(const LibraryField &field);
    /// Before an input: with a colon, unless the title ends like a sentence ("Married?"). "&" is a
    /// letter like others.
    static QString label(const QString &title);
};
