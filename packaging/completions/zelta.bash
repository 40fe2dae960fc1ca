# Completion of zelta for bash.

_zelta_words() {
  COMPREPLY=()
  while IFS= read -r word; do
    [[ $word == "$cur"* ]] && COMPREPLY+=("$(printf '%q' "$word")")
  done
}

_zelta_files() {
  compopt -o filenames 2>/dev/null
  local kind
  mapfile -t COMPREPLY < <(
    compgen -d -- "$cur"
    for kind in "$@"; do
      compgen -f -X "!*.$kind" -- "$cur"
    done
  )
}

_zelta() {
  local cur prev command
  local audio=(mp3 m4a m4b mp4 ogg oga opus flac wav)
  cur="${COMP_WORDS[COMP_CWORD]}"
  prev="${COMP_WORDS[COMP_CWORD-1]}"
  command="${COMP_WORDS[1]}"
  case "$prev" in
    --format)
      _zelta_words < <(zelta formats 2>/dev/null | cut -f1)
      return ;;
    --output | --finished | --heard)
      compopt -o filenames -o default 2>/dev/null
      COMPREPLY=()
      return ;;
    --follow)
      _zelta_words < <(printf '%s\n' obs jack osc)
      return ;;
    --listen)
      _zelta_words < <(printf '%s\n' default; pactl list short sources 2>/dev/null | cut -f2)
      return ;;
    --osc-port | --osc-send | --shift | --pattern | --item | --zero)
      COMPREPLY=()
      return ;;
  esac
  if [[ $COMP_CWORD -gt 1 && $command == send ]]; then
    _zelta_words < <(printf '%s\n' toggleRecording newChapter removeChapter removeLastChapter \
      selectPreviousChapter selectNextChapter --osc-port)
  elif [[ $cur == -* ]]; then
    case "$command" in
      export) _zelta_words < <(printf '%s\n' --format --option --pattern --output) ;;
      write) _zelta_words < <(printf '%s\n' --shift --output) ;;
      import) _zelta_words < <(printf '%s\n' --shift --item --add --output) ;;
      fit) _zelta_words < <(printf '%s\n' --finished --heard --zero --output --json) ;;
      show) _zelta_words < <(printf '%s\n' --json --item) ;;
      *) _zelta_words < <(printf '%s\n' --headless --record --new --osc-port --osc-send --follow --listen --help --version) ;;
    esac
  elif [[ $COMP_CWORD -eq 1 ]]; then
    _zelta_files zelta "${audio[@]}"
    local files=("${COMPREPLY[@]}")
    _zelta_words < <(printf '%s\n' send formats export import show write fit)
    COMPREPLY+=("${files[@]}")
  elif [[ $command == import || $command == show || ( $command == write && $COMP_CWORD -gt 2 ) ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  elif [[ $command == export || $command == write ]]; then
    _zelta_files zelta
  else
    _zelta_files zelta "${audio[@]}"
  fi
}
complete -F _zelta zelta
