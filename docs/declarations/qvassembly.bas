Attribute VB_Name = "QVAssembly"
' Made of qvassembly.h by scripts/update-declarations; do not edit. What the functions do stands there.
'
' For VBA 7 and later, 32 and 64 bits. Texts go in as the address of bytes in UTF-8 that end with a 0, and come
' out into such bytes. Numbers of 64 bits are Currency: ten thousand times its value. A callback is given by
' AddressOf, an array by its first element. A constant whose name is a function's ends with _VALUE.
Option Explicit

Public Const QVA_OK As Long = 0
Public Const QVA_END As Long = 1
Public Const QVA_CANCELLED As Long = 2
Public Const QVA_NOT_AVAILABLE As Long = 3
Public Const QVA_SHORT_BUFFER As Long = 4
Public Const QVA_INVALID_ARGUMENT As Long = 5
Public Const QVA_NOT_FOUND As Long = 6
Public Const QVA_NOT_ENCODABLE As Long = 7
Public Const QVA_TOO_LONG As Long = 8
Public Const QVA_FILE_ERROR As Long = 9
Public Const QVA_FILE_TYPE As Long = 10
Public Const QVA_OUT_OF_MEMORY As Long = 11
Public Const QVA_INTERNAL_ERROR As Long = 12
Public Const QVA_ABI_VERSION_VALUE As Long = 1
Public Const QVA_PARTS As Long = 0
Public Const QVA_TOOLS As Long = 1
Public Const QVA_MATERIALS As Long = 2
Public Const QVA_SHEETS As Long = 3
Public Const QVA_PART_PROGRAMS As Long = 4
Public Const QVA_MATERIAL_INVENTORY As Long = 5
Public Const QVA_MATERIAL_LIBRARY As Long = 6
Public Const QVA_JOB_PROGRESS As Long = 7
Public Const QVA_KIND_COUNT As Long = 8
Public Const QVA_CAN_READ As Long = 1
Public Const QVA_CAN_WRITE As Long = 2
Public Const QVA_CAN_READ_WORKBOOK As Long = 4
Public Const QVA_CAN_WRITE_WORKBOOK As Long = 8
Public Const QVA_TEXT As Long = 0
Public Const QVA_INTEGER As Long = 1
Public Const QVA_NUMBER As Long = 2
Public Const QVA_FLAG As Long = 3
Public Const QVA_LIST As Long = 4
Public Const QVA_DIAGNOSTIC_FILE As Long = 0
Public Const QVA_DIAGNOSTIC_COLUMN As Long = 1
Public Const QVA_DIAGNOSTIC_CODE As Long = 2
Public Const QVA_DIAGNOSTIC_TEXT_VALUE As Long = 3
Public Const QVA_DIAGNOSTIC_STORED As Long = 4
Public Const QVA_DIAGNOSTIC_MESSAGE As Long = 5

Public Declare PtrSafe Function qva_status_text Lib "QVAssemblyFile.dll" (ByVal aStatus As Long) As LongPtr
Public Declare PtrSafe Function qva_last_error Lib "QVAssemblyFile.dll" () As LongPtr
Public Declare PtrSafe Function qva_version Lib "QVAssemblyFile.dll" () As LongPtr
Public Declare PtrSafe Function qva_abi_version Lib "QVAssemblyFile.dll" () As Long
Public Declare PtrSafe Function qva_kind_name Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aBuffer As _
    LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_kind_find Lib "QVAssemblyFile.dll" (ByVal aName As LongPtr, ByRef aKind As _
    Long) As Long
Public Declare PtrSafe Function qva_kind_abilities Lib "QVAssemblyFile.dll" (ByVal aKind As Long, ByRef aAbilities _
    As Long) As Long
Public Declare PtrSafe Function qva_field_count Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByRef aCount As _
    Long) As Long
Public Declare PtrSafe Function qva_field_find Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aName As _
    LongPtr, ByRef aField As Long) As Long
Public Declare PtrSafe Function qva_field_name Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aField As _
    Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_field_keyword Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aField As _
    Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_field_type Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aField As _
    Long, ByRef aFieldType As Long) As Long
Public Declare PtrSafe Function qva_field_capacity Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aField As _
    Long, ByRef aCapacity As Long) As Long
Public Declare PtrSafe Function qva_field_elements Lib "QVAssemblyFile.dll" (ByVal aType As Long, ByVal aField As _
    Long, ByRef aElementType As Long) As Long
Public Declare PtrSafe Function qva_record_create Lib "QVAssemblyFile.dll" (ByVal aKind As Long, ByRef aRecord As _
    LongPtr) As Long
Public Declare PtrSafe Function qva_record_clone Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByRef aCopy _
    As LongPtr) As Long
Public Declare PtrSafe Sub qva_record_destroy Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr)
Public Declare PtrSafe Function qva_record_type Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByRef aType As _
    Long) As Long
Public Declare PtrSafe Function qva_record_get_text Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_record_get_integer Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByRef aValue As Long) As Long
Public Declare PtrSafe Function qva_record_get_number Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByRef aValue As Double) As Long
Public Declare PtrSafe Function qva_record_get_flag Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByRef aValue As Long) As Long
Public Declare PtrSafe Function qva_record_set_text Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aText As LongPtr) As Long
Public Declare PtrSafe Function qva_record_set_integer Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aValue As Long) As Long
Public Declare PtrSafe Function qva_record_set_number Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aValue As Double) As Long
Public Declare PtrSafe Function qva_record_set_flag Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aValue As Long) As Long
Public Declare PtrSafe Function qva_record_list_size Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByRef aSize As Long) As Long
Public Declare PtrSafe Function qva_record_list_resize Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aSize As Long) As Long
Public Declare PtrSafe Function qva_record_list_element Lib "QVAssemblyFile.dll" (ByVal aRecord As LongPtr, ByVal _
    aField As Long, ByVal aIndex As Long, ByRef aElement As LongPtr) As Long
