<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ColumnEditor</name>
    <message>
        <source>(without a name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>1:30 is hours and minutes</source>
        <translation>1:30 sind Stunden und Minuten</translation>
    </message>
    <message>
        <source>1:30 is minutes and seconds</source>
        <translation>1:30 sind Minuten und Sekunden</translation>
    </message>
    <message>
        <source>As found</source>
        <translation>Wie erkannt</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>Automatisch (%1)</translation>
    </message>
    <message>
        <source>Day, month, year</source>
        <translation>Tag, Monat, Jahr</translation>
    </message>
    <message>
        <source>Month, day, year</source>
        <translation>Monat, Tag, Jahr</translation>
    </message>
    <message>
        <source>Year, month, day</source>
        <translation>Jahr, Monat, Tag</translation>
    </message>
</context>
<context>
    <name>CopiedRecords</name>
    <message>
        <source>these are no copied records</source>
        <translation>das sind keine kopierten Datensätze</translation>
    </message>
</context>
<context>
    <name>Counts</name>
    <message numerus="yes">
        <source>%1 of %2 record(s)</source>
        <translation>
            <numerusform>%1 von %2 Datensatz</numerusform>
            <numerusform>%1 von %2 Datensätzen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 record(s)</source>
        <translation>
            <numerusform>%1 Datensatz</numerusform>
            <numerusform>%1 Datensätze</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DetailPane</name>
    <message numerus="yes">
        <source>%1 record(s) selected</source>
        <translation>
            <numerusform>%1 Datensatz ausgewählt</numerusform>
            <numerusform>%1 Datensätze ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Multiple values</source>
        <translation>Mehrere Werte</translation>
    </message>
    <message>
        <source>so many records do not get a file at once</source>
        <translation>so viele Datensätze bekommen nicht auf einmal eine Datei</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>&amp;New Record</source>
        <translation>&amp;Neuer Datensatz</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Copy C&amp;ell</source>
        <translation>&amp;Zelle kopieren</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>Fill Do&amp;wn</source>
        <translation>Nach &amp;unten ausfüllen</translation>
    </message>
    <message>
        <source>Paste &amp;Into Cells</source>
        <translation>&amp;In Zellen einfügen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
</context>
<context>
    <name>ExportSheet</name>
    <message>
        <source>&amp;Choose…</source>
        <translation>&amp;Auswählen …</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>&amp;Records:</source>
        <translation>Date&amp;nsätze:</translation>
    </message>
    <message>
        <source>All of the library</source>
        <translation>Alle der Bibliothek</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelled. The file was not written.</source>
        <translation>Abgebrochen. Die Datei wurde nicht geschrieben.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Please choose a file.</source>
        <translation>Bitte wählen Sie eine Datei aus.</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>There is a file of that name. Export once more to replace it.</source>
        <translation>Es gibt schon eine Datei mit diesem Namen. Exportieren Sie noch einmal, um sie zu ersetzen.</translation>
    </message>
    <message>
        <source>There is no database.</source>
        <translation>Es gibt keine Datenbank.</translation>
    </message>
    <message>
        <source>Those selected (%1)</source>
        <translation>Die ausgewählten (%1)</translation>
    </message>
    <message>
        <source>Those shown (%1)</source>
        <translation>Die gezeigten (%1)</translation>
    </message>
</context>
<context>
    <name>FieldChanges</name>
    <message>
        <source>Record %1: “%2”</source>
        <translation>Datensatz %1: „%2“</translation>
    </message>
    <message>
        <source>The fields get another order.</source>
        <translation>Die Felder bekommen eine andere Reihenfolge.</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>und %1 weiterer</numerusform>
            <numerusform>und %1 weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” gets the name “%2”.</source>
        <translation>„%1“ bekommt den Namen „%2“.</translation>
    </message>
    <message>
        <source>“%1” gets the type %2.</source>
        <translation>„%1“ bekommt den Typ %2.</translation>
    </message>
    <message numerus="yes">
        <source>“%1” gets the type %2. %3 value(s) cannot be read and will be emptied.</source>
        <translation>
            <numerusform>„%1“ bekommt den Typ %2. %3 Wert kann nicht gelesen werden und wird geleert.</numerusform>
            <numerusform>„%1“ bekommt den Typ %2. %3 Werte können nicht gelesen werden und werden geleert.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” gets the type %2. All values can be read.</source>
        <translation>„%1“ bekommt den Typ %2. Alle Werte können gelesen werden.</translation>
    </message>
    <message>
        <source>“%1” is new.</source>
        <translation>„%1“ ist neu.</translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation>„%1“ wird entfernt.</translation>
    </message>
    <message numerus="yes">
        <source>“%1” is removed. %2 record(s) have a value there.</source>
        <translation>
            <numerusform>„%1“ wird entfernt. %2 Datensatz hat dort einen Wert.</numerusform>
            <numerusform>„%1“ wird entfernt. %2 Datensätze haben dort einen Wert.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is removed. No record has a value there.</source>
        <translation>„%1“ wird entfernt. Kein Datensatz hat dort einen Wert.</translation>
    </message>
    <message>
        <source>“%1” is shown in another way.</source>
        <translation>„%1“ wird anders angezeigt.</translation>
    </message>
</context>
<context>
    <name>FieldListModel</name>
    <message>
        <source>Example</source>
        <translation>Beispiel</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>New Field</source>
        <translation>Neues Feld</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
</context>
<context>
    <name>FieldNameDelegate</name>
    <message>
        <source>Name of the field</source>
        <translation>Name des Feldes</translation>
    </message>
</context>
<context>
    <name>FieldOptionsEditor</name>
    <message>
        <source>Abbreviated units</source>
        <translation>Einheiten abgekürzt</translation>
    </message>
    <message>
        <source>Currency:</source>
        <translation>Währung:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Datum:</translation>
    </message>
    <message>
        <source>Decimal places:</source>
        <translation>Nachkommastellen:</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Vollständig</translation>
    </message>
    <message>
        <source>Highlighted negative values</source>
        <translation>Negative Werte hervorgehoben</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>Lang</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Negative values in parentheses</source>
        <translation>Negative Werte in Klammern</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kurz</translation>
    </message>
    <message>
        <source>Thousands separators</source>
        <translation>Tausendertrennzeichen</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Uhrzeit:</translation>
    </message>
    <message>
        <source>With the year</source>
        <translation>Mit dem Jahr</translation>
    </message>
</context>
<context>
    <name>FieldSheet</name>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>C&amp;hange Fields</source>
        <translation>Felder ä&amp;ndern</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Felder</translation>
    </message>
    <message>
        <source>Fields of “%1”</source>
        <translation>Felder von „%1“</translation>
    </message>
    <message>
        <source>Looking at the values…</source>
        <translation>Die Werte werden angesehen …</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Nothing is changed yet.</source>
        <translation>Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>Nothing is stored yet. These will be the changes:</source>
        <translation>Noch ist nichts gespeichert. Das wird geändert:</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>Um&amp;benennen</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>What changes</source>
        <translation>Was sich ändert</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
</context>
<context>
    <name>FieldSummary</name>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Sum %1 · Average %2 · Least %3 · Most %4</source>
        <translation>Summe %1 · Durchschnitt %2 · Minimum %3 · Maximum %4</translation>
    </message>
    <message>
        <source>too large</source>
        <translation>zu groß</translation>
    </message>
</context>
<context>
    <name>FieldTitle</name>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>FieldTypeTitles</name>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>Telefonnummer</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
</context>
<context>
    <name>FileDrop</name>
    <message>
        <source>Let go to import the file.</source>
        <translation>Loslassen, um die Datei zu importieren.</translation>
    </message>
    <message>
        <source>Only files of this computer can be dropped here.</source>
        <translation>Hier können nur Dateien dieses Computers abgelegt werden.</translation>
    </message>
    <message>
        <source>Please drop one file at a time.</source>
        <translation>Bitte legen Sie jeweils nur eine Datei ab.</translation>
    </message>
    <message>
        <source>“%1” is no file that can be imported: these are csv, tsv, txt and vcf.</source>
        <translation>„%1“ ist keine Datei, die importiert werden kann: Möglich sind csv, tsv, txt und vcf.</translation>
    </message>
    <message>
        <source>“%1” is no file.</source>
        <translation>„%1“ ist keine Datei.</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>&amp;Remove Filter</source>
        <translation>&amp;Filter entfernen</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Speichern …</translation>
    </message>
    <message>
        <source>All conditions are met</source>
        <translation>Alle Bedingungen sind erfüllt</translation>
    </message>
    <message>
        <source>Any condition is met</source>
        <translation>Mindestens eine Bedingung ist erfüllt</translation>
    </message>
    <message>
        <source>As &amp;text:</source>
        <translation>Als &amp;Text:</translation>
    </message>
    <message>
        <source>Filter as Text</source>
        <translation>Filter als Text</translation>
    </message>
    <message>
        <source>How Conditions Are Joined</source>
        <translation>Verknüpfung der Bedingungen</translation>
    </message>
    <message>
        <source>Keeps the filter in the list of libraries</source>
        <translation>Behält den Filter in der Liste der Bibliotheken</translation>
    </message>
    <message>
        <source>This filter can only be changed as text.</source>
        <translation>Dieser Filter kann nur als Text geändert werden.</translation>
    </message>
</context>
<context>
    <name>FilterRow</name>
    <message>
        <source>Add Condition</source>
        <translation>Bedingung hinzufügen</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Vergleich</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Last Value</source>
        <translation>Letzter Wert</translation>
    </message>
    <message>
        <source>Remove Condition</source>
        <translation>Bedingung entfernen</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>and</source>
        <translation>und</translation>
    </message>
</context>
<context>
    <name>FilterTexts</name>
    <message>
        <source>%1 (behind “%2”)</source>
        <translation>%1 (hinter „%2“)</translation>
    </message>
    <message>
        <source>AND or OR is missing here</source>
        <translation>hier fehlt AND oder OR</translation>
    </message>
    <message>
        <source>BETWEEN needs two values with AND between them</source>
        <translation>BETWEEN braucht zwei Werte mit AND dazwischen</translation>
    </message>
    <message>
        <source>a comparison such as = or CONTAINS is missing behind the field</source>
        <translation>hinter dem Feld fehlt ein Vergleich wie = oder CONTAINS</translation>
    </message>
    <message>
        <source>a field is missing here</source>
        <translation>hier fehlt ein Feld</translation>
    </message>
    <message>
        <source>a name is missing</source>
        <translation>es fehlt ein Name</translation>
    </message>
    <message>
        <source>a value is missing here</source>
        <translation>hier fehlt ein Wert</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>Das kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>it is no month, no year and no month of a year</source>
        <translation>das ist kein Monat, kein Jahr und kein Monat eines Jahres</translation>
    </message>
    <message>
        <source>it is no regular expression: %1</source>
        <translation>das ist kein regulärer Ausdruck: %1</translation>
    </message>
    <message>
        <source>it takes too long to find out what matches “%1”</source>
        <translation>es dauert zu lange, herauszufinden, was zu „%1“ passt</translation>
    </message>
    <message>
        <source>only [c], [d], [cd] and [] can stand here</source>
        <translation>hier dürfen nur [c], [d], [cd] und [] stehen</translation>
    </message>
    <message>
        <source>several fields are called “%1”</source>
        <translation>mehrere Felder heißen „%1“</translation>
    </message>
    <message>
        <source>the filter cannot be kept: %1</source>
        <translation>der Filter kann nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>the filter is too long</source>
        <translation>der Filter ist zu lang</translation>
    </message>
    <message>
        <source>the list is not closed</source>
        <translation>die Liste ist nicht geschlossen</translation>
    </message>
    <message>
        <source>the parenthesis is not closed</source>
        <translation>die Klammer ist nicht geschlossen</translation>
    </message>
    <message>
        <source>the quotation mark is not closed</source>
        <translation>das Anführungszeichen ist nicht geschlossen</translation>
    </message>
    <message>
        <source>there are too many parentheses</source>
        <translation>es sind zu viele Klammern</translation>
    </message>
    <message>
        <source>there is a library “%1” already</source>
        <translation>es gibt schon eine Bibliothek „%1“</translation>
    </message>
    <message>
        <source>there is no field “%1”</source>
        <translation>es gibt kein Feld „%1“</translation>
    </message>
    <message>
        <source>there is no library “%1”</source>
        <translation>es gibt keine Bibliothek „%1“</translation>
    </message>
    <message>
        <source>“%1” is there twice</source>
        <translation>„%1“ kommt zweimal vor</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>„%1“: %2</translation>
    </message>
</context>
<context>
    <name>FilterWords</name>
    <message>
        <source>begins with</source>
        <translation>beginnt mit</translation>
    </message>
    <message>
        <source>contains</source>
        <translation>enthält</translation>
    </message>
    <message>
        <source>does not contain</source>
        <translation>enthält nicht</translation>
    </message>
    <message>
        <source>ends with</source>
        <translation>endet mit</translation>
    </message>
    <message>
        <source>is</source>
        <translation>ist</translation>
    </message>
    <message>
        <source>is after</source>
        <translation>ist nach</translation>
    </message>
    <message>
        <source>is at least</source>
        <translation>ist mindestens</translation>
    </message>
    <message>
        <source>is at most</source>
        <translation>ist höchstens</translation>
    </message>
    <message>
        <source>is before</source>
        <translation>ist vor</translation>
    </message>
    <message>
        <source>is between</source>
        <translation>ist zwischen</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>ist leer</translation>
    </message>
    <message>
        <source>is from</source>
        <translation>ist frühestens</translation>
    </message>
    <message>
        <source>is in the month or year</source>
        <translation>ist im Monat oder Jahr</translation>
    </message>
    <message>
        <source>is less than</source>
        <translation>ist kleiner als</translation>
    </message>
    <message>
        <source>is more than</source>
        <translation>ist größer als</translation>
    </message>
    <message>
        <source>is not</source>
        <translation>ist nicht</translation>
    </message>
    <message>
        <source>is not empty</source>
        <translation>ist nicht leer</translation>
    </message>
    <message>
        <source>is not in the month or year</source>
        <translation>ist nicht im Monat oder Jahr</translation>
    </message>
    <message>
        <source>is one of</source>
        <translation>ist eines von</translation>
    </message>
    <message>
        <source>is until</source>
        <translation>ist spätestens</translation>
    </message>
    <message>
        <source>looks like (? and *)</source>
        <translation>sieht aus wie (? und *)</translation>
    </message>
    <message>
        <source>matches the expression</source>
        <translation>entspricht dem Ausdruck</translation>
    </message>
    <message>
        <source>stands before</source>
        <translation>steht vor</translation>
    </message>
    <message>
        <source>stands behind</source>
        <translation>steht hinter</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Cobble Help</source>
        <translation>Hilfe zu Cobble</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>ImportSheet</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>&amp;Auswählen …</translation>
    </message>
    <message>
        <source>&amp;Encoding:</source>
        <translation>&amp;Kodierung:</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>&amp;Library:</source>
        <translation>&amp;Bibliothek:</translation>
    </message>
    <message>
        <source>&amp;Media:</source>
        <translation>&amp;Medien:</translation>
    </message>
    <message>
        <source>&amp;Replace the library of that name</source>
        <translation>Die Bibliothek dieses Namens &amp;ersetzen</translation>
    </message>
    <message>
        <source>&amp;Separator:</source>
        <translation>&amp;Trennzeichen:</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>T&amp;yp:</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>All values can be read.</source>
        <translation>Alle Werte sind lesbar.</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Bar |</source>
        <translation>Strich |</translation>
    </message>
    <message>
        <source>C&amp;olumn:</source>
        <translation>&amp;Spalte:</translation>
    </message>
    <message>
        <source>C&amp;urrency:</source>
        <translation>&amp;Währung:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was stored.</source>
        <translation>Abgebrochen. Es wurde nichts gespeichert.</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Columns that name files elsewhere</source>
        <translation>Spalten, die Dateien an anderen Orten nennen</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Komma</translation>
    </message>
    <message>
        <source>F&amp;irst row holds the headers</source>
        <translation>Überschriften in der e&amp;rsten Zeile</translation>
    </message>
    <message>
        <source>Files beside the imported one are copied anyway. Columns that are named here may bring any file of yours along, and download others.</source>
        <translation>Dateien neben der importierten werden ohnehin kopiert. Spalten, die hier genannt werden, dürfen jede Ihrer Dateien mitbringen und andere herunterladen.</translation>
    </message>
    <message>
        <source>First rows as they would be stored</source>
        <translation>Erste Zeilen, wie sie gespeichert würden</translation>
    </message>
    <message>
        <source>Header in the library</source>
        <translation>Überschrift in der Bibliothek</translation>
    </message>
    <message>
        <source>Im&amp;port as</source>
        <translation>&amp;Importieren als</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Name of the file</source>
        <translation>Name der Datei</translation>
    </message>
    <message>
        <source>Nothing was stored: %1</source>
        <translation>Es wurde nichts gespeichert: %1</translation>
    </message>
    <message>
        <source>Please choose a file.</source>
        <translation>Bitte wählen Sie eine Datei aus.</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Rea&amp;d:</source>
        <translation>Ge&amp;lesen:</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen …</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Rows: %1</source>
        <translation>Zeilen: %1</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Semikolon</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leerzeichen</translation>
    </message>
    <message>
        <source>T&amp;yped in:</source>
        <translation>&amp;Geschrieben in:</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>Tables and cards (*.csv *.tsv *.txt *.vcf)</source>
        <translation>Tabellen und Visitenkarten (*.csv *.tsv *.txt *.vcf)</translation>
    </message>
    <message>
        <source>The file has other columns than those that you have chosen for. Please look at them and try again.</source>
        <translation>Die Datei hat andere Spalten als die, für die Sie etwas gewählt haben. Bitte sehen Sie sie an und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Values that cannot be read</source>
        <translation>Werte, die nicht lesbar sind</translation>
    </message>
    <message>
        <source>Values that cannot be read, and would be kept as typed: %1</source>
        <translation>Werte, die nicht lesbar sind und blieben, wie sie sind: %1</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Yours</source>
        <translation>Ihre</translation>
    </message>
    <message>
        <source>a quote in line %1 is never closed</source>
        <translation>ein Anführungszeichen in Zeile %1 wird nie geschlossen</translation>
    </message>
    <message>
        <source>separated by bars</source>
        <translation>durch Striche getrennt</translation>
    </message>
    <message>
        <source>separated by commas</source>
        <translation>durch Kommas getrennt</translation>
    </message>
    <message>
        <source>separated by semicolons</source>
        <translation>durch Semikolons getrennt</translation>
    </message>
    <message>
        <source>separated by spaces</source>
        <translation>durch Leerzeichen getrennt</translation>
    </message>
    <message>
        <source>separated by tabs</source>
        <translation>durch Tabulatoren getrennt</translation>
    </message>
    <message>
        <source>separated by “%1”</source>
        <translation>durch „%1“ getrennt</translation>
    </message>
    <message>
        <source>with fewer or more fields than there are headers: %1</source>
        <translation>mit weniger oder mehr Feldern als Überschriften: %1</translation>
    </message>
</context>
<context>
    <name>ImportSummary</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>%1 weitere</translation>
    </message>
    <message>
        <source>&amp;Columns:</source>
        <translation>&amp;Spalten:</translation>
    </message>
    <message>
        <source>&amp;Values kept as they were typed:</source>
        <translation>&amp;Werte, die so bleiben, wie sie eingegeben wurden:</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>Import Finished</source>
        <translation>Import abgeschlossen</translation>
    </message>
    <message>
        <source>Kept as typed</source>
        <translation>Wie eingegeben</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Gelesen</translation>
    </message>
    <message>
        <source>Read as</source>
        <translation>Gelesen als</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message numerus="yes">
        <source>Stored %1 record(s) in the library “%2”.</source>
        <translation>
            <numerusform>%1 Datensatz wurde in der Bibliothek „%2“ gespeichert.</numerusform>
            <numerusform>%1 Datensätze wurden in der Bibliothek „%2“ gespeichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Values kept as they were typed</source>
        <translation>Werte, die so bleiben, wie sie eingegeben wurden</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
</context>
<context>
    <name>LibraryActions</name>
    <message>
        <source>New Field</source>
        <translation>Neues Feld</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>Neue Bibliothek</translation>
    </message>
    <message>
        <source>Removed the library “%1”</source>
        <translation>Bibliothek „%1“ entfernt</translation>
    </message>
    <message>
        <source>Rename Library</source>
        <translation>Bibliothek umbenennen</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>&amp;About Cobble</source>
        <translation>&amp;Über Cobble</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>Fenster &amp;schließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
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
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;Library</source>
        <translation>Bib&amp;liothek</translation>
    </message>
    <message>
        <source>&amp;Logging</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>&amp;Neues Fenster</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Record Count</source>
        <translation>&amp;Anzahl der Datensätze</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Rename Library…</source>
        <translation>Bibliothek &amp;umbenennen …</translation>
    </message>
    <message>
        <source>&amp;Silenced Alerts…</source>
        <translation>Stu&amp;mme Hinweise …</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Cobble &amp;Help</source>
        <translation>&amp;Hilfe zu Cobble</translation>
    </message>
    <message>
        <source>Delete Rec&amp;ords</source>
        <translation>Da&amp;tensätze löschen</translation>
    </message>
    <message>
        <source>F&amp;ields…</source>
        <translation>Fel&amp;der …</translation>
    </message>
    <message>
        <source>Fi&amp;lter…</source>
        <translation>&amp;Filtern …</translation>
    </message>
    <message>
        <source>New &amp;Field…</source>
        <translation>Neues &amp;Feld …</translation>
    </message>
    <message>
        <source>New &amp;Library…</source>
        <translation>Neue Bib&amp;liothek …</translation>
    </message>
    <message>
        <source>Re&amp;move Library</source>
        <translation>Bibliothek &amp;entfernen</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Import…</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Datensatz</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>Datensätze</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>MainWindowController</name>
    <message>
        <source>%1 – Cobble</source>
        <translation>%1 – Cobble</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>„%1“ &amp;wiederholen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>„%1“ &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>A database for one person.</source>
        <translation>Eine Datenbank für eine Person.</translation>
    </message>
    <message>
        <source>All selected records get the same value.</source>
        <translation>Alle ausgewählten Datensätze bekommen denselben Wert.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Choose a library from the list.</source>
        <translation>Wählen Sie eine Bibliothek aus der Liste aus.</translation>
    </message>
    <message numerus="yes">
        <source>Deleted %1 record(s)</source>
        <translation>
            <numerusform>%1 Datensatz gelöscht</numerusform>
            <numerusform>%1 Datensätze gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s)</source>
        <translation>
            <numerusform>%1 Datensatz exportiert</numerusform>
            <numerusform>%1 Datensätze exportiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s) to %2</source>
        <translation>
            <numerusform>%1 Datensatz nach %2 exportiert</numerusform>
            <numerusform>%1 Datensätze nach %2 exportiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 record(s)</source>
        <translation>
            <numerusform>%1 Datensatz importiert</numerusform>
            <numerusform>%1 Datensätze importiert</numerusform>
        </translation>
    </message>
    <message>
        <source>Only one import or export at a time: please wait until it is done.</source>
        <translation>Es geht immer nur ein Import oder Export: Bitte warten Sie, bis er fertig ist.</translation>
    </message>
    <message>
        <source>Searching… %1</source>
        <translation>Suchen … %1</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message numerus="yes">
        <source>Set “%1” of %2 record(s)?</source>
        <translation>
            <numerusform>„%1“ von %2 Datensatz setzen?</numerusform>
            <numerusform>„%1“ von %2 Datensätzen setzen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Sorting… %1</source>
        <translation>Sortieren … %1</translation>
    </message>
    <message>
        <source>The filter no longer fits: %1</source>
        <translation>Der Filter passt nicht mehr: %1</translation>
    </message>
    <message>
        <source>The filter of “%1” no longer fits: %2</source>
        <translation>Der Filter von „%1“ passt nicht mehr: %2</translation>
    </message>
    <message>
        <source>There are no libraries yet.
