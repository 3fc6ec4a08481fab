"""Prints a workbook as another reader than the office sees it: the format's version, then each sheet's name and its cells
with their types. Prints nothing where that reader is not installed."""

import sys

try:
    import xlrd
except ImportError:
    sys.exit()

try:
    book = xlrd.open_workbook(sys.argv[1])
    print(book.biff_version)
    for sheet in book.sheets():
        rows = [" ".join(("%d:%.15g" if cell.ctype == 2 else "%d:%s") % (cell.ctype, cell.value) for cell in sheet.row(row))
                for row in range(sheet.nrows)]
        sys.stdout.buffer.write((sheet.name + " " + " | ".join(rows) + "\n").encode())
        sys.stdout.flush()
except Exception as error:  # what went wrong is what was read
    print(repr(error))
