"""Reading and writing data files."""

from __future__ import annotations

import ctypes
import os
from array import array
from collections.abc import Callable, Iterable, Iterator, Mapping
from ctypes import byref, c_char_p, c_int32, c_void_p
from dataclasses import dataclass
from pathlib import Path
from typing import Any

from ._core import (
    END,
    OK,
    SHORT_BUFFER,
    AssemblyFileError,
    FieldType,
    check,
    encoded,
    error,
    handle_of,
    int_of,
    kind_number,
    record_type,
    text_of,
)
from ._library import DIAGNOSTIC_CALLBACK, PROGRESS_CALLBACK, library
from ._records import Record

FilePath = "str | os.PathLike[str]"
FORMAT_FILE = "AssemblyFormats.xml"

Progress = Callable[[int, int], Any]


@dataclass(frozen=True)
class Diagnostic:
    """One remark on what was not taken as it stood."""

    file: str
    #: 1-based line or worksheet row; 0 where the remark is about the whole file.
    line: int
    #: The column's keyword, or empty.
    column: str
    #: A stable word such as ``row-left-out``.
    code: str
    #: What was found, and what was made of it.
    text: str
    stored: str
    #: A sentence for a person.
    message: str

    def __str__(self) -> str:
        line = f":{self.line}" if self.line else ""
        column = f" {self.column}:" if self.column else ""
        return f"{self.file}{line}:{column} {self.message}"


class Manager:
    """Formats, and the files that are read and written with them, one at a time."""

    def __init__(self, formats: FilePath | None = None, format: str | None = None) -> None:
        self._handle = handle_of(library.qva_manager_create)
        self._callbacks: dict[str, Any] = {}
        #: What was remarked on so far.
        self.diagnostics: list[Diagnostic] = []
        self._listen()
        if formats is not None:
            self.load(formats)
        if format is not None:
            self.format = format

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            library.qva_manager_destroy(self._handle)

    def _listen(self) -> None:
        kept = self.diagnostics  # not self: a cycle would keep the manager alive

        def on_diagnostic(_context: Any, file: bytes, line: int, *texts: bytes) -> None:
            column, code, text, stored, message = (each.decode() for each in texts)
            kept.append(Diagnostic(file.decode(), line, column, code, text, stored, message))

        self._callbacks["diagnostic"] = DIAGNOSTIC_CALLBACK(on_diagnostic)
        check(library.qva_manager_on_diagnostic(self._handle, self._callbacks["diagnostic"], None))

    def on_progress(self, progress: Progress | None) -> None:
        """Calls ``progress(done, of)`` during long work; ``False`` from it cancels. ``of`` is 0 where it is not known."""
        if progress is None:
            callback = PROGRESS_CALLBACK()
        else:
            callback = PROGRESS_CALLBACK(lambda _context, done, total: progress(done, total) is not False)
        check(library.qva_manager_on_progress(self._handle, callback, None))
        self._callbacks["progress"] = callback

    def decimal_comma(self, *, read: bool = False, write: bool = False) -> None:
        """Says whether numbers of text files that are read or written have a comma as the decimal sign."""
        check(library.qva_manager_decimal_comma(self._handle, read, write))

    def load(self, formats: FilePath) -> None:
        """Loads a format file."""
        check(library.qva_formats_load(self._handle, os.fspath(formats).encode()))

    @property
    def formats(self) -> list[str]:
        """The names of the formats there are."""
        count = int_of(library.qva_formats_count, self._handle)
        return [text_of(library.qva_format_name, self._handle, index) for index in range(count)]

    @property
    def format(self) -> str:
        """The name of the format that is used."""
        return text_of(library.qva_format_name, self._handle, int_of(library.qva_format_current, self._handle))

    @format.setter
    def format(self, name: str) -> None:
        check(library.qva_format_select(self._handle, encoded(name)))

    def columns(self, format: str | None = None) -> list[str]:
        """The column keywords of a format (None: the one that is used), in their order."""
        name = self.format if format is None else format
        index = int_of(library.qva_formats_find, self._handle, encoded(name))
        count = int_of(library.qva_format_column_count, self._handle, index)
        return [text_of(library.qva_format_column, self._handle, index, column) for column in range(count)]

    def stored_format(self, path: FilePath) -> str | None:
        """The name of a format that the data file carries."""
        return text_of(library.qva_stored_format_get, self._handle, os.fspath(path).encode()) or None

    def store_format(self, path: FilePath, name: str) -> None:
        """Makes the text file carry the name of a format."""
        check(library.qva_stored_format_set(self._handle, os.fspath(path).encode(), encoded(name)))

    def read(self, path: FilePath, kind: str) -> Reader:
        return Reader(self, path, kind)

    def write(self, path: FilePath, kind: str) -> Writer:
        return Writer(self, path, kind)