File ▸ Import… makes one of a table or of address cards.</source>
        <translation>Es gibt noch keine Bibliotheken.
Datei ▸ Importieren … macht eine aus einer Tabelle oder aus Visitenkarten.</translation>
    </message>
    <message>
        <source>There are no records yet.</source>
        <translation>Es gibt noch keine Datensätze.</translation>
    </message>
    <message>
        <source>“%1” was not stored as “%2”</source>
        <translation>„%1“ wurde nicht als „%2“ gespeichert</translation>
    </message>
</context>
<context>
    <name>MediaField</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Mirror left and right</source>
        <translation>Links und rechts spiegeln</translation>
    </message>
    <message>
        <source>Mirror top and bottom</source>
        <translation>Oben und unten spiegeln</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>Keine Datei</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Size in percent</source>
        <translation>Größe in Prozent</translation>
    </message>
    <message>
        <source>Turn left</source>
        <translation>Nach links drehen</translation>
    </message>
    <message>
        <source>Turn right</source>
        <translation>Nach rechts drehen</translation>
    </message>
</context>
<context>
    <name>NameSheet</name>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>T&amp;yp:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>NothingFound</name>
    <message>
        <source>Show &amp;All</source>
        <translation>Alle &amp;zeigen</translation>
    </message>
</context>
<context>
    <name>OpenBundle</name>
    <message>
        <source>%1 is no folder</source>
        <translation>%1 ist kein Ordner</translation>
    </message>
    <message>
        <source>an import or export is on its way; please wait until it is done</source>
        <translation>Ein Import oder Export läuft noch; bitte warten Sie, bis er fertig ist</translation>
    </message>
    <message>
        <source>another program has changed the database, which is read again; please try once more</source>
        <translation>Ein anderes Programm hat die Datenbank geändert, die nun neu gelesen wird; bitte versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the file cannot be copied</source>
        <translation>die Datei kann nicht kopiert werden</translation>
    </message>
    <message>
        <source>there is no database</source>
        <translation>Es gibt keine Datenbank</translation>
    </message>
