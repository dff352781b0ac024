# bash completion for qorgen. Made by make.mjs from the help of the commands; not to be edited.

_qorgen_commands() {
    case $1 in
        "") echo "generate check convert print source bapi dataset data import widths publish system run" ;;
        "bapi") echo "list find show insert update" ;;
        "data") echo "check split convert template" ;;
        "system") echo "load tables show download upload queue export process delete import-session record programs recordings role reset" ;;
    esac
}

_qorgen_options() {
    case $1 in
        "") echo "-h --help --settings --data --language --yes --version" ;;
        "generate") echo "-h --help -o --output" ;;
        "check") echo "-h --help --all --format --warnings-as-errors" ;;
        "convert") echo "-h --help -o --output" ;;
        "print") echo "-h --help -o --output" ;;
        "source") echo "-h --help --model --table --from" ;;
        "bapi") echo "-h --help --catalogue" ;;
        "bapi list") echo "-h --help" ;;
        "bapi find") echo "-h --help --words" ;;
        "bapi show") echo "-h --help" ;;
        "bapi insert") echo "-h --help --mandatory --definition" ;;
        "bapi update") echo "-h --help --practice" ;;
        "dataset") echo "-h --help --field --new --transaction --whole --part --if --once" ;;
        "data") echo "-h --help" ;;
        "data check") echo "-h --help --format --max-findings" ;;
        "data split") echo "-h --help --good --bad --reasons" ;;
        "data convert") echo "-h --help -o --output --from --to --columns --heading-row --other-columns --separator --sheet --cells --dates --decimals --leave-out --max-findings" ;;
        "data template") echo "-h --help -o --output" ;;
        "import") echo "-h --help --replace --append --close-gaps --practice" ;;
        "widths") echo "-h --help --export --import --query --practice" ;;
        "publish") echo "-h --help --dry-run --practice" ;;
        "system") echo "-h --help --system" ;;
        "system load") echo "-h --help" ;;
        "system tables") echo "-h --help" ;;
        "system show") echo "-h --help" ;;
        "system download") echo "-h --help" ;;
        "system upload") echo "-h --help" ;;
        "system queue") echo "-h --help" ;;
        "system export") echo "-h --help" ;;
        "system process") echo "-h --help --journal" ;;
        "system delete") echo "-h --help" ;;
        "system import-session") echo "-h --help" ;;
        "system record") echo "-h --help" ;;
        "system programs") echo "-h --help" ;;
        "system recordings") echo "-h --help" ;;
        "system role") echo "-h --help" ;;
        "system reset") echo "-h --help" ;;
        "run") echo "-h --help --file --param --records --fail --values --recording --table --system --journal --expect --limit --report --program" ;;
    esac
}

_qorgen_value() {
    case $1 in
        ":--settings") echo directory ;;
        ":--data") echo directory ;;
        "generate:-o" | "generate:--output") echo file ;;
        "check:--format") echo "words github json sarif text" ;;
        "convert:-o" | "convert:--output") echo file ;;
        "print:-o" | "print:--output") echo file ;;
        "source:--model") echo "words file open-sql native-sql" ;;
        "source:--from") echo "words client-flat client-tab server" ;;
        "bapi:--catalogue") echo file ;;
        "data check:--format") echo "words text json" ;;
        "data split:--good") echo file ;;
        "data split:--bad") echo file ;;
        "data split:--reasons") echo file ;;
        "data convert:-o" | "data convert:--output") echo file ;;
        "data convert:--from") echo "words csv layout tab xlsx" ;;
        "data convert:--to") echo "words csv layout tab xlsx" ;;
        "data convert:--columns") echo "words heading order" ;;
        "data convert:--cells") echo "words displayed stored" ;;
        "data template:-o" | "data template:--output") echo file ;;
        "widths:--export") echo file ;;
        "widths:--import") echo file ;;
        "widths:--query") echo file ;;
        "system:--system") echo file ;;
        "system process:--journal") echo file ;;
        "run:--values") echo directory ;;
        "run:--recording") echo file ;;
        "run:--system") echo file ;;
        "run:--journal") echo file ;;
        "run:--expect") echo file ;;
        "run:--report") echo file ;;
    esac
}

_qorgen() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command="" above skip=no i known
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ $skip == yes ]]; then
            [[ ${COMP_WORDS[i]} == "=" ]] || skip=no
            continue
        fi
        case ${COMP_WORDS[i]} in
            --settings | --data | --language | -o | --output | --format | --model | --table | --from | --catalogue | --field | --new | --transaction | --whole | --part | --if | --max-findings | --good | --bad | --reasons | --to | --columns | --heading-row | --separator | --sheet | --cells | --dates | --decimals | --export | --import | --query | --system | --journal | --file | --param | --records | --fail | --values | --recording | --expect | --limit | --report | --program) skip=yes ;;
            -*) ;;
            *)
                known=" $(_qorgen_commands "$command") "
                [[ $known == *" ${COMP_WORDS[i]} "* ]] && command="${command:+$command }${COMP_WORDS[i]}"
                ;;
        esac
    done

    # The shell parts "--option=value" into three words.
    [[ $previous == "=" ]] && previous=${COMP_WORDS[COMP_CWORD - 2]}
    [[ $word == "=" ]] && word=""
    COMPREPLY=()
    compopt -o filenames 2>/dev/null
    if [[ $skip == yes ]]; then
        above=$command
        while known=$(_qorgen_value "$above:$previous") && [[ -z $known && -n $above ]]; do
            [[ $above == *" "* ]] && above=${above% *} || above=""
        done
        case $known in
            "words "*) mapfile -t COMPREPLY < <(compgen -W "${known#words }" -- "$word") ;;
            directory) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
            file) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        esac
    elif [[ $word == -* ]]; then
        known=$(_qorgen_options "")
        above=$command
        while [[ -n $above ]]; do
            known+=" $(_qorgen_options "$above")"
            [[ $above == *" "* ]] && above=${above% *} || above=""
        done
        mapfile -t COMPREPLY < <(compgen -W "$known" -- "$word" | sort -u)
    elif known=$(_qorgen_commands "$command") && [[ -n $known ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$known" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _qorgen qorgen
