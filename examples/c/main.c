/* A host in C: prints a list of parts with twice the quantities, and writes them to another file.
 *   c-host FORMATS.xml FORMAT IN OUT */

#include <QVAssemblyFile/qvassembly.h>

#include <stdio.h>

static int fail(void) {
  fprintf(stderr, "%s\n", qva_last_error());
  return 3;
}

static qva_manager* open_manager(const char* formats, const char* format) {
  qva_manager* manager = NULL;
  if (qva_manager_create(&manager) == QVA_OK && qva_formats_load(manager, formats) == QVA_OK &&
      qva_format_select(manager, format) == QVA_OK)
    return manager;
  fail();
  qva_manager_destroy(manager);
  return NULL;
}

/* 0 when all parts were copied. */
static int copy_parts(qva_reader* reader, qva_writer* writer) {
  int32_t name = 0, quantity = 0, count = 0;
  qva_record* part = NULL;
  qva_status status;
  if (qva_field_find(QVA_PARTS, "PartName", &name) != QVA_OK ||
      qva_field_find(QVA_PARTS, "PartQuantity", &quantity) != QVA_OK)
    return fail();
  while ((status = qva_reader_next(reader, &part)) == QVA_OK) {
    char text[1024];
    if (qva_record_get_text(part, name, text, sizeof text, NULL) != QVA_OK ||
        qva_record_get_integer(part, quantity, &count) != QVA_OK ||
        qva_record_set_integer(part, quantity, 2 * count) != QVA_OK || qva_writer_put(writer, part) != QVA_OK)
      return fail();
    printf("%s %d\n", text, (int)(2 * count));
  }
  return status == QVA_END ? 0 : fail();
}

static void print_remarks(qva_manager* manager) {
  int32_t count = 0, index;
  qva_diagnostics_count(manager, &count, NULL);
  for (index = 0; index < count; ++index) {
    char message[1024];
    int64_t line = 0;
    if (qva_diagnostic_line(manager, index, &line) == QVA_OK &&
        qva_diagnostic_text(manager, index, QVA_DIAGNOSTIC_MESSAGE, message, sizeof message, NULL) == QVA_OK)
      fprintf(stderr, "line %ld: %s\n", (long)line, message);
  }
}

int main(int argc, char** argv) {
  qva_manager *in, *out;
  qva_reader* reader = NULL;
  qva_writer* writer = NULL;
  int result = 3;
  if (argc != 5) {
    fprintf(stderr, "usage: c-host FORMATS.xml FORMAT IN OUT\n");
    return 2;
  }
  in = open_manager(argv[1], argv[2]);
  out = open_manager(argv[1], argv[2]);
  if (in != NULL && out != NULL) {
    if (qva_reader_open(in, QVA_PARTS, argv[3], &reader) != QVA_OK ||
        qva_writer_open(out, QVA_PARTS, argv[4], &writer) != QVA_OK)
      result = fail();
    else
      result = copy_parts(reader, writer);
    qva_reader_close(reader);
    if (result == 0)
      result = qva_writer_commit(writer) == QVA_OK ? 0 : fail();
    else
      qva_writer_abandon(writer);
    print_remarks(in);
  }
  qva_manager_destroy(in);
  qva_manager_destroy(out);
  return result;
}
