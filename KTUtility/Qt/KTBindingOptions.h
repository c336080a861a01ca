#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QVariant>

/// What an editor or a column shows where there is no single value: for nil, and where the selection
/// of a controller has none (see NSSelectionMarker).
///
/// A nil text stands for the built-in one ("Multiple values", "Nothing is selected", "Not
/// applicable"; nothing for nil), an empty text for none.
///
/// \code
/// edit->bindTo(&controller, u"selection.amount",
///              {.nullPlaceholder = tr("none"), .multiplePlaceholder = tr("several")});
/// \endcode
struct KTUTILITY_EXPORT KTBindingOptions
{
    /// Shown for nil.
    QString nullPlaceholder = {};
    /// Shown for NSMultipleValuesMarker().
    QString multiplePlaceholder = {};
    /// Shown for NSNoSelectionMarker().
    QString noSelectionPlaceholder = {};
    /// Shown for NSNotApplicableMarker().
    QString notApplicablePlaceholder = {};
    /// Whether an editor is disabled while nothing is selected, or what is has no such value.
    bool disablesWithoutValue = true;

    /// What is shown in place of a value; "" where the value itself is to be shown.
    QString placeholderFor(const QVariant &value) const;
    /// Whether there is something that could be edited: all but nothing selected, and no such
    /// value.
    static bool isEditable(const QVariant &value);
};
