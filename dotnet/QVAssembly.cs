// QVAssemblyFile for .NET: this file alone, on the C interface. Texts are UTF-8 on the other side.
//
//   using (var manager = new QVAssembly.Manager()) {
//     manager.LoadFormats("AssemblyFormats.xml");
//     manager.SelectFormat("orders");
//     foreach (var part in manager.Read("parts.csv", QVAssembly.Kind.Parts))
//       Console.WriteLine(part.GetText("PartName"));
//   }
//
// A failure is a QVAssembly.AssemblyException whose message is a sentence for a person. A manager, with all that came from
// it, belongs to one thread at a time.

using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;

namespace QVAssembly {

  public enum Kind {
    Parts, Tools, Materials, Sheets, PartPrograms,
    MaterialInventory,  // read only
    MaterialLibrary,    // read only
    JobProgress         // written only
  }

  /// <summary>A call that failed.</summary>
  public sealed class AssemblyException : Exception {
    public int Status { get; private set; }
    public AssemblyException(int status) : base(SentenceOf(status)) { Status = status; }

    static string SentenceOf(int status) {
      string sentence = Native.Text(Native.qva_last_error());
      return sentence.Length > 0 ? sentence : Native.Text(Native.qva_status_text(status));
    }
  }

  /// <summary>One remark on what was not taken as it stood. Line 0: about the whole file.</summary>
  public sealed class Diagnostic {
    public string File, Column, Code, Text, Stored, Message;
    public long Line;
  }

  static class Native {
    const string Library = "QVAssemblyFile";
    public const int Ok = 0, End = 1, ShortBuffer = 4;

    [DllImport(Library)] public static extern IntPtr qva_last_error();
    [DllImport(Library)] public static extern IntPtr qva_version();
    [DllImport(Library)] public static extern IntPtr qva_status_text(int status);
    [DllImport(Library)] public static extern int qva_field_find(int type, byte[] name, out int field);
    [DllImport(Library)] public static extern int qva_record_create(int kind, out IntPtr record);
    [DllImport(Library)] public static extern int qva_record_clone(IntPtr record, out IntPtr copy);
    [DllImport(Library)] public static extern void qva_record_destroy(IntPtr record);
    [DllImport(Library)] public static extern int qva_record_type(IntPtr record, out int type);
    [DllImport(Library)]
    public static extern int qva_record_get_text(IntPtr record, int field, byte[] buffer, int size, out int needed);
    [DllImport(Library)] public static extern int qva_record_get_integer(IntPtr record, int field, out int value);
    [DllImport(Library)] public static extern int qva_record_get_number(IntPtr record, int field, out double value);
    [DllImport(Library)] public static extern int qva_record_get_flag(IntPtr record, int field, out int value);
    [DllImport(Library)] public static extern int qva_record_set_text(IntPtr record, int field, byte[] text);
    [DllImport(Library)] public static extern int qva_record_set_integer(IntPtr record, int field, int value);
    [DllImport(Library)] public static extern int qva_record_set_number(IntPtr record, int field, double value);
    [DllImport(Library)] public static extern int qva_record_set_flag(IntPtr record, int field, int value);
    [DllImport(Library)] public static extern int qva_record_list_size(IntPtr record, int field, out int size);
    [DllImport(Library)] public static extern int qva_record_list_resize(IntPtr record, int field, int size);
    [DllImport(Library)]
    public static extern int qva_record_list_element(IntPtr record, int field, int index, out IntPtr element);
    [DllImport(Library)] public static extern int qva_manager_create(out IntPtr manager);
    [DllImport(Library)] public static extern void qva_manager_destroy(IntPtr manager);
    [DllImport(Library)] public static extern int qva_manager_decimal_comma(IntPtr manager, int whenRead, int whenWritten);
    [DllImport(Library)] public static extern int qva_diagnostics_count(IntPtr manager, out int count, out long lost);
    [DllImport(Library)] public static extern int qva_diagnostic_line(IntPtr manager, int index, out long line);
    [DllImport(Library)]
    public static extern int qva_diagnostic_text(IntPtr manager, int index, int which, byte[] buffer, int size,
                                                 out int needed);
    [DllImport(Library)] public static extern int qva_diagnostics_clear(IntPtr manager);
    [DllImport(Library)] public static extern int qva_formats_load(IntPtr manager, byte[] path);
    [DllImport(Library)] public static extern int qva_formats_count(IntPtr manager, out int count);
    [DllImport(Library)]
    public static extern int qva_format_name(IntPtr manager, int format, byte[] buffer, int size, out int needed);
    [DllImport(Library)] public static extern int qva_format_current(IntPtr manager, out int format);
    [DllImport(Library)] public static extern int qva_format_select(IntPtr manager, byte[] name);
    [DllImport(Library)] public static extern int qva_reader_open(IntPtr manager, int kind, byte[] path, out IntPtr reader);
    [DllImport(Library)] public static extern int qva_reader_header_count(IntPtr reader, out int count);
    [DllImport(Library)]
    public static extern int qva_reader_header(IntPtr reader, int index, byte[] buffer, int size, out int needed);
    [DllImport(Library)] public static extern int qva_reader_next(IntPtr reader, out IntPtr record);
    [DllImport(Library)] public static extern void qva_reader_close(IntPtr reader);
    [DllImport(Library)] public static extern int qva_writer_open(IntPtr manager, int kind, byte[] path, out IntPtr writer);
    [DllImport(Library)] public static extern int qva_writer_put(IntPtr writer, IntPtr record);
    [DllImport(Library)] public static extern int qva_writer_commit(IntPtr writer);
    [DllImport(Library)] public static extern void qva_writer_abandon(IntPtr writer);

