# bash completion for zrd(1). What there is to complete is read from the program's own help.

# _zrd_help [<command>]: the help of the program or of one of its commands.
_zrd_help() {
  "$_zrd_program" "$@" --help 2>/dev/null
}

_zrd() {
  local _zrd_program=$1 current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local choices
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    choices=$(_zrd_help | sed -n -e '/^Subcommands:/,$s/^  \([a-z]\{1,\}\) .*/\1/p' \
      -e 's/^  .*\(--[a-z-]*\).*/\1/p')
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
    return
  fi
  local command=${COMP_WORDS[1]}
  if [[ $previous == -?* ]]; then
    choices=$(_zrd_help "$command" | sed -nE "s/^  (-.,)?$previous(,--[a-z-]+)? ([^ ]*).*/\3/p")
    case $choices in
      *:\{*\}*)
        choices=${choices#*:\{}
        choices=${choices%%\}*}
        mapfile -t COMPREPLY < <(compgen -W "${choices//,/ }" -- "$current")
        return
        ;;
      DIR*)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
      FILE*)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
        ;;
      ?*) return ;;
    esac
  fi
  if [[ $current == -* ]]; then
    choices=$(_zrd_help "$command" | sed -n 's/^  \(-.,\)\{0,1\}\(--[a-z-]*\).*/\2/p')
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X '!*.zrd' -- "$current")
  fi
}
complete -F _zrd zrd
