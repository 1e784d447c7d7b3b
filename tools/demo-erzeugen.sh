#!/bin/bash
# Makes the media of the demo collection: a few seconds of melody per track, one video,
# one picture and the covers, all of our own making. Needs sox, ffmpeg and ImageMagick.
# Writes resources/demo/Musik and resources/demo/Bilder anew; the catalogue texts lie in
# resources/demo/Katalog.json and are written by hand.
set -euo pipefail
cd "$(dirname "$0")/.."
for werkzeug in sox ffmpeg convert; do
    command -v "$werkzeug" >/dev/null || { echo "$werkzeug fehlt" >&2; exit 1; }
done

ZIEL=resources/demo
# Synthesis runs at 44.1 kHz (the plucked string needs it); the files keep 22.05 kHz mono.
RATE=44100
AUSGABE_RATE=22050
TMP=$(mktemp -d)
trap 'rm -rf "$TMP"' EXIT
rm -rf "$ZIEL/Musik" "$ZIEL/Bilder"
mkdir -p "$ZIEL/Musik" "$ZIEL/Bilder"

rechne() { awk "BEGIN { printf \"%.4f\", $1 }"; }

# stimme DATEI SEKUNDEN INSTRUMENT NOTE[+NOTE...]: one note or chord, with a soft
# envelope; the plucked string brings its own.
stimme() {
    local datei=$1 d=$2 instrument=$3 toene=$4 synth="" n=0 t huelle
    if [ "$toene" = "-" ]; then
        sox -R -r $RATE -c 1 -n -b 16 "$datei" trim 0 "$d"
        return
    fi
    for t in $(echo "$toene" | tr '+' ' '); do
        synth="$synth $instrument $t"
        n=$((n + 1))
    done
    case $instrument in
        pluck) huelle="fade q 0.005 $d $(rechne "$d * 0.3")" ;;
        # Square and sawtooth are harsh on their own; a low-pass makes reed and brass of them.
        square | sawtooth) huelle="gain -6 lowpass 1600 fade q 0.02 $d $(rechne "$d * 0.5")" ;;
        *) huelle="fade q 0.02 $d $(rechne "$d * 0.6")" ;;
    esac
    # shellcheck disable=SC2086
    sox -R -r $RATE -c $n -n -b 16 "$datei" synth "$d" $synth remix - $huelle vol 0.5
}

# spur DATEI SCHLAG INSTRUMENT "NOTE:SCHLAEGE ..." [BEGLEITINSTRUMENT "AKKORD:SCHLAEGE ..."]
# A melody over chords, mixed, with a little room, as a WAV.
spur() {
    local aus=$1 schlag=$2 instrument=$3 noten=$4 begleitung=${5:-} akkorde=${6:-}
    local teile="" i=0 n a
    for n in $noten; do
        stimme "$TMP/m$i.wav" "$(rechne "$schlag * ${n#*:}")" "$instrument" "${n%:*}"
        teile="$teile $TMP/m$i.wav"
        i=$((i + 1))
    done
    # shellcheck disable=SC2086
    sox -R $teile "$TMP/melodie.wav"
    if [ -n "$akkorde" ]; then
        teile="" i=0
        for a in $akkorde; do
            stimme "$TMP/b$i.wav" "$(rechne "$schlag * ${a#*:}")" "$begleitung" "${a%:*}"
            teile="$teile $TMP/b$i.wav"
            i=$((i + 1))
        done
        # shellcheck disable=SC2086
        sox -R $teile "$TMP/begleitung.wav"
        sox -R -m -v 1.0 "$TMP/melodie.wav" -v 0.6 "$TMP/begleitung.wav" "$TMP/roh.wav"
    else
        cp "$TMP/melodie.wav" "$TMP/roh.wav"
    fi
    sox -R "$TMP/roh.wav" "$aus" gain -8 reverb 35 50 60 norm -3 fade q 0.01 "$(soxi -D "$TMP/roh.wav")" 0.4
}

# ablegen WAV ZIELDATEI BAND ALBUM TITEL: encodes by the extension, with tags.
ablegen() {
    local codec
    case "$2" in
        *.mp3) codec="-c:a libmp3lame -b:a 64k" ;;
        *.ogg) codec="-c:a libvorbis -q:a 2" ;;
        *.flac) codec="-c:a flac -compression_level 12" ;;
        *.wav) codec="-c:a pcm_s16le" ;;
        *.wma) codec="-c:a wmav2 -b:a 64k" ;;
    esac
    # shellcheck disable=SC2086
    ffmpeg -v error -y -i "$1" -ac 1 -ar $AUSGABE_RATE $codec -map_metadata -1 -fflags +bitexact -flags:a +bitexact \
        -metadata artist="$3" -metadata album="$4" -metadata title="$5" "$2"
}

