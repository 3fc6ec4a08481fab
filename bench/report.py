"""Prints what run.py measured as tables: report.py RESULTS.json."""

import json
import math
import pathlib
import statistics
import sys

THREADS = {"miller": "1 at a time"}


class Figures:
    """The results by what is taken of the rounds: one of them, or their median."""

    def __init__(self, results, of):
        self.results, self.of = results, of

    def ms(self, scene, *names):
        return sum(self.of(self.results["times"][scene][name]["ms"]) for name in names)

    def speed(self, scene, name):
        return self.results["times"][scene][name]["bytes"] / 1000 / self.ms(scene, name)

    def command(self, name):
        return self.of(self.results["commands"][name])

    def peer(self, scene, what, peer):
        return self.of(self.results["peers"][scene][peer][what])

    def fastest_peer(self, scene, what):
        return min(self.peer(scene, what, peer) for peer in self.results["peers"][scene])

    def per_row(self, kind):
        """Nanoseconds a row, by rows."""
        return {int(rows): self.of(times) * 1e6 / int(rows) for rows, times in self.results["scaling"][kind].items()}

    def spread(self, kind):
        """How much more than the least a row takes, from 10,000 rows on."""
        steady = [time for rows, time in self.per_row(kind).items() if rows >= 10_000]
        return max(steady) / min(steady)


def split(scene, name):
    return lambda f: f.speed(scene, name) / f.speed(scene, "Separators")


# What is compared with something of the same round, the target, and how it is worked out.
RATIOS = [
    ("parts import / (parse into one record + fill large pages)", "<= 1.2",
     lambda f: f.ms("parts", "Import") / f.ms("parts", "ParseHot", "FillSlab")),
    ("parts import / polars", "<= 1.2", lambda f: f.ms("parts", "Import") / f.peer("parts", "read", "polars")),
    ("parts record by record / the fastest peer's whole read", "<= 0.6",
     lambda f: f.ms("parts", "ReadParts") / f.fastest_peer("parts", "read")),
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
    ("inventory in batches through the C interface / C++ reader", "<= 1.05",
     lambda f: f.ms("inventory", "FetchInventory") / f.ms("inventory", "ReadInventory")),
    ("inventory as tuples in Python, microseconds a row", "<= 3", lambda f: f.of(f.results["tuples_us"])),
    ("200,000 parts: export --records of JSON lines / convert", "<= 4",
     lambda f: f.command("export --records") / f.command("convert")),
    ("1,000,000 parts: import | head -3, seconds", "<= 0.2", lambda f: f.command("import | head -3") / 1000),
    ("a list of 500 parts, copied: whole run / Miller's", "<= 1", lambda f: f.command("few") / f.command("few by miller")),
    ("a list of 500 parts, copied: whole run / Python's csv", "<= 1", lambda f: f.command("few") / f.command("few by csv")),
]

# What has no partner, and is measured once.
ONCE = [
    ("inventory: slowest / fastest row from 10,000 rows on", "<= 1.1", lambda f: f.spread("inventory")),
    ("parts: slowest / fastest row from 10,000 rows on", "<= 1.1", lambda f: f.spread("parts")),
    ("import, most memory beyond the records, MB", "<= 16", lambda f: max(f.results["beyond_kib"].values()) / 1024),
    ("convert of nested sheets, peak memory, MB", "<= 32", lambda f: f.results["peak_kib"]["convert"] / 1024),
    ("import --as json of 2,000,000 entries, peak memory, MB", "<= 32", lambda f: f.results["document_kib"] / 1024),
]

CONFIDENCE = 0.9
WIDEST = 0.1  # what an interval may be wide, as a share of its lower end


def interval(values):
    """Where the median lies that the values are drawn around, with CONFIDENCE and whatever their distribution is; none
    for fewer than five."""
    count, below, rank = len(values), 0.0, 0
    while below + math.comb(count, rank) / 2**count <= (1 - CONFIDENCE) / 2:
        below += math.comb(count, rank) / 2**count
        rank += 1
    return (sorted(values)[rank - 1], sorted(values)[count - rank]) if rank > 0 else None


