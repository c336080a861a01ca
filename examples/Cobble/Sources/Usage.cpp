#include "Usage.h"

QString usageText()
{
    return QStringLiteral(
        R"(Usage: cobble COMMAND [ARGUMENT…]

  cobble import FILE.csv [--library NAME] [--separator C]
      Shows the library that the file would become: names, columns, rows.
      NAME is the file's name without its extension unless given. C is one
      character, or comma, semicolon, tab, pipe or space; it is found out
      unless given.

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
