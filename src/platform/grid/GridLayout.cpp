#include "platform/grid/GridLayout.h"

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/core/Error.h"

namespace platform::grid {

namespace fs = std::filesystem;

namespace {

std::string Escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == '\\') out += "\\\\";
    else if (c == '\n') out += "\\n";
    else if (c == '\r') out += "\\r";
    else out += c;
  }
  return out;
}

std::string Unescape(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      char c = text[++i];
      out += c == 'n' ? '\n' : c == 'r' ? '\r' : c;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
  return s;
}

// Text in double quotes, for messages. (Built by appending: GCC 12 warns falsely about
// a literal concatenated before a string at -O2.)
std::string Quoted(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 2);
  out += '"';
  out.append(text);
  out += '"';
  return out;
}

const char* OrderName(int order) { return order == soDescending ? "descending" : "ascending"; }

}  // namespace

std::string FormatLayout(const GridLayout& layout) {
  std::ostringstream out;
  out << "; Annotra grid layout\n";
  out << "[Grid]\n";
  out << "GroupByBoxVisible=" << (layout.groupByBoxVisible ? 1 : 0) << "\n";
  out << "ContinuousScroll=" << (layout.continuousScroll ? 1 : 0) << "\n";
  for (const auto& c : layout.columns) {
    out << "[Column " << c.key << "]\n";
    out << "Caption=" << Escape(c.caption) << "\n";
    out << "Width=" << c.width << "\n";
    out << "Position=" << c.position << "\n";
    out << "Visible=" << (c.visible ? 1 : 0) << "\n";
  }
  out << "[Groups]\n";
  for (const auto& g : layout.groups) out << OrderName(g.order) << " " << g.key << "\n";
  out << "[Sort]\n";
  for (const auto& s : layout.sortKeys) out << OrderName(s.order) << " " << s.key << "\n";
  out << "[Conditions]\n";
  for (const auto& c : layout.conditions) out << c.style << " " << c.key << "=" << Escape(c.value) << "\n";
  out << "[Print]\n";
  out << "Orientation=" << layout.orientation << "\n";
  out << "FitColumns=" << (layout.fitColumns ? 1 : 0) << "\n";
  return out.str();
}

GridLayout ParseLayout(std::string_view text, const std::string& name) {
  GridLayout layout;
  std::string section;
  GridLayout::Column* column = nullptr;
  int number = 0;
  auto fail = [&](const std::string& why) {
    throw Error(err::kInvalidCall, name + ":" + std::to_string(number) + ": " + why);
  };
  auto integer = [&](std::string_view value) {
    int v = 0;
    auto [end, ec] = std::from_chars(value.data(), value.data() + value.size(), v);
    if (ec != std::errc() || end != value.data() + value.size()) fail(Quoted(value) + " is not a whole number");
    return v;
  };
  auto flag = [&](std::string_view value) {
    int v = integer(value);
    if (v != 0 && v != 1) fail(Quoted(value) + " is not 0 or 1");
    return v == 1;
  };
  auto ordered = [&](std::string_view line) {
    size_t blank = line.find(' ');
    if (blank == std::string_view::npos) fail(Quoted(line) + " is not \"ascending KEY\" or \"descending KEY\"");
    std::string_view word = line.substr(0, blank);
    std::string key(Trim(line.substr(blank + 1)));
    if (key.empty()) fail("a column key is missing");
    if (word == "ascending") return ColumnOrder{key, soAscending};
    if (word == "descending") return ColumnOrder{key, soDescending};
    fail(Quoted(word) + " is not ascending or descending");
    return ColumnOrder{};
  };

  size_t begin = 0;
  while (begin < text.size()) {
    size_t end = text.find('\n', begin);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = Trim(text.substr(begin, end - begin));
    begin = end + 1;
    ++number;
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      if (line.back() != ']') fail("a section name ends with \"]\"");
      section = std::string(line.substr(1, line.size() - 2));
      column = nullptr;
      if (section.starts_with("Column ")) {
        std::string key(Trim(std::string_view(section).substr(7)));
        if (key.empty()) fail("a column has no key");
        for (const auto& c : layout.columns)
          if (c.key == key) fail("the column \"" + key + "\" is there twice");
        layout.columns.push_back({key, key});
        column = &layout.columns.back();
        section = "Column";
      } else if (section != "Grid" && section != "Groups" && section != "Sort" && section != "Conditions" &&
                 section != "Print") {
        fail("unknown section [" + section + "]");
      }
      continue;
    }
    if (section.empty()) fail("a setting before the first section");
    if (section == "Groups") {
      layout.groups.push_back(ordered(line));
      continue;
    }
    if (section == "Sort") {
      layout.sortKeys.push_back(ordered(line));
      continue;
    }
    if (section == "Conditions") {
      size_t blank = line.find(' ');
      size_t equals = line.rfind('=');
      if (blank == std::string_view::npos || equals == std::string_view::npos || equals < blank)
        fail("a condition reads \"dimmed KEY=VALUE\" or \"bold KEY=VALUE\"");
      std::string style(line.substr(0, blank));
      if (style != "dimmed" && style != "bold") fail(Quoted(style) + " is not dimmed or bold");
      std::string key(Trim(line.substr(blank + 1, equals - blank - 1)));
      if (key.empty()) fail("a condition names no column");
      layout.conditions.push_back({key, Unescape(line.substr(equals + 1)), style});
      continue;
    }
    size_t equals = line.find('=');
    if (equals == std::string_view::npos) fail(Quoted(line) + " is not KEY=VALUE");
    std::string_view key = Trim(line.substr(0, equals));
    std::string_view value = Trim(line.substr(equals + 1));
    if (section == "Grid") {
      if (key == "GroupByBoxVisible") layout.groupByBoxVisible = flag(value);
      else if (key == "ContinuousScroll") layout.continuousScroll = flag(value);
      else fail("unknown setting \"" + std::string(key) + "\" of [Grid]");
    } else if (section == "Print") {
      if (key == "Orientation") {
        layout.orientation = integer(value);
        if (layout.orientation != 1 && layout.orientation != 2) fail("the orientation is 1 or 2");
      } else if (key == "FitColumns") {
        layout.fitColumns = flag(value);
      } else {
        fail("unknown setting \"" + std::string(key) + "\" of [Print]");
      }
    } else {  // a column
      if (key == "Caption") column->caption = Unescape(line.substr(equals + 1));
      else if (key == "Width") {
        column->width = integer(value);
        if (column->width < 0) fail("a width is not negative");
      } else if (key == "Position") column->position = integer(value);
      else if (key == "Visible") column->visible = flag(value);
      else fail("unknown setting \"" + std::string(key) + "\" of a column");
    }
  }
  return layout;
}

GridLayout ReadLayoutFile(const std::string& path) {
  std::error_code ec;
  if (!fs::exists(path, ec)) throw Error(err::kFileNotFound, "File not found: <" + path + ">");
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in && !in.eof()) throw Error(err::kPathFileAccess, "Cannot read <" + path + ">");
  return ParseLayout(text.str(), path);
}

void WriteLayoutFile(const GridLayout& layout, const std::string& path) {
  const std::string temporary = path + ".tmp";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out << FormatLayout(layout);
    out.close();
    if (!out) {
      std::remove(temporary.c_str());
      throw Error(err::kPathFileAccess, "Cannot write <" + path + ">");
    }
  }
  std::error_code ec;
  fs::rename(temporary, path, ec);
  if (ec) {
    std::remove(temporary.c_str());
    throw Error(err::kPathFileAccess, "Cannot write <" + path + ">: " + ec.message());
  }
}

}  // namespace platform::grid
