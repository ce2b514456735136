// libFuzzer target: the VB code model of arbitrary bytes. Besides crashes, hangs and
// sanitizer reports, it stops on a model whose shape is wrong: an element outside the
// text, ending before it starts, or a member outside its parent.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/automation/Document.h"
#include "platform/codemodel/CodeModelJson.h"

namespace {

using platform::codemodel::CodeElement;

void Check(const std::vector<CodeElement*>& elements, uint32_t from, uint32_t to) {
  for (const CodeElement* e : elements) {
    if (e->start > e->end || e->start < from || e->end > to) std::abort();
    for (const CodeElement* a : e->attributes())
      if (a->start > a->end || a->end > to) std::abort();
    if (e->parameters)
      for (const auto& p : *e->parameters)
        if (p.name.empty()) std::abort();
    Check(e->members(), e->start, e->end);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  platform::codemodel::PreprocessorSymbols symbols{{{"DEBUG", "-1"}, {"TARGET", "\"exe\""}}};
  auto doc = platform::automation::Document::FromText("F.vb", text, platform::codemodel::vsCMLanguageVB, symbols);
  auto model = doc->CodeModel();
  if (!model) std::abort();
  auto top = model->CodeElements();
  std::vector<CodeElement*> roots;
  for (int i = 1; i <= top->Count(); ++i) roots.push_back(top->Item(i).get());
  Check(roots, 0, static_cast<uint32_t>(size));
  std::ostringstream json;
  platform::codemodel::WriteCodeModelJson(json, *model, "F.vb");
  return 0;
}
