#include "settings/ecode_grid.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "screen/operator.hpp"
#include "screen/screen.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

namespace {

// The table's columns, in the order of ECodeRow.
constexpr std::string_view kColumnNames[] = {
    "Company", "Package", "HrsPos", "DorE", "Earning_Code", "Hours_or_Amount", "Shift", "Skip",
};
constexpr std::size_t kHrsPosColumn = 2;
constexpr std::size_t kShiftColumn = 6;

std::vector<GridColumn> FreshColumns() {
  std::vector<GridColumn> columns;
  for (std::size_t i = 0; i < std::size(kColumnNames); ++i) {
    GridColumn c;
    c.name = kColumnNames[i];
    c.caption = std::string(kColumnNames[i]);
    c.integer = i == kHrsPosColumn || i == kShiftColumn;
    columns.push_back(std::move(c));
  }
  return columns;
}

std::string* TextField(ECodeRow& row, std::size_t column) {
  switch (column) {
    case 0:
      return &row.Company;
    case 1:
      return &row.Package;
    case 3:
      return &row.DorE;
    case 4:
      return &row.Earning_Code;
    case 5:
      return &row.Hours_or_Amount;
    case 7:
      return &row.Skip;
    default:
      return nullptr;
  }
}

std::int32_t* IntegerField(ECodeRow& row, std::size_t column) {
  if (column == kHrsPosColumn) return &row.HrsPos;
  if (column == kShiftColumn) return &row.Shift;
  return nullptr;
}

// A whole number as the operator types it: blanks around, an optional sign, digits.
std::optional<std::int32_t> WholeNumber(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  bool negative = false;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty()) return std::nullopt;
  long long n = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
  if (ec != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (negative) n = -n;
  if (n < std::numeric_limits<std::int32_t>::min() || n > std::numeric_limits<std::int32_t>::max())
    return std::nullopt;
  return static_cast<std::int32_t>(n);
}

}  // namespace

DataGrid::DataGrid() : columns_(FreshColumns()) {}

void DataGrid::Bind(ECodeData* data) {
  data_ = data;
  columns_ = FreshColumns();
  shown_.clear();
  if (data_ == nullptr) return;
  const Recordset<ECodeRow>& rs = data_->rsECodes;
  for (std::size_t i = 0; i < rs.rows().size(); ++i) {
    if (rs.Shows(rs.rows()[i])) shown_.push_back(i);
  }
}

std::size_t DataGrid::ColumnIndex(std::string_view name) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].name == name) return i;
  }
  Raise(kSubscriptOutOfRange);
}

GridColumn& DataGrid::Column(std::string_view name) {
  return columns_[ColumnIndex(name)];
}

ECodeRow& DataGrid::Row(std::size_t row) const {
  if (data_ == nullptr || row >= shown_.size() || shown_[row] >= data_->rsECodes.rows().size())
    Raise(kSubscriptOutOfRange);
  return data_->rsECodes.rows()[shown_[row]];
}

std::string DataGrid::Text(std::size_t row, std::size_t column) const {
  if (column >= columns_.size()) Raise(kSubscriptOutOfRange);
  ECodeRow& r = Row(row);
  if (std::int32_t* n = IntegerField(r, column)) return std::to_string(*n);
  return *TextField(r, column);
}

bool DataGrid::SetText(std::size_t row, std::size_t column, std::string_view text) {
  if (column >= columns_.size()) return false;
  ECodeRow* r = nullptr;
  try {
    r = &Row(row);
  } catch (const RuntimeError&) {
    return false;
  }
  if (std::int32_t* n = IntegerField(*r, column)) {
    std::optional<std::int32_t> whole = WholeNumber(text);
    if (!whole) return false;
    *n = *whole;
    return true;
  }
  *TextField(*r, column) = std::string(text);
  return true;
}

std::optional<std::size_t> DataGrid::AddRow() {
  if (data_ == nullptr) return std::nullopt;
  Recordset<ECodeRow>& rs = data_->rsECodes;
  rs.AddNew(ECodeRow{"", new_row_package, 0, "E", "?", "H", 1, "N"});
  shown_.push_back(rs.rows().size() - 1);
  return shown_.size() - 1;
}

