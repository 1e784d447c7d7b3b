#!/bin/sh
# Installs what is missing, builds Rillenkammer and starts it.
set -eu
cd "$(dirname "$0")/.."
tools/abhaengigkeiten.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
ninja -C build rillenkammer
exec build/rillenkammer