</context>
<context>
    <name>PastePlan</name>
    <message>
        <source>a text is no picture, and pictures of other databases are not here</source>
        <translation>ein Text ist kein Bild, und Bilder anderer Datenbanken sind nicht hier</translation>
    </message>
    <message>
        <source>there is no field for this column</source>
        <translation>für diese Spalte gibt es kein Feld</translation>
    </message>
    <message>
        <source>there is no record in this row</source>
        <translation>in dieser Zeile gibt es keinen Datensatz</translation>
    </message>
</context>
<context>
    <name>PasteProblems</name>
    <message numerus="yes">
        <source>%1 value(s) cannot be pasted. Nothing was stored yet.</source>
        <translation>
            <numerusform>%1 Wert kann nicht eingefügt werden. Noch wurde nichts gespeichert.</numerusform>
            <numerusform>%1 Werte können nicht eingefügt werden. Noch wurde nichts gespeichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Paste the Rest</source>
        <translation>Rest einfügen</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>These are the first %1.</source>
        <translation>Das sind die ersten %1.</translation>
    </message>
    <message>
        <source>Values that cannot be pasted</source>
        <translation>Werte, die nicht eingefügt werden können</translation>
    </message>
</context>
<context>
    <name>PendingInput</name>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Keep Editing</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>“%1” cannot be stored as “%2”.</source>
        <translation>„%1“ kann nicht als „%2“ gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>PictureInput</name>
    <message>
        <source>A field holds one file of this computer.</source>
        <translation>Ein Feld enthält eine Datei dieses Rechners.</translation>
    </message>
    <message>
        <source>Choose Picture</source>
        <translation>Bild auswählen</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>The picture cannot be stored.</source>
        <translation>Das Bild kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>There is no file and no picture to paste.</source>
        <translation>Es gibt keine Datei und kein Bild zum Einfügen.</translation>
    </message>
