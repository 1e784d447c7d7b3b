#!/bin/sh
# Installs the Debian 12 packages that Rillenkammer needs to build, run and test,
# but only those that are missing. Uses sudo when not run as root.
set -eu

# The sound paths play through GStreamer; each format of a collection needs its set:
# base Ogg, Vorbis, Opus; good WAV, FLAC, MP3, Matroska, MP4/M4A; bad MPEG-TS (M2TS) and
# the H.264 parser; ugly ASF (WMA, WMV); libav the decoders of WMA, WMV, H.264, AAC, AC-3.
# GIF covers are written with giflib; scanning goes through SANE's scanimage.
# Reading aloud goes through Qt's speech plugin to the speech daemon, which speaks with espeak-ng.
# Attachments and web links open with the desktop's associated program through xdg-open.
PAKETE="build-essential cmake ninja-build pkg-config
qt6-base-dev libqt6sql6-sqlite qt6-multimedia-dev qt6-svg-dev qt6-speech-dev qt6-declarative-dev
qt6-translations-l10n libxkbcommon-dev libsqlite3-dev libavformat-dev libgif-dev sane-utils
gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-bad
gstreamer1.0-plugins-ugly gstreamer1.0-libav
qt6-speech-speechd-plugin speech-dispatcher speech-dispatcher-espeak-ng espeak-ng xdg-utils xvfb xauth"
# The tests read printed PDFs back with poppler and render the web pages with headless Chromium.
if [ "${1:-}" = "--tests" ]; then
    PAKETE="$PAKETE imagemagick poppler-utils ffmpeg sox sqlite3 desktop-file-utils appstream chromium"
fi

FEHLT=""
for p in $PAKETE; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        FEHLT="$FEHLT $p"
    fi
done
[ -z "$FEHLT" ] && exit 0

ALS_ROOT=""
[ "$(id -u)" -ne 0 ] && ALS_ROOT="sudo"
echo "Installiere:$FEHLT"
$ALS_ROOT apt-get update -qq
DEBIAN_FRONTEND=noninteractive $ALS_ROOT apt-get install -y -qq --no-install-recommends $FEHLT
