#include "NSSelectionMarker.h"

QVariant NSNoSelectionMarker()
{
    return QVariant::fromValue(NSSelectionMarker{NSSelectionMarker::Kind::NoSelection});
}

QVariant NSNotApplicableMarker()
{
    return QVariant::fromValue(NSSelectionMarker{NSSelectionMarker::Kind::NotApplicable});
}

QVariant NSMultipleValuesMarker()
{
    return QVariant::fromValue(NSSelectionMarker{NSSelectionMarker::Kind::MultipleValues});
}

bool NSIsControllerMarker(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<NSSelectionMarker>();
}