</context>
<context>
    <name>Reasons</name>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>%1 cannot be looked at</source>
        <translation>%1 kann nicht betrachtet werden</translation>
    </message>
    <message>
        <source>%1 is a link, or no file</source>
        <translation>%1 ist ein Verweis oder keine Datei</translation>
    </message>
    <message>
        <source>%1 of %2 values decide</source>
        <translation>%1 von %2 Werten entscheiden</translation>
    </message>
    <message>
        <source>%1: it was cancelled</source>
        <translation>%1: Es wurde abgebrochen</translation>
    </message>
    <message>
        <source>'%1' has a computed column</source>
        <translation>„%1“ hat eine berechnete Spalte</translation>
    </message>
    <message>
        <source>'%1' is in the way; please remove it</source>
        <translation>„%1“ ist im Weg; bitte entfernen Sie es</translation>
    </message>
    <message>
        <source>'%1' is no table</source>
        <translation>„%1“ ist keine Tabelle</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>a change of the database was interrupted, and it cannot be copied to take that back in the copy</source>
        <translation>Eine Änderung der Datenbank wurde unterbrochen, und sie kann nicht kopiert werden, um das in der Kopie zurückzunehmen</translation>
    </message>
    <message>
        <source>a download cannot be kept: %1</source>
        <translation>Was heruntergeladen wurde, kann nicht behalten werden: %1</translation>
    </message>
    <message>
        <source>a field has another type since, so that it cannot be redone</source>
        <translation>Ein Feld hat seitdem einen anderen Typ, daher kann es nicht wiederholt werden</translation>
    </message>
    <message>
        <source>a field has another type since, so that it cannot be undone</source>
        <translation>Ein Feld hat seitdem einen anderen Typ, daher kann es nicht rückgängig gemacht werden</translation>
    </message>
    <message>
        <source>a field has the column '%1', which is the records' number</source>
        <translation>Ein Feld hat die Spalte „%1“, die Nummer der Datensätze</translation>
    </message>
    <message>
        <source>a field has the column '%1', which the table has not</source>
        <translation>Ein Feld hat die Spalte „%1“, die es in der Tabelle nicht gibt</translation>
    </message>
    <message>
        <source>a field needs a name</source>
        <translation>ein Feld braucht einen Namen</translation>
    </message>
    <message>
        <source>a folder of the bundle is a link, which leads out of it</source>
        <translation>Ein Ordner des Bündels ist ein Verweis, der aus ihm hinausführt</translation>
    </message>
    <message>
        <source>a library needs a field</source>
        <translation>Eine Bibliothek braucht ein Feld</translation>
    </message>
    <message>
        <source>a library needs a name</source>
        <translation>Eine Bibliothek braucht einen Namen</translation>
    </message>
    <message>
        <source>another program is changing the bundle</source>
        <translation>Ein anderes Programm ändert gerade das Bündel</translation>
    </message>
    <message>
        <source>another program is changing the database; please try again</source>
        <translation>Ein anderes Programm ändert gerade die Datenbank; bitte versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>cannot be loaded: %1</source>
        <translation>Kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>day, month, year</source>
        <translation>Tag, Monat, Jahr</translation>
    </message>
    <message>
        <source>hours:minutes</source>
        <translation>Stunden:Minuten</translation>
    </message>
    <message>
        <source>is a folder, not a file</source>
        <translation>Das ist ein Ordner, keine Datei</translation>
    </message>
    <message>
        <source>is a pipe or a device, not a file</source>
        <translation>Das ist eine Pipe oder ein Gerät, keine Datei</translation>
    </message>
    <message>
        <source>it asked for a field that there is not: %1</source>
        <translation>Er fragte nach einem Feld, das es nicht gibt: %1</translation>
    </message>
    <message>
        <source>it asked for a field where there is no record</source>
        <translation>Er fragte nach einem Feld, wo kein Datensatz ist</translation>
    </message>
    <message>
        <source>it cannot be copied</source>
        <translation>Sie kann nicht kopiert werden</translation>
    </message>
    <message>
        <source>it cannot be downloaded</source>
        <translation>Sie kann nicht heruntergeladen werden</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>Das kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>it contradicts how the other values of its column are read</source>
        <translation>Das widerspricht der Lesart der anderen Werte der Spalte</translation>
    </message>
    <message>
        <source>it has more digits or parts than its field shows</source>
        <translation>der Wert hat mehr Stellen oder Teile, als sein Feld zeigt</translation>
    </message>
    <message>
        <source>it has moved to where plain http does not lead</source>
        <translation>Sie ist dorthin umgezogen, wohin einfaches HTTP nicht führt</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>Das ist ein Ordner</translation>
    </message>
    <message>
        <source>it is larger than %1 MB</source>
        <translation>Sie ist größer als %1 MB</translation>
    </message>
    <message>
        <source>it is no amount in this currency</source>
        <translation>Das ist kein Betrag in dieser Währung</translation>
    </message>
    <message>
        <source>it is no date or time</source>
        <translation>Das ist weder Datum noch Uhrzeit</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>Das ist keine Datei</translation>
    </message>
    <message>
        <source>it is no media file</source>
        <translation>das ist keine Mediendatei</translation>
    </message>
    <message>
        <source>it is no number</source>
        <translation>Das ist keine Zahl</translation>
    </message>
    <message>
        <source>it is not beside the file; only columns that are named as media may lead elsewhere</source>
        <translation>Sie liegt nicht neben der Datei; nur Spalten, die als Medien genannt sind, dürfen woandershin führen</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>Sie darf nicht gelesen werden</translation>
    </message>
    <message>
        <source>it names no file</source>
        <translation>Das nennt keine Datei</translation>
    </message>
    <message>
        <source>it threw something that is no std::exception</source>
        <translation>Es warf etwas, das keine std::exception ist</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>Es wurde abgebrochen</translation>
    </message>
    <message>
        <source>it was changed since, so that it cannot be redone</source>
        <translation>Es wurde seitdem geändert und kann nicht wiederholt werden</translation>
    </message>
    <message>
        <source>it was changed since, so that it cannot be undone</source>
        <translation>Es wurde seitdem geändert und kann nicht rückgängig gemacht werden</translation>
    </message>
    <message>
        <source>it was not downloaded</source>
        <translation>Sie wurde nicht heruntergeladen</translation>
    </message>
    <message>
        <source>it was undone already</source>
        <translation>Es wurde schon rückgängig gemacht</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>Ihr Name ist zu lang</translation>
    </message>
    <message>
        <source>its separators do not stand where groups end or the fraction begins</source>
        <translation>Die Trennzeichen stehen nicht dort, wo Gruppen enden oder die Nachkommastellen beginnen</translation>
    </message>
    <message>
        <source>its server does not answer</source>
        <translation>Der Server antwortet nicht</translation>
    </message>
    <message>
        <source>its server says %1</source>
        <translation>Der Server sagt %1</translation>
    </message>
    <message>
        <source>larger than 1 GB</source>
        <translation>Größer als 1 GB</translation>
    </message>
    <message>
        <source>line %1 has %2 columns, more than the %3 that a library can have</source>
        <translation>Zeile %1 hat %2 Spalten, mehr als die %3, die eine Bibliothek haben kann</translation>
    </message>
    <message>
        <source>line %1 is too long</source>
        <translation>Zeile %1 ist zu lang</translation>
    </message>
    <message>
        <source>meanwhile there are more values that cannot be read</source>
        <translation>inzwischen gibt es mehr Werte, die nicht gelesen werden können</translation>
    </message>
    <message>
        <source>minutes:seconds</source>
        <translation>Minuten:Sekunden</translation>
    </message>
    <message>
        <source>month, day, year</source>
        <translation>Monat, Tag, Jahr</translation>
    </message>
    <message>
        <source>no column is left</source>
        <translation>es bleibt keine Spalte übrig</translation>
    </message>
    <message>
        <source>no library '%1'</source>
        <translation>Es gibt keine Bibliothek „%1“</translation>
    </message>
    <message>
        <source>no such table: %1</source>
        <translation>Es gibt keine solche Tabelle: %1</translation>
    </message>
    <message>
        <source>no value decides; the locale's own</source>
        <translation>Kein Wert entscheidet; wie in der Region üblich</translation>
    </message>
    <message>
        <source>not a text file</source>
        <translation>Das ist keine Textdatei</translation>
    </message>
    <message>
        <source>not a text file in %1 (line %2)</source>
        <translation>Das ist keine Textdatei in %1 (Zeile %2)</translation>
    </message>
    <message>
        <source>passed over, since a program ended while its code ran: %1; 'cobble plugins enable' tries it again</source>
        <translation>Übergangen, da ein Programm endete, während sein Code lief: %1; „cobble plugins enable“ versucht es noch einmal</translation>
    </message>
    <message>
        <source>row %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>rows %1</source>
        <translation>Zeilen %1</translation>
    </message>
    <message>
        <source>the database</source>
        <translation>Die Datenbank</translation>
    </message>
    <message>
        <source>the database bundle cannot be made</source>
        <translation>Das Datenbankbündel kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>the database has a trigger, which Cobble does not use</source>
        <translation>Die Datenbank hat einen Trigger, den Cobble nicht verwendet</translation>
    </message>
    <message>
        <source>the database has a write-ahead log, which Cobble does not use</source>
        <translation>Die Datenbank hat ein Write-Ahead-Log, das Cobble nicht verwendet</translation>
    </message>
    <message>
        <source>the database was made by a newer version of Cobble</source>
        <translation>Die Datenbank stammt von einer neueren Version von Cobble</translation>
    </message>
    <message>
        <source>the exporter failed</source>
        <translation>Der Exporteur ist gescheitert</translation>
    </message>
    <message>
        <source>the exporter failed: %1</source>
        <translation>Der Exporteur ist gescheitert: %1</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>the file is marked as %1, not %2</source>
        <translation>Die Datei ist als %1 gekennzeichnet, nicht als %2</translation>
    </message>
    <message>
        <source>the file was changed while it was read</source>
        <translation>die Datei wurde beim Lesen geändert</translation>
    </message>
    <message>
        <source>the files of an import that was interrupted cannot be removed</source>
        <translation>Die Dateien eines unterbrochenen Imports können nicht entfernt werden</translation>
    </message>
    <message>
        <source>the history cannot be read</source>
        <translation>Der Verlauf kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the history no longer has it</source>
        <translation>Der Verlauf hat es nicht mehr</translation>
    </message>
    <message>
        <source>the importer failed</source>
        <translation>Der Importeur ist gescheitert</translation>
    </message>
    <message>
        <source>the importer failed: %1</source>
        <translation>Der Importeur ist gescheitert: %1</translation>
    </message>
    <message>
        <source>the journal of the database</source>
        <translation>Das Journal der Datenbank</translation>
    </message>
    <message>
        <source>the journal of the database cannot be read</source>
        <translation>Das Journal der Datenbank kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the journal of the database names another file</source>
        <translation>Das Journal der Datenbank nennt eine andere Datei</translation>
    </message>
    <message>
        <source>the library has no fields</source>
        <translation>Die Bibliothek hat keine Felder</translation>
    </message>
    <message>
        <source>the library is no longer there</source>
        <translation>Die Bibliothek ist nicht mehr da</translation>
    </message>
    <message>
        <source>the library was changed meanwhile</source>
        <translation>Die Bibliothek wurde inzwischen geändert</translation>
    </message>
    <message>
        <source>the library “%1” has the table “%2”, which Cobble needs for itself</source>
        <translation>die Bibliothek „%1“ hat die Tabelle „%2“, die Cobble selbst braucht</translation>
    </message>
    <message>
        <source>the record is no longer there</source>
        <translation>Der Datensatz ist nicht mehr da</translation>
    </message>
    <message>
        <source>the records of '%1' have no number</source>
        <translation>Die Datensätze von „%1“ haben keine Nummer</translation>
    </message>
    <message>
        <source>the step cannot be read</source>
        <translation>Der Schritt kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the values contradict each other; the locale's own</source>
        <translation>Die Werte widersprechen einander; wie in der Region üblich</translation>
    </message>
    <message>
        <source>the values name it</source>
        <translation>Die Werte nennen sie</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>Es gibt %1</translation>
    </message>
    <message>
        <source>there is a 'Database%1', which Cobble does not use</source>
        <translation>Es gibt ein „Database%1“, das Cobble nicht verwendet</translation>
    </message>
    <message>
        <source>there is a field of that name</source>
        <translation>es gibt schon ein Feld dieses Namens</translation>
    </message>
    <message>
        <source>there is a library of that name</source>
        <translation>Es gibt schon eine Bibliothek dieses Namens</translation>
    </message>
    <message>
        <source>there is another library of the name “%1”</source>
        <translation>Es gibt eine andere Bibliothek mit dem Namen „%1“</translation>
    </message>
    <message>
        <source>there is more than a number</source>
        <translation>Da steht mehr als eine Zahl</translation>
    </message>
    <message>
        <source>there is no column '%1'</source>
        <translation>Es gibt keine Spalte „%1“</translation>
    </message>
    <message>
        <source>there is no database</source>
        <translation>Es gibt keine Datenbank</translation>
    </message>
    <message>
        <source>there is no exporter for '%1'</source>
        <translation>Für „%1“ gibt es keinen Exporteur</translation>
    </message>
    <message>
        <source>there is no folder for the database bundle</source>
        <translation>Für das Datenbankbündel gibt es keinen Ordner</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>Diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>there is nothing but blank lines</source>
        <translation>Es gibt nichts als leere Zeilen</translation>
    </message>
    <message>
        <source>this is no order of the fields</source>
        <translation>Das ist keine Reihenfolge der Felder</translation>
    </message>
    <message>
        <source>told without effect: %1</source>
        <translation>Angegeben ohne Wirkung: %1</translation>
    </message>
    <message>
        <source>two fields have the column '%1'</source>
        <translation>Zwei Felder haben die Spalte „%1“</translation>
    </message>
    <message>
        <source>what the step has removed is no longer there</source>
        <translation>Was der Schritt entfernt hat, ist nicht mehr da</translation>
    </message>
    <message>
        <source>year, month, day</source>
        <translation>Jahr, Monat, Tag</translation>
    </message>
    <message>
        <source>you say so</source>
        <translation>So angegeben</translation>
    </message>
