#!/bin/sh
# SPDX-License-Identifier: MIT
# Starts Vexa Orbilo with every session of this user: writes the autostart entry for the program beside this script.
# Exits with 0 when the entry stands, with another value when it could not be written; the old entry then stays.
set -eu

fail() {
    printf 'setAutoStartOpen.sh: %s\n' "$1" >&2
    exit 1
}

# replace TEXT WHAT BY: TEXT with every WHAT replaced, in $replaced (a substitution would lose line ends).
replace() {
    rest=$1
    replaced=
    while :; do
        case $rest in
        *"$2"*)
            replaced=$replaced${rest%%"$2"*}$3
            rest=${rest#*"$2"}
            ;;
        *) break ;;
        esac
    done
    replaced=$replaced$rest
}

# quote_argument PATH: one argument of a command line, so that no shell or field code touches what is in it.
quote_argument() {
    replaced=$1
    # shellcheck disable=SC1003 # a backslash is meant
    for character in '\' '"' '`' '$'; do
        replace "$replaced" "$character" "\\$character"
    done
    replace "$replaced" '%' '%%'
    replaced="\"$replaced\""
}

# escape_value TEXT: a value as it is written into the entry, where backslash and line ends have escapes.
# shellcheck disable=SC1003
escape_value() {
    replace "$1" '\' '\\'
    replace "$replaced" "$line_end" '\n'
    replace "$replaced" "$tab" '\t'
    replace "$replaced" "$return" '\r'
}

line_end='
'
tab=$(printf '\t')
return=$(printf '\r')

case $0 in
*/*) folder=${0%/*}/ ;;
*) folder=./ ;;
esac
CDPATH='' cd -P -- "$folder" || fail "cannot enter $folder"
program=${PWD%/}/VexaOrbilo
[ -x "$program" ] || fail "no program $program"

# A relative path is to be ignored, as if it were not set.
case ${XDG_CONFIG_HOME:-} in
/*) settings=$XDG_CONFIG_HOME ;;
*) settings=${HOME:?is not set}/.config ;;
esac
autostart=$settings/autostart
entry=$autostart/VexaOrbilo.desktop

escape_value "$program"
try_exec=$replaced
quote_argument "$program"
command=$replaced
case $program in
*[%=]*)
    # The entry's first word names a program, in which sessions neither expect the one nor resolve the other.
    # shellcheck disable=SC2016 # expanded when the session starts
    quote_argument 'exec "$0"'
    command="/bin/sh -c $replaced $command"
    ;;
esac
escape_value "$command"
exec_line=$replaced

mkdir -p -- "$autostart"
# Written beside the entry and put in its place at once: a session that reads it meanwhile never sees half of it.
draft=$(mktemp -- "$autostart/.VexaOrbilo.XXXXXX")
trap 'rm -f -- "$draft"' EXIT
trap 'exit 1' HUP INT TERM
cat >"$draft" <<ENTRY
[Desktop Entry]
Type=Application
Name=Vexa Orbilo
Comment=Companion of the presentation pen
Icon=example.vexa.VexaOrbilo
Exec=$exec_line
TryExec=$try_exec
Terminal=false
StartupNotify=false
ENTRY
chmod 644 -- "$draft"
mv -f -T -- "$draft" "$entry"
