"""Measures floors, the library and its peers side by side, and prints the results as JSON.

run.py BUILD quick|full SECONDS: BUILD has the benchmark programs in bench/, qvassembly in cli/, and in peers/ the packages
of those peers that have any. Each round measures everything once, ours beside what it is compared with, so that the n-th
figures of two are a pair. Rounds go on until the interval of every ratio is narrow, or until SECONDS have passed.
"""

import csv
import ctypes
import json
import mmap
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

import report

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


MIN_ROUNDS = 5  # the fewest that give an interval
REPETITIONS = 5  # of what has no partner


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


def processor_ms(process):
    """Waits for a program, which may end by a signal, and tells its processor time."""
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode > 0:
        raise Failure(f"{process.args[:2]} ended with {process.returncode}")
    return (usage.ru_utime + usage.ru_stime) * 1000


def processor():
    """What the system says of the processor."""
    facts = dict(line.split(":", 1) for line in output("lscpu").splitlines() if ":" in line)
    return {name.strip(): value.strip() for name, value in facts.items()
            if name.strip() in ("Model name", "CPU(s)", "L1d cache", "L2 cache", "L3 cache", "Hypervisor vendor")}


def megahertz():
    """The frequency of each core at the moment; empty where the system does not tell."""
    with open("/proc/cpuinfo", encoding="ascii", errors="replace") as facts:
        return [float(value) for value in re.findall(r"cpu MHz\s*: ([0-9.]+)", facts.read())]


def memory_costs():
    """What new memory costs: nanoseconds for the first touch of a page, and the rate of clearing memory that is there."""
    size = 1 << 28
    with mmap.mmap(-1, size) as memory:
        address = ctypes.addressof(ctypes.c_char.from_buffer(memory))
        seconds = []
        for _ in range(2):
            start = time.process_time()
            ctypes.memset(address, 1, size)
            seconds.append(time.process_time() - start)
    return {"first_touch_ns": (seconds[0] - seconds[1]) / (size / mmap.PAGESIZE) * 1e9,
            "clearing_gb_s": size / seconds[1] / 1e9}


def merge(into, more):
    """Adds the figures of a round to those of the rounds before."""
    for key, value in more.items():
        if isinstance(value, dict):
            merge(into.setdefault(key, {}), value)
        elif isinstance(value, list):
            into.setdefault(key, []).extend(value)
        else:
            into[key] = value


def run_ms(*command):
    """The processor time of a program's whole run."""
    return processor_ms(subprocess.Popen([str(word) for word in command], stdout=subprocess.DEVNULL))


def first_rows_ms(*command):
    """The processor time of a program whose reader goes after three lines."""
    with subprocess.Popen([str(word) for word in command], stdout=subprocess.PIPE) as reading:
        with subprocess.Popen(["head", "-n", "3"], stdin=reading.stdout, stdout=subprocess.DEVNULL):
            reading.stdout.close()
        return processor_ms(reading)


def last_row(path):
    with open(path, "rb") as file:
        file.seek(-min(os.path.getsize(path), 65536), os.SEEK_END)
        return file.read().splitlines()[-1].decode()


