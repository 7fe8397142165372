"""The XML documents: catalogues, version files, definitions and theme configurations."""

import hashlib
import xml.etree.ElementTree as ElementTree

from .model import BACKGROUND, FILTER, FORMAT_VERSION, KINDS, NONE_GUID, THEME


def _add(parent, tag, text=None, attributes=None):
    child = ElementTree.SubElement(parent, tag, attributes or {})
    child.text = text
    return child


def write(root, target):
    ElementTree.indent(root, "  ")
    target.parent.mkdir(parents=True, exist_ok=True)
    text = '<?xml version="1.0" encoding="UTF-8"?>\n' + ElementTree.tostring(root, encoding="unicode") + "\n"
    target.write_text(text, encoding="utf-8", newline="\n")


def config_catalogue(items):
    """What every item is and which files it needs; the "none" entry needs none and is absent."""
    root = ElementTree.Element("ResourceConfig")
    for kind in KINDS:
        group = _add(root, kind.group)
        for item in (item for item in items if item.kind is kind):
            entry = _add(group, "Item")
            _add(entry, "GUID", item.guid)
            _add(entry, "UrlCnf", item.definition_url)
            resources = _add(entry, "UrlResource")
            for url in item.resource_urls:
                _add(resources, "Url", url)
    return root


def _display_entry(group, item, name):
    entry = _add(group, "Item")
    _add(entry, "GUID", item.guid)
    _add(entry, "Name", name)
    _add(entry, "UrlThumb", item.thumb)
    if item.gif:
        _add(entry, "UrlGif", item.gif)
    if item.kind is FILTER:
        _add(entry, "IsText", "1" if item.is_text else "0")


def _none_entry(group):
    entry = _add(group, "Item")
    _add(entry, "GUID", NONE_GUID)
    _add(entry, "Name", "None")
    _add(entry, "UrlThumb", "None.png")


def display_catalogue(items, groups, name_of):
    """What the user is shown; name_of chooses an item's name."""
    root = ElementTree.Element("ResourceDisplay")
    for kind in KINDS:
        section = _add(root, kind.group)
        if kind is THEME:
            _theme_groups(section, items, groups, name_of)
            continue
        if kind in (FILTER, BACKGROUND):
            _none_entry(section)
        for item in (item for item in items if item.kind is kind):
            _display_entry(section, item, name_of(item))
    return root


def _theme_groups(section, items, groups, name_of):
    for key, themes in groups:
        group = _add(section, "Group", attributes={"Type": key})
        for theme in (theme for theme in themes if theme in items):
            _display_entry(group, theme, name_of(theme))


def _md5(path):
    return hashlib.md5(path.read_bytes()).hexdigest()


def version_file(display_file, config_file):
    root = ElementTree.Element("ResourceVersion", {"value": FORMAT_VERSION})
    _add(root, "dislplay", attributes={"value": _md5(display_file)})
    _add(root, "config", attributes={"value": _md5(config_file)})
    return root


def kind_list(kind, items):
    """The list of the definitions that a config folder of one kind holds."""
    root = ElementTree.Element(kind.folder)
    for item in (item for item in items if item.kind is kind):
        entry = _add(root, "Item")
        _add(entry, "GUID", item.guid)
        _add(entry, "Name", item.name)
        _add(entry, "File", item.guid + ".xml")
    return root


def definition(item):
    """What the editor needs to know of a filter, transition, motion or background."""
    root = ElementTree.Element(item.kind.definition)
    _add(root, "GUID", item.guid)
    _add(root, "Name", item.name)
    _add(root, "Family", item.family)
    _add(root, "Resource", item.kind.resource)
    parameters = _add(root, "Parameters")
    for name, value in item.parameters.items():
        _add(parameters, "Parameter", attributes={"Name": name, "Value": value})
    return root


def _slot(parent, name, use):
    if use:
        _add(_add(parent, name), "GUID", use.item.guid, use.attributes)


def theme_config(theme):
    root = ElementTree.Element("Theme")
    _add(root, "GUID", theme.guid)
    _add(root, "Name", theme.name)
    for scene in theme.scenes:
        element = _add(root, "Item")
        for name, use in scene.slots.items():
            _slot(element, name, use)
    _slot(_add(root, "Item_start"), "Text", theme.start)
    _slot(_add(root, "Item_end"), "Text", theme.end)
    if theme.mask:
        _slot(_add(root, "Item_Mask"), "Filter", theme.mask)
    return root
