// The SARIF 2.1.0 format, as code-scanning services take it: every rule declared with
// its descriptions and help, locations relative to %SRCROOT%, fingerprints that do not
// depend on lines.

#include "SarifWriter.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <map>

#include "FindingsWriter.h"
#include "analysis/Problems.h"
#include "platform/core/Json.h"

namespace app {
namespace {

constexpr const char* kSrcRoot = "%SRCROOT%";
constexpr const char* kFingerprintKey = "annotraFinding/v1";

std::string Json(const std::string& s) {
  std::string out;
  platform::AppendJsonString(out, s);
  return out;
}

// FNV-1a, 64 bits: stable across runs, platforms and versions of the program, which a
// fingerprint must be.
void Hash(uint64_t& h, const std::string& text) {
  for (unsigned char c : text) {
    h ^= c;
    h *= 1099511628211ull;
  }
  h ^= 0xFF;  // a separator no UTF-8 text holds, so ("ab","c") differs from ("a","bc")
  h *= 1099511628211ull;
}

std::string FileUri(const std::filesystem::path& folder) {
  std::string path = folder.generic_string();
  if (path.empty() || path.back() != '/') path += '/';
  return "file://" + UriOfPath(path);
}

// Where a finding is: relative to %SRCROOT% when its file lies below it, else the
// file's own URI.
std::string ArtifactLocation(const Finding& f, const OutputContext& context) {
  if (f.file.empty()) return "{\"uri\": " + Json(UriOfPath(ShownPath(f, context.sourceRoot))) + "}";
  auto relative = std::filesystem::path(f.file).lexically_relative(context.sourceRoot);
  std::string shown = relative.generic_string();
  if (shown.empty() || shown == ".." || shown.rfind("../", 0) == 0)
    return "{\"uri\": " + Json("file://" + UriOfPath(std::filesystem::path(f.file).generic_string())) + "}";
  return "{\"uri\": " + Json(UriOfPath(shown)) + ", \"uriBaseId\": \"" + kSrcRoot + "\"}";
}

void WriteRules(std::ostream& out) {
  const auto& rules = annotra::ProblemTable();
  for (size_t i = 0; i < rules.size(); ++i) {
    const annotra::ProblemInfo& r = rules[i];
    out << (i ? ",\n" : "\n") << "            {\"id\": \"" << r.ruleId << "\", \"name\": " << Json(r.name)
        << ", \"shortDescription\": {\"text\": " << Json(r.summary) << "}"
        << ", \"fullDescription\": {\"text\": " << Json(r.help) << "}"
        << ", \"help\": {\"text\": " << Json(r.help) << "}, \"defaultConfiguration\": {\"level\": \"warning\"}}";
  }
}

}  // namespace

std::string UriOfPath(const std::string& path) {
  static const char* hex = "0123456789ABCDEF";
  std::string out;
  for (unsigned char c : path) {
    if (std::isalnum(c) || c == '/' || c == '-' || c == '.' || c == '_' || c == '~') {
      out += static_cast<char>(c);
    } else {
      out += '%';
      out += hex[c >> 4];
      out += hex[c & 15];
    }
  }
  return out;
}

std::string FingerprintOf(const Finding& f, int occurrence) {
  uint64_t h = 14695981039346656037ull;
  for (const std::string* part : {&f.Project, &f.Document, &f.Path, &f.Type, &f.Member, &f.Problem}) Hash(h, *part);
  Hash(h, std::to_string(occurrence));
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(h));
  return text;
}

void WriteSarif(std::ostream& out, FindingSource& findings, const OutputContext& context) {
  out << "{\n  \"$schema\": \"https://json.schemastore.org/sarif-2.1.0.json\",\n"
         "  \"version\": \"2.1.0\",\n  \"runs\": [\n    {\n"
         "      \"tool\": {\n        \"driver\": {\n          \"name\": \"annotra\",\n"
         "          \"version\": " << Json(context.version) << ",\n"
         "          \"rules\": [";
  WriteRules(out);
  out << "\n          ]\n        }\n      },\n"
      << "      \"originalUriBaseIds\": {\"" << kSrcRoot << "\": {\"uri\": " << Json(FileUri(context.sourceRoot))
      << "}},\n      \"results\": [";
  // Occurrences are counted within a document: the walk writes a document's findings
  // one after another, so only the current document's counts are kept.
  std::string document;
  std::map<std::string, int> occurrences;
  const auto& rules = annotra::ProblemTable();
  Finding f;
  bool first = true;
  for (findings.Rewind(); findings.Next(f); first = false) {
    std::string here = f.Project + '\n' + f.Path + '\n' + f.Document;
    if (here != document) {
      document = std::move(here);
      occurrences.clear();
    }
    int occurrence = ++occurrences[f.Type + '\n' + f.Member + '\n' + f.Problem];
    const annotra::ProblemInfo* rule = annotra::ProblemOfText(f.Problem);
    out << (first ? "\n" : ",\n") << "        {\"ruleId\": \"" << RuleIdOf(f.Problem) << "\"";
    if (rule) out << ", \"ruleIndex\": " << (rule - rules.data());
    out << ", \"level\": \"warning\", \"message\": {\"text\": "
        << Json(f.Problem + " [" + f.Type + " " + f.Member + "]") << "}, "
        << "\"locations\": [{\"physicalLocation\": {\"artifactLocation\": " << ArtifactLocation(f, context);
    if (f.Start >= 1)
      out << ", \"region\": {\"startLine\": " << f.Start << ", \"endLine\": " << std::max(f.Start, f.End) << "}";
    out << "}}], \"partialFingerprints\": {\"" << kFingerprintKey << "\": \"" << FingerprintOf(f, occurrence)
        << "\"}}";
  }
  out << (first ? "]\n" : "\n      ]\n") << "    }\n  ]\n}\n";
}

}  // namespace app
