<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ExpensesWindow</name>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Löschen …</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>&amp;New Expense</source>
        <translation>&amp;Neue Ausgabe</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete the selected expenses?</source>
        <translation>Die ausgewählten Ausgaben löschen?</translation>
    </message>
    <message>
        <source>Expense</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>Ausgaben</translation>
    </message>
    <message numerus="yes">
        <source>Expenses saved: %n</source>
        <translation>
            <numerusform>Eine Ausgabe gespeichert</numerusform>
            <numerusform>%n Ausgaben gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>The expenses could not be saved.</source>
        <translation>Die Ausgaben konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>There is no exporter for this kind of file.</source>
        <translation>Für diese Art von Datei gibt es kein Exportmodul.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Das kann nicht rückgängig gemacht werden.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
</context>
</TS>
