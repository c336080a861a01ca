target_sources(KTUtilityTests PRIVATE
    Platform/Values/DecimalArithmeticTests.cpp
    Platform/Values/NSAttributedStringTests.cpp
    Platform/Values/NSDecimalNumberTableTests.cpp
    Platform/Values/NSDecimalNumberTests.cpp
    Platform/Values/NSErrorTests.cpp
    Platform/Values/NSExceptionTests.cpp
    Platform/Values/NSIndexPathTests.cpp
    Platform/Values/NSObjectTests.cpp
    Platform/Values/NSObjectValuesTests.cpp
    Platform/Values/NSScannerTableTests.cpp
    Platform/Values/NSScannerTests.cpp
    Platform/Values/NSStringFormatTests.cpp
    Platform/Values/NSStringValuesTableTests.cpp
    Platform/Values/NSStringValuesTests.cpp
    Platform/Values/VariantKindTests.cpp
    Platform/Values/WallClockTests.cpp
)
