#ifndef QVASSEMBLY_QVASSEMBLY_H
#define QVASSEMBLY_QVASSEMBLY_H

/*
 * The C interface of QVAssemblyFile: assembly files for hosts of any compiler and any language.
 *
 * Handles are opaque. Numbers are int32_t, int64_t and double, texts are UTF-8 and terminated. No exception
 * and no C++ object crosses this interface, and nothing in it depends on the size of a structure.
 *
 * Failure. Every function that can fail returns a status: 0 (QVA_OK) or a QVA_… below. After any status but
 * QVA_OK and QVA_END, qva_last_error() has a sentence for a person. A failed call changes nothing but where
 * it says so. A null handle, a null pointer to where a result goes, and an index outside its list are
 * QVA_INVALID_ARGUMENT; the destroy, close and abandon functions ignore null.
 *
 * Texts out. A function that gives a text takes `char* buffer, int32_t size, int32_t* needed`. `needed` (may
 * be null) receives the length in bytes without the terminator. A buffer of fewer than needed + 1 bytes, or a
 * null one, gives QVA_SHORT_BUFFER and is left alone: a text is never cut.
 *
 * Texts and code pages. The library's records hold texts in the system's code page (UTF-8 but on Windows).
 * Texts are converted on their way in and out. One that the code page does not have gives QVA_NOT_ENCODABLE
 * on its way in; bytes that are no text of the code page come out as U+FFFD, and stay in the record as they
 * are.
 *
 * Threads. A manager, and the readers, writers and records that came from it, belong to one thread at a time.
 * Different managers may be used by different threads at once. A record of qva_record_create belongs to one
 * thread at a time, too.
 *
 * Order of destruction. A reader or writer must be closed before its manager is destroyed.
 */

#include <stdint.h>

#if defined(_WIN32)
/* The convention that all languages of Windows can call. It makes a difference in 32-bit programs alone. */
#define QVA_CALL __stdcall
#if defined(QVASSEMBLY_BUILD) /* within the library, whose exports definition lists the functions */
#define QVA_API
#else
#define QVA_API __declspec(dllimport)
#endif
#else
#define QVA_CALL
#define QVA_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Status ---- */

typedef int32_t qva_status;

#define QVA_OK 0               /* done */
#define QVA_END 1              /* a reader has no more records */
#define QVA_CANCELLED 2        /* the progress callback, or the user in the dialog, cancelled */
#define QVA_NOT_AVAILABLE 3    /* this kind is not read or written, or there is no dialog here */
#define QVA_SHORT_BUFFER 4     /* the buffer is too small; `needed` says how large the text is */
#define QVA_INVALID_ARGUMENT 5 /* a null pointer, an index outside its list, a field of another type */
#define QVA_NOT_FOUND 6        /* no format, kind or field has this name */
#define QVA_NOT_ENCODABLE \
  7                    /* a text has a character that the system's code page does not have, or is no UTF-8 */
#define QVA_TOO_LONG 8 /* a text or number that the field cannot hold */
#define QVA_FILE_ERROR 9 /* a file cannot be read or written; an existing one stays as it was */
#define QVA_FILE_TYPE 10 /* the extension is none of .txt, .csv and .xls */
#define QVA_OUT_OF_MEMORY 11
#define QVA_INTERNAL_ERROR 12 /* a fault of the library's */

/* The status in a few English words. A static text, never null. */
QVA_API const char* QVA_CALL qva_status_text(qva_status status);

/* Why the last call on this thread failed, as a sentence; empty when none has. Valid until the thread's next
 * call. */
QVA_API const char* QVA_CALL qva_last_error(void);

/* "MAJOR.MINOR.PATCH". A static text. */
QVA_API const char* QVA_CALL qva_version(void);

/* Grows when functions are added. Functions are never taken away or changed: a host that was built for a
 * smaller number works. */
#define QVA_ABI_VERSION 1
QVA_API int32_t QVA_CALL qva_abi_version(void);

/* ---- Kinds and fields ---- */

/* The kinds of record. */
#define QVA_PARTS 0
#define QVA_TOOLS 1
#define QVA_MATERIALS 2
#define QVA_SHEETS 3
#define QVA_PART_PROGRAMS 4
#define QVA_MATERIAL_INVENTORY 5 /* read only */
#define QVA_MATERIAL_LIBRARY 6   /* read only */
#define QVA_JOB_PROGRESS 7       /* written only */
#define QVA_KIND_COUNT 8

/* A record type is a kind, or the type of the elements of a list field (a number from QVA_KIND_COUNT on,
 * which qva_field_elements gives). */

