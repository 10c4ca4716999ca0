// The Time Manager customisation: per company, the employee-number column, pay rate and
// department choices, and how the department string breaks into Division, Branch,
// Department and Team segments. Kept in TimeImport_TMsettings.dat and edited on the form
// frmTMdept, which also serves as the department breakout of "Kronos/ADP", "Kronos v6 csv"
// and "Aloha v6". The translators read the form's controls, not the table.
#pragma once

#include <array>
#include <string>

#include "screen/screen.hpp"
#include "settings/company_choices.hpp"
#include "settings/recordset.hpp"

namespace corvane {

class Operator;

// One line of TimeImport_TMsettings.dat, columns in file order. The four lengths add up to
// 15 at most; an include flag is "T" to send its segment, "F" not.
struct TMRow {
  std::string Company;  // company number, as typed in CoNum; compared as exact text
  bool Emp = true;      // employee number in the first column; false: the badge column
  bool PayRat = true;   // use Time Manager's pay rates
  bool Dept = true;     // the department worked overrides the home department
  long DivLen = 0;
  std::string DivInc = "F";
  long BrLen = 0;
  std::string BrInc = "F";
  long DeptLen = 0;
  std::string DeptInc = "F";
  long TeamLen = 0;
  std::string TeamInc = "F";
};

// The row's line in the file, every field in double quotes:
// "123","True","True","False","2","T","2","T","4","T","3","F". No line end.
std::string TMLine(const TMRow& row);

class frmTMdept : public CompanyChoices {
 public:
  // The form at its design values, hidden, with an empty table. Nothing is read until
  // ReadSettings.
  frmTMdept(Operator& ui, const Screen& main, std::string settings_dir);
  frmTMdept(const frmTMdept&) = delete;
  frmTMdept& operator=(const frmTMdept&) = delete;

  // Reads the settings file into rsTM (a missing folder or file is made empty, no message)
  // and brings the controls in line with CoNum. Reading stops at the first row that cannot
  // be read, keeping the rows before it; the controls are then left as they are.
  void ReadSettings();
  // Brings the controls in line with the company in CoNum, adding that company's row with
  // the defaults when it has none. The stored values are shown as they are, without the
  // boxes' validation. A failure shows "Warning - error occurred with gathering Time
  // Manager data for <CoNum>".
  void Set_rsTM();
  // The main screen's cmdTM: the title and the visible groups follow the button's caption
  // and the chosen time clock; then the form is shown without blocking.
  void cmdTM_Click();
  // Discards what was changed on the form and hides it.
  void cmdCancel_Click();
  // "Save": writes the controls into the company's row and replaces the file with the whole
  // table. A company holding an apostrophe raises to the caller; a file that cannot be
  // replaced is left as it was, with a message, and the form stays shown.
  void cmdClose_Click();
  void Show() { visible = true; }
  void Hide() { visible = false; }

  // Puts text into a box as typing does: when the text changes, the box's change handler
  // runs (for the length and include boxes; other controls have none).
  void SetText(Control& box, std::string text);

  // Change handlers of the length boxes: a length must be a number and the four may not
  // add up to more than 15; the edited box is the one cleared. A length drives its include
  // flag: 0 gives "F", any other "T".
  void DivLen_Change() { Len_Change(0); }
  void BrLen_Change() { Len_Change(1); }
  void DeptLen_Change() { Len_Change(2); }
  void TeamLen_Change() { Len_Change(3); }
  // Change handlers of the include boxes: upper-cased, and anything but "T" or "F" is "F".
  void DivInc_Change() { Inc_Change(0); }
  void BrInc_Change() { Inc_Change(1); }
  void DeptInc_Change() { Inc_Change(2); }
  void TeamInc_Change() { Inc_Change(3); }

  // The form's title and whether it is shown.
  std::string caption;
  bool visible = false;

  // The heading; the time clock's selection on the main screen replaces it.
  Control lblTitle;
  Control DeptFrame;               // the frame of the department choice
  Control Label7, lblLen, lblInc;  // the breakout's heading and its two column heads
  Control lblDiv, DivLen, DivInc;
  Control lblBr, BrLen, BrInc;
  Control lblDept, DeptLen, DeptInc;
  Control lblTeam, TeamLen, TeamInc;
  Control cmdClose, cmdCancel;

  // One row per company, all companies in one table.
  Recordset<TMRow> rsTM;

 private:
  // A segment's boxes, in column order: Division, Branch, Department, Team.
  struct Segment {
    Control* length;
    Control* include;
    const char* name;  // as the messages call it
  };
  std::array<Segment, 4> Segments();
  void Len_Change(int segment);
  void Inc_Change(int segment);
  // The company's row shown on the controls.
  void ShowRow(const TMRow& row);

  Operator& ui_;
  const Screen& main_;
  std::string settings_dir_;
};

}  // namespace corvane
