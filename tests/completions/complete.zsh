# Prints what zsh completes of a command line, in a shell on a terminal of its own. Takes the folder of
# the completions, a file for what is found, and the line.
completions=$1 found=$2 line=$3

zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "
  stty -echo
  fpath=(${(q)completions} \$fpath)
  autoload -Uz compinit && compinit -u -D
  compadd() {
    local -a matches
    [[ \${@[(r)-[OAD]]} ]] || { builtin compadd -O matches \"\$@\"; print -rl -- \$matches >>$found }
    builtin compadd \"\$@\"
  }
  end-of-completion() { print END >>$found }
  zle -N end-of-completion
  bindkey '^X' end-of-completion
  print BEGIN >>$found"
wait-for() { until grep -q $1 $found; do zpty -r -t shell >/dev/null || sleep 0.05; done }
wait-for BEGIN
zpty -w -n shell $line$'\t'
zpty -w -n shell $'\x18'
wait-for END
zpty -d shell
