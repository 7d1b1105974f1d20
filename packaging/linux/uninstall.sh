#!/bin/sh
# SPDX-License-Identifier: MIT
# uninstall.sh [PREFIX]: ends and removes the Vexa Orbilo that is installed below ~/.local or the given folder, with its
# settings, its caches and its start at login. Screenshots stay.
set -eu

prefix=$(CDPATH='' cd -P -- "${1:-${HOME:?is not set}/.local}" && pwd)
folder=$prefix/lib/VexaOrbilo
name=example.vexa.VexaOrbilo
[ -e "$folder/VexaOrbilo" ] || {
    printf 'uninstall.sh: no Vexa Orbilo in %s\n' "$folder" >&2
    exit 1
}
absolute() { case $1 in /*) printf '%s' "$1" ;; *) printf '%s' "$2" ;; esac; } # a relative one is to be ignored
config=$(absolute "${XDG_CONFIG_HOME:-}" "$HOME/.config")
cache=$(absolute "${XDG_CACHE_HOME:-}" "$HOME/.cache")

# The running one would save its settings once more.
running() {
    for process in /proc/[0-9]*; do
        [ "$(readlink "$process/exe" 2>/dev/null)" != "$folder/VexaOrbilo" ] || printf '%s\n' "${process#/proc/}"
    done
}
for process in $(running); do
    kill "$process" 2>/dev/null || true
done
tries=50
while [ -n "$(running)" ]; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || {
        echo "uninstall.sh: the program does not end; close it and try again" >&2
        exit 1
    }
    sleep 0.2
done

entry=$config/autostart/VexaOrbilo.desktop
if grep -qsF "$folder/VexaOrbilo" "$entry"; then
    rm -f -- "$entry"
fi
rm -rf -- "$folder" "$cache/VexaOrbilo"
for command in VexaOrbilo pen-simulator; do
    rm -f -- "$prefix/bin/$command" "$prefix/share/man/man1/$command.1"
done
rm -f -- "$prefix/share/applications/$name.desktop" "$prefix/share/dbus-1/services/$name.service" \
    "$prefix/share/metainfo/$name.metainfo.xml" "$prefix/share/doc/VexaOrbilo/LICENSE"
for icon in "$prefix"/share/icons/hicolor/*/apps/"$name".*; do
    rm -f -- "$icon"
done

# The folders that nothing is in any more, but never the home folder itself.
tidy() {
    dir=$1
    while [ "$dir" != "$HOME" ] && [ "$dir" != / ] && rmdir -- "$dir" 2>/dev/null; do
        dir=$(dirname -- "$dir")
    done
}
for inner in bin lib share/man/man1 share/applications share/dbus-1/services share/metainfo share/doc/VexaOrbilo; do
    tidy "$prefix/$inner"
done
for inner in "$prefix"/share/icons/hicolor/*/apps "$config/autostart" "$cache"; do
    tidy "$inner"
done
echo "Vexa Orbilo is uninstalled; screenshots are left where they are."
