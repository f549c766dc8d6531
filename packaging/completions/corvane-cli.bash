# Completion of corvane-cli for bash.
_corvane_cli() {
    local current previous words cword
    _init_completion -n = || return
    current=${words[cword]}
    previous=${words[cword - 1]}
    local commands="models assemble compile format build check disassemble run test debug"
    local command="" word
    for word in "${words[@]:1:cword-1}"; do
        if [[ " $commands " == *" $word "* ]]; then
            command=$word
            break
        fi
    done

    case $previous in
        -m | --model)
            local models
            models=$(corvane-cli models 2>/dev/null | grep -oE '^PIC16F[0-9]+')
            mapfile -t COMPREPLY < <(compgen -W "$models" -- "${current^^}")
            return
            ;;
        --model-dir | --vcd-on-failure)
            _filedir -d
            return
            ;;
        -o | -l | -s | -t | --output | --listing | --stimulus | --trace | --state | --vcd | --coverage | \
            --profile | --eeprom | --save-eeprom | --junit)
            _filedir
            return
            ;;
        --format)
            mapfile -t COMPREPLY < <(compgen -W "hex asm bas" -- "$current")
            return
            ;;
        --assembler)
            mapfile -t COMPREPLY < <(compgen -W "corvane gpasm" -- "$current")
            return
            ;;
        --rules)
            local rules="bank page table stack runs-off isr-context unreachable all"
            mapfile -t COMPREPLY < <(compgen -W "$rules" -- "$current")
            return
            ;;
        -n | -c | -b | --steps | --cycles | --break | --config | --clock | --*-time | --time | \
            --until | --expect | --never | --signals | -k | --time-limit)
            return
            ;;
    esac

    local general="-m --model --model-dir --help"
    local assembler="--assembler --assembler-option"
    case $command in
        "") mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$current") ;;
        models) mapfile -t COMPREPLY < <(compgen -W "$general" -- "$current") ;;
        assemble) _corvane_cli_arguments "$general $assembler -o --output -l --listing --config" asm ;;
        compile) _corvane_cli_arguments "$general -o --output --clock" bas ;;
        format) _corvane_cli_arguments "$general -i --in-place" bas ;;
        build) _corvane_cli_arguments "$general $assembler -o --output --config --clock" '@(asm|bas)' ;;
        check) _corvane_cli_arguments "$general $assembler --rules --no-source --clock" '@(asm|bas|hex)' ;;
        disassemble) _corvane_cli_arguments "$general -o --output --no-opcodes" hex ;;
        run)
            _corvane_cli_arguments "$general $assembler --no-source --format -n --steps -c --cycles -b --break -s --stimulus
                -t --trace --state -q --quiet --clock --eeprom-write-time --ad-conversion-time
                --until --expect --never --strict --time --vcd --signals --coverage --profile
                --eeprom --save-eeprom --source" \
                '@(asm|bas|hex)'
            ;;
        debug)
            _corvane_cli_arguments "$general $assembler --no-source --format -n --steps -c --cycles -b --break -s --stimulus
                --clock --eeprom-write-time --ad-conversion-time --strict --time --eeprom" \
                '@(asm|bas|hex)'
            ;;
        test)
            _corvane_cli_arguments "--model-dir --help $assembler --junit --tap -k --vcd-on-failure --coverage
                --strict --time-limit" test
            ;;
    esac
}

# The options that begin like the current word, or else the files with one of these extensions.
_corvane_cli_arguments() {
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
    else
        _filedir "$2"
    fi
}

complete -F _corvane_cli corvane-cli
