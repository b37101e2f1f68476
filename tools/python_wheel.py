# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds the Python package for pip, as pyproject.toml asks for it: a wheel of what CMake installs. Nothing is fetched, so
compiler, CMake and the headers of Python and NumPy have to be there (tools/install_packages.sh build python).

--config-settings build-dir=build/release takes what a build has left there, as it stands, instead of building anew."""

import base64
import hashlib
import os
import pathlib
import subprocess
import sys
import sysconfig
import tempfile
import zipfile

SOURCE = pathlib.Path(__file__).resolve().parents[1]


def built(build):
    """Builds the package in a folder."""
    options = ["-DCMAKE_BUILD_TYPE=Release", "-DCOMFORTICS_UI=OFF", "-DCOMFORTICS_TESTS=OFF", "-DCOMFORTICS_HARDENED=ON",
               "-DCOMFORTICS_UNITY=ON", f"-DPython3_EXECUTABLE={sys.executable}"]
    # pip hides what the environment sees, and so NumPy, by a path of its own.
    environment = {name: value for name, value in os.environ.items() if name != "PYTHONPATH"}
    subprocess.run(["cmake", "-G", "Ninja", "-S", SOURCE, "-B", build, *options], check=True, env=environment)
    cache = (build / "build.ninja").read_text(encoding="utf-8")
    if "python_package" not in cache:
        sys.exit(f"{sys.executable} lacks NumPy or the headers of Python, which the package comfortics is built with.")
    subprocess.run(["cmake", "--build", build, "--target", "python_package"], check=True)


def installed_tree(build, folder):
    """Where the package of a build lies in a folder that it was installed into."""
    if not (build / "cmake_install.cmake").is_file():
        sys.exit(f"{build} is no folder of a build.")
    subprocess.run(["cmake", "--install", build, "--prefix", folder, "--component", "python"], check=True)
    return next(folder.rglob("site-packages"))


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    """The hook of pip; gives the name of the wheel."""
    with tempfile.TemporaryDirectory() as folder:
        build = (config_settings or {}).get("build-dir")
        if build is None:
            build = pathlib.Path(folder) / "build"
            built(build)
        tree = installed_tree(pathlib.Path(build), pathlib.Path(folder) / "tree")
        information = next(tree.glob("*.dist-info"))
        python = f"cp{sys.version_info.major}{sys.version_info.minor}"
        machine = sysconfig.get_platform().replace("-", "_").replace(".", "_")
        tag = f"{python}-{python}-{machine}"
        (information / "WHEEL").write_text(f"Wheel-Version: 1.0\nGenerator: comfortics\nRoot-Is-Purelib: false\nTag: {tag}\n")
        name = f"{information.stem}-{tag}.whl"
        record = []
        with zipfile.ZipFile(pathlib.Path(wheel_directory) / name, "w", zipfile.ZIP_DEFLATED) as wheel:
            for path in sorted(path for path in tree.rglob("*") if path.is_file()):
                content, inside = path.read_bytes(), path.relative_to(tree).as_posix()
                digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
                wheel.writestr(inside, content)
                record.append(f"{inside},sha256={digest},{len(content)}\n")
            listing = f"{information.name}/RECORD"
            wheel.writestr(listing, "".join(record) + f"{listing},,\n")
    return name


def build_sdist(sdist_directory, config_settings=None):
    raise NotImplementedError("The sources are the repository.")
