#include "Usage.h"

using namespace Qt::StringLiterals;

namespace {
/// On libraries as a whole.
QString librariesUsage()
{
    return uR"(Usage: cobble COMMAND [ARGUMENT…]

  cobble window [LIBRARY] [--search TEXT] [--locale ID] [--bundle PATH]
                [--screenshot FILE [--sheet NAME]]
      Opens the main window. With --screenshot, draws it into a file (PNG) and
      needs no display; NAME is a sheet to lie over it: import, export or
      about.

  cobble import FILE [--library NAME] [--separator C] [--encoding CODE]
                [--no-header] [--locale ID] [--skip HEADER]…
                [--rename HEADER=NAME]… [--type HEADER=TYPE]…
                [--media HEADER]… [--order HEADER=ORDER]…
                [--decimal HEADER=SIGN]… [--unit HEADER=UNIT]… [--replace]
                [--bundle PATH] [--dry-run]
      Stores a file of separated values, or one that an importer reads (vcf), as
      a library of the database, all of it or nothing. Shows its names, the
      types of its columns, and each value that its column's type cannot read
      (it is kept as it was typed). NAME is the file's name without its
      extension unless given, with a number if there is one, or in its place
      with --replace. C is one character, or comma, semicolon, tab, pipe or
      space; it is found out unless given. CODE is what FILE is encoded in, such
      as windows-1252, or auto to guess; unless given, it is UTF-8, or UTF-16
      with a byte order mark, and nothing else is taken. With --no-header, the
      first row holds values, and the columns are called Column 1, Column 2 and
      so on. --skip leaves a column out, --rename stores it under another
      header, and TYPE says what is in it: text, media, or a type of parse; it
      is found out unless given. ID is the locale that the values
      were typed in, such as de_DE; it is yours unless given. Files beside FILE
      that a column names are copied into the bundle. --media says that a column
      names files, which may then lie anywhere or be http: URLs, up to 256 MB
      each; give it only for a FILE that you trust. How the dates and numbers of
      a column are typed is found out from all of its values together, and shown
      with what contradicts it, unless given: ORDER is dmy, mdy or ymd, SIGN
      stands before fractions and is a comma or a point, UNIT is a currency such
      as EUR, or h:m or m:s for what 1:30 is. PATH is the database bundle;
      it is your default one unless given. --dry-run shows and stores nothing.
  cobble show [LIBRARY] [--where TEXT] [--sort FIELDS] [--columns FIELDS]
                [--limit N] [--json] [--locale ID] [--bundle PATH]
      Prints the records of a library as its fields display them; without a
      name, the libraries. TEXT is a condition such as "balance > 100 AND born
      in March" or "name CONTAINS ann", with values as the fields read them.
      FIELDS are names with commas between, "-" before one sorts from the last
      to the first. --json prints the values as they are, with the numbers of
      the records.
  cobble export LIBRARY --to FILE [--where TEXT] [--sort FIELDS]
                [--columns FIELDS] [--limit N] [--locale ID] [--bundle PATH]
      Writes the records of a library to a file of the kind that its extension
      names: csv or json, or what else an exporter writes.

)"_s;
}

/// On changing what is in them.
QString dataUsage()
{
    return uR"(  cobble new LIBRARY [--field NAME:TYPE]… [--locale ID] [--json]
                [--bundle PATH]
      Makes a library. TYPE is text unless given, or media, number, currency,
      duration, time, date, date+time or phone.
  cobble new LIBRARY --record [FIELD=VALUE]… [--locale ID] [--json]
                [--bundle PATH]
      Adds a record. Values are typed as in the window; a field of media gets a
      copy of the file that its value names. With --json and no values, adds the
      records that the standard input gives.
  cobble set LIBRARY ID… FIELD=VALUE… [--locale ID] [--json] [--bundle PATH]
      Changes values of some records: all as said, or none. With --json and
      nothing else, reads the records from the standard input.
  cobble delete LIBRARY ID… | --library [--json] [--bundle PATH]
      Deletes records, or without numbers the library.
  cobble rename LIBRARY NEW [--field OLD] [--json] [--bundle PATH]
      Gives a library another name, or one of its fields.
  cobble field add LIBRARY NAME:TYPE [--at PLACE] [--option KEY=VALUE]…
                [--locale ID] [--json] [--bundle PATH]
  cobble field remove LIBRARY NAME | move LIBRARY NAME PLACE
      Adds, removes or moves a field; the first one has place 1.
  cobble field type LIBRARY NAME TYPE [--option KEY=VALUE]… [--clear]
                [--dry-run] [--locale ID] [--json] [--bundle PATH]
      Reads the values of a field anew as those of another type. If some cannot
      be read, nothing is done, unless --clear says that these fields become
      empty. --dry-run only shows them.
  cobble undo [STEP] [--list] [--json] [--bundle PATH]
  cobble redo [STEP] [--json] [--bundle PATH]
      Takes the last change back, or the one of a number, or does it again,
      whichever window or command has made it. --list shows all.

)"_s;
}

/// On everything else.
QString otherUsage()
{
    return uR"(  cobble media list [--bundle PATH]
  cobble media add FILE-OR-URL… | path URL… | delete NAME-OR-URL…
      Lists, stores, finds and deletes the media files of the bundle.
  cobble upgrade-copy [--bundle PATH]
      Moves the bundle aside before an upgrade, and prints the path of a second
      copy, the one to upgrade.

  cobble plugins [list | enable ID… | disable ID…]
      Lists the exporters and importers, without running any of their code, and
      says which are to be used.

  cobble parse TYPE TEXT… [--locale ID] [--option KEY=VALUE…] [--why]
      Shows what a field of a type reads: number, currency, duration, time,
      date, date+time or phone; and how it displays that. --why shows how it
      understood the text, by which parts of it, and what else it could mean.
  cobble format TYPE VALUE… [--locale ID] [--option KEY=VALUE…]
      Shows how a field of a type displays a value: a number with ".", seconds,
      a date as 2008-03-05T17:30, a time as 17:30. Options are settings of the
      field, such as decimalPlaces=2, dateStyle=3 or currencyType=EUR.

  cobble names [--] TEXT…
      Shows the identifiers and labels that are made of each text.

  cobble log
      Lists the components that can be logged and where messages go.
  cobble log COMPONENT LEVEL
      Sets a component's level: 0 (off) to 7 (most detail).
  cobble log [--to file|console] [--file-line on|off] [--clear]
      Says where messages go, whether those on the console name their source
      line, and switches all components off.

  cobble gallery --screenshot DIR
      Draws what the framework draws, one file (PNG) each and a page of all,
      into a folder, which is made if need be. It needs no display.

  cobble help, --help, -h      Shows this text.
  cobble --version             Shows the version.
)"_s;
}
} // namespace

QString usageText()
{
    return librariesUsage() + dataUsage() + otherUsage();
}
