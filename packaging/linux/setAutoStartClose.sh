#!/bin/sh
# SPDX-License-Identifier: MIT
# Stops starting Vexa Orbilo with the sessions of this user: removes the autostart entry.
# Exits with 0 when there is none any more, with another value when it could not be removed.
set -eu

case ${XDG_CONFIG_HOME:-} in
/*) settings=$XDG_CONFIG_HOME ;;
*) settings=${HOME:?is not set}/.config ;;
esac
rm -f -- "$settings/autostart/VexaOrbilo.desktop"