    public static void Check(int status) {
      if (status != Ok) throw new AssemblyException(status);
    }

    public static byte[] Bytes(string text) {
      if (text.IndexOf('\0') >= 0) throw new ArgumentException("a text cannot hold a NUL character");
      return Encoding.UTF8.GetBytes(text + "\0");
    }

    public static string Text(IntPtr text) {
      int length = 0;
      while (Marshal.ReadByte(text, length) != 0) ++length;
      var bytes = new byte[length];
      Marshal.Copy(text, bytes, 0, length);
      return Encoding.UTF8.GetString(bytes);
    }

    public delegate int TextOut(byte[] buffer, int size, out int needed);

    public static string Text(TextOut get) {
      var buffer = new byte[256];
      int needed;
      int status = get(buffer, buffer.Length, out needed);
      if (status == ShortBuffer) {
        buffer = new byte[needed + 1];
        status = get(buffer, buffer.Length, out needed);
      }
      Check(status);
      return Encoding.UTF8.GetString(buffer, 0, needed);
    }
  }

  /// <summary>A record, or an element of a record's list.</summary>
  public sealed class Record : IDisposable {
    internal IntPtr Handle;
    readonly bool isOwner;

    /// <summary>A fresh record of the kind.</summary>
    public Record(Kind kind) {
      Native.Check(Native.qva_record_create((int)kind, out Handle));
      isOwner = true;
    }

    internal Record(IntPtr handle, bool isOwner) {
      Handle = handle;
      this.isOwner = isOwner;
    }

    ~Record() { Dispose(); }

    public void Dispose() {
      if (isOwner) Native.qva_record_destroy(Handle);
      Handle = IntPtr.Zero;
      GC.SuppressFinalize(this);
    }

    /// <summary>A copy that outlives the reader.</summary>
    public Record Clone() {
      IntPtr copy;
      Native.Check(Native.qva_record_clone(Handle, out copy));
      return new Record(copy, true);
    }

    int FieldOf(string name) {
      int type, field;
      Native.Check(Native.qva_record_type(Handle, out type));
      Native.Check(Native.qva_field_find(type, Native.Bytes(name), out field));
      return field;
    }

    public string GetText(string name) {
      int field = FieldOf(name);
      return Native.Text((byte[] buffer, int size, out int needed) =>
                             Native.qva_record_get_text(Handle, field, buffer, size, out needed));
    }

    public int GetInteger(string name) {
      int value;
      Native.Check(Native.qva_record_get_integer(Handle, FieldOf(name), out value));
      return value;
    }

    public double GetNumber(string name) {
      double value;
      Native.Check(Native.qva_record_get_number(Handle, FieldOf(name), out value));
      return value;
    }

    public bool GetFlag(string name) {
      int value;
      Native.Check(Native.qva_record_get_flag(Handle, FieldOf(name), out value));
      return value != 0;
    }

    public void Set(string name, string text) {
      Native.Check(Native.qva_record_set_text(Handle, FieldOf(name), Native.Bytes(text)));
    }
    public void Set(string name, int value) { Native.Check(Native.qva_record_set_integer(Handle, FieldOf(name), value)); }
    public void Set(string name, double value) { Native.Check(Native.qva_record_set_number(Handle, FieldOf(name), value)); }
    public void Set(string name, bool value) {
      Native.Check(Native.qva_record_set_flag(Handle, FieldOf(name), value ? 1 : 0));
    }

