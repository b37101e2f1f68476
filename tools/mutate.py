#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tells which single faults the tests do not notice.

Each fault is made in the source alone: an operator, a comparison, a constant or the order of two arguments changed, a
negation dropped, brackets dropped or put elsewhere in a sum or product. The tests of the room are built and run, the
source is restored, and the faults that no test has noticed are printed. Some of these are no faults: where nothing can
tell the two texts apart, the line may want to be simpler.
"""
import argparse
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
from typing import Iterator, NamedTuple

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Sources are laid out by clang-format: a binary operator has a space or a line's end on both sides, a template's
# bracket, a pointer's star and a sign have not.
TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])+')
      | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<number>(?<![\w.])(?:0[xX][\da-fA-F']+|(?:\d[\d']*\.?[\d']*|\.\d+)(?:[eE][+-]?\d+)?)[fFlLuU]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><<=|>>=|<=>|->|::|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
OTHER = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=",
         "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
         "<<": ">>", ">>": "<<", "&": "|", "|": "&"}
BINDING = {"*": 9, "/": 9, "%": 9, "+": 8, "-": 8, "<<": 7, ">>": 7, "<=>": 6, "<": 5, "<=": 5, ">": 5, ">=": 5,
           "==": 4, "!=": 4, "&": 3, "^": 2, "|": 1, "&&": 0, "||": -1}
CLOSING = {"(": ")", "[": "]", "{": "}"}
INVERSE = {"+": "-", "-": "+", "*": "/", "/": "*"}


class Token(NamedTuple):
    kind: str
    text: str
    begin: int
    end: int


class Fault(NamedTuple):
    file: pathlib.Path
    begin: int
    end: int
    instead: str
    what: str


def tokens_of(source: str) -> list[Token]:
    found = []
    for match in TOKEN.finditer(source):
        if match.lastgroup not in ("comment", "directive"):
            kind = "text" if match.lastgroup == "mark" else match.lastgroup
            found.append(Token(kind, match.group(), match.start(), match.end()))
    return found


class Reader:
    """Finds the faults that one source can have."""

    def __init__(self, file: pathlib.Path):
        self.file = file
        self.source = file.read_text(encoding="utf-8")
        self.tokens = tokens_of(self.source)
        self.partner: dict[int, int] = {}
        opened: list[int] = []
        for i, token in enumerate(self.tokens):
            if token.kind != "sign":
                continue
            if token.text in CLOSING:
                opened.append(i)
            elif token.text in CLOSING.values() and opened:
                self.partner[opened.pop()] = i

    def faults(self) -> list[Fault]:
        every = [*self.signs(), *self.numbers(), *self.brackets(), *self.other_brackets(),
                 *self.arguments()]
        for first, last in self.groups():
            every += self.chains(first, last)
        return sorted(set(every), key=lambda fault: (fault.begin, fault.end, fault.instead))

    def fault(self, begin: int, end: int, instead: str, what: str) -> Fault:
        return Fault(self.file, begin, end, instead, what)

    def spaced(self, i: int) -> bool:
        token = self.tokens[i]
        return (token.kind == "sign" and 0 < token.begin and self.source[token.begin - 1].isspace()
                and self.source[token.end:token.end + 1].isspace())

    def binary(self, i: int) -> bool:
        return self.tokens[i].text in BINDING and self.spaced(i)

    def signs(self) -> Iterator[Fault]:
        for i, token in enumerate(self.tokens):
            if token.kind != "sign":
                continue
            if token.text in OTHER and self.spaced(i):
                other = OTHER[token.text]
                yield self.fault(token.begin, token.end, other, f"{token.text} becomes {other}")
            elif token.text in "!-" and not self.spaced(i) and i > 0 and not self.ends_operand(i - 1):
                yield self.fault(token.begin, token.end, "", f"{token.text} dropped")

    def ends_operand(self, i: int) -> bool:
        token = self.tokens[i]
        return (token.kind in ("number", "text") or token.text in (")", "]")
                or token.kind == "word" and token.text not in ("return", "case"))

    def numbers(self) -> Iterator[Fault]:
        for token in self.tokens:
            match = token.kind == "number" and re.fullmatch(r"(\d*\.?\d*)((?:[eE][+-]?\d+)?[fFlLuU]*)", token.text)
            if not match:
                continue
            digits, rest = match.groups()
            whole = digits.replace(".", "")
            changed = str(int(whole) + 1).zfill(len(whole))
            point = digits.find(".")
            if point >= 0:
                after = len(digits) - 1 - point
                changed = changed[:len(changed) - after] + "." + changed[len(changed) - after:]
            yield self.fault(token.begin, token.end, changed + rest, f"{token.text} becomes {changed + rest}")

    def groups(self) -> Iterator[tuple[int, int]]:
        """What may hold expressions: between two brackets, separators or words that begin one."""
        ends = {",", ";", "?", ":", "=", "{", "}", "+=", "-=", "*=", "/="}
        def walk(first: int, last: int) -> Iterator[tuple[int, int]]:
            begin = i = first
            while i < last:
                token = self.tokens[i]
                if i in self.partner and self.partner[i] < last:
                    yield from walk(i + 1, self.partner[i])
                    if token.text == "{":
                        begin = self.partner[i] + 1
                    i = self.partner[i]
                elif (token.kind == "sign" and token.text in ends) or token.text == "return":
                    yield begin, i
                    begin = i + 1
                i += 1
            yield begin, last
        yield from walk(0, len(self.tokens))

    def operators(self, first: int, last: int) -> list[int]:
        found = []
        i = first
        while i < last:
            if i in self.partner:
                i = self.partner[i]
            elif self.binary(i):
                found.append(i)
            i += 1
        return found

    def chains(self, first: int, last: int) -> Iterator[Fault]:
        """a + b + c becomes a + (b + c), with the sign inside that keeps the sum: another rounding alone."""
        operators = self.operators(first, last)
        for level in (8, 9):
            chain: list[int] = []
            def brackets() -> Iterator[Fault]:
                for at, (left, right) in enumerate(zip(chain, chain[1:])):
                    behind = [i for i in operators if i > right and BINDING[self.tokens[i].text] <= level]
                    begin = self.tokens[left + 1].begin
                    end = self.tokens[(behind[0] if behind else last) - 1].end
                    middle = self.tokens[right]
                    inner = INVERSE[middle.text] if self.tokens[left].text in "-/" else middle.text
                    text = self.source[begin:middle.begin] + inner + self.source[middle.end:end]
                    yield self.fault(begin, end, f"({text})", "another bracket")
            for i in operators:
                text = self.tokens[i].text
                if BINDING[text] == level and text in INVERSE:
                    chain.append(i)
                elif BINDING[text] <= level:
                    yield from brackets()
                    chain = []
            yield from brackets()

    def brackets(self) -> Iterator[Fault]:
        """A bracket dropped, where that makes another expression."""
        for opening, closing in self.partner.items():
            if self.tokens[opening].text != "(" or opening == 0 or self.ends_operand(opening - 1):
                continue
            inside = [BINDING[self.tokens[i].text] for i in self.operators(opening + 1, closing)]
            before = BINDING[self.tokens[opening - 1].text] if self.binary(opening - 1) else -9
            behind = (BINDING[self.tokens[closing + 1].text]
                      if closing + 1 < len(self.tokens) and self.binary(closing + 1) else -9)
            sign = self.tokens[opening - 1].text in "-!" and not self.spaced(opening - 1)
            if inside and (min(inside) <= before or min(inside) < behind or sign):
                begin, end = self.tokens[opening].begin, self.tokens[closing].end
                yield self.fault(begin, end, self.source[begin + 1:end - 1], "brackets dropped")

    def other_brackets(self) -> Iterator[Fault]:
        """(a + b) + c becomes a + (b + c)."""
        for opening, closing in self.partner.items():
            outer = closing + 1
            if (self.tokens[opening].text != "(" or opening == 0 or self.ends_operand(opening - 1)
                    or outer + 1 >= len(self.tokens) or not self.binary(outer)):
                continue
            inside = self.operators(opening + 1, closing)
            level = min((BINDING[self.tokens[i].text] for i in inside), default=-9)
            before = self.tokens[opening - 1].text
            if level != BINDING[self.tokens[outer].text] or level < 8 or BINDING.get(before, -9) >= level:
                continue
            inner = [i for i in inside if BINDING[self.tokens[i].text] == level][-1]
            if {self.tokens[inner].text, self.tokens[outer].text} - set(INVERSE):
                continue
            last = outer + 1
            while last + 1 < len(self.tokens):
                last = self.partner.get(last, last)
                following = self.tokens[last + 1]
                if (following.kind == "sign" and following.text in ")],;?:}" or
                        self.binary(last + 1) and BINDING[following.text] <= level):
                    break
                last += 1
            left, right = self.tokens[inner], self.tokens[outer]
            sign = INVERSE[right.text] if left.text in "-/" else right.text
            begin, end = self.tokens[opening].begin, self.tokens[last].end
            text = (self.source[begin + 1:left.end] + " (" + self.source[left.end:self.tokens[closing].begin].strip()
                    + f" {sign} " + self.source[right.end:end].strip() + ")")
            yield self.fault(begin, end, text, "another bracket")

    def arguments(self) -> Iterator[Fault]:
        for opening, closing in self.partner.items():
            before = self.tokens[opening - 1] if opening > 0 else None
            if self.tokens[opening].text != "(" or before is None or before.kind != "word":
                continue
            commas = [opening]
            i = opening + 1
            while i < closing:
                i = self.partner.get(i, i)
                if self.tokens[i].text == ",":
                    commas.append(i)
                i += 1
            commas.append(closing)
            pieces = [(self.tokens[a + 1].begin, self.tokens[b - 1].end) for a, b in zip(commas, commas[1:]) if b > a + 1]
            # A parameter is two words or more beside each other.
            if any(re.search(r"\w[&*]? +[&*]?\w", self.source[a:b]) and not re.search(r" [-+*/<>=&|?:%]+ |^new |^sizeof ",
                                                                                  self.source[a:b])
                   for a, b in pieces):
                continue
            for (a, b), (c, d) in zip(pieces, pieces[1:]):
                one, other = self.source[a:b], self.source[c:d]
                if one != other:
                    yield self.fault(a, d, other + self.source[b:c] + one, f"{one} and {other} swapped")


class Stopped(Exception):
    pass


class Bench:
    """Builds and runs the tests. A source with a fault has two copies in the build folder, without and with it."""

    def __init__(self, preset: str, seconds: float):
        self.preset = preset
        self.seconds = seconds
        self.kept = ROOT / "build" / preset / "mutate"

    def restore(self) -> None:
        for faulty in list(self.kept.rglob("*.fault")):
            sound = faulty.with_suffix("")
            file = ROOT / sound.relative_to(self.kept)
            # After a crash somebody may have worked on the file.
            if file.is_file() and file.read_bytes() == faulty.read_bytes():
                # Written, not moved: the build must see that it is younger than what was compiled.
                file.write_bytes(sound.read_bytes())
            faulty.unlink()
            sound.unlink()

    def run(self, command: list[str]) -> str:
        """passed, failed or too long."""
        with subprocess.Popen(command, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, start_new_session=True) as process:
            try:
                return "passed" if process.wait(self.seconds) == 0 else "failed"
            except subprocess.TimeoutExpired:
                return "too long"
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, signal.SIGKILL)

    def build(self, targets: str) -> str:
        return self.run(["cmake", "--build", "--preset", self.preset, "--target", *targets.split()])

    def test(self, pattern: str) -> str:
        return self.run(["ctest", "--preset", self.preset, "--tests-regex", pattern, "--stop-on-failure",
                         "--timeout", str(self.seconds), "--parallel", str(os.cpu_count() or 1)])

    def outcome(self, fault: Fault, targets: str, pattern: str) -> str:
        sound = self.kept / fault.file.relative_to(ROOT)
        sound.parent.mkdir(parents=True, exist_ok=True)
        text = fault.file.read_text(encoding="utf-8")
        faulty = (text[:fault.begin] + fault.instead + text[fault.end:]).encode("utf-8")
        sound.write_bytes(fault.file.read_bytes())
        sound.with_name(sound.name + ".fault").write_bytes(faulty)
        try:
            fault.file.write_bytes(faulty)
            if self.build(targets) != "passed":
                return "not built"
            tested = self.test(pattern)
            return "SURVIVED" if tested == "passed" else "noticed" if tested == "failed" else "too long"
        finally:
            self.restore()


def described(fault: Fault) -> str:
    text = fault.file.read_text(encoding="utf-8")
    line = text.count("\n", 0, fault.begin) + 1
    begin = text.rfind("\n", 0, fault.begin) + 1
    end = text.find("\n", fault.end)
    now = text[begin:fault.begin] + fault.instead + text[fault.end:end if end >= 0 else len(text)]
    what = " ".join(fault.what.split())
    return f"{fault.file.relative_to(ROOT)}:{line}: {what}: {' '.join(now.split())}"


def room_of(file: pathlib.Path) -> str:
    parts = file.relative_to(ROOT).parts
    if len(parts) < 3 or parts[0] != "src":
        sys.exit(f"mutate.py: {file} lies in no room of src/.")
    return parts[1]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("files", nargs="+", metavar="FILE", type=pathlib.Path, help="source in src/")
    parser.add_argument("--preset", default="dev", help="built and tested with this preset; default: %(default)s")
    parser.add_argument("--target", help="what is built, with spaces between; default: the tests of the "
                        "source's room")
    parser.add_argument("--tests", metavar="REGEX", help="tests that are run; default: those of the source's room")
    parser.add_argument("--sample", metavar="N", type=int, help="try N faults only, drawn from all")
    parser.add_argument("--seed", type=int, default=1, help="of the sample; default: %(default)s")
    parser.add_argument("--lines", metavar="A-B", help="faults on these lines only")
    parser.add_argument("--seconds", type=float, default=300,
                        help="a build or a run of the tests that takes longer ends; default: %(default)s")
    parser.add_argument("--list", action="store_true", help="print the faults and try none")
    options = parser.parse_args()

    bench = Bench(options.preset, options.seconds)
    bench.restore()  # what a killed run has left
    faults = []
    for file in options.files:
        file = file.resolve()
        room_of(file)
        found = Reader(file).faults()
        if options.lines:
            first, _, last = options.lines.partition("-")
            text = file.read_text(encoding="utf-8")
            found = [fault for fault in found
                     if int(first) <= text.count("\n", 0, fault.begin) + 1 <= int(last or first)]
        faults += found
    if options.sample is not None and options.sample < len(faults):
        chosen = sorted(random.Random(options.seed).sample(range(len(faults)), options.sample))
        faults = [faults[i] for i in chosen]
    if options.list:
        for fault in faults:
            print(described(fault))
        return 0

    def ways(file: pathlib.Path) -> tuple[str, str]:
        room = room_of(file)
        return options.target or f"{room}_tests", options.tests or f"^{room}/"

    for targets, pattern in {ways(fault.file) for fault in faults}:
        if bench.build(targets) != "passed" or bench.test(pattern) != "passed":
            sys.exit(f"mutate.py: {targets} cannot be built, or fails, without any fault "
                     f"(is preset {options.preset} configured?).")

    def stop(*_: object) -> None:
        raise Stopped

    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, stop)
    outcomes: list[str] = []
    try:
        for i, fault in enumerate(faults):
            words = described(fault)
            outcomes.append(bench.outcome(fault, *ways(fault.file)))
            print(f"[{i + 1}/{len(faults)}] {outcomes[-1]:9}  {words}", flush=True)
    except Stopped:
        print("mutate.py: stopped", file=sys.stderr)
        return 130
    finally:
        bench.restore()
        counts = {kind: outcomes.count(kind) for kind in sorted(set(outcomes))}
        print(", ".join(f"{kind}: {count}" for kind, count in counts.items()))
    return 1 if "SURVIVED" in outcomes else 0


if __name__ == "__main__":
    sys.exit(main())
