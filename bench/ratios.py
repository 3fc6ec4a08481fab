"""Prints the ratios between the library's times and the floors that were measured in the same run."""

import json
import pathlib
import statistics
import sys


def read(paths):
    """Per format and benchmark: the milliseconds of every repetition, the bytes and the rows."""
    runs = {}
    for path in paths:
        scene = pathlib.Path(path).stem
        for entry in json.loads(pathlib.Path(path).read_text())["benchmarks"]:
            if entry.get("run_type") != "iteration":
                continue
            run = runs.setdefault((scene, entry["name"].split("/")[0]), {"times": []})
            run["times"].append(entry["real_time"])
            run["bytes"] = entry.get("bytes", 0)
    return runs


class Report:
    def __init__(self, runs):
        self.runs = runs
        self.rows = []

    def time(self, *keys):
        """The medians and the minima of several benchmarks, each named by its scene and name, added up."""
        times = [self.runs[key]["times"] for key in keys]
        return sum(map(statistics.median, times)), sum(map(min, times))

    def ratio(self, what, scene, ours, floors, inverse=False):
        floor_keys = [floor if isinstance(floor, tuple) else (scene, floor) for floor in floors]
        (median, least), (floor, least_floor) = self.time((scene, ours)), self.time(*floor_keys)
        value, best = median / floor, least / least_floor
        if inverse:
            value, best = 1 / value, 1 / best
        self.rows.append({"measure": what, "ours_ms": median, "floor_ms": floor, "ratio": value, "ratio_of_minima": best})

    def speed(self, what, scene, name):
        median, least = self.time((scene, name))
        size = self.runs[scene, name]["bytes"] / 1000
        self.rows.append({"measure": what, "ours_ms": median, "mb_per_s": size / median, "mb_per_s_best": size / least})


def measures(report):
    parts = "parts-csv"
    lines = ("parts-qualified", "WriteLines")  # an export qualifies every cell
    report.ratio("parts import / (parse into one record + fill large pages)", parts, "ImportParts", ["ParseHot", "FillSlab"])
    report.ratio("parts import / fill one new record a row", parts, "ImportParts", ["FillNew"])
    report.ratio("parts import, times faster than line by line", parts, "ImportParts", ["ImportPartsPlainly"], inverse=True)
    report.ratio("parts export / one write a line", parts, "ExportParts", [lines])
    report.ratio("parts export / (read texts + one write a line)", parts, "ExportParts", ["ReadTexts", lines])
    for scene, name in ((parts, "SplitCsv"), ("parts-qualified", "SplitQualified"), ("parts-bare", "SplitUnqualified")):
        report.speed(f"{name}, MB/s", scene, name)
        report.ratio(f"{name}, speed / speed of finding separators", scene, name, ["Separators"], inverse=True)
    report.speed("inventory import, MB/s", "material-inventory-csv", "ImportInventory")


def main(arguments):
    as_json = arguments[:1] == ["--json"]
    rows, *paths = arguments[as_json:]
    report = Report(read(paths))
    measures(report)
    if as_json:
        print(json.dumps({"rows": int(rows), "threads": 1, "measures": report.rows}, indent=2))
        return
    print(f"{rows} rows, one thread, processor time; medians (least)")
    for row in report.rows:
        if "ratio" in row:
            print(f"{row['measure']:62} {row['ratio']:8.2f} ({row['ratio_of_minima']:.2f})")
        else:
            print(f"{row['measure']:62} {row['mb_per_s']:8.0f} ({row['mb_per_s_best']:.0f})")


if __name__ == "__main__":
    main(sys.argv[1:])
