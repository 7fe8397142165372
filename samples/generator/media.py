# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The two external programs that generate the media: ImageMagick and ffmpeg."""

import subprocess

WIDTH, HEIGHT = 960, 540
THUMB_SIZE = (320, 180)
THEME_GIF_SIZE = (192, 108)
GIF_SIZE = (160, 90)

IMAGEMAGICK = "convert-im6.q16"
FFMPEG = "ffmpeg"
SERIF_ITALIC = "DejaVu-Serif-Bold-Italic"
SANS = "DejaVu-Sans"
SANS_BOLD = "DejaVu-Sans-Bold"


class MediaError(RuntimeError):
    """An external program failed."""


def run(command):
    """Runs one program quietly and raises MediaError with its output on failure."""
    result = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if result.returncode != 0:
        raise MediaError("%s failed: %s" % (command[0], result.stdout.decode("utf-8", "replace").strip()))


def magick(*arguments):
    run([IMAGEMAGICK, "-seed", "7", *arguments])


def ffmpeg(*arguments):
    run([FFMPEG, "-hide_banner", "-loglevel", "error", "-nostdin", "-y", "-threads", "1",
         "-fflags", "+bitexact", *arguments])


def save_still(source, target, size, quality=86):
    """Writes a picture at a given size, filled and centred, without metadata."""
    box = "%dx%d" % size
    target.parent.mkdir(parents=True, exist_ok=True)
    magick(source, "-resize", box + "^", "-gravity", "center", "-extent", box, "-unsharp", "0x0.6+0.5+0.01",
           "-alpha", "off", "-strip", "-sampling-factor", "4:2:0", "-quality", quality,
           "-define", "png:exclude-chunks=date,time", target)


def save_thumb(source, target):
    save_still(source, target, THUMB_SIZE)


def save_gif(frames, target, delay=14, colours=56):
    """Joins frame files into a looping GIF that stores only changes."""
    target.parent.mkdir(parents=True, exist_ok=True)
    magick("-delay", delay, "-loop", 0, *frames, "-alpha", "off", "-dither", "None", "-colors", colours,
           "-fuzz", "2%", "-layers", "OptimizeTransparency", "-strip", "+set", "date:create", "+set", "date:modify",
           target)
