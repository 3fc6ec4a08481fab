"""Prints what run.py measured as tables: report.py RESULTS.json."""

import json
import pathlib
import statistics
import sys

THREADS = {"miller": "1 at a time"}


class Figures:
    """The results by their medians, or by their minima."""

    def __init__(self, results, of):
        self.results, self.of = results, of

    def ms(self, scene, *names):
        return sum(self.of(self.results["times"][scene][name]["ms"]) for name in names)

    def speed(self, scene, name):
        return self.results["times"][scene][name]["bytes"] / 1000 / self.ms(scene, name)

    def peer(self, scene, what, peer):
        return self.of(self.results["peers"][scene]["times"][peer][what])

    def fastest_peer(self, scene, what):
        return min(self.peer(scene, what, peer) for peer in self.results["peers"][scene]["times"])

    def per_row(self, kind):
        """Nanoseconds a row, by rows."""
        return {int(rows): self.of(times) * 1e6 / int(rows) for rows, times in self.results["scaling"][kind].items()}

    def spread(self, kind):
        """How much more than the least a row takes, from 10,000 rows on."""
        steady = [time for rows, time in self.per_row(kind).items() if rows >= 10_000]
        return max(steady) / min(steady)


def split(scene, name):
    return lambda f: f.speed(scene, name) / f.speed(scene, "Separators")


# What is measured, the target, and how it is worked out.
MEASURES = [
    ("parts import / (parse into one record + fill large pages)", "<= 1.2",
     lambda f: f.ms("parts", "Import") / f.ms("parts", "ParseHot", "FillSlab")),
    ("parts import / polars", "<= 1.2", lambda f: f.ms("parts", "Import") / f.peer("parts", "read", "polars")),
    ("100,000 parts: times faster than line by line, new by new", ">= 4",
     lambda f: f.ms("plain", "ImportPlainly") / f.ms("plain", "Import")),
    ("100,000 parts: import / filling a new record for each", "",
     lambda f: f.ms("plain", "Import") / f.ms("plain", "FillNew")),
    ("inventory import: times faster than the fastest peer", ">= 2",
     lambda f: f.fastest_peer("inventory", "read") / f.ms("inventory", "Import")),
    ("splitting CSV: speed / finding separators", ">= 0.25", split("parts", "SplitCsv")),
    ("splitting qualified text: speed / finding separators", ">= 0.25", split("qualified", "SplitQualified")),
    ("splitting unqualified text: speed / finding separators", ">= 0.25", split("bare", "SplitUnqualified")),
    ("parts export / (read the texts + one write a line)", "<= 1.25",
     lambda f: f.ms("parts", "ExportParts") / (f.ms("parts", "ReadTexts") + f.ms("qualified", "WriteLines"))),
    ("parts export: times faster than the fastest peer", "",
     lambda f: f.fastest_peer("parts", "write") / f.ms("parts", "ExportParts")),
    ("inventory: slowest / fastest row from 10,000 rows on", "<= 1.1", lambda f: f.spread("inventory")),
    ("parts: slowest / fastest row from 10,000 rows on", "<= 1.1", lambda f: f.spread("parts")),
    ("import, most memory beyond the records, MB", "<= 16", lambda f: max(f.results["beyond_kib"].values()) / 1024),
    ("convert of nested sheets, peak memory, MB", "<= 32", lambda f: f.results["peak_kib"]["convert"] / 1024),
]


def verdict(target, value):
    if not target:
        return ""
    relation, limit = target.split()
    return "met" if (value <= float(limit) if relation == "<=" else value >= float(limit)) else "MISSED"


def table(title, *rows, first=58, width=14):
    print(f"\n{title}")
    for name, *cells in rows:
        print(f"{name:{first}}" + "".join(f"{cell:>{width}}" for cell in cells))


def number(value):
    return f"{value:.2f}" if value < 100 else f"{value:,.0f}"


def both(figures, measure):
    """A measure by medians and by minima, as texts; dashes where something was not there to be measured."""
    try:
        return [number(measure(each)) for each in figures]
    except (KeyError, ValueError):
        return ["-", "-"]


def show_measures(figures):
    rows = []
    for name, target, measure in MEASURES:
        cells = both(figures, measure)
        rows.append((name, target, *cells, verdict(target, measure(figures[0])) if cells[0] != "-" else "not measured"))
    table("Measures", ("", "target", "medians", "minima", ""), *rows)


def show_peers(results, figures):
    def row(name, threads, take):
        times = [both(figures, take(scene, what)) for scene, what in (("parts", "read"), ("parts", "write"), ("inventory", "read"))]
        return name, threads, *(f"{median} ({least})" for median, least in times)

    ours = {("parts", "read"): "Import", ("parts", "write"): "ExportParts", ("inventory", "read"): "Import"}
    rows = [row("QVAssemblyFile", 1, lambda scene, what: lambda f: f.ms(scene, ours[scene, what]))]
    for peer in results["peers"]["parts"]["times"]:
        rows.append(row(peer, THREADS.get(peer, 1), lambda scene, what, peer=peer: lambda f: f.peer(scene, what, peer)))
    table("Milliseconds of processor time, all threads together: medians (minima)",
          ("", "threads", "read parts", "write parts", "read inventory"), *rows, first=16, width=20)
    for peer, why in results["peers"]["parts"]["missing"].items():
        print(f"{peer} was not measured: {why[:400]}")


def show_scaling(figures):
    for kind in ("inventory", "parts"):
        medians, minima = (each.per_row(kind) for each in figures)
        table(f"Import of {kind}, nanoseconds a row", ("rows", "medians", "minima"),
              *((f"{rows:,}", number(medians[rows]), number(minima[rows])) for rows in medians), first=20)


def main(path):
    results = json.loads(pathlib.Path(path).read_text(encoding="utf-8"))
    figures = Figures(results, statistics.median), Figures(results, min)
    rows = results["rows"]
    print(f"{rows['parts']:,} parts, {rows['inventory']:,} inventory entries, {results['repetitions']} repetitions, "
          "processor time")
    show_measures(figures)
    show_peers(results, figures)
    show_scaling(figures)
    table(f"Memory of an import beyond its records, MB; {rows['kinds']:,} rows",
          *((kind, number(kib / 1024)) for kind, kib in results["beyond_kib"].items()), first=20)
    table(f"Peak memory of qvassembly, MB; {rows['streams']:,} rows",
          *((command, number(kib / 1024)) for command, kib in results["peak_kib"].items()), first=20)
    print("\nWorkbooks\n" + "\n".join(results["workbook"]))


if __name__ == "__main__":
    main(*sys.argv[1:])
