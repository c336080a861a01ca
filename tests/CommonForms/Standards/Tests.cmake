target_sources(KTUtilityTests PRIVATE
    CommonForms/Standards/FieldDateTests.cpp
    CommonForms/Standards/ISODateModelTests.cpp
    CommonForms/Standards/ISODateTests.cpp
    CommonForms/Standards/MailDateTests.cpp
    CommonForms/Standards/ShownDatePatternTests.cpp
    CommonForms/Standards/ShownDateTests.cpp
    CommonForms/Standards/StandardDateReaderTests.cpp
    CommonForms/Standards/StandardDateTests.cpp
)
