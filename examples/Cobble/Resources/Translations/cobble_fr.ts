<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ColumnEditor</name>
    <message>
        <source>(without a name)</source>
        <translation>(sans nom)</translation>
    </message>
    <message>
        <source>1:30 is hours and minutes</source>
        <translation>1:30 : heures et minutes</translation>
    </message>
    <message>
        <source>1:30 is minutes and seconds</source>
        <translation>1:30 : minutes et secondes</translation>
    </message>
    <message>
        <source>As found</source>
        <translation>Comme détecté</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>Automatique (%1)</translation>
    </message>
    <message>
        <source>Day, month, year</source>
        <translation>Jour, mois, année</translation>
    </message>
    <message>
        <source>Month, day, year</source>
        <translation>Mois, jour, année</translation>
    </message>
    <message>
        <source>Year, month, day</source>
        <translation>Année, mois, jour</translation>
    </message>
</context>
<context>
    <name>CopiedRecords</name>
    <message>
        <source>these are no copied records</source>
        <translation>ce ne sont pas des enregistrements copiés</translation>
    </message>
</context>
<context>
    <name>Counts</name>
    <message numerus="yes">
        <source>%1 of %2 record(s)</source>
        <translation>
            <numerusform>%1 enregistrement sur %2</numerusform>
            <numerusform>%1 enregistrements sur %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 record(s)</source>
        <translation>
            <numerusform>%1 enregistrement</numerusform>
            <numerusform>%1 enregistrements</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DetailPane</name>
    <message numerus="yes">
        <source>%1 record(s) selected</source>
        <translation>
            <numerusform>%1 enregistrement sélectionné</numerusform>
            <numerusform>%1 enregistrements sélectionnés</numerusform>
        </translation>
    </message>
    <message>
        <source>Multiple values</source>
        <translation>Plusieurs valeurs</translation>
    </message>
    <message>
        <source>so many records do not get a file at once</source>
        <translation>tant d’enregistrements ne reçoivent pas un fichier à la fois</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Dupliquer</translation>
    </message>
    <message>
        <source>&amp;New Record</source>
        <translation>&amp;Nouvel enregistrement</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>Copy C&amp;ell</source>
        <translation>Copier la ce&amp;llule</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>Fill Do&amp;wn</source>
        <translation>&amp;Recopier vers le bas</translation>
    </message>
    <message>
        <source>Paste &amp;Into Cells</source>
        <translation>Coller dans les cellule&amp;s</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Tout sél&amp;ectionner</translation>
    </message>
</context>
<context>
    <name>ExportSheet</name>
    <message>
        <source>&amp;Choose…</source>
        <translation>&amp;Choisir…</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Fichier :</translation>
    </message>
    <message>
        <source>&amp;Records:</source>
        <translation>&amp;Enregistrements :</translation>
    </message>
    <message>
        <source>All of the library</source>
        <translation>Tous ceux de la bibliothèque</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancelled. The file was not written.</source>
        <translation>Annulé. Le fichier n’a pas été écrit.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Please choose a file.</source>
        <translation>Veuillez choisir un fichier.</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>There is a file of that name. Export once more to replace it.</source>
        <translation>Un fichier de ce nom existe déjà. Exportez encore une fois pour le remplacer.</translation>
    </message>
    <message>
        <source>There is no database.</source>
        <translation>Il n’y a pas de base de données.</translation>
    </message>
    <message>
        <source>Those selected (%1)</source>
        <translation>Ceux qui sont sélectionnés (%1)</translation>
    </message>
    <message>
        <source>Those shown (%1)</source>
        <translation>Ceux qui sont affichés (%1)</translation>
    </message>
</context>
<context>
    <name>FieldChanges</name>
    <message>
        <source>Record %1: “%2”</source>
        <translation>Enregistrement %1 : « %2 »</translation>
    </message>
    <message>
        <source>The fields get another order.</source>
        <translation>Les champs changent d’ordre.</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>et %1 autre</numerusform>
            <numerusform>et %1 autres</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” gets the name “%2”.</source>
        <translation>« %1 » prend le nom « %2 ».</translation>
    </message>
    <message>
        <source>“%1” gets the type %2.</source>
        <translation>« %1 » prend le type %2.</translation>
    </message>
    <message numerus="yes">
        <source>“%1” gets the type %2. %3 value(s) cannot be read and will be emptied.</source>
        <translation>
            <numerusform>« %1 » prend le type %2. %3 valeur ne peut pas être lue et sera vidée.</numerusform>
            <numerusform>« %1 » prend le type %2. %3 valeurs ne peuvent pas être lues et seront vidées.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” gets the type %2. All values can be read.</source>
        <translation>« %1 » prend le type %2. Toutes les valeurs peuvent être lues.</translation>
    </message>
    <message>
        <source>“%1” is new.</source>
        <translation>« %1 » est nouveau.</translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation>« %1 » est supprimé.</translation>
    </message>
    <message numerus="yes">
        <source>“%1” is removed. %2 record(s) have a value there.</source>
        <translation>
            <numerusform>« %1 » est supprimé. %2 enregistrement y a une valeur.</numerusform>
            <numerusform>« %1 » est supprimé. %2 enregistrements y ont une valeur.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is removed. No record has a value there.</source>
        <translation>« %1 » est supprimé. Aucun enregistrement n’y a de valeur.</translation>
    </message>
    <message>
        <source>“%1” is shown in another way.</source>
        <translation>« %1 » est affiché autrement.</translation>
    </message>
</context>
<context>
    <name>FieldListModel</name>
    <message>
        <source>Example</source>
        <translation>Exemple</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>New Field</source>
        <translation>Nouveau champ</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
</context>
<context>
    <name>FieldNameDelegate</name>
    <message>
        <source>Name of the field</source>
        <translation>Nom du champ</translation>
    </message>
</context>
<context>
    <name>FieldOptionsEditor</name>
    <message>
        <source>Abbreviated units</source>
        <translation>Unités abrégées</translation>
    </message>
    <message>
        <source>Currency:</source>
        <translation>Devise :</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Date :</translation>
    </message>
    <message>
        <source>Decimal places:</source>
        <translation>Décimales :</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Complet</translation>
    </message>
    <message>
        <source>Highlighted negative values</source>
        <translation>Valeurs négatives mises en évidence</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>Long</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Moyen</translation>
    </message>
    <message>
        <source>Negative values in parentheses</source>
        <translation>Valeurs négatives entre parenthèses</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Court</translation>
    </message>
    <message>
        <source>Thousands separators</source>
        <translation>Séparateurs de milliers</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Heure :</translation>
    </message>
    <message>
        <source>With the year</source>
        <translation>Avec l’année</translation>
    </message>
