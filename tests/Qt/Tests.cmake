target_sources(KTUtilityTests PRIVATE
    Qt/Expense.h
    Qt/KTApplicationTests.cpp
    Qt/KTArrayColumnTests.cpp
    Qt/KTArrayModelOrderTests.cpp
    Qt/KTArrayModelTests.cpp
    Qt/KTArraySelectionTests.cpp
    Qt/KTBindingOptionsTests.cpp
    Qt/KTBoundEditorTests.cpp
    Qt/KTFormatterDelegateTests.cpp
    Qt/KTFormatterEditTests.cpp
    Qt/KTFormatterValidatorTests.cpp
    Qt/KTTranslationsTests.cpp
    Qt/ModelSupport.h
)