def of_rounds(results, measure):
    """The measure in each round; empty where something was not there to be measured."""
    try:
        return [measure(Figures(results, lambda figures, number=number: figures[number]))
                for number in range(results["rounds"])]
    except (KeyError, ValueError, IndexError):
        return []


def is_narrow(results):
    """Whether every ratio with a target is known well enough."""
    spans = [interval(values) for _, target, measure in RATIOS if target and (values := of_rounds(results, measure))]
    return all(span is not None and span[1] <= (1 + WIDEST) * span[0] for span in spans)


def is_met(target, value):
    relation, limit = target.split()
    return value <= float(limit) if relation == "<=" else value >= float(limit)


def verdict(target, *span):
    """Of the two ends of an interval, or of one value."""
    if not target:
        return ""
    met = {is_met(target, value) for value in span}
    return "not decided" if len(met) > 1 else "met" if met.pop() else "MISSED"


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


def show_machine(machine, megahertz):
    print(", ".join(f"{name} {value}" for name, value in machine.items() if isinstance(value, str)))
    print(f"first touch of a page {machine['first_touch_ns']:.0f} ns, clearing memory {machine['clearing_gb_s']:.1f} GB/s"
          + (f", {min(megahertz):.0f} to {max(megahertz):.0f} MHz during the run" if megahertz else ""))


def show_ratios(results):
    rows = []
    for name, target, measure in RATIOS:
        values = of_rounds(results, measure)
        if values:
            low, high = interval(values)
            rows.append((name, target, number(statistics.median(values)), f"{number(low)} to {number(high)}",
                         verdict(target, low, high)))
        else:
            rows.append((name, target, "-", "-", "not measured"))
    table(f"Ratios of each round: medians, and 90 % intervals of {results['rounds']} rounds",
          ("", "target", "median", "interval", ""), *rows, width=16)
    print("The rounds ended when " + ("every interval was narrower than 10 %" if results["ended"] == "narrow" else
                                      "their time was up; an interval that is wide says that the machine had other work"))


def show_once(results):
    figures = Figures(results, statistics.median)
    table("Measured once", ("", "target", "", ""),
          *((name, target, number(measure(figures)), verdict(target, measure(figures))) for name, target, measure in ONCE))


def show_peers(results, figures):
    def row(name, threads, take):
        times = [both(figures, take(scene, what)) for scene, what in (("parts", "read"), ("parts", "write"), ("inventory", "read"))]
        return name, threads, *(f"{median} ({least})" for median, least in times)

    ours = {("parts", "read"): "Import", ("parts", "write"): "ExportParts", ("inventory", "read"): "Import"}
    rows = [row("QVAssemblyFile", 1, lambda scene, what: lambda f: f.ms(scene, ours[scene, what]))]
    for peer in results["peers"]["parts"]:
        rows.append(row(peer, THREADS.get(peer, 1), lambda scene, what, peer=peer: lambda f: f.peer(scene, what, peer)))
    table("Milliseconds of processor time, all threads together: medians (minima)",
          ("", "threads", "read parts", "write parts", "read inventory"), *rows, first=16, width=20)
    for peer, why in results["missing"].items():
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
    print(f"{rows['parts']:,} parts, {rows['inventory']:,} inventory entries, processor time")
    show_machine(results["machine"], results["megahertz"])
    show_ratios(results)
    show_once(results)
    show_peers(results, figures)
    show_scaling(figures)
    table(f"Memory of an import beyond its records, MB; {rows['kinds']:,} rows",
          *((kind, number(kib / 1024)) for kind, kib in results["beyond_kib"].items()), first=20)
    table(f"Peak memory of qvassembly, MB; {rows['streams']:,} rows",
          *((command, number(kib / 1024)) for command, kib in results["peak_kib"].items()), first=20)
    print("\nWorkbooks\n" + "\n".join(results["workbook"]))


if __name__ == "__main__":
    main(*sys.argv[1:])
