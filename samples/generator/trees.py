# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""Writes the sample world: the source, and from it, with mvpublish, the server's tree and the installation."""

import shutil
import subprocess
import tempfile
from pathlib import Path

from . import archives, backgrounds, manifests, music
from .items import BACKGROUNDS, FILTERS, MOTIONS, TRANSITIONS
from .model import BACKGROUND, FILTER, MOTION, THEME, TRANSITION
from .previews import Previews, paint_pictures
from .themes import THEMES

ALL_ITEMS = FILTERS + TRANSITIONS + MOTIONS + THEMES + BACKGROUNDS

# The items that the older, installed catalogue shows beside the built-in ones.
INSTALLED_SLUGS = {
    FILTER: {"faded", "golden-hour", "pencil-sketch", "confetti", "title-light"},
    TRANSITION: {"clock", "pixelate"},
    MOTION: {"sway"},
    THEME: {"white-christmas", "alpine-journey", "candlelight-dinner", "autumn-memories"},
    BACKGROUND: {"golden-bokeh", "polka-dots"},
}


class BuildError(RuntimeError):
    """mvpublish refused the source."""


class World:
    def __init__(self, samples, mvpublish):
        self._samples, self._mvpublish = samples, mvpublish
        self._source = samples / "source"
        self._placeholder = samples / "testoutput" / "testskin" / "Simple.gif"

    def paint(self):
        """Regenerates the source."""
        for tree in (self._source, self._placeholder.parent.parent):
            shutil.rmtree(tree, ignore_errors=True)
        with tempfile.TemporaryDirectory(prefix="make-samples-") as name:
            work = Path(name)
            pictures = paint_pictures(work)
            Previews(pictures, self._source).write()
            for item in ALL_ITEMS:
                archives.write_resource(item, pictures, self._source / item.path, work)
            for tune in music.TUNES:
                music.write_tune(tune, self._source / "shared" / "ThemesBgm" / tune, work)
            self._placeholder.parent.mkdir(parents=True)
            backgrounds.placeholder(self._placeholder, work)
        self._write_manifests()

    def _write_manifests(self):
        manifests.write(manifests.catalogue(), self._source / "catalogue.json")
        for number, item in enumerate(ALL_ITEMS):
            installed = item.built_in or item.slug in INSTALLED_SLUGS[item.kind]
            manifests.write(manifests.item(item, number * 10, installed), self._source / item.path / "item.json")

    def build(self):
        """Rebuilds both trees from the source."""
        resource = self._samples / "installed" / "Resource"
        resource.parent.mkdir(parents=True, exist_ok=True)
        self._run("build", self._source, self._samples / "server", "--no-release")
        self._run("build", self._source, resource, "--installed")

    def _run(self, *arguments):
        result = subprocess.run([str(part) for part in (self._mvpublish, *arguments)])
        if result.returncode != 0:
            raise BuildError("%s %s failed" % (self._mvpublish, arguments[0]))
