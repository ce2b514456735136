#include "platform/suite/GridPreview.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/core/Error.h"
#include "platform/forms/MessageBox.h"
#include "platform/grid/Grid.h"
#include "platform/suite/PageViewer.h"
#include "platform/suite/PrinterProbe.h"

namespace platform::suite {

namespace fs = std::filesystem;

namespace {

// Text as HTML: the five characters that could end an element or an attribute are
// written as references, line breaks as <br>.
std::string Html(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&#39;"; break;
      case '\r':
        if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        out += "<br>";
        break;
      case '\n': out += "<br>"; break;
      default:
        // Control characters have no place in HTML text.
        if (static_cast<unsigned char>(c) < 0x20 && c != '\t') out += ' ';
        else out += c;
    }
  }
  return out;
}

std::string Points(int twips) {
  std::ostringstream out;
  out << twips / 20.0 << "pt";
  return out.str();
}

void Band(std::ostringstream& out, const char* element, const std::string& left, const std::string& centre,
          const std::string& right) {
  out << "<" << element << "><div class=\"l\">" << Html(left) << "</div><div class=\"c\">" << Html(centre)
      << "</div><div class=\"r\">" << Html(right) << "</div></" << element << ">\n";
}

}  // namespace

std::string GridPreview::DeviceName() const {
  std::string name = PrinterProbe::Current().DefaultPrinter();
  if (name.empty()) throw Error(err::kInvalidCall, "There is no printer installed or no default printer");
  return name;
}

std::string GridPreview::Page(const grid::Grid& grid, const std::string& title) {
  const auto& print = grid.PrinterSettings();
  const auto columns = grid.VisibleColumns();
  int total = 0;
  for (auto& span : columns) total += span.width;

  std::ostringstream out;
  out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
  out << "<title>" << Html(title) << "</title>\n<style>\n";
  out << "@page { size: A4 " << (print.Orientation() == grid::poLandscape ? "landscape" : "portrait")
      << "; margin: 18mm 10mm; }\n";
  out << "body { font-family: \"" << Html(grid.Font.Name) << "\", sans-serif; font-size: " << grid.Font.Size
      << "pt; margin: 0; }\n";
  out << "header, footer { display: flex; gap: 1em; }\n"
         "header div, footer div { flex: 1; white-space: pre-wrap; }\n"
         ".c { text-align: center; } .r { text-align: right; }\n"
         "table { border-collapse: collapse; margin: 0.5em 0; "
      << (print.FitColumns ? "width: 100%; table-layout: fixed; " : "") << "}\n";
  out << "th, td { border: 1px solid #999; padding: 1pt 3pt; text-align: left; vertical-align: top; "
         "overflow-wrap: anywhere; }\n"
         "th { font-weight: "
      << (grid.HeaderFont.Bold ? "bold" : "normal") << "; background: #eee; }\n";
  out << "thead { display: table-header-group; }\n"
         "tr { break-inside: avoid; }\n"
         "tr.group td { font-weight: bold; background: #f4f4f4; }\n"
         "tr.dimmed td { color: #888; }\n"
         "tr.bold td { font-weight: bold; }\n"
         "@media print { header { position: fixed; top: -12mm; left: 0; right: 0; } "
         "footer { position: fixed; bottom: -12mm; left: 0; right: 0; } }\n";
  out << "</style>\n</head>\n<body>\n";
  Band(out, "header", print.HeaderString(1), print.HeaderString(2), print.HeaderString(3));
  out << "<main>\n";
  if (columns.empty()) {
    out << "<p>No column is shown.</p>\n";
  } else {
    out << "<table>\n<colgroup>";
    for (auto& span : columns) {
      out << "<col style=\"width: ";
      if (print.FitColumns && total > 0) out << (100.0 * span.width / total) << "%";
      else out << Points(span.width);
      out << "\">";
    }
    out << "</colgroup>\n<thead><tr>";
    for (auto& span : columns) out << "<th>" << Html(forms::PlainCaption(span.column->Caption)) << "</th>";
    out << "</tr></thead>\n";
    if (grid.RowCount() > 0) out << "<tbody>\n";
    for (int position = 1; position <= grid.RowCount(); ++position) {
      auto row = grid.RowAt(position);
      if (row->RowType() == grid::rtGroupHeader) {
        out << "<tr class=\"group\"><td colspan=\"" << columns.size() << "\" style=\"padding-left: "
            << Points(120 + row->GroupLevel() * grid::Grid::kGroupIndent) << "\">"
            << (row->Expanded() ? "&#9662; " : "&#9656; ") << Html(row->GroupCaption()) << " ("
            << row->RecordCount() << ")</td></tr>\n";
        continue;
      }
      std::string style = grid.RowStyle(position);
      out << (style.empty() ? "<tr>" : "<tr class=\"" + Html(style) + "\">");
      for (auto& span : columns) out << "<td>" << Html(ToString(row->Value(span.column->Index()))) << "</td>";
      out << "</tr>\n";
    }
    if (grid.RowCount() > 0) out << "</tbody>\n";
    out << "</table>\n";
  }
  out << "</main>\n";
  Band(out, "footer", print.FooterString(1), print.FooterString(2), print.FooterString(3));
  out << "</body>\n</html>\n";
  return out.str();
}

void GridPreview::PrintPreview(const grid::Grid& grid, const std::string& title) {
  static std::atomic<int> counter{0};
  std::error_code ec;
  fs::path folder = fs::temp_directory_path(ec);
  if (ec) folder = "/tmp";
  fs::path file = folder / ("annotra-preview-" + std::to_string(getpid()) + "-" + std::to_string(++counter) + ".html");
  {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << Page(grid, title);
    out.close();
    if (!out) throw Error(err::kPathFileAccess, "Cannot write the print preview to <" + file.string() + ">");
  }
  m_lastFile = file.string();
  if (!PageViewer::Current().Open(m_lastFile))
    forms::MsgBox("No browser could show the print preview. It is in <" + m_lastFile + ">.", forms::vbInformation,
                  title);
}

}  // namespace platform::suite
