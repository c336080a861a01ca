target_sources(KTUtility PRIVATE
    Platform/Values/DecimalArithmetic.cpp
    Platform/Values/Describable.cpp
    Platform/Values/Description.cpp
    Platform/Values/NSAttributedString.cpp
    Platform/Values/NSDecimalNumber.cpp
    Platform/Values/NSDecimalNumberOperations.cpp
    Platform/Values/NSError.cpp
    Platform/Values/NSException.cpp
    Platform/Values/NSIndexPath.cpp
    Platform/Values/NSObject.cpp
    Platform/Values/NSScanner.cpp
    Platform/Values/NSStringFormat.cpp
    Platform/Values/NSStringValues.cpp
    Platform/Values/DoubleText.cpp
    Platform/Values/ValueHash.cpp
    Platform/Values/VariantKind.cpp
)
