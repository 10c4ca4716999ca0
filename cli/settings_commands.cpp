#include "cli/settings_commands.hpp"

#include <iostream>

#include "cli/headless_operator.hpp"
#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"
#include "screen/catalogue.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

namespace {

// The operator of a settings command: messages go to standard error, and any message means
// the edit did not go as asked, so nothing is saved.
class SettingsOperator : public HeadlessOperator {
 public:
  SettingsOperator() : HeadlessOperator({}, true, nullptr, false) {}
  MsgAnswer MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) override {
    ++messages;
    return HeadlessOperator::MsgBox(text, buttons, title);
  }
  int messages = 0;
};

// The main form as a settings form sees it: the company typed in CoNum and the time clock
// chosen, nothing read at start.
struct Session {
  Session(const std::string& settings_dir, const std::string& company, const std::string& format)
      : F(ui, Environment{settings_dir, SystemToday()}) {
    F.S[CoNum].text = company;
    if (!format.empty()) {
      const int index = CatalogueIndex(format);
      if (index < 0) throw UsageError("no time clock is named \"" + format + "\"");
      F.S[PickTC].list_index = index;
    }
  }
  SettingsOperator ui;
  frmTimeImport F;
};

int Refused(const std::string& why) {
  std::cerr << "corvane: " << why << "; nothing was saved\n";
  return 1;
}

// A form's Save says so when its file could not be replaced; the file is then as it was.
constexpr int kSaveFailed = 3;

template <class Save>
int SaveAs(SettingsOperator& ui, Save save) {
  const int before = ui.messages;
  save();
  return ui.messages > before ? kSaveFailed : 0;
}

constexpr std::string_view kCustomTargets[] = {"job", "division", "branch"};

int CustomIndex(const std::string& word) {
  for (std::size_t i = 0; i < std::size(kCustomTargets); ++i) {
    if (word == kCustomTargets[i]) return static_cast<int>(i);
  }
  return -1;  // "none"
}

std::string_view CustomWord(int index) {
  return index >= 0 && index < 3 ? kCustomTargets[index] : "none";
}

std::string_view YesNo(bool b) {
  return b ? "yes" : "no";
}

// The three choices both customisation forms share, as the operator clicks them; a choice
// not given is left as it is.
void TypeChoices(CompanyChoices& form, const std::string& employee_number,
                 const std::string& pay_rate, const std::string& department) {
  if (!employee_number.empty()) {
    form.SetOption(employee_number == "emp" ? form.rdoEmp : form.rdoBadge, true);
  }
  if (!pay_rate.empty()) form.SetOption(pay_rate == "yes" ? form.rdoPRyes : form.rdoPRno, true);
  if (!department.empty()) {
    form.SetOption(department == "yes" ? form.rdoDeptYes : form.rdoDeptNo, true);
  }
}

void PrintChoices(const CompanyChoices& form, const std::string& company) {
  std::cout << "company=" << company << "\n"
            << "employee-number=" << (form.rdoEmp.value == 1 ? "emp" : "badge") << "\n"
            << "pay-rate=" << YesNo(form.rdoPRyes.value == 1) << "\n"
            << "department=" << YesNo(form.rdoDeptYes.value == 1) << "\n";
}

}  // namespace

