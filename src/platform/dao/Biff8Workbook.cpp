#include "platform/dao/Biff8Workbook.h"

#include <glib.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/core/Error.h"

namespace platform::dao {
namespace {

static_assert(std::endian::native == std::endian::little, "the records are written in the host's byte order");

// Record types.
constexpr uint16_t kBof = 0x0809, kEof = 0x000A, kContinue = 0x003C;
constexpr uint16_t kInterfaceHdr = 0x00E1, kMms = 0x00C1, kInterfaceEnd = 0x00E2, kWriteAccess = 0x005C;
constexpr uint16_t kCodePage = 0x0042, kDsf = 0x0161, kTabId = 0x013D, kFnGroupCount = 0x009C;
constexpr uint16_t kWindowProtect = 0x0019, kProtect = 0x0012, kPassword = 0x0013, kProt4Rev = 0x01AF,
                   kProt4RevPass = 0x01BC, kBackup = 0x0040, kHideObj = 0x008D, kWindow1 = 0x003D,
                   kDateMode = 0x0022, kPrecision = 0x000E, kRefreshAll = 0x01B7, kBookBool = 0x00DA;
constexpr uint16_t kFont = 0x0031, kXf = 0x00E0, kStyle = 0x0293, kUsesElfs = 0x0160, kBoundSheet = 0x0085,
                   kCountry = 0x008C, kSst = 0x00FC, kExtSst = 0x00FF;
constexpr uint16_t kCalcMode = 0x000D, kCalcCount = 0x000C, kRefMode = 0x000F, kIteration = 0x0011,
                   kDelta = 0x0010, kSaveRecalc = 0x005F, kPrintHeaders = 0x002A, kPrintGridlines = 0x002B,
                   kGridSet = 0x0082, kGuts = 0x0080, kDefaultRowHeight = 0x0225, kWsBool = 0x0081,
                   kDefColWidth = 0x0055, kDimensions = 0x0200, kLabelSst = 0x00FD, kNumber = 0x0203,
                   kWindow2 = 0x023E;

// The most data one record carries; more goes on in CONTINUE records.
constexpr size_t kMaxRecordData = 8224;

// Cell formats: 0 to 14 the styles every workbook has, 15 the cells, 16 the header row.
constexpr uint16_t kCellXf = 15, kHeaderXf = 16;
// The fifth font record is font 5: the format has no font 4.
constexpr uint16_t kBoldFont = 5;

void U8(std::string& b, uint8_t v) { b.push_back(static_cast<char>(v)); }
void U16(std::string& b, uint16_t v) { b.append(reinterpret_cast<const char*>(&v), 2); }
void U32(std::string& b, uint32_t v) { b.append(reinterpret_cast<const char*>(&v), 4); }
void F64(std::string& b, double v) { b.append(reinterpret_cast<const char*>(&v), 8); }
void Chars(std::string& b, const std::u16string& s) { b.append(reinterpret_cast<const char*>(s.data()), s.size() * 2); }

void Record(std::string& out, uint16_t type, const std::string& data) {
  U16(out, type);
  U16(out, static_cast<uint16_t>(data.size()));
  out += data;
}
void Record16(std::string& out, uint16_t type, uint16_t value) {
  std::string data;
  U16(data, value);
  Record(out, type, data);
}

// `utf8` in UTF-16, with each invalid sequence as U+FFFD. GLib does the converting;
// libgsf brings it along.
std::u16string ToUtf16(std::string_view utf8) {
  gchar* valid = g_utf8_make_valid(utf8.data(), static_cast<gssize>(utf8.size()));
  glong length = 0;
  gunichar2* wide = g_utf8_to_utf16(valid, -1, nullptr, &length, nullptr);
  std::u16string out;
  if (wide) out.assign(reinterpret_cast<const char16_t*>(wide), static_cast<size_t>(length));
  g_free(wide);
  g_free(valid);
  return out;
}

std::string Bof(uint16_t kind) {
  std::string data;
  U16(data, 0x0600);  // BIFF8
  U16(data, kind);
  U16(data, 0x0DBB);  // build
  U16(data, 0x07CC);  // year
  U32(data, 0);       // file history
  U32(data, 6);       // the lowest version that reads it
  return data;
}

std::string Font(bool bold) {
  std::string data;
  U16(data, 200);     // 10 points, in twentieths
  U16(data, 0);       // not italic, not struck out
  U16(data, 0x7FFF);  // the window text's colour
  U16(data, bold ? 700 : 400);
  U16(data, 0);  // no super- or subscript
  U8(data, 0);   // not underlined
  U8(data, 0);   // family
  U8(data, 0);   // character set
  U8(data, 0);
  U8(data, 5);  // "Arial", one byte a character
  U8(data, 0);
  data += "Arial";
  return data;
}

std::string Xf(uint16_t font, bool style, uint8_t usedAttributes) {
  std::string data;
  U16(data, font);
  U16(data, 0);                         // the General number format
  U16(data, style ? 0xFFF5 : 0x0001);   // locked; a style has no parent style
  U8(data, 0x20);                       // aligned at the bottom
  U8(data, 0);                          // not rotated
  U8(data, 0);                          // no indent
  U8(data, usedAttributes);
  U32(data, 0);                         // no borders
  U32(data, 0);                         // no fill
  U16(data, 0x40 | (0x41 << 7));        // the system's fore- and background colours
  return data;
}

}  // namespace

Biff8Workbook::Biff8Workbook(std::string_view sheetName) : m_sheetName(ToUtf16(sheetName)) {
  if (m_sheetName.empty() || m_sheetName.size() > 31 ||
      m_sheetName.find_first_of(u":\\/?*[]") != std::u16string::npos)
    throw Error(err::kNameInvalid, "'" + std::string(sheetName) + "' is not a valid name for a sheet.");
}

Biff8Workbook::Cell& Biff8Workbook::At(int row, int column) {
  if (row < 0 || row >= kMaxRows || column < 0 || column >= kMaxColumns) throw Error(err::kSpreadsheetFull);
  if (static_cast<size_t>(row) >= m_rows.size()) m_rows.resize(static_cast<size_t>(row) + 1);
  auto& cells = m_rows[static_cast<size_t>(row)];
  if (static_cast<size_t>(column) >= cells.size()) cells.resize(static_cast<size_t>(column) + 1);
  return cells[static_cast<size_t>(column)];
}

void Biff8Workbook::SetText(int row, int column, std::string_view utf8) {
  std::u16string text = ToUtf16(utf8);
  if (text.size() > kMaxTextLength) throw Error(err::kFieldTooSmall);
  Cell& cell = At(row, column);
  auto [it, added] = m_stringIndex.try_emplace(std::move(text), static_cast<uint32_t>(m_strings.size()));
  if (added) m_strings.push_back(it->first);
  if (cell.kind != Cell::kText) ++m_textCells;
  cell.kind = Cell::kText;
  cell.text = it->second;
}

void Biff8Workbook::SetNumber(int row, int column, double value) {
  Cell& cell = At(row, column);
  if (cell.kind == Cell::kText) --m_textCells;
  cell.kind = Cell::kNumber;
  cell.number = value;
}

std::string Biff8Workbook::Stream() const {
  std::string out;
  size_t sheetOffsetAt = 0;
  WriteGlobals(out, sheetOffsetAt);
  // The sheet's record begins where the globals end; BOUNDSHEET points at it.
  uint32_t sheetOffset = static_cast<uint32_t>(out.size());
  std::memcpy(out.data() + sheetOffsetAt, &sheetOffset, 4);
  WriteSheet(out);
  return out;
}

void Biff8Workbook::WriteGlobals(std::string& out, size_t& sheetOffsetAt) const {
  Record(out, kBof, Bof(0x0005));
  Record16(out, kInterfaceHdr, 1200);
  Record(out, kMms, std::string(2, '\0'));
  Record(out, kInterfaceEnd, "");
  {
    std::string data;
    U16(data, 7);
    U8(data, 0);
    data += "Annotra";
    data.resize(112, ' ');
    Record(out, kWriteAccess, data);
  }
  Record16(out, kCodePage, 1200);  // UTF-16
  Record16(out, kDsf, 0);
  Record16(out, kTabId, 1);
  Record16(out, kFnGroupCount, 14);
  Record16(out, kWindowProtect, 0);
  Record16(out, kProtect, 0);
  Record16(out, kPassword, 0);
  Record16(out, kProt4Rev, 0);
  Record16(out, kProt4RevPass, 0);
  Record16(out, kBackup, 0);
  Record16(out, kHideObj, 0);
  {
    std::string data;
    U16(data, 0x0168);  // left, top, width, height (twips)
    U16(data, 0x001E);
    U16(data, 0x3A5C);
    U16(data, 0x23BE);
    U16(data, 0x0038);  // scroll bars and sheet tabs shown
    U16(data, 0);       // the sheet shown
    U16(data, 0);       // the first tab shown
    U16(data, 1);       // sheets selected
    U16(data, 600);     // tab area / scroll bar ratio
    Record(out, kWindow1, data);
  }
  Record16(out, kDateMode, 0);
  Record16(out, kPrecision, 1);
  Record16(out, kRefreshAll, 0);
  Record16(out, kBookBool, 0);
  for (int i = 0; i < 4; ++i) Record(out, kFont, Font(false));
  Record(out, kFont, Font(true));
  Record(out, kXf, Xf(0, true, 0x00));
  for (int i = 1; i < 15; ++i) Record(out, kXf, Xf(0, true, 0xF4));
  Record(out, kXf, Xf(0, false, 0x00));
  Record(out, kXf, Xf(kBoldFont, false, 0x08));
  {
    std::string data;
    U16(data, 0x8000);  // built in, on format 0
    U8(data, 0);        // Normal
    U8(data, 0xFF);
    Record(out, kStyle, data);
  }
  Record16(out, kUsesElfs, 1);
  {
    std::string data;
    U32(data, 0);  // the sheet's offset, set when known
    U8(data, 0);   // visible
    U8(data, 0);   // a worksheet
    U8(data, static_cast<uint8_t>(m_sheetName.size()));
    U8(data, 1);  // UTF-16
    Chars(data, m_sheetName);
    sheetOffsetAt = out.size() + 4;
    Record(out, kBoundSheet, data);
  }
  {
    std::string data;
    U16(data, 1);
    U16(data, 1);
    Record(out, kCountry, data);
  }
  WriteSharedStrings(out);
  Record(out, kEof, "");
}

// The shared strings (SST) and their index (EXTSST). A record carries at most
// kMaxRecordData bytes; the strings go on in CONTINUE records. A string's header (length
// and flags) stays in one record with at least its first character; a string split
// across records starts its part in the next one with its flags byte again.
void Biff8Workbook::WriteSharedStrings(std::string& out) const {
  const uint32_t perBucket = std::max<uint32_t>(8, (static_cast<uint32_t>(m_strings.size()) + 127) / 128);
  std::string index;
  U16(index, static_cast<uint16_t>(perBucket));

  size_t recordStart = out.size();
  uint16_t type = kSst;
  std::string data;
  U32(data, m_textCells);
  U32(data, static_cast<uint32_t>(m_strings.size()));
  auto flush = [&](uint16_t next) {
    Record(out, type, data);
    recordStart = out.size();
    type = next;
    data.clear();
  };
  for (size_t i = 0; i < m_strings.size(); ++i) {
    const std::u16string& s = m_strings[i];
    if (data.size() + 3 + (s.empty() ? 0 : 2) > kMaxRecordData) flush(kContinue);
    if (i % perBucket == 0) {
      U32(index, static_cast<uint32_t>(recordStart + 4 + data.size()));  // where the string begins
      U16(index, static_cast<uint16_t>(4 + data.size()));                // its offset in its record
      U16(index, 0);
    }
    U16(data, static_cast<uint16_t>(s.size()));
    U8(data, 1);  // UTF-16
    size_t done = 0;
    while (done < s.size()) {
      size_t room = (kMaxRecordData - data.size()) / 2;
      if (room == 0) {
        flush(kContinue);
        U8(data, 1);
        room = (kMaxRecordData - 1) / 2;
      }
      size_t n = std::min(room, s.size() - done);
      data.append(reinterpret_cast<const char*>(s.data() + done), n * 2);
      done += n;
    }
  }
  flush(kContinue);
  Record(out, kExtSst, index);
}

void Biff8Workbook::WriteSheet(std::string& out) const {
  Record(out, kBof, Bof(0x0010));
  Record16(out, kCalcMode, 1);
  Record16(out, kCalcCount, 100);
  Record16(out, kRefMode, 1);
  Record16(out, kIteration, 0);
  {
    std::string data;
    F64(data, 0.001);
    Record(out, kDelta, data);
  }
  Record16(out, kSaveRecalc, 1);
  Record16(out, kPrintHeaders, 0);
  Record16(out, kPrintGridlines, 0);
  Record16(out, kGridSet, 1);
  Record(out, kGuts, std::string(8, '\0'));
  {
    std::string data;
    U16(data, 0);
    U16(data, 0x00FF);
    Record(out, kDefaultRowHeight, data);
  }
  Record16(out, kWsBool, 0x04C1);
  Record16(out, kDefColWidth, 8);
  {
    size_t columns = 0;
    for (const auto& row : m_rows) columns = std::max(columns, row.size());
    std::string data;
    U32(data, 0);
    U32(data, static_cast<uint32_t>(m_rows.size()));  // one past the last row
    U16(data, 0);
    U16(data, static_cast<uint16_t>(columns));  // one past the last column
    U16(data, 0);
    Record(out, kDimensions, data);
  }
  for (size_t r = 0; r < m_rows.size(); ++r) {
    const uint16_t xf = r == 0 ? kHeaderXf : kCellXf;
    for (size_t c = 0; c < m_rows[r].size(); ++c) {
      const Cell& cell = m_rows[r][c];
      if (cell.kind == Cell::kBlank) continue;
      std::string data;
      U16(data, static_cast<uint16_t>(r));
      U16(data, static_cast<uint16_t>(c));
      U16(data, xf);
      if (cell.kind == Cell::kText) {
        U32(data, cell.text);
        Record(out, kLabelSst, data);
      } else {
        F64(data, cell.number);
        Record(out, kNumber, data);
      }
    }
  }
  {
    std::string data;
    U16(data, 0x06B6);  // grid lines, headers, zeros, outline symbols; selected and shown
    U16(data, 0);       // the top row shown
    U16(data, 0);       // the left column shown
    U32(data, 64);      // grid line colour: the window text's
    U16(data, 0);
    U16(data, 0);
    U32(data, 0);
    Record(out, kWindow2, data);
  }
  Record(out, kEof, "");
}

}  // namespace platform::dao
