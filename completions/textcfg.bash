# Completion of textcfg for bash: the verbs, -f and -F, and a file name behind either.
_textcfg() {
    local word=${COMP_WORDS[COMP_CWORD]}
    # What follows an option is a file, whatever it looks like; but the option may itself be the file of the one before.
    local i option=
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ -n $option ]]; then
            option=
        elif [[ ${COMP_WORDS[i]} == -[fF]* ]]; then
            option=${COMP_WORDS[i]}
        fi
    done
    if [[ -n $option ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "-f -F" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -W "
            default_config default_config_delta default_config_page default_config_delta_page
            running_config running_config_delta running_config_page running_config_delta_page
            startup_config startup_config_delta startup_config_page startup_config_delta_page
            customer_def_config customer_def_config_delta customer_def_config_page customer_def_config_delta_page" \
            -- "$word")
    fi
}
complete -F _textcfg textcfg
