// libFuzzer target: the C# parser on arbitrary bytes. Besides crashes, leaks and hangs
// (which libFuzzer and the sanitizers catch), it checks what readers of the model rely
// on: every extent lies inside the text, start before end, and every member inside its
// parent (the element at the caret is found by descending through parents).
//
// Build: CXX=clang++ cmake -S . -B build/cs-fuzz -G Ninja -DANNOTRA_FUZZ=ON
//          -DANNOTRA_TESTS=OFF -DANNOTRA_BENCH=OFF && cmake --build build/cs-fuzz --target CSharpParser_fuzz
// Run:   build/cs-fuzz/CSharpParser_fuzz -dict=src/platform/codemodel/CSharpParser_fuzz.dict
//          -max_len=4096 CORPUS_DIR testdata/codemodel/cs
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/automation/Document.h"
#include "platform/codemodel/CodeModelJson.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace {

using platform::codemodel::CodeElement;

void Check(bool ok) {
  if (!ok) std::abort();
}

void CheckElements(const std::vector<CodeElement*>& items, const CodeElement* parent, size_t size) {
  for (const CodeElement* e : items) {
    Check(e->start <= e->end && e->end <= size);
    if (parent) Check(parent->start <= e->start && e->end <= parent->end);
    for (const CodeElement* a : e->attributes()) Check(a->start <= a->end && a->end <= size);
    CheckElements(e->members(), e, size);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  // Half the inputs run with symbols defined, so both sides of #if get explored.
  platform::codemodel::PreprocessorSymbols symbols;
  if (size % 2) symbols.symbols = {{"DEBUG", ""}, {"TRACE", ""}, {"A", ""}};
  auto doc = platform::automation::Document::FromText("F.cs", text, platform::codemodel::vsCMLanguageCSharp,
                                                      symbols);
  auto model = doc->CodeModel();
  Check(model != nullptr);
  auto top = model->CodeElements();
  std::vector<CodeElement*> roots;
  for (int i = 1; i <= top->Count(); ++i) roots.push_back(top->Item(i).get());
  CheckElements(roots, nullptr, size);
  std::ostringstream out;
  platform::codemodel::WriteCodeModelJson(out, *model, "F.cs");
  return 0;
}
