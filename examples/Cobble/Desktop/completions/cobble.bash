# bash completion for cobble: commands, their options, and files where a file belongs.

_cobble() {
    local current previous
    current=${COMP_WORDS[COMP_CWORD]}
    previous=${COMP_WORDS[COMP_CWORD - 1]}
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'window import show export new set delete rename
            field undo redo media upgrade-copy plugins parse format names log gallery help --help -h
            --version' -- "$current")
        return
    fi

    local options='' files='' texts=''
    case ${COMP_WORDS[1]} in
        window) options='--search --locale --bundle --screenshot --sheet' ;;
        import)
            options='--library --separator --encoding --no-header --locale --skip --rename --type
                --media --order --decimal --unit --replace --bundle --dry-run'
            files=1
            ;;
        show) options='--where --sort --columns --limit --locale --json --bundle' ;;
        export) options='--to --where --sort --columns --limit --locale --bundle' ;;
        new) options='--field --record --locale --json --bundle' ;;
        set) options='--locale --json --bundle' ;;
        delete) options='--library --json --bundle' ;;
        rename) options='--field --json --bundle' ;;
        field)
            options='--at --option --clear --dry-run --locale --json --bundle'
            texts='add remove move type'
            ;;
        undo) options='--list --json --bundle' ;;
        redo) options='--json --bundle' ;;
        media)
            options='--bundle'
            texts='list add path delete'
            [ "${COMP_WORDS[2]}" = add ] && files=1
            ;;
        upgrade-copy) options='--bundle' ;;
        plugins) texts='list enable disable' ;;
        parse)
            options='--locale --option --why'
            texts='number currency duration time date date+time phone'
            ;;
        format)
            options='--locale --option'
            texts='number currency duration time date date+time phone'
            ;;
        names) ;;
        log) options='--to --file-line --clear' ;;
        gallery) options='--screenshot' ;;
        help | --help | -h | --version) return ;;
    esac

    local values=''
    case ${COMP_WORDS[1]}$previous in
        log--to) values='file console' ;;
        log--file-line) values='on off' ;;
        window--sheet) values='import export about' ;;
        import--separator) values='comma semicolon tab pipe space' ;;
        import--encoding) values='auto UTF-8 UTF-16LE UTF-16BE windows-1252 ISO-8859-1 ISO-8859-15' ;;
        *--bundle | *--screenshot | export--to)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        *--search | *--locale | *--library | *--media | *--limit | *--option) return ;;
        *--skip | *--rename | *--type | *--order | *--decimal | *--unit | *--field | *--at) return ;;
        *--where | *--sort | *--columns) return ;;
    esac
    if [ -n "$values" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current")
        return
    fi

    case $current in
        -*) mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$current") ;;
        *)
            [ "$COMP_CWORD" -eq 2 ] || texts=''
            mapfile -t COMPREPLY < <(compgen -W "$texts" -- "$current")
            if [ -n "$files" ]; then
                compopt -o filenames
                mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$current")
            fi
            ;;
    esac
}

complete -F _cobble cobble
