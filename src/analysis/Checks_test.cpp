// The checks, tested on inputs that carry their expected findings beside the lines that
// cause them. Every .cs and .vb file below testdata/checks/ is one test: it is written as
// the only file of a one-project solution in a temporary folder (an SDK-style .csproj or
// .vbproj), the whole solution is analysed as the host would analyse it (settings store,
// team database with the default templates, grammar files), and the rows of
// "XMLAnalyzer1" are compared with the expectations of the file.
//
// Expectations. `// expect: PROBLEM` in C#, `' expect: PROBLEM` in Visual Basic, states
// one finding whose Problem is PROBLEM exactly:
//
//     public string Name() { return ""; } // expect: Missing <returns> tag
//
// At the end of a line it is about that line (Start); several may follow one another
// there. On a line of its own it is about the next line that is not itself an expect
// line, so several expect lines stack up for one line. Qualifiers in square brackets
// after the problem fix more columns:
//
//     [member NAME]  the Member column (parameter findings name "Method:parameter");
//                    without it any member will do
//     [end +N]       End is Start + N; without it End must equal Start (the in-method
//                    check always needs it)
//     [type KIND]    the Type column ("Field (variable, constant)"); without it any
//
// The findings of one line must come in the order their expect comments are written
// (own-line ones from the top, then the one at the end of the line), since the order
// means something: definition before body, tags in list order, parameters by position.
//
// Options. A first line `// options: ...` (`' options: ...`) sets the options the
// analysis reads; without it the analysis runs as for a user who stored none (public
// definitions need XML comments, non-public ones plain comments, every tag of every
// enabled template required, bodies checked with 15 lines). Words, as on the command
// line:
//
//     --no-public          "EnablePublic" 0        --public-plain     "XMLOnPublic" 0
//     --no-non-public      "EnableNonPublic" 0     --non-public-xml   "XMLOnNonPublic" 1
//     --no-body            "EnableBody" 0          --max-lines N      "LineCount" N, as given
//     --inheritdoc         "AcceptInheritDoc" 1    --no-param-types   "CompareParamTypes" 0
//     --skip-generated     "SkipGenerated" 1
//     --require KIND:TAG,TAG  (repeatable) every kind of the default templates stays
//                          checked, only the named tags are required (what the XML
//                          options form stores when the user checks just these tags)
//     --xmlcheck VALUE     "XMLCheck" stored as given, e.g. {Method}|summary
//
// Where to write an expectation. An annotation must not change what it annotates, and a
// comment can: the definition checks read the lines above an element (a plain comment
// there turns "Code elements without definition comments." into "...without XML
// comments." or into nothing), and the in-method check ends a stretch of code at every
// comment inside a method. So:
//   - Write the expectation at the end of the reported line. That is always neutral: the
//     definition checks look only above an element's line, and the line an in-method
//     finding starts on is the method's first line or the last line of a comment, where
//     one more comment ends no stretch. Not on a Visual Basic line continued with " _".
//   - An expect line of its own is neutral only where a comment stands anyway: between an
//     XML documentation comment and its element (the documentation is still found), or
//     in a plain comment above it. Never above an element without a comment, never
//     inside a method body.
//   - The options line is line 1, which the comment search above an element never reads.
// The runner checks the rule: it analyses every input twice, as written and with its
// annotations blanked out (line numbers kept), and fails when the findings differ.
//
// A failing input prints its path with the missing and the unexpected findings, each in
// the syntax above, ready to be pasted.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "analysis/FCCOptions.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "platform/automation/SolutionLoader.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/ScriptedPresenter.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/TeamDatabase.h"
#include "testsupport/ExpectedFindings.h"
#include "testsupport/SolutionText.h"
#include "testsupport/TempDir.h"

