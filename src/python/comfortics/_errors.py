# SPDX-License-Identifier: GPL-3.0-or-later
"""What is said of a name that there is not."""


class UnknownIndexError(KeyError):
    """There is no index or quantity of that name or number."""

    def __str__(self):
        return self.args[0]  # a KeyError would show it in quotes


def _likeness(matcher, name):
    """How like a name is: as a whole, or to its beginning, which is what users remember of it."""
    parts = name.split("_")
    best = 0.0
    for count in range(1, len(parts) + 1):
        matcher.set_seq2("_".join(parts[:count]))
        if matcher.real_quick_ratio() > best:
            best = max(best, matcher.ratio())
    return best


def did_you_mean(name, known):
    """A closing sentence, with a leading blank; empty where nothing is near."""
    from difflib import SequenceMatcher

    matcher = SequenceMatcher(a=str(name).lower().replace(" ", "_").replace("-", "_"))
    near = sorted(((-_likeness(matcher, other), other) for other in set(known)))[:3]
    near = [repr(other) for likeness, other in near if likeness <= -0.7]
    return f" Did you mean {' or '.join(near)}?" if near else ""
