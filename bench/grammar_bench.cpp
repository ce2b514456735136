// Speed of the grammar-driven parser on generated input, beside a plain byte scan of
// the same text in the same run: the method-text grammar (CsCommStr.Body, VbCommStr.Body)
// over method texts, and the XML grammar over documentation comments. Each parse is
// followed by the search the checks make (every Comment, every element_name), as an
// analysis does for each method and each element.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/grammar/GrammarParser.h"

namespace {

using platform::grammar::GrammarParser;

// The shipped grammar files: ANNOTRA_APP_PATH, else resources/ of this source tree.
std::string Resource(const char* name) {
  if (const char* app = std::getenv("ANNOTRA_APP_PATH"); app && *app) return std::string(app) + "/" + name;
  std::string here = __FILE__;
  size_t at = here.rfind("bench/");
  return (at == std::string::npos ? std::string() : here.substr(0, at)) + "resources/" + name;
}

// Methods of 20 to 60 lines with code, strings, characters and comments.
std::vector<std::string> CSharpMethods(int count) {
  std::vector<std::string> methods;
  for (int m = 0; m < count; ++m) {
    std::string t = "public string Method" + std::to_string(m) + "(int a, string b)\r\n{\r\n";
    int lines = 20 + (m * 7) % 41;
    for (int i = 0; i < lines; ++i) {
      switch (i % 6) {
        case 0: t += "    var s" + std::to_string(i) + " = \"text with // no comment\" + b;\r\n"; break;
        case 1: t += "    // explains the next step of the method\r\n"; break;
        case 2: t += "    if (a > " + std::to_string(i) + " && b != null) { a = a * 2 / 3; }\r\n"; break;
        case 3: t += "    char c = '\\''; var p = @\"C:\\dir\\file.txt\";\r\n"; break;
        case 4: t += "    var i = $\"{a} and {b.Length}\"; /* inline */ a++;\r\n"; break;
        default: t += "    Console.WriteLine(string.Format(\"{0}\", a));\r\n"; break;
      }
    }
    t += "    return b;\r\n}\r\n//comment\r\n";
    methods.push_back(std::move(t));
  }
  return methods;
}

std::vector<std::string> VbMethods(int count) {
  std::vector<std::string> methods;
  for (int m = 0; m < count; ++m) {
    std::string t = "Public Function Method" + std::to_string(m) + "(a As Integer) As String\r\n";
    int lines = 20 + (m * 7) % 41;
    for (int i = 0; i < lines; ++i) {
      switch (i % 4) {
        case 0: t += "    Dim s = \"it's \"\"quoted\"\" text\" & a.ToString()\r\n"; break;
        case 1: t += "    ' explains the next step of the method\r\n"; break;
        case 2: t += "    If a > " + std::to_string(i) + " Then a = a * 2 \\ 3\r\n"; break;
        default: t += "    Console.WriteLine(String.Format(\"{0}\", a)) ' tail\r\n"; break;
      }
    }
    t += "    Return s\r\nEnd Function\r\n'comment\r\n";
    methods.push_back(std::move(t));
  }
  return methods;
}

// Documentation comments as the code model gives them.
std::vector<std::string> DocComments(int count) {
  std::vector<std::string> docs;
  for (int m = 0; m < count; ++m) {
    std::string t = "<doc>\r\n<summary>\r\nGets the <see cref=\"T:System.String\"/> of item " +
                    std::to_string(m) + " when a &lt; b.\r\n</summary>\r\n";
    for (int p = 0; p < m % 4; ++p)
      t += "<param name=\"p" + std::to_string(p) + "\" type=\"int\">The value <paramref name='x'/>.</param>\r\n";
    if (m % 3 == 0) t += "<example><code>\r\nvar x = a<b ? 1 : 2;\r\n</code></example>\r\n";
    t += "<returns>The text.</returns>\r\n</doc>";
    docs.push_back(std::move(t));
  }
  return docs;
}

size_t TotalBytes(const std::vector<std::string>& texts) {
  size_t n = 0;
  for (const auto& t : texts) n += t.size();
  return n;
}

// The plain byte scan: every byte looked at once, line breaks and comment or tag
// starts counted.
void Scan(benchmark::State& state, const std::vector<std::string>& texts, char mark) {
  for (auto _ : state) {
    size_t lines = 0, marks = 0;
    for (const auto& t : texts) {
      const char* p = t.data();
      for (size_t i = 0, n = t.size(); i < n; ++i) {
        lines += p[i] == '\n';
        marks += p[i] == mark;
      }
    }
    benchmark::DoNotOptimize(lines);
    benchmark::DoNotOptimize(marks);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TotalBytes(texts)));
}

void Parse(benchmark::State& state, const std::vector<std::string>& texts, const char* grammar,
           const char* production, const char* pattern) {
  GrammarParser parser;
  if (!parser.LoadGrammar(Resource(grammar))) {
    state.SkipWithError(parser.LastError().c_str());
    return;
  }
  if (production) parser.SetStartProduction(parser.FindProduction(production));
  size_t found = 0;
  for (auto _ : state) {
    for (const auto& t : texts) {
      parser.SetInputText(t);
      parser.Parse();
      int32_t h = parser.StartSearch(pattern, 0);
      for (int32_t n = parser.NextMatch(h); n; n = parser.NextMatch(h))
        found += static_cast<size_t>(parser.LineOfPosition(parser.Position(n)) >= 0);
      parser.EndSearch(h);
    }
  }
  benchmark::DoNotOptimize(found);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TotalBytes(texts)));
}

const std::vector<std::string>& Cs() { static auto v = CSharpMethods(500); return v; }
const std::vector<std::string>& Vb() { static auto v = VbMethods(500); return v; }
const std::vector<std::string>& Docs() { static auto v = DocComments(2000); return v; }

void BM_CsBody_Parse(benchmark::State& s) { Parse(s, Cs(), "SC.GMR", "CsCommStr.Body", "/.*Comment"); }
void BM_CsBody_ByteScan(benchmark::State& s) { Scan(s, Cs(), '/'); }
void BM_VbBody_Parse(benchmark::State& s) { Parse(s, Vb(), "SC.GMR", "VbCommStr.Body", "/.*Comment"); }
void BM_VbBody_ByteScan(benchmark::State& s) { Scan(s, Vb(), '\''); }
void BM_XmlDoc_Parse(benchmark::State& s) { Parse(s, Docs(), "XML.GMR", nullptr, "/.*element_name"); }
void BM_XmlDoc_ByteScan(benchmark::State& s) { Scan(s, Docs(), '<'); }

BENCHMARK(BM_CsBody_Parse);
BENCHMARK(BM_CsBody_ByteScan);
BENCHMARK(BM_VbBody_Parse);
BENCHMARK(BM_VbBody_ByteScan);
BENCHMARK(BM_XmlDoc_Parse);
BENCHMARK(BM_XmlDoc_ByteScan);

}  // namespace

BENCHMARK_MAIN();