namespace annotra {
namespace {

namespace fs = std::filesystem;
using platform::Variant;
using testsupport::ExpectedFinding;

struct Input {
  fs::path file;
  std::string name;  // the path below testdata/checks/
};

// Names an input in test output instead of dumping its bytes.
void PrintTo(const Input& input, std::ostream* os) { *os << input.name; }

std::vector<Input> AllInputs() {
  std::vector<Input> inputs;
  const fs::path root = fs::path(ANNOTRA_TESTDATA_DIR) / "checks";
  std::error_code ec;  // no folder, no inputs: the listing must not stop the test program
  for (const auto& entry : fs::recursive_directory_iterator(root, ec)) {
    auto ext = entry.path().extension();
    if (entry.is_regular_file() && (ext == ".cs" || ext == ".vb"))
      inputs.push_back({entry.path(), fs::relative(entry.path(), root).generic_string()});
  }
  std::sort(inputs.begin(), inputs.end(), [](const Input& a, const Input& b) { return a.name < b.name; });
  return inputs;
}

void Store(const char* key, const Variant& value) {
  MGlobals::AppSettingsObject_HKCU->Write("CommentsAnalyzer", key, value);
}

// Plays the user of the XML options form who unchecks every tag, checks the tags of
// `specs` (KIND:TAG,TAG) and presses OK. "" when every tag was there, else why not.
std::string StoreRequiredTags(const std::vector<std::string>& specs) {
  auto user = std::make_shared<platform::forms::ScriptedPresenter>();
  user->Click("&Uncheck All");
  for (const auto& spec : specs) {
    size_t colon = spec.find(':');
    if (colon == std::string::npos || colon == 0) return "--require " + spec + " is not KIND:TAG,TAG";
    std::string kind = spec.substr(0, colon), tags = spec.substr(colon + 1);
    for (size_t begin = 0; begin <= tags.size();) {
      size_t end = std::min(tags.find(',', begin), tags.size());
      if (end > begin) user->Check("TreeView1", "T" + kind + "*" + tags.substr(begin, end - begin));
      begin = end + 1;
    }
  }
  user->Click("&OK");
  platform::forms::ScopedPresenter scope(user);
  FCCOptions form;
  form.GetOptions(true);
  form.Unload();
  return user->errors.empty() ? "" : "--require: " + user->errors.front();
}

// Stores the options of an input where the options dialog stores them. "" when every
// word was understood, else the first that was not.
std::string StoreOptions(const std::vector<std::string>& words) {
  static const std::map<std::string, std::pair<const char*, int>> kFlags = {
      {"--no-public", {"EnablePublic", 0}},        {"--public-plain", {"XMLOnPublic", 0}},
      {"--no-non-public", {"EnableNonPublic", 0}}, {"--non-public-xml", {"XMLOnNonPublic", 1}},
      {"--no-body", {"EnableBody", 0}},           {"--inheritdoc", {"AcceptInheritDoc", 1}},
      {"--no-param-types", {"CompareParamTypes", 0}}, {"--skip-generated", {"SkipGenerated", 1}}};
  std::vector<std::string> required;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& w = words[i];
    if (auto flag = kFlags.find(w); flag != kFlags.end()) {
      Store(flag->second.first, Variant(flag->second.second));
    } else if ((w == "--max-lines" || w == "--require" || w == "--xmlcheck") && i + 1 < words.size()) {
      const std::string& value = words[++i];
      if (w == "--max-lines") Store("LineCount", Variant(value));
      else if (w == "--xmlcheck") Store("XMLCheck", Variant(value));
      else required.push_back(value);
    } else {
      return "unknown option \"" + w + "\"";
    }
  }
  return required.empty() ? "" : StoreRequiredTags(required);
}

// The rows of "XMLAnalyzer1", in table order.
std::vector<ExpectedFinding> ReadRows() {
  std::vector<ExpectedFinding> rows;
  auto rs = MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenSnapshot);
  auto text = [&](const char* field) { return platform::ToString(rs->Fields(field)->Value()); };
  if (rs->RecordCount() > 0) rs->MoveFirst();
  for (; !rs->Eof(); rs->MoveNext()) {
    ExpectedFinding f;
    f.start = platform::ToInt32(rs->Fields("Start")->Value());
    f.end = platform::ToInt32(rs->Fields("End")->Value());
    f.problem = text("Problem");
    f.member = text("Member");
    f.type = text("Type");
    rows.push_back(f);
  }
  rs->Close();
  return rows;
}

