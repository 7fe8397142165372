# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The thumbnails and animated previews of all items."""

import tempfile
from pathlib import Path

from . import backgrounds, looks, moves, scenes_festive, scenes_nature
from .items import BACKGROUNDS, FILTERS, MOTIONS, TRANSITIONS
from .media import save_gif, save_thumb
from .slideshow import Slideshow
from .themes import THEMES

# The picture that shows each filter best.
FILTER_PICTURES = {
    "sepia": "autumn-forest", "noir": "banquet-table", "soft-glow": "flower-meadow", "vignette": "palm-beach",
    "vivid": "balloons", "bokeh": "city-night", "title-classic": "lanterns", "faded": "palm-beach",
    "golden-hour": "sunset-sea", "cool-mist": "mountain-lake", "cross-process": "balloons", "duotone": "desert-dunes",
    "night-blue": "palm-beach", "miniature": "winter-village", "pencil-sketch": "mountain-lake",
    "oil-paint": "flower-meadow", "comic": "sunset-sea", "mosaic": "balloons", "snowfall": "winter-village",
    "confetti": "birthday-cake", "light-leak": "palm-beach", "old-film": "desert-dunes", "soft-oval": "birthday-cake",
    "film-frame": "autumn-forest", "title-light": "mountain-lake", "title-neon": "city-night", "title-banner": "balloons",
}
TRANSITION_PAIRS = (("balloons", "sunset-sea"), ("mountain-lake", "autumn-forest"), ("palm-beach", "fireworks"),
                    ("flower-meadow", "lanterns"))
# Which of the eight frames of a transition becomes its thumbnail.
USUAL_MOMENT = 3
MOMENTS = {"dip-to-black": 0, "zoom-through": 1, "blur-through": 0}
MOTION_PICTURES = ("mountain-lake", "balloons", "palm-beach", "sunset-sea", "autumn-forest")


def paint_pictures(folder):
    """Paints all scenes and backgrounds; returns a dictionary of names and files."""
    paintings = {**scenes_nature.SCENES, **scenes_festive.SCENES, **backgrounds.PICTURES}
    pictures = {name: folder / (name + ".png") for name in paintings}
    for name, paint in paintings.items():
        paint(pictures[name])
    return pictures


class Previews:
    def __init__(self, pictures, source):
        self._pictures, self._source = pictures, source

    def write(self):
        for item in FILTERS:
            self._in_work_folder(self._filter, item)
        for index, item in enumerate(TRANSITIONS):
            self._in_work_folder(self._transition, item, TRANSITION_PAIRS[index % len(TRANSITION_PAIRS)])
        for index, item in enumerate(MOTIONS):
            self._in_work_folder(self._motion, item, MOTION_PICTURES[index % len(MOTION_PICTURES)])
        for theme in THEMES:
            self._in_work_folder(self._theme, theme)
        for item in BACKGROUNDS:
            save_thumb(self._pictures[item.slug], self._target(item, item.thumb))
        for name in backgrounds.NONE_PICTURES:
            backgrounds.none_picture(name, self._source / "none" / (name + ".png"))

    @staticmethod
    def _in_work_folder(job, *arguments):
        with tempfile.TemporaryDirectory(prefix="make-samples-") as work:
            job(Path(work), *arguments)

    def _target(self, item, name):
        return self._source / item.path / name

    def _filter(self, work, item):
        looks.apply([(item, {"Content": item.name, "Position": "Center"})], self._pictures[FILTER_PICTURES[item.slug]],
                    work / "filter.png")
        save_thumb(work / "filter.png", self._target(item, item.thumb))

    def _transition(self, work, item, pair):
        first, second = (self._pictures[name] for name in pair)
        effect = item.parameters["Effect"]
        save_gif(moves.transition_frames(effect, first, second, work), self._target(item, item.gif))
        for name, picture in (("large-first.png", first), ("large-second.png", second)):
            looks.apply([], picture, work / name)
        between = moves.blend(effect, work / "large-first.png", work / "large-second.png", work, 8)
        save_thumb(between[MOMENTS.get(item.slug, USUAL_MOMENT)], self._target(item, item.thumb))

    def _motion(self, work, item, picture):
        save_gif(moves.motion_frames(item.slug, self._pictures[picture], work), self._target(item, item.gif))
        moves.pose(item.slug, 0.3, self._pictures[picture], work / "pose.png")
        save_thumb(work / "pose.png", self._target(item, item.thumb))

    def _theme(self, work, theme):
        slideshow = Slideshow(theme, self._pictures, work)
        save_gif(slideshow.frames(), self._target(theme, theme.gif), delay=18)
        slideshow.still(0, 0.5, work / "cover.png")
        save_thumb(work / "cover.png", self._target(theme, theme.thumb))