void SettingsCommands::AddTo(CLI::App& app, const std::string& default_settings_dir) {
  settings_dir_ = default_settings_dir;
  auto common = [this](CLI::App* sub, bool company_required) {
    sub->add_option("--settings-dir", settings_dir_, "Folder of the settings files");
    CLI::Option* company =
        sub->add_option("--company", company_, "The company number, as in CoNum");
    if (company_required) company->required();
  };

  CLI::App* codes =
      app.add_subcommand("codes", "Earning codes per company, as the grid edits them");
  codes->require_subcommand(1);
  codes_list_ = codes->add_subcommand(
      "list", "Print the company's rows as the grid shows them, one line each in the file's form");
  common(codes_list_, true);
  codes_set_ = codes->add_subcommand(
      "set",
      "Set the row of a category (the last one of that number, or a new one) and save the "
      "table as the grid's Save does, with its mending");
  common(codes_set_, true);
  codes_set_->add_option("--category", category_, "HrsPos: the category number")->required();
  de_opt_ = codes_set_->add_option("--de", de_, "D or E (also S, M)");
  code_opt_ = codes_set_->add_option("--code", code_, "The earning or deduction code");
  hours_opt_ = codes_set_->add_option("--hours-or-amount", hours_or_amount_, "H or $");
  shift_opt_ = codes_set_->add_option("--shift", shift_, "The shift, 0 to 4");
  skip_opt_ = codes_set_->add_option("--skip", skip_, "Y drops the category's records");
  codes_set_->add_option("--format", format_, "The time clock a new row is made for (its Package)");
  codes_delete_ = codes->add_subcommand("delete", "Delete every row of a category and save");
  common(codes_delete_, true);
  codes_delete_->add_option("--category", category_, "HrsPos: the category number")->required();

  auto kronos_options = [this](CLI::App* sub) {
    sub->add_option("--employee-number", employee_number_, "emp or badge")
        ->check(CLI::IsMember({"emp", "badge"}));
    sub->add_option("--pay-rate", pay_rate_, "yes or no")->check(CLI::IsMember({"yes", "no"}));
    sub->add_option("--department", department_, "yes or no")->check(CLI::IsMember({"yes", "no"}));
  };
  CLI::App* kronos8 = app.add_subcommand("kronos8", "The Kronos v8 customisation per company");
  kronos8->require_subcommand(1);
  kronos8_show_ = kronos8->add_subcommand("show", "Print the company's settings");
  common(kronos8_show_, true);
  kronos8_set_ = kronos8->add_subcommand("set", "Change the company's settings and save");
  common(kronos8_set_, true);
  kronos_options(kronos8_set_);
  for (int n = 1; n <= 6; ++n) {
    kronos8_set_
        ->add_option("--custom" + std::to_string(n), custom_[n - 1],
                     "Target of custom field " + std::to_string(n) +
                         ": job, division, branch "
                         "or none")
        ->check(CLI::IsMember({"job", "division", "branch", "none"}));
  }

  CLI::App* tm = app.add_subcommand("timemanager", "The Time Manager customisation per company");
  tm->require_subcommand(1);
  timemanager_show_ = tm->add_subcommand("show", "Print the company's settings");
  common(timemanager_show_, true);
  timemanager_set_ = tm->add_subcommand(
      "set",
      "Change the company's settings and save; the segment boxes validate as typing in them "
      "does, and a refused length saves nothing");
  common(timemanager_set_, true);
  kronos_options(timemanager_set_);
  static constexpr const char* kSegments[] = {"div", "br", "dept", "team"};
  for (int s = 0; s < 4; ++s) {
    const std::string seg = kSegments[s];
    timemanager_set_->add_option("--" + seg + "-len", length_[s], "Length of the segment");
    timemanager_set_->add_option("--" + seg + "-inc", include_[s], "Send the segment? T or F");
  }

  CLI::App* locations = app.add_subcommand("locations", "The location table");
  locations->require_subcommand(1);
  locations_list_ = locations->add_subcommand(
      "list", "Print the table: location, then the fourteen main categories, D-or-E and code");
  common(locations_list_, false);
}

bool SettingsCommands::Run(int& status) {
  try {
    if (codes_list_->parsed())
      status = CodesList();
    else if (codes_set_->parsed())
      status = CodesSet();
    else if (codes_delete_->parsed())
      status = CodesDelete();
    else if (kronos8_show_->parsed())
      status = Kronos8(false);
    else if (kronos8_set_->parsed())
      status = Kronos8(true);
    else if (timemanager_show_->parsed())
      status = TimeManager(false);
    else if (timemanager_set_->parsed())
      status = TimeManager(true);
    else if (locations_list_->parsed())
      status = LocationsList();
    else
      return false;
  } catch (const UsageError& e) {
    std::cerr << "corvane: " << e.what() << "\n";
    status = 2;
  } catch (const RuntimeError& e) {
    std::cerr << "corvane: " << e.description() << "\n";
    status = 3;
  }
  return true;
}

int SettingsCommands::CodesList() {
  Session s(settings_dir_, company_, format_);
  s.F.cmdAssEcodes_Click();
  if (s.ui.messages > 0) return 1;
  DataGrid& grid = s.F.ECode.ECodeGrid;
  for (std::size_t row = 0; row < grid.RowCount(); ++row) {
    std::cout << ECodeLine(grid.Row(row)) << '\n';
  }
  return 0;
}

