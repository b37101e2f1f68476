# SPDX-License-Identifier: GPL-3.0-or-later
"""python3 -m comfortics: indices of a NetCDF file, a Zarr store or a station's CSV."""

import argparse
import errno
import os
import shutil
import signal
import sys
import tempfile
import warnings

import comfortics
from comfortics._calculate import READINGS
from comfortics._station import calculate_table


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
    for reading in READINGS:
        parser.add_argument(f"--{reading}", metavar="NAME", help=f"the variable or column that is {reading}" + (
            '; "u10,v10" for two components' if reading == "ws" else ""))
    return parser


def _chunks(text, dimensions):
    """How a dataset is parted."""
    if text is None:
        return "auto"
    chunks = {}
    for part in text.split(","):
        name, _, length = part.partition("=")
        if not length.isdigit() or int(length) == 0:
            raise ValueError(f"--chunks is to be DIMENSION=LENGTH, not {part!r}.")
        if name not in dimensions:
            raise ValueError(f"There is no dimension {name!r}, only {', '.join(map(str, dimensions))}.")
        chunks[name] = int(length)
    return chunks


def _indices(text):
    return "all" if text == "all" else [int(name) if name.strip().isdigit() else name.strip()
                                        for name in text.split(",")]


def _kind(path):
    kind = os.path.splitext(path.rstrip("/"))[1].lower()
    if kind not in (".nc", ".nc4", ".zarr", ".csv"):
        raise ValueError(f"{path} is to end in .nc, .zarr or .csv.")
    return kind


def _check_places(source, output):
    """Before hours of work: that the result has a place, and takes that of nothing else."""
    if not os.path.exists(source):
        raise ValueError(f"{source} is not there.")
    if os.path.exists(output) and os.path.samefile(source, output):
        raise ValueError(f"{output} is what is read; the result would take its place.")
    folder = os.path.dirname(os.path.abspath(output))
    if not os.path.isdir(folder):
        raise ValueError(f"There is no folder {folder}.")
    if os.path.isdir(output) and os.listdir(output):
        is_store = any(os.path.exists(os.path.join(output, name)) for name in (".zgroup", "zarr.json"))
        if _kind(output) != ".zarr" or not is_store:
            raise ValueError(f"{output} is a folder that holds something else.")


def _beside(path):
    """A place for what is being written, in the folder where it goes."""
    folder, name = os.path.split(os.path.abspath(path))
    try:
        return tempfile.mkdtemp(prefix=f".{name}.", dir=folder)
    except OSError as error:
        raise ValueError(f"Nothing can be written to {folder}: {error.strerror}.") from None


def _replace(new, path):
    """A store is a folder, which cannot take the place of another in one step: the old one steps aside."""
    if not os.path.isdir(path):
        os.replace(new, path)
        return
    aside = os.path.join(os.path.dirname(new), "old")
    os.rename(path, aside)
    try:
        os.rename(new, path)
    except BaseException:
        os.rename(aside, path)
        raise


def _opened(path, chunks=None):
    import xarray

    is_zarr = _kind(path) == ".zarr"
    try:
        return xarray.open_dataset(path, engine="zarr" if is_zarr else None, chunks=chunks)
    except (OSError, ValueError, KeyError, RuntimeError) as error:
        said = str(error).strip() or type(error).__name__
        raise ValueError(f"{path} cannot be read as a {'Zarr store' if is_zarr else 'NetCDF file'}: "
                         f"{said.splitlines()[0].split('. ')[0].rstrip('.')}.") from None


def _dataset(options, named, choices, place):
    with _opened(options.input) as source:
        chunks = _chunks(options.chunks, tuple(source.dims))
    with _opened(options.input, chunks) as source:
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
            if result.nbytes > _free(place):
                raise OSError(errno.ENOSPC, f"It takes {result.nbytes / 2**20:.1f} MB")
            delayed = result.to_netcdf(place, compute=False)
        # Threads that read one NetCDF file and write another can wait for each other's locks for ever.
        scheduler = {} if _kind(options.output) == ".zarr" else {"scheduler": "synchronous"}
        if options.quiet:
            delayed.compute(**scheduler)
        else:
            from dask.diagnostics import ProgressBar

            with ProgressBar(out=sys.stderr):
                delayed.compute(**scheduler)


def _table(options, named, choices, place):
    for name in ("chunks", "step"):
        if getattr(options, name) is not None:
            raise ValueError(f"--{name} is for a NetCDF file or a Zarr store.")

    def tell(done):
        if not options.quiet:
            print(f"\r{done} rows" if isinstance(done, int) else done, end="" if isinstance(done, int) else "\n",
                  file=sys.stderr)

    calculate_table(options.input, place, named, choices, tell)
    if not options.quiet:
        print(file=sys.stderr)


def _free(output):
    return shutil.disk_usage(os.path.dirname(os.path.abspath(output))).free


def _sentence(error, output):
    """What went wrong, in one line."""
    said = error.args[0] if isinstance(error, KeyError) and error.args else error
    if isinstance(error, OSError) and error.strerror:
        said = f"{os.fsdecode(error.filename)}: {error.strerror}." if error.filename else f"{error.strerror}."
    said = " ".join(str(said).split()) or type(error).__name__
    if not isinstance(error, (OSError, RuntimeError)):
        return said
    return f"{output} is not written: {said.rstrip('.')}. {_free(output) / 2**20:.1f} MB are free there."


def _end(number, _frame):
    sys.exit(128 + number)  # what was begun is cleared away


def main(arguments=None):
    options = _parser().parse_args(arguments)
    named = {reading: getattr(options, reading) for reading in READINGS if getattr(options, reading)}
    choices = {"indices": _indices(options.indices), "rules": options.rules, "limits": not options.ignore_limits,
               "status": options.status, "categories": options.categories, "wind_height": options.wind_height}
    folder = None
    try:
        kinds = {_kind(options.input) == ".csv", _kind(options.output) == ".csv"}
        if len(kinds) > 1:
            raise ValueError("A CSV gives a CSV, and nothing else does.")
        _check_places(options.input, options.output)
        folder = _beside(options.output)
        place = os.path.join(folder, os.path.basename(options.output.rstrip("/")))
        with warnings.catch_warnings():
            if options.quiet:
                warnings.simplefilter("ignore")
            (_table if True in kinds else _dataset)(options, named, choices, place)
        _replace(place, options.output.rstrip("/"))
    except (OSError, ValueError, KeyError, TypeError, RuntimeError) as error:
        print(f"comfortics: {_sentence(error, options.output)}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 130
    finally:
        if folder is not None:
            shutil.rmtree(folder, ignore_errors=True)
    return 0


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, _end)
    warnings.showwarning = lambda message, *_: print("comfortics:", *str(message).split(), file=sys.stderr)
    sys.exit(main())
