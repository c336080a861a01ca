#include "KTBindingOptions.h"

#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QCoreApplication>

namespace {
QString builtInUnlessGiven(const QString &given, const char *builtIn)
{
    return given.isNull() ? QCoreApplication::translate("KTBindingOptions", builtIn) : given;
}
} // namespace

QString KTBindingOptions::placeholderFor(const QVariant &value) const
{
    if (value == NSMultipleValuesMarker())
        return builtInUnlessGiven(multiplePlaceholder,
                                  QT_TRANSLATE_NOOP("KTBindingOptions", "Multiple values"));
    if (value == NSNoSelectionMarker())
        return builtInUnlessGiven(noSelectionPlaceholder,
                                  QT_TRANSLATE_NOOP("KTBindingOptions", "Nothing is selected"));
    if (value == NSNotApplicableMarker())
        return builtInUnlessGiven(notApplicablePlaceholder,
                                  QT_TRANSLATE_NOOP("KTBindingOptions", "Not applicable"));
    return NSObject::isNil(value) ? nullPlaceholder : QString();
}

bool KTBindingOptions::isEditable(const QVariant &value)
{
    return value != NSNoSelectionMarker() && value != NSNotApplicableMarker();
}