# lied BAND ALBUM DATEI TITEL SCHLAG INSTRUMENT NOTEN [BEGLEITINSTRUMENT AKKORDE]
lied() {
    local band=$1 album=$2 datei=$3 titel=$4
    shift 4
    mkdir -p "$ZIEL/Musik/$band - $album"
    spur "$TMP/lied.wav" "$@"
    ablegen "$TMP/lied.wav" "$ZIEL/Musik/$band - $album/$datei" "$band" "$album" "$titel"
}

# cover BAND ALBUM FARBE1 FARBE2 ETIKETT: a record in front of a gradient, band above,
# title below.
cover() {
    convert -size 300x300 gradient:"$3"-"$4" \
        -fill "#141414" -draw "circle 150,160 150,62" \
        -fill none -stroke "#2c2c2c" -strokewidth 2 \
        -draw "circle 150,160 150,72" -draw "circle 150,160 150,84" -draw "circle 150,160 150,96" \
        -draw "circle 150,160 150,108" \
        -stroke none -fill "$5" -draw "circle 150,160 150,126" \
        -fill "#141414" -draw "circle 150,160 150,157" \
        -fill "#00000059" -draw "rectangle 0,0 300,58" -draw "rectangle 0,258 300,300" \
        \( -size 280x44 -background none -fill white -font DejaVu-Sans-Bold -gravity center caption:"$1" \) \
        -gravity north -geometry +0+8 -composite \
        \( -size 280x34 -background none -fill white -font DejaVu-Serif-Italic -gravity center caption:"$2" \) \
        -gravity south -geometry +0+8 -composite \
        -dither FloydSteinberg -colors 64 -strip PNG8:"$ZIEL/Bilder/$1 - $2.png"
}

# --- Die Kieselsteine: plucked guitars in A minor
B="Die Kieselsteine" A="Ebbe und Flut"
lied "$B" "$A" "Ebbe - 5.ogg" "Ebbe" 0.28 pluck \
    "A3:1 C4:1 E4:1 A4:2 G4:1 E4:2 D4:1 C4:1 D4:1 E4:3 -:1 C4:1 B3:1 A3:4" \
    pluck "A2+E3+A3:4 F2+C3+F3:4 G2+D3+G3:4 A2+E3+A3:6"
lied "$B" "$A" "Flut - 4.ogg" "Flut" 0.25 pluck \
    "E4:1 E4:1 G4:1 A4:2 C5:2 B4:1 A4:1 G4:2 E4:2 -:1 D4:1 E4:1 G4:1 A4:6" \
    pluck "A2+E3:4 C3+G3:4 G2+D3:4 A2+E3:9"
lied "$B" "$A" "Möwengeschrei.ogg" "Möwengeschrei" 0.22 pluck \
    "E5:1 D5:1 C5:1 A4:2 -:1 E5:1 D5:1 C5:1 G4:2 -:1 A4:1 C5:1 E5:2 A5:4" \
    sine "A2:6 F2:6 A2:6"
cover "$B" "$A" "#1f4e79" "#9cc3e6" "#f2c14e"

# --- Quartett Übersee: vibraphone over seventh chords
B="Quartett Übersee" A="Abendröte"
lied "$B" "$A" "Abendröte - 6.flac" "Abendröte" 0.32 sine \
    "E4:1 G4:1 B4:1 D5:3 C5:1 A4:1 F4:1 E4:3 -:1 D4:1 F4:1 A4:1 C5:4" \
    triangle "D3+F3+A3+C4:6 G2+F3+B3+D4:6 C3+E3+G3+B3:6"
lied "$B" "$A" "Laternenlicht - 5.flac" "Laternenlicht" 0.3 sine \
    "A4:1 G4:1 E4:1 D4:1 C4:2 E4:1 G4:1 B4:3 A4:1 G4:5" \
    triangle "F3+A3+C4+E4:6 E3+G3+B3+D4:6 A2+C4+E4+G4:6"
cover "$B" "$A" "#5b1a2e" "#f08a4b" "#2e4a7d"