class Bench:
    def __init__(self, build, data):
        self.programs, self.cli, self.peers = build / "bench", build / "cli/qvassembly", build / "peers"
        self.data, self.missing = data, {}
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

    def times(self, form, rows, *names, repetitions=1):
        """The milliseconds of each repetition, and the bytes, of benchmarks on a file."""
        path, result = self.file(form, rows), self.data / "times.json"
        say(f"{form}, {rows} rows: {', '.join(names)}")
        output(self.programs / "qv_bench", f"--file={path}", f"--formats={self.formats}", f"--format={form}",
               f"--rows={rows}", f"--out={self.data}/out.csv", f"--benchmark_filter=^({'|'.join(names)})/",
               f"--benchmark_repetitions={repetitions}", "--benchmark_enable_random_interleaving=true",
               "--benchmark_min_time=0.05", f"--benchmark_out={result}", "--benchmark_out_format=json")
        runs = {}
        for entry in json.loads(result.read_text())["benchmarks"]:
            if entry["run_type"] == "iteration":
                run = runs.setdefault(entry["name"].split("/")[0], {"bytes": entry["bytes"], "ms": []})
                run["ms"].append(entry["real_time"])
        return runs

    def scaling(self, form, powers):
        return {10**power: self.times(form, 10**power, "Import", repetitions=REPETITIONS)["Import"]["ms"] for power in powers}

    def peer_times(self, form, rows):
        """As times(), of the reading and the writing of each peer that is there."""
        path, out, columns = self.file(form, rows), self.data / "peer.csv", self.data / "columns.json"
        columns.write_text(output(self.programs / "qv_bench_data", "columns", form.rsplit("-", 1)[0]))
        runs = {}
        for peer, program in PEERS.items():
            if peer in self.missing:
                continue
            say(f"{form}, {rows} rows: {peer}")
            touch_memory(8 * path.stat().st_size)
            try:
                command = *program, peer, path, out, columns, self.file(form, 1000)
                times = json.loads(output(*command, cwd=self.peers))
            except (OSError, Failure) as error:
                self.missing[peer] = str(error)
                continue
            self.expect_copy(peer, path, out)
            runs[peer] = {what: [milliseconds] for what, milliseconds in times.items()}
        return runs

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

    def tuples(self, form, rows):
        """Microseconds a row that Python takes for the tuples of a file."""
        say(f"{form}, {rows} rows: tuples in Python")
        build = self.programs.parent
        environment = {**os.environ, "QVASSEMBLY_LIBRARY": str(build / "libQVAssemblyFile.so"),
                       "PYTHONPATH": str(HERE.parent / "python")}
        return float(output(PYTHON[0], HERE / "read_tuples.py", self.file(form, rows), self.formats, form, env=environment))

    def document_peak(self, rows):
        """The peak of an import that prints one JSON document."""
        form = "material-inventory-csv"
        return self.peak(*self.on_file("import", form, rows, "--format", form, "--as", "json"))

    def commands(self, converted, read, small):
        """Milliseconds of processor time of whole runs of programs, by what they do."""
        say(f"qvassembly export --records and convert, {converted} parts; the first rows of {read}; a list of {small}")
        form, lines = "parts-csv", self.data / "parts.jsonl"
        if not lines.exists():
            with open(lines, "wb") as file:
                output(*self.on_file("import", form, converted, "--format", form, "--as", "jsonl"), to=file)
        export = (self.cli, "export", "--kind", "parts", "--config", self.formats, "--format", "parts-qualified",
                  "--records", lines, self.data / "exported.txt")
        copy = ("import csv, sys; csv.writer(open(sys.argv[2], 'w', newline=''), quoting=csv.QUOTE_ALL)"
                ".writerows(csv.reader(open(sys.argv[1], newline='')))")
        few = self.file(form, small)
        return {
            "convert": run_ms(*self.convert(form, converted, self.data / "c.txt")),
            "export --records": run_ms(*export),
            "import | head -3": first_rows_ms(*self.on_file("import", form, read, "--format", form)),
            "few": run_ms(*self.convert(form, small, self.data / "few.txt")),
            "few by miller": run_ms("mlr", "--csv", "--quote-all", "cat", few),
            "few by csv": run_ms(PYTHON[0], "-c", copy, few, self.data / "few.csv"),
        }

    def workbook(self):
        """What the program says of a workbook: calls a cell, and times against the office that converts the same."""
        say("a workbook")
        component = {"QVASSEMBLY_CALC": str(self.programs.parent / "qvassembly/QVAssemblyFileCalc.so")}
        program = self.programs / "qv_bench_workbook"
        return output(program, 2016, REPETITIONS, env={**component, **os.environ}).splitlines()

    def round(self, parts, inventory):
        """Everything that is compared with something, once."""
        names = "Import", "ReadParts", "FillSlab", "ParseHot", "SplitCsv", "Separators", "ExportParts", "ReadTexts"
        return {
            "times": {
                "parts": self.times("parts-csv", parts, *names),
                "plain": self.times("parts-csv", 100_000, "Import", "ImportPlainly", "FillNew"),
                "qualified": self.times("parts-qualified", parts, "SplitQualified", "Separators", "WriteLines"),
                "bare": self.times("parts-bare", parts, "SplitUnqualified", "Separators"),
                "inventory": self.times("material-inventory-csv", inventory, "Import", "Separators", "ReadInventory",
                                        "FetchInventory"),
            },
            "peers": {
                "parts": self.peer_times("parts-csv", parts),
                "inventory": self.peer_times("material-inventory-csv", inventory),
            },
            "tuples_us": [self.tuples("material-inventory-csv", inventory)],
            "commands": {what: [time] for what, time in self.commands(200_000, 1_000_000, 500).items()},
            "megahertz": megahertz(),
        }

    def run(self, seconds, parts, inventory, kinds, streams, powers):
        results = {
            "rows": {"parts": parts, "inventory": inventory, "streams": streams, "kinds": kinds},
            "machine": {**processor(), **memory_costs()},
            "scaling": {
                "inventory": self.scaling("material-inventory-csv", range(3, powers + 1)),
                "parts": self.scaling("parts-csv", range(3, powers)),
            },
            "beyond_kib": {kind: self.beyond_records(f"{kind}-csv", kinds) for kind in KINDS},
            "peak_kib": self.streams(streams),
            "document_kib": self.document_peak(2_000_000),
            "workbook": self.workbook(),
        }
        results["rounds"], results["ended"] = 0, "time"
        start = time.monotonic()
        while results["rounds"] < MIN_ROUNDS or time.monotonic() - start < seconds:
            say(f"round {results['rounds'] + 1}")
            merge(results, self.round(parts, inventory))
            results["rounds"] += 1
            if report.is_narrow(results):
                results["ended"] = "narrow"
                break
        return {**results, "missing": self.missing}


def main(build, size, seconds):
    with tempfile.TemporaryDirectory() as data:
        bench = Bench(pathlib.Path(build).resolve(), pathlib.Path(data))
        json.dump(bench.run(int(seconds), **SIZES[size]), sys.stdout, indent=1)


if __name__ == "__main__":
    main(*sys.argv[1:])
