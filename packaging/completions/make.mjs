// Makes the completions of qorgen for bash, zsh and fish from the help of its commands.
//   node make.mjs QORGEN [DIRECTORY]    writes qorgen.bash, _qorgen and qorgen.fish, by default beside this script
//   node make.mjs --check QORGEN        status 1 where those beside this script are not what it would write
import { execFileSync } from "node:child_process";
import { readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const here = dirname(fileURLToPath(import.meta.url));
const made = "Made by make.mjs from the help of the commands; not to be edited.";

// ---- Reading the help ----

// One line of the help without its indentation: a name, what its value is called, remarks, and a description.
function readEntry(text, next) {
    const entry = { names: [], value: "", description: "" };
    const take = (pattern) => {
        const found = text.match(pattern);
        if (found) text = text.slice(found[0].length).replace(/^ (?! )/, "");
        return found;
    };
    entry.names = take(/^\S+/)[0].split(",");
    const value = !/^(\s|$|Needs:|Excludes:|REQUIRED)/.test(text) && take(/^\S+( in \[[^\]]*\])?/);
    if (value) entry.value = value[0];
    while (take(/^(\.\.\.|REQUIRED|(Needs|Excludes): \S+)/));
    entry.description = (text.trim() || next.trim()).replace(/\s+/g, " ");
    return entry;
}

// A command with its options, its positionals and the commands below it.
function readCommand(qorgen, path) {
    const help = execFileSync(qorgen, [...path, "--help"], { encoding: "utf8" }).split("\n");
    const command = { path, options: [], positionals: [], commands: [] };
    let section = "";
    help.forEach((line, number) => {
        const heading = line.match(/^ *(Options|Positionals|Subcommands):$/);
        if (heading) section = heading[1];
        else if (line === "") section = "";
        else if (section) {
            const text = line.trim();
            if (section === "Subcommands") {
                const [name, ...words] = text.split(/\s+/);
                command.commands.push({ ...readCommand(qorgen, [...path, name]), description: words.join(" ") });
            } else if (section === "Options" && text.startsWith("-")) command.options.push(readEntry(text, help[number + 1] ?? ""));
            else if (section === "Positionals" && /^ {2,4}\S/.test(line)) command.positionals.push(readEntry(text, help[number + 1] ?? ""));
        }
    });
    return command;
}

function flatten(command) {
    return [command, ...command.commands.flatMap(flatten)];
}

// What can stand as a value: some words, a directory, a file of an extension or any file; nothing is known of the others.
function valueOf(value, isPositional) {
    const words = value.match(/:\{([a-z-]+(,[a-z-]+)*)\}$/);
    if (words) return { words: words[1].split(",") };
    if (value === "DIR") return { directory: true };
    if (isPositional ? !/^(NAME|TABLE|QID|ROLE|TEXT|BAPI)$/.test(value) : /^\[?(FILE|OUT|NEW|CSV|G|B|R)(\.xlsx)?\]?$/.test(value)) return { file: true };
    return {};
}

// ---- Writing ----

const quote = (text) => `'${text.replaceAll("'", "'\\''")}'`;
const takesValue = (option) => option.value !== "" && !option.value.startsWith("[");
const unique = (list) => [...new Set(list)];

function bash(commands) {
    const key = (command) => command.path.join(" ");
    const named = (branch) => commands.map(branch).filter(Boolean).join("\n");
    const valued = unique(commands.flatMap((command) => command.options.filter(takesValue).flatMap((option) => option.names)));
    const values = commands.flatMap((command) =>
        command.options.filter(takesValue).flatMap((option) => {
            const { words, directory, file } = valueOf(option.value, false);
            const names = option.names.map((name) => `"${key(command)}:${name}"`).join(" | ");
            if (words) return [`        ${names}) echo "words ${words.join(" ")}" ;;`];
            if (directory) return [`        ${names}) echo directory ;;`];
            return file ? [`        ${names}) echo file ;;`] : [];
        }),
    );
    return `# bash completion for qorgen. ${made}

_qorgen_commands() {
    case $1 in
${named((c) => c.commands.length && `        "${key(c)}") echo "${c.commands.map((d) => d.path.at(-1)).join(" ")}" ;;`)}
    esac
}

_qorgen_options() {
    case $1 in
${named((c) => `        "${key(c)}") echo "${c.options.flatMap((o) => o.names).join(" ")}" ;;`)}
    esac
}

_qorgen_value() {
    case $1 in
${values.join("\n")}
    esac
}

_qorgen() {
    local word=\${COMP_WORDS[COMP_CWORD]} previous=\${COMP_WORDS[COMP_CWORD - 1]} command="" above skip=no i known
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ $skip == yes ]]; then
            [[ \${COMP_WORDS[i]} == "=" ]] || skip=no
            continue
        fi
        case \${COMP_WORDS[i]} in
            ${valued.join(" | ")}) skip=yes ;;
            -*) ;;
            *)
                known=" $(_qorgen_commands "$command") "
                [[ $known == *" \${COMP_WORDS[i]} "* ]] && command="\${command:+$command }\${COMP_WORDS[i]}"
                ;;
        esac
    done

    # The shell parts "--option=value" into three words.
    [[ $previous == "=" ]] && previous=\${COMP_WORDS[COMP_CWORD - 2]}
    [[ $word == "=" ]] && word=""
    COMPREPLY=()
    compopt -o filenames 2>/dev/null
    if [[ $skip == yes ]]; then
        above=$command
        while known=$(_qorgen_value "$above:$previous") && [[ -z $known && -n $above ]]; do
            [[ $above == *" "* ]] && above=\${above% *} || above=""
        done
        case $known in
            "words "*) mapfile -t COMPREPLY < <(compgen -W "\${known#words }" -- "$word") ;;
            directory) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
            file) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        esac
    elif [[ $word == -* ]]; then
        known=$(_qorgen_options "")
        above=$command
        while [[ -n $above ]]; do
            known+=" $(_qorgen_options "$above")"
            [[ $above == *" "* ]] && above=\${above% *} || above=""
        done
        mapfile -t COMPREPLY < <(compgen -W "$known" -- "$word" | sort -u)
    elif known=$(_qorgen_commands "$command") && [[ -n $known ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$known" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _qorgen qorgen
`;
}

