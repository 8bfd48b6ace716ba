#!/usr/bin/env bash
# Writes the manual page of a program from its help and that of its commands:
#
#     manual.sh NAME SUMMARY VERSION PROGRAM...
#
# PROGRAM is the program, with what starts it on another processor before it.
set -euo pipefail
name=$1 summary=$2 version=$3
shift 3

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
printf '.TH %s 1 "" "%s %s"\n.SH NAME\n%s \\- %s\n' "${name^^}" "$name" "$version" "$name" "$summary"
printf '%s\n' "$help" | awk -v heading=".SH SYNOPSIS" "$format" |
    sed "/^\.B $name /a .SH DESCRIPTION"
commands=$(printf '%s\n' "$help" | sed -n '/^Commands:$/,/^$/s/^  \([a-z-]*\)  .*/\1/p')
[ -z "$commands" ] || echo '.SH COMMANDS'
for command in $commands; do
    # A command that this build does not have is left out.
    text=$("$@" "$command" --help </dev/null 2>/dev/null) || continue
    awk -v heading=".SS $command" "$format" <<<"$text"
done
