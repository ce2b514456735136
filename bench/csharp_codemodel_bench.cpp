// Speed of the C# code model: a generated solution of 200,000 lines of C# (200 files of
// 1,000 lines, in a temporary folder) is read, and parsed, in the same run, so that the
// parse's MB/s stands beside the cost of only reading the same files.
//   BM_ReadFiles        read every file's bytes
//   BM_ReadAndDecode    read and decode them as the document loader does
//   BM_Parse            parse the decoded texts (documents made in memory, code model built)
//   BM_ReadDecodeParse  all of it, file by file
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/automation/Document.h"
#include "platform/automation/FileDecoder.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace {

namespace fs = std::filesystem;
using platform::codemodel::vsCMLanguageCSharp;

constexpr int kFiles = 200;
constexpr int kLinesPerFile = 1000;

// One class of about 100 lines, with the constructs real code is made of.
void AppendClass(std::string& out, int file, int n) {
  const std::string id = std::to_string(file) + "_" + std::to_string(n);
  out +=
      "    /// <summary>\n"
      "    /// Service number " + id + ", generated for the benchmark.\n"
      "    /// </summary>\n"
      "    [Serializable, DebuggerDisplay(\"{Name,nq}\")]\n"
      "    public sealed partial class Service" + id + " : IService<Service" + id + ">, IDisposable\n"
      "    {\n"
      "        private readonly Dictionary<string, List<int>> _cache = new Dictionary<string, List<int>>();\n"
      "        private int _count, _limit = 10;\n"
      "        public const string Prefix = \"{svc}\";\n"
      "\n"
      "        /// <summary>Creates the service.</summary>\n"
      "        /// <param name=\"name\">The name.</param>\n"
      "        public Service" + id + "(string name, int limit = 10)\n"
      "        {\n"
      "            Name = name ?? throw new ArgumentNullException(nameof(name));\n"
      "            _limit = limit;\n"
      "        }\n"
      "\n"
      "        /// <summary>The service's name.</summary>\n"
      "        public string Name { get; private set; }\n"
      "        public int Count => _count;\n"
      "        public required int Priority { get; init; }\n"
      "        public int this[int index] { get { return _cache.Count + index; } }\n"
      "        public event EventHandler<EventArgs>? Changed;\n"
      "\n"
      "        /// <summary>Runs the service.</summary>\n"
      "        /// <returns>The number of items.</returns>\n"
      "        public async Task<int> RunAsync(CancellationToken token, params string[] args)\n"
      "        {\n"
      "            var results = new List<(int Id, string Text)>();\n"
      "            foreach (var arg in args)\n"
      "            {\n"
      "                // Braces in strings and comments are not code: { } \" \n"
      "                var text = $\"{arg}: {{literal}} {(arg.Length > 3 ? \"long\" : \"short\")}\";\n"
      "                results.Add((arg.Length, text));\n"
      "                if (token.IsCancellationRequested) { break; }\n"
      "            }\n"
      "            int Local(int x) => x * 2;\n"
      "            Func<int, int> twice = v => { return Local(v); };\n"
      "            await Task.Delay(1, token);\n"
      "            _count += results.Count;\n"
      "            Changed?.Invoke(this, EventArgs.Empty);\n"
      "            return twice(results.Count);\n"
      "        }\n"
      "\n"
      "        private static string Format(IReadOnlyDictionary<string, IList<KeyValuePair<int, string>>> map)\n"
      "        {\n"
      "            var sb = new StringBuilder();\n"
      "            foreach (var pair in map)\n"
      "            {\n"
      "                sb.Append(pair.Key).Append('=').Append(pair.Value.Count).Append(';');\n"
      "            }\n"
      "            return sb.ToString();\n"
      "        }\n"
      "\n"
      "#if DEBUG\n"
      "        /// <summary>Only in debug builds.</summary>\n"
      "        public void Dump() { Console.WriteLine(@\"C:\\temp\\{dump}.txt\"); }\n"
      "#else\n"
      "        public void Dump() { }\n"
      "#endif\n"
      "\n"
      "        public static Service" + id + " operator +(Service" + id + " a, Service" + id + " b) => a;\n"
      "        public static implicit operator string(Service" + id + " s) => s.Name;\n"
      "        void IDisposable.Dispose() { _cache.Clear(); }\n"
      "        public override string ToString() => \"\"\"\n"
      "            raw \"text\" { with braces }\n"
      "            \"\"\";\n"
      "\n"
      "        /// <summary>Options of the service.</summary>\n"
      "        public enum Mode\n"
      "        {\n"
      "            /// <summary>Nothing.</summary>\n"
      "            None = 0,\n"
      "            Fast = 1 << 0,\n"
      "            Safe = 1 << 1,\n"
      "            All = Fast | Safe,\n"
      "        }\n"
      "\n"
      "        public record Item(int Id, string Name);\n"
      "        private delegate void Callback(object sender, int code);\n"
      "\n"
      "        protected virtual void OnChanged(object? sender, EventArgs e)\n"
      "        {\n"
      "            /* a block comment\n"
      "               over two lines */\n"
      "            switch (e)\n"
      "            {\n"
      "                case null: return;\n"
      "                default: Changed?.Invoke(sender, e); break;\n"
      "            }\n"
      "        }\n"
      "\n"
      "        public T Get<T>(string key) where T : class, new() => _cache.ContainsKey(key) ? new T() : default!;\n"
      "        public IEnumerable<int> Items() { for (int i = 0; i < _limit; i++) yield return i; }\n"
      "    }\n"
      "\n";
}

