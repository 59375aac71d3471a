# Completion of textcfg-store for bash: the folder, or --help.
_textcfg_store() {
    local word=${COMP_WORDS[COMP_CWORD]}
    ((COMP_CWORD == 1)) || return 0
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W --help -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
    fi
}
complete -F _textcfg_store textcfg-store
