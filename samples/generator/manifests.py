# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The manifests of the source, which mvpublish reads."""

import json

from .model import FORMAT_VERSION, THEME


def write(content, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_text(json.dumps(content, indent=4) + "\n", encoding="utf-8", newline="\n")


def catalogue():
    return {"version": FORMAT_VERSION}


def _use(use):
    return {"item": use.item.path, "attributes": use.attributes}


def _theme(theme):
    content = {"type": theme.type_key, "shared": [theme.music]}
    content["scenes"] = [{slot: _use(use) for slot, use in scene.slots.items()} for scene in theme.scenes]
    content["start"] = {"Text": _use(theme.start)}
    content["end"] = {"Text": _use(theme.end)}
    if theme.mask:
        content["mask"] = {"Filter": _use(theme.mask)}
    return content


def item(item, order, installed):
    """Returns an item's manifest; installed says whether the older catalogue shows it."""
    content = {"guid": item.guid, "kind": item.kind.word, "name": item.name, "order": order,
               "thumbnail": item.thumb, "files": [item.kind.resource]}
    if item.gif:
        content["animation"] = item.gif
    if item.is_text:
        content["text"] = True
    if item.built_in:
        content["builtIn"] = True
    elif installed:
        content["installed"] = True
    if installed and item.earlier_name:
        content["names"] = {"installed": item.earlier_name}
    if item.kind is THEME:
        content.update(_theme(item))
    else:
        content.update({"family": item.family, "parameters": item.parameters})
    return content