int SettingsCommands::CodesSet() {
  Session s(settings_dir_, company_, format_);
  s.F.cmdAssEcodes_Click();
  if (s.ui.messages > 0) return Refused("the company's rows could not be shown alone");
  DataGrid& grid = s.F.ECode.ECodeGrid;
  // The last row of the category is the one a run uses.
  std::optional<std::size_t> target;
  for (std::size_t row = 0; row < grid.RowCount(); ++row) {
    if (grid.Row(row).HrsPos == category_) target = row;
  }
  if (!target) {
    target = grid.AddRow();
    if (!target) return Refused("the earning codes could not be read");
    grid.SetText(*target, grid.ColumnIndex("Company"), company_);
    grid.SetText(*target, grid.ColumnIndex("HrsPos"), std::to_string(category_));
  }
  const struct {
    CLI::Option* given;
    std::string_view column;
    const std::string& text;
  } kEdits[] = {{de_opt_, "DorE", de_},
                {code_opt_, "Earning_Code", code_},
                {hours_opt_, "Hours_or_Amount", hours_or_amount_},
                {shift_opt_, "Shift", shift_},
                {skip_opt_, "Skip", skip_}};
  for (const auto& edit : kEdits) {
    if (edit.given->count() == 0) continue;
    if (!grid.SetText(*target, grid.ColumnIndex(edit.column), edit.text)) {
      return Refused(std::string(edit.column) + " takes a whole number, not \"" + edit.text + "\"");
    }
  }
  return SaveAs(s.ui, [&] { s.F.ECode.cmdCloseForm_Click(); });
}

int SettingsCommands::CodesDelete() {
  Session s(settings_dir_, company_, format_);
  s.F.cmdAssEcodes_Click();
  if (s.ui.messages > 0) return Refused("the company's rows could not be shown alone");
  DataGrid& grid = s.F.ECode.ECodeGrid;
  for (std::size_t row = grid.RowCount(); row-- > 0;) {
    if (grid.Row(row).HrsPos == category_) grid.DeleteRow(row);
  }
  return SaveAs(s.ui, [&] { s.F.ECode.cmdCloseForm_Click(); });
}

int SettingsCommands::Kronos8(bool set) {
  Session s(settings_dir_, company_, format_);
  frmKv8& form = s.F.Kv8;
  form.Form_Load();
  if (s.ui.messages > 0) return set ? Refused("the company's settings could not be gathered") : 1;
  if (set) {
    TypeChoices(form, employee_number_, pay_rate_, department_);
    for (int n = 0; n < 6; ++n) {
      if (custom_[n].empty()) continue;
      if (custom_[n] == "none")
        form.List_DblClick(n + 1);
      else
        SelectIndex(form.List[n], CustomIndex(custom_[n]));
    }
    return SaveAs(s.ui, [&] { form.cmdClose_Click(); });
  }
  PrintChoices(form, company_);
  for (int n = 0; n < 6; ++n) {
    std::cout << "custom" << n + 1 << "=" << CustomWord(form.List[n].list_index) << "\n";
  }
  return 0;
}

int SettingsCommands::TimeManager(bool set) {
  Session s(settings_dir_, company_, format_);
  frmTMdept& form = s.F.TMdept;
  form.ReadSettings();
  if (s.ui.messages > 0) return set ? Refused("the company's settings could not be gathered") : 1;
  Control* lengths[] = {&form.DivLen, &form.BrLen, &form.DeptLen, &form.TeamLen};
  Control* includes[] = {&form.DivInc, &form.BrInc, &form.DeptInc, &form.TeamInc};
  static constexpr const char* kNames[] = {"div", "br", "dept", "team"};
  if (set) {
    TypeChoices(form, employee_number_, pay_rate_, department_);
    // Each segment as an operator types it: the length, which sets the flag, then the flag.
    for (int seg = 0; seg < 4; ++seg) {
      if (!length_[seg].empty()) form.SetText(*lengths[seg], length_[seg]);
      if (!include_[seg].empty()) form.SetText(*includes[seg], include_[seg]);
    }
    if (s.ui.messages > 0) return Refused("a segment length was refused");
    return SaveAs(s.ui, [&] { form.cmdClose_Click(); });
  }
  PrintChoices(form, company_);
  for (int seg = 0; seg < 4; ++seg) {
    std::cout << kNames[seg] << "-len=" << lengths[seg]->text << "\n"
              << kNames[seg] << "-inc=" << includes[seg]->text << "\n";
  }
  return 0;
}

int SettingsCommands::LocationsList() {
  Session s(settings_dir_, company_, format_);
  s.F.LocFile = SettingsPath(settings_dir_, kLocFileName);
  s.F.S[LocNum].text.clear();
  s.F.cmdLookup_Click();
  for (int row = 1; row <= 100; ++row) {
    const std::string first = Trim(s.F.INPData[row][1]);
    if (first.empty()) break;
    std::cout << first;
    for (int col = 2; col <= 15; ++col) std::cout << ',' << s.F.INPData[row][col];
    std::cout << '\n';
  }
  return 0;
}

}  // namespace corvane
