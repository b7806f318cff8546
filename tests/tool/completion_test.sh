#!/usr/bin/env bash
# The bash completion of optkw completes subcommands, flags and flag values.
# Usage: completion_test.sh optkw.bash
set -u
source "$1"
complete -p optkw >/dev/null || { echo "no completion for optkw"; exit 1; }
complete_words() {  # the words typed so far, the last one being completed
  COMP_WORDS=("$@")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _optkw
  echo "${COMPREPLY[*]}"
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
expect "json markdown c-header json-schema" optkw export k.def --format ""
expect "json json-schema" optkw export k.def --format js
expect "text json sarif" optkw check k.def --format ""
expect "--locations" optkw check k.def --lo
expect "--prefix" optkw export k.def --pr
exit $((failures != 0))
