#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the Python package gains over the same formulas written in plain NumPy, in the same run, and with Dask on two
threads. Ends with an error where the two do not give the same figures.

usage: PYTHONPATH=build/<preset>/python bench/python_bench.py [POINTS]    (default 1,000,000)
"""

import pathlib
import re
import sys
import time

import comfortics
import dask
import dask.array
import numpy
from numpy import arctan, exp, log

ROUNDS = 5
TERMS = [
    (*map(int, powers.split(",")), float(coefficient))
    for powers, coefficient in re.findall(
        r"\{(\d, \d, \d, \d), ([-+.e\d]+)\}",
        (pathlib.Path(__file__).parents[1] / "src/models/utci_polynomial.cpp").read_text(encoding="utf-8"))
]


def humidex(ta, td):
    return ta + (6.11 * exp(5417.753 * (1 / 273.15 - 1 / (td + 273.15))) - 10) * 0.5555


def heat_index(ta, rh):
    f = ta * 1.8 + 32
    return ((-42.379 + 2.04901523 * f + 10.14333127 * rh - 0.22475541 * f * rh - 0.00683783 * f**2
             - 0.05481717 * rh**2 + 0.00122874 * f**2 * rh + 0.00085282 * f * rh**2 - 0.00000199 * f**2 * rh**2) - 32) / 1.8


def stull(ta, rh):
    return (ta * arctan(0.151977 * (rh + 8.313659) ** 0.5) + arctan(ta + rh) - arctan(rh - 1.676331)
            + 0.00391838 * rh**1.5 * arctan(0.023101 * rh) - 4.686035)


def wbgt(tnwb, tg, ta):
    return 0.7 * tnwb + 0.2 * tg + 0.1 * ta


def utci(ta, tmrt, wind, rh):
    g = log(rh / 100) + 17.27 * ta / (237.3 + ta)
    td = 237.3 * g / (17.27 - g)
    pa = 0.6108 * exp(17.29 * td / (td + 237.3))

    def powers(x):
        all = [numpy.ones_like(x)]
        for _ in range(6):
            all.append(all[-1] * x)
        return all

    a, b, c, d = powers(ta), powers(wind), powers(tmrt - ta), powers(pa)
    total = ta.copy()
    for i, j, k, m, coefficient in TERMS:
        total += coefficient * a[i] * b[j] * c[k] * d[m]
    return total


def mean_vote(ta, tmrt, ea, ws, rate=230.0):
    work = max(rate * 0.2 * numpy.tanh(0.39 * rate / 58.15 - 0.6), 0)
    icl = numpy.where(ta > 25, 0.6, numpy.where(ta < -30, 3.0, 1.691 - 0.0436 * ta)) * 0.155
    fcl = numpy.minimum(1 + 1.29 * icl, 1.05 + 0.645 * icl)
    pa, skin, forced, around = ea * 100, 35.7 - 0.028 * (rate - work), 12.1 * ws**0.5, (tmrt + 273) ** 4

    def clothing(t):
        hc = numpy.maximum(2.38 * abs(t - ta) ** 0.25, forced)
        return hc, skin - icl * 3.96e-8 * fcl * ((t + 273) ** 4 - around) - icl * fcl * hc * (t - ta)

    low, high = numpy.full_like(ta, -100.0), numpy.full_like(ta, 150.0)
    for _ in range(38):  # to 1e-9 K
        middle = (low + high) / 2
        above = middle > clothing(middle)[1]
        high = numpy.where(above, middle, high)
        low = numpy.where(above, low, middle)
    t = (low + high) / 2
    hc = clothing(t)[0]
    heat = (rate - work - 3.05e-3 * (5733 - 6.99 * (rate - work) - pa) - 0.42 * (rate - work - 58.15)
            - 1.7e-5 * rate * (5867 - pa) - 0.0014 * rate * (34 - ta) - 3.96e-8 * fcl * ((t + 273) ** 4 - around)
            - fcl * hc * (t - ta))
    return (0.303 * exp(-0.036 * rate) + 0.028) * heat


CASES = [
    ("UTCI", "utci", utci),
    ("heat index", "heat_index_rothfusz", heat_index),
    ("PMV", "predicted_mean_vote_high_da_silva", mean_vote),
    ("WBGT", "wbgt_outdoor", wbgt),
    ("wet bulb, Stull", "wet_bulb_stull", stull),
    ("humidex", "humidex_masterson", humidex),
]


def weather(count):
    random = numpy.random.default_rng(1)
    ta = random.uniform(-10, 42, count)
    rh = random.uniform(10, 100, count)
    readings = {"ta": ta, "rh": rh, "ws": random.uniform(0.3, 12, count), "sr": random.uniform(0, 1000, count)}
    return readings, comfortics.calculate(**readings, indices=list(comfortics.quantities.values()), threads=0)


def seconds(call):
    best = float("inf")
    for _ in range(ROUNDS):
        start = time.perf_counter()
        call()
        best = min(best, time.perf_counter() - start)
    return best


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
    readings, quantities = weather(count)
    print(f"{count} points, million points/s, the best of {ROUNDS} runs; Dask on two threads")
    print(f"{'':18}{'ufunc':>9}{'NumPy':>9}{'times':>8}{'Dask':>9}")
    for title, name, plain in CASES:
        row = comfortics.indices[name]
        inputs = [quantities[quantity] for quantity in row.inputs]
        numpy.testing.assert_allclose(row.ufunc(*inputs), plain(*inputs), rtol=1e-6, atol=1e-6, err_msg=title)
        lazy = row.ufunc(*(dask.array.from_array(column, chunks=count // 8 + 1) for column in inputs))
        out = numpy.empty(count)
        own = seconds(lambda: row.ufunc(*inputs, out=out))
        numpys = seconds(lambda: plain(*inputs))
        with dask.config.set(scheduler="threads", num_workers=2):
            shared = seconds(lazy.compute)
        print(f"{title:18}{count / own / 1e6:9.2f}{count / numpys / 1e6:9.2f}{numpys / own:8.1f}{count / shared / 1e6:9.2f}")
    part = {name: column[: count // 10] for name, column in readings.items()}
    start = time.perf_counter()
    comfortics.calculate(**part)
    print(f"{'all 222':18}{count // 10 / (time.perf_counter() - start) / 1e6:9.3f}  (of readings, on one thread)")
    start = time.perf_counter()
    comfortics.calculate(**readings, indices=["utci", "wbgt_outdoor"])
    print(f"{'UTCI and WBGT':18}{count / (time.perf_counter() - start) / 1e6:9.3f}  (of readings, on one thread)")


if __name__ == "__main__":
    main()
