#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes a year of hourly readings of a made-up weather station as CSV, the same for the same seed.

usage: make_station_year.py [--climate temperate|desert|subarctic] [--globe] [--rows N] [--seed S] > year.csv

The weather has a yearly and a daily course, fronts that last for days, clouds, dew at night and a
gusty wind; about one hour in three hundred lacks a reading. With --globe the globe temperature
stands in place of the solar radiation. More rows than a year's 8760 are further years.
"""
import argparse
import math
import random
import sys
from typing import NamedTuple

HOURS = 8760


class Climate(NamedTuple):
    """Where a made-up station stands. Temperatures in degrees Celsius, differences in K."""
    latitude: float     # [degrees north]
    mean: float         # of the air over the year
    yearly: float       # half of the way from the coldest day to the warmest
    daily: float        # half of the way from night to noon under a clear sky
    front: float        # how much of the fronts is felt, 1 in the temperate climate
    cloud: float        # cover to which the sky tends, 0 to 1
    clearing: float     # share of the way to it in an hour
    driest: float       # air less dew point in shade and under clouds, what the sun adds is the next
    drying: float
    mean_wind: float    # [m/s]


CLIMATES = {
    "temperate": Climate(50, 16, 11, 4, 1, 0.5, 0, 3, 9, 3),
    "desert": Climate(27, 26, 9, 7.5, 0.6, 0.1, 0.05, 14, 14, 3.5),
    "subarctic": Climate(65, -4, 21, 4, 1.6, 0.6, 0.02, 2, 7, 2.5),
}


def sun_height(latitude: float, hour: int) -> float:
    """Sine of the sun's elevation; below 0 at night. The latitude in radians."""
    day = hour // 24 % 365
    declination = math.radians(23.45) * math.sin(2 * math.pi * (284 + day) / 365)
    angle = math.radians(15 * (hour % 24 - 12))
    return (math.sin(latitude) * math.sin(declination)
            + math.cos(latitude) * math.cos(declination) * math.cos(angle))


def main() -> None:
    parser = argparse.ArgumentParser(description="A year of hourly station data")
    parser.add_argument("--climate", choices=CLIMATES, default="temperate")
    parser.add_argument("--globe", action="store_true", help="globe temperature in place of solar radiation")
    parser.add_argument("--rows", type=int, default=HOURS)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    draw = random.Random(arguments.seed)
    climate = CLIMATES[arguments.climate]
    latitude = math.radians(climate.latitude)

    front = 0.0                      # departure of the air temperature from its course [K]
    cloud = climate.cloud            # cover, 0 to 1
    spread = 2 * climate.driest      # air temperature less dew point [K]
    wind = climate.mean_wind         # [m/s]
    out = sys.stdout
    out.write("Time,Ta,%s,RH,WS\n" % ("Tg" if arguments.globe else "SR"))
    for hour in range(arguments.rows):
        front = 0.985 * front + draw.gauss(0, 0.6)
        cloud = min(1.0, max(0.0, cloud + climate.clearing * (climate.cloud - cloud) + draw.gauss(0, 0.12)))
        wind = max(0.0, 0.9 * wind + 0.1 * climate.mean_wind + draw.gauss(0, 0.7))
        height = max(0.0, sun_height(latitude, hour))
        radiation = 1050 * height * (1 - 0.75 * cloud ** 3)
        air = (climate.mean - climate.yearly * math.cos(2 * math.pi * (hour / 24 - 20) / 365)
               - climate.daily * (1 - cloud) * math.cos(2 * math.pi * (hour % 24 - 3) / 24) + climate.front * front)
        spread = max(0.3, 0.9 * spread + 0.1 * (climate.driest + climate.drying * height + 4 * (1 - cloud))
                     + draw.gauss(0, 0.3))
        humidity = min(99.0, 100 * math.exp(-0.066 * spread))
        if arguments.globe:
            heat = air + radiation / (28 + 14 * math.sqrt(wind + 0.1)) - (0.4 if radiation == 0 else 0)
            sun = "%.1f" % heat
        else:
            sun = "%.0f" % radiation
        cells = ["%.1f" % air, sun, "%.0f" % humidity, "%.1f" % wind]
        if draw.random() < 1 / 300:
            cells[draw.randrange(len(cells))] = ""
        out.write("%04d-%03dT%02d,%s\n" % (2001 + hour // HOURS, hour // 24 % 365 + 1, hour % 24, ",".join(cells)))


if __name__ == "__main__":
    main()
