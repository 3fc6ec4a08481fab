"""Finds the native library and declares the functions of its C interface."""

from __future__ import annotations

import ctypes
import ctypes.util
import os
import sys
from ctypes import POINTER, c_char_p, c_double, c_int32, c_int64, c_void_p
from pathlib import Path

_NAMES = ("QVAssemblyFile.dll",) if sys.platform == "win32" else ("libQVAssemblyFile.so.0", "libQVAssemblyFile.so")
_FUNCTYPE = ctypes.WINFUNCTYPE if sys.platform == "win32" else ctypes.CFUNCTYPE
_LOADER = ctypes.WinDLL if sys.platform == "win32" else ctypes.CDLL

DIAGNOSTIC_CALLBACK = _FUNCTYPE(None, c_void_p, c_char_p, c_int64, *[c_char_p] * 5)
MESSAGE_CALLBACK = _FUNCTYPE(None, c_void_p, c_char_p)
PROGRESS_CALLBACK = _FUNCTYPE(c_int32, c_void_p, c_int64, c_int64)

_INT = POINTER(c_int32)
_HANDLE = POINTER(c_void_p)
_TEXT_OUT = (c_void_p, c_int32, _INT)

# Every function that returns a status, with its parameters.
_FUNCTIONS: dict[str, tuple] = {
    "kind_name": (c_int32, *_TEXT_OUT),
    "kind_find": (c_char_p, _INT),
    "kind_abilities": (c_int32, _INT),
    "field_count": (c_int32, _INT),
    "field_find": (c_int32, c_char_p, _INT),
    "field_name": (c_int32, c_int32, *_TEXT_OUT),
    "field_keyword": (c_int32, c_int32, *_TEXT_OUT),
    "field_type": (c_int32, c_int32, _INT),
    "field_capacity": (c_int32, c_int32, _INT),
    "field_elements": (c_int32, c_int32, _INT),
    "record_create": (c_int32, _HANDLE),
    "record_clone": (c_void_p, _HANDLE),
    "record_type": (c_void_p, _INT),
    "record_get_text": (c_void_p, c_int32, *_TEXT_OUT),
    "record_get_integer": (c_void_p, c_int32, _INT),
    "record_get_number": (c_void_p, c_int32, POINTER(c_double)),
    "record_get_flag": (c_void_p, c_int32, _INT),
    "record_set_text": (c_void_p, c_int32, c_char_p),
    "record_set_integer": (c_void_p, c_int32, c_int32),
    "record_set_number": (c_void_p, c_int32, c_double),
    "record_set_flag": (c_void_p, c_int32, c_int32),
    "record_list_size": (c_void_p, c_int32, _INT),
    "record_list_resize": (c_void_p, c_int32, c_int32),
    "record_list_element": (c_void_p, c_int32, c_int32, _HANDLE),
    "manager_create": (_HANDLE,),
    "manager_on_diagnostic": (c_void_p, DIAGNOSTIC_CALLBACK, c_void_p),
    "manager_on_message": (c_void_p, MESSAGE_CALLBACK, c_void_p),
    "manager_on_progress": (c_void_p, PROGRESS_CALLBACK, c_void_p),
    "manager_decimal_comma": (c_void_p, c_int32, c_int32),
    "formats_load": (c_void_p, c_char_p),
    "formats_count": (c_void_p, _INT),
    "formats_find": (c_void_p, c_char_p, _INT),
    "format_name": (c_void_p, c_int32, *_TEXT_OUT),
    "format_start_line": (c_void_p, c_int32, _INT),
    "format_is_part_name_only": (c_void_p, c_int32, _INT),
    "format_column_count": (c_void_p, c_int32, _INT),
    "format_column": (c_void_p, c_int32, c_int32, *_TEXT_OUT),
    "format_current": (c_void_p, _INT),
    "format_select": (c_void_p, c_char_p),
    "stored_format_get": (c_void_p, c_char_p, *_TEXT_OUT),
    "stored_format_set": (c_void_p, c_char_p, c_char_p),
    "reader_open": (c_void_p, c_int32, c_char_p, _HANDLE),
    "reader_header_count": (c_void_p, _INT),
    "reader_header": (c_void_p, c_int32, *_TEXT_OUT),
    "reader_next": (c_void_p, _HANDLE),
    "reader_fetch": (c_void_p, _INT, c_int32, c_int32, POINTER(c_void_p), c_void_p, c_int64, _INT),
    "writer_open": (c_void_p, c_int32, c_char_p, _HANDLE),
    "writer_put": (c_void_p, c_void_p),
    "writer_commit": (c_void_p,),
    "show_format_dialog": (c_void_p, c_char_p, c_char_p, c_char_p, c_void_p),
}
_VOID_FUNCTIONS = ("record_destroy", "manager_destroy", "reader_close", "writer_abandon")


def _candidates() -> list[str]:
    named = os.environ.get("QVASSEMBLY_LIBRARY")
    if named:
        return [named]
    here = Path(__file__).resolve().parent
    found = [str(here / name) for name in _NAMES if (here / name).exists()]
    on_system = ctypes.util.find_library("QVAssemblyFile")
    return [*found, *([on_system] if on_system else []), *_NAMES]


def _load() -> ctypes.CDLL:
    reasons = []
    for path in _candidates():
        try:
            return _LOADER(path)
        except OSError as error:
            reasons.append(f"{path}: {error}")
    raise ImportError(
        "the library QVAssemblyFile was not found; name its file in QVASSEMBLY_LIBRARY (tried " + "; ".join(reasons) + ")"
    )


def _declare(library: ctypes.CDLL) -> None:
    for name, parameters in _FUNCTIONS.items():
        function = getattr(library, "qva_" + name)
        function.argtypes = parameters
        function.restype = c_int32
    for name in _VOID_FUNCTIONS:
        function = getattr(library, "qva_" + name)
        function.argtypes = (c_void_p,)
        function.restype = None
    for name in ("qva_last_error", "qva_version"):
        getattr(library, name).argtypes = ()
        getattr(library, name).restype = c_char_p
    library.qva_status_text.argtypes = (c_int32,)
    library.qva_status_text.restype = c_char_p
    library.qva_abi_version.argtypes = ()
    library.qva_abi_version.restype = c_int32


ABI_VERSION = 1

library = _load()
_declare(library)
if library.qva_abi_version() < ABI_VERSION:
    raise ImportError(f"the library QVAssemblyFile {library.qva_version().decode()} is too old for this package")