Public Declare PtrSafe Function qva_manager_create Lib "QVAssemblyFile.dll" (ByRef aManager As LongPtr) As Long
Public Declare PtrSafe Sub qva_manager_destroy Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr)
Public Declare PtrSafe Function qva_manager_on_diagnostic Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, _
    ByVal aCallback As LongPtr, ByVal aContext As LongPtr) As Long
Public Declare PtrSafe Function qva_diagnostics_count Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByRef _
    aCount As Long, ByRef aLost As Currency) As Long
Public Declare PtrSafe Function qva_diagnostic_line Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aIndex As Long, ByRef aLine As Currency) As Long
Public Declare PtrSafe Function qva_diagnostic_text Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aIndex As Long, ByVal aWhich As Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As _
    Long
Public Declare PtrSafe Function qva_diagnostics_clear Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr) As Long
Public Declare PtrSafe Function qva_manager_on_message Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aCallback As LongPtr, ByVal aContext As LongPtr) As Long
Public Declare PtrSafe Function qva_manager_on_progress Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aCallback As LongPtr, ByVal aContext As LongPtr) As Long
Public Declare PtrSafe Function qva_manager_decimal_comma Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, _
    ByVal aWhenRead As Long, ByVal aWhenWritten As Long) As Long
Public Declare PtrSafe Function qva_formats_load Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aPath _
    As LongPtr) As Long
Public Declare PtrSafe Function qva_formats_count Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByRef _
    aCount As Long) As Long
Public Declare PtrSafe Function qva_formats_find Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aName _
    As LongPtr, ByRef aFormat As Long) As Long
Public Declare PtrSafe Function qva_format_name Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aFormat _
    As Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_format_start_line Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aFormat As Long, ByRef aLine As Long) As Long
Public Declare PtrSafe Function qva_format_is_part_name_only Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, _
    ByVal aFormat As Long, ByRef aFlag As Long) As Long
Public Declare PtrSafe Function qva_format_column_count Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aFormat As Long, ByRef aCount As Long) As Long
Public Declare PtrSafe Function qva_format_column Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aFormat As Long, ByVal aColumn As Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As _
    Long
Public Declare PtrSafe Function qva_format_current Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByRef _
    aFormat As Long) As Long
Public Declare PtrSafe Function qva_format_select Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aName _
    As LongPtr) As Long
Public Declare PtrSafe Function qva_stored_format_get Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aPath As LongPtr, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_stored_format_set Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aPath As LongPtr, ByVal aName As LongPtr) As Long
Public Declare PtrSafe Function qva_reader_open Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aKind _
    As Long, ByVal aPath As LongPtr, ByRef aReader As LongPtr) As Long
Public Declare PtrSafe Function qva_reader_header_count Lib "QVAssemblyFile.dll" (ByVal aReader As LongPtr, ByRef _
    aCount As Long) As Long
Public Declare PtrSafe Function qva_reader_header Lib "QVAssemblyFile.dll" (ByVal aReader As LongPtr, ByVal aIndex _
    As Long, ByVal aBuffer As LongPtr, ByVal aSize As Long, ByRef aNeeded As Long) As Long
Public Declare PtrSafe Function qva_reader_next Lib "QVAssemblyFile.dll" (ByVal aReader As LongPtr, ByRef aRecord _
    As LongPtr) As Long
Public Declare PtrSafe Function qva_reader_fetch Lib "QVAssemblyFile.dll" (ByVal aReader As LongPtr, ByRef aFields _
    As Long, ByVal aFieldCount As Long, ByVal aMaxRecords As Long, ByRef aArrays As LongPtr, ByVal aTexts As LongPtr, _
    ByVal aTextsSize As Currency, ByRef aRecords As Long) As Long
Public Declare PtrSafe Sub qva_reader_close Lib "QVAssemblyFile.dll" (ByVal aReader As LongPtr)
Public Declare PtrSafe Function qva_import Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aKind As _
    Long, ByVal aPath As LongPtr, ByRef aCount As Long) As Long
Public Declare PtrSafe Function qva_import_record Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aIndex As Long, ByRef aRecord As LongPtr) As Long
Public Declare PtrSafe Function qva_writer_open Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal aKind _
    As Long, ByVal aPath As LongPtr, ByRef aWriter As LongPtr) As Long
Public Declare PtrSafe Function qva_writer_put Lib "QVAssemblyFile.dll" (ByVal aWriter As LongPtr, ByVal aRecord _
    As LongPtr) As Long
Public Declare PtrSafe Function qva_writer_commit Lib "QVAssemblyFile.dll" (ByVal aWriter As LongPtr) As Long
Public Declare PtrSafe Sub qva_writer_abandon Lib "QVAssemblyFile.dll" (ByVal aWriter As LongPtr)
Public Declare PtrSafe Function qva_show_format_dialog Lib "QVAssemblyFile.dll" (ByVal aManager As LongPtr, ByVal _
    aFormatFile As LongPtr, ByVal aFormat As LongPtr, ByVal aSample As LongPtr, ByVal aParent As LongPtr) As Long