/// One analysis of `text` as the file `fileName`, the only item of a one-project
/// solution, with the options `words`. What went wrong around the findings themselves
/// (options not understood, loader warnings, reported errors, message boxes) is added to
/// `problems`.
std::vector<ExpectedFinding> Analyse(const std::string& fileName, const std::string& text,
                                     const std::vector<std::string>& words, std::vector<std::string>& problems) {
  testsupport::TempDir dir;
  const bool vb = fs::path(fileName).extension() == ".vb";
  const std::string project = vb ? "Checks/Checks.vbproj" : "Checks/Checks.csproj";
  namespace type = testsupport::project_type;
  dir.Write(project, testsupport::SdkProjectFile());
  dir.Write("Checks/" + fileName, text);
  auto solution = dir.Write("Checks.sln", testsupport::SlnText({{project, "", vb ? type::kVBSdk : type::kCSharpSdk}}));

  auto report = std::make_shared<platform::suite::RecordingErrorReport>();
  platform::suite::ScopedErrorReport scopedReport(report);
  auto boxes = std::make_shared<platform::forms::ScriptedMessageBoxes>();
  platform::forms::ScopedMessageBoxes scopedBoxes(boxes);

  MGlobals::ResetForTesting();

  MGlobals::ForgetXMLAnalyzerDbForTesting();
  MGlobals::AppSettingsObject_HKCU = std::make_shared<platform::suite::IniSettingsStore>(dir.path() / "settings.ini");
  Store("LastScope", Variant(4));  // the whole solution
  MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
  MGlobals::TeamDB = platform::suite::TeamDatabase::OpenOrCreate(*MGlobals::WorkspaceObject,
                                                                 (dir.path() / "team.db").string());
  auto loaded = platform::automation::OpenSolution(solution);
  for (const auto& warning : loaded.warnings) problems.push_back("the solution loads with: " + warning.text);
  MGlobals::DTEObject = loaded.dte;

  std::vector<ExpectedFinding> rows;
  if (std::string error = StoreOptions(words); !error.empty()) {
    problems.push_back("options: " + error);
  } else {
    CXmlAnalyzerBrowser browser;
    browser.Find();
    rows = ReadRows();
  }
  for (const auto& e : report->entries)
    problems.push_back("the analysis reported \"" + e.message + "\"" +
                       (e.source.empty() ? "" : " in " + e.source + " at " + std::to_string(e.line)));
  for (const auto& box : boxes->shown) problems.push_back("the analysis showed the message \"" + box.prompt + "\"");

  MGlobals::DiscardXMLAnalyzerDbForTesting();
  MGlobals::ResetForTesting();
  return rows;
}

class Checks : public ::testing::TestWithParam<Input> {
 protected:
  void SetUp() override {
    // The grammar files, found where ctest says or else in the source tree.
    const char* appPath = std::getenv("ANNOTRA_APP_PATH");
    if (!appPath || !*appPath) setenv("ANNOTRA_APP_PATH", ANNOTRA_SOURCE_DIR "/resources", 1);
  }
};

TEST_P(Checks, FindingsAreTheExpectedOnes) {
  const Input& input = GetParam();
  const std::string where = "testdata/checks/" + input.name;
  const std::string text = testsupport::ReadFile(input.file);
  ASSERT_FALSE(text.empty()) << where << " cannot be read";
  auto annotated = testsupport::ReadCheckInput(text, input.file.extension() == ".vb" ? "'" : "//");
  ASSERT_TRUE(annotated.errors.empty()) << where << ": " << annotated.errors.front();

  std::vector<std::string> problems;
  const std::string fileName = input.file.filename().string();
  auto rows = Analyse(fileName, text, annotated.options, problems);
  std::string failure;
  for (const auto& p : problems) failure += "\n  " + p;
  for (const auto& line : testsupport::CompareFindings(annotated.expected, rows)) failure += "\n  " + line;
  EXPECT_TRUE(failure.empty()) << where << ":" << failure;

  // The annotations must not change what the checks see.
  std::vector<std::string> ignored;
  auto plain = Analyse(fileName, annotated.withoutAnnotations, annotated.options, ignored);
  std::vector<ExpectedFinding> asExpected(plain.begin(), plain.end());
  std::string changed;
  for (const auto& line : testsupport::CompareFindings(asExpected, rows))
    changed += "\n  " + line;
  EXPECT_TRUE(changed.empty())
      << where << ": the expect comments change the findings (\"missing\": found without them; "
      << "\"unexpected\": found only with them):" << changed;
}

INSTANTIATE_TEST_SUITE_P(Inputs, Checks, ::testing::ValuesIn(AllInputs()),
                         [](const ::testing::TestParamInfo<Input>& info) {
                           std::string n = info.param.name;
                           for (char& ch : n)
                             if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
                           return n;
                         });

// The reading of the annotations themselves, on which every input above relies.

