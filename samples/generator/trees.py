"""Lays the sample world out on disk: the server's tree and the installation."""

import json
import shutil
import tempfile
from pathlib import Path
from urllib.parse import unquote

from . import archives, backgrounds, documents, music
from .items import BACKGROUNDS, FILTERS, MOTIONS, TRANSITIONS
from .model import BACKGROUND, FILTER, MOTION, THEME, TRANSITION
from .previews import Previews, paint_pictures
from .themes import GROUPS, THEMES

ALL_ITEMS = FILTERS + TRANSITIONS + MOTIONS + THEMES + BACKGROUNDS
SKIN_PICTURES = ("Classical.png", "Elegance.png", "Calm.png", "None.png")

# What the installed, older catalogue shows beside the built-in items.
INSTALLED_SLUGS = {
    FILTER: {"faded", "golden-hour", "pencil-sketch", "confetti", "title-light"},
    TRANSITION: {"clock", "pixelate"},
    MOTION: {"sway"},
    THEME: {"white-christmas", "alpine-journey", "candlelight-dinner", "autumn-memories"},
    BACKGROUND: {"golden-bokeh", "polka-dots"},
}


def _current_name(item):
    return item.name


def _earlier_name(item):
    return item.earlier_name or item.name


def _used_guids(theme):
    uses = [use for scene in theme.scenes for use in scene.slots.values()] + [theme.start, theme.end, theme.mask]
    return {use.item.guid for use in uses if use}


class World:
    def __init__(self, samples):
        self._server, self._resource = samples / "server", samples / "installed" / "Resource"
        self._placeholder = samples / "testoutput" / "testskin" / "Simple.gif"

    def build(self):
        for tree in (self._server, self._resource.parent, self._placeholder.parent.parent):
            shutil.rmtree(tree, ignore_errors=True)
        with tempfile.TemporaryDirectory(prefix="make-samples-") as name:
            work = Path(name)
            pictures = paint_pictures(work)
            Previews(pictures, self._server / "display").write()
            self._write_config_half(pictures, work)
            self._placeholder.parent.mkdir(parents=True)
            backgrounds.placeholder(self._placeholder, work)
        self._write_catalogues(self._server / "ResourceConfig", "resource_version_v3.xml", ALL_ITEMS, ALL_ITEMS, _current_name)
        self._install()

    def _write_config_half(self, pictures, work):
        config = self._server / "config"
        for item in ALL_ITEMS:
            document = documents.theme_config(item) if item.kind is THEME else documents.definition(item)
            documents.write(document, config / item.definition_path)
            archives.write_resource(item, pictures, config / item.resource_path, work)
        for tune in music.TUNES:
            music.write_tune(tune, config / "ThemesBgm" / tune, work)
        self._write_kind_lists(config, ALL_ITEMS)

    @staticmethod
    def _write_kind_lists(config, items):
        for kind in (FILTER, TRANSITION, MOTION):
            documents.write(documents.kind_list(kind, items), config / kind.folder / (kind.folder + ".xml"))

    @staticmethod
    def _write_catalogues(folder, version_name, items, shown, name_of):
        config_file, display_file = folder / "resource_config.xml", folder / "resource_display.xml"
        documents.write(documents.config_catalogue(items), config_file)
        documents.write(documents.display_catalogue(shown, GROUPS, name_of), display_file)
        documents.write(documents.version_file(display_file, config_file), folder / version_name)

    def _install(self):
        """The installation: an older catalogue, the files of the built-in items and the previews of all it shows."""
        shown = [item for item in ALL_ITEMS if item.built_in or item.slug in INSTALLED_SLUGS[item.kind]]
        used = set().union(*(_used_guids(theme) for theme in shown if theme.kind is THEME))
        known = [item for item in ALL_ITEMS if item in shown or item.guid in used]
        folder = self._resource / "ResourceConfig"
        self._write_catalogues(folder, "resource_version.xml", known, shown, _earlier_name)
        self._write_theme_types(folder, shown)
        self._copy_previews(shown)
        built_in = [item for item in ALL_ITEMS if item.built_in]
        self._copy_built_in(built_in)
        self._write_kind_lists(self._resource, built_in)

    @staticmethod
    def _write_theme_types(folder, shown):
        types = {key: [theme.guid for theme in themes if theme in shown] for key, themes in GROUPS if key != "others"}
        (folder / "ThemeType.json").write_text(json.dumps(types, indent=4) + "\n", encoding="utf-8")

    def _copy(self, source, target):
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, target)

    def _copy_previews(self, shown):
        names = [(item.kind.folder, name) for item in shown for name in (item.thumb, item.gif) if name]
        names += [(kind.folder, name) for kind in (FILTER, BACKGROUND) for name in SKIN_PICTURES]
        for folder, name in names:
            self._copy(self._server / "display" / folder / name, self._resource / "display" / folder / name)

    def _copy_built_in(self, items):
        for item in items:
            shared = [unquote(url).lstrip("/") for url in item.resource_urls if url.startswith("/")]
            for path in [item.definition_path, item.resource_path] + shared:
                self._copy(self._server / "config" / path, self._resource / path)
