// The form frmECode: the operator's grid over the earning-code table, as a model that a
// window or a command line shows and edits. The grid is modeless: the main screen stays
// usable while it is open, and it keeps showing the company it was opened for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/ecode_data.hpp"

namespace corvane {

class Operator;
class Screen;

enum class ColumnAlignment : std::uint8_t {
  General,  // the grid's own: text to the left, numbers to the right
  Center,
};

struct GridColumn {
  std::string_view name;  // the table column it shows
  std::string caption;
  int width = 0;  // twips; 0 until set, the front end's own width
  ColumnAlignment alignment = ColumnAlignment::General;
  bool hidden = false;
  bool integer = false;  // takes whole numbers only
};

// The grid ECodeGrid: the eight columns of the table, and as rows the table rows of the
// bound ECodeData that its filter let through when it was bound, in table order, together
// with the rows added here. A row keeps its place while it is edited, even when its Company
// is changed or left empty; the next binding takes the rows afresh.
class DataGrid {
 public:
  static constexpr std::string_view kHeading =
      "Map Time Clock categories to Earning/Deduction Codes";

  DataGrid();

  // Binds the grid to a table (nullptr: no table, no rows). The columns start over: own name
  // as caption, no width, general alignment, shown.
  void Bind(ECodeData* data);
  ECodeData* DataSource() const { return data_; }

  std::vector<GridColumn>& Columns() { return columns_; }
  const std::vector<GridColumn>& Columns() const { return columns_; }
  // The column of a table column's name, and its position; raise 9 when the grid has none.
  GridColumn& Column(std::string_view name);
  std::size_t ColumnIndex(std::string_view name) const;

  std::size_t RowCount() const { return shown_.size(); }
  // The row shown at a position, in the table. Raises 9 for a position not shown.
  ECodeRow& Row(std::size_t row) const;
  // A cell as text; integer columns print their number. Raises 9 outside the grid.
  std::string Text(std::size_t row, std::size_t column) const;
  // Puts the operator's text in a cell. An integer column takes only a whole number in 32
  // bits (blanks around and a sign allowed); other text is refused: false, the cell
  // unchanged. False as well outside the grid.
  bool SetText(std::size_t row, std::size_t column, std::string_view text);

  // The operator's new row, appended to the table and shown last; its position, or nothing
  // when no table is bound. It holds what the operator has not typed yet: Company empty,
  // Package the time clock the grid was opened with (new_row_package), HrsPos 0, and the
  // starter values "E", "?", "H", 1, "N", so an untouched row saves as a harmless
  // unassigned category rather than overriding category 1.
  std::optional<std::size_t> AddRow();
  // Deletes the row shown at a position from the table; false outside the grid.
  bool DeleteRow(std::size_t row);

  // The Package of rows added in the grid: the time clock shown when the grid was opened.
  std::string new_row_package;

 private:
  ECodeData* data_ = nullptr;
  std::vector<std::size_t> shown_;  // table positions of the rows shown, ascending
  std::vector<GridColumn> columns_;
};

class frmECode {
 public:
  static constexpr std::string_view kCaption = "Assign Time Categories to Earning Codes";
  static constexpr std::string_view kCmdCloseFormCaption = "Save Changes";
  static constexpr std::string_view kCndCancelCaption = "Cancel";

  explicit frmECode(Operator& ui) : ui_(ui) {}

  DataGrid ECodeGrid;
  bool visible = false;

  // Shows the form without blocking the main screen.
  void Show() { visible = true; }

  // "Save Changes": replaces the file the bound table came from with the rows of every
  // company, mended, then unbinds and hides. Any failure unbinds and hides at once, the
  // file left as it was, after saying that the codes were not saved.
  void cmdCloseForm_Click();
  // "Cancel": hides the form. The edits stay in the bound table and nothing is saved.
  void cndCancel_Click() { visible = false; }

 private:
  Operator& ui_;
};

// A click on the main screen's cmdAssEcodes ("Assign Earning Codes"): a new table for the
// company in CoNum in rsUsedECodes (on failure the message "Please assign Earning Codes for
// company <CoNum>" and no table), the form shown and bound to it, and its columns set.
void cmdAssEcodes_Click(frmECode& form, std::unique_ptr<ECodeData>& rsUsedECodes,
                        const std::string& settings_dir, const Screen& main, Operator& ui);

}  // namespace corvane