/* The name of a record type: "parts", "part-programs", …, "UsedToolInfo". */
QVA_API qva_status QVA_CALL qva_kind_name(int32_t type, char* buffer, int32_t size, int32_t* needed);

/* The kind of that name ("parts"); QVA_NOT_FOUND when there is none. */
QVA_API qva_status QVA_CALL qva_kind_find(const char* name, int32_t* kind);

/* What can be done with a kind: a sum of the following. */
#define QVA_CAN_READ 1
#define QVA_CAN_WRITE 2
#define QVA_CAN_READ_WORKBOOK 4
#define QVA_CAN_WRITE_WORKBOOK 8
QVA_API qva_status QVA_CALL qva_kind_abilities(int32_t kind, int32_t* abilities);

QVA_API qva_status QVA_CALL qva_field_count(int32_t type, int32_t* count);

/* The index of the field of that name, which is compared exactly; QVA_NOT_FOUND when there is none. */
QVA_API qva_status QVA_CALL qva_field_find(int32_t type, const char* name, int32_t* field);

/* "PartName", "PartQuantity", … */
QVA_API qva_status QVA_CALL qva_field_name(int32_t type, int32_t field, char* buffer, int32_t size,
                                           int32_t* needed);

/* The keyword of the column that carries the field in a file; an empty text where none does. */
QVA_API qva_status QVA_CALL qva_field_keyword(int32_t type, int32_t field, char* buffer, int32_t size,
                                              int32_t* needed);

#define QVA_TEXT 0
#define QVA_INTEGER 1 /* 32 bits */
#define QVA_NUMBER 2  /* a double; some fields keep it as a 32-bit float */
#define QVA_FLAG 3    /* 0 or 1 */
#define QVA_LIST 4    /* of elements with fields of their own */
QVA_API qva_status QVA_CALL qva_field_type(int32_t type, int32_t field, int32_t* field_type);

/* How many bytes of the system's code page a text field holds; 0: without limit, or no text field. */
QVA_API qva_status QVA_CALL qva_field_capacity(int32_t type, int32_t field, int32_t* capacity);

/* The record type of a list field's elements. */
QVA_API qva_status QVA_CALL qva_field_elements(int32_t type, int32_t field, int32_t* element_type);

/* ---- Records ---- */

typedef struct qva_record qva_record;

/* A record of the kind, with the values that a fresh one has. The host destroys it. */
QVA_API qva_status QVA_CALL qva_record_create(int32_t kind, qva_record** record);

/* A copy, lists included, of any record or list element. The host destroys it. */
QVA_API qva_status QVA_CALL qva_record_clone(const qva_record* record, qva_record** copy);

/* For records of create and clone alone; those of readers, imports and lists belong to these. */
QVA_API void QVA_CALL qva_record_destroy(qva_record* record);

QVA_API qva_status QVA_CALL qva_record_type(const qva_record* record, int32_t* type);

/* A field of another type than the function's gives QVA_INVALID_ARGUMENT; numbers also give integers. */
QVA_API qva_status QVA_CALL qva_record_get_text(const qva_record* record, int32_t field, char* buffer,
                                                int32_t size, int32_t* needed);
QVA_API qva_status QVA_CALL qva_record_get_integer(const qva_record* record, int32_t field, int32_t* value);
QVA_API qva_status QVA_CALL qva_record_get_number(const qva_record* record, int32_t field, double* value);
QVA_API qva_status QVA_CALL qva_record_get_flag(const qva_record* record, int32_t field, int32_t* value);

/* A text that is longer than the field gives QVA_TOO_LONG, as does a finite number beyond a 32-bit float
 * where the field is one; the field then stays as it was. */
QVA_API qva_status QVA_CALL qva_record_set_text(qva_record* record, int32_t field, const char* text);
QVA_API qva_status QVA_CALL qva_record_set_integer(qva_record* record, int32_t field, int32_t value);
QVA_API qva_status QVA_CALL qva_record_set_number(qva_record* record, int32_t field, double value);
QVA_API qva_status QVA_CALL qva_record_set_flag(qva_record* record, int32_t field, int32_t value);

/* List fields. An element is a record of the list's, valid until that is resized or its record destroyed. */
QVA_API qva_status QVA_CALL qva_record_list_size(const qva_record* record, int32_t field, int32_t* size);
QVA_API qva_status QVA_CALL qva_record_list_resize(qva_record* record, int32_t field, int32_t size);
QVA_API qva_status QVA_CALL qva_record_list_element(qva_record* record, int32_t field, int32_t index,
                                                    qva_record** element);

/* ---- Manager ---- */

typedef struct qva_manager qva_manager;

