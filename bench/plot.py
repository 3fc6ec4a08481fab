"""Draws what run.py measured of the library and its peers: plot.py RESULTS.json PICTURE.svg."""

import json
import pathlib
import statistics
import sys

import matplotlib

matplotlib.use("svg")
from matplotlib import pyplot  # noqa: E402  (the back end comes first)

from report import Figures  # noqa: E402

OURS, PEERS, TEXT = "#2f7fd0", "#9a9a9a", "#808080"  # to be read on white and on black
SCENES = (("parts", "read", "Import", "read parts"), ("parts", "write", "ExportParts", "write parts"),
          ("inventory", "read", "Import", "read inventory"))


def main(results_path, picture):
    results = json.loads(pathlib.Path(results_path).read_text(encoding="utf-8"))
    figures = Figures(results, statistics.median)
    matplotlib.rcParams.update({"svg.hashsalt": "qvassembly", "text.color": TEXT, "axes.labelcolor": TEXT,
                                "xtick.color": TEXT, "ytick.color": TEXT, "axes.edgecolor": TEXT, "font.size": 9})
    canvas, charts = pyplot.subplots(1, len(SCENES), figsize=(10, 2.4), sharey=True)
    for chart, (scene, what, ours, title) in zip(charts, SCENES):
        times = {peer: figures.peer(scene, what, peer) for peer in results["peers"][scene]}
        bars = [("QVAssemblyFile", figures.ms(scene, ours)), *sorted(times.items(), key=lambda bar: bar[0])]
        names, values = zip(*reversed(bars))
        drawn = chart.barh(names, values, color=[OURS if name == "QVAssemblyFile" else PEERS for name in names])
        chart.bar_label(drawn, [f"{value:,.0f}" for value in values], padding=3, color=TEXT)
        chart.set_xscale("log")
        chart.set_xlim(min(values) / 2, max(values) * 4)
        chart.set_title(f"{title}, {results['rows'][scene]:,} rows", fontsize=9)
        chart.set_xlabel("ms of processor time")
        chart.spines[["top", "right"]].set_visible(False)
    canvas.tight_layout()
    canvas.savefig(picture, transparent=True, metadata={"Date": None})


if __name__ == "__main__":
    main(*sys.argv[1:])
