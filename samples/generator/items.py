# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The filters, transitions, motions and backgrounds of the sample world."""

from .model import BACKGROUND, FILTER, MOTION, TRANSITION, Item


def _look(slug, name, parameters, **more):
    return Item(FILTER, slug, name, parameters, "look", **more)


def _overlay(slug, name, parameters, **more):
    return Item(FILTER, slug, name, parameters, "overlay", **more)


def _mask(slug, name, parameters, **more):
    return Item(FILTER, slug, name, parameters, "mask", **more)


def _title(slug, name, parameters, **more):
    return Item(FILTER, slug, name, parameters, "text", **more)


FILTERS = [
    _look("sepia", "Warm Sepia", {"Tone": "0.82", "Contrast": "1.1"},
          guid="{05424433-FB6F-41CD-96E4-ECD6D1C2C841}", earlier_name="Sepia"),
    _look("noir", "Film Noir", {"Contrast": "1.8", "Vignette": "0.6"},
          guid="{B2F3012D-6D28-4EC1-9C46-9D6631F07FF9}", earlier_name="Black and White"),
    _look("soft-glow", "Soft Glow", {"Radius": "14", "Amount": "0.5"}, guid="{1A6094B7-8297-4047-9701-4D3B3B11455C}"),
    _look("vignette", "Vignette", {"Radius": "0.75", "Amount": "0.8"}, guid="{E6D5EF1E-1AD3-49EE-9A9E-B6703413C8AC}"),
    _look("vivid", "Vivid Colors", {"Saturation": "1.6", "Contrast": "1.4"}, guid="{A191A2E9-78A8-4734-BC06-8E9465EB66F3}"),
    _overlay("bokeh", "Bokeh Lights", {"Blend": "Screen", "Drift": "0.1"}, guid="{634BDEC3-11F6-4AA9-AAC8-36E837B01FFC}"),
    _title("title-classic", "Classic Title", {"Font": "Serif", "Animation": "FadeIn"},
           guid="{AD6F90F7-AD7F-4185-9430-29A58BEA82D0}"),
    _look("faded", "Faded Print", {"Lift": "0.16", "Saturation": "0.65"}),
    _look("golden-hour", "Golden Hour", {"Color": "#FF9A2E", "Amount": "0.7"}, preview="Golden Hour", earlier_name="Sunset Tint"),
    _look("cool-mist", "Cool Mist", {"Color": "#4A90D0", "Haze": "0.2"}),
    _look("cross-process", "Cross Process", {"Red": "1.6", "Green": "1.3", "Blue": "0.7"}),
    _look("duotone", "Duotone Plum", {"Shadow": "#2B0B5A", "Light": "#FFC27A"}),
    _look("night-blue", "Night Blue", {"Brightness": "0.6", "Color": "#102868"}),
    _look("miniature", "Miniature", {"Band": "0.35", "Blur": "9"}),
    _look("pencil-sketch", "Pencil Sketch", {"Radius": "5", "Paper": "#FBF8F0"}),
    _look("oil-paint", "Oil Painting", {"Brush": "4"}),
    _look("comic", "Comic Strip", {"Levels": "5", "Ink": "1.0"}),
    _look("mosaic", "Mosaic", {"Tile": "10"}),
    _overlay("snowfall", "Snowfall", {"Blend": "Normal", "Speed": "0.6"}),
    _overlay("confetti", "Confetti", {"Blend": "Normal", "Speed": "0.9"}),
    _overlay("light-leak", "Light Leak", {"Blend": "Screen", "Drift": "0.3"}),
    _overlay("old-film", "Old Film", {"Blend": "Normal", "Flicker": "0.2"}),
    _mask("soft-oval", "Soft Oval", {"Feather": "0.2"}),
    _mask("film-frame", "Film Frame", {"Border": "0.08"}),
    _title("title-light", "Airy Title", {"Font": "Sans", "Animation": "Track"}),
    _title("title-neon", "Neon Title", {"Font": "SansBold", "Animation": "Flicker"}),
    _title("title-banner", "Banner Title", {"Font": "SansBold", "Animation": "SlideUp"}),
]


def _transition(slug, name, effect, **more):
    return Item(TRANSITION, slug, name, {"Effect": effect}, "blend", **more)


TRANSITIONS = [
    _transition("cross-fade", "Cross Fade", "fade", guid="{4AB14EF6-559F-4EE5-A809-10C8152D951E}"),
    _transition("slide-left", "Slide Left", "slideleft", guid="{9C09B34B-029A-40D1-8D71-FD9454670C8F}"),
    _transition("circle-reveal", "Circle Reveal", "circleopen", guid="{EB657CB2-11AB-4011-A0CA-79CB8FFE0EB7}",
                earlier_name="Circle"),
    _transition("dip-to-black", "Dip to Black", "fadeblack", guid="{1006CC36-323F-478D-864F-CC7746D93A71}"),
    _transition("clock", "Clock Sweep", "radial"),
    _transition("sparkle", "Sparkle Dissolve", "dissolve"),
    _transition("pixelate", "Pixelate", "pixelize"),
    _transition("blur-through", "Blur Through", "hblur"),
    _transition("open-doors", "Open Doors", "vertopen"),
    _transition("diagonal", "Diagonal Wipe", "diagtl"),
    _transition("blinds", "Blinds", "hlslice"),
    _transition("zoom-through", "Zoom Through", "zoomin"),
]


def _motion(slug, name, parameters, **more):
    return Item(MOTION, slug, name, parameters, "move", **more)


MOTIONS = [
    _motion("zoom-in", "Slow Zoom In", {"From": "1.0", "To": "1.4"}, guid="{23F7D170-9EC3-44BB-801D-BA7F0A7317B4}"),
    _motion("zoom-out", "Slow Zoom Out", {"From": "1.4", "To": "1.0"}, guid="{5E75B958-9267-40C8-9488-025BF73B680D}"),
    _motion("pan-left", "Pan Left", {"Distance": "0.24"}, guid="{ED795974-578B-41E0-9868-FF35824DC566}",
            earlier_name="Move Left"),
    _motion("pan-right", "Pan Right", {"Distance": "0.24"}),
    _motion("rise", "Rise", {"Distance": "0.22"}),
    _motion("diagonal-drift", "Diagonal Drift", {"Distance": "0.2"}),
    _motion("sway", "Gentle Sway", {"Angle": "5"}),
    _motion("spin-in", "Spin In", {"Angle": "-40", "From": "2.2", "To": "1.05"}),
    _motion("heartbeat", "Heartbeat", {"Beats": "2", "Amount": "0.14"}),
]


def _background(slug, name, colour, **more):
    return Item(BACKGROUND, slug, name, {"Color": colour}, "picture", **more)


BACKGROUNDS = [
    _background("blue-silk", "Blue Silk", "#2A5FB0", guid="{20A63E69-32DC-415E-AA04-6A3D705F8290}"),
    _background("cream-paper", "Cream Paper", "#F3E8D2", guid="{0154B5E5-D1A0-4BBB-B9A9-6BF233A7DBDA}"),
    _background("golden-bokeh", "Golden Bokeh", "#7A4A14"),
    _background("starry-night", "Starry Night", "#0D1538"),
    _background("mint-stripes", "Mint Stripes", "#BFE8D4"),
    _background("polka-dots", "Polka Dots", "#F6C8D0", preview="Polka Dots"),
    _background("paper-hills", "Paper Hills", "#F2A65A"),
    _background("triangles", "Triangles", "#3A7CA5"),
    _background("rose-hearts", "Rose Hearts", "#D8506C"),
]


def by_slug(items):
    return {item.slug: item for item in items}
