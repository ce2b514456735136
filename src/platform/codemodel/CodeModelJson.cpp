#include "platform/codemodel/CodeModelJson.h"

#include "platform/codemodel/LineIndex.h"
#include "platform/core/Json.h"

namespace platform::codemodel {
namespace {

void WriteDeclaration(std::string& line, const Declaration& d, const LineIndex& lines, const std::string& file,
                      int depth) {
  line += "{\"file\":";
  AppendJsonString(line, file);
  line += ",\"depth\":" + std::to_string(depth);
  line += ",\"kind\":" + std::to_string(d.kind);
  line += ",\"name\":";
  AppendJsonString(line, d.name);
  line += ",\"access\":";
  line += d.access ? std::to_string(*d.access) : "null";
  line += ",\"start\":" + std::to_string(lines.LineOfOffset(d.start));
  line += ",\"end\":" + std::to_string(lines.LineOfOffset(d.end));
  line += ",\"attr\":";
  line += d.attributes.empty() ? "null" : std::to_string(lines.LineOfOffset(d.attributes.front()->start));
  line += ",\"doc\":";
  AppendJsonString(line, d.docComment);
  line += ",\"params\":";
  if (d.parameters) {
    line += '[';
    bool first = true;
    for (const ParameterData& p : *d.parameters) {
      if (!first) line += ',';
      first = false;
      line += '[';
      AppendJsonString(line, p.name);
      line += ',';
      AppendJsonString(line, p.type);
      line += ']';
    }
    line += ']';
  } else {
    line += "null";
  }
  line += ",\"proto\":";
  if (d.prototypeType) AppendJsonString(line, d.Prototype(true));
  else line += "null";
  line += "}\n";
}

}  // namespace

void WriteCodeModelJson(std::ostream& out, const DeclarationTree& tree, const std::string& file) {
  const LineIndex lines(tree.Text());
  // Depth first with an explicit stack, so that deeply nested input cannot exhaust the
  // call stack.
  struct Frame {
    const std::vector<Declaration*>* items;
    size_t next;
  };
  std::vector<Frame> stack{{&tree.TopLevel(), 0}};
  std::string line;
  while (!stack.empty()) {
    Frame& top = stack.back();
    if (top.next == top.items->size()) {
      stack.pop_back();
      continue;
    }
    const Declaration& d = *(*top.items)[top.next++];
    line.clear();
    WriteDeclaration(line, d, lines, file, static_cast<int>(stack.size()) - 1);
    out << line;
    if (!d.members.empty()) stack.push_back({&d.members, 0});
  }
}

}  // namespace platform::codemodel