</context>
<context>
    <name>RecordCommands</name>
    <message numerus="yes">
        <source>Added %1 record(s)</source>
        <translation>
            <numerusform>%1 Datensatz hinzugefügt</numerusform>
            <numerusform>%1 Datensätze hinzugefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>Not all of these records can be read now. Nothing was pasted.</source>
        <translation>Nicht alle diese Datensätze lassen sich gerade lesen. Es wurde nichts eingefügt.</translation>
    </message>
    <message>
        <source>So many records cannot be copied at once.</source>
        <translation>So viele Datensätze können nicht auf einmal kopiert werden.</translation>
    </message>
</context>
<context>
    <name>RecordFinder</name>
    <message>
        <source>No record fits the filter.</source>
        <translation>Kein Datensatz passt zum Filter.</translation>
    </message>
    <message>
        <source>No record fits “%1” and the filter.</source>
        <translation>Kein Datensatz passt zu „%1“ und zum Filter.</translation>
    </message>
    <message>
        <source>No record fits “%1”.</source>
        <translation>Kein Datensatz passt zu „%1“.</translation>
    </message>
    <message>
        <source>The filter cannot be used: %1</source>
        <translation>Der Filter kann nicht angewendet werden: %1</translation>
    </message>
</context>
<context>
    <name>RecordTableModel</name>
    <message>
        <source>the record cannot be read now</source>
        <translation>der Datensatz lässt sich gerade nicht lesen</translation>
    </message>