</context>
<context>
    <name>FieldSheet</name>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Ajouter</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Type :</translation>
    </message>
    <message>
        <source>C&amp;hange Fields</source>
        <translation>Modifier les &amp;champs</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Champs</translation>
    </message>
    <message>
        <source>Fields of “%1”</source>
        <translation>Champs de « %1 »</translation>
    </message>
    <message>
        <source>Looking at the values…</source>
        <translation>Examen des valeurs…</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>&amp;Descendre</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>&amp;Monter</translation>
    </message>
    <message>
        <source>Nothing is changed yet.</source>
        <translation>Rien n’est encore modifié.</translation>
    </message>
    <message>
        <source>Nothing is stored yet. These will be the changes:</source>
        <translation>Rien n’est encore enregistré. Voici ce qui changera :</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>&amp;Renommer</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>What changes</source>
        <translation>Ce qui change</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Pourquoi</translation>
    </message>
</context>
<context>
    <name>FieldSummary</name>
    <message>
        <source>From %1 to %2</source>
        <translation>De %1 à %2</translation>
    </message>
    <message>
        <source>Sum %1 · Average %2 · Least %3 · Most %4</source>
        <translation>Somme %1 · Moyenne %2 · Minimum %3 · Maximum %4</translation>
    </message>
    <message>
        <source>too large</source>
        <translation>trop grand</translation>
    </message>
</context>
<context>
    <name>FieldTitle</name>
    <message>
        <source>%1:</source>
        <translation>%1 :</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
</context>
<context>
    <name>FieldTypeTitles</name>
    <message>
        <source>Currency</source>
        <translation>Devise</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Date et heure</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>Numéro de téléphone</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
</context>
<context>
    <name>FileDrop</name>
    <message>
        <source>Let go to import the file.</source>
        <translation>Relâchez pour importer le fichier.</translation>
    </message>
    <message>
        <source>Only files of this computer can be dropped here.</source>
        <translation>Seuls des fichiers de cet ordinateur peuvent être déposés ici.</translation>
    </message>
    <message>
        <source>Please drop one file at a time.</source>
        <translation>Veuillez déposer un seul fichier à la fois.</translation>
    </message>
    <message>
        <source>“%1” is no file that can be imported: these are csv, tsv, txt and vcf.</source>
        <translation>« %1 » n’est pas un fichier qui peut être importé : les types possibles sont csv, tsv, txt et vcf.</translation>
    </message>
    <message>
        <source>“%1” is no file.</source>
        <translation>« %1 » n’est pas un fichier.</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>&amp;Remove Filter</source>
        <translation>&amp;Supprimer le filtre</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>En&amp;registrer…</translation>
    </message>
    <message>
        <source>All conditions are met</source>
        <translation>Toutes les conditions sont remplies</translation>
    </message>
    <message>
        <source>Any condition is met</source>
        <translation>Au moins une condition est remplie</translation>
    </message>
    <message>
        <source>As &amp;text:</source>
        <translation>Sous forme de &amp;texte :</translation>
    </message>
    <message>
        <source>Filter as Text</source>
        <translation>Filtre sous forme de texte</translation>
    </message>
    <message>
        <source>How Conditions Are Joined</source>
        <translation>Liaison des conditions</translation>
    </message>
    <message>
        <source>Keeps the filter in the list of libraries</source>
        <translation>Conserve le filtre dans la liste des bibliothèques</translation>
    </message>
    <message>
        <source>This filter can only be changed as text.</source>
        <translation>Ce filtre ne peut être modifié que sous forme de texte.</translation>
    </message>
</context>
<context>
    <name>FilterRow</name>
    <message>
        <source>Add Condition</source>
        <translation>Ajouter une condition</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Comparaison</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Champ</translation>
    </message>
    <message>
        <source>Last Value</source>
        <translation>Dernière valeur</translation>
    </message>
    <message>
        <source>Remove Condition</source>
        <translation>Supprimer la condition</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>and</source>
        <translation>et</translation>
    </message>
</context>
<context>
    <name>FilterTexts</name>
    <message>
        <source>%1 (behind “%2”)</source>
        <translation>%1 (après « %2 »)</translation>
    </message>
    <message>
        <source>AND or OR is missing here</source>
        <translation>il manque AND ou OR ici</translation>
    </message>
    <message>
        <source>BETWEEN needs two values with AND between them</source>
        <translation>BETWEEN demande deux valeurs séparées par AND</translation>
    </message>
    <message>
        <source>a comparison such as = or CONTAINS is missing behind the field</source>
        <translation>il manque une comparaison comme = ou CONTAINS après le champ</translation>
    </message>
    <message>
        <source>a field is missing here</source>
        <translation>il manque un champ ici</translation>
    </message>
    <message>
        <source>a name is missing</source>
        <translation>il manque un nom</translation>
    </message>
    <message>
        <source>a value is missing here</source>
        <translation>il manque une valeur ici</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>Cela ne peut pas être lu</translation>
    </message>
    <message>
        <source>it is no month, no year and no month of a year</source>
        <translation>ce n’est ni un mois, ni une année, ni un mois d’une année</translation>
    </message>
    <message>
        <source>it is no regular expression: %1</source>
        <translation>ce n’est pas une expression régulière : %1</translation>
    </message>
    <message>
        <source>it takes too long to find out what matches “%1”</source>
        <translation>il faut trop de temps pour savoir ce qui correspond à « %1 »</translation>
    </message>
    <message>
        <source>only [c], [d], [cd] and [] can stand here</source>
        <translation>seuls [c], [d], [cd] et [] peuvent figurer ici</translation>
    </message>
    <message>
        <source>several fields are called “%1”</source>
        <translation>plusieurs champs s’appellent « %1 »</translation>
    </message>
    <message>
        <source>the filter cannot be kept: %1</source>
        <translation>le filtre ne peut pas être conservé : %1</translation>
    </message>
    <message>
        <source>the filter is too long</source>
        <translation>le filtre est trop long</translation>
    </message>
    <message>
        <source>the list is not closed</source>
        <translation>la liste n’est pas fermée</translation>
    </message>
    <message>
        <source>the parenthesis is not closed</source>
        <translation>la parenthèse n’est pas fermée</translation>
    </message>
    <message>
        <source>the quotation mark is not closed</source>
        <translation>le guillemet n’est pas fermé</translation>
    </message>
    <message>
        <source>there are too many parentheses</source>
        <translation>il y a trop de parenthèses</translation>
    </message>
    <message>
        <source>there is a library “%1” already</source>
        <translation>il y a déjà une bibliothèque « %1 »</translation>
    </message>
    <message>
        <source>there is no field “%1”</source>
        <translation>il n’y a pas de champ « %1 »</translation>
    </message>
    <message>
        <source>there is no library “%1”</source>
        <translation>il n’y a pas de bibliothèque « %1 »</translation>
    </message>
    <message>
        <source>“%1” is there twice</source>
        <translation>« %1 » figure deux fois</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>« %1 » : %2</translation>
    </message>
