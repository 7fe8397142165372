# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The records of the sample world and the rules that name their files."""

import uuid
from dataclasses import dataclass, field

FORMAT_VERSION = "1.2.0"
NAMESPACE = uuid.UUID("6b1f0f5e-3c0a-4a53-9d6c-51c2f4f0a7de")


@dataclass(frozen=True)
class Kind:
    """One of the five kinds: its word in manifests, its folders in trees and in the source, and its resource."""
    word: str
    folder: str
    source: str
    resource: str


FILTER = Kind("filter", "VideoFilters", "filters", "look.zip")
TRANSITION = Kind("transition", "Transitions", "transitions", "transition.zip")
MOTION = Kind("motion", "Motions", "motions", "motion.zip")
THEME = Kind("theme", "Themes", "themes", "theme.zip")
BACKGROUND = Kind("bgmaterial", "BgMaterial", "backgrounds", "background.jpg")


@dataclass
class Item:
    """One catalogue item. A built-in one is part of the installation and is never fetched."""
    kind: Kind
    slug: str
    name: str
    parameters: dict = field(default_factory=dict)
    family: str = ""
    guid: str = ""
    built_in: bool = False
    preview: str = ""
    earlier_name: str = ""

    def __post_init__(self):
        self.built_in = self.built_in or bool(self.guid)
        self.guid = self.guid or "{%s}" % str(uuid.uuid5(NAMESPACE, self.kind.folder + "/" + self.slug)).upper()
        self.preview = self.preview or self.slug

    @property
    def is_text(self):
        return self.family == "text"

    @property
    def thumb(self):
        return self.preview + ".jpg"

    @property
    def gif(self):
        """The animated preview; filters and backgrounds have none."""
        return "" if self.kind in (FILTER, BACKGROUND) else self.preview + ".gif"

    @property
    def path(self):
        """The item's folder below the source; themes name items by it."""
        return "%s/%s" % (self.kind.source, self.slug)


@dataclass
class Use:
    """An item in a slot of a theme, with the attributes that the editor applies."""
    item: Item
    attributes: dict


@dataclass
class Scene:
    """One element of a theme: its preview picture and its slots by element name."""
    picture: str
    slots: dict


@dataclass
class Theme(Item):
    type_key: str = "others"
    scenes: list = field(default_factory=list)
    start: Use = None
    end: Use = None
    mask: Use = None
    music: str = ""
