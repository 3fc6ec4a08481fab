"""Measures floors, the library and its peers side by side, and prints the results as JSON.

run.py BUILD quick|full REPETITIONS: BUILD has the benchmark programs in bench/, qvassembly in cli/, and in peers/ the
packages of those peers that have any.
"""

import csv
import json
import os
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).parent
SEED = 1
KINDS = ("parts", "tools", "materials", "sheets", "part-programs", "material-inventory", "material-library")
SIZES = {
    "quick": {"parts": 100_000, "inventory": 200_000, "kinds": 50_000, "streams": 1_000_000, "powers": 6},
    "full": {"parts": 1_000_000, "inventory": 1_000_000, "kinds": 1_000_000, "streams": 10_000_000, "powers": 7},
}
PYTHON = ["/usr/bin/python3", HERE / "peers.py"]
NODE = ["node", HERE / "peers.mjs"]
PEERS = {"polars": NODE, "duckdb": NODE, "pandas": PYTHON, "csv": PYTHON, "miller": PYTHON}


class Failure(Exception):
    """A program that failed, and what it said."""


def say(text):
    print(f"== {text}", file=sys.stderr, flush=True)


def output(*command, to=subprocess.PIPE, **options):
    """What a program writes to its standard output, unless that goes elsewhere."""
    words = [str(word) for word in command]
    done = subprocess.run(words, stdout=to, stderr=subprocess.PIPE, text=True, check=False, **options)
    if done.returncode != 0:
        raise Failure(f"{' '.join(words)}: {done.stderr.strip()}")
    return done.stdout


def touch_memory(size):
    """Uses memory once, so that a virtual machine has got it when the next process asks."""
    return len(b"\1" * size)


def last_row(path):
    with open(path, "rb") as file:
        file.seek(-min(os.path.getsize(path), 65536), os.SEEK_END)
        return file.read().splitlines()[-1].decode()


