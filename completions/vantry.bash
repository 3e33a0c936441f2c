# bash completion for vantry(1)

_vantry() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  COMPREPLY=()
  case $previous in
    -t | -f) return ;;
    -o)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return
      ;;
  esac
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W '-d -f -h -o -t -v' -- "$current")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X '!*.zrd' -- "$current")
  fi
}
complete -F _vantry vantry