function zsh(commands) {
    const escape = (text) => text.replaceAll("\\", "\\\\").replace(/[[\]:]/g, "\\$&");
    const action = ({ words, directory, file }) =>
        words ? `(${words.join(" ")})` : directory ? "_files -/" : file ? "_files" : " ";
    const above = (path) => commands.filter((c) => c.path.length <= path.length && c.path.every((word, i) => word === path[i]));
    const specification = (option) => {
        const name = option.names.length > 1 ? `{${option.names.join(",")}}` : option.names[0];
        const value = option.value === "" ? "" : `${option.value.startsWith("[") ? "::" : ":"}${escape(option.value.replace(/^\[|\]$|:.*/g, ""))}:${action(valueOf(option.value, false))}`;
        return `        '*'${name}${quote(`[${escape(option.description)}]${value}`)}`;
    };
    const functionName = (path) => ["_qorgen", ...path].join("_").replaceAll("-", "_");
    const body = (command) => {
        const options = unique(above(command.path).flatMap((c) => c.options).map(specification));
        if (command.commands.length === 0) {
            const files = command.positionals.some((p) => valueOf(p.names[0], true).file) ? ["        '*:file:_files'"] : [];
            return `${functionName(command.path)}() {\n    _arguments -s \\\n${[...options, ...files].join(" \\\n")}\n}`;
        }
        const list = command.commands.map((c) => `        ${quote(`${c.path.at(-1)}:${escape(c.description)}`)}`).join("\n");
        const branches = command.commands.map((c) => `        ${c.path.at(-1)}) ${functionName(c.path)} ;;`).join("\n");
        return `${functionName(command.path)}() {
    local curcontext=$curcontext state line
    local -a commands
    commands=(
${list}
    )
    _arguments -s -C \\
${options.join(" \\\n")} \\
        '1:command:->command' '*::argument:->argument'
    case $state in
        command) _describe command commands ;;
        argument)
            case $line[1] in
${branches.replace(/^/gm, "        ")}
            esac
            ;;
    esac
}`;
    };
    return `#compdef qorgen
# zsh completion for qorgen. ${made}

${commands.toReversed().map(body).join("\n\n")}

_qorgen "$@"
`;
}

function fish(commands) {
    const valued = unique(commands.flatMap((command) => command.options.filter(takesValue).flatMap((option) => option.names)));
    const lines = commands.flatMap((command) => {
        const below = command.path.join(" ");
        const condition = `-n ${quote(`__qorgen_below ${below}`.trim())}`;
        const options = command.options.map((option) => {
            const { words, directory, file } = valueOf(option.value, false);
            const names = option.names.map((name) => (name.startsWith("--") ? `-l ${name.slice(2)}` : `-s ${name.slice(1)}`)).join(" ");
            const value = !takesValue(option) ? "" : words ? ` -x -a ${quote(words.join(" "))}` : directory ? ` -x -a '(__fish_complete_directories)'` : file ? " -r -F" : " -x";
            return `complete -c qorgen ${condition} ${names}${value} -d ${quote(option.description)}`;
        });
        const at = `-n ${quote(`__qorgen_at ${below}`.trim())}`;
        const words = command.commands.map((c) => `complete -c qorgen ${at} -f -a ${c.path.at(-1)} -d ${quote(c.description)}`);
        return [...options, ...words];
    });
    return `# fish completion for qorgen. ${made}

# The words of the command line that name commands, without options and their values.
function __qorgen_words
    set -l skip no
    for word in (commandline -opc)[2..]
        if test $skip = yes
            set skip no
        else if contains -- $word ${valued.join(" ")}
            set skip yes
        else if not string match -q -- '-*' $word
            echo $word
        end
    end
end

# Whether the words begin with these.
function __qorgen_below
    set -l words (__qorgen_words)
    test (count $argv) -eq 0; or string match -q -- "$argv *" "$words "
end

# Whether the words are these and nothing else.
function __qorgen_at
    set -l words (__qorgen_words)
    test "$words" = "$argv"
end

${lines.join("\n")}
`;
}

// ---- ----

const check = process.argv[2] === "--check";
const [qorgen, directory = here] = process.argv.slice(check ? 3 : 2);
if (!qorgen) {
    console.error("usage: make.mjs QORGEN [DIRECTORY] | --check QORGEN");
    process.exit(2);
}
const commands = flatten(readCommand(qorgen, []));
for (const [name, text] of Object.entries({ "qorgen.bash": bash(commands), _qorgen: zsh(commands), "qorgen.fish": fish(commands) })) {
    if (!check) writeFileSync(join(directory, name), text);
    else if (readFileSync(join(here, name), "utf8") !== text) {
        console.error(`packaging/completions/${name} is not what the help of the commands tells; run packaging/completions/make.mjs`);
        process.exitCode = 1;
    }
}