</context>
<context>
    <name>SelectionSummary</name>
    <message numerus="yes">
        <source>%1 selected</source>
        <translation>
            <numerusform>%1 ausgewählt</numerusform>
            <numerusform>%1 ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>ShowLibraryAlert</name>
    <message>
        <source>It is in the list in any case.</source>
        <translation>In der Liste steht sie auf jeden Fall.</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Show the library “%1” now?</source>
        <translation>Die Bibliothek „%1“ jetzt zeigen?</translation>
    </message>
</context>
<context>
    <name>SilencedAlerts</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Show &amp;Again</source>
        <translation>&amp;Wieder zeigen</translation>
    </message>
    <message>
        <source>Silenced Alerts</source>
        <translation>Stumme Hinweise</translation>
    </message>
    <message>
        <source>Silenced alerts</source>
        <translation>Stumme Hinweise</translation>
    </message>
    <message>
        <source>These alerts are not shown any more. What they ask for is done at once.</source>
        <translation>Diese Hinweise werden nicht mehr gezeigt. Was sie fragen, geschieht sofort.</translation>
    </message>
</context>
<context>
    <name>SmartLibraryList</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Its records stay. This cannot be undone.</source>
        <translation>Ihre Datensätze bleiben. Das lässt sich nicht widerrufen.</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the smart library “%1”?</source>
        <translation>Die intelligente Bibliothek „%1“ entfernen?</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Entfernen …</translation>
    </message>
    <message>
        <source>Rename Smart Library</source>
        <translation>Intelligente Bibliothek umbenennen</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>Umbenennen …</translation>
    </message>
    <message>
        <source>Save as Smart Library</source>
        <translation>Als intelligente Bibliothek speichern</translation>
    </message>
    <message>
        <source>Some records of %1</source>
        <translation>Einige Datensätze von %1</translation>
    </message>