TEST(CheckInputSyntax, ExpectationsAtTheEndOfALineOrStackedAboveIt) {
  auto input = testsupport::ReadCheckInput(
      "// options: --max-lines 5 --require Method:summary,returns\n"
      "class A // expect: Code elements without definition comments. [type Class]\n"
      "{\n"
      "    /// <summary>S</summary>\r\n"
      "    // expect: Parameter with different name in XML comment vs. definition. [member F:a]\r\n"
      "    // expect: Too large uncommented code block [end +12] [member F]\r\n"
      "    void F(int a) { } // expect: Missing <returns> tag // expect: Missing <param> tag\r\n"
      "}\n",
      "//");
  ASSERT_TRUE(input.errors.empty()) << input.errors.front();
  EXPECT_EQ(input.options, (std::vector<std::string>{"--max-lines", "5", "--require", "Method:summary,returns"}));
  ASSERT_EQ(input.expected.size(), 5u);
  EXPECT_EQ(input.expected[0].Describe(), "line 2: Code elements without definition comments. [type Class]");
  EXPECT_EQ(input.expected[1].Describe(),
            "line 7 (expected on line 5): Parameter with different name in XML comment vs. definition. [member F:a]");
  EXPECT_EQ(input.expected[2].Describe(),
            "line 7 (expected on line 6): Too large uncommented code block [member F] [end +12]");
  EXPECT_EQ(input.expected[2].end, 19);
  EXPECT_EQ(input.expected[3].Describe(), "line 7: Missing <returns> tag");
  EXPECT_EQ(input.expected[4].Describe(), "line 7: Missing <param> tag");
  EXPECT_EQ(input.withoutAnnotations,
            "\nclass A\n{\n    /// <summary>S</summary>\r\n\r\n\r\n    void F(int a) { }\r\n}\n");

  auto vb = testsupport::ReadCheckInput("' options: --no-body\nSub F() ' expect: Missing <summary> tag\n", "'");
  ASSERT_EQ(vb.expected.size(), 1u);
  EXPECT_EQ(vb.expected[0].start, 2);
  EXPECT_EQ(vb.withoutAnnotations, "\nSub F()\n");
}

TEST(CheckInputSyntax, MalformedAnnotationsAreErrorsWithTheirLines) {
  auto input = testsupport::ReadCheckInput(
      "class A { } // expect:\n"
      "class B { } // expect: Missing <summary> tag [ending 3]\n"
      "class C { } // expect: Too large uncommented code block [end 3]\n"
      "// options: --no-body\n"
      "// expect: Missing <summary> tag\n",
      "//");
  EXPECT_EQ(input.errors, (std::vector<std::string>{
                              "line 1: no problem text after \"expect:\"",
                              "line 2: \"[ending 3]\" is none of [member NAME], [type KIND], [end +N]",
                              "line 3: \"[end 3]\" is none of [member NAME], [type KIND], [end +N]",
                              "line 4: the options line must be the first line",
                              "line 5: no line after the expectation"}));
}

TEST(CheckInputSyntax, ComparisonNamesMissingUnexpectedAndMisorderedFindings) {
  auto at = [](int line, const char* problem, const char* member = "", int end = 0) {
    ExpectedFinding f;
    f.start = line;
    f.end = end ? end : line;
    f.problem = problem;
    f.member = member;
    f.type = "Method";
    return f;
  };
  auto expected = testsupport::ReadCheckInput(
                      "// expect: P [member F:b]\n"
                      "// expect: P [member F:a]\n"
                      "void F(int a, int b) { } // expect: Q [end +2]\n"
                      "void H() { } // expect: R\n",
                      "//")
                      .expected;
  for (auto& e : expected) e.writtenAt = 0;  // described as rows describe themselves
  // All found, but a before b; and S, which was not expected.
  std::vector<ExpectedFinding> rows = {at(3, "P", "F:a"), at(3, "P", "F:b"), at(3, "Q", "F", 5),
                                       at(4, "R", "H"), at(4, "S", "H")};
  EXPECT_EQ(testsupport::CompareFindings(expected, rows),
            (std::vector<std::string>{
                "unexpected: line 4: S [member H] [type Method]",
                "order:      line 3 reports \"P\" (F:a) \"P\" (F:b) \"Q\" (F), in another order than expected"}));
  // Q ends a line early.
  rows = {at(3, "P", "F:b"), at(3, "P", "F:a"), at(3, "Q", "F", 4), at(4, "R", "H")};
  EXPECT_EQ(testsupport::CompareFindings(expected, rows),
            (std::vector<std::string>{"missing:    line 3: Q [end +2]",
                                      "unexpected: line 3: Q [member F] [end +1] [type Method]"}));
  rows[2].end = 5;
  EXPECT_TRUE(testsupport::CompareFindings(expected, rows).empty());
}

}  // namespace
}  // namespace annotra
