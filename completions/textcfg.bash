# Completion of textcfg for bash: one verb, and -f or -F with a file.
_textcfg() {
    local word=${COMP_WORDS[COMP_CWORD]}
    # What follows an option is a file, whatever it looks like; but the option may itself be the file of the one before.
    local i option='' verb=''
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ -n $option ]]; then
            option=
        elif [[ ${COMP_WORDS[i]} == -[fF]* ]]; then
            option=${COMP_WORDS[i]}
        elif [[ ${COMP_WORDS[i]} != -* ]]; then
            verb=${COMP_WORDS[i]}
        fi
    done
    # The program takes at most three words, so an option must not be the third.
    COMPREPLY=()
    ((COMP_CWORD <= 3)) || return 0
    if [[ -n $option ]]; then
        compopt -o bashdefault -o default 2>/dev/null # bash's own completion of files
    elif [[ $word == -* ]]; then
        ((COMP_CWORD == 3)) || mapfile -t COMPREPLY < <(compgen -W "-f -F" -- "$word")
    elif [[ -z $verb ]]; then
        mapfile -t COMPREPLY < <(compgen -W "
            default_config default_config_delta default_config_page default_config_delta_page
            running_config running_config_delta running_config_page running_config_delta_page
            startup_config startup_config_delta startup_config_page startup_config_delta_page
            customer_def_config customer_def_config_delta customer_def_config_page customer_def_config_delta_page" \
            -- "$word")
    elif [[ -z $word ]] && ((COMP_CWORD == 2)); then
        COMPREPLY=(-f)
    fi
}
complete -F _textcfg textcfg