</context>
<context>
    <name>FilterWords</name>
    <message>
        <source>begins with</source>
        <translation>commence par</translation>
    </message>
    <message>
        <source>contains</source>
        <translation>contient</translation>
    </message>
    <message>
        <source>does not contain</source>
        <translation>ne contient pas</translation>
    </message>
    <message>
        <source>ends with</source>
        <translation>finit par</translation>
    </message>
    <message>
        <source>is</source>
        <translation>est</translation>
    </message>
    <message>
        <source>is after</source>
        <translation>est après</translation>
    </message>
    <message>
        <source>is at least</source>
        <translation>est au moins</translation>
    </message>
    <message>
        <source>is at most</source>
        <translation>est au plus</translation>
    </message>
    <message>
        <source>is before</source>
        <translation>est avant</translation>
    </message>
    <message>
        <source>is between</source>
        <translation>est entre</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>est vide</translation>
    </message>
    <message>
        <source>is from</source>
        <translation>est au plus tôt</translation>
    </message>
    <message>
        <source>is in the month or year</source>
        <translation>est dans le mois ou l’année</translation>
    </message>
    <message>
        <source>is less than</source>
        <translation>est inférieur à</translation>
    </message>
    <message>
        <source>is more than</source>
        <translation>est supérieur à</translation>
    </message>
    <message>
        <source>is not</source>
        <translation>n’est pas</translation>
    </message>
    <message>
        <source>is not empty</source>
        <translation>n’est pas vide</translation>
    </message>
    <message>
        <source>is not in the month or year</source>
        <translation>n’est pas dans le mois ou l’année</translation>
    </message>
    <message>
        <source>is one of</source>
        <translation>est l’un de</translation>
    </message>
    <message>
        <source>is until</source>
        <translation>est au plus tard</translation>
    </message>
    <message>
        <source>looks like (? and *)</source>
        <translation>ressemble à (? et *)</translation>
    </message>
    <message>
        <source>matches the expression</source>
        <translation>correspond à l’expression</translation>
    </message>
    <message>
        <source>stands before</source>
        <translation>se place avant</translation>
    </message>
    <message>
        <source>stands behind</source>
        <translation>se place après</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Cobble Help</source>
        <translation>Aide de Cobble</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
</context>
<context>
    <name>ImportSheet</name>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>&amp;Choisir…</translation>
    </message>
    <message>
        <source>&amp;Encoding:</source>
        <translation>&amp;Encodage :</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Fichier :</translation>
    </message>
    <message>
        <source>&amp;Library:</source>
        <translation>&amp;Bibliothèque :</translation>
    </message>
    <message>
        <source>&amp;Media:</source>
        <translation>&amp;Médias :</translation>
    </message>
    <message>
        <source>&amp;Replace the library of that name</source>
        <translation>&amp;Remplacer la bibliothèque de ce nom</translation>
    </message>
    <message>
        <source>&amp;Separator:</source>
        <translation>&amp;Séparateur :</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Type :</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>All values can be read.</source>
        <translation>Toutes les valeurs sont lisibles.</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>Bar |</source>
        <translation>Barre |</translation>
    </message>
    <message>
        <source>C&amp;olumn:</source>
        <translation>C&amp;olonne :</translation>
    </message>
    <message>
        <source>C&amp;urrency:</source>
        <translation>De&amp;vise :</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was stored.</source>
        <translation>Annulé. Rien n’a été enregistré.</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Colonne</translation>
    </message>
    <message>
        <source>Columns that name files elsewhere</source>
        <translation>Colonnes qui désignent des fichiers situés ailleurs</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Virgule</translation>
    </message>
    <message>
        <source>F&amp;irst row holds the headers</source>
        <translation>T&amp;itres dans la première ligne</translation>
    </message>
    <message>
        <source>Files beside the imported one are copied anyway. Columns that are named here may bring any file of yours along, and download others.</source>
        <translation>Les fichiers placés à côté du fichier importé sont copiés de toute façon. Les colonnes indiquées ici peuvent apporter n’importe lequel de vos fichiers et en télécharger d’autres.</translation>
    </message>
    <message>
        <source>First rows as they would be stored</source>
        <translation>Premières lignes telles qu’elles seraient enregistrées</translation>
    </message>
    <message>
        <source>Header in the library</source>
        <translation>Titre dans la bibliothèque</translation>
    </message>
    <message>
        <source>Im&amp;port as</source>
        <translation>Im&amp;porter sous</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>Name of the file</source>
        <translation>Nom du fichier</translation>
    </message>
    <message>
        <source>Nothing was stored: %1</source>
        <translation>Rien n’a été enregistré : %1</translation>
    </message>
    <message>
        <source>Please choose a file.</source>
        <translation>Veuillez choisir un fichier.</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Rea&amp;d:</source>
        <translation>&amp;Lu :</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Lecture…</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Ligne</translation>
    </message>
    <message>
        <source>Rows: %1</source>
        <translation>Lignes : %1</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Point-virgule</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>T&amp;yped in:</source>
        <translation>S&amp;aisi en :</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulation</translation>
    </message>
    <message>
        <source>Tables and cards (*.csv *.tsv *.txt *.vcf)</source>
        <translation>Tableaux et cartes de visite (*.csv *.tsv *.txt *.vcf)</translation>
    </message>
    <message>
        <source>The file has other columns than those that you have chosen for. Please look at them and try again.</source>
        <translation>Le fichier a d’autres colonnes que celles pour lesquelles vous avez fait des choix. Veuillez les regarder et réessayer.</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Values that cannot be read</source>
        <translation>Valeurs illisibles</translation>
    </message>
    <message>
        <source>Values that cannot be read, and would be kept as typed: %1</source>
        <translation>Valeurs illisibles, qui seraient gardées telles quelles : %1</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Pourquoi</translation>
    </message>
    <message>
        <source>Yours</source>
        <translation>Vos paramètres</translation>
    </message>
    <message>
        <source>a quote in line %1 is never closed</source>
        <translation>un guillemet de la ligne %1 n’est jamais fermé</translation>
    </message>
    <message>
        <source>separated by bars</source>
        <translation>séparées par des barres</translation>
    </message>
    <message>
        <source>separated by commas</source>
        <translation>séparées par des virgules</translation>
    </message>
    <message>
        <source>separated by semicolons</source>
        <translation>séparées par des points-virgules</translation>
    </message>
    <message>
        <source>separated by spaces</source>
        <translation>séparées par des espaces</translation>
    </message>
    <message>
        <source>separated by tabs</source>
        <translation>séparées par des tabulations</translation>
    </message>
    <message>
        <source>separated by “%1”</source>
        <translation>séparées par « %1 »</translation>
    </message>
    <message>
        <source>with fewer or more fields than there are headers: %1</source>
        <translation>avec moins ou plus de champs que de titres : %1</translation>
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
        <translation>%1 de plus</translation>
    </message>
    <message>
        <source>&amp;Columns:</source>
        <translation>&amp;Colonnes :</translation>
    </message>
    <message>
        <source>&amp;Values kept as they were typed:</source>
        <translation>&amp;Valeurs gardées telles qu’elles ont été saisies :</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Colonne</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Colonnes</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Vides</translation>
    </message>
    <message>
        <source>Import Finished</source>
        <translation>Importation terminée</translation>
    </message>
    <message>
        <source>Kept as typed</source>
        <translation>Gardées telles quelles</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lues</translation>
    </message>
    <message>
        <source>Read as</source>
        <translation>Lues comme</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Ligne</translation>
    </message>
    <message numerus="yes">
        <source>Stored %1 record(s) in the library “%2”.</source>
        <translation>
            <numerusform>%1 enregistrement a été ajouté à la bibliothèque « %2 ».</numerusform>
            <numerusform>%1 enregistrements ont été ajoutés à la bibliothèque « %2 ».</numerusform>
        </translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Values kept as they were typed</source>
        <translation>Valeurs gardées telles qu’elles ont été saisies</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Pourquoi</translation>
    </message>
