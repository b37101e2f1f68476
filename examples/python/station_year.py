# SPDX-License-Identifier: GPL-3.0-or-later
"""A year of a station: indices of each hour, what is missing and why, and a plot.

usage: station_year.py [PICTURE]
"""

import sys

import comfortics
import matplotlib
import numpy
import pandas

matplotlib.use("Agg")
import matplotlib.pyplot as plt

# Hours of a year in the middle of Europe; a station's own table would be read by pandas.read_csv.
hours = pandas.date_range("2024-01-01", "2024-12-31 23:00", freq="h")
random = numpy.random.default_rng(1)
season = -numpy.cos(2 * numpy.pi * (hours.dayofyear - 15) / 366)
day = -numpy.cos(2 * numpy.pi * (hours.hour - 2) / 24)
sun = comfortics.solar_radiation(48.2, 16.4, hours, cloudiness=random.integers(0, 9, hours.size))
station = pandas.DataFrame({
    "ta": 10 + 11 * season + 5 * day + random.normal(0, 3, hours.size),
    "rh": numpy.clip(70 - 15 * day + random.normal(0, 10, hours.size), 5, 100),
    "ws": random.gamma(2, 1.2, hours.size) + 0.1,
    "sr": sun["horizontal_clouds"],
}, index=hours)

indices = ["utci", "wbgt_outdoor", "heat_index_rothfusz", "wind_chill_noaa"]
result = comfortics.calculate(**station, indices=indices, status=True)

for name in indices:
    counts = result[name + "_status"].map(lambda value: comfortics.Status(value).name.lower()).value_counts()
    print(f"{comfortics.indices[name].name}: {counts.to_dict()}")

cold = station.iloc[0]
print(comfortics.explain("heat_index_rothfusz", ta=cold.ta, rh=cold.rh))

figure, axes = plt.subplots(figsize=(10, 4))
result["utci"].resample("D").agg(["min", "max"]).plot(ax=axes)
axes.set_ylabel("UTCI [°C]")
figure.savefig(sys.argv[1] if len(sys.argv) > 1 else "utci.png")
