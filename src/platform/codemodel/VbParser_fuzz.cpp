// libFuzzer target: the VB declarations of arbitrary bytes. Besides crashes, hangs and
// sanitizer reports, it stops on a tree whose shape is wrong: a declaration outside the
// text, ending before it starts, or a member outside its parent.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/codemodel/CodeModelJson.h"
#include "platform/codemodel/VbParser.h"

namespace {

using platform::codemodel::Declaration;

void Check(const std::vector<Declaration*>& declarations, uint32_t from, uint32_t to) {
  for (const Declaration* d : declarations) {
    if (d->start > d->end || d->start < from || d->end > to) std::abort();
    for (const Declaration* a : d->attributes)
      if (a->start > a->end || a->end > to) std::abort();
    if (d->parameters)
      for (const auto& p : *d->parameters)
        if (p.name.empty()) std::abort();
    Check(d->members, d->start, d->end);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  platform::codemodel::PreprocessorSymbols symbols{{{"DEBUG", "-1"}, {"TARGET", "\"exe\""}}};
  platform::codemodel::DeclarationTree tree(text);
  platform::codemodel::VbParser().Parse(tree, symbols);
  Check(tree.TopLevel(), 0, static_cast<uint32_t>(size));
  std::ostringstream json;
  platform::codemodel::WriteCodeModelJson(json, tree, "F.vb");
  return 0;
}
