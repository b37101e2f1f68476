#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the embedded world map of data/map/ from two npm packages: world-atlas 2.0.2 (countries-50m.json) and
city-timezones 1.3.4 (data/cityMap.json). data/map/README.md describes both files and their licences.

usage: make_map_data.py NODE_MODULES OUTPUT_DIRECTORY

where NODE_MODULES is the folder into which 'npm install world-atlas@2.0.2 city-timezones@1.3.4' has put them.
"""

import collections
import json
import pathlib
import sys

UNITS_PER_DEGREE = 100


def encoded(numbers):
    """Signed numbers as printable characters: five bits a character, lowest first, 32 marks that more follow."""
    text = []
    for number in numbers:
        rest = number << 1 if number >= 0 else ~(number << 1)
        while rest >= 32:
            text.append(chr((rest & 31 | 32) + 63))
            rest >>= 5
        text.append(chr(rest + 63))
    return "".join(text)


def absolute_points(arc, transform):
    """A TopoJSON arc, whose steps are quantised, as points of whole hundredths of a degree."""
    (scale_x, scale_y), (move_x, move_y) = transform["scale"], transform["translate"]
    x = y = 0
    for step in arc:
        x += step[0]
        y += step[1]
        yield round((x * scale_x + move_x) * UNITS_PER_DEGREE), round((y * scale_y + move_y) * UNITS_PER_DEGREE)


def steps(points):
    """The first point and the steps to the others, without those that lead nowhere; never fewer than two points."""
    last = (0, 0)
    for number, point in enumerate(points):
        if number in (0, len(points) - 1) or point != last:
            yield point[1] - last[1]
            yield point[0] - last[0]
            last = point


def polygons(geometry):
    if geometry["type"] == "Polygon":
        return [geometry["arcs"]]
    return geometry["arcs"] if geometry["type"] == "MultiPolygon" else []


def map_lines(atlas):
    used = collections.Counter()
    countries = atlas["objects"]["countries"]["geometries"]
    for country in countries:
        used.update({arc if arc >= 0 else ~arc for polygon in polygons(country) for ring in polygon for arc in ring})
    yield f"lines {len(atlas['arcs'])}"
    for number, arc in enumerate(atlas["arcs"]):
        kind = "border" if used[number] > 1 else "coast"
        yield f"{kind} {encoded(steps(list(absolute_points(arc, atlas['transform']))))}"
    rings = [ring for country in countries for polygon in polygons(country) for ring in polygon]
    yield f"rings {len(rings)}"
    for ring in rings:
        yield " ".join(str(arc) for arc in ring)


def place_lines(cities):
    yield "\t".join(("name", "plain name", "province", "country", "latitude", "longitude", "population", "time zone"))
    order = sorted(cities, key=lambda city: (-city["pop"], city["city"], city["country"], city["lat"]))
    for city in order:
        plain = city["city_ascii"] if city["city_ascii"] != city["city"] else ""
        yield "\t".join((city["city"], plain, city["province"] or "", city["country"], f"{city['lat']:.4f}",
                         f"{city['lng']:.4f}", str(round(city["pop"])), city["timezone"] or ""))


def write(path, lines):
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    modules, output = map(pathlib.Path, sys.argv[1:])
    write(output / "world.map", map_lines(json.loads((modules / "world-atlas/countries-50m.json").read_text("utf-8"))))
    write(output / "places.tsv", place_lines(json.loads((modules / "city-timezones/data/cityMap.json").read_text("utf-8"))))


if __name__ == "__main__":
    main()
