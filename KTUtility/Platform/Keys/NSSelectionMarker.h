#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QVariant>

/// What stands for the value of a selection that has no single one. It is a value of its own, equal
/// to itself only, and becomes neither a number nor a text.
///
/// \code
/// const QVariant name =
///     NSKeyValueCoding::valueForKeyPath(controller, u"selection.name"_s);
/// if (NSIsControllerMarker(name))
///     showNothing();
/// \endcode
struct NSSelectionMarker
{
    /// Why there is no single value.
    enum class Kind {
        NoSelection,    ///< nothing is selected
        NotApplicable,  ///< what is selected has no such value
        MultipleValues, ///< several objects with different values are selected
    };

    /// The reason.
    Kind kind = Kind::NoSelection;

    friend bool operator==(const NSSelectionMarker &, const NSSelectionMarker &) = default;
};

Q_DECLARE_METATYPE(NSSelectionMarker)

/// The marker for a selection of nothing.
KTUTILITY_EXPORT QVariant NSNoSelectionMarker();
/// The marker for a selection without such a value.
KTUTILITY_EXPORT QVariant NSNotApplicableMarker();
/// The marker for a selection of objects with different values.
KTUTILITY_EXPORT QVariant NSMultipleValuesMarker();
/// Whether a value is one of the three.
KTUTILITY_EXPORT bool NSIsControllerMarker(const QVariant &value);
