# Completion of corvane for bash.
_corvane() {
    local current previous words cword
    _init_completion -n = || return
    current=${words[cword]}
    previous=${words[cword - 1]}
    if [[ $previous == --model ]]; then
        local models
        models=$(corvane-cli models 2>/dev/null | grep -oE '^PIC16F[0-9]+')
        mapfile -t COMPREPLY < <(compgen -W "$models" -- "${current^^}")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--model --help --version" -- "$current")
    else
        _filedir '@(asm|bas|hex)'
    fi
}

complete -F _corvane corvane
