# Completion of textcfg-inspect for bash: a command, its options, and records: files, images of a folder, the example.

# Offers records for the word: the images after a folder and a colon, the example's parts, else bash's own files.
_textcfg_inspect_records() {
    local word=$1 images=$2 before='' token=${COMP_WORDS[COMP_CWORD]} file
    case $word in
    *:*)
        # Where bash took the word apart only what follows the colon is replaced, else the whole word.
        [[ $token != *?:* ]] || before=${word%:*}:
        before=${before#[\"\']}
        while IFS= read -r file; do # a name with a colon
            COMPREPLY+=("$before${file#"${word%:*}:"}")
        done < <(compgen -f -- "$word")
        ((${#COMPREPLY[@]} == 0)) || return 0
        [[ $word == builtin:* || $images != board ]] || return 0
        mapfile -t COMPREPLY < <(compgen -P "$before" -W "$images" -- "${word##*:}")
        ;;
    b*)
        if [[ builtin: == "$word"* && -z $(compgen -f -- "$word") ]]; then
            mapfile -t COMPREPLY < <(compgen -P builtin: -W "$images")
        else
            compopt -o bashdefault -o default 2>/dev/null
        fi
        ;;
    *) compopt -o bashdefault -o default 2>/dev/null ;;
    esac
}

_textcfg_inspect() {
    local commands='text show diff mask check explain annotate'
    local images='running default startup customer_default'
    # Bash takes words apart at colons and equals signs. What no blank separates belongs together.
    local words=() rest=$COMP_LINE i part
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        part=${COMP_WORDS[i]}
        if ((i == 0)) || [[ $rest == [[:blank:]]* || (-z $part && -z $rest) ]]; then
            rest=${rest#"${rest%%[![:blank:]]*}"}
            words+=("$part")
        else
            words[-1]+=$part
        fi
        rest=${rest#"$part"}
    done
    local word=${words[-1]} count=$((${#words[@]} - 1))
    COMPREPLY=()

    # The command, how many records were named, and the option whose value is being typed.
    local command='' records=0 option='' only_words=''
    for ((i = 1; i < count; ++i)); do
        part=${words[i]}
        if [[ -n $option ]]; then
            option=
        elif [[ -z $only_words && $part == -- ]]; then
            only_words=yes
        elif [[ -z $only_words && $part == -?* ]]; then
            case $part in
            --default | --board | --bank | --md5 | --offset | --old-offset | --new-offset | --at | --ignore | \
                --field | -o)
                option=$part
                ;;
            esac
        elif [[ -z $command ]]; then
            command=$part
        else
            records=$((records + 1))
        fi
    done
    if [[ -z $option && -z $only_words && $word == --*=* ]]; then
        option=${word%%=*}
        word=${word#*=}
    fi

    local input='--default --board --bank --md5 --offset' options
    case $command in
    '') options='--version' ;;
    text) options="$input --delta --page --mask" ;;
    show) options="$input --changed --all --json --secrets --at" ;;
    diff) options='--board --bank --md5 --old-offset --new-offset --commands --json --secrets' ;;
    mask) options='--offset -o' ;;
    check) options="$input --list --ignore --json --secrets" ;;
    explain) options="$input --field --delta --secrets" ;;
    annotate) options="$input --delta --json --secrets" ;;
    *) return 0 ;;
    esac

    case $option in
    --default) _textcfg_inspect_records "$word" "$images" ;;
    --board) _textcfg_inspect_records "$word" board ;;
    --md5) mapfile -t COMPREPLY < <(compgen -W 'yes no' -- "$word") ;;
    --ignore)
        mapfile -t COMPREPLY < <(compgen -W "$(command -- "${words[0]}" check --list 2>/dev/null | cut -d ' ' -f 1)" \
            -- "$word")
        ;;
    -o) compopt -o bashdefault -o default 2>/dev/null ;;
    -*) ;; # a number, or the path of a field
    '')
        if [[ $word == -* && -z $only_words ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
        elif [[ -z $command ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$word")
        else
            # What follows the records is no file: patterns and lines.
            case $command in
            check) ;;
            diff) ((records < 2)) || return 0 ;;
            *) ((records < 1)) || return 0 ;;
            esac
            _textcfg_inspect_records "$word" "$images"
        fi
        ;;
    esac
}
complete -F _textcfg_inspect textcfg-inspect
