# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The themes of the sample world, composed of its filters, transitions and motions."""

from .items import FILTERS, MOTIONS, TRANSITIONS, by_slug
from .model import THEME, Scene, Theme, Use

_FILTERS, _TRANSITIONS, _MOTIONS = by_slug(FILTERS), by_slug(TRANSITIONS), by_slug(MOTIONS)

EVENING_WALK = "ThemesBgm/Evening Walk.mp3"
BRIGHT_MORNING = "ThemesBgm/Bright Morning.mp3"
SNOW_BELLS = "ThemesBgm/Snow Bells.mp3"
CARNIVAL = "ThemesBgm/Carnival.mp3"


def _text(slug, words, position="Center"):
    return Use(_FILTERS[slug], {"Content": words, "Position": position, "Duration": "2.5", "Ease": "Out"})


def _scene(picture, look, transition, motion, element="", text=None):
    """One element; the slots are in the order in which the editor applies them."""
    slots = {"Text": text} if text else {}
    slots["Filter"] = Use(_FILTERS[look], {"Strength": "1.0"})
    if element:
        slots["Element"] = Use(_FILTERS[element], {"Opacity": "0.9", "Loop": "1"})
    slots["Transition"] = Use(_TRANSITIONS[transition], {"Duration": "1.2", "Ease": "InOut"})
    slots["ImageMotion"] = Use(_MOTIONS[motion], {"Duration": "4.0", "Ease": "InOut"})
    return Scene(picture, slots)


def _theme(slug, name, type_key, title, words, mask, music, scenes, **more):
    closing = more.pop("closing", "The End")
    return Theme(THEME, slug, name, {}, "slideshow", type_key=type_key, scenes=scenes, start=_text(title, words),
                 end=_text(title, closing), mask=Use(_FILTERS[mask], {"Opacity": "1.0"}) if mask else None, music=music, **more)


FESTIVALS = [
    _theme("new-year", "New Year Fireworks", "festivals", "title-classic", "Happy New Year", "vignette", BRIGHT_MORNING, [
        _scene("fireworks", "vivid", "circle-reveal", "zoom-in", "bokeh"),
        _scene("city-night", "soft-glow", "cross-fade", "pan-left"),
        _scene("birthday-cake", "vivid", "slide-left", "zoom-out", "bokeh"),
    ], built_in=True, closing="Cheers!", earlier_name="New Year"),
    _theme("lantern-night", "Lantern Night", "festivals", "title-classic", "Lantern Night", "vignette", EVENING_WALK, [
        _scene("lanterns", "soft-glow", "cross-fade", "zoom-in", "bokeh"),
        _scene("sunset-sea", "sepia", "dip-to-black", "pan-left"),
        _scene("city-night", "soft-glow", "circle-reveal", "zoom-out"),
    ], built_in=True, closing="Good Night"),
    _theme("white-christmas", "White Christmas", "festivals", "title-classic", "Merry Christmas", "vignette", SNOW_BELLS, [
        _scene("winter-village", "cool-mist", "sparkle", "zoom-in", "snowfall"),
        _scene("banquet-table", "soft-glow", "blur-through", "sway", "snowfall"),
        _scene("mountain-lake", "cool-mist", "cross-fade", "pan-right", "snowfall"),
    ], closing="Season's Greetings"),
    _theme("birthday-party", "Birthday Party", "festivals", "title-banner", "Happy Birthday", "", CARNIVAL, [
        _scene("birthday-cake", "vivid", "pixelate", "heartbeat", "confetti"),
        _scene("balloons", "comic", "clock", "sway", "confetti", _text("title-banner", "Up, up!", "Bottom")),
        _scene("fireworks", "vivid", "circle-reveal", "spin-in", "confetti"),
    ], closing="Make a Wish"),
]

