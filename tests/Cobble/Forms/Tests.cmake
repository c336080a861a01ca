target_sources(CobbleTests PRIVATE
    Cobble/Forms/DetailFormTests.cpp
    Cobble/Forms/FormFieldTests.cpp
)
