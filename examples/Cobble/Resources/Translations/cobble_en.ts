<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Counts</name>
    <message numerus="yes">
        <source>%1 of %2 record(s)</source>
        <translation>
            <numerusform>%1 of %2 record</numerusform>
            <numerusform>%1 of %2 records</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 record(s)</source>
        <translation>
            <numerusform>%1 record</numerusform>
            <numerusform>%1 records</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DetailPane</name>
    <message numerus="yes">
        <source>%1 record(s) selected</source>
        <translation>
            <numerusform>%1 record selected</numerusform>
            <numerusform>%1 records selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FieldChanges</name>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>and %1 more</numerusform>
            <numerusform>and %1 more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>“%1” gets the type %2. %3 value(s) cannot be read and will be emptied.</source>
        <translation>
            <numerusform>“%1” gets the type %2. %3 value cannot be read and will be emptied.</numerusform>
            <numerusform>“%1” gets the type %2. %3 values cannot be read and will be emptied.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>“%1” is removed. %2 record(s) have a value there.</source>
        <translation>
            <numerusform>“%1” is removed. %2 record has a value there.</numerusform>
            <numerusform>“%1” is removed. %2 records have a value there.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportSummary</name>
    <message numerus="yes">
        <source>Stored %1 record(s) in the library “%2”.</source>
        <translation>
            <numerusform>Stored %1 record in the library “%2”.</numerusform>
            <numerusform>Stored %1 records in the library “%2”.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindowController</name>
    <message numerus="yes">
        <source>Deleted %1 record(s)</source>
        <translation>
            <numerusform>Deleted %1 record</numerusform>
            <numerusform>Deleted %1 records</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s)</source>
        <translation>
            <numerusform>Exported %1 record</numerusform>
            <numerusform>Exported %1 records</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s) to %2</source>
        <translation>
            <numerusform>Exported %1 record to %2</numerusform>
            <numerusform>Exported %1 records to %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 record(s)</source>
        <translation>
            <numerusform>Imported %1 record</numerusform>
            <numerusform>Imported %1 records</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Set “%1” of %2 record(s)?</source>
        <translation>
            <numerusform>Set “%1” of %2 record?</numerusform>
            <numerusform>Set “%1” of %2 records?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PasteProblems</name>
    <message numerus="yes">
        <source>%1 value(s) cannot be pasted. Nothing was stored yet.</source>
        <translation>
            <numerusform>%1 value cannot be pasted. Nothing was stored yet.</numerusform>
            <numerusform>%1 values cannot be pasted. Nothing was stored yet.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordCommands</name>
    <message numerus="yes">
        <source>Added %1 record(s)</source>
        <translation>
            <numerusform>Added %1 record</numerusform>
            <numerusform>Added %1 records</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SelectionSummary</name>
    <message numerus="yes">
        <source>%1 selected</source>
        <translation>
            <numerusform>%1 selected</numerusform>
            <numerusform>%1 selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StepText</name>
    <message numerus="yes">
        <source>Delete %1 Record(s)</source>
        <translation>
            <numerusform>Delete %1 Record</numerusform>
            <numerusform>Delete %1 Records</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %1 Record(s)</source>
        <translation>
            <numerusform>Duplicate %1 Record</numerusform>
            <numerusform>Duplicate %1 Records</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>New %1 Record(s)</source>
        <translation>
            <numerusform>New %1 Record</numerusform>
            <numerusform>New %1 Records</numerusform>
        </translation>
    </message>
</context>
</TS>
