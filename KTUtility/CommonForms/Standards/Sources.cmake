target_sources(KTUtility PRIVATE
    CommonForms/Standards/FieldDate.cpp
    CommonForms/Standards/ISODate.cpp
    CommonForms/Standards/MailDate.cpp
    CommonForms/Standards/ShownDate.cpp
    CommonForms/Standards/ShownDatePattern.cpp
    CommonForms/Standards/StandardDate.cpp
    CommonForms/Standards/StandardDateReader.cpp
)
