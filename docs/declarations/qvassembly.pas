{ Made of qvassembly.h by scripts/update-declarations; do not edit. What the functions do stands there. }
unit QVAssembly;

interface

const
  QVA_LIBRARY = {$IFDEF MSWINDOWS}'QVAssemblyFile.dll'{$ELSE}'libQVAssemblyFile.so.0'{$ENDIF};
  QVA_OK = 0;
  QVA_END = 1;
  QVA_CANCELLED = 2;
  QVA_NOT_AVAILABLE = 3;
  QVA_SHORT_BUFFER = 4;
  QVA_INVALID_ARGUMENT = 5;
  QVA_NOT_FOUND = 6;
  QVA_NOT_ENCODABLE = 7;
  QVA_TOO_LONG = 8;
  QVA_FILE_ERROR = 9;
  QVA_FILE_TYPE = 10;
  QVA_OUT_OF_MEMORY = 11;
  QVA_INTERNAL_ERROR = 12;
  QVA_ABI_VERSION_VALUE = 1;
  QVA_PARTS = 0;
  QVA_TOOLS = 1;
  QVA_MATERIALS = 2;
  QVA_SHEETS = 3;
  QVA_PART_PROGRAMS = 4;
  QVA_MATERIAL_INVENTORY = 5;
  QVA_MATERIAL_LIBRARY = 6;
  QVA_JOB_PROGRESS = 7;
  QVA_KIND_COUNT = 8;
  QVA_CAN_READ = 1;
  QVA_CAN_WRITE = 2;
  QVA_CAN_READ_WORKBOOK = 4;
  QVA_CAN_WRITE_WORKBOOK = 8;
  QVA_TEXT = 0;
  QVA_INTEGER = 1;
  QVA_NUMBER = 2;
  QVA_FLAG = 3;
  QVA_LIST = 4;
  QVA_DIAGNOSTIC_FILE = 0;
  QVA_DIAGNOSTIC_COLUMN = 1;
  QVA_DIAGNOSTIC_CODE = 2;
  QVA_DIAGNOSTIC_TEXT_VALUE = 3;
  QVA_DIAGNOSTIC_STORED = 4;
  QVA_DIAGNOSTIC_MESSAGE = 5;

type
  TQvaRecord = type Pointer;
  PQvaRecord = ^TQvaRecord;
  TQvaManager = type Pointer;
  PQvaManager = ^TQvaManager;
  TQvaReader = type Pointer;
  PQvaReader = ^TQvaReader;
  TQvaWriter = type Pointer;
  PQvaWriter = ^TQvaWriter;
  TQvaDiagnosticCallback = procedure(aContext: Pointer; aFile: PAnsiChar; aLine: Int64; aColumn: PAnsiChar; aCode: PAnsiChar; aText: PAnsiChar;
    aStored: PAnsiChar; aMessage: PAnsiChar);
    {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF};
  TQvaMessageCallback = procedure(aContext: Pointer; aText: PAnsiChar);
    {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF};
  TQvaProgressCallback = function(aContext: Pointer; aDone: Int64; aTotal: Int64): Integer;
    {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF};

