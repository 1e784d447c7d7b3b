#!/bin/sh
# Installs what is missing, builds everything and runs all tests headless.
set -eu
cd "$(dirname "$0")/.."
tools/abhaengigkeiten.sh --tests
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
ninja -C build
cd build
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j2
