#include "settings/kronos8.hpp"

#include <string>
#include <utility>

#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/infile.hpp"
#include "runtime/text.hpp"
#include "screen/operator.hpp"
#include "settings/company_table.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

namespace {

// A list box refuses an index it does not have with "Invalid property value".
constexpr int kInvalidPropertyValue = 380;

constexpr std::array<std::string_view, 6> kListNames = {"List1", "List2", "List3",
                                                        "List4", "List5", "List6"};
constexpr std::array<std::string_view, 6> kLabelNames = {"Label1", "Label2", "Label3",
                                                         "Label4", "Label5", "Label6"};

// One row of the file: ten items, whatever the line structure. A row cut short raises, and
// the caller keeps only the rows read whole.
K8Row ReadK8Row(InputFile& in) {
  K8Row row;
  Value field;
  in.Input(row.Company);
  in.Input(field);
  row.Emp = BooleanField(field);
  in.Input(field);
  row.PayRat = BooleanField(field);
  in.Input(field);
  row.Dept = BooleanField(field);
  for (long& cus : row.Cus) {
    in.Input(field);
    cus = ToLong(field);
  }
  return row;
}

}  // namespace

std::string QuotedLine(std::initializer_list<std::string_view> fields) {
  std::string line;
  for (std::string_view f : fields) {
    if (!line.empty()) line += ',';
    line += '"';
    line += f;
    line += '"';
  }
  return line;
}

std::string_view BooleanText(bool b) {
  return b ? "True" : "False";
}

bool BooleanField(const Value& field) {
  if (field.IsBlank()) return false;
  if (field.IsNumber()) return field.number() != 0;
  const std::string word = UCase(field.text());
  if (word == "TRUE") return true;
  if (word == "FALSE") return false;
  if (auto n = NumericValue(field.text())) return *n != 0;
  Raise(kTypeMismatch);
}

void SelectIndex(Control& list, long index) {
  if (index < -1 || index >= static_cast<long>(list.items.size())) {
    Raise(kInvalidPropertyValue, "Invalid property value");
  }
  list.list_index = static_cast<int>(index);
}

std::string K8Line(const K8Row& row) {
  std::array<std::string, 6> cus;
  for (std::size_t i = 0; i < cus.size(); ++i) cus[i] = std::to_string(row.Cus[i]);
  return QuotedLine({row.Company, BooleanText(row.Emp), BooleanText(row.PayRat),
                     BooleanText(row.Dept), cus[0], cus[1], cus[2], cus[3], cus[4], cus[5]});
}

frmKv8::frmKv8(Operator& ui, const Screen& main, std::string settings_dir)
    : CompanyChoices({.badge = "The 2nd column (badge#) stores our Employee numbers.",
                      .pay_rate_yes = "Yes to use the Pay Rates in Kronos (not Payroll).",
                      .pay_rate_no = "No, use the Pay Rates from Payroll (not Kronos).",
                      .dept_no = "No, use the home department stored in Payroll."}),
      caption("Custom Settings for Kronos v8"),
      lblTitle(MakeControl("lblTitle", kLabel, "Kronos v8 Custom Mapping")),
      Frame1(MakeControl("Frame1", kLabel, "Department Worked",
                         "Map Department Worked to Override the Department code in Payroll?")),
      Label7(MakeControl("Label7", kLabel, "Custom Fields")),
      cmdClose(MakeControl("cmdClose", kCommandButton, "Save")),
      cmdCancel(MakeControl("cmdCancel", kCommandButton, "Cancel")),
      ui_(ui),
      main_(main),
      settings_dir_(std::move(settings_dir)) {
  for (std::size_t i = 0; i < List.size(); ++i) {
    const std::string n = std::to_string(i + 1);
    List[i] = MakeControl(
        kListNames[i], kListBox, "",
        "Select the item to be mapped to custom field " + n + ". (Double-Click to unselect)");
    // The index is what is stored: 0 job, 1 division, 2 branch.
    List[i].items = {"Job", "Division", "Branch"};
    Label[i] = MakeControl(kLabelNames[i], kLabel, n + ".");
  }
}

void frmKv8::Form_Load() {
  LoadCompanyTable(rsK8, settings_dir_, kK8FileName, ReadK8Row, [this] { Set_rsK8(); });
}

void frmKv8::ShowRow(const K8Row& row) {
  ShowChoices(row.Emp, row.PayRat, row.Dept);
  for (std::size_t i = 0; i < List.size(); ++i) SelectIndex(List[i], row.Cus[i]);
}

void frmKv8::Set_rsK8() {
  const std::string& company = main_[CoNum].text;
  try {
    // A company met for the first time gets its row with the defaults.
    ShowRow(CompanyRow(rsK8, company));
  } catch (const RuntimeError&) {
    ui_.MsgBox("Warning - error occurred with gathering Kronos 8 data for " + company,
               MsgButtons::OKOnly, "Corvane");
  }
}

void frmKv8::List_DblClick(int n) {
  List.at(static_cast<std::size_t>(n - 1)).list_index = -1;
}

void frmKv8::cmdCancel_Click() {
  Set_rsK8();
  Hide();
}

void frmKv8::cmdClose_Click() {
  // CoNum may have changed to a company the form never met while it was open: that company
  // gets its row, so that what the operator entered is saved rather than lost.
  K8Row& row = CompanyRow(rsK8, main_[CoNum].text);
  row.Emp = rdoEmp.value == 1;
  row.PayRat = rdoPRyes.value == 1;
  row.Dept = rdoDeptYes.value == 1;
  for (std::size_t i = 0; i < List.size(); ++i) row.Cus[i] = List[i].list_index;
  try {
    SaveCompanyTable(rsK8, settings_dir_, kK8FileName, K8Line);
  } catch (const RuntimeError& error) {
    // The file keeps what was saved before; the form stays open with the operator's choices,
    // so that Save can be pressed again.
    ui_.MsgBox(SaveFailedText(kK8NotSaved, error), MsgButtons::OKOnly, "Corvane");
    return;
  }
  Hide();
}

}  // namespace corvane
