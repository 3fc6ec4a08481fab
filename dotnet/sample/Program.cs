// Reads a list of parts, doubles the quantities and writes them to another list:
//   sample FORMATS.xml FORMAT IN OUT

using System;
using QVAssembly;

static class Program {
  static int Main(string[] arguments) {
    if (arguments.Length != 4) {
      Console.Error.WriteLine("usage: sample FORMATS.xml FORMAT IN OUT");
      return 2;
    }
    try {
      using (var input = new Manager())
      using (var output = new Manager()) {
        foreach (var manager in new[] { input, output }) {
          manager.LoadFormats(arguments[0]);
          manager.SelectFormat(arguments[1]);
        }
        int count = 0;
        using (var writer = output.Write(arguments[3], Kind.Parts)) {
          foreach (var part in input.Read(arguments[2], Kind.Parts)) {
            part.Set("PartQuantity", 2 * part.GetInteger("PartQuantity"));
            writer.Put(part);
            ++count;
          }
          writer.Commit();
        }
        foreach (var diagnostic in input.TakeDiagnostics())
          Console.Error.WriteLine("{0}:{1}: {2}", diagnostic.File, diagnostic.Line, diagnostic.Message);
        Console.WriteLine("{0} parts", count);
      }
      return 0;
    } catch (AssemblyException error) {
      Console.Error.WriteLine(error.Message);
      return 3;
    }
  }
}
