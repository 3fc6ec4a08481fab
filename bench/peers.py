"""As peers.mjs, for the peers of Python: pandas, its csv module, and Miller as a program of its own."""

import csv
import json
import os
import resource
import subprocess
import sys
import time


def of_pandas(out, columns):
    import pandas

    types = {name: {"text": "str", "int": "int32", "real": "float64"}[kind] for name, kind in columns.items()}
    return (
        lambda path: pandas.read_csv(path, dtype=types, keep_default_na=False),
        lambda frame: frame.to_csv(out, index=False, quoting=csv.QUOTE_ALL),
    )


def of_csv(out, columns):
    convert = [{"text": str, "int": int, "real": float}[kind] for kind in columns.values()]

    def read(path):
        with open(path, newline="", encoding="utf-8") as source:
            rows = csv.reader(source)
            return [next(rows)] + [[to(cell) for to, cell in zip(convert, row)] for row in rows]

    def write(rows):
        with open(out, "w", newline="", encoding="utf-8") as target:
            csv.writer(target, quoting=csv.QUOTE_ALL).writerows(rows)

    return read, write


def of_miller(out, _columns):
    """Reading ends in one line; what is written has to be read again, as every run starts with nothing."""

    def run(path, *arguments):
        with open(out, "w", encoding="utf-8") as target:
            environment = {**os.environ, "GOMAXPROCS": "1"}
            subprocess.run(["mlr", "--csv", *arguments, path], stdout=target, check=True, env=environment)
        return path

    return lambda path: run(path, "tac", "then", "head", "-n", "1"), lambda path: run(path, "--quote-all", "cat")


def used():
    """Seconds of processor time of this process and the programs that it ran."""
    children = resource.getrusage(resource.RUSAGE_CHILDREN)
    return time.process_time() + children.ru_utime + children.ru_stime


def main(peer, file, out, columns_file, warm_up):
    with open(columns_file, encoding="utf-8") as text:
        columns = json.load(text)
    read, write = {"pandas": of_pandas, "csv": of_csv, "miller": of_miller}[peer](out, columns)
    write(read(warm_up))
    start = used()
    table = read(file)
    middle = used()
    write(table)
    print(json.dumps({"read": (middle - start) * 1000, "write": (used() - middle) * 1000}))


if __name__ == "__main__":
    main(*sys.argv[1:])
