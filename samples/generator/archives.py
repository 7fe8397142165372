# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The resource files of the items: the content of their archives, and background pictures."""

import json

from . import looks
from .media import magick, save_still
from .model import BACKGROUND, FILTER, THEME

def _json(content):
    return (json.dumps(content, indent=2) + "\n").encode("utf-8")


def _filter_members(item, work):
    members = {}
    if looks.write_overlay(item, work / "overlay.png"):
        members["overlay.png"] = (work / "overlay.png").read_bytes()
    if looks.write_grade(item, work / "grade.png"):
        members["grade.png"] = (work / "grade.png").read_bytes()
    return members


def _theme_members(theme, pictures, work):
    cover = work / "cover.jpg"
    save_still(pictures[theme.scenes[0].picture], cover, (640, 360), quality=80)
    titles = {"start": theme.start.attributes["Content"], "end": theme.end.attributes["Content"]}
    return {"cover.jpg": cover.read_bytes(), "titles.json": _json(titles)}


def write_resource(item, pictures, folder, work):
    """Writes a background's picture, or the folder that is packed into the archive of another item."""
    folder.mkdir(parents=True, exist_ok=True)
    if item.kind is BACKGROUND:
        magick(pictures[item.slug], "-strip", "-sampling-factor", "4:2:0", "-quality", "78", folder / item.kind.resource)
        return
    members = {"settings.json": _json({"name": item.name, "parameters": item.parameters})}
    if item.kind is FILTER:
        members.update(_filter_members(item, work))
    if item.kind is THEME:
        members.update(_theme_members(item, pictures, work))
    packed = folder / item.kind.resource.replace(".zip", "")
    packed.mkdir()
    for name, content in members.items():
        (packed / name).write_bytes(content)
