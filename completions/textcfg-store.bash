# Completion of textcfg-store for bash: the folder, or an option.
_textcfg_store() {
    local word=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    ((COMP_CWORD == 1)) || return 0
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "-h --help --version" -- "$word")
    else
        compopt -o dirnames 2>/dev/null # bash's own completion of folders
    fi
}
complete -F _textcfg_store textcfg-store