std::string MakeFile(int file) {
  std::string out =
      "using System;\n"
      "using System.Collections.Generic;\n"
      "using System.Diagnostics;\n"
      "using System.Text;\n"
      "using System.Threading;\n"
      "using System.Threading.Tasks;\n"
      "\n"
      "namespace Generated.Area" + std::to_string(file % 10) + "\n"
      "{\n";
  for (int n = 0; n < 10; ++n) AppendClass(out, file, n);
  out += "}\n";
  // Comment lines bring every file to exactly kLinesPerFile lines.
  size_t lines = 0;
  for (char c : out) lines += c == '\n';
  for (; lines < kLinesPerFile; ++lines) out += "// padding line of the generated file\n";
  return out;
}

// The generated solution: a folder with a project file and its sources, removed at exit.
struct Solution {
  fs::path root;
  std::vector<fs::path> files;
  size_t bytes = 0;
  size_t lines = 0;

  Solution() {
    root = fs::temp_directory_path() / ("annotra-cs-bench-" + std::to_string(::getpid()));
    fs::create_directories(root / "src");
    std::ofstream(root / "Generated.sln") << "Microsoft Visual Studio Solution File, Format Version 12.00\n"
                                             "Project(\"{9A19103F-16F7-4668-BE54-9A1E7A4F7556}\") = \"Generated\", "
                                             "\"src\\Generated.csproj\", \"{00000000-0000-0000-0000-000000000001}\"\n"
                                             "EndProject\n";
    std::ofstream(root / "src" / "Generated.csproj")
        << "<Project Sdk=\"Microsoft.NET.Sdk\"><PropertyGroup><TargetFramework>net8.0</TargetFramework>"
           "</PropertyGroup></Project>\n";
    for (int f = 0; f < kFiles; ++f) {
      std::string text = MakeFile(f);
      for (char c : text) lines += c == '\n';
      bytes += text.size();
      fs::path p = root / "src" / ("File" + std::to_string(f) + ".cs");
      std::ofstream(p, std::ios::binary) << text;
      files.push_back(p);
    }
  }
  ~Solution() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
};

Solution& TheSolution() {
  static Solution s;
  return s;
}

std::string ReadBytes(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

size_t ParseText(std::string text) {
  auto doc = platform::automation::Document::FromText("F.cs", std::move(text), vsCMLanguageCSharp,
                                                      {{{"DEBUG", ""}, {"TRACE", ""}}});
  return static_cast<size_t>(doc->CodeModel()->CodeElements()->Count());
}

void SetCounters(benchmark::State& state, const Solution& s) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * s.bytes));
  state.counters["lines"] = static_cast<double>(s.lines);
  state.counters["files"] = static_cast<double>(s.files.size());
}

void BM_ReadFiles(benchmark::State& state) {
  const Solution& s = TheSolution();
  for (auto _ : state) {
    size_t total = 0;
    for (const fs::path& p : s.files) total += ReadBytes(p).size();
    benchmark::DoNotOptimize(total);
  }
  SetCounters(state, s);
}

void BM_ReadAndDecode(benchmark::State& state) {
  const Solution& s = TheSolution();
  for (auto _ : state) {
    size_t total = 0;
    for (const fs::path& p : s.files) total += platform::automation::DecodeFile(p).size();
    benchmark::DoNotOptimize(total);
  }
  SetCounters(state, s);
}

void BM_Parse(benchmark::State& state) {
  const Solution& s = TheSolution();
  std::vector<std::string> texts;
  for (const fs::path& p : s.files) texts.push_back(platform::automation::DecodeFile(p));
  size_t elements = 0;
  for (auto _ : state) {
    elements = 0;
    for (const std::string& t : texts) elements += ParseText(t);
    benchmark::DoNotOptimize(elements);
  }
  SetCounters(state, s);
}

void BM_ReadDecodeParse(benchmark::State& state) {
  const Solution& s = TheSolution();
  for (auto _ : state) {
    size_t elements = 0;
    for (const fs::path& p : s.files) elements += ParseText(platform::automation::DecodeFile(p));
    benchmark::DoNotOptimize(elements);
  }
  SetCounters(state, s);
}

BENCHMARK(BM_ReadFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadAndDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Parse)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadDecodeParse)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