</context>
<context>
    <name>LibraryActions</name>
    <message>
        <source>New Field</source>
        <translation>Nouveau champ</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>Nouvelle bibliothèque</translation>
    </message>
    <message>
        <source>Removed the library “%1”</source>
        <translation>Bibliothèque « %1 » supprimée</translation>
    </message>
    <message>
        <source>Rename Library</source>
        <translation>Renommer la bibliothèque</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>&amp;About Cobble</source>
        <translation>À &amp;propos de Cobble</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>&amp;Fermer la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exporter…</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>Rec&amp;hercher</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importer…</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Raccourcis clavier</translation>
    </message>
    <message>
        <source>&amp;Library</source>
        <translation>&amp;Bibliothèque</translation>
    </message>
    <message>
        <source>&amp;Logging</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>&amp;Nouvelle fenêtre</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Record Count</source>
        <translation>&amp;Nombre d’enregistrements</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Ré&amp;tablir</translation>
    </message>
    <message>
        <source>&amp;Rename Library…</source>
        <translation>&amp;Renommer la bibliothèque…</translation>
    </message>
    <message>
        <source>&amp;Silenced Alerts…</source>
        <translation>Alertes &amp;masquées…</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>Cobble &amp;Help</source>
        <translation>&amp;Aide de Cobble</translation>
    </message>
    <message>
        <source>Delete Rec&amp;ords</source>
        <translation>Su&amp;pprimer les enregistrements</translation>
    </message>
    <message>
        <source>F&amp;ields…</source>
        <translation>C&amp;hamps…</translation>
    </message>
    <message>
        <source>Fi&amp;lter…</source>
        <translation>&amp;Filtrer…</translation>
    </message>
    <message>
        <source>New &amp;Field…</source>
        <translation>Nouveau &amp;champ…</translation>
    </message>
    <message>
        <source>New &amp;Library…</source>
        <translation>Nouvelle &amp;bibliothèque…</translation>
    </message>
    <message>
        <source>Re&amp;move Library</source>
        <translation>&amp;Supprimer la bibliothèque</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Import…</source>
        <translation>Importer…</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliothèques</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>Enregistrements</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
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
        <translation>Ré&amp;tablir</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>Ré&amp;tablir « %1 »</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Annuler « %1 »</translation>
    </message>
    <message>
        <source>A database for one person.</source>
        <translation>Une base de données pour une personne.</translation>
    </message>
    <message>
        <source>All selected records get the same value.</source>
        <translation>Tous les enregistrements sélectionnés reçoivent la même valeur.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Choose a library from the list.</source>
        <translation>Choisissez une bibliothèque dans la liste.</translation>
    </message>
    <message numerus="yes">
        <source>Deleted %1 record(s)</source>
        <translation>
            <numerusform>%1 enregistrement supprimé</numerusform>
            <numerusform>%1 enregistrements supprimés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s)</source>
        <translation>
            <numerusform>%1 enregistrement exporté</numerusform>
            <numerusform>%1 enregistrements exportés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s) to %2</source>
        <translation>
            <numerusform>%1 enregistrement exporté vers %2</numerusform>
            <numerusform>%1 enregistrements exportés vers %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 record(s)</source>
        <translation>
            <numerusform>%1 enregistrement importé</numerusform>
            <numerusform>%1 enregistrements importés</numerusform>
        </translation>
    </message>
    <message>
        <source>Only one import or export at a time: please wait until it is done.</source>
        <translation>Une seule importation ou exportation à la fois : veuillez attendre qu’elle soit terminée.</translation>
    </message>
    <message>
        <source>Searching… %1</source>
        <translation>Recherche… %1</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Définir</translation>
    </message>
    <message numerus="yes">
        <source>Set “%1” of %2 record(s)?</source>
        <translation>
            <numerusform>Définir « %1 » de %2 enregistrement ?</numerusform>
            <numerusform>Définir « %1 » de %2 enregistrements ?</numerusform>
        </translation>
    </message>
    <message>
        <source>Sorting… %1</source>
        <translation>Tri… %1</translation>
    </message>
    <message>
        <source>The filter no longer fits: %1</source>
        <translation>Le filtre ne convient plus : %1</translation>
    </message>
    <message>
        <source>The filter of “%1” no longer fits: %2</source>
        <translation>Le filtre de « %1 » ne convient plus : %2</translation>
    </message>
    <message>
        <source>There are no libraries yet.
