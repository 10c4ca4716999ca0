#include "settings/timemanager.hpp"

#include <string>
#include <utility>

#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/infile.hpp"
#include "runtime/text.hpp"
#include "runtime/value.hpp"
#include "screen/operator.hpp"
#include "settings/company_table.hpp"
#include "settings/kronos8.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

namespace {

constexpr std::string_view kMessageTitle = "Corvane - Time Manager";
// No segment string is longer than this.
constexpr double kMaxTotalLength = 15;

Control LengthBox(std::string_view name, std::string_view segment) {
  return MakeControl(name, kTextBox, "", "Enter length of the " + std::string(segment) + " segment",
                     "0");
}

Control IncludeBox(std::string_view name, std::string_view segment) {
  return MakeControl(name, kTextBox, "",
                     "Send the " + std::string(segment) + " segment to Evolution? (T or F)", "F");
}

// A length box's number; one that is not numeric counts as nothing.
double LengthOf(const Control& box) {
  return NumericValue(box.text).value_or(0);
}

// One row of the file: twelve items, whatever the line structure. A row cut short raises,
// and the caller keeps only the rows read whole.
TMRow ReadTMRow(InputFile& in) {
  TMRow row;
  Value field;
  in.Input(row.Company);
  in.Input(field);
  row.Emp = BooleanField(field);
  in.Input(field);
  row.PayRat = BooleanField(field);
  in.Input(field);
  row.Dept = BooleanField(field);
  for (auto [length, include] :
       {std::pair{&row.DivLen, &row.DivInc}, std::pair{&row.BrLen, &row.BrInc},
        std::pair{&row.DeptLen, &row.DeptInc}, std::pair{&row.TeamLen, &row.TeamInc}}) {
    in.Input(field);
    *length = ToLong(field);
    in.Input(*include);
  }
  return row;
}

}  // namespace

std::string TMLine(const TMRow& row) {
  const std::string div = std::to_string(row.DivLen), br = std::to_string(row.BrLen),
                    dept = std::to_string(row.DeptLen), team = std::to_string(row.TeamLen);
  return QuotedLine({row.Company, BooleanText(row.Emp), BooleanText(row.PayRat),
                     BooleanText(row.Dept), div, row.DivInc, br, row.BrInc, dept, row.DeptInc, team,
                     row.TeamInc});
}

frmTMdept::frmTMdept(Operator& ui, const Screen& main, std::string settings_dir)
    : CompanyChoices({.badge = "The 3rd column (badge#) stores our Employee numbers.",
                      .pay_rate_yes = "Yes to use the Pay Rates in Time Manager (not Payroll).",
                      .pay_rate_no = "No, use the Pay Rates from Payroll (not Time Manager).",
                      .dept_no = "No, use the home department."}),
      caption("Time Manager Customization"),
      lblTitle(MakeControl("lblTitle", kLabel, "Customize Time Manager")),
      // The buttons of a frame show only when their frame does.
      DeptFrame(MakeControl("DeptFrame", kLabel, "Department Worked",
                            "Map Department Worked to Override the Department code in Payroll?")),
      Label7(MakeControl("Label7", kLabel, "Department Break-out")),
      lblLen(MakeControl("lblLen", kLabel, "Segment Length")),
      lblInc(MakeControl("lblInc", kLabel, "Include Segment? (T/F)")),
      lblDiv(MakeControl("lblDiv", kLabel, "Division")),
      DivLen(LengthBox("DivLen", "Division")),
      DivInc(IncludeBox("DivInc", "Division")),
      lblBr(MakeControl("lblBr", kLabel, "Branch")),
      BrLen(LengthBox("BrLen", "Branch")),
      BrInc(IncludeBox("BrInc", "Branch")),
      lblDept(MakeControl("lblDept", kLabel, "Department")),
      DeptLen(LengthBox("DeptLen", "Department")),
      DeptInc(IncludeBox("DeptInc", "Department")),
      lblTeam(MakeControl("lblTeam", kLabel, "Team")),
      TeamLen(LengthBox("TeamLen", "Team")),
      TeamInc(IncludeBox("TeamInc", "Team")),
      cmdClose(MakeControl("cmdClose", kCommandButton, "Save")),
      cmdCancel(MakeControl("cmdCancel", kCommandButton, "Cancel")),
      ui_(ui),
      main_(main),
      settings_dir_(std::move(settings_dir)) {}

std::array<frmTMdept::Segment, 4> frmTMdept::Segments() {
  return {{{&DivLen, &DivInc, "Division"},
           {&BrLen, &BrInc, "Branch"},
           {&DeptLen, &DeptInc, "Department"},
           {&TeamLen, &TeamInc, "Team"}}};
}

void frmTMdept::SetText(Control& box, std::string text) {
  // A box whose text does not change raises no change event; this is also what stops a
  // handler that clears its own box from running again and again.
  if (box.text == text) return;
  box.text = std::move(text);
  const auto segments = Segments();
  for (std::size_t i = 0; i < segments.size(); ++i) {
    if (&box == segments[i].length) Len_Change(static_cast<int>(i));
    if (&box == segments[i].include) Inc_Change(static_cast<int>(i));
  }
}

