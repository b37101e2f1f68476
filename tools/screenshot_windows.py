#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Works through the windows of the program and saves their pictures; tools/screenshot.sh prepares the display.

Widgets are found by their accessible names and windows by their titles. Nothing waits for a fixed time: each step
waits until what it asked for is there.
"""

import contextlib
import datetime
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = int(os.environ.get("COMFORTICS_PATIENCE", "120"))  # seconds, for a machine that is busy with other things
CARET = 60  # pixels that may differ between two pictures: the caret of a text box blinks
COLOURS = 256

DAY = datetime.date(2026, 7, 21)
HEAT = {"ta": "33", "sr": "850", "rh": "45", "ws": "1.5"}
CHOSEN = ["Humidex (M", "Universal Thermal Climate", "Wet Bulb Globe Temperature (outdoor)"]
SHEET = """\
24.1\t\t310\t\t71\t1.2
28.6\t\t640\t\t58\t1.6
33\t\t850\t\t45\t1.5
35.2\t\t790\t\t\t2.1
34.4\t\t420\t\t41\t1.9
21.3\t\t150\t\t45\t1.4
19.8\t15\t\t14.2\t\t0.9
"""


def until(what, condition):
    """The first true answer of the condition."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        with contextlib.suppress(GLib.Error):  # a widget that went while it was looked at
            if answer := condition():
                return answer
        time.sleep(0.1)
    names = sorted({f"{one.get_role_name()} '{one.get_name()}'" for one in widgets("")})
    raise SystemExit(f"screenshot_windows.py: waited in vain for {what}; in sight are: {', '.join(names)[-2500:]}")


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, encoding="utf-8", check=False).stdout


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def windows(title):
    return output("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()


def in_sight():
    """All windows of the program, menus too, which have no title and show no widgets to the outside."""
    return set(output("xdotool", "search", "--onlyvisible", "--class", "comfortics").split())


def window(title, but=()):
    """The window with that title in its bar, once it is visible and has the keyboard."""
    number = until(f"the window {title}", lambda: next((one for one in windows(title) if one not in but), None))
    xdotool("windowactivate", "--sync", number)
    return number


# --- widgets


def showing(accessible):
    return accessible.get_state_set().contains(Atspi.StateType.SHOWING)


def walk(accessible, depth=0):
    if depth < 16:
        for place in range(min(accessible.get_child_count(), 60)):  # lists and tables are long
            child = accessible.get_child_at_index(place)
            if child:
                yield child
                yield from walk(child, depth + 1)


def widgets(name, role=None, within=""):
    """Those in sight whose name begins so, in the windows with the title `within` or in all."""
    desktop = Atspi.get_desktop(0)
    for place in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(place)
        if program.get_name() != "comfortics":
            continue
        program.clear_cache()
        frames = [program.get_child_at_index(i) for i in range(program.get_child_count())]
        for one in (one for frame in frames if frame and within in ("", frame.get_name()) for one in walk(frame)):
            if one.get_name().strip().startswith(name) and role in (None, one.get_role_name()) and showing(one):
                yield one


def widget(name, role=None, within=""):
    return until(f"{role or 'the widget'} '{name}'", lambda: next(widgets(name, role, within), None))


def click(name, role=None, within=""):
    place = widget(name, role, within).get_extents(Atspi.CoordType.SCREEN)
    xdotool("mousemove", place.x + place.width // 2, place.y + place.height // 2, "click", 1)


def press(*keys):
    xdotool("key", "--delay", 40, *keys)


def write(name, text):
    """Types into a text box, and waits until it holds the text."""
    click(name, "text")
    box = widget(name, "text")
    press("ctrl+a", "Delete")
    xdotool("type", "--delay", 40, text)
    until(f"'{text}' in '{name}'", lambda: Atspi.Text.get_text(box, 0, -1) == text)


def pick(shown, letters):
    """Picks the first entry that begins so in a list, which is named by the entry that it shows."""
    click(shown, "combo box")
    xdotool("type", "--delay", 40, letters)
    press("Return")


# --- pictures


def picture(path):
    subprocess.run(["import", "-window", "root", str(path)], check=True)


def difference(one, other):
    done = subprocess.run(
        ["compare", "-metric", "AE", str(one), str(other), "null:"], stderr=subprocess.PIPE, encoding="utf-8"
    )
    try:
        return float(done.stderr.split()[0])
    except (ValueError, IndexError):  # not of one size
        return float("inf")


class Album:
    def __init__(self, folder, scratch):
        self.folder = folder
        self.scratch = scratch

    def save(self, name, *numbers, left=0, top=0, right=None, below=None):
        """Saves a window once nothing moves in it any more, or the part of the screen that several windows cover.

        `right` and `below` are the most width and height, `left` and `top` a place on the screen: they cut off what
        there is no need to see.
        """
        # Away from tool tips. The corner of the screen lies outside all windows.
        xdotool("mousemove", 9999, 9999)
        places = list(zip(*(place_of(number) for number in numbers)))
        left, top = max(min(places[0]), left), max(min(places[1]), top)
        width, height = max(places[2]) - left, max(places[3]) - top
        cut = f"{min(width, right or width)}x{min(height, below or height)}+{left}+{top}"
        earlier, later = self.scratch / "earlier.png", self.scratch / "later.png"
        picture(later)

        def still():
            later.replace(earlier)
            time.sleep(0.3)
            picture(later)
            return difference(earlier, later) <= CARET

        until(f"a picture of {name}", still)
        path = self.folder / f"{name}.png"
        subprocess.run(
            ["convert", str(later), "-crop", cut, "+repage", "-strip", "+dither", "-colors", str(COLOURS)]
            + ["-define", "png:compression-level=9", f"PNG8:{path}"],
            check=True,
        )
        print(path)


def place_of(number):
    """Left, top, right and bottom of a window with its frame, on the screen."""
    told = output("xwininfo", "-id", number)
    left, top, width, height = (
        int(re.search(rf"{name}: *(-?\d+)", told)[1]) for name in ("left X", "left Y", "Width", "Height")
    )
    frame = output("xprop", "-id", number, "_NET_FRAME_EXTENTS").rpartition("=")[2]  # a menu has none
    before, after, above, below = map(int, re.findall(r"\d+", frame)) if "," in frame else (0, 0, 0, 0)
    return left - before, top - above, left + width + after, top + height + below


def close(number, title):
    xdotool("windowactivate", "--sync", number)
    press("alt+F4")
    until(f"the end of {title}", lambda: number not in windows(title))


# --- the windows


def write_readings():
    write("Air Temperature", HEAT["ta"])
    write("Solar Radiation", HEAT["sr"])
    write("Relative Humidity", HEAT["rh"])
    write("Wind Speed", HEAT["ws"])


def main_and_results(album):
    main = window("Comfortics")
    write_readings()
    press("Return")
    results = window("Comfortics — Results")
    press(*["Down"] * 7)  # to the first blank value, whose reason the status bar tells
    widget("Outside its limits", "label")
    album.save("results-window", results)
    before = in_sight()
    press("alt+m")
    menu = until("the menu", lambda: in_sight() - before)
    album.save("results-menu", results, *menu, below=220)
    press("Escape")
    press("ctrl+f")
    xdotool("type", "--delay", 40, "wet bulb globe")
    album.save("results-search", results, below=260)
    close(results, "Comfortics — Results")

    xdotool("windowactivate", "--sync", main)
    album.save("main-window", main)
    press("alt+o")
    widget("Calculation rules", "label")
    album.save("options", main)
    press("Escape")
    return main


def converter(album, main):
    press("alt+c")
    number = window("Conversion of Units")
    write("Fahrenheit", "86")
    album.save("converter-window", number)
    # Beside the reading boxes, whose colour tells where a value can go. The place is that of the boxes, in pixels.
    boxes = widget("Air Temperature", "text").get_extents(Atspi.CoordType.SCREEN)
    xdotool("windowmove", "--sync", number, boxes.x + boxes.width + 80, place_of(main)[1])
    album.save("converter-boxes", main, number, right=place_of(number)[2] - place_of(main)[0])
    close(number, "Conversion of Units")


def pick_day():
    """Picks some day of the month that the calendar shows, today's, and steps from there to that of the example."""
    click("Date")
    # "Day 65 of the year, 2024-03-05"
    day = datetime.date.fromisoformat(widget("Day ", "label").get_name().rpartition(" ")[2])
    months = (DAY.year - day.year) * 12 + DAY.month - day.month
    press("Home", *["Next" if months > 0 else "Prior"] * abs(months), *["Right"] * (DAY.day - 1), "Return")
    widget(f"Day {DAY.timetuple().tm_yday} of the year", "label")


def radiation(album, main):
    xdotool("windowactivate", "--sync", main)
    press("alt+s")
    # Without a connection a message comes first.
    until("the radiation window", lambda: windows("No internet connection") or windows("Solar Radiation"))
    if message := windows("No internet connection"):
        xdotool("windowactivate", "--sync", message[0])
        press("Return")
    number = window("Solar Radiation")
    pick_day()
    click("World Map", "push button")
    write("Search a place", "Athens, Greece")
    press("Return")
    widget("Athens", "label")  # the clock that is offered
    click("Take over", "push button")
    click("4 -- Sky half cloudy", "list item")
    album.save("radiation-window", number)
    click("Calculate", "push button", "Solar Radiation")
    widget("Back", "push button", "Solar Radiation")
    album.save("radiation-table", number)
    close(number, "Solar Radiation")


def to_list():
    """Gives the list of indices the keyboard, in the row where it stands."""
    click("Find indices", "text")
    press("Down")


def batch(album, main):
    xdotool("windowactivate", "--sync", main)
    click("All indices", "check box")
    for name in CHOSEN:
        write("Search the index list", name)
        to_list()
        press("space")  # the list has found it, and the space ticks it
    press("alt+r")
    number = window("Raw Data")
    subprocess.run(["xclip", "-selection", "clipboard"], input=SHEET, encoding="utf-8", check=True)
    press("ctrl+v")
    widget("35.2", "table cell")
    press("Up")  # the paste leaves all rows selected
    album.save("batch-data", number)
    click("Calculate", "push button", "Raw Data")
    widget("Rows: ", "label")
    press(*["Down"] * 5)  # to the row that failed, whose reason the status bar tells
    widget("Row 6 failed", "label")
    album.save("batch-results", number)
    close(number, "Raw Data")


def station(album, main):
    """The made-up year of docs/station_file.md, by the precise rules."""
    example = pathlib.Path(__file__).resolve().parent.parent / "examples" / "make_station_year.py"
    with (pathlib.Path.home() / "station.csv").open("wb") as file:
        subprocess.run([sys.executable, "-B", example], stdout=file, check=True)
    xdotool("windowactivate", "--sync", main)
    press("alt+o")
    precise = widget("Calculation rules: Precise", "radio button")
    Atspi.Component.grab_focus(precise)  # a click hits its sign and its word alone
    press("space")
    until("precise rules", lambda: precise.get_state_set().contains(Atspi.StateType.CHECKED))
    press("Escape", "ctrl+shift+o")
    widget("File name", "text")
    xdotool("type", "--delay", 40, pathlib.Path.home() / "station.csv")
    press("Return")
    number = window("Station File")
    xdotool("windowmove", number, 0, 0, "windowsize", "--sync", number, 1180, 720)
    widget("station.csv: a text", "label")
    press("Tab")
    album.save("station-mapping", number)
    press("F5")
    widget("195 ", "table column header")
    click("Class colours", "check box")
    album.save("station-results", number)
    click("Charts", "page tab")
    pick("Time series", "Hours by")
    pick("90", "195")
    album.save("station-hours-by-days", number)
    pick("Hours by days", "Hours in")
    album.save("station-hours-in-classes", number)
    pick("All", "2023")
    click("Report", "push button", "Station File")
    paper = window("Report of the Station")
    page = widget("The report")
    write("Heading", "A year at 38° north")
    until("the heading", lambda: Atspi.Text.get_text(page, 0, -1).startswith("A year"))
    album.save("station-report", paper)
    press("Escape")
    close(number, "Station File")


def widen_panel(name, pixels):
    """Drags the left border of the panels at the right side, as far as the readings let it."""
    panel = widget(name).get_extents(Atspi.CoordType.SCREEN)
    border = panel.x - 10
    middle = panel.y + 330
    xdotool("mousemove", border, middle, "mousedown", 1)
    for x in range(border, border - pixels - 1, -40):
        xdotool("mousemove", x, middle)
    xdotool("mouseup", 1)


def sheet(album, main):
    xdotool("windowactivate", "--sync", main)
    write_readings()  # the sheet left those of its last row
    write("Search the index list", CHOSEN[1])
    to_list()
    press("ctrl+i")
    widget("Sheet of the index")
    xdotool("windowmove", main, 0, 0, "windowsize", "--sync", main, 1440, 800)
    widen_panel("Sheet of the index", 400)
    text = widget("Sheet of the index").get_extents(Atspi.CoordType.SCREEN)
    widget("Course of the index")
    album.save("index-sheet", main, left=text.x - 10, top=text.y - 30)


def comparison(album, main):
    """The situation of the day is pinned, and then a cloud comes."""
    xdotool("windowactivate", "--sync", main)
    press("ctrl+d")
    write("Solar Radiation", "200")
    write("Wind Speed", "4")
    click("Comparison", "table")
    press("End")  # the differences come into view
    table = widget("Comparison", "table").get_extents(Atspi.CoordType.SCREEN)
    album.save("comparison", main, left=table.x - 10, top=table.y - 110)


def report(album, main):
    xdotool("windowactivate", "--sync", main)
    write_readings()
    press("ctrl+shift+r")
    number = window("Report")
    write("Heading", "Heat on the building site, Athens, 21 July")
    write("Notes", "Noon, sun, work with shovels. Instruments 1.1 m above the ground.")
    album.save("report", number)
    press("Escape")


def standards(album, main):
    """The site of the report by ISO 7243 and ISO 7933."""
    xdotool("windowactivate", "--sync", main)
    write_readings()
    press("ctrl+shift+p")
    pick("Fields of all models", "Predicted heat strain (ISO 7933; 2023")
    write("Metabolic rate, met", "2.6")
    write("Clothing insulation", "0.6")
    press(*["Tab"] * 3, "Down")  # standing
    press(*["Tab"] * 3, *["Down"] * 2)  # acclimatised
    pick("Predicted heat strain", "Heat stress")
    write("Body weight", "75")
    write("Body height", "1.75")
    press(*["Tab"] * 2, *["Down"] * 2)  # in the sun
    click("My indices", "list")
    press("End", "ctrl+i")
    sheet = widget("Sheet of the index")
    until("the longest exposure", lambda: "Longest exposure" in Atspi.Text.get_text(sheet, 0, -1))
    text = sheet.get_extents(Atspi.CoordType.SCREEN)
    widget("Course of the index")
    album.save("heat-strain", main, left=text.x - 10, top=text.y - 30)
    click("Air Temperature", "combo box")
    press("End", "Return")
    widget("Course over the minutes")
    album.save("shift-minutes", main, left=text.x - 10, top=text.y + text.height)
    click("My indices", "list")
    press("End", "Up", "ctrl+i")
    until("the reference value", lambda: "Work and rest" in Atspi.Text.get_text(sheet, 0, -1))
    # A table wants more room than the sheet has beside its chart.
    width, height = (int(word) for word in output("xdotool", "getwindowgeometry", main).split()[-1].split("x"))
    xdotool("windowsize", "--sync", main, width, 830)
    click("Sheet of the index")
    place = Atspi.Text.get_text(sheet, 0, -1).index("Work and rest")
    Atspi.Text.set_caret_offset(sheet, place)
    press(*["Down"] * 8)  # to its end
    text = sheet.get_extents(Atspi.CoordType.SCREEN)
    album.save("work-rest", main, left=text.x - 10, top=text.y - 4, below=text.height + 8)
    xdotool("windowsize", "--sync", main, width, height)
    click("Person and Place", "page tab")
    album.save("iso-7243", main)


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as scratch:
        with open(os.devnull, "wb") as nowhere, subprocess.Popen([program], stderr=nowhere) as process:
            try:
                album = Album(folder, pathlib.Path(scratch))
                until("the program's widgets", lambda: next(widgets("Air Temperature", "text"), None))
                number = main_and_results(album)
                converter(album, number)
                radiation(album, number)
                batch(album, number)
                sheet(album, number)
                comparison(album, number)
                report(album, number)
                standards(album, number)
                station(album, number)  # leaves the precise rules
            finally:
                process.kill()


if __name__ == "__main__":
    main()
