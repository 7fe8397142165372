# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The animated preview of a theme: a small slideshow of its own filters, transitions and motions."""

from . import looks, moves
from .media import THEME_GIF_SIZE

POSES = 3
BLENDS = 2


class Slideshow:
    def __init__(self, theme, pictures, folder):
        self._theme, self._pictures, self._folder = theme, pictures, folder
        self._step = 0

    def _title(self, index):
        """Returns the words over one element: its own, or the opening and closing words."""
        if index == 0:
            return self._theme.start
        if index == len(self._theme.scenes) - 1 and "Text" not in self._theme.scenes[index].slots:
            return self._theme.end
        return self._theme.scenes[index].slots.get("Text")

    def _layers(self, index):
        slots = self._theme.scenes[index].slots
        uses = [slots["Filter"], slots.get("Element"), self._theme.mask, self._title(index)]
        return [(use.item, use.attributes) for use in uses if use]

    def still(self, index, share, target):
        """Renders one element at a share of its time, in the working size."""
        scene = self._theme.scenes[index]
        posed = self._folder / "posed.png"
        moves.pose(scene.slots["ImageMotion"].item.slug, share, self._pictures[scene.picture], posed)
        looks.apply(self._layers(index), posed, target, self._step)
        self._step += 1

    def _element(self, index):
        frames = []
        for number in range(POSES):
            full, small = self._folder / "full.png", self._folder / ("element-%d-%d.png" % (index, number))
            self.still(index, number / (POSES - 1), full)
            moves.shrink(full, small, THEME_GIF_SIZE)
            frames.append(small)
        return frames

    def frames(self):
        """The elements in order, each blended into the next one and the last one into the first."""
        elements = [self._element(index) for index in range(len(self._theme.scenes))]
        frames = []
        for index, element in enumerate(elements):
            following = elements[(index + 1) % len(elements)]
            folder = self._folder / ("blend-%d" % index)
            folder.mkdir()
            effect = self._theme.scenes[index].slots["Transition"].item.parameters["Effect"]
            frames += element + moves.blend(effect, element[-1], following[0], folder, BLENDS)
        return frames
