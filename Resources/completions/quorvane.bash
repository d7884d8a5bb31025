# Completion of quorvane for bash.

# Names of pictures in the library, one a line.
_quorvane_pictures()
{
    local file
    for file in "$HOME"/Pictures/Quorvane/*.{png,jpg,jpeg,webp,PNG,JPG,JPEG,WEBP}; do
        [[ ! -e $file ]] || printf '%s\n' "${file##*/}"
    done
}

# Completes to the words that begin like the current one; a word is a line, so it may hold spaces.
_quorvane_words()
{
    local IFS=$'\n'
    COMPREPLY+=($(compgen -W "$1" -- "$current"))
}

_quorvane()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command= at
    COMPREPLY=()
    for ((at = 1; at < COMP_CWORD; ++at)); do
        if [[ ${COMP_WORDS[at]} != -* ]]; then
            command=${COMP_WORDS[at]}
            break
        fi
    done
    if [[ $current == -* ]]; then
        local options=--json
        case $command in
            '') options=$'--hidden\n--action\n--help\n--version\n--json' ;;
            generate) options+=$'\n--prompt' ;;
            settings) options+=$'\n--unset' ;;
        esac
        _quorvane_words "$options"
        return
    fi
    case $command in
        '')
            if [[ $previous == --action ]]; then
                _quorvane_words $'generate\ntoggle-auto\nsettings\nquit'
            else
                _quorvane_words $'generate\nupscale\nset\nstatus\nhistory\nalbums\nfavorite\ndelete\nsettings\nkey\nauto\nautostart\nmodel\ncancel\nquit'
            fi
            ;;
        upscale | set)
            compopt -o filenames
            COMPREPLY=($(IFS=$'\n'; compgen -f -- "$current"))
            _quorvane_words "$(_quorvane_pictures)"
            ;;
        favorite | delete)
            compopt -o filenames
            _quorvane_words "$(_quorvane_pictures)"
            ;;
        settings)
            case $previous in
                settings | --unset)
                    _quorvane_words $'lastPrompt\nfourKEnabled\nnsfwEnabled\nproviderOverride\nautoEnabled\nintervalMinutes\nupscaleMethod\ncurrentWallpaperPath\nselectedModel_gemini\nselectedModel_grok\nselectedModel_openai'
                    ;;
                fourKEnabled | nsfwEnabled | autoEnabled) _quorvane_words $'true\nfalse' ;;
                providerOverride) _quorvane_words $'auto\ngemini\ngrok\nopenai' ;;
                upscaleMethod) _quorvane_words $'gemini\nlocal' ;;
            esac
            ;;
        key)
            case $previous in
                key) _quorvane_words $'list\nset\ndelete' ;;
                set | delete) _quorvane_words $'gemini\ngrok\nopenai' ;;
            esac
            ;;
        auto | autostart) [[ $previous != "$command" ]] || _quorvane_words $'on\noff' ;;
        model)
            case $previous in
                model) _quorvane_words install ;;
                install)
                    compopt -o filenames
                    COMPREPLY=($(IFS=$'\n'; compgen -f -- "$current"))
                    ;;
            esac
            ;;
    esac
}

complete -F _quorvane quorvane