File ▸ Import… makes one of a table or of address cards.</source>
        <translation>Il n’y a pas encore de bibliothèque.
Fichier ▸ Importer… en crée une à partir d’un tableau ou de cartes de visite.</translation>
    </message>
    <message>
        <source>There are no records yet.</source>
        <translation>Il n’y a pas encore d’enregistrement.</translation>
    </message>
    <message>
        <source>“%1” was not stored as “%2”</source>
        <translation>« %1 » n’a pas été enregistré comme « %2 »</translation>
    </message>
</context>
<context>
    <name>MediaField</name>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>Mirror left and right</source>
        <translation>Inverser la gauche et la droite</translation>
    </message>
    <message>
        <source>Mirror top and bottom</source>
        <translation>Inverser le haut et le bas</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>Pas de fichier</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Size in percent</source>
        <translation>Taille en pour cent</translation>
    </message>
    <message>
        <source>Turn left</source>
        <translation>Tourner à gauche</translation>
    </message>
    <message>
        <source>Turn right</source>
        <translation>Tourner à droite</translation>
    </message>
</context>
<context>
    <name>NameSheet</name>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom :</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Type :</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>T&amp;out afficher</translation>
    </message>
</context>
<context>
    <name>OpenBundle</name>
    <message>
        <source>%1 is no folder</source>
        <translation>%1 n’est pas un dossier</translation>
    </message>
    <message>
        <source>an import or export is on its way; please wait until it is done</source>
        <translation>Une importation ou une exportation est en cours ; veuillez attendre qu’elle soit terminée</translation>
    </message>
    <message>
        <source>another program has changed the database, which is read again; please try once more</source>
        <translation>Un autre programme a modifié la base de données, qui est relue ; veuillez réessayer</translation>
    </message>
    <message>
        <source>the file cannot be copied</source>
        <translation>le fichier ne peut pas être copié</translation>
    </message>
    <message>
        <source>there is no database</source>
        <translation>Il n’y a pas de base de données</translation>
    </message>
</context>
<context>
    <name>PastePlan</name>
    <message>
        <source>a text is no picture, and pictures of other databases are not here</source>
        <translation>un texte n’est pas une image, et les images d’autres bases de données ne sont pas ici</translation>
    </message>
    <message>
        <source>there is no field for this column</source>
        <translation>il n’y a pas de champ pour cette colonne</translation>
    </message>
    <message>
        <source>there is no record in this row</source>
        <translation>il n’y a pas d’enregistrement dans cette ligne</translation>
    </message>
</context>
<context>
    <name>PasteProblems</name>
    <message numerus="yes">
        <source>%1 value(s) cannot be pasted. Nothing was stored yet.</source>
        <translation>
            <numerusform>%1 valeur ne peut pas être collée. Rien n’a encore été enregistré.</numerusform>
            <numerusform>%1 valeurs ne peuvent pas être collées. Rien n’a encore été enregistré.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Champ</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Paste the Rest</source>
        <translation>Coller le reste</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Raison</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Ligne</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>These are the first %1.</source>
        <translation>Voici les %1 premières.</translation>
    </message>
    <message>
        <source>Values that cannot be pasted</source>
        <translation>Valeurs qui ne peuvent pas être collées</translation>
    </message>
</context>
<context>
    <name>PendingInput</name>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Keep Editing</source>
        <translation>Continuer la saisie</translation>
    </message>
    <message>
        <source>“%1” cannot be stored as “%2”.</source>
        <translation>« %1 » ne peut pas être enregistré comme « %2 ».</translation>
    </message>
</context>
<context>
    <name>PictureInput</name>
    <message>
        <source>A field holds one file of this computer.</source>
        <translation>Un champ contient un seul fichier de cet ordinateur.</translation>
    </message>
    <message>
        <source>Choose Picture</source>
        <translation>Choisir une image</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>The picture cannot be stored.</source>
        <translation>L’image ne peut pas être enregistrée.</translation>
    </message>
    <message>
        <source>There is no file and no picture to paste.</source>
        <translation>Il n’y a ni fichier ni image à coller.</translation>
    </message>