/* A manager without formats. The host destroys it. */
QVA_API qva_status QVA_CALL qva_manager_create(qva_manager** manager);
QVA_API void QVA_CALL qva_manager_destroy(qva_manager* manager);

/* One remark on what was not taken as it stood. `line` is the 1-based line (row of a worksheet) or 0; `code`
 * is a stable word such as "row-left-out"; `column` is a keyword or empty; `text` is what was found, `stored`
 * what was made of it, `message` a sentence. The texts live until the callback returns. It is called on the
 * thread that is inside the library, and must not call back into the same manager. */
typedef void(QVA_CALL* qva_diagnostic_callback)(void* context, const char* file, int64_t line,
                                                const char* column, const char* code, const char* text,
                                                const char* stored, const char* message);

/* The remarks go to the callback from now on; null (the default) collects them in the manager's list. */
QVA_API qva_status QVA_CALL qva_manager_on_diagnostic(qva_manager* manager, qva_diagnostic_callback callback,
                                                      void* context);

/* The collected remarks, the oldest first: 10,000 at most; `lost` (may be null) counts the others. */
QVA_API qva_status QVA_CALL qva_diagnostics_count(qva_manager* manager, int32_t* count, int64_t* lost);
QVA_API qva_status QVA_CALL qva_diagnostic_line(qva_manager* manager, int32_t index, int64_t* line);
#define QVA_DIAGNOSTIC_FILE 0
#define QVA_DIAGNOSTIC_COLUMN 1
#define QVA_DIAGNOSTIC_CODE 2
#define QVA_DIAGNOSTIC_TEXT 3
#define QVA_DIAGNOSTIC_STORED 4
#define QVA_DIAGNOSTIC_MESSAGE 5
QVA_API qva_status QVA_CALL qva_diagnostic_text(qva_manager* manager, int32_t index, int32_t which,
                                                char* buffer, int32_t size, int32_t* needed);
QVA_API qva_status QVA_CALL qva_diagnostics_clear(qva_manager* manager);

/* What would be put before the user in a message box goes to the callback. Without one nothing is shown: the
 * call that has something to say fails, and qva_last_error() says it. */
typedef void(QVA_CALL* qva_message_callback)(void* context, const char* text);
QVA_API qva_status QVA_CALL qva_manager_on_message(qva_manager* manager, qva_message_callback callback,
                                                   void* context);

/* Called from time to time during long work, with how much is done and of how much (0: not known), in bytes
 * of a text file or cells of a workbook. 0 cancels: the call in question returns QVA_CANCELLED, and a file
 * that was being written stays as it was. */
typedef int32_t(QVA_CALL* qva_progress_callback)(void* context, int64_t done, int64_t total);
QVA_API qva_status QVA_CALL qva_manager_on_progress(qva_manager* manager, qva_progress_callback callback,
                                                    void* context);

/* Whether the numbers of text files that are read, and of those that are written, have a comma as the decimal
 * sign (0 or 1 each; both 0 at first). What is read may have its digits grouped by points, blanks or
 * apostrophes then. Texts and workbooks are left alone. */
QVA_API qva_status QVA_CALL qva_manager_decimal_comma(qva_manager* manager, int32_t when_read,
                                                      int32_t when_written);

/* ---- Formats ---- */

/* Loads a format file, whose current format becomes the manager's. QVA_FILE_ERROR when it is missing, not
 * well formed or no format file; the manager's formats then stay as they were. */
QVA_API qva_status QVA_CALL qva_formats_load(qva_manager* manager, const char* path);

QVA_API qva_status QVA_CALL qva_formats_count(qva_manager* manager, int32_t* count);
QVA_API qva_status QVA_CALL qva_formats_find(qva_manager* manager, const char* name, int32_t* format);
QVA_API qva_status QVA_CALL qva_format_name(qva_manager* manager, int32_t format, char* buffer, int32_t size,
                                            int32_t* needed);
/* The 1-based line of the header row, as the format has it; 1 or less means the first line. */
QVA_API qva_status QVA_CALL qva_format_start_line(qva_manager* manager, int32_t format, int32_t* line);
/* Whether parts are told apart by name alone: 0 or 1. */
QVA_API qva_status QVA_CALL qva_format_is_part_name_only(qva_manager* manager, int32_t format, int32_t* flag);
/* The format's columns in the order in which they stand in a file, `Ignore` among them. */
QVA_API qva_status QVA_CALL qva_format_column_count(qva_manager* manager, int32_t format, int32_t* count);
QVA_API qva_status QVA_CALL qva_format_column(qva_manager* manager, int32_t format, int32_t column,
                                              char* buffer, int32_t size, int32_t* needed);

