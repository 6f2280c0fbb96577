# bash completion for ipc2581, which works without the bash-completion package.

# Completes folders, and files with one of the endings. Without endings, all files.
_ipc2581_files()
{
    local word=$1 path ending
    shift
    compopt -o filenames 2>/dev/null
    while IFS= read -r path; do
        if [[ $# -eq 0 || -d $path ]]; then
            COMPREPLY+=("$path")
            continue
        fi
        for ending; do
            if [[ $path == *"$ending" ]]; then
                COMPREPLY+=("$path")
                break
            fi
        done
    done < <(compgen -f -- "$word")
}

_ipc2581_words()
{
    mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

_ipc2581()
{
    local commands="info bom components nets layers stackup packages pins pads holes tracks svg html check convert report diff sqlite"
    local boards=(.cvg .xml .gz .zst .xz .bz2 .zip .7z .tar)
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local command="" i place=0
    COMPREPLY=()

    # "--format=csv" arrives as three words.
    if [[ $word == "=" ]]; then
        word=""
    elif [[ $before == "=" ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    # The place of the word among the arguments of the command that are not options.
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            -f | --format | -o | --output | --step | --units | --group | --columns | --bottom-rotation | --layers | --width | --against)
                [[ ${COMP_WORDS[i + 1]} == "=" ]] && ((++i))
                ((++i))
                ;;
            -*) ;;
            *)
                if [[ -z $command ]]; then
                    command=${COMP_WORDS[i]}
                else
                    ((++place))
                fi
                ;;
        esac
    done

    if [[ -z $command ]]; then
        if [[ $word == -* ]]; then
            _ipc2581_words "$word" "-h --help --version"
        else
            _ipc2581_words "$word" "$commands"
        fi
        return
    fi

    case $before in
        --step | --layers | --width)
            return
            ;;
        -f | --format)
            _ipc2581_words "$word" "table csv json jsonl"
            return
            ;;
        --group)
            _ipc2581_words "$word" "value part package"
            return
            ;;
        --columns)
            _ipc2581_words "$word" "placement position"
            return
            ;;
        --bottom-rotation)
            _ipc2581_words "$word" "below above"
            return
            ;;
        --against)
            _ipc2581_files "$word" "${boards[@]}"
            return
            ;;
        --units)
            _ipc2581_words "$word" "mm inch mil um"
            return
            ;;
        -o | --output)
            if [[ $command == svg ]]; then
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(compgen -d -- "$word")
            else
                _ipc2581_files "$word"
            fi
            return
            ;;
    esac

    if [[ $word == -* ]]; then
        local listing="-f --format -o --output" options="-h --help"
        options+=" --strict"
        [[ $command != check ]] && options+=" --exact --step"
        case $command in
            info) options+=" $listing --units --all" ;;
            diff) options+=" $listing --units --all" ;;
            bom) options+=" $listing --sort --group" ;;
            layers) options+=" $listing" ;;
            stackup) options+=" $listing --units" ;;
            packages | pins | pads | holes | tracks) options+=" $listing --units --sort" ;;
            components) options+=" $listing --units --sort --fitted --columns --bottom-rotation" ;;
            nets) options+=" $listing --units --physical --sort" ;;
            svg) options+=" -o --output --layers --whole --png --width --force" ;;
            html) options+=" -o --output --against --units --force" ;;
            convert) options+=" --force" ;;
            report) options+=" --force -o --output" ;;
            check) options+=" $listing --all" ;;
            sqlite) options+=" -o --output" ;;
        esac
        _ipc2581_words "$word" "$options"
        return
    fi

    case $command,$place in
        convert,1) _ipc2581_files "$word" ;;
        diff,1 | sqlite,* | *,0) _ipc2581_files "$word" "${boards[@]}" ;;
    esac
}

complete -F _ipc2581 ipc2581
