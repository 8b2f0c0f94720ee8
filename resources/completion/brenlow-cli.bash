# bash completion for brenlow-cli: commands, options, and module titles as
# the installed program lists them, in the user's language.

_brenlow_cli_modules()
{
    brenlow-cli modules 2>/dev/null | sed -E 's/^ *[0-9]+  //; s/ {2,}.*$//; s/ +$//'
}

_brenlow_cli()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]} options word i module=
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W 'modules scan clean status shred extract extensions --help --version' -- "$cur"))
        return
    fi
    case $command in
        modules) options='--json --help' ;;
        scan) options='--json --path --min-size --threshold --help' ;;
        clean) options='--json --yes --select --path --min-size --threshold --help' ;;
        status) options='--json --watch --help' ;;
        shred)
            [[ $cur == -* ]] && COMPREPLY=($(compgen -W '--yes --help' -- "$cur")) ||
                COMPREPLY=($(compgen -f -- "$cur"))
            return ;;
        extract)
            case $prev in
                --to) COMPREPLY=($(compgen -d -- "$cur")) ;;
                --password-file) COMPREPLY=($(compgen -f -- "$cur")) ;;
                *) [[ $cur == -* ]] && COMPREPLY=($(compgen -W '--password-file --to --help' -- "$cur")) ||
                       COMPREPLY=($(compgen -f -X '!*.@(7z|rar|RAR|7Z)' -- "$cur") $(compgen -d -- "$cur")) ;;
            esac
            return ;;
        extensions)
            [ "$COMP_CWORD" -eq 2 ] && COMPREPLY=($(compgen -W 'toggle' -- "$cur")) ||
                COMPREPLY=($(compgen -f -- "$cur"))
            return ;;
        *) return ;;
    esac
    case $prev in
        --path)
            COMPREPLY=($(compgen -d -- "$cur"))
            return ;;
        --min-size | --watch | --threshold)
            return ;;
        --select)
            COMPREPLY=($(compgen -W 'default all' -- "$cur") $(compgen -f -- "$cur"))
            return ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
    # The first word that is no option nor an option's value names the module.
    for ((i = 2; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case $word in
            --path | --min-size | --watch | --threshold) ((i++)) ;;
            --select) break ;;
            -*) ;;
            *) module=$word; break ;;
        esac
    done
    if [ "$command" = clean ] && [[ " ${COMP_WORDS[*]:2:COMP_CWORD-2} " == *" --select "* ]]; then
        COMPREPLY=($(compgen -f -- "$cur"))
    elif [ -z "$module" ] && { [ "$command" = scan ] || [ "$command" = clean ]; }; then
        local IFS=$'\n' title
        for title in $(_brenlow_cli_modules); do
            [[ $title == "$cur"* ]] && COMPREPLY+=("${title// /\\ }")
        done
    fi
}

complete -F _brenlow_cli brenlow-cli
