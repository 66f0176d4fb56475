"""The report as text: sections with tables, and the aims that were met or missed."""

from dataclasses import dataclass, field


def number(value, unit=""):
    """A figure with three digits that count, and its unit."""
    if abs(value) >= 100 or value == int(value):
        text = f"{value:,.0f}"
    elif abs(value) >= 10:
        text = f"{value:.1f}"
    elif abs(value) >= 1:
        text = f"{value:.2f}"
    else:
        text = f"{value:.2g}"
    return f"{text} {unit}".rstrip()


def milliseconds(value):
    """A time given in milliseconds, in the unit in which it reads best."""
    if value >= 1000:
        return number(value / 1000, "s")
    if value < 0.1 and value > 0:
        return number(value * 1000, "µs")
    return number(value, "ms")


def times(value):
    return number(value, "×")


@dataclass
class Aim:
    what: str
    aim: str
    measured: str
    is_met: bool

    @property
    def verdict(self):
        return "met" if self.is_met else "**missed**"


@dataclass
class Report:
    parts: list = field(default_factory=list)
    aims: list = field(default_factory=list)
    headlines: list = field(default_factory=list)  # sentences with the few figures that stand in the README

    def section(self, title, text):
        self.parts.append(f"## {title}\n\n{text.strip()}\n")

    def text(self, text):
        self.parts.append(text.strip() + "\n")

    def table(self, heads, rows):
        """The first column holds words, the others figures."""
        lines = ["| " + " | ".join(heads) + " |", "|---" + "|---:" * (len(heads) - 1) + "|"]
        lines += ["| " + " | ".join(row) + " |" for row in rows]
        self.parts.append("\n".join(lines) + "\n")

    def at_most(self, what, limit, value, show=milliseconds):
        """Notes an aim. @return the cell that tells of it"""
        aim = Aim(what, f"at most {show(limit)}", show(value), value <= limit)
        self.aims.append(aim)
        return f"{aim.aim}: {aim.verdict}"

    def markdown(self, introduction):
        rows = [[aim.what, aim.aim, aim.measured, aim.verdict] for aim in self.aims]
        summary = Report()
        summary.section("Aims", "What the program is to reach, and whether it did in this run.")
        summary.table(["", "aim", "measured", ""], rows)
        return "\n".join([introduction.strip() + "\n", *(summary.parts if rows else []), *self.parts])
