// Workbook access: .xls through FreeXL, .xlsx through libzip + expat.
#pragma once

#include <memory>
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

}  // namespace corvane