# --- Paper Lantern Parade: a bright triangle lead
B="Paper Lantern Parade" A="Midnight Tram"
lied "$B" "$A" "Midnight Tram - 4.mp3" "Midnight Tram" 0.24 triangle \
    "G4:1 G4:1 B4:1 D5:2 B4:1 C5:2 A4:2 -:1 A4:1 C5:1 E5:2 D5:1 B4:1 G4:4" \
    pluck "G2+D3+G3:4 C3+G3+C4:4 D3+A3+D4:4 G2+D3+G3:6"
lied "$B" "$A" "Streetlights - 3.mp3" "Streetlights" 0.26 triangle \
    "C5:1 B4:1 A4:1 G4:2 E4:2 F4:1 G4:1 A4:4 -:1 G4:1 E4:1 C4:4" \
    pluck "F2+C3+F3:4 C3+G3+C4:4 F2+C3+F3:4 C3+G3+C4:4"
lied "$B" "$A" "Last Stop.wma" "Last Stop" 0.3 triangle \
    "E4:2 D4:1 C4:1 D4:2 G3:2 C4:1 D4:1 E4:1 G4:1 C5:4" \
    sine "C3+G3:6 G2+D3:4 C3+G3:5"
cover "$B" "$A" "#101935" "#3a506b" "#ffb703"

# --- Hannelore und die Häkelnadeln: a squeezebox polka
B="Hannelore und die Häkelnadeln" A="Sommer im Schrebergarten"
lied "$B" "$A" "Gartenzwerg-Polka - 3.wav" "Gartenzwerg-Polka" 0.2 square \
    "C5:1 G4:1 E4:1 G4:1 C5:1 G4:1 E4:1 G4:1 D5:1 B4:1 G4:1 B4:1 C5:4" \
    sine "C3:2 G3:2 C3:2 G3:2 G2:2 D3:2 C3:4"
lied "$B" "$A" "Schrebergarten.wav" "Schrebergarten" 0.25 square \
    "F4:1 A4:1 C5:2 A4:1 F4:1 G4:2 E4:1 C4:1 F4:4" \
    sine "F2:2 C3:2 F2:2 C3:2 C3:2 F2:4"
cover "$B" "$A" "#2d6a4f" "#b7e4c7" "#e63946"

# --- Whistling Kettles: fiddle-ish sines over a plucked guitar
B="Whistling Kettles" A="Tea for Three"
lied "$B" "$A" "Tea for Three - 4.mp3" "Tea for Three" 0.22 sine \
    "D5:1 B4:1 A4:1 G4:1 A4:1 B4:1 D5:2 E5:1 D5:1 B4:1 G4:1 A4:4 -:1 G4:5" \
    pluck "G2+D3+G3:4 C3+G3+C4:4 D3+A3+D4:4 G2+D3+G3:7"
lied "$B" "$A" "Kettle Jig - 5.ogg" "Kettle Jig" 0.16 sine \
    "D4:1 F#4:1 A4:1 D5:1 A4:1 F#4:1 G4:1 B4:1 D5:1 G5:1 D5:1 B4:1 A4:1 C#5:1 E5:1 A5:2 -:1 D5:4" \
    pluck "D3+A3+D4:6 G2+D3+G3:6 A2+E3+A3:5 D3+A3+D4:4"
lied "$B" "$A" "Morning Fog.mp3" "Morning Fog" 0.34 sine \
    "E4:2 G4:1 A4:1 B4:3 A4:1 G4:2 E4:2 D4:6" \
    triangle "E3+B3:6 C3+G3:4 D3+A3:7"
cover "$B" "$A" "#6f4518" "#ffe8d6" "#cb997e"

# --- Blaskapelle Unterbrösel: brass from a filtered sawtooth
B="Blaskapelle Unterbrösel" A="Marschmusik zum Frühstück"
lied "$B" "$A" "Frühstücksmarsch - 2.mp3" "Frühstücksmarsch" 0.22 sawtooth \
    "C4:1 E4:1 G4:1 C5:2 G4:1 E4:1 G4:1 F4:1 A4:1 C5:2 A4:1 F4:1 G4:1 B4:1 D5:2 C5:4" \
    triangle "C3:2 G2:2 C3:2 G2:2 F2:2 C3:2 G2:2 D3:2 C3:4"
lied "$B" "$A" "Tuba-Walzer - 3.mp3" "Tuba-Walzer" 0.26 sawtooth \
    "G4:3 B4:3 D5:3 C5:2 B4:1 A4:3 G4:3 -:3" \
    triangle "G2:1 D3+G3+B3:1 D3+G3+B3:1 G2:1 D3+G3+B3:1 D3+G3+B3:1 D2:1 D3+F#3+A3:1 D3+F#3+A3:1 G2:1 D3+G3+B3:1 D3+G3+B3:1 G2:6"
