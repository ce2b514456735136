#include "platform/codemodel/CodeModelJson.h"

#include "platform/automation/TextBuffer.h"
#include "platform/codemodel/CodeModelConstants.h"

namespace platform::codemodel {
namespace {

// The length of the valid UTF-8 sequence at text[i], or 0 when the bytes there are not
// one (overlong forms and surrogates count as invalid).
size_t Utf8SequenceLength(std::string_view text, size_t i) {
  auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
  unsigned char c = byte(i);
  size_t len;
  if (c < 0x80) return 1;
  if (c >= 0xC2 && c <= 0xDF) len = 2;
  else if (c >= 0xE0 && c <= 0xEF) len = 3;
  else if (c >= 0xF0 && c <= 0xF4) len = 4;
  else return 0;
  if (i + len > text.size()) return 0;
  for (size_t k = 1; k < len; ++k)
    if ((byte(i + k) & 0xC0) != 0x80) return 0;
  unsigned char c1 = byte(i + 1);
  if (c == 0xE0 && c1 < 0xA0) return 0;   // overlong
  if (c == 0xED && c1 >= 0xA0) return 0;  // surrogate
  if (c == 0xF0 && c1 < 0x90) return 0;   // overlong
  if (c == 0xF4 && c1 >= 0x90) return 0;  // past U+10FFFF
  return len;
}

void WriteElement(std::string& line, const CodeElement& e, const automation::TextBuffer& text,
                  const std::string& file, int depth) {
  line += "{\"file\":";
  AppendJsonString(line, file);
  line += ",\"depth\":" + std::to_string(depth);
  line += ",\"kind\":" + std::to_string(e.kind);
  line += ",\"name\":";
  AppendJsonString(line, e.name);
  line += ",\"access\":";
  line += e.access ? std::to_string(*e.access) : "null";
  line += ",\"start\":" + std::to_string(text.LineOfOffset(e.start));
  line += ",\"end\":" + std::to_string(text.LineOfOffset(e.end));
  line += ",\"attr\":";
  line += e.attributes().empty() ? "null" : std::to_string(text.LineOfOffset(e.attributes().front()->start));
  line += ",\"doc\":";
  AppendJsonString(line, e.docComment);
  line += ",\"params\":";
  if (e.parameters) {
    line += '[';
    bool first = true;
    for (const ParameterData& p : *e.parameters) {
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
  if (e.prototypeType) AppendJsonString(line, e.Prototype(vsCMPrototypeType));
  else line += "null";
  line += "}\n";
}

// Writes `e` and then its members, depth first; an explicit stack keeps deeply nested
// input from exhausting the call stack.
void WriteTree(std::ostream& out, const std::vector<CodeElement*>& roots,
               const automation::TextBuffer& text, const std::string& file) {
  struct Frame {
    const std::vector<CodeElement*>* items;
    size_t next;
  };
  std::vector<Frame> stack{{&roots, 0}};
  std::string line;
  while (!stack.empty()) {
    Frame& top = stack.back();
    if (top.next == top.items->size()) {
      stack.pop_back();
      continue;
    }
    const CodeElement& e = *(*top.items)[top.next++];
    line.clear();
    WriteElement(line, e, text, file, static_cast<int>(stack.size()) - 1);
    out << line;
    if (!e.members().empty()) stack.push_back({&e.members(), 0});
  }
}

}  // namespace

void AppendJsonString(std::string& out, std::string_view text) {
  static const char kHex[] = "0123456789abcdef";
  out += '"';
  for (size_t i = 0; i < text.size();) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    if (c >= 0x80) {
      size_t len = Utf8SequenceLength(text, i);
      if (len == 0) {
        out += "\xEF\xBF\xBD";
        ++i;
      } else {
        out.append(text.substr(i, len));
        i += len;
      }
      continue;
    }
    ++i;
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      default:
        if (c < 0x20 || c == 0x7F) {
          out += "\\u00";
          out += kHex[c >> 4];
          out += kHex[c & 15];
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

void WriteCodeModelJson(std::ostream& out, const FileCodeModel& model, const std::string& file) {
  // The top-level elements, through the model's collection (which holds the document).
  auto top = model.CodeElements();
  std::vector<CodeElement*> roots;
  roots.reserve(static_cast<size_t>(top->Count()));
  for (int i = 1; i <= top->Count(); ++i) roots.push_back(top->Item(i).get());
  WriteTree(out, roots, model.textBuffer(), file);
}

}  // namespace platform::codemodel