TRAVEL = [
    _theme("alpine-journey", "Alpine Journey", "travel", "title-light", "Alpine Journey", "", BRIGHT_MORNING, [
        _scene("mountain-lake", "vivid", "slide-left", "zoom-in"),
        _scene("autumn-forest", "golden-hour", "diagonal", "rise", "light-leak"),
        _scene("balloons", "miniature", "cross-fade", "pan-right", "", _text("title-light", "Above the Hills", "Bottom")),
    ], earlier_name="Mountain Trip"),
    _theme("island-escape", "Island Escape", "travel", "title-banner", "Island Escape", "", CARNIVAL, [
        _scene("palm-beach", "vivid", "open-doors", "pan-right", "light-leak"),
        _scene("sunset-sea", "golden-hour", "zoom-through", "zoom-in"),
        _scene("palm-beach", "cross-process", "slide-left", "diagonal-drift"),
    ], preview="Island Escape"),
    _theme("desert-caravan", "Desert Caravan", "travel", "title-classic", "Desert Caravan", "film-frame", EVENING_WALK, [
        _scene("desert-dunes", "golden-hour", "blinds", "pan-left"),
        _scene("sunset-sea", "sepia", "dip-to-black", "zoom-out"),
        _scene("desert-dunes", "duotone", "blinds", "diagonal-drift", "", _text("title-classic", "Day Two", "Bottom")),
    ]),
    _theme("balloon-ride", "Balloon Ride", "travel", "title-banner", "Balloon Ride", "vignette", BRIGHT_MORNING, [
        _scene("balloons", "vivid", "circle-reveal", "rise"),
        _scene("flower-meadow", "miniature", "clock", "pan-right"),
        _scene("mountain-lake", "vivid", "zoom-through", "zoom-out", "light-leak"),
    ]),
]

BANQUETS = [
    _theme("candlelight-dinner", "Candlelight Dinner", "banquets", "title-classic", "Dinner for Two", "vignette", EVENING_WALK, [
        _scene("banquet-table", "soft-glow", "blur-through", "zoom-in", "bokeh"),
        _scene("city-night", "night-blue", "cross-fade", "pan-left", "bokeh"),
        _scene("lanterns", "soft-glow", "dip-to-black", "zoom-out"),
    ]),
    _theme("wedding-toast", "Wedding Toast", "banquets", "title-classic", "Just Married", "soft-oval", SNOW_BELLS, [
        _scene("banquet-table", "faded", "sparkle", "zoom-in", "bokeh"),
        _scene("flower-meadow", "soft-glow", "cross-fade", "sway", "", _text("title-classic", "Forever", "Bottom")),
        _scene("fireworks", "soft-glow", "circle-reveal", "heartbeat", "confetti"),
    ], closing="Thank You"),
    _theme("family-reunion", "Family Reunion", "banquets", "title-banner", "Family Reunion", "", BRIGHT_MORNING, [
        _scene("birthday-cake", "golden-hour", "open-doors", "zoom-out", "confetti"),
        _scene("banquet-table", "vivid", "slide-left", "pan-right"),
        _scene("autumn-forest", "faded", "diagonal", "zoom-in"),
    ]),
]

OTHERS = [
    _theme("autumn-memories", "Autumn Memories", "others", "title-classic", "Autumn Memories", "vignette", EVENING_WALK, [
        _scene("autumn-forest", "golden-hour", "sparkle", "zoom-in", "light-leak"),
        _scene("mountain-lake", "oil-paint", "cross-fade", "pan-left"),
        _scene("autumn-forest", "faded", "dip-to-black", "zoom-out"),
    ]),
    _theme("spring-bloom", "Spring Bloom", "others", "title-light", "Spring Bloom", "", SNOW_BELLS, [
        _scene("flower-meadow", "vivid", "diagonal", "rise"),
        _scene("balloons", "pencil-sketch", "clock", "pan-right"),
        _scene("flower-meadow", "oil-paint", "circle-reveal", "zoom-in", "bokeh"),
    ]),
    _theme("city-lights", "City Lights", "others", "title-neon", "City Lights", "", CARNIVAL, [
        _scene("city-night", "vivid", "pixelate", "zoom-in", "bokeh"),
        _scene("fireworks", "duotone", "blinds", "spin-in"),
        _scene("city-night", "cross-process", "zoom-through", "pan-left", "", _text("title-neon", "After Dark", "Bottom")),
    ]),
    _theme("retro-reel", "Retro Reel", "others", "title-classic", "Retro Reel", "film-frame", EVENING_WALK, [
        _scene("sunset-sea", "noir", "dip-to-black", "zoom-in", "old-film"),
        _scene("palm-beach", "sepia", "slide-left", "pan-right", "old-film"),
        _scene("balloons", "noir", "circle-reveal", "zoom-out", "old-film"),
    ]),
]

THEMES = FESTIVALS + TRAVEL + BANQUETS + OTHERS
GROUPS = (("festivals", FESTIVALS), ("travel", TRAVEL), ("banquets", BANQUETS), ("others", OTHERS))
