<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Durations</name>
    <message>
        <source>d</source>
        <translation>T</translation>
    </message>
    <message>
        <source>day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>h</source>
        <translation>Std</translation>
    </message>
    <message>
        <source>hour</source>
        <translation>Stunde</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>m</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>minute</source>
        <translation>Minute</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>s</source>
        <translation>Sek</translation>
    </message>
    <message>
        <source>second</source>
        <translation>Sekunde</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>w</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>weeks</source>
        <translation>Wochen</translation>
    </message>
</context>
<context>
    <name>KTArrayColumn</name>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>Dieser Wert kann hier nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>KTBindingOptions</name>
    <message>
        <source>Multiple values</source>
        <translation>Mehrere Werte</translation>
    </message>
    <message>
        <source>Not applicable</source>
        <translation>Nicht zutreffend</translation>
    </message>
    <message>
        <source>Nothing is selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
</context>
<context>
    <name>KTFormatterDelegate</name>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>Dieser Wert kann hier nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>KTFormatterEdit</name>
    <message>
        <source>A value is needed here.</source>
        <translation>Hier muss ein Wert stehen.</translation>
    </message>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>Dieser Wert kann hier nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>KTLogger</name>
    <message>
        <source>0 (off)</source>
        <translation>0 (aus)</translation>
    </message>
    <message>
        <source>7 (most detail)</source>
        <translation>7 (ausführlichste Stufe)</translation>
    </message>
    <message>
        <source>Clear all logging state</source>
        <translation>Alle Protokollstufen zurücksetzen</translation>
    </message>
    <message>
        <source>Display File and Line</source>
        <translation>Datei und Zeile anzeigen</translation>
    </message>
    <message>
        <source>Log To Console</source>
        <translation>Auf der Konsole protokollieren</translation>
    </message>
    <message>
        <source>Log To File</source>
        <translation>In eine Datei protokollieren</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source>A percentage does not belong into this field.</source>
        <translation>In dieses Feld gehört kein Prozentwert.</translation>
    </message>
    <message>
        <source>A word of the text means several units.</source>
        <translation>Ein Wort des Textes steht für mehrere Einheiten.</translation>
    </message>
    <message>
        <source>Could not convert to a time</source>
        <translation>Das ist keine Zeitdauer</translation>
    </message>
    <message>
        <source>Formatting error: the text cannot be read as a date.</source>
        <translation>Formatfehler: Der Text kann nicht als Datum gelesen werden.</translation>
    </message>
    <message>
        <source>Months and years have no fixed length.</source>
        <translation>Monate und Jahre haben keine feste Länge.</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>Durch null kann nicht geteilt werden.</translation>
    </message>
    <message>
        <source>Only a part of one can stand behind a whole number.</source>
        <translation>Hinter einer ganzen Zahl darf nur ein echter Bruch stehen.</translation>
    </message>
    <message>
        <source>The date is on another day of the week.</source>
        <translation>Das Datum fällt auf einen anderen Wochentag.</translation>
    </message>
    <message>
        <source>The date is on another weekday.</source>
        <translation>Das Datum fällt auf einen anderen Wochentag.</translation>
    </message>
    <message>
        <source>The duration is too long.</source>
        <translation>Die Zeitdauer ist zu lang.</translation>
    </message>
    <message>
        <source>The month has no such day.</source>
        <translation>Diesen Tag gibt es in dem Monat nicht.</translation>
    </message>
    <message>
        <source>The number has more digits than can be kept.</source>
        <translation>Die Zahl hat mehr Stellen, als gespeichert werden können.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>Die Zahl ist zu groß.</translation>
    </message>
    <message>
        <source>The place has another time than the offset says.</source>
        <translation>An diesem Ort gilt eine andere Zeit, als die Zeitverschiebung angibt.</translation>
    </message>
    <message>
        <source>The separators do not stand where groups of digits end or the fraction begins.</source>
        <translation>Die Trennzeichen stehen nicht dort, wo Zifferngruppen enden oder Nachkommastellen beginnen.</translation>
    </message>
    <message>
        <source>The separators may stand before the fraction or between groups.</source>
        <translation>Das Trennzeichen kann vor Nachkommastellen oder zwischen Zifferngruppen stehen.</translation>
    </message>
    <message>
        <source>The stroke may stand before a fraction or in the middle of one.</source>
        <translation>Der Strich kann vor einem Bruch oder mitten darin stehen.</translation>
    </message>
    <message>
        <source>The text cannot be read as a date.</source>
        <translation>Der Text kann nicht als Datum gelesen werden.</translation>
    </message>
    <message>
        <source>The text cannot be read.</source>
        <translation>Der Text kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The text contradicts what the other texts of its column are read by.</source>
        <translation>Der Text widerspricht der Schreibweise, in der die übrigen Texte der Spalte gelesen werden.</translation>
    </message>
    <message>
        <source>The text is in no form of dates and times that is known.</source>
        <translation>Der Text hat keine bekannte Form von Datum oder Uhrzeit.</translation>
    </message>
    <message>
        <source>The text is no amount in %1, or has something else in it.</source>
        <translation>Der Text ist kein Betrag in %1 oder enthält noch etwas anderes.</translation>
    </message>
    <message>
        <source>The text is no number, or has something else in it.</source>
        <translation>Der Text ist keine Zahl oder enthält noch etwas anderes.</translation>
    </message>
    <message>
        <source>The text is not a number.</source>
        <translation>Der Text ist keine Zahl.</translation>
    </message>
    <message>
        <source>The text names the currency %1; this field has %2.</source>
        <translation>Der Text nennt die Währung %1; dieses Feld hat %2.</translation>
    </message>
    <message>
        <source>The text says neither a day nor a time.</source>
        <translation>Der Text nennt weder einen Tag noch eine Uhrzeit.</translation>
    </message>
    <message>
        <source>The text says no time of day.</source>
        <translation>Der Text nennt keine Uhrzeit.</translation>
    </message>
    <message>
        <source>The time of day is missing.</source>
        <translation>Die Uhrzeit fehlt.</translation>
    </message>
    <message>
        <source>The units do not stand from the largest to the smallest.</source>
        <translation>Die Einheiten stehen nicht der Größe nach, von der größten zur kleinsten.</translation>
    </message>
    <message>
        <source>The week has no such day.</source>
        <translation>Diesen Tag gibt es in der Woche nicht.</translation>
    </message>
    <message>
        <source>The word means several days.</source>
        <translation>Das Wort kann mehrere Tage bezeichnen.</translation>
    </message>
    <message>
        <source>The year has no such day.</source>
        <translation>Diesen Tag gibt es in dem Jahr nicht.</translation>
    </message>
    <message>
        <source>The year has no such week.</source>
        <translation>Diese Woche gibt es in dem Jahr nicht.</translation>
    </message>
    <message>
        <source>There are several zones of this name.</source>
        <translation>Es gibt mehrere Zeitzonen dieses Namens.</translation>
    </message>
    <message>
        <source>There are two dates.</source>
        <translation>Es sind zwei Datumsangaben.</translation>
    </message>
    <message>
        <source>There are two times.</source>
        <translation>Es sind zwei Uhrzeiten.</translation>
    </message>
    <message>
        <source>There is no leap second then.</source>
        <translation>Zu diesem Zeitpunkt gibt es keine Schaltsekunde.</translation>
    </message>
    <message>
        <source>There is no such date.</source>
        <translation>Dieses Datum gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no such month.</source>
        <translation>Diesen Monat gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no such time in this zone.</source>
        <translation>Diese Uhrzeit gibt es in der Zeitzone nicht.</translation>
    </message>
    <message>
        <source>There is no such time of day.</source>
        <translation>Diese Uhrzeit gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no such time.</source>
        <translation>Diese Uhrzeit gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no summer time in this zone then.</source>
        <translation>In dieser Zeitzone gilt dann keine Sommerzeit.</translation>
    </message>
    <message>
        <source>There is no year 0.</source>
        <translation>Ein Jahr 0 gibt es nicht.</translation>
    </message>
    <message>
        <source>Which day is meant cannot be told from the weekday alone.</source>
        <translation>Der Wochentag allein sagt nicht, welcher Tag gemeint ist.</translation>
    </message>
    <message>
        <source>Which night is meant cannot be told.</source>
        <translation>Welche Nacht gemeint ist, lässt sich nicht sagen.</translation>
    </message>
    <message>
        <source>iSight Picture</source>
        <translation>iSight-Bild</translation>
    </message>
</context>
<context>
    <name>NSAlert</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>