</context>
<context>
    <name>StepText</name>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Change Fields of “%1”</source>
        <translation>Felder von „%1“ ändern</translation>
    </message>
    <message>
        <source>Change Format of “%1”</source>
        <translation>Format von „%1“ ändern</translation>
    </message>
    <message>
        <source>Change Type of “%1”</source>
        <translation>Typ von „%1“ ändern</translation>
    </message>
    <message>
        <source>Change of “%1”</source>
        <translation>Änderung von „%1“</translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 Record(s)</source>
        <translation>
            <numerusform>%1 Datensatz löschen</numerusform>
            <numerusform>%1 Datensätze löschen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %1 Record(s)</source>
        <translation>
            <numerusform>%1 Datensatz duplizieren</numerusform>
            <numerusform>%1 Datensätze duplizieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Fill Down</source>
        <translation>Nach unten ausfüllen</translation>
    </message>
    <message>
        <source>Import of “%1”</source>
        <translation>Import von „%1“</translation>
    </message>
    <message>
        <source>Move Field “%1”</source>
        <translation>Feld „%1“ verschieben</translation>
    </message>
    <message numerus="yes">
        <source>New %1 Record(s)</source>
        <translation>
            <numerusform>%1 neuer Datensatz</numerusform>
            <numerusform>%1 neue Datensätze</numerusform>
        </translation>
    </message>
    <message>
        <source>New Field “%1”</source>
        <translation>Neues Feld „%1“</translation>
    </message>
    <message>
        <source>New Library “%1”</source>
        <translation>Neue Bibliothek „%1“</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Remove Field “%1”</source>
        <translation>Feld „%1“ entfernen</translation>
    </message>
    <message>
        <source>Remove Library “%1”</source>
        <translation>Bibliothek „%1“ entfernen</translation>
    </message>
    <message>
        <source>Rename Field “%1”</source>
        <translation>Feld „%1“ umbenennen</translation>
    </message>
    <message>
        <source>Rename Library “%1”</source>
        <translation>Bibliothek „%1“ umbenennen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
</context>
<context>
    <name>StepTexts</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>TransferSheet</name>
    <message>
        <source>Another window is importing or exporting. Please wait until it is done.</source>
        <translation>Ein anderes Fenster importiert oder exportiert gerade. Bitte warten Sie, bis es fertig ist.</translation>
    </message>
</context>
</TS>
