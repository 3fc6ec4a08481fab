"""Records as mappings."""

from __future__ import annotations

from collections.abc import Iterable, Iterator, Mapping, MutableMapping, Sequence
from ctypes import c_void_p
from typing import Any

from ._core import FieldType, RecordType, check, get_value, handle_of, int_of, kind_number, record_type, set_value
from ._library import library


class Record(MutableMapping[str, Any]):
    """A record of one kind: a mapping from the names of its fields to their values.

    Every field is always there; a fresh record has the library's defaults. Texts are ``str``, lists are sequences of
    records.

    >>> part = Record("parts", PartName="A-1", PartQuantity=3)
    >>> part["PartName"], part["PartQuantity"], part["Rotation"]
    ('A-1', 3, 1)
    >>> part["PartQuantity"] *= 2
    >>> part["PartQuantity"]
    6
    >>> part["Quantity"]
    Traceback (most recent call last):
        ...
    KeyError: "parts have no field 'Quantity'..."
    """

    __slots__ = ("_handle", "_owner", "_type")

    def __init__(self, kind: str, values: Mapping[str, Any] | None = None, /, **more: Any) -> None:
        number = kind_number(kind)
        self._take(handle_of(library.qva_record_create, number), record_type(number), None)
        self.update(values or {}, **more)

    def _take(self, handle: c_void_p, type_: RecordType, owner: Record | None) -> None:
        self._handle = handle
        self._type = type_
        self._owner = owner  # keeps the record of a list's element alive

    @classmethod
    def _of(cls, handle: c_void_p, type_: RecordType, owner: Record | None = None) -> Record:
        record = cls.__new__(cls)
        record._take(handle, type_, owner)
        return record

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None and self._owner is None:
            library.qva_record_destroy(self._handle)

    @property
    def kind(self) -> str:
        """ "parts", "tools", … or the name of a list's structure."""
        return self._type.name

    def __getitem__(self, name: str) -> Any:
        field = self._type.field(name)
        if field.type is FieldType.LIST:
            return RecordList(self, field.index, record_type(field.elements))
        return get_value(self._handle, field)

    def __setitem__(self, name: str, value: Any) -> None:
        field = self._type.field(name)
        if field.type is FieldType.LIST:
            RecordList(self, field.index, record_type(field.elements)).replace(value)
        else:
            set_value(self._handle, field, value)

    def __delitem__(self, name: str) -> None:
        raise TypeError("a record's fields cannot be deleted")

    def __iter__(self) -> Iterator[str]:
        return iter(self._type.fields)

    def __len__(self) -> int:
        return len(self._type.fields)

    def copy(self) -> Record:
        """A record of its own, lists included."""
        return Record._of(handle_of(library.qva_record_clone, self._handle), self._type)

    def to_dict(self) -> dict[str, Any]:
        """The values as plain Python ones, as ``qvassembly import --as json`` prints them."""
        return {name: value.to_list() if isinstance(value, RecordList) else value for name, value in self.items()}

    def __repr__(self) -> str:
        return f"<Record of {self.kind}: {self.to_dict()!r}>"


class RecordList(Sequence[Record]):
    """The list of a list field: part programs have used tools, holes and bends.

    >>> program = Record("part-programs", UsedToolInfo=[{}, {}])
    >>> len(program["UsedToolInfo"])
    2
    """

    __slots__ = ("_field", "_record", "_type")

    def __init__(self, record: Record, field: int, type_: RecordType) -> None:
        self._record, self._field, self._type = record, field, type_

    def __len__(self) -> int:
        return int_of(library.qva_record_list_size, self._record._handle, self._field)

    def __getitem__(self, index: Any) -> Any:
        if isinstance(index, slice):
            return [self[at] for at in range(*index.indices(len(self)))]
        at = range(len(self))[index]
        handle = handle_of(library.qva_record_list_element, self._record._handle, self._field, at)
        return Record._of(handle, self._type, self._record)

    def replace(self, elements: Iterable[Mapping[str, Any]]) -> None:
        """Makes the list hold one element for each mapping, fresh but for the fields that it names."""
        values = [dict(element) for element in elements]
        for resized in (0, len(values)):
            check(library.qva_record_list_resize(self._record._handle, self._field, resized))
        for element, fields in zip(self, values):
            element.update(fields)

    def to_list(self) -> list[dict[str, Any]]:
        return [element.to_dict() for element in self]

    def __repr__(self) -> str:
        return repr(self.to_list())
