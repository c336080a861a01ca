target_sources(KTUtilityTests PRIVATE
    Platform/Values/NSAttributedStringTests.cpp
    Platform/Values/NSDecimalArithmeticTests.cpp
    Platform/Values/NSDecimalNumberTests.cpp
    Platform/Values/NSErrorTests.cpp
    Platform/Values/NSExceptionTests.cpp
    Platform/Values/NSObjectTests.cpp
    Platform/Values/NSObjectValuesTests.cpp
    Platform/Values/NSScannerTests.cpp
    Platform/Values/NSStringFormatTests.cpp
    Platform/Values/VariantKindTests.cpp
)
