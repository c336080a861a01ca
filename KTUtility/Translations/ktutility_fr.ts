<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Durations</name>
    <message>
        <source>d</source>
        <translation>j</translation>
    </message>
    <message>
        <source>day</source>
        <translation>jour</translation>
    </message>
    <message>
        <source>days</source>
        <translation>jours</translation>
    </message>
    <message>
        <source>h</source>
        <translation>h</translation>
    </message>
    <message>
        <source>hour</source>
        <translation>heure</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>heures</translation>
    </message>
    <message>
        <source>m</source>
        <translation>min</translation>
    </message>
    <message>
        <source>minute</source>
        <translation>minute</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>second</source>
        <translation>seconde</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>secondes</translation>
    </message>
    <message>
        <source>w</source>
        <translation>sem</translation>
    </message>
    <message>
        <source>week</source>
        <translation>semaine</translation>
    </message>
    <message>
        <source>weeks</source>
        <translation>semaines</translation>
    </message>
</context>
<context>
    <name>KTArrayColumn</name>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>Cette valeur ne peut pas être enregistrée ici.</translation>
    </message>
</context>
<context>
    <name>KTBindingOptions</name>
    <message>
        <source>Multiple values</source>
        <translation>Valeurs multiples</translation>
    </message>
    <message>
        <source>Not applicable</source>
        <translation>Sans objet</translation>
    </message>
    <message>
        <source>Nothing is selected</source>
        <translation>Aucune sélection</translation>
    </message>
</context>
<context>
    <name>KTFormatterDelegate</name>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>Cette valeur ne peut pas être enregistrée ici.</translation>
    </message>
</context>
<context>
    <name>KTFormatterEdit</name>
    <message>
        <source>A value is needed here.</source>
        <translation>Une valeur est requise ici.</translation>
    </message>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>Cette valeur ne peut pas être enregistrée ici.</translation>
    </message>
