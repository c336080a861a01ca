#include "Usage.h"

QString usageText()
{
    return QStringLiteral(
        R"(Usage: cobble COMMAND [ARGUMENT…]

  cobble import FILE.csv [--library NAME] [--separator C] [--locale ID]
      Shows the library that the file would become: names, columns, rows, the
      types of the columns, and each value that its column's type cannot read.
      NAME is the file's name without its extension unless given. C is one
      character, or comma, semicolon, tab, pipe or space; it is found out
      unless given. ID is the locale that the values were typed in, such as
      de_DE; it is yours unless given.

  cobble parse TYPE TEXT… [--locale ID] [--option KEY=VALUE…]
      Shows what a field of a type reads: number, currency, duration, time,
      date, date+time or phone; and how it displays that.
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

  cobble help, --help, -h      Shows this text.
  cobble --version             Shows the version.
)");
}