    public int GetListSize(string name) {
      int size;
      Native.Check(Native.qva_record_list_size(Handle, FieldOf(name), out size));
      return size;
    }
    public void ResizeList(string name, int size) {
      Native.Check(Native.qva_record_list_resize(Handle, FieldOf(name), size));
    }
    /// <summary>Valid until the list is resized or this record is gone.</summary>
    public Record GetElement(string name, int index) {
      IntPtr element;
      Native.Check(Native.qva_record_list_element(Handle, FieldOf(name), index, out element));
      return new Record(element, false);
    }
  }

  /// <summary>Writes a file record by record. Without Commit() nothing is written, and an existing file stays.</summary>
  public sealed class Writer : IDisposable {
    IntPtr handle;
    internal Writer(IntPtr handle) { this.handle = handle; }
    ~Writer() { Dispose(); }

    public void Put(Record record) { Native.Check(Native.qva_writer_put(handle, record.Handle)); }

    public void Commit() {
      IntPtr writer = handle;
      handle = IntPtr.Zero;
      Native.Check(Native.qva_writer_commit(writer));
    }

    public void Dispose() {
      Native.qva_writer_abandon(handle);
      handle = IntPtr.Zero;
      GC.SuppressFinalize(this);
    }
  }

  /// <summary>Formats, and the files that are read and written with them.</summary>
  public sealed class Manager : IDisposable {
    IntPtr handle;

    public Manager() { Native.Check(Native.qva_manager_create(out handle)); }
    ~Manager() { Dispose(); }

    public void Dispose() {
      Native.qva_manager_destroy(handle);
      handle = IntPtr.Zero;
      GC.SuppressFinalize(this);
    }

    public static string Version { get { return Native.Text(Native.qva_version()); } }

    public void LoadFormats(string path) { Native.Check(Native.qva_formats_load(handle, Native.Bytes(path))); }
    /// <summary>Numbers of text files that are read or written have a comma as the decimal sign.</summary>
    public void DecimalComma(bool whenRead, bool whenWritten) {
      Native.Check(Native.qva_manager_decimal_comma(handle, whenRead ? 1 : 0, whenWritten ? 1 : 0));
    }

    public void SelectFormat(string name) { Native.Check(Native.qva_format_select(handle, Native.Bytes(name))); }

    public string CurrentFormat {
      get {
        int format;
        Native.Check(Native.qva_format_current(handle, out format));
        return NameOf(format);
      }
    }

    public IList<string> Formats {
      get {
        int count;
        Native.Check(Native.qva_formats_count(handle, out count));
        var names = new List<string>();
        for (int format = 0; format < count; ++format) names.Add(NameOf(format));
        return names;
      }
    }

    string NameOf(int format) {
      return Native.Text((byte[] buffer, int size, out int needed) =>
                             Native.qva_format_name(handle, format, buffer, size, out needed));
    }

    /// <summary>The records of a file. Each is valid until the next one; Clone() keeps it.</summary>
    public IEnumerable<Record> Read(string path, Kind kind) {
      IntPtr reader;
      Native.Check(Native.qva_reader_open(handle, (int)kind, Native.Bytes(path), out reader));
      try {
        for (;;) {
          IntPtr record;
          int status = Native.qva_reader_next(reader, out record);
          if (status == Native.End) yield break;
          Native.Check(status);
          yield return new Record(record, false);
        }
      } finally {
        Native.qva_reader_close(reader);
      }
    }

    public Writer Write(string path, Kind kind) {
      IntPtr writer;
      Native.Check(Native.qva_writer_open(handle, (int)kind, Native.Bytes(path), out writer));
      return new Writer(writer);
    }

    /// <summary>The remarks since the last call.</summary>
    public IList<Diagnostic> TakeDiagnostics() {
      int count;
      long lost;
      Native.Check(Native.qva_diagnostics_count(handle, out count, out lost));
      var diagnostics = new List<Diagnostic>();
      for (int index = 0; index < count; ++index) {
        var diagnostic = new Diagnostic();
        Native.Check(Native.qva_diagnostic_line(handle, index, out diagnostic.Line));
        diagnostic.File = DiagnosticText(index, 0);
        diagnostic.Column = DiagnosticText(index, 1);
        diagnostic.Code = DiagnosticText(index, 2);
        diagnostic.Text = DiagnosticText(index, 3);
        diagnostic.Stored = DiagnosticText(index, 4);
        diagnostic.Message = DiagnosticText(index, 5);
        diagnostics.Add(diagnostic);
      }
      Native.Check(Native.qva_diagnostics_clear(handle));
      return diagnostics;
    }

    string DiagnosticText(int index, int which) {
      return Native.Text((byte[] buffer, int size, out int needed) =>
                             Native.qva_diagnostic_text(handle, index, which, buffer, size, out needed));
    }
  }
}