/* The format that readers and writers opened from now on use. QVA_NOT_FOUND from current when no format bears
 * the current name, and from select for an unknown name. */
QVA_API qva_status QVA_CALL qva_format_current(qva_manager* manager, int32_t* format);
QVA_API qva_status QVA_CALL qva_format_select(qva_manager* manager, const char* name);

/* The name of a format that a data file carries in its first line (a workbook in its first cell), whether or
 * not the manager has such a format; an empty text where it carries none. */
QVA_API qva_status QVA_CALL qva_stored_format_get(qva_manager* manager, const char* path, char* buffer,
                                                  int32_t size, int32_t* needed);
/* Makes a text file carry the name. The file is replaced as a whole or left as it is. */
QVA_API qva_status QVA_CALL qva_stored_format_set(qva_manager* manager, const char* path, const char* name);

/* ---- Reading ---- */

typedef struct qva_reader qva_reader;

/* Opens a data file of the kind with the current format. QVA_NOT_AVAILABLE for a kind that is not read (from
 * such a file). Several readers and writers of one manager may be at work at once. */
QVA_API qva_status QVA_CALL qva_reader_open(qva_manager* manager, int32_t kind, const char* path,
                                            qva_reader** reader);

/* The headers of the file, there from open on. */
QVA_API qva_status QVA_CALL qva_reader_header_count(qva_reader* reader, int32_t* count);
QVA_API qva_status QVA_CALL qva_reader_header(qva_reader* reader, int32_t index, char* buffer, int32_t size,
                                              int32_t* needed);

/* The next record, which is the reader's and valid until its next call; QVA_END when there is none. */
QVA_API qva_status QVA_CALL qva_reader_next(qva_reader* reader, qva_record** record);

/*
 * Many fields of many records in one call. `fields` names `field_count` fields (no lists); arrays[i] points
 * to the array of fields[i], with room for `max_records` values: QVA_INTEGER, QVA_FLAG   int32_t[max_records]
 *   QVA_NUMBER              double[max_records]
 *   QVA_TEXT                int64_t[2 * max_records]: offset and length in bytes of each text, within `texts`
 * The texts are not terminated. `records` receives how many records were fetched: fewer than max_records at
 * the file's end and where the next one's texts do not fit into the `texts_size` bytes left. QVA_END when
 * there are no more; QVA_SHORT_BUFFER when not even one record's texts fit (the record is kept for the next
 * call). Cost: a batch of a thousand records costs a few nanoseconds a value more than reading the file does;
 * calls of qva_record_get_… cost a call each.
 */
QVA_API qva_status QVA_CALL qva_reader_fetch(qva_reader* reader, const int32_t* fields, int32_t field_count,
                                             int32_t max_records, void* const* arrays, char* texts,
                                             int64_t texts_size, int32_t* records);

/* Null is ignored. */
QVA_API void QVA_CALL qva_reader_close(qva_reader* reader);

/* Reads the whole file at once. The manager's records are valid until its next import, reader or writer. */
QVA_API qva_status QVA_CALL qva_import(qva_manager* manager, int32_t kind, const char* path, int32_t* count);
QVA_API qva_status QVA_CALL qva_import_record(qva_manager* manager, int32_t index, qva_record** record);

/* ---- Writing ---- */

typedef struct qva_writer qva_writer;

/* Begins a data file of the kind with the current format. An existing file stays until commit. */
QVA_API qva_status QVA_CALL qva_writer_open(qva_manager* manager, int32_t kind, const char* path,
                                            qva_writer** writer);

/* Writes the record, which stays whose it was. */
QVA_API qva_status QVA_CALL qva_writer_put(qva_writer* writer, const qva_record* record);

/* Finishes the file and puts it in its place in one step. The writer is gone, whatever is returned. */
QVA_API qva_status QVA_CALL qva_writer_commit(qva_writer* writer);

/* Gives the file up: an existing one stays as it was. Null is ignored. */
QVA_API void QVA_CALL qva_writer_abandon(qva_writer* writer);

/* ---- Dialog ---- */

/* Runs the format option dialog modally on the format file, and loads that when it ended with OK. `format`
 * names the format to show (null: the current one), `sample` a data file whose headers can be shown (null:
 * none), `parent` is the window that owns the dialog on Windows (HWND; null: none). QVA_OK, QVA_CANCELLED or
 * QVA_NOT_AVAILABLE. */
QVA_API qva_status QVA_CALL qva_show_format_dialog(qva_manager* manager, const char* format_file,
                                                   const char* format, const char* sample, void* parent);

#ifdef __cplusplus
}
#endif

#endif
