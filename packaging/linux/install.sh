#!/bin/sh
# SPDX-License-Identifier: MIT
# install.sh [PREFIX]: installs Vexa Orbilo for this user, below ~/.local or the given folder. Needs no root. Over an
# older one it is an upgrade: the settings stay.
set -eu

fail() {
    printf 'install.sh: %s\n' "$1" >&2
    exit 1
}

here=$(CDPATH='' cd -P -- "$(dirname -- "$0")" && pwd)
prefix=${1:-${HOME:?is not set}/.local}
[ -x "$here/lib/VexaOrbilo/VexaOrbilo" ] || fail "no program beside this script"
[ "$(id -u)" != 0 ] || echo "install.sh: installing for root; the program belongs to the user who presents" >&2

case $prefix in
/*) ;;
*) prefix=$PWD/$prefix ;;
esac
case $prefix in
*[\"\`\$\\%=]* | *'
'*) fail "the desktop's files cannot name a folder with these characters: $prefix" ;;
esac
mkdir -p -- "$prefix"
prefix=$(CDPATH='' cd -P -- "$prefix" && pwd)
[ "$prefix" != "$here" ] || fail "$prefix is where the archive lies"

cd "$here"
# Not over a program that runs: the new file takes the name, and the old one goes on until it ends.
find bin lib share -type d -exec sh -c 'for d; do mkdir -p -- "$0/$d"; done' "$prefix" {} +
find bin lib share ! -type d -exec sh -c 'for f; do rm -f -- "$0/$f"; cp -P -- "$f" "$0/$f"; done' "$prefix" {} +
exec "$prefix/lib/VexaOrbilo/register" "$prefix"
