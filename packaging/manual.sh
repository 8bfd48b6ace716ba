#!/usr/bin/env bash
# Writes the manual page of mcusim from the help of its commands:
#
#     manual.sh VERSION MCUSIM...
#
# MCUSIM is the program, with what starts it on another processor before it.
set -euo pipefail
version=$1
shift

# Lines "  name   text" of a list become tagged paragraphs, other indented lines stay as they are.
format='
    function plain(text) {
        sub(/ +$/, "", text)
        gsub(/\\/, "\\e", text)
        gsub(/-/, "\\-", text)
        return text ~ /^[.\047]/ ? "\\&" text : text
    }
    /^Usage: / { print heading; print ".B " plain(substr($0, 8)); next }
    /^(Options|Commands):$/ { inList = 1; next }
    /^Exit status: / { print ".SH EXIT STATUS"; sub(/^Exit status: /, "") }
    /^$/ { inList = 0; print ".PP"; next }
    inList && match($0, /^  ((-h, )?--[a-z-]+( [^ ]+)?|[a-z-]+) +/) {
        print ".TP\n.B " plain(substr($0, 3, RLENGTH - 2)) "\n" plain(substr($0, RLENGTH + 1))
        next
    }
    /^  / { print ".br" }
    { print plain($0) }'

help=$("$@" --help)
printf '.TH MCUSIM 1 "" "mcusim %s"\n.SH NAME\nmcusim \\- simulator of the vehicle MCU\n' "$version"
printf '%s\n' "$help" | awk -v heading=".SH SYNOPSIS" "$format" |
    sed '/^\.B mcusim COMMAND/a .SH DESCRIPTION'
printf '.SH COMMANDS\n'
printf '%s\n' "$help" | sed -n 's/^  \([a-z-]*\)  .*/\1/p' | while read -r command; do
    "$@" "$command" --help </dev/null | awk -v heading=".SS $command" "$format"
done
