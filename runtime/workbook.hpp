// Workbook access: .xls through FreeXL, .xlsx through libzip + expat.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/value.hpp"

namespace corvane {

class Sheet {
 public:
  const std::string& Name() const { return name_; }
  // The value of the cell at a column letter ("A", "AB") and a row (from 1). An empty cell
  // or one outside the sheet is blank; numbers come back as numbers, strings as text,
  // dates as m/d/yyyy text, booleans as "True"/"False".
  Value Cell(std::string_view column, long row) const;
  Value Cell(int column, long row) const;  // column from 1
  // The number of rows of the used range (first used row to last used row), 0 when empty.
  long UsedRangeRows() const;
  // The number of the last row that holds anything, blank for an empty sheet.
  Value LastRow() const;

  // Filled by the readers.
  struct Entry {
    long row;
    int column;
    Value value;
  };
  Sheet(std::string name, std::vector<Entry> cells);

 private:
  std::string name_;
  std::vector<Entry> cells_;  // sorted by row, then column
  long first_row_ = 0;
  long last_row_ = 0;
};

class Workbook {
 public:
  // Opens a workbook by its contents (an OLE2 .xls or a zipped .xlsx), whatever its name.
  // A missing file raises 53; anything that is not a readable workbook raises 1004.
  static std::unique_ptr<Workbook> Open(const std::string& path);

  int SheetCount() const { return static_cast<int>(sheets_.size()); }
  // Sheets by index from 1; out of range raises 9.
  const Sheet& SheetAt(int index) const;
  // The sheet of that name (case ignored); none raises 9.
  const Sheet& SheetByName(std::string_view name) const;
  // The first sheet, which is the active one of a freshly opened export.
  const Sheet& FirstSheet() const { return SheetAt(1); }
  const Sheet& ActiveSheet() const { return SheetAt(active_); }

  explicit Workbook(std::vector<Sheet> sheets, int active = 1);

 private:
  std::vector<Sheet> sheets_;
  int active_ = 1;
};

// Column letters to a number: "A" is 1, "Z" 26, "AA" 27; raises 5 for anything else.
int ColumnNumber(std::string_view letters);

// What the readers of the two file formats share (runtime/workbook*.cpp); not for use
// elsewhere.
namespace workbook_detail {

// The sheet grid of the newest format; cells beyond it cannot exist in a sound file.
inline constexpr long kMaxRow = 1048576;
inline constexpr int kMaxColumn = 16384;
// Bounds on what one workbook may cost, far above any time-clock export.
inline constexpr std::size_t kMaxCells = 2'000'000;
inline constexpr std::size_t kMaxTextBytes = std::size_t{256} << 20;

// Raises 1004: not a readable workbook.
[[noreturn]] void Unreadable();
// The system's text is single-byte: UTF-8 characters up to U+00FF become their byte, any
// other character (or a broken sequence) "?".
std::string Utf8ToLatin1(std::string_view utf8);
// Case folding over the single-byte character set.
unsigned char FoldCase(unsigned char c);
// A date cell's text from its day serial ("1/15/2024", "1/15/2024 1:45:00 PM", "8:30:00 AM");
// nullopt for a number no date can have.
std::optional<std::string> SerialDateText(double serial, bool date1904);
// The same text from "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" (or with "T") or "hh:mm:ss".
std::optional<std::string> IsoDateText(std::string_view iso);

// Counts the cells and characters of one workbook; raises 1004 past the bounds.
class Budget {
 public:
  void Add(const Value& v);

 private:
  std::size_t cells_ = 0;
  std::size_t text_bytes_ = 0;
};

std::vector<Sheet> ReadXls(const std::string& path);
std::unique_ptr<Workbook> ReadXlsx(const std::string& path);

}  // namespace workbook_detail

}  // namespace corvane