def _manager_for(path: FilePath, formats: FilePath | Manager | None, format: str | None) -> Manager:
    if isinstance(formats, Manager):
        manager = formats
    else:
        manager = Manager(formats if formats is not None else _find_formats(Path(path)))
    if format is None and Path(path).exists():
        stored = manager.stored_format(path)
        format = stored if stored in manager.formats else None
    if format is not None:
        manager.format = format
    return manager


def _find_formats(path: Path) -> Path:
    named = os.environ.get("QVASSEMBLY_CONFIG")
    if named:
        return Path(named)
    places = [path.parent / FORMAT_FILE, Path(FORMAT_FILE)]
    for place in places:
        if place.exists():
            return place
    looked = " and ".join(str(place) for place in dict.fromkeys(places))
    raise AssemblyFileError(f"there is no format file; name one (looked for {looked})")


class Reader(Iterator[Record]):
    """Reads a data file record by record; what :func:`read` returns.

    Ends, and closes the file, with the last record, with ``close()`` or at the end of a ``with`` block.
    """

    def __init__(self, manager: Manager, path: FilePath, kind: str) -> None:
        self._handle: c_void_p | None = None
        self._manager = manager
        number = kind_number(kind)
        self._type = record_type(number)
        handle = c_void_p()
        check(library.qva_reader_open(manager._handle, number, os.fspath(path).encode(), byref(handle)))
        self._handle = handle
        count = int_of(library.qva_reader_header_count, handle)
        #: The texts of the header row.
        self.headers: list[str] = [text_of(library.qva_reader_header, handle, index) for index in range(count)]

    @property
    def diagnostics(self) -> list[Diagnostic]:
        """What was remarked on so far."""
        return self._manager.diagnostics

    def __next__(self) -> Record:
        if self._handle is None:
            raise StopIteration
        record = c_void_p()
        status = library.qva_reader_next(self._handle, byref(record))
        if status == END:
            self.close()
            raise StopIteration
        check(status)
        return Record._of(handle_of(library.qva_record_clone, record), self._type)

    def batches(self, *fields: str, size: int = 4096) -> Iterator[list[list[Any]]]:
        """The values of the named fields, up to ``size`` records at a time: one list for each field.

        Much faster than record by record, as one call of the library serves a whole batch.
        """
        columns = [self._type.field(name) for name in fields]
        numbers = (c_int32 * len(columns))(*[column.index for column in columns])
        arrays = [_array_for(column.type, size) for column in columns]
        pointers = (c_void_p * len(columns))(*[values.buffer_info()[0] for values in arrays])
        texts = ctypes.create_string_buffer(64 * size * max(1, sum(c.type is FieldType.TEXT for c in columns)))
        fetched = c_int32()
        while self._handle is not None:
            status = library.qva_reader_fetch(
                self._handle, numbers, len(columns), size, pointers, texts, len(texts), byref(fetched)
            )
            if status == SHORT_BUFFER:
                texts = ctypes.create_string_buffer(2 * len(texts))
                continue
            if status == END:
                self.close()
                return
            if status != OK:
                raise error(status)
            count = fetched.value
            yield [_values(column.type, values, count, texts) for column, values in zip(columns, arrays)]

    def tuples(self, *fields: str) -> Iterator[tuple[Any, ...]]:
        """The values of the named fields, a tuple for each record."""
        for batch in self.batches(*fields):
            yield from zip(*batch)

    def to_pandas(self, *fields: str) -> Any:
        """A data frame of the named fields; without names of all that a column of the file's format carries."""
        import pandas

        names = fields or tuple(name for name, field in self._type.fields.items() if field.type is not FieldType.LIST)
        columns: list[list[Any]] = [[] for _ in names]
        for batch in self.batches(*names):
            for column, values in zip(columns, batch):
                column.extend(values)
        return pandas.DataFrame(dict(zip(names, columns)), columns=list(names))

    def close(self) -> None:
        handle, self._handle = self._handle, None
        library.qva_reader_close(handle)

    def __enter__(self) -> Reader:
        return self

    def __exit__(self, *_exception: Any) -> None:
        self.close()

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            self.close()


