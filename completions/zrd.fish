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
    zrd (__zrd_command) --help 2>/dev/null | string match -rg '^  (?:-., )?(--[a-z-]+)'
end

# What may follow the option before the cursor: its words, or DIR, FILE and so on; nothing for a flag.
function __zrd_value
    set -l previous (commandline -opc)[-1]
    string match -q -- '-?*' $previous; or return
    zrd (__zrd_command) --help 2>/dev/null |
        string match -rg "^  (?:-., )?$previous(?:, --[a-z-]+)? ([^ ]+)"
end

function __zrd_words
    set -l value (__zrd_value)
    switch "$value"
        case '*|*'
            string split '|' $value
        case NAME
            __zrd_elements
    end
end

# The names of all elements.
function __zrd_elements
    zrd reference 2>/dev/null | string replace -r ':.*' ''
end

# What the command takes besides options, as in "[OPTION]... [NAME]".
function __zrd_usage
    zrd (__zrd_command) --help 2>/dev/null | string match -rg '^Usage: (.*)'
end

function __zrd_plots
    __fish_complete_directories
    path filter -f -- (commandline -ct)*.zrd
end

# __zrd_takes <regular expression>: whether an argument may follow, and is so in the usage.
function __zrd_takes
    test -n "$(__zrd_command)"; and test -z "$(__zrd_value)"; or return
    string match -qr $argv[1] (__zrd_usage)
end

complete -c zrd -f
complete -c zrd -n 'test -z "$(__zrd_command)"' -a '(__zrd_commands)'
complete -c zrd -n 'string match -q -- "-*" (commandline -ct)' -a '(__zrd_options)'
complete -c zrd -n 'test -n "$(__zrd_words)"' -a '(__zrd_words)'
complete -c zrd -n 'string match -q DIR "$(__zrd_value)"' -a '(__fish_complete_directories)'
complete -c zrd -n 'string match -q FILE "$(__zrd_value)"' -F
complete -c zrd -n '__zrd_takes "FILE|PLOT"' -a '(__zrd_plots)'
complete -c zrd -n '__zrd_takes NAME' -a '(__zrd_elements)'
