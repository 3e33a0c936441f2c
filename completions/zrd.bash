# bash completion for zrd(1). What there is to complete is read from the program's own help.

# _zrd_help [<command>]: the help of the program or of one of its commands.
_zrd_help() {
  "$_zrd_program" "$@" --help 2>/dev/null
}

# _zrd_words <word>...: those of the words that go on from the current one.
_zrd_words() {
  mapfile -t COMPREPLY < <(compgen -W "$*" -- "$current")
}

# The folders and the plots that go on from it.
_zrd_plots() {
  compgen -d -- "$current"
  compgen -f -X '!*.zrd' -- "$current"
}

# The names of all elements.
_zrd_elements() {
  "$_zrd_program" reference 2>/dev/null | cut -d : -f 1
}

_zrd() {
  local _zrd_program=$1 current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local value
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    _zrd_words "$(_zrd_help | sed -n -e '/^Commands:/,$s/^  \([a-z]\{1,\}\) .*/\1/p' \
      -e 's/^  .*\(--[a-z-]*\).*/\1/p')"
    return
  fi
  local command=${COMP_WORDS[1]}
  if [[ $previous == -?* ]]; then
    value=$(_zrd_help "$command" | sed -nE "s/^  (-., )?$previous(, --[a-z-]+)? ([^ ]+).*/\3/p")
    case $value in
      *\|*) _zrd_words "${value//|/ }" ;;
      DIR) compopt -o filenames && mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
      FILE) compopt -o filenames && mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
      NAME) _zrd_words "$(_zrd_elements)" ;;
    esac
    [[ -z $value ]] || return
  fi
  if [[ $current == -* ]]; then
    _zrd_words "$(_zrd_help "$command" | sed -nE 's/^  (-., )?(--[a-z-]+).*/\2/p')"
    return
  fi
  case $(_zrd_help "$command" | sed -n 's/^Usage: //p') in
    *\[NAME\]) _zrd_words "$(_zrd_elements)" ;;
    *FILE* | *PLOT*) compopt -o filenames && mapfile -t COMPREPLY < <(_zrd_plots) ;;
  esac
}
complete -F _zrd zrd
