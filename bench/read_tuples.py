"""Reads an inventory file as tuples of all its fields; prints microseconds of processor time a row.

read_tuples.py FILE FORMATS FORMAT, with the package qvassembly on PYTHONPATH."""

import sys
import time

import qvassembly

KIND = "material-inventory"


def main(path, formats, name):
    start = time.process_time()
    with qvassembly.read(path, KIND, formats=formats, format=name) as reader:
        rows = sum(1 for _ in reader.tuples(*qvassembly.fields(KIND)))
    print((time.process_time() - start) / rows * 1e6)


if __name__ == "__main__":
    main(*sys.argv[1:])
