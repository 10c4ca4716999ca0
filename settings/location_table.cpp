// The location table: for each location or store number, the fourteen main category codes
// of the screen. A cell of columns 2 to 15 is the D-or-E letter followed by the code.
#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// Columns 2 to 15 hold the fourteen named groups in screen order.
const CategoryBoxes& ColumnBoxes(int col) {
  return Boxes(static_cast<Cat>(col - 2));
}

}  // namespace

void frmTimeImport::cmdLookup_Click() {
  InputFile in;
  try {
    try {
      in.Open(LocFile, OpenMode::Text);
    } catch (const RuntimeError&) {
      // A missing file is made empty here; a missing folder is not made. The create is
      // exclusive, so a file that exists but could not be read is never emptied.
      try {
        fs.createtextfile(LocFile, false)->Close();
      } catch (const RuntimeError&) {
      }
      in.Open(LocFile, OpenMode::Text);
    }
  } catch (const RuntimeError&) {
    return;
  }

  for (auto& row : INPData) {
    for (std::string& cell : row) cell.clear();
  }
  try {
    int row = 0;
    while (!in.Eof()) {
      ++row;
      if (row > 100) Raise(kSubscriptOutOfRange);
      for (int col = 1; col <= 15; ++col) in.Input(INPData[row][col]);
    }
  } catch (const RuntimeError&) {
    // what was read stays
  }

  const std::string loc = Trim(S[LocNum].text);
  bool found = false;
  for (std::int16_t row = 1; row <= 100; ++row) {
    const std::string s = Trim(INPData[row][1]);
    if (loc == s && !loc.empty()) {
      found = true;
      // The scan goes on: a later row of the same number wins.
      for (int col = 2; col <= 15; ++col) {
        const std::string cell = Trim(INPData[row][col]);
        const CategoryBoxes& b = ColumnBoxes(col);
        S[b.de].text = Left(cell, 1);
        S[b.code].text = Mid(cell, 2);
      }
    } else if (loc == s) {
      break;  // the first free row, and nothing typed
    } else if (s.empty() && !found && !loc.empty()) {
      // An unknown number takes the first free row with what the screen shows now.
      StoreLocation(row);
      break;
    }
  }
  in.Close();
}

void frmTimeImport::StoreLocation(std::int16_t row) {
  if (row < 1 || row > 100) Raise(kSubscriptOutOfRange);
  INPData[row][1] = S[LocNum].text;
  for (int col = 2; col <= 15; ++col) {
    const CategoryBoxes& b = ColumnBoxes(col);
    INPData[row][col] = S[b.de].text + Trim(S[b.code].text);
  }
}

}  // namespace corvane
