# SPDX-License-Identifier: GPL-3.0-or-later
"""python3 -m comfortics: indices of a NetCDF file, a Zarr store or a station's CSV."""

import argparse
import os
import shutil
import sys
import tempfile

import comfortics

_READINGS = ("ta", "tg", "sr", "td", "rh", "ws")
_ROWS = 100_000  # of a CSV at a time


def _parser():
    parser = argparse.ArgumentParser(prog="python3 -m comfortics", description=(
        "Calculates indices of a NetCDF file, a Zarr store (.zarr) or a CSV, and writes them to one of the same kinds. "
        "Variables are found by CF standard name or usual name, columns of a CSV by the names ta, tg, sr, td, rh, ws."))
    parser.add_argument("--version", action="version", version=f"comfortics {comfortics.__version__}")
    parser.add_argument("input", help="the readings: .nc, .nc4, .zarr or .csv")
    parser.add_argument("output", help="it is replaced as a whole, when all is done")
    parser.add_argument("--indices", default="all", help='ids or numbers, for instance "utci,wbgt_outdoor"')
    parser.add_argument("--rules", default="precise", choices=("precise", "classic", "robust"))
    parser.add_argument("--ignore-limits", action="store_true", help="calculate outside the limits of an index, too")
    parser.add_argument("--status", action="store_true", help="write what became of each figure, too")
    parser.add_argument("--categories", action="store_true", help="write the published class of each figure, too")
    parser.add_argument("--step", type=float, metavar="SECONDS", help="over which radiation in J m-2 is added up")
    parser.add_argument("--wind-height", type=float, metavar="METRES",
                        help="of the wind above the ground; 10 in a dataset, 1.1 in a CSV")
    parser.add_argument("--chunks", metavar="DIMENSION=LENGTH,...", help="how a dataset is parted, for instance time=24")
    parser.add_argument("--quiet", action="store_true", help="show no progress")
    for reading in _READINGS:
        parser.add_argument(f"--{reading}", metavar="NAME", help=f"the variable or column that is {reading}" + (
            '; "u10,v10" for two components' if reading == "ws" else ""))
    return parser


def _chunks(text):
    if text is None:
        return "auto"
    try:
        return {name: int(length) for name, length in (part.split("=") for part in text.split(","))}
    except ValueError:
        raise ValueError(f"--chunks is to be DIMENSION=LENGTH, not {text!r}.") from None


def _indices(text):
    return "all" if text == "all" else [int(name) if name.strip().isdigit() else name.strip() for name in text.split(",")]


def _beside(path):
    """A place for what is being written, in the folder where it goes."""
    folder, name = os.path.split(os.path.abspath(path))
    return tempfile.mkdtemp(prefix=f".{name}.", dir=folder)


def _kind(path):
    kind = os.path.splitext(path.rstrip("/"))[1].lower()
    if kind not in (".nc", ".nc4", ".zarr", ".csv"):
        raise ValueError(f"{path} is to end in .nc, .zarr or .csv.")
    return kind


def _replace(new, path):
    """A store is a folder, which cannot take the place of another in one step: the old one steps aside."""
    if not os.path.isdir(path):
        os.replace(new, path)
        return
    aside = os.path.join(os.path.dirname(new), "old")
    os.rename(path, aside)
    os.rename(new, path)


def _dataset(options, named, choices, place):
    import xarray

    chunks = _chunks(options.chunks)
    if _kind(options.input) == ".zarr":
        source = xarray.open_zarr(options.input, chunks=chunks)
    else:
        source = xarray.open_dataset(options.input, chunks=chunks)
    with source:
        if named.get("ws") and "," in named["ws"]:
            named["ws"] = tuple(named["ws"].split(","))
        result = source.comfortics.calculate(**named, **choices, step=options.step)
        if not options.quiet:
            print(result.attrs["comfortics_inputs"], file=sys.stderr)
        if _kind(options.output) == ".zarr":
            for variable in result.variables.values():
                variable.encoding.pop("chunks", None)
            delayed = result.to_zarr(place, compute=False)
        else:
            delayed = result.to_netcdf(place, compute=False)
        if options.quiet:
            delayed.compute()
        else:
            from dask.diagnostics import ProgressBar

            with ProgressBar(out=sys.stderr):
                delayed.compute()


def _table(options, named, choices, place):
    import pandas

    done = 0
    for part in pandas.read_csv(options.input, chunksize=_ROWS):
        columns = {str(name).lower(): name for name in part.columns}
        taken = {reading: named.get(reading) or columns.get(reading) for reading in _READINGS}
        for reading, name in named.items():
            if name not in part.columns:
                raise ValueError(f"{options.input} has no column {name!r}.")
        result = comfortics.calculate(**{reading: part[name] for reading, name in taken.items() if name is not None},
                                      **choices)
        part.join(result).to_csv(place, mode="a", header=done == 0, index=False)
        done += len(part)
        if not options.quiet:
            print(f"\r{done} rows", end="", file=sys.stderr)
    if not options.quiet:
        print(file=sys.stderr)


def main(arguments=None):
    options = _parser().parse_args(arguments)
    named = {reading: getattr(options, reading) for reading in _READINGS if getattr(options, reading)}
    choices = {"indices": _indices(options.indices), "rules": options.rules, "limits": not options.ignore_limits,
               "status": options.status, "categories": options.categories, "wind_height": options.wind_height}
    folder = None
    try:
        kinds = {_kind(options.input) == ".csv", _kind(options.output) == ".csv"}
        if len(kinds) > 1:
            raise ValueError("A CSV gives a CSV, and nothing else does.")
        folder = _beside(options.output)
        place = os.path.join(folder, os.path.basename(options.output.rstrip("/")))
        (_table if True in kinds else _dataset)(options, named, choices, place)
        _replace(place, options.output.rstrip("/"))
    except (OSError, ValueError, KeyError, TypeError) as error:
        print(f"comfortics: {error}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 130
    finally:
        if folder is not None:
            shutil.rmtree(folder, ignore_errors=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
