#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform::dao {

/// A workbook of one worksheet in Excel's binary format of version 8 (BIFF8, "Excel
/// 8.0"), built in memory: the records of its workbook stream, which a compound file
/// then carries (CompoundFile.h). Cells hold text, kept once each in the shared string
/// table, or numbers; a cell never set is blank. Row 0 takes the bold font, for a header.
///
///     Biff8Workbook book("XMLAnalyzer");
///     book.SetText(0, 0, "Problem");
///     book.SetNumber(1, 0, 42);
///     std::string stream = book.Stream();
///
/// Only what readers of the format need is written: the workbook globals (code page
/// UTF-16, window, fonts, cell formats, the Normal style, the sheet, the shared strings
/// with their index), then the sheet (dimensions, cells, window).
class Biff8Workbook {
 public:
  /// What one sheet of the format holds.
  static constexpr int kMaxRows = 65536;
  static constexpr int kMaxColumns = 256;
  /// The longest text of a cell, in UTF-16 code units.
  static constexpr size_t kMaxTextLength = 32767;

  /// A workbook whose one sheet is named `sheetName`. Throws 3125 for a name the
  /// format does not take: empty, longer than 31 characters, or holding one of
  /// : \ / ? * [ ].
  explicit Biff8Workbook(std::string_view sheetName);

  /// Sets the cell at `row`, `column` (from 0) to the text `utf8` (invalid UTF-8
  /// sequences become U+FFFD). Throws 3437 (spreadsheet full) beyond the last row or
  /// column, 3163 for a text longer than kMaxTextLength.
  void SetText(int row, int column, std::string_view utf8);
  /// Sets the cell at `row`, `column` to the number `value`. Throws 3437 beyond the last
  /// row or column.
  void SetNumber(int row, int column, double value);

  /// The workbook stream.
  std::string Stream() const;

 private:
  struct Cell {
    enum Kind : uint8_t { kBlank, kText, kNumber } kind = kBlank;
    uint32_t text = 0;  // index in the shared strings
    double number = 0;
  };

  Cell& At(int row, int column);
  void WriteGlobals(std::string& out, size_t& sheetOffsetAt) const;
  void WriteSharedStrings(std::string& out) const;
  void WriteSheet(std::string& out) const;

  std::u16string m_sheetName;
  std::vector<std::vector<Cell>> m_rows;
  std::vector<std::u16string> m_strings;
  std::unordered_map<std::u16string, uint32_t> m_stringIndex;
  uint32_t m_textCells = 0;
};

}  // namespace platform::dao