</context>
<context>
    <name>Reasons</name>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 et %2 de plus</translation>
    </message>
    <message>
        <source>%1 cannot be looked at</source>
        <translation>%1 ne peut pas être examiné</translation>
    </message>
    <message>
        <source>%1 is a link, or no file</source>
        <translation>%1 est un lien, ou n’est pas un fichier</translation>
    </message>
    <message>
        <source>%1 of %2 values decide</source>
        <translation>%1 valeurs sur %2 décident</translation>
    </message>
    <message>
        <source>%1: it was cancelled</source>
        <translation>%1 : l’opération a été annulée</translation>
    </message>
    <message>
        <source>'%1' has a computed column</source>
        <translation>« %1 » a une colonne calculée</translation>
    </message>
    <message>
        <source>'%1' is in the way; please remove it</source>
        <translation>« %1 » gêne ; veuillez le supprimer</translation>
    </message>
    <message>
        <source>'%1' is no table</source>
        <translation>« %1 » n’est pas une table</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Colonne %1</translation>
    </message>
    <message>
        <source>a change of the database was interrupted, and it cannot be copied to take that back in the copy</source>
        <translation>Une modification de la base de données a été interrompue, et la base ne peut pas être copiée pour annuler cela dans la copie</translation>
    </message>
    <message>
        <source>a download cannot be kept: %1</source>
        <translation>Un téléchargement ne peut pas être conservé : %1</translation>
    </message>
    <message>
        <source>a field has another type since, so that it cannot be redone</source>
        <translation>Un champ a changé de type depuis, cela ne peut donc pas être rétabli</translation>
    </message>
    <message>
        <source>a field has another type since, so that it cannot be undone</source>
        <translation>Un champ a changé de type depuis, cela ne peut donc pas être annulé</translation>
    </message>
    <message>
        <source>a field has the column '%1', which is the records' number</source>
        <translation>Un champ a la colonne « %1 », qui est le numéro des enregistrements</translation>
    </message>
    <message>
        <source>a field has the column '%1', which the table has not</source>
        <translation>Un champ a la colonne « %1 », qui n’existe pas dans la table</translation>
    </message>
    <message>
        <source>a field needs a name</source>
        <translation>un champ a besoin d’un nom</translation>
    </message>
    <message>
        <source>a folder of the bundle is a link, which leads out of it</source>
        <translation>Un dossier du paquet est un lien qui mène hors de celui-ci</translation>
    </message>
    <message>
        <source>a library needs a field</source>
        <translation>Une bibliothèque a besoin d’un champ</translation>
    </message>
    <message>
        <source>a library needs a name</source>
        <translation>Une bibliothèque a besoin d’un nom</translation>
    </message>
    <message>
        <source>another program is changing the bundle</source>
        <translation>Un autre programme modifie le paquet</translation>
    </message>
    <message>
        <source>another program is changing the database; please try again</source>
        <translation>Un autre programme modifie la base de données ; veuillez réessayer</translation>
    </message>
    <message>
        <source>cannot be loaded: %1</source>
        <translation>Ne peut pas être chargé : %1</translation>
    </message>
    <message>
        <source>day, month, year</source>
        <translation>jour, mois, année</translation>
    </message>
    <message>
        <source>hours:minutes</source>
        <translation>heures:minutes</translation>
    </message>
    <message>
        <source>is a folder, not a file</source>
        <translation>C’est un dossier, pas un fichier</translation>
    </message>
    <message>
        <source>is a pipe or a device, not a file</source>
        <translation>C’est un tube ou un périphérique, pas un fichier</translation>
    </message>
    <message>
        <source>it asked for a field that there is not: %1</source>
        <translation>Il a demandé un champ qui n’existe pas : %1</translation>
    </message>
    <message>
        <source>it asked for a field where there is no record</source>
        <translation>Il a demandé un champ là où il n’y a pas d’enregistrement</translation>
    </message>
    <message>
        <source>it cannot be copied</source>
        <translation>Il ne peut pas être copié</translation>
    </message>
    <message>
        <source>it cannot be downloaded</source>
        <translation>Il ne peut pas être téléchargé</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>Cela ne peut pas être lu</translation>
    </message>
    <message>
        <source>it contradicts how the other values of its column are read</source>
        <translation>Cela contredit la lecture des autres valeurs de la colonne</translation>
    </message>
    <message>
        <source>it has more digits or parts than its field shows</source>
        <translation>la valeur a plus de chiffres ou de parties que son champ n’en affiche</translation>
    </message>
    <message>
        <source>it has moved to where plain http does not lead</source>
        <translation>Il a été déplacé là où le simple http ne mène pas</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>C’est un dossier</translation>
    </message>
    <message>
        <source>it is larger than %1 MB</source>
        <translation>Il dépasse %1 Mo</translation>
    </message>
    <message>
        <source>it is no amount in this currency</source>
        <translation>Ce n’est pas un montant dans cette devise</translation>
    </message>
    <message>
        <source>it is no date or time</source>
        <translation>Ce n’est ni une date ni une heure</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>Ce n’est pas un fichier</translation>
    </message>
    <message>
        <source>it is no media file</source>
        <translation>ce n’est pas un fichier média</translation>
    </message>
    <message>
        <source>it is no number</source>
        <translation>Ce n’est pas un nombre</translation>
    </message>
    <message>
        <source>it is not beside the file; only columns that are named as media may lead elsewhere</source>
        <translation>Il n’est pas à côté du fichier ; seules les colonnes indiquées comme médias peuvent mener ailleurs</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>Sa lecture n’est pas autorisée</translation>
    </message>
    <message>
        <source>it names no file</source>
        <translation>Cela ne désigne pas de fichier</translation>
    </message>
    <message>
        <source>it threw something that is no std::exception</source>
        <translation>Il a lancé autre chose qu’une std::exception</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>L’opération a été annulée</translation>
    </message>
    <message>
        <source>it was changed since, so that it cannot be redone</source>
        <translation>Cela a été modifié depuis et ne peut pas être rétabli</translation>
    </message>
    <message>
        <source>it was changed since, so that it cannot be undone</source>
        <translation>Cela a été modifié depuis et ne peut pas être annulé</translation>
    </message>
    <message>
        <source>it was not downloaded</source>
        <translation>Il n’a pas été téléchargé</translation>
    </message>
    <message>
        <source>it was undone already</source>
        <translation>Cela a déjà été annulé</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>Son nom est trop long</translation>
    </message>
    <message>
        <source>its separators do not stand where groups end or the fraction begins</source>
        <translation>Les séparateurs ne se trouvent pas là où finissent les groupes ou commencent les décimales</translation>
    </message>
    <message>
        <source>its server does not answer</source>
        <translation>Son serveur ne répond pas</translation>
    </message>
    <message>
        <source>its server says %1</source>
        <translation>Son serveur répond %1</translation>
    </message>
    <message>
        <source>larger than 1 GB</source>
        <translation>Plus d’un gigaoctet</translation>
    </message>
    <message>
        <source>line %1 has %2 columns, more than the %3 that a library can have</source>
        <translation>La ligne %1 a %2 colonnes, plus que les %3 qu’une bibliothèque peut avoir</translation>
    </message>
    <message>
        <source>line %1 is too long</source>
        <translation>la ligne %1 est trop longue</translation>
    </message>
    <message>
        <source>meanwhile there are more values that cannot be read</source>
        <translation>il y a entre-temps davantage de valeurs qui ne peuvent pas être lues</translation>
    </message>
    <message>
        <source>minutes:seconds</source>
        <translation>minutes:secondes</translation>
    </message>
    <message>
        <source>month, day, year</source>
        <translation>mois, jour, année</translation>
    </message>
    <message>
        <source>no column is left</source>
        <translation>il ne reste aucune colonne</translation>
    </message>
    <message>
        <source>no library '%1'</source>
        <translation>Il n’y a pas de bibliothèque « %1 »</translation>
    </message>
    <message>
        <source>no such table: %1</source>
        <translation>Cette table n’existe pas : %1</translation>
    </message>
    <message>
        <source>no value decides; the locale's own</source>
        <translation>Aucune valeur ne tranche ; usage de la région</translation>
    </message>
    <message>
        <source>not a text file</source>
        <translation>Ce n’est pas un fichier texte</translation>
    </message>
    <message>
        <source>not a text file in %1 (line %2)</source>
        <translation>Ce n’est pas un fichier texte en %1 (ligne %2)</translation>
    </message>
    <message>
        <source>passed over, since a program ended while its code ran: %1; 'cobble plugins enable' tries it again</source>
        <translation>Ignoré, car un programme s’est arrêté pendant l’exécution de son code : %1 ; « cobble plugins enable » l’essaie à nouveau</translation>
    </message>
    <message>
        <source>row %1</source>
        <translation>ligne %1</translation>
    </message>
    <message>
        <source>rows %1</source>
        <translation>lignes %1</translation>
    </message>
    <message>
        <source>the database</source>
        <translation>La base de données</translation>
    </message>
    <message>
        <source>the database bundle cannot be made</source>
        <translation>Le paquet de la base de données ne peut pas être créé</translation>
    </message>
    <message>
        <source>the database has a trigger, which Cobble does not use</source>
        <translation>La base de données a un déclencheur, que Cobble n’utilise pas</translation>
    </message>
    <message>
        <source>the database has a write-ahead log, which Cobble does not use</source>
        <translation>La base de données a un journal anticipé (WAL), que Cobble n’utilise pas</translation>
    </message>
    <message>
        <source>the database was made by a newer version of Cobble</source>
        <translation>La base de données a été créée par une version plus récente de Cobble</translation>
    </message>
    <message>
        <source>the exporter failed</source>
        <translation>L’exportateur a échoué</translation>
    </message>
    <message>
        <source>the exporter failed: %1</source>
        <translation>L’exportateur a échoué : %1</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>Le fichier est vide</translation>
    </message>
    <message>
        <source>the file is marked as %1, not %2</source>
        <translation>Le fichier est marqué comme %1, pas comme %2</translation>
    </message>
    <message>
        <source>the file was changed while it was read</source>
        <translation>le fichier a été modifié pendant sa lecture</translation>
    </message>
    <message>
        <source>the files of an import that was interrupted cannot be removed</source>
        <translation>Les fichiers d’une importation interrompue ne peuvent pas être supprimés</translation>
    </message>
    <message>
        <source>the history cannot be read</source>
        <translation>L’historique ne peut pas être lu</translation>
    </message>
    <message>
        <source>the history no longer has it</source>
        <translation>L’historique ne le contient plus</translation>
    </message>
    <message>
        <source>the importer failed</source>
        <translation>L’importateur a échoué</translation>
    </message>
    <message>
        <source>the importer failed: %1</source>
        <translation>L’importateur a échoué : %1</translation>
    </message>
    <message>
        <source>the journal of the database</source>
        <translation>Le journal de la base de données</translation>
    </message>
    <message>
        <source>the journal of the database cannot be read</source>
        <translation>Le journal de la base de données ne peut pas être lu</translation>
    </message>
    <message>
        <source>the journal of the database names another file</source>
        <translation>Le journal de la base de données désigne un autre fichier</translation>
    </message>
    <message>
        <source>the library has no fields</source>
        <translation>La bibliothèque n’a pas de champs</translation>
    </message>
    <message>
        <source>the library is no longer there</source>
        <translation>La bibliothèque n’existe plus</translation>
    </message>
    <message>
        <source>the library was changed meanwhile</source>
        <translation>La bibliothèque a été modifiée entre-temps</translation>
    </message>
    <message>
        <source>the library “%1” has the table “%2”, which Cobble needs for itself</source>
        <translation>la bibliothèque « %1 » a la table « %2 », dont Cobble a besoin pour lui-même</translation>
    </message>
    <message>
        <source>the record is no longer there</source>
        <translation>L’enregistrement n’existe plus</translation>
    </message>
    <message>
        <source>the records of '%1' have no number</source>
        <translation>Les enregistrements de « %1 » n’ont pas de numéro</translation>
    </message>
    <message>
        <source>the step cannot be read</source>
        <translation>L’étape ne peut pas être lue</translation>
    </message>
    <message>
        <source>the values contradict each other; the locale's own</source>
        <translation>Les valeurs se contredisent ; usage de la région</translation>
    </message>
    <message>
        <source>the values name it</source>
        <translation>Les valeurs l’indiquent</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>Il y a %1</translation>
    </message>
    <message>
        <source>there is a 'Database%1', which Cobble does not use</source>
        <translation>Il y a un « Database%1 », que Cobble n’utilise pas</translation>
    </message>
    <message>
        <source>there is a field of that name</source>
        <translation>un champ de ce nom existe déjà</translation>
    </message>
    <message>
        <source>there is a library of that name</source>
        <translation>Une bibliothèque de ce nom existe déjà</translation>
    </message>
    <message>
        <source>there is another library of the name “%1”</source>
        <translation>Une autre bibliothèque porte le nom « %1 »</translation>
    </message>
    <message>
        <source>there is more than a number</source>
        <translation>Il y a plus qu’un nombre</translation>
    </message>
    <message>
        <source>there is no column '%1'</source>
        <translation>Il n’y a pas de colonne « %1 »</translation>
    </message>
    <message>
        <source>there is no database</source>
        <translation>Il n’y a pas de base de données</translation>
    </message>
    <message>
        <source>there is no exporter for '%1'</source>
        <translation>Il n’y a pas d’exportateur pour « %1 »</translation>
    </message>
    <message>
        <source>there is no folder for the database bundle</source>
        <translation>Il n’y a pas de dossier pour le paquet de la base de données</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>Ce fichier n’existe pas</translation>
    </message>
    <message>
        <source>there is nothing but blank lines</source>
        <translation>Il n’y a que des lignes vides</translation>
    </message>
    <message>
        <source>this is no order of the fields</source>
        <translation>Ce n’est pas un ordre des champs</translation>
    </message>
    <message>
        <source>told without effect: %1</source>
        <translation>Indiqué sans effet : %1</translation>
    </message>
    <message>
        <source>two fields have the column '%1'</source>
        <translation>Deux champs ont la colonne « %1 »</translation>
    </message>
    <message>
        <source>what the step has removed is no longer there</source>
        <translation>Ce que l’étape a supprimé n’existe plus</translation>
    </message>
    <message>
        <source>year, month, day</source>
        <translation>année, mois, jour</translation>
    </message>
    <message>
        <source>you say so</source>
        <translation>Selon votre indication</translation>
    </message>
