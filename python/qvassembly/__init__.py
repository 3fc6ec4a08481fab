"""Sheet-metal job data as tables: parts, tools, sheets and more as delimited text, CSV and workbooks.

>>> import qvassembly
>>> for part in qvassembly.read(EXAMPLES / "parts.csv", "parts", formats=EXAMPLES / "AssemblyFormats.xml"):
...     if part["PartName"].startswith("BRACKET-L-10"):
...         print(part["PartName"], part["PartQuantity"])
BRACKET-L-100 8
"""

from __future__ import annotations

from ._core import AssemblyFileError, Cancelled, Field, FieldError, FieldType, QVAssemblyError, kind_number, record_type
from ._files import Diagnostic, Manager, Reader, Writer, from_pandas, read, write
from ._records import Record, RecordList
from ._library import library as _library

#: The version of the library.
__version__ = _library.qva_version().decode()

#: The kinds of record.
KINDS = (
    "parts",
    "tools",
    "materials",
    "sheets",
    "part-programs",
    "material-inventory",
    "material-library",
    "job-progress",
)


def fields(kind: str) -> dict[str, Field]:
    """The fields of a kind by their names.

    >>> fields("parts")["PartQuantity"].type.name
    'INTEGER'
    """
    return dict(record_type(kind_number(kind)).fields)


__all__ = [
    "KINDS",
    "AssemblyFileError",
    "Cancelled",
    "Diagnostic",
    "Field",
    "FieldError",
    "FieldType",
    "Manager",
    "QVAssemblyError",
    "Reader",
    "Record",
    "RecordList",
    "Writer",
    "__version__",
    "fields",
    "from_pandas",
    "read",
    "write",
]
