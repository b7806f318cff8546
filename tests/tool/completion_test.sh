#!/usr/bin/env bash
# The bash completion of optkw completes subcommands, flags and flag values,
# and knows every subcommand, flag and flag value that the tool's own --help
# lists, so that neither drifts from the other.
# Usage: completion_test.sh optkw.bash OPTKW
set -u
source "$1"
tool=$2
complete -p optkw >/dev/null || { echo "no completion for optkw"; exit 1; }
sorted() { printf '%s\n' "$@" | sort | tr '\n' ' ' | sed 's/^ *//; s/ *$//'; }
complete_words() {  # the words typed so far, the last one being completed
  COMP_WORDS=("$@")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _optkw
  sorted "${COMPREPLY[@]}"
}
failures=0
expect() {
  local got
  got=$(complete_words "${@:2}")
  if [ "$got" != "$1" ]; then
    echo "completing '${*:2}': got '$got', expected '$1'"
    failures=$((failures + 1))
  fi
}

expect "check" optkw ch
expect "help" optkw he
expect "json json-schema" optkw export k.def --format js
expect "--locations" optkw check k.def --lo
expect "--prefix" optkw export k.def --pr

# What the tool's help lists: subcommands, each one's flags, and the values
# of flags that take one of a few words ("--format TEXT:{text,json}").
commands=$("$tool" --help | sed -n '/^Subcommands:/,/^$/p' | awk 'NR > 1 && NF {print $1}')
expect "$(sorted $commands --help)" optkw ""
for command in $commands; do
  help=$("$tool" "$command" --help | sed -n '/^Options:/,/^$/p')
  flags=$(grep -oE '^  [-,a-z]+' <<<"$help" | tr ',' ' ' | sed 's/ -h / /')  # -h: --help
  expect "$(sorted $flags)" optkw "$command" k.def -
  while read -r flag values; do
    expect "$(sorted ${values//,/ })" optkw "$command" k.def "$flag" ""
  done < <(sed -nE 's/^  (-[-a-z]+) [A-Z]+:\{([^}]*)\}.*/\1 \2/p' <<<"$help")
done
exit $((failures != 0))
