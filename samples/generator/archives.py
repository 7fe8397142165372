"""The resource files of the items: archives with fixed dates, and background pictures."""

import json
import zipfile

from . import looks
from .media import magick, save_still
from .model import BACKGROUND, FILTER, THEME

EPOCH = (1980, 1, 1, 0, 0, 0)


def _zip(target, members):
    """Writes an archive; members maps a name to its bytes."""
    target.parent.mkdir(parents=True, exist_ok=True)
    with zipfile.ZipFile(target, "w") as archive:
        for name, content in sorted(members.items()):
            info = zipfile.ZipInfo(name, EPOCH)
            info.create_system = 3
            info.external_attr = 0o644 << 16
            info.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(info, content)


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


def write_resource(item, pictures, target, work):
    if item.kind is BACKGROUND:
        target.parent.mkdir(parents=True, exist_ok=True)
        magick(pictures[item.slug], "-strip", "-sampling-factor", "4:2:0", "-quality", "78", target)
        return
    members = {"settings.json": _json({"name": item.name, "parameters": item.parameters})}
    if item.kind is FILTER:
        members.update(_filter_members(item, work))
    if item.kind is THEME:
        members.update(_theme_members(item, pictures, work))
    _zip(target, members)