void frmTMdept::Len_Change(int segment) {
  const auto segments = Segments();
  const Segment& s = segments[static_cast<std::size_t>(segment)];
  if (!IsNumeric(s.length->text)) {
    ui_.MsgBox("Length of " + std::string(s.name) + " segment must be a number", MsgButtons::OKOnly,
               kMessageTitle);
    SetText(*s.length, "0");
  }
  double total = 0;
  for (const Segment& each : segments) total += LengthOf(*each.length);
  if (total > kMaxTotalLength) {
    // The box being edited gives way, even when another holds the larger length.
    ui_.MsgBox("Total of all segments can not be greater than 15.", MsgButtons::OKOnly,
               kMessageTitle);
    SetText(*s.length, "0");
  }
  // A segment with a length is sent unless the operator then says otherwise.
  SetText(*s.include, LengthOf(*s.length) == 0 ? "F" : "T");
}

void frmTMdept::Inc_Change(int segment) {
  Control& include = *Segments()[static_cast<std::size_t>(segment)].include;
  SetText(include, UCase(include.text));
  if (include.text != "T" && include.text != "F") SetText(include, "F");
}

void frmTMdept::ReadSettings() {
  LoadCompanyTable(rsTM, settings_dir_, kTMFileName, ReadTMRow, [this] { Set_rsTM(); });
}

void frmTMdept::ShowRow(const TMRow& row) {
  ShowChoices(row.Emp, row.PayRat, row.Dept);
  // The stored values are shown as saved: the boxes' validation is for the operator's
  // edits, and checking a company's lengths against the boxes of the company shown before
  // would clear lengths that were valid when saved.
  DivLen.text = std::to_string(row.DivLen);
  DivInc.text = row.DivInc;
  BrLen.text = std::to_string(row.BrLen);
  BrInc.text = row.BrInc;
  DeptLen.text = std::to_string(row.DeptLen);
  DeptInc.text = row.DeptInc;
  TeamLen.text = std::to_string(row.TeamLen);
  TeamInc.text = row.TeamInc;
}

void frmTMdept::Set_rsTM() {
  const std::string& company = main_[CoNum].text;
  try {
    // A company met for the first time gets its row with the defaults.
    ShowRow(CompanyRow(rsTM, company));
  } catch (const RuntimeError&) {
    ui_.MsgBox("Warning - error occurred with gathering Time Manager data for " + company,
               MsgButtons::OKOnly, "Corvane");
  }
}

void frmTMdept::cmdTM_Click() {
  if (main_[cmdTM].caption == "Department Breakout") {
    caption = "Kronos/ADP Customization";
    empnoframe.visible = PayRateFrame.visible = DeptFrame.visible = false;
    // "Kronos v6 csv" breaks out only Branch and Department. The hidden boxes keep their
    // values, and Save writes them back as they are.
    if (main_[PickTC].SelectedText() == "Kronos v6 csv") {
      for (Control* c : {&lblDiv, &DivLen, &DivInc, &lblTeam, &TeamLen, &TeamInc}) {
        c->visible = false;
      }
    }
  } else {
    caption = "Time Manager Customization";
    for (Control* c : {&empnoframe, &PayRateFrame, &DeptFrame, &lblDiv, &DivLen, &DivInc, &lblTeam,
                       &TeamLen, &TeamInc}) {
      c->visible = true;
    }
  }
  Show();
}

void frmTMdept::cmdCancel_Click() {
  Set_rsTM();
  Hide();
}

void frmTMdept::cmdClose_Click() {
  // No row shows when the start did not read the settings file, or when CoNum changed to
  // a company the form never met while it was open: that company gets its row, so that
  // what the operator entered is saved rather than lost.
  TMRow& row = CompanyRow(rsTM, main_[CoNum].text);
  // The lengths are read before the row changes, so a box that is no number leaves the
  // row as it was.
  TMRow entered;
  entered.Company = row.Company;
  entered.Emp = rdoEmp.value == 1;
  entered.PayRat = rdoPRyes.value == 1;
  entered.Dept = rdoDeptYes.value == 1;
  entered.DivLen = ToLong(Value(DivLen.text));
  entered.DivInc = DivInc.text;
  entered.BrLen = ToLong(Value(BrLen.text));
  entered.BrInc = BrInc.text;
  entered.DeptLen = ToLong(Value(DeptLen.text));
  entered.DeptInc = DeptInc.text;
  entered.TeamLen = ToLong(Value(TeamLen.text));
  entered.TeamInc = TeamInc.text;
  row = std::move(entered);
  try {
    SaveCompanyTable(rsTM, settings_dir_, kTMFileName, TMLine);
  } catch (const RuntimeError& error) {
    // The file keeps what was saved before; the form stays open with the operator's choices,
    // so that Save can be pressed again.
    ui_.MsgBox(SaveFailedText(kTMNotSaved, error), MsgButtons::OKOnly, "Corvane");
    return;
  }
  Hide();
}

}  // namespace corvane