</context>
<context>
    <name>KTLogger</name>
    <message>
        <source>0 (off)</source>
        <translation>0 (désactivé)</translation>
    </message>
    <message>
        <source>7 (most detail)</source>
        <translation>7 (le plus détaillé)</translation>
    </message>
    <message>
        <source>Clear all logging state</source>
        <translation>Réinitialiser tous les niveaux de journalisation</translation>
    </message>
    <message>
        <source>Display File and Line</source>
        <translation>Afficher le fichier et la ligne</translation>
    </message>
    <message>
        <source>Log To Console</source>
        <translation>Journaliser dans la console</translation>
    </message>
    <message>
        <source>Log To File</source>
        <translation>Journaliser dans un fichier</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source>A percentage does not belong into this field.</source>
        <translation>Ce champ n’accepte pas de pourcentage.</translation>
    </message>
    <message>
        <source>A word of the text means several units.</source>
        <translation>Un mot du texte désigne plusieurs unités.</translation>
    </message>
    <message>
        <source>Could not convert to a time</source>
        <translation>Ce n’est pas une durée</translation>
    </message>
    <message>
        <source>Formatting error: the text cannot be read as a date.</source>
        <translation>Erreur de format : le texte ne peut pas être lu comme une date.</translation>
    </message>
    <message>
        <source>Months and years have no fixed length.</source>
        <translation>Les mois et les années n’ont pas de durée fixe.</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>La division par zéro est impossible.</translation>
    </message>
    <message>
        <source>Only a part of one can stand behind a whole number.</source>
        <translation>Un nombre entier ne peut être suivi que d’une fraction inférieure à un.</translation>
    </message>
    <message>
        <source>The date is on another day of the week.</source>
        <translation>La date tombe un autre jour de la semaine.</translation>
    </message>
    <message>
        <source>The date is on another weekday.</source>
        <translation>La date tombe un autre jour de la semaine.</translation>
    </message>
    <message>
        <source>The duration is too long.</source>
        <translation>La durée est trop longue.</translation>
    </message>
    <message>
        <source>The month has no such day.</source>
        <translation>Ce jour n’existe pas dans ce mois.</translation>
    </message>
    <message>
        <source>The number has more digits than can be kept.</source>
        <translation>Le nombre a plus de chiffres qu’il n’est possible d’en conserver.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>Le nombre est trop grand.</translation>
    </message>
    <message>
        <source>The place has another time than the offset says.</source>
        <translation>L’heure de ce lieu ne correspond pas au décalage horaire indiqué.</translation>
    </message>
    <message>
        <source>The separators do not stand where groups of digits end or the fraction begins.</source>
        <translation>Les séparateurs ne se trouvent ni à la fin d’un groupe de chiffres ni au début des décimales.</translation>
    </message>
    <message>
        <source>The separators may stand before the fraction or between groups.</source>
        <translation>Le séparateur peut précéder les décimales ou séparer les groupes de chiffres.</translation>
    </message>
    <message>
        <source>The stroke may stand before a fraction or in the middle of one.</source>
        <translation>Le trait peut précéder une fraction ou se trouver au milieu de celle-ci.</translation>
    </message>
    <message>
        <source>The text cannot be read as a date.</source>
        <translation>Le texte ne peut pas être lu comme une date.</translation>
    </message>
    <message>
        <source>The text cannot be read.</source>
        <translation>Le texte ne peut pas être interprété.</translation>
    </message>
    <message>
        <source>The text contradicts what the other texts of its column are read by.</source>
        <translation>Le texte contredit la convention selon laquelle les autres textes de la colonne sont lus.</translation>
    </message>
    <message>
        <source>The text is in no form of dates and times that is known.</source>
        <translation>Le texte n’est dans aucun format de date ou d’heure connu.</translation>
    </message>
    <message>
        <source>The text is no amount in %1, or has something else in it.</source>
        <translation>Le texte n’est pas un montant en %1 ou contient autre chose.</translation>
    </message>
    <message>
        <source>The text is no number, or has something else in it.</source>
        <translation>Le texte n’est pas un nombre ou contient autre chose.</translation>
    </message>
    <message>
        <source>The text is not a number.</source>
        <translation>Le texte n’est pas un nombre.</translation>
    </message>
    <message>
        <source>The text names the currency %1; this field has %2.</source>
        <translation>Le texte indique la devise %1 ; ce champ est en %2.</translation>
    </message>
    <message>
        <source>The text says neither a day nor a time.</source>
        <translation>Le texte n’indique ni jour ni heure.</translation>
    </message>
    <message>
        <source>The text says no time of day.</source>
        <translation>Le texte n’indique pas d’heure.</translation>
    </message>
    <message>
        <source>The time of day is missing.</source>
        <translation>L’heure est absente.</translation>
    </message>
    <message>
        <source>The units do not stand from the largest to the smallest.</source>
        <translation>Les unités ne vont pas de la plus grande à la plus petite.</translation>
    </message>
    <message>
        <source>The week has no such day.</source>
        <translation>Ce jour n’existe pas dans la semaine.</translation>
    </message>
    <message>
        <source>The word means several days.</source>
        <translation>Ce mot peut désigner plusieurs jours.</translation>
    </message>
    <message>
        <source>The year has no such day.</source>
        <translation>Ce jour n’existe pas dans cette année.</translation>
    </message>
    <message>
        <source>The year has no such week.</source>
        <translation>Cette semaine n’existe pas dans cette année.</translation>
    </message>
    <message>
        <source>There are several zones of this name.</source>
        <translation>Plusieurs fuseaux horaires portent ce nom.</translation>
    </message>
    <message>
        <source>There are two dates.</source>
        <translation>Il y a deux dates.</translation>
    </message>
    <message>
        <source>There are two times.</source>
        <translation>Il y a deux heures.</translation>
    </message>
    <message>
        <source>There is no leap second then.</source>
        <translation>Il n’y a pas de seconde intercalaire à ce moment.</translation>
    </message>
    <message>
        <source>There is no such date.</source>
        <translation>Cette date n’existe pas.</translation>
    </message>
    <message>
        <source>There is no such month.</source>
        <translation>Ce mois n’existe pas.</translation>
    </message>
    <message>
        <source>There is no such time in this zone.</source>
        <translation>Cette heure n’existe pas dans ce fuseau horaire.</translation>
    </message>
    <message>
        <source>There is no such time of day.</source>
        <translation>Cette heure n’existe pas.</translation>
    </message>
    <message>
        <source>There is no such time.</source>
        <translation>Cette heure n’existe pas.</translation>
    </message>
    <message>
        <source>There is no summer time in this zone then.</source>
        <translation>L’heure d’été ne s’applique pas alors dans ce fuseau horaire.</translation>
    </message>
    <message>
        <source>There is no year 0.</source>
        <translation>L’année 0 n’existe pas.</translation>
    </message>
    <message>
        <source>Which day is meant cannot be told from the weekday alone.</source>
        <translation>Le jour de la semaine seul ne dit pas quelle date est visée.</translation>
    </message>
    <message>
        <source>Which night is meant cannot be told.</source>
        <translation>Impossible de savoir de quelle nuit il s’agit.</translation>
    </message>
    <message>
        <source>iSight Picture</source>
        <translation>Photo iSight</translation>
    </message>
</context>
<context>
    <name>NSAlert</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Ne plus afficher ce message</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>
