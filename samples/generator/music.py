# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The short tunes that the themes play."""

import array
import math
import random
import wave

from .media import ffmpeg

RATE = 22050
MAJOR = (0, 2, 4, 7, 9)
MINOR = (0, 3, 5, 7, 10)

# File name: tempo in beats a minute, lowest note in Hz, scale, decay of a note in seconds, overtone.
TUNES = {
    "Evening Walk.mp3": (84, 196.0, MINOR, 0.9, 2),
    "Bright Morning.mp3": (112, 261.6, MAJOR, 0.5, 2),
    "Snow Bells.mp3": (96, 523.3, MAJOR, 0.7, 4),
    "Carnival.mp3": (138, 220.0, MAJOR, 0.25, 3),
}
BEATS = 12


def _pluck(samples, start, pitch, decay, overtone, volume):
    length = min(int(RATE * decay * 3), len(samples) - start)
    for index in range(length):
        moment = index / RATE
        swing = 2 * math.pi * pitch * moment
        tone = math.sin(swing) + 0.35 * math.sin(swing * overtone)
        samples[start + index] += volume * tone * math.exp(-moment / decay) * min(1.0, index / 60)


def _compose(name):
    tempo, lowest, scale, decay, overtone = TUNES[name]
    rng = random.Random(name)
    beat = int(RATE * 60 / tempo)
    samples = [0.0] * (beat * (BEATS + 2))
    step = 2
    for number in range(BEATS):
        step = max(0, min(9, step + rng.choice((-2, -1, 1, 1, 2))))
        pitch = lowest * 2 ** ((scale[step % 5] + 12 * (step // 5)) / 12)
        _pluck(samples, number * beat, pitch, decay, overtone, 0.32)
        if number % 4 == 0:
            _pluck(samples, number * beat, lowest / 2, decay * 1.6, 2, 0.3)
    return array.array("h", (int(max(-1.0, min(1.0, value)) * 32000) for value in samples))


def write_tune(name, target, work):
    recording = work / "tune.wav"
    with wave.open(str(recording), "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(RATE)
        sound.writeframes(_compose(name).tobytes())
    target.parent.mkdir(parents=True, exist_ok=True)
    ffmpeg("-i", recording, "-map_metadata", -1, "-flags:a", "+bitexact", "-codec:a", "libmp3lame", "-b:a", "32k",
           "-write_xing", 0, "-id3v2_version", 0, target)
