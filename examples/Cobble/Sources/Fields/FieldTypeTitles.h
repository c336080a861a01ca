#pragma once

#include "FieldType.h"

#include <QCoreApplication>

/// The types of fields in the words of the window, in the user's language.
///
/// \code
/// FieldTypeTitles::titleOf(FieldType::Currency, u"EUR"_s);    // "Currency (EUR)"
/// \endcode
class FieldTypeTitles
{
    Q_DECLARE_TR_FUNCTIONS(FieldTypeTitles)

public:
    FieldTypeTitles() = delete;

    static QString titleOf(FieldType type);
    /// \param currency the code of its currency; nil for types that have none.
    static QString titleOf(FieldType type, const QString &currency);
    /// All types, in the order in which they are offered.
    static QList<FieldType> types();
};