bool DataGrid::DeleteRow(std::size_t row) {
  if (data_ == nullptr || row >= shown_.size()) return false;
  std::vector<ECodeRow>& rows = data_->rsECodes.rows();
  const std::size_t position = shown_[row];
  if (position >= rows.size()) return false;
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(position));
  shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(row));
  for (std::size_t& p : shown_) {
    if (p > position) --p;
  }
  // The table's cursor may have stood on the row or past it; no cursor survives a delete.
  data_->rsECodes.MoveFirst();
  return true;
}

void frmECode::cmdCloseForm_Click() {
  try {
    ECodeData* data = ECodeGrid.DataSource();
    if (data == nullptr) Raise(kObjectNotSet);
    Recordset<ECodeRow>& rs = data->Class_GetDataMember("ECodes");
    // The grid shows one company, but the file holds them all: every row is written.
    rs.ClearFilter();
    rs.MoveFirst();
    FileSystem fs;
    std::unique_ptr<TextStream> out = fs.createreplacement(data->path());
    while (!rs.EOF_()) {
      ECodeRow& row = rs.Current();
      MendECodeRow(row);
      out->WriteLine(ECodeLine(row));
      rs.MoveNext();
    }
    out->Close();
    // The table is done with: the next "Assign Earning Codes" reads a new one from the file.
  } catch (const RuntimeError& error) {
    // The file is replaced only once written whole, so a save that fails leaves it as it
    // was; the operator is told so.
    ui_.MsgBox(SaveFailedText(kEarnCodesNotSaved, error), MsgButtons::OKOnly, "Corvane");
  }
  ECodeGrid.Bind(nullptr);
  visible = false;
}

void cmdAssEcodes_Click(frmECode& form, std::unique_ptr<ECodeData>& rsUsedECodes,
                        const std::string& settings_dir, const Screen& main, Operator& ui) {
  // The grid must not hold on to the table about to be replaced.
  form.ECodeGrid.Bind(nullptr);
  try {
    rsUsedECodes = std::make_unique<ECodeData>(settings_dir, main, ui);
  } catch (const RuntimeError&) {
    rsUsedECodes.reset();
    ui.MsgBox("Please assign Earning Codes for company " + main[CoNum].text, MsgButtons::OKOnly,
              "Corvane");
  }

  form.Show();
  form.ECodeGrid.new_row_package = std::string(main[PickTC].SelectedText());
  form.ECodeGrid.Bind(rsUsedECodes.get());
  for (GridColumn& c : form.ECodeGrid.Columns()) c.width = 900;

  DataGrid& grid = form.ECodeGrid;
  grid.Column("Company").width = 900;
  GridColumn& package = grid.Column("Package");
  package.caption = "Time Clock";
  package.width = 900;
  package.hidden = true;
  // The AE clock's file carries a pay designation where others carry a time category.
  const bool ae = main[PickTC].SelectedText() == "AE v1.0.28.616";
  GridColumn& hrs = grid.Column("HrsPos");
  hrs.caption = ae ? "Pay Designation" : "Time Category#";
  hrs.width = ae ? 900 : 790;
  hrs.alignment = ColumnAlignment::Center;
  GridColumn& dore = grid.Column("DorE");
  dore.caption = "D or E";
  dore.width = 600;
  GridColumn& code = grid.Column("Earning_Code");
  code.caption = "Earn Code";
  code.width = 900;
  code.alignment = ColumnAlignment::Center;
  GridColumn& dolhrs = grid.Column("Hours_or_Amount");
  dolhrs.caption = "$ or H";
  dolhrs.width = 600;
  grid.Column("Shift").width = 600;
  GridColumn& skip = grid.Column("Skip");
  skip.caption = "Skip? Y/N";
  skip.width = 900;
  skip.alignment = ColumnAlignment::Center;
}

}  // namespace corvane