</context>
<context>
    <name>RecordCommands</name>
    <message numerus="yes">
        <source>Added %1 record(s)</source>
        <translation>
            <numerusform>%1 enregistrement ajouté</numerusform>
            <numerusform>%1 enregistrements ajoutés</numerusform>
        </translation>
    </message>
    <message>
        <source>Not all of these records can be read now. Nothing was pasted.</source>
        <translation>Ces enregistrements ne peuvent pas tous être lus pour le moment. Rien n’a été collé.</translation>
    </message>
    <message>
        <source>So many records cannot be copied at once.</source>
        <translation>Autant d’enregistrements ne peuvent pas être copiés en une fois.</translation>
    </message>
</context>
<context>
    <name>RecordFinder</name>
    <message>
        <source>No record fits the filter.</source>
        <translation>Aucun enregistrement ne correspond au filtre.</translation>
    </message>
    <message>
        <source>No record fits “%1” and the filter.</source>
        <translation>Aucun enregistrement ne correspond à « %1 » et au filtre.</translation>
    </message>
    <message>
        <source>No record fits “%1”.</source>
        <translation>Aucun enregistrement ne correspond à « %1 ».</translation>
    </message>
    <message>
        <source>The filter cannot be used: %1</source>
        <translation>Le filtre ne peut pas être utilisé : %1</translation>
    </message>
