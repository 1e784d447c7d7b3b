#!/usr/bin/env python3
"""Writes resources/programmordner/Blues.wav: twelve bars of a shuffle blues in E,
a plucked walking bass under short chord stabs, made from nothing but arithmetic."""
import math
import random
import struct
import wave

RATE = 11025
TEMPO = 132  # quarter notes a minute
random.seed(12)

def pluck(freq, seconds, volume):
    """A plucked string (Karplus-Strong)."""
    n = int(RATE * seconds)
    period = max(2, int(RATE / freq))
    buf = [random.uniform(-1, 1) for _ in range(period)]
    out = []
    for i in range(n):
        v = buf[i % period]
        nxt = buf[(i + 1) % period]
        buf[i % period] = 0.996 * 0.5 * (v + nxt)
        out.append(v * volume)
    return out

def note(name_semitones):
    return 82.41 * 2 ** (name_semitones / 12)  # from low E

beat = 60 / TEMPO
swing_long, swing_short = beat * 2 / 3, beat / 3
# Twelve bars: I I I I IV IV I I V IV I V (in semitones above E)
bars = [0, 0, 0, 0, 5, 5, 0, 0, 7, 5, 0, 7]
walk = [0, 4, 7, 9, 10, 9, 7, 4]  # the boogie figure, eighth notes
length = int(RATE * beat * 4 * len(bars)) + RATE
mix = [0.0] * length
t = 0.0
for root in bars:
    for k, step in enumerate(walk):
        dur = swing_long if k % 2 == 0 else swing_short
        start = int(t * RATE)
        for i, s in enumerate(pluck(note(root + step), dur * 1.6, 0.5)):
            if start + i < length:
                mix[start + i] += s
        if k in (1, 5):  # chord stab on the off-beat: third, fifth and seventh an octave up
            for iv in (16, 19, 22):
                for i, s in enumerate(pluck(note(root + iv), 0.25, 0.12)):
                    if start + i < length:
                        mix[start + i] += s
        t += dur
# The last chord rings out.
start = int(t * RATE)
for iv in (0, 7, 12, 16, 22):
    for i, s in enumerate(pluck(note(iv), 1.0, 0.25)):
        if start + i < length:
            mix[start + i] += s
peak = max(abs(v) for v in mix) or 1
with wave.open("resources/programmordner/Blues.wav", "wb") as w:
    w.setnchannels(1)
    w.setsampwidth(2)
    w.setframerate(RATE)
    w.writeframes(b"".join(struct.pack("<h", int(v / peak * 0.8 * 32767)) for v in mix))
