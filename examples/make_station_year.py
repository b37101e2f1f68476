#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes a made-up year of an hourly weather station as CSV, for trying the window of station files.

No station has measured it: a yearly and a daily wave with weather of some days on them, at 38° north. The logger stood
still for five days in September, the humidity was lost for some hours, and one wind was written as words.

usage: make_station_year.py [YEAR] > station.csv
"""

import datetime
import math
import random
import sys


def main():
    year = int(sys.argv[1]) if len(sys.argv) > 1 else 2023
    chance = random.Random(year)
    hour = datetime.datetime(year, 1, 1)
    warm = cloudy = gusty = 0.0
    print("Time;Air temperature [°C];Relative humidity [%];Wind speed at 10 m [m/s];Global radiation [W/m2]")
    while hour.year == year:
        day = hour.timetuple().tm_yday - 1
        if hour.hour == 0:  # the weather of a day hangs on that of the one before
            warm = 0.75 * warm + chance.gauss(0, 2.2)
            cloudy = min(1.0, max(0.0, 0.6 * cloudy + chance.random() * (0.55 if 120 < day < 270 else 0.8)))
            gusty = 0.5 * gusty + chance.gauss(0, 0.8)
        season = math.cos(2 * math.pi * (day - 200) / 365)
        declination = math.radians(23.45 * math.sin(2 * math.pi * (day - 80) / 365))
        angle = math.radians(15 * (hour.hour + 0.5 - 12))
        latitude = math.radians(38)
        height = math.sin(latitude) * math.sin(declination) + math.cos(latitude) * math.cos(declination) * math.cos(angle)
        sun = max(0.0, 1050 * height * (1 - 0.75 * cloudy))
        swing = (6.5 - 3.5 * cloudy) * math.cos(2 * math.pi * (hour.hour - 15) / 24)
        air = 18.5 + 10.5 * season + warm + swing + chance.gauss(0, 0.3)
        moist = min(99.0, max(12.0, 52 - 14 * season - 3.4 * swing + 22 * cloudy + chance.gauss(0, 3)))
        wind = max(0.3, 3.0 + gusty + 1.6 * math.sin(2 * math.pi * (hour.hour - 10) / 24) + chance.gauss(0, 0.6))
        silent = datetime.datetime(year, 9, 10) <= hour < datetime.datetime(year, 9, 15)
        lost = datetime.datetime(year, 3, 3, 6) <= hour < datetime.datetime(year, 3, 5)
        wind_text = "calm" if hour == datetime.datetime(year, 11, 2, 4) else f"{wind:.1f}"
        if not silent:
            print(f"{hour:%Y-%m-%d %H:%M};{air:.1f};{'' if lost else round(moist)};{wind_text};{sun:.0f}")
        hour += datetime.timedelta(hours=1)


if __name__ == "__main__":
    main()
