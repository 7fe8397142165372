"""The records of the sample world and the rules that name their files."""

import uuid
from dataclasses import dataclass, field
from urllib.parse import quote

NONE_GUID = "{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}"
FORMAT_VERSION = "1.2.0"
NAMESPACE = uuid.UUID("6b1f0f5e-3c0a-4a53-9d6c-51c2f4f0a7de")


@dataclass(frozen=True)
class Kind:
    """One of the five kinds: its group element, its folder, the root element of a definition and its archive."""
    group: str
    folder: str
    definition: str
    resource: str


FILTER = Kind("Filter", "VideoFilters", "VideoFilter", "look.zip")
TRANSITION = Kind("Transition", "Transitions", "Transition", "transition.zip")
MOTION = Kind("Motion", "Motions", "Motion", "motion.zip")
THEME = Kind("Theme", "Themes", "Theme", "theme.zip")
BACKGROUND = Kind("BgMaterial", "BgMaterial", "BgMaterial", "background.jpg")
KINDS = (FILTER, TRANSITION, MOTION, THEME, BACKGROUND)


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
    def definition_path(self):
        """Where the definition lies below a config folder."""
        return "%s/%s.xml" % (self.kind.folder, self.guid)

    @property
    def resource_path(self):
        """Where the archive (or image) lies below a config folder."""
        return "%s/%s/%s" % (self.kind.folder, self.guid, self.kind.resource)

    @property
    def definition_url(self):
        return self.guid + ".xml" if self.built_in else "/" + quote(self.definition_path)

    @property
    def resource_urls(self):
        return [self.kind.resource if self.built_in else "/" + quote(self.resource_path)]


@dataclass
class Use:
    """An item in a slot of a theme, with the attributes that the editor applies."""
    item: Item
    attributes: dict


@dataclass
class Scene:
    """One element of a theme: the picture it is previewed with and its slots by element name."""
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

    @property
    def resource_urls(self):
        return super().resource_urls + [self.music]
