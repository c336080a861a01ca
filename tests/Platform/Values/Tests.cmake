target_sources(KTUtilityTests PRIVATE
    Platform/Values/DecimalArithmeticTests.cpp
    Platform/Values/NSAttributedStringTests.cpp
    Platform/Values/NSDecimalNumberTests.cpp
    Platform/Values/NSErrorTests.cpp
    Platform/Values/NSExceptionTests.cpp
    Platform/Values/NSObjectTests.cpp
    Platform/Values/NSObjectValuesTests.cpp
    Platform/Values/NSScannerTests.cpp
    Platform/Values/NSStringFormatTests.cpp
    Platform/Values/NSStringValuesTableTests.cpp
    Platform/Values/VariantKindTests.cpp
)
