# SPDX-License-Identifier: GPL-3.0-or-later
# bash completion for orvik-tool: its commands, their options, the kinds of record, and files.

# Offers the folders and the files whose names match an extended pattern.
_orvik_tool_files()
{
    local word=$1 pattern=$2 name
    compopt -o filenames 2>/dev/null
    local had_extglob=0
    shopt -q extglob && had_extglob=1
    shopt -s extglob
    while IFS= read -r name; do
        # shellcheck disable=SC2053 # it is a pattern
        if [[ -d $name || $name == $pattern ]]; then COMPREPLY+=("$name"); fi
    done < <(compgen -f -- "$word")
    ((had_extglob)) || shopt -u extglob
}

_orvik_tool()
{
    local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} index operands=()
    local commands='check backup restore import upgrade list search show history export'
    local kinds='documents events organizations'
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$current")
        return
    fi
    if [[ $current == -* ]]; then
        local options='--json --help'
        [[ $command == check ]] && options+=' --files'
        [[ $command == search ]] && options+=' --in-files'
        [[ $command == export ]] && options+=' --spreadsheet'
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    for ((index = 2; index < COMP_CWORD; ++index)); do
        [[ ${COMP_WORDS[index]} == -* ]] || operands+=("${COMP_WORDS[index]}")
    done
    case $command:${#operands[@]} in
    list:1 | export:1)
        mapfile -t COMPREPLY < <(compgen -W "$kinds" -- "$current")
        ;;
    show:1 | history:1)
        compopt -o nospace 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -S : -W "$kinds" -- "$current")
        ;;
    export:2)
        local formats='csv xlsx html json'
        case ${operands[1]} in
        documents) formats+=' bibtex ris' ;;
        events) formats+=' ics' ;;
        organizations) formats+=' kml' ;;
        esac
        mapfile -t COMPREPLY < <(compgen -W "$formats" -- "$current")
        ;;
    restore:0)
        _orvik_tool_files "$current" '*.@(zip|tar.zst)'
        ;;
    import:0)
        _orvik_tool_files "$current" '*.@(mdb|accdb|MDB|ACCDB)'
        ;;
    backup:1 | export:3)
        _orvik_tool_files "$current" '*'
        ;;
    restore:1 | import:1)
        _orvik_tool_files "$current" ''
        ;;
    check:0 | backup:0 | upgrade:0 | list:0 | search:0 | show:0 | history:0 | export:0)
        _orvik_tool_files "$current" '*.sqlite'
        ;;
    esac
}

complete -F _orvik_tool orvik-tool