class Bench:
    def __init__(self, build, data, repetitions):
        self.programs, self.cli, self.peers = build / "bench", build / "cli/qvassembly", build / "peers"
        self.data, self.repetitions = data, repetitions
        self.formats = data / "formats.xml"
        self.formats.write_text(output(self.programs / "qv_bench_data", "formats"))

    def file(self, form, rows):
        """A file in a format named KIND-DRESS. It is made when it is first asked for."""
        kind, dress = form.rsplit("-", 1)
        path = self.data / f"{form}-{rows}.{'csv' if dress == 'csv' else 'txt'}"
        if not path.exists() and dress == "qualified":  # what an export writes
            output(*self.convert(f"{kind}-csv", rows, path))
        elif not path.exists():
            with open(path, "wb") as file:
                output(self.programs / "qv_bench_data", "rows", kind, dress, rows, SEED, to=file)
        return path

    def on_file(self, command, form, rows, *options):
        """A command of qvassembly on a file."""
        kind = form.rsplit("-", 1)[0]
        return self.cli, command, "--kind", kind, "--config", self.formats, *options, self.file(form, rows)

    def convert(self, form, rows, to):
        """The command that writes a file again with every cell in quotes."""
        kind = form.rsplit("-", 1)[0]
        return *self.on_file("convert", form, rows, "--from", form, "--to", f"{kind}-qualified"), to

    def times(self, form, rows, *names):
        """The milliseconds of each repetition, and the bytes, of benchmarks on a file."""
        path, result = self.file(form, rows), self.data / "times.json"
        say(f"{form}, {rows} rows: {', '.join(names)}")
        output(self.programs / "qv_bench", f"--file={path}", f"--formats={self.formats}", f"--format={form}",
               f"--rows={rows}", f"--out={self.data}/out.csv", f"--benchmark_filter=^({'|'.join(names)})/",
               f"--benchmark_repetitions={self.repetitions}", "--benchmark_enable_random_interleaving=true",
               "--benchmark_min_time=0.05", f"--benchmark_out={result}", "--benchmark_out_format=json")
        runs = {}
        for entry in json.loads(result.read_text())["benchmarks"]:
            if entry["run_type"] == "iteration":
                run = runs.setdefault(entry["name"].split("/")[0], {"bytes": entry["bytes"], "ms": []})
                run["ms"].append(entry["real_time"])
        return runs

    def scaling(self, form, powers):
        return {10**power: self.times(form, 10**power, "Import")["Import"]["ms"] for power in powers}

    def peer_times(self, form, rows):
        """As times(), of the reading and the writing of each peer that is there, and why others are not."""
        path, out, columns = self.file(form, rows), self.data / "peer.csv", self.data / "columns.json"
        columns.write_text(output(self.programs / "qv_bench_data", "columns", form.rsplit("-", 1)[0]))
        runs, missing = {}, {}
        for turn in range(self.repetitions):
            for peer, program in PEERS.items():
                if peer in missing:
                    continue
                say(f"{form}, {rows} rows: {peer}, run {turn + 1}")
                touch_memory(8 * path.stat().st_size)
                try:
                    command = *program, peer, path, out, columns, self.file(form, 1000)
                    times = json.loads(output(*command, cwd=self.peers))
                except (OSError, Failure) as error:
                    missing[peer] = str(error)
                    continue
                self.expect_copy(peer, path, out)
                for what, milliseconds in times.items():
                    runs.setdefault(peer, {}).setdefault(what, []).append(milliseconds)
        return {"times": runs, "missing": missing}

    @staticmethod
    def expect_copy(peer, path, out):
        """The peer is to have done the same work: the last row is there, with its cells in quotes."""
        written, read = (next(csv.reader([last_row(file)])) for file in (out, path))
        if not last_row(out).startswith('"') or written[:3] != read[:3]:
            sys.exit(f"{peer} did not write what it should: {written}")

    def beyond_records(self, form, rows):
        """What an import took at its peak beside the memory of its records, in KiB."""
        say(f"peak memory, {form}, {rows} rows")
        path = self.file(form, rows)
        return json.loads(output(self.programs / "qv_bench_memory", path, self.formats, form))["beyond_kib"]

    def peak(self, *command):
        """The most memory that a program took, in KiB."""
        say(f"peak memory, qvassembly {command[1]}")
        figure = self.data / "peak"
        output("/usr/bin/time", "-f", "%M", "-o", figure, *command, to=subprocess.DEVNULL)
        return int(figure.read_text())

    def streams(self, rows):
        """The peaks of the commands that hold one record at a time."""
        inventory, sheets = "material-inventory-csv", "sheets-csv"
        return {
            "convert": self.peak(*self.convert(sheets, rows, self.data / "sheets.txt")),
            "import --as jsonl": self.peak(
                *self.on_file("import", inventory, rows, "--format", inventory, "--as", "jsonl")),
            "check": self.peak(*self.on_file("check", inventory, rows, "--format", inventory)),
        }

    def workbook(self):
        """What the program says of a workbook: the calls of an import, and its time where there is an office."""
        say("a workbook")
        component = {"QVASSEMBLY_CALC": str(self.programs.parent / "qvassembly/QVAssemblyFileCalc.so")}
        program = self.programs / "qv_bench_workbook"
        return output(program, 500, self.repetitions, env={**component, **os.environ}).splitlines()

    def run(self, parts, inventory, kinds, streams, powers):
        parts_names = "Import", "FillSlab", "ParseHot", "SplitCsv", "Separators", "ExportParts", "ReadTexts"
        return {
            "rows": {"parts": parts, "inventory": inventory, "streams": streams, "kinds": kinds},
            "repetitions": self.repetitions,
            "times": {
                "parts": self.times("parts-csv", parts, *parts_names),
                "plain": self.times("parts-csv", 100_000, "Import", "ImportPlainly", "FillNew"),
                "qualified": self.times("parts-qualified", parts, "SplitQualified", "Separators", "WriteLines"),
                "bare": self.times("parts-bare", parts, "SplitUnqualified", "Separators"),
                "inventory": self.times("material-inventory-csv", inventory, "Import", "Separators"),
            },
            "peers": {
                "parts": self.peer_times("parts-csv", parts),
                "inventory": self.peer_times("material-inventory-csv", inventory),
            },
            "scaling": {
                "inventory": self.scaling("material-inventory-csv", range(3, powers + 1)),
                "parts": self.scaling("parts-csv", range(3, powers)),
            },
            "beyond_kib": {kind: self.beyond_records(f"{kind}-csv", kinds) for kind in KINDS},
            "peak_kib": self.streams(streams),
            "workbook": self.workbook(),
        }


def main(build, size, repetitions):
    with tempfile.TemporaryDirectory() as data:
        bench = Bench(pathlib.Path(build).resolve(), pathlib.Path(data), int(repetitions))
        json.dump(bench.run(**SIZES[size]), sys.stdout, indent=1)


if __name__ == "__main__":
    main(*sys.argv[1:])
