target_sources(CobbleHost PRIVATE
    Sources/Forms/DetailForm.cpp
    Sources/Forms/FormField.cpp
    Sources/Forms/FormRow.cpp
    Sources/Forms/TextFieldKeys.cpp
)
