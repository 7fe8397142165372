# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The frames of every motion and every transition."""

import math
import shutil

from .looks import WORK_HEIGHT, WORK_SIZE, WORK_WIDTH
from .media import GIF_SIZE, ffmpeg, magick

FRAMES = 12


def _smooth(share):
    return share * share * (3 - 2 * share)


def _zoom(first, last):
    return lambda share: (first + (last - first) * _smooth(share), 0, 0, 0)


def _pan(across, down):
    return lambda share: (1.32, 0, across * (_smooth(share) - 0.5), down * (_smooth(share) - 0.5))


def _sway(share):
    return (1.16, 5 * math.sin(2 * math.pi * share), 0, 0)


def _spin(share):
    rest = 1 - _smooth(min(share * 1.25, 1))
    return (1.05 + 1.15 * rest, -40 * rest, 0, 0)


def _heartbeat(share):
    return (1.03 + 0.14 * abs(math.sin(2 * math.pi * share)) ** 3, 0, 0, 0)


MOTIONS = {
    "zoom-in": _zoom(1.0, 1.4),
    "zoom-out": _zoom(1.4, 1.0),
    "pan-left": _pan(-0.24, 0),
    "pan-right": _pan(0.24, 0),
    "rise": _pan(0, 0.24),
    "diagonal-drift": _pan(0.2, -0.2),
    "sway": _sway,
    "spin-in": _spin,
    "heartbeat": _heartbeat,
}


def pose(motion, share, source, target):
    """Returns the motion's picture at a share (0 to 1) of its time."""
    scale, angle, across, down = MOTIONS[motion](share)
    middle_x, middle_y = WORK_WIDTH / 2, WORK_HEIGHT / 2
    place = "%.2f,%.2f %.4f %.3f %.2f,%.2f" % (middle_x, middle_y, scale, angle, middle_x + across * WORK_WIDTH,
                                             middle_y + down * WORK_HEIGHT)
    magick(source, "-resize", WORK_SIZE + "!", "-virtual-pixel", "Mirror", "-distort", "SRT", place, "-alpha", "off",
           "-depth", "8", target)


def shrink(source, target, size=GIF_SIZE):
    magick(source, "-resize", "%dx%d!" % size, "-depth", "8", target)


def blend(effect, first, second, folder, count):
    """The frames between two pictures, from shortly after the first to shortly before the second."""
    total = count + 1
    graph = ("[0:v]format=gbrp,settb=AVTB[a];[1:v]format=gbrp,settb=AVTB[b];"
             "[a][b]xfade=transition=%s:duration=1:offset=0" % effect)
    ffmpeg("-loop", 1, "-framerate", total, "-t", 1, "-i", first, "-loop", 1, "-framerate", total, "-t", 1, "-i", second,
           "-filter_complex", graph, "-frames:v", total, "-start_number", 0, folder / "blend-%02d.png")
    return [folder / ("blend-%02d.png" % number) for number in range(1, total)]


def motion_frames(motion, source, folder):
    frames = []
    for number in range(FRAMES):
        full, small = folder / ("pose-%02d.png" % number), folder / ("small-%02d.png" % number)
        pose(motion, number / (FRAMES - 1), source, full)
        shrink(full, small)
        frames.append(small)
    return frames


def transition_frames(effect, first, second, folder):
    """The first picture at rest, the change, the second picture at rest."""
    shrink(first, folder / "first.png")
    shrink(second, folder / "second.png")
    between = blend(effect, folder / "first.png", folder / "second.png", folder, FRAMES - 3)
    frames = [folder / "first.png", *between, folder / "second.png"]
    shutil.copyfile(folder / "second.png", folder / "rest.png")
    return frames + [folder / "rest.png"]
