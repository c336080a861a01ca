#compdef cobble
# zsh completion for cobble: commands, their options, and files where a file belongs.

local -a commands
commands=(
    'window:open the main window'
    'import:store a file as a library'
    'show:print the records of a library, or the libraries'
    'export:write the records of a library to a file'
    'new:make a library, or add records'
    'set:change values of records'
    'delete:delete records, or a library'
    'rename:rename a library or a field'
    'field:add, remove, move and retype fields'
    'undo:take a change back, or list them'
    'redo:do a change again'
    'media:list, store, find and delete media files'
    'upgrade-copy:put the bundle aside before an upgrade'
    'plugins:list, enable and disable exporters and importers'
    'parse:show what a field reads'
    'format:show how a field displays a value'
    'names:show the identifiers made of texts'
    'log:show and set what is logged'
    'gallery:draw what the framework draws'
    'help:show how cobble is used'
)

local -a bundle locale
bundle=('--bundle[the database bundle]:bundle:_files -/ -g "*.cobbledb"')
locale=('--locale[the locale of values]:locale: ')

if (( CURRENT == 2 )); then
    _describe -t commands command commands
    _arguments '--help[show how cobble is used]' '-h[show how cobble is used]' \
        '--version[show the version]'
    return
fi

local command=$words[2]
shift words
(( CURRENT-- ))
case $command in
    window)
        _arguments $bundle $locale '--search[what to search for]:text: ' \
            '--screenshot[draw into a file]:file:_files' \
            '--sheet[a sheet to lie over it]:sheet:(import export about)' \
            '--help[show how cobble is used]' '1:library: '
        ;;
    import)
        _arguments $bundle $locale '--library[the name of the library]:name: ' \
            '--separator[what separates values]:separator:(comma semicolon tab pipe space)' \
            '--encoding[what the file is encoded in]:name:(auto UTF-8 UTF-16LE UTF-16BE windows-1252 ISO-8859-1 ISO-8859-15)' \
            '--no-header[the first row holds values]' \
            '*--skip[a column to leave out]:header: ' \
            '*--rename[another header for a column]:header=name: ' \
            '*--type[what is in a column]:header=type: ' \
            '*--media[a column that names files anywhere]:header: ' \
            '*--order[how dates of a column are typed]:header=order: ' \
            '*--decimal[what stands before fractions]:header=sign: ' \
            '*--unit[the currency or the clock of a column]:header=unit: ' \
            '--replace[in place of a library of that name]' '--dry-run[store nothing]' \
            '--help[show how cobble is used]' '1:file:_files'
        ;;
    show)
        _arguments $bundle $locale '--limit[how many records]:number: ' \
            '--where[a condition for records]:condition: ' \
            '--sort[fields to sort by]:fields: ' '--columns[which fields]:fields: ' \
            '--json[print JSON]' '--help[show how cobble is used]' '1:library: '
        ;;
    export)
        _arguments $bundle $locale '--to[the file to write]:file:_files' \
            '--where[a condition for records]:condition: ' \
            '--sort[fields to sort by]:fields: ' '--columns[which fields]:fields: ' \
            '--limit[how many records]:number: ' \
            '--help[show how cobble is used]' '1:library: '
        ;;
    new)
        _arguments $bundle $locale '*--field[a field of the library]:name\:type: ' \
            '--record[add a record]' '--json[read and print JSON]' \
            '--help[show how cobble is used]' '1:library: ' '*:field=value: '
        ;;
    set)
        _arguments $bundle $locale '--json[read and print JSON]' \
            '--help[show how cobble is used]' '1:library: ' '*:field=value: '
        ;;
    delete)
        _arguments $bundle '--library[delete the library]' '--json[print JSON]' \
            '--help[show how cobble is used]' '1:library: ' '*:record: '
        ;;
    rename)
        _arguments $bundle '--field[the field to rename]:field: ' '--json[print JSON]' \
            '--help[show how cobble is used]' '1:library: ' '2:name: '
        ;;
    field)
        _arguments $bundle $locale '--at[where it comes to stand]:place: ' \
            '*--option[a setting of the field]:key=value: ' \
            '--clear[empty what cannot be read]' '--dry-run[change nothing]' \
            '--json[print JSON]' '--help[show how cobble is used]' \
            '1:action:(add remove move type)' '2:library: ' '3:field: '
        ;;
    undo)
        _arguments $bundle '--list[list the steps]' '--json[print JSON]' \
            '--help[show how cobble is used]' '1:step: '
        ;;
    redo)
        _arguments $bundle '--json[print JSON]' '--help[show how cobble is used]' '1:step: '
        ;;
    media)
        _arguments $bundle '--help[show how cobble is used]' \
            '1:action:(list add path delete)' '*:file:_files'
        ;;
    upgrade-copy)
        _arguments $bundle '--help[show how cobble is used]'
        ;;
    plugins)
        _arguments '--help[show how cobble is used]' '1:action:(list enable disable)'
        ;;
    parse)
        _arguments $locale '*--option[a setting of the field]:key=value: ' \
            '--why[show how texts were understood]' '--help[show how cobble is used]' \
            '1:type:(number currency duration time date date+time phone)'
        ;;
    format)
        _arguments $locale '*--option[a setting of the field]:key=value: ' \
            '--help[show how cobble is used]' \
            '1:type:(number currency duration time date date+time phone)'
        ;;
    names)
        _arguments '--help[show how cobble is used]' '*:text: '
        ;;
    log)
        _arguments '--to[where messages go]:place:(file console)' \
            '--file-line[name source lines]:switch:(on off)' \
            '--clear[switch all components off]' '--help[show how cobble is used]'
        ;;
    gallery)
        _arguments '--screenshot[the folder to draw into]:folder:_files -/' \
            '--help[show how cobble is used]'
        ;;
esac
