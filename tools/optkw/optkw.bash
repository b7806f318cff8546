# Bash completion of the optkw command: its subcommands, their flags, the
# values of flags that take one of a few words, and files everywhere else.
_optkw() {
  local cur prev command
  cur=${COMP_WORDS[COMP_CWORD]}
  prev=${COMP_WORDS[COMP_CWORD-1]}
  command=${COMP_WORDS[1]}
  if [ "$COMP_CWORD" -eq 1 ]; then
    COMPREPLY=($(compgen -W "check help lint export --help" -- "$cur"))
    return
  fi
  case "$prev" in
    --format)
      case "$command" in
        check) COMPREPLY=($(compgen -W "text json sarif" -- "$cur")) ;;
        lint) COMPREPLY=($(compgen -W "text json" -- "$cur")) ;;
        export) COMPREPLY=($(compgen -W "json markdown rst man c-header json-schema" -- "$cur")) ;;
      esac
      return ;;
    --eol-only)
      COMPREPLY=($(compgen -W "0 1" -- "$cur"))
      return ;;
    -s|-c|--explain|--prefix)
      return ;;
  esac
  if [[ "$cur" == -* ]]; then
    case "$command" in
      check) COMPREPLY=($(compgen -W "-s -c --echo --no-bounds --eol-only --write --format
                                       --locations --explain --changed --help" -- "$cur")) ;;
      lint) COMPREPLY=($(compgen -W "--format --help" -- "$cur")) ;;
      export) COMPREPLY=($(compgen -W "--format --prefix --help" -- "$cur")) ;;
      help) COMPREPLY=($(compgen -W "--help" -- "$cur")) ;;
    esac
    return
  fi
  COMPREPLY=($(compgen -f -- "$cur"))
}
complete -o filenames -F _optkw optkw
