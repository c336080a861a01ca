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
    enum class Kind {
        NoSelection,    ///< nothing is selected
        NotApplicable,  ///< what is selected has no such value
        MultipleValues, ///< several objects with different values are selected
    };

    Kind kind = Kind::NoSelection;

    friend bool operator==(const NSSelectionMarker &, const NSSelectionMarker &) = default;
};

Q_DECLARE_METATYPE(NSSelectionMarker)

KTUTILITY_EXPORT QVariant NSNoSelectionMarker();
KTUTILITY_EXPORT QVariant NSNotApplicableMarker();
KTUTILITY_EXPORT QVariant NSMultipleValuesMarker();
/// Whether a value is one of the three.
KTUTILITY_EXPORT bool NSIsControllerMarker(const QVariant &value);
