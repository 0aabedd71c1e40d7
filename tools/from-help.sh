#!/usr/bin/env bash
# Makes a program's man page, or its completion for bash, of what the program says of itself.
set -euo pipefail
if [ "${1-}" = --help ] || [ $# -ne 2 ] || ! [[ $1 = man || $1 = completion ]]; then
  cat <<'HELP'
usage: tools/from-help.sh man|completion PROGRAM

Writes to standard output what PROGRAM's --help and --version make: a page for man, or a completion for bash. Of the help
it is taken that the usage comes first, then a sentence on what the program does; lines that begin with two blanks are
taken as they stand, and "exit:" begins the exit codes. A word in capitals behind an option is its value.
HELP
  [ "${1-}" = --help ] && exit 0 || exit 2
fi
help=$("$2" --help)
name=${2##*/}

man_page() {
  local version
  version=$("$2" --version)
  # The page's date would be the day of its making: it bears none.
  awk -v name="$name" -v version="${version#* }" '
    function safe(text) { gsub(/\\/, "\\e", text); gsub(/-/, "\\-", text); sub(/^[.'"'"']/, "\\\\\\&&", text); return text }
    function endBlock() { if (block) { print ".fi\n.RE"; block = 0 } }
    { lines[++count] = $0 }
    END {
      for (first = 1; first <= count && lines[first] != ""; ++first) { }
      for (i = first + 1; i <= count && lines[i] != ""; ++i) told = told (told ? " " : "") lines[i]
      sub(/[.:].*/, "", told)
      printf ".TH %s 1 \"\" \"DoctorZELVO %s\" \"User Commands\"\n", toupper(safe(name)), version
      printf ".SH NAME\n%s \\- %s\n.SH SYNOPSIS\n.nf\n", safe(name), safe(tolower(substr(told, 1, 1)) substr(told, 2))
      for (i = 1; i < first; ++i) { sub(/^usage: |^       /, "", lines[i]); print safe(lines[i]) }
      print ".fi\n.SH DESCRIPTION"
      for (i = first + 1; i <= count; ++i) {
        line = lines[i]
        if (sub(/^exit: /, "", line)) { endBlock(); print ".SH EXIT STATUS" }
        if (line == "") { endBlock(); print ".PP"; continue }
        if (line ~ /^  / && !block) { print ".RS 2\n.nf"; block = 1 }
        if (line !~ /^  /) { if (block) endBlock(); else if (lines[i - 1] != "" && line ~ /^with /) print ".br" }
        sub(/^  /, "", line)
        print safe(line)
      }
      endBlock()
      print ".SH SEE ALSO"
      split("zelvo zelvo-chart zelvo-demo zelvo-pharmacy", others, " ")
      for (i = 1; i <= 4; ++i) if (others[i] != name) text = text (text ? ",\n" : "") ".BR " safe(others[i]) " (1)"
      gsub(/\(1\),/, "(1),", text)
      print text
    }' <<<"$help"
}

completion() {
  local options files valued words
  options=$(grep -oE -- '--[a-z-]+' <<<"$help" | sort -u | tr '\n' ' ')
  files=$({ grep -oE -- '--[a-z-]+ FILE' <<<"$help" || true; } | cut -d' ' -f1 | sort -u | paste -sd'|')
  valued=$({ grep -oE -- '--[a-z-]+ [A-Z]+' <<<"$help" || true; } | cut -d' ' -f1 | sort -u | paste -sd'|')
  # The first word: what the usage names in small letters, and the commands that stand behind two blanks.
  words=$({ sed -n '/^$/q; s/^\(usage:\|      \) [^ ]* \(\[--[a-z]*\] \)\?//p' <<<"$help" | grep -oE '^\[?[a-z]+(\|[a-z]+)*' | tr -d '[' | tr '|' '\n'
           sed -nE 's/^  ([a-z]+) .*/\1/p' <<<"$help"; } | sort -u | tr '\n' ' ')
  cat <<TEXT
# Completion of $name for bash, made of its --help.
_${name//-/_}() {
  local word=\${COMP_WORDS[COMP_CWORD]} before=\${COMP_WORDS[COMP_CWORD - 1]} words="$words" said option=
  case "\$before" in
    ${files:--}) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "\$word"); return ;;
    ${valued:--}) return ;;
  esac
  for said in "\${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    # What stands behind an option is its value, whatever it reads like.
    case "\$option" in ${valued:--}) option=; continue ;; esac
    option=\$said
    [[ " \$words" = *" \$said "* ]] && words=
  done
  mapfile -t COMPREPLY < <(compgen -W "\$words$options" -- "\$word")
}
complete -F _${name//-/_} $name
TEXT
}

case "$1" in
  man) man_page "$@" ;;
  completion) completion "$@" ;;
esac