def _array_for(field_type: FieldType, size: int) -> array:
    if field_type is FieldType.TEXT:
        return array("q", bytes(16 * size))
    if field_type is FieldType.NUMBER:
        return array("d", bytes(8 * size))
    if field_type is FieldType.LIST:
        raise TypeError("lists cannot be fetched in batches; read them record by record")
    return array("i", bytes(4 * size))


def _values(field_type: FieldType, values: array, count: int, texts: Any) -> list[Any]:
    if field_type is FieldType.NUMBER or field_type is FieldType.INTEGER:
        return values[:count].tolist()
    if field_type is FieldType.FLAG:
        return [value != 0 for value in values[:count]]
    offsets, lengths = values[0 : 2 * count : 2], values[1 : 2 * count : 2]
    if not count:
        return []
    start, end = offsets[0], max(map(sum, zip(offsets, lengths)))
    whole = ctypes.string_at(ctypes.addressof(texts) + start, end - start)
    if whole.isascii():  # one decoding for all
        text = whole.decode("ascii")
        return [text[at - start : at - start + length] for at, length in zip(offsets, lengths)]
    return [whole[at - start : at - start + length].decode() for at, length in zip(offsets, lengths)]


class Writer:
    """Writes a data file record by record.

    The file appears, or is replaced, with ``commit()``: at the end of a ``with`` block that no exception left.
    """

    def __init__(self, manager: Manager, path: FilePath, kind: str) -> None:
        self._handle: c_void_p | None = None
        self._manager = manager
        self._kind = kind
        handle = c_void_p()
        check(library.qva_writer_open(manager._handle, kind_number(kind), os.fspath(path).encode(), byref(handle)))
        self._handle = handle

    @property
    def diagnostics(self) -> list[Diagnostic]:
        return self._manager.diagnostics

    def put(self, record: Record | Mapping[str, Any]) -> None:
        """Writes a record, or a fresh one with the values of a mapping."""
        if self._handle is None:
            raise ValueError("the file has been committed or given up")
        if not isinstance(record, Record):
            record = Record(self._kind, record)
        check(library.qva_writer_put(self._handle, record._handle))

    def commit(self) -> None:
        if self._handle is None:
            raise ValueError("the file has been committed or given up")
        handle, self._handle = self._handle, None
        check(library.qva_writer_commit(handle))

    def abandon(self) -> None:
        """Gives the file up: an existing one stays as it was."""
        handle, self._handle = self._handle, None
        library.qva_writer_abandon(handle)

    def __enter__(self) -> Writer:
        return self

    def __exit__(self, exception: type[BaseException] | None, *_more: Any) -> None:
        if self._handle is None:
            return
        if exception is None:
            self.commit()
        else:
            self.abandon()

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            self.abandon()


def read(
    path: FilePath, kind: str, *, formats: FilePath | Manager | None = None, format: str | None = None
) -> Reader:
    """The records of a data file, as an iterator.

    ``kind`` is ``"parts"``, ``"tools"``, ``"materials"``, ``"sheets"``, ``"part-programs"``, ``"material-inventory"`` or
    ``"material-library"``. ``formats`` is a format file; without it QVASSEMBLY_CONFIG, or AssemblyFormats.xml beside the
    data file or in the current folder. ``format`` is the name of a format; without it the one that the file names, else
    the format file's current one.

    >>> with read(EXAMPLES / "parts.csv", "parts", formats=EXAMPLES / "AssemblyFormats.xml") as parts:
    ...     first = next(parts)
    >>> first["PartName"]
    'BRACKET-L-100'
    """
    return _manager_for(path, formats, format).read(path, kind)


def write(
    path: FilePath,
    kind: str,
    records: Iterable[Record | Mapping[str, Any]],
    *,
    formats: FilePath | Manager | None = None,
    format: str | None = None,
) -> list[Diagnostic]:
    """Writes records, or mappings of their fields, to a data file; returns what was remarked on.

    The file is replaced as a whole, or stays as it was when an exception comes of it.
    """
    with _manager_for(path, formats, format).write(path, kind) as writer:
        for record in records:
            writer.put(record)
    return writer.diagnostics


def from_pandas(frame: Any, kind: str) -> Iterator[Record]:
    """The rows of a data frame as records, for :func:`write`. Its columns are named as the record's fields; missing
    values leave the field's default."""
    import pandas

    names = list(frame.columns)
    for row in frame.itertuples(index=False, name=None):
        yield Record(kind, {name: value for name, value in zip(names, row) if not pandas.isna(value)})