</context>
<context>
    <name>RecordTableModel</name>
    <message>
        <source>the record cannot be read now</source>
        <translation>l’enregistrement ne peut pas être lu pour le moment</translation>
    </message>
</context>
<context>
    <name>SelectionSummary</name>
    <message numerus="yes">
        <source>%1 selected</source>
        <translation>
            <numerusform>%1 sélectionné</numerusform>
            <numerusform>%1 sélectionnés</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
<context>
    <name>ShowLibraryAlert</name>
    <message>
        <source>It is in the list in any case.</source>
        <translation>Elle est dans la liste de toute façon.</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Plus tard</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Show the library “%1” now?</source>
        <translation>Afficher la bibliothèque « %1 » maintenant ?</translation>
    </message>
</context>
<context>
    <name>SilencedAlerts</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Show &amp;Again</source>
        <translation>&amp;Afficher à nouveau</translation>
    </message>
    <message>
        <source>Silenced Alerts</source>
        <translation>Alertes masquées</translation>
    </message>
    <message>
        <source>Silenced alerts</source>
        <translation>Alertes masquées</translation>
    </message>
    <message>
        <source>These alerts are not shown any more. What they ask for is done at once.</source>
        <translation>Ces alertes ne s’affichent plus. Ce qu’elles demandent est fait aussitôt.</translation>
    </message>
</context>
<context>
    <name>SmartLibraryList</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Its records stay. This cannot be undone.</source>
        <translation>Ses enregistrements restent. Cette opération est irréversible.</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nom :</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Remove the smart library “%1”?</source>
        <translation>Supprimer la bibliothèque intelligente « %1 » ?</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>Rename Smart Library</source>
        <translation>Renommer la bibliothèque intelligente</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>Renommer…</translation>
    </message>
    <message>
        <source>Save as Smart Library</source>
        <translation>Enregistrer comme bibliothèque intelligente</translation>
    </message>
    <message>
        <source>Some records of %1</source>
        <translation>Certains enregistrements de %1</translation>
    </message>
</context>
<context>
    <name>StepText</name>
    <message>
        <source>Change</source>
        <translation>Modification</translation>
    </message>
    <message>
        <source>Change Fields of “%1”</source>
        <translation>Modifier les champs de « %1 »</translation>
    </message>
    <message>
        <source>Change Format of “%1”</source>
        <translation>Modifier le format de « %1 »</translation>
    </message>
    <message>
        <source>Change Type of “%1”</source>
        <translation>Modifier le type de « %1 »</translation>
    </message>
    <message>
        <source>Change of “%1”</source>
        <translation>Modification de « %1 »</translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 Record(s)</source>
        <translation>
            <numerusform>Supprimer %1 enregistrement</numerusform>
            <numerusform>Supprimer %1 enregistrements</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %1 Record(s)</source>
        <translation>
            <numerusform>Dupliquer %1 enregistrement</numerusform>
            <numerusform>Dupliquer %1 enregistrements</numerusform>
        </translation>
    </message>
    <message>
        <source>Fill Down</source>
        <translation>Remplir vers le bas</translation>
    </message>
    <message>
        <source>Import of “%1”</source>
        <translation>Importation de « %1 »</translation>
    </message>
    <message>
        <source>Move Field “%1”</source>
        <translation>Déplacer le champ « %1 »</translation>
    </message>
    <message numerus="yes">
        <source>New %1 Record(s)</source>
        <translation>
            <numerusform>%1 nouvel enregistrement</numerusform>
            <numerusform>%1 nouveaux enregistrements</numerusform>
        </translation>
    </message>
    <message>
        <source>New Field “%1”</source>
        <translation>Nouveau champ « %1 »</translation>
    </message>
    <message>
        <source>New Library “%1”</source>
        <translation>Nouvelle bibliothèque « %1 »</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Remove Field “%1”</source>
        <translation>Supprimer le champ « %1 »</translation>
    </message>
    <message>
        <source>Remove Library “%1”</source>
        <translation>Supprimer la bibliothèque « %1 »</translation>
    </message>
    <message>
        <source>Rename Field “%1”</source>
        <translation>Renommer le champ « %1 »</translation>
    </message>
    <message>
        <source>Rename Library “%1”</source>
        <translation>Renommer la bibliothèque « %1 »</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
</context>
<context>
    <name>StepTexts</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
</context>
<context>
    <name>TransferSheet</name>
    <message>
        <source>Another window is importing or exporting. Please wait until it is done.</source>
        <translation>Une autre fenêtre importe ou exporte. Veuillez attendre qu’elle ait terminé.</translation>
    </message>
</context>
</TS>
