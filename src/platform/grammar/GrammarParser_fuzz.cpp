// Fuzzes the grammar-driven parser with arbitrary input: the first byte picks the
// shipped grammar and start production (XML, CsCommStr.Body, VbCommStr.Body) or, for the
// grammar reader itself, reads the input as a grammar file and parses a sample with it.
// After each parse every operation the checks use is run over the tree. Whatever the
// input, nothing may crash, hang, leak or read out of bounds.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/core/Error.h"
#include "platform/grammar/GrammarParser.h"
#include "platform/grammar/GrammarReader.h"
#include "platform/grammar/PegMatcher.h"

namespace {

using platform::grammar::GrammarParser;

std::string Resource(const char* name) {
  if (const char* app = std::getenv("ANNOTRA_APP_PATH"); app && *app) return std::string(app) + "/" + name;
  std::string here = __FILE__;
  return here.substr(0, here.rfind("src/platform/grammar/")) + "resources/" + name;
}

GrammarParser& Load(GrammarParser& p, const char* file, const char* production) {
  if (!p.HasGrammar()) {
    if (!p.LoadGrammar(Resource(file))) std::abort();
    if (production) p.SetStartProduction(p.FindProduction(production));
  }
  return p;
}

void Exercise(GrammarParser& p, const char* pattern, const char* below) {
  int32_t h = p.StartSearch(pattern, 0);
  p.LineOfPosition(p.Position(h));
  for (int32_t n = p.NextMatch(h); n; n = p.NextMatch(h)) {
    (void)p.NodeText(n);
    (void)p.NodeName(n);
    p.LineOfPosition(p.Position(n));
    int32_t parent = p.ParentNode(n);
    (void)p.NodeName(p.NextSibling(parent));
    if (int32_t a = p.SearchBelow(parent, below)) (void)p.NodeText(p.ParentNode(a));
  }
  p.FirstMatch(h);
  p.EndSearch(h);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static GrammarParser xml, cs, vb, custom;
  if (size == 0) return 0;
  std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 4) {
    case 0: {
      auto& p = Load(xml, "XML.GMR", nullptr);
      p.SetInputText(text);
      p.Parse();
      Exercise(p, "/.*element_name", ".*attr_name=\"name\"");
      Exercise(p, "/.*element_name =\"param\"", ".*attr_name=\"type\"");
      break;
    }
    case 1:
    case 2: {
      auto& p = data[0] % 4 == 1 ? Load(cs, "SC.GMR", "CsCommStr.Body") : Load(vb, "SC.GMR", "VbCommStr.Body");
      p.SetInputText(text + "\r\n//comment\r\n");
      p.Parse();
      Exercise(p, "/.*Comment", "Comment");
      break;
    }
    default: {
      platform::grammar::Grammar g;
      std::string error;
      if (!platform::grammar::GrammarReader::Read(text, "fuzz.gmr", g, error)) break;
      // A grammar that reads is run over its own text from each of its first rules.
      platform::grammar::PegMatcher m(g);
      platform::grammar::ParseTree tree;
      for (int32_t r = 0; r < static_cast<int32_t>(g.rules.size()) && r < 4; ++r) m.Parse(text, r, tree);
      break;
    }
  }
  return 0;
}
