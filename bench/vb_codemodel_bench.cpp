// The VB code model over a generated solution of 200,000 lines: parse throughput beside
// the time to only read the same files, in the same run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "platform/automation/Document.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace {

namespace fs = std::filesystem;

constexpr int kProjects = 4;
constexpr int kFilesPerProject = 50;
constexpr int kLinesPerFile = 1000;  // 4 x 50 x 1000 = 200,000 lines

// One class of about 60 lines with the constructs real code holds: documentation,
// attributes, fields, properties, methods with lambdas, blocks, strings, XML literals.
void WriteClass(std::ostream& out, int project, int file, int n) {
  out << "    ''' <summary>\n    ''' Class " << n << " of file " << file << ".\n    ''' </summary>\n"
      << "    <Serializable()>\n"
      << "    Public Class Generated" << n << "\n"
      << "        Implements IDisposable\n"
      << "        Private ReadOnly _items As New List(Of String)()\n"
      << "        Private _count As Integer = " << n << ", _name As String = \"it's \"\"quoted\"\" ' text\"\n"
      << "        Friend WithEvents Timer" << n << " As System.Timers.Timer\n"
      << "        Public Const Limit As Integer = " << n * 7 << "\n\n"
      << "        ''' <summary>The name.</summary>\n"
      << "        Public Property Name As String\n"
      << "            Get\n                Return _name\n            End Get\n"
      << "            Set(value As String)\n                _name = value\n            End Set\n"
      << "        End Property\n\n"
      << "        Public ReadOnly Property Count As Integer = " << project << "\n\n"
      << "        ''' <param name=\"value\">A value.</param>\n"
      << "        ''' <returns>A text.</returns>\n"
      << "        Public Function Compute(ByVal value As Integer, Optional ByRef text As String = \"\") As String\n"
      << "            Dim square = Function(x As Integer) As Integer\n"
      << "                             Return x * x\n"
      << "                         End Function\n"
      << "            _items.ForEach(Sub(item)\n"
      << "                               Console.WriteLine(item) ' End Sub in a comment\n"
      << "                           End Sub)\n"
      << "            If value > Limit Then\n                Return \"big\"\n            ElseIf value < 0 Then\n"
      << "                Throw New ArgumentException(\"negative\")\n            End If\n"
      << "            Select Case value Mod 3\n                Case 0 : text = \"zero\"\n"
      << "                Case Else\n                    text = $\"{value} items, {_count:N0}\"\n            End Select\n"
      << "            Dim doc = <item id=<%= value %>>End Function</item>\n"
      << "            For i As Integer = 0 To value Step 2\n                _count += square(i)\n            Next\n"
      << "            Return text & _\n                   doc.Value\n"
      << "        End Function\n\n"
      << "        Public Event Changed(sender As Object, e As EventArgs)\n\n"
      << "        Public Sub Dispose() Implements IDisposable.Dispose\n"
      << "            Using reader As New System.IO.StringReader(_name)\n                reader.ReadToEnd()\n"
      << "            End Using\n"
      << "        End Sub\n"
      << "    End Class\n\n";
}

struct Solution {
  fs::path root;
  std::vector<fs::path> files;
  size_t bytes = 0;
  size_t lines = 0;

  Solution() {
    root = fs::temp_directory_path() / ("annotra-vb-bench-" + std::to_string(getpid()));
    fs::create_directories(root);
    std::ofstream sln(root / "Generated.sln");
    sln << "Microsoft Visual Studio Solution File, Format Version 12.00\n";
    for (int p = 0; p < kProjects; ++p) {
      fs::path dir = root / ("Project" + std::to_string(p));
      fs::create_directories(dir);
      sln << "Project(\"{F184B08F-C81C-45F6-A57F-5ABD9991F28F}\") = \"Project" << p << "\", \"Project" << p
          << "\\Project" << p << ".vbproj\", \"{00000000-0000-0000-0000-00000000000" << p << "}\"\nEndProject\n";
      std::ofstream(dir / ("Project" + std::to_string(p) + ".vbproj"))
          << "<Project Sdk=\"Microsoft.NET.Sdk\">\n  <PropertyGroup>\n    <TargetFramework>net8.0</TargetFramework>\n"
          << "  </PropertyGroup>\n</Project>\n";
      for (int f = 0; f < kFilesPerProject; ++f) {
        std::ostringstream out;
        out << "Option Strict On\nImports System\nImports System.Collections.Generic\n\n"
            << "Namespace Generated.P" << p << "\n";
        size_t written = 5;
        for (int n = 0; written + 70 < kLinesPerFile; ++n) {
          std::ostringstream cls;
          WriteClass(cls, p, f, n);
          std::string text = cls.str();
          written += static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
          out << text;
        }
        out << "End Namespace\n";
        std::string text = out.str();
        while (static_cast<size_t>(std::count(text.begin(), text.end(), '\n')) < kLinesPerFile) text += "' padding\n";
        fs::path path = dir / ("File" + std::to_string(f) + ".vb");
        std::ofstream(path, std::ios::binary) << text;
        files.push_back(path);
        bytes += text.size();
        lines += static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
      }
    }
  }
  ~Solution() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
};

const Solution& GetSolution() {
  static Solution solution;
  return solution;
}

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

// Reading the files only: the floor under any parse.
void BM_VbReadOnly(benchmark::State& state) {
  const Solution& s = GetSolution();
  for (auto _ : state) {
    size_t total = 0;
    for (const fs::path& f : s.files) total += ReadFile(f).size();
    benchmark::DoNotOptimize(total);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * s.bytes));
  state.counters["lines"] = static_cast<double>(s.lines);
}
BENCHMARK(BM_VbReadOnly)->Unit(benchmark::kMillisecond);

// Reading and parsing every file into its code model.
void BM_VbReadAndParse(benchmark::State& state) {
  const Solution& s = GetSolution();
  size_t elements = 0;
  for (auto _ : state) {
    elements = 0;
    for (const fs::path& f : s.files) {
      auto doc = platform::automation::Document::FromText(f, ReadFile(f), platform::codemodel::vsCMLanguageVB,
                                                          {{{"DEBUG", "-1"}, {"TRACE", "-1"}}});
      auto model = doc->CodeModel();
      elements += static_cast<size_t>(model->CodeElements()->Count());
    }
    benchmark::DoNotOptimize(elements);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * s.bytes));
  state.counters["lines"] = static_cast<double>(s.lines);
}
BENCHMARK(BM_VbReadAndParse)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
