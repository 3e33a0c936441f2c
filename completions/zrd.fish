# fish completion for zrd(1). What there is to complete is read from the program's own help.

function __zrd_commands
    zrd --help 2>/dev/null | string match -rg '^  ([a-z]+)  +(.*)' | paste - -
end

# The command of the line, if there is one yet.
function __zrd_command
    set -l words (commandline -opc)
    test (count $words) -gt 1; and echo $words[2]
end

function __zrd_options
    zrd (__zrd_command) --help 2>/dev/null | string match -rg '^  (?:-.,)?(--[a-z-]+)'
end

# What may follow the option before the cursor: its words, or DIR, FILE and so on; nothing for a flag.
function __zrd_value
    set -l previous (commandline -opc)[-1]
    string match -q -- '-?*' $previous; or return
    zrd (__zrd_command) --help 2>/dev/null |
        string match -rg "^  (?:-.,)?$previous(?:,--[a-z-]+)? ([^ ]+)"
end

function __zrd_words
    __zrd_value | string match -rg ':\{([^}]*)\}' | string split ,
end

function __zrd_plots
    __fish_complete_directories
    path filter -f -- (commandline -ct)*.zrd
end

function __zrd_takes_plot
    test -n "$(__zrd_command)"; and test -z "$(__zrd_value)"
end

complete -c zrd -f
complete -c zrd -n 'test -z "$(__zrd_command)"' -a '(__zrd_commands)'
complete -c zrd -n 'string match -q -- "-*" (commandline -ct)' -a '(__zrd_options)'
complete -c zrd -n 'test -n "$(__zrd_words)"' -a '(__zrd_words)'
complete -c zrd -n 'string match -q "DIR*" "$(__zrd_value)"' -a '(__fish_complete_directories)'
complete -c zrd -n 'string match -q "FILE*" "$(__zrd_value)"' -F
complete -c zrd -n __zrd_takes_plot -a '(__zrd_plots)'
