#!/bin/sh
# Installs what is missing, builds Rillenkammer and starts it.
set -eu
cd "$(dirname "$0")/.."
tools/abhaengigkeiten.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
ninja -C build rillenkammer
# The installer's part: a user without settings gets the demo collection at the first
# start. The step checks the settings itself as well; it never touches a user who has them.
KONFIG="${XDG_CONFIG_HOME:-}"
case "$KONFIG" in /*) ;; *) KONFIG="$HOME/.config" ;; esac
if [ ! -e "$KONFIG/Rillenkammer/Rillenkammer.ini" ]; then
    ninja -C build demo-einrichten
    build/demo-einrichten || echo "Die Demo-Sammlung konnte nicht eingerichtet werden." >&2
fi
exec build/rillenkammer
