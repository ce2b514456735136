// libFuzzer target: the C# parser on arbitrary bytes. Besides crashes, leaks and hangs
// (which libFuzzer and the sanitizers catch), it checks what readers of the declarations
// rely on: every extent lies inside the text, start before end, and every member inside
// its parent (the element at the caret is found by descending through parents).
//
// Build: CXX=clang++ cmake -S . -B build/cs-fuzz -G Ninja -DANNOTRA_FUZZ=ON
//          -DANNOTRA_TESTS=OFF -DANNOTRA_BENCH=OFF && cmake --build build/cs-fuzz --target CSharpParser_fuzz
// Run:   build/cs-fuzz/CSharpParser_fuzz -dict=src/platform/codemodel/CSharpParser_fuzz.dict
//          -max_len=4096 CORPUS_DIR testdata/codemodel/cs
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/codemodel/CSharpParser.h"
#include "platform/codemodel/CodeModelJson.h"

namespace {

using platform::codemodel::Declaration;

void Check(bool ok) {
  if (!ok) std::abort();
}

void CheckDeclarations(const std::vector<Declaration*>& items, const Declaration* parent, size_t size) {
  for (const Declaration* d : items) {
    Check(d->start <= d->end && d->end <= size);
    Check(d->parent == parent);
    if (parent) Check(parent->start <= d->start && d->end <= parent->end);
    for (const Declaration* a : d->attributes) Check(a->start <= a->end && a->end <= size);
    CheckDeclarations(d->members, d, size);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  // Half the inputs run with symbols defined, so both sides of #if get explored.
  platform::codemodel::PreprocessorSymbols symbols;
  if (size % 2) symbols.symbols = {{"DEBUG", ""}, {"TRACE", ""}, {"A", ""}};
  platform::codemodel::DeclarationTree tree(text);
  platform::codemodel::CSharpParser().Parse(tree, symbols);
  CheckDeclarations(tree.TopLevel(), nullptr, size);
  std::ostringstream out;
  platform::codemodel::WriteCodeModelJson(out, tree, "F.cs");
  return 0;
}
