target_sources(KTUtility PRIVATE
    CommonForms/Columns/ColumnClocks.cpp
    CommonForms/Columns/ColumnDates.cpp
    CommonForms/Columns/ColumnNumbers.cpp
    CommonForms/Columns/KTColumnReading.cpp
)