function qva_status_text(aStatus: Integer): PAnsiChar;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_last_error: PAnsiChar;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_version: PAnsiChar;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_abi_version: Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_kind_name(aType: Integer; aBuffer: PAnsiChar; aSize: Integer; aNeeded: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_kind_find(aName: PAnsiChar; aKind: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_kind_abilities(aKind: Integer; aAbilities: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_count(aType: Integer; aCount: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_find(aType: Integer; aName: PAnsiChar; aField: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_name(aType: Integer; aField: Integer; aBuffer: PAnsiChar; aSize: Integer; aNeeded: PInteger):
    Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_keyword(aType: Integer; aField: Integer; aBuffer: PAnsiChar; aSize: Integer; aNeeded: PInteger):
    Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_type(aType: Integer; aField: Integer; aFieldType: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_capacity(aType: Integer; aField: Integer; aCapacity: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_field_elements(aType: Integer; aField: Integer; aElementType: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_create(aKind: Integer; aRecord: PQvaRecord): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_clone(aRecord: TQvaRecord; aCopy: PQvaRecord): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
procedure qva_record_destroy(aRecord: TQvaRecord);
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_type(aRecord: TQvaRecord; aType: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_get_text(aRecord: TQvaRecord; aField: Integer; aBuffer: PAnsiChar; aSize: Integer; aNeeded:
    PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_get_integer(aRecord: TQvaRecord; aField: Integer; aValue: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_get_number(aRecord: TQvaRecord; aField: Integer; aValue: PDouble): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_get_flag(aRecord: TQvaRecord; aField: Integer; aValue: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_set_text(aRecord: TQvaRecord; aField: Integer; aText: PAnsiChar): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_set_integer(aRecord: TQvaRecord; aField: Integer; aValue: Integer): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_set_number(aRecord: TQvaRecord; aField: Integer; aValue: Double): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_set_flag(aRecord: TQvaRecord; aField: Integer; aValue: Integer): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_list_size(aRecord: TQvaRecord; aField: Integer; aSize: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_list_resize(aRecord: TQvaRecord; aField: Integer; aSize: Integer): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_record_list_element(aRecord: TQvaRecord; aField: Integer; aIndex: Integer; aElement: PQvaRecord):
    Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_manager_create(aManager: PQvaManager): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
procedure qva_manager_destroy(aManager: TQvaManager);
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_manager_on_diagnostic(aManager: TQvaManager; aCallback: TQvaDiagnosticCallback; aContext: Pointer):
    Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_diagnostics_count(aManager: TQvaManager; aCount: PInteger; aLost: PInt64): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_diagnostic_line(aManager: TQvaManager; aIndex: Integer; aLine: PInt64): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_diagnostic_text(aManager: TQvaManager; aIndex: Integer; aWhich: Integer; aBuffer: PAnsiChar; aSize:
    Integer; aNeeded: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_diagnostics_clear(aManager: TQvaManager): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_manager_on_message(aManager: TQvaManager; aCallback: TQvaMessageCallback; aContext: Pointer): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_manager_on_progress(aManager: TQvaManager; aCallback: TQvaProgressCallback; aContext: Pointer):
    Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_manager_decimal_comma(aManager: TQvaManager; aWhenRead: Integer; aWhenWritten: Integer): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_formats_load(aManager: TQvaManager; aPath: PAnsiChar): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_formats_count(aManager: TQvaManager; aCount: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_formats_find(aManager: TQvaManager; aName: PAnsiChar; aFormat: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_name(aManager: TQvaManager; aFormat: Integer; aBuffer: PAnsiChar; aSize: Integer; aNeeded:
    PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_start_line(aManager: TQvaManager; aFormat: Integer; aLine: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_is_part_name_only(aManager: TQvaManager; aFormat: Integer; aFlag: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_column_count(aManager: TQvaManager; aFormat: Integer; aCount: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_column(aManager: TQvaManager; aFormat: Integer; aColumn: Integer; aBuffer: PAnsiChar; aSize:
    Integer; aNeeded: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_current(aManager: TQvaManager; aFormat: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_format_select(aManager: TQvaManager; aName: PAnsiChar): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_stored_format_get(aManager: TQvaManager; aPath: PAnsiChar; aBuffer: PAnsiChar; aSize: Integer; aNeeded:
    PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_stored_format_set(aManager: TQvaManager; aPath: PAnsiChar; aName: PAnsiChar): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_reader_open(aManager: TQvaManager; aKind: Integer; aPath: PAnsiChar; aReader: PQvaReader): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_reader_header_count(aReader: TQvaReader; aCount: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_reader_header(aReader: TQvaReader; aIndex: Integer; aBuffer: PAnsiChar; aSize: Integer; aNeeded:
    PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_reader_next(aReader: TQvaReader; aRecord: PQvaRecord): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_reader_fetch(aReader: TQvaReader; aFields: PInteger; aFieldCount: Integer; aMaxRecords: Integer;
    aArrays: PPointer; aTexts: PAnsiChar; aTextsSize: Int64; aRecords: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
procedure qva_reader_close(aReader: TQvaReader);
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_import(aManager: TQvaManager; aKind: Integer; aPath: PAnsiChar; aCount: PInteger): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_import_record(aManager: TQvaManager; aIndex: Integer; aRecord: PQvaRecord): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_writer_open(aManager: TQvaManager; aKind: Integer; aPath: PAnsiChar; aWriter: PQvaWriter): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_writer_put(aWriter: TQvaWriter; aRecord: TQvaRecord): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_writer_commit(aWriter: TQvaWriter): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
procedure qva_writer_abandon(aWriter: TQvaWriter);
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;
function qva_show_format_dialog(aManager: TQvaManager; aFormatFile: PAnsiChar; aFormat: PAnsiChar; aSample:
    PAnsiChar; aParent: Pointer): Integer;
  {$IFDEF MSWINDOWS}stdcall{$ELSE}cdecl{$ENDIF}; external QVA_LIBRARY;

implementation

end.