cover "$B" "$A" "#7f5539" "#ede0d4" "#ffd60a"

# --- Neon Fjord: square arpeggios, the video and a stage picture
B="Neon Fjord" A="Modular Mornings"
lied "$B" "$A" "Polarlicht - 4.ogg" "Polarlicht" 0.14 square \
    "A3:1 C4:1 E4:1 A4:1 E4:1 C4:1 F3:1 A3:1 C4:1 F4:1 C4:1 A3:1 G3:1 B3:1 D4:1 G4:1 D4:1 B3:1 A3:6" \
    sine "A2+E3:6 F2+C3:6 G2+D3:6 A2+E3:6"
lied "$B" "$A" "Fjordlicht.flac" "Fjordlicht" 0.3 sine \
    "E5:2 B4:2 G4:2 E4:2 F#4:2 G4:1 A4:1 B4:4" \
    square "E2:8 D2:4 E2:6"
spur "$TMP/video.wav" 0.125 square \
    "C4:1 E4:1 G4:1 C5:1 G4:1 E4:1 D4:1 F4:1 A4:1 D5:1 A4:1 F4:1 E4:1 G4:1 B4:1 E5:1 C5:8" \
    sine "C3+G3:6 D3+A3:6 E3+B3:4 C3+G3:8"
ffmpeg -v error -y -f lavfi -i "gradients=s=320x240:r=15:d=3:c0=0x0b132b:c1=0x1c7c7d:c2=0x5bc0be:c3=0xf6ae2d:speed=0.04:seed=7" \
    -i "$TMP/video.wav" -t 3 \
    -vf "drawtext=fontfile=/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf:text=Oszillator:fontcolor=white:fontsize=34:x=(w-text_w)/2:y=(h-text_h)/2-10+8*sin(t*4)" \
    -c:v libx264 -preset veryslow -crf 30 -profile:v baseline -pix_fmt yuv420p \
    -c:a aac -b:a 48k -ac 1 -map_metadata -1 -fflags +bitexact -movflags +faststart \
    -metadata artist="$B" -metadata album="$A" -metadata title="Oszillator" \
    "$ZIEL/Musik/$B - $A/Oszillator - 5.mp4"
convert -size 320x240 radial-gradient:"#ffe8a3"-"#150b2e" \
    -fill "#05030d" -draw "rectangle 0,190 320,240" \
    -draw "ellipse 110,178 16,30 0,360" -draw "circle 110,138 110,124" \
    -draw "ellipse 210,178 16,30 0,360" -draw "circle 210,138 210,124" \
    -fill "#3a2f5c" -draw "rectangle 146,150 174,190" \
    -font DejaVu-Sans-Bold -pointsize 16 -fill "#ffe8a3" -gravity north -annotate +0+10 "Neon Fjord live" \
    -quality 80 -strip "$ZIEL/Musik/$B - $A/Bühnenfoto.jpg"
cover "$B" "$A" "#240046" "#ff6d00" "#00f5d4"

# --- Mäuseklavier: a music box
B="Mäuseklavier" A="Kinderlieder für Regentage"
lied "$B" "$A" "Regentropfen - 6.ogg" "Regentropfen" 0.2 sine \
    "G5:1 E5:1 G5:1 E5:1 C5:1 D5:1 E5:2 D5:1 C5:1 D5:1 E5:1 C5:4" \
    sine "C4+E4:4 G3+D4:4 C4+E4:4 G3+C4:4"
lied "$B" "$A" "Pfützenhüpfer - 5.mp3" "Pfützenhüpfer" 0.18 triangle \
    "C5:1 C5:1 G5:2 G5:1 A5:1 G5:2 F5:1 F5:1 E5:2 D5:1 D5:1 C5:4" \
    pluck "C3+G3:4 E3+C4:4 F3+C4:4 G3+D4:2 C3+G3:4"
lied "$B" "$A" "Schlaflied.ogg" "Schlaflied" 0.36 sine \
    "E5:2 G5:1 E5:3 C5:2 D5:1 E5:1 D5:4 -:1 C5:5" \
    sine "C4+G4:6 G3+D4:6 C4+G4:6"
cover "$B" "$A" "#48cae4" "#caf0f8" "#ff8fab"

du -sb "$ZIEL/Musik" "$ZIEL/Bilder"
