# SPDX-License-Identifier: GPL-3.0-or-later
"""`dataset.comfortics` of xarray. Imported as soon as xarray is."""

import xarray

from comfortics._calculate import calculate, one_of_each_pair

# How variables are called by the CF conventions (standard names) and by those who make them, the surer first. Wind by
# these names is that of 10 m above the ground.
_STANDARD_NAMES = {
    "ta": ("air_temperature",),
    "td": ("dew_point_temperature",),
    "rh": ("relative_humidity",),
    "sr": ("surface_downwelling_shortwave_flux_in_air", "surface_downwelling_shortwave_flux"),
    "ws": ("wind_speed",),
}
_NAMES = {
    "ta": ("t2m", "2t", "tas", "ta", "air_temperature"),
    "tg": ("globe_temperature", "tglobe"),
    "sr": ("rsds", "ssrd", "solar_radiation"),
    "td": ("d2m", "2d", "tdps", "td", "dew_point"),
    "rh": ("hurs", "rh", "relative_humidity"),
    "ws": ("sfcwind", "si10", "10si", "wind_speed"),
}
_COMPONENTS = (("u10", "v10"), ("10u", "10v"), ("uas", "vas"))
_HEIGHT = 10.0  # [m]


@xarray.register_dataset_accessor("comfortics")
class Comfortics:
    """Indices of a dataset, whose variables are found by standard name or usual name."""

    def __init__(self, dataset):
        self._dataset = dataset

    def _variable(self, name):
        if name not in self._dataset.variables:
            raise KeyError(f"The dataset has no variable {name!r}.")
        return self._dataset[name]

    def _find(self, reading):
        by_name = {str(name).lower(): name for name in self._dataset.data_vars}
        for standard in _STANDARD_NAMES.get(reading, ()):
            found = [name for name, variable in self._dataset.data_vars.items()
                     if variable.attrs.get("standard_name") == standard]
            if len(found) > 1:
                usual = [by_name[name] for name in _NAMES[reading] if by_name.get(name) in found]
                if not usual:
                    raise ValueError(f"{' and '.join(map(str, found))} have the standard name {standard}: say which is "
                                     f"meant, for instance {reading}={str(found[0])!r}.")
                return usual[0]
            if found:
                return found[0]
        for name in _NAMES[reading]:
            if name in by_name:
                return by_name[name]
        if reading == "ws":
            for pair in _COMPONENTS:
                if all(name in by_name for name in pair):
                    return tuple(by_name[name] for name in pair)
        return None

    def variables(self, **named):
        """Which variable is taken for which reading.

        Parameters
        ----------
        **named : str or pair of str
            The variable of a reading where another than the one found is meant, and None for none; for the wind also
            its two components. For instance `ta="temperature_0"`.

        Returns
        -------
        dict
            Names by reading. Of globe and radiation, and of dew point and humidity, the first that is there.
        """
        taken = {}
        for reading in _NAMES:
            name = named[reading] if reading in named else self._find(reading)
            if name is not None:
                taken[reading] = name
        return one_of_each_pair(taken, named)

    def calculate(self, indices="all", *, wind_height=None, **options):
        """Calculate indices from the variables of the dataset.

        Parameters
        ----------
        indices : str, int, ufunc, Index, Quantity or several of these
            As for `comfortics.calculate`.
        wind_height : float
            Of the wind above the ground [m]. The start is 10 m.
        ta, tg, sr, td, rh, ws : str or pair of str
            The variable of a reading, where another is meant than `variables` finds.
        **options
            Those of `comfortics.calculate`.

        Returns
        -------
        xarray.Dataset
            The attribute `comfortics_inputs` tells which variables were taken.
        """
        named = {reading: options.pop(reading) for reading in _NAMES if reading in options}
        readings = {}
        said = []
        for reading, name in self.variables(**named).items():
            if isinstance(name, (tuple, list)):
                if len(name) != 2:
                    raise ValueError(f"{reading} is to be a variable or two components, not {len(name)}.")
                first, second = map(self._variable, name)
                if first.attrs.get("units") != second.attrs.get("units"):
                    raise ValueError(f"{name[0]} and {name[1]} have different units.")
                readings[reading] = ((first**2 + second**2) ** 0.5).assign_attrs(units=self._unit(first))
            else:
                readings[reading] = self._variable(name)
                self._unit(readings[reading])
            said.append(f"{reading}: {name if isinstance(name, str) else ' and '.join(name)}")
        if not readings:
            raise ValueError("No variable of the dataset is known to be a reading: say which are, for instance "
                             "ta=\"temperature\".")
        height = _HEIGHT if wind_height is None else wind_height
        result = calculate(**readings, indices=indices, wind_height=height if "ws" in readings else None, **options)
        if "ws" in readings:
            said.append(f"wind {height:g} m above the ground")
        result.attrs["comfortics_inputs"] = ", ".join(said)
        return result

    @staticmethod
    def _unit(variable):
        if "units" not in variable.attrs:
            raise ValueError(f"The variable {variable.name} has no attribute units.")
        return variable.attrs["units"]
