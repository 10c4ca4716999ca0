// The Kronos v8 customisation: per company, which column holds the employee number, whether
// the file's pay rates and worked departments count, and where the six custom fields go.
// Kept in TimeImport_K8settings.dat and edited on the form frmKv8. The Kronos v8 translator
// reads the form's controls, not the table, so the form must hold the company's settings
// when a run starts.
#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

#include "runtime/value.hpp"
#include "screen/screen.hpp"
#include "settings/company_choices.hpp"
#include "settings/recordset.hpp"

namespace corvane {

class Operator;

// One line of TimeImport_K8settings.dat, columns in file order.
struct K8Row {
  std::string Company;  // company number, as typed in CoNum; compared as exact text
  bool Emp = true;      // employee number in the first column; false: the badge column
  bool PayRat = true;   // use the pay rates of the Kronos file
  bool Dept = true;     // the department worked overrides the home department
  // Cus1 to Cus6: the index selected in List1 to List6 (0 job, 1 division, 2 branch);
  // -1 sends the custom field nowhere.
  std::array<long, 6> Cus{-1, -1, -1, -1, -1, -1};
};

// The row's line in the file, every field in double quotes, Booleans as True or False:
// "123","True","False","True","0","-1","-1","-1","-1","-1". No line end.
std::string K8Line(const K8Row& row);

// What the two customisation forms share: they keep their files and their option buttons
// alike.
//
// Fields joined by commas, each enclosed in double quotes as it stands.
std::string QuotedLine(std::initializer_list<std::string_view> fields);
std::string_view BooleanText(bool b);  // "True" or "False"
// A Boolean column read from a settings file: "True" or "False" in any case, a number or
// numeric text (0 is False), blank as False. Other text raises 13.
bool BooleanField(const Value& field);
// Selects an entry of a list; -1 selects none. An index the list does not have raises 380
// and leaves the selection as it was.
void SelectIndex(Control& list, long index);

class frmKv8 : public CompanyChoices {
 public:
  // The form at its design values, hidden. Nothing is read until Form_Load.
  frmKv8(Operator& ui, const Screen& main, std::string settings_dir);
  frmKv8(const frmKv8&) = delete;
  frmKv8& operator=(const frmKv8&) = delete;

  // Loads the form hidden at program start: reads the settings file into rsK8 (a missing
  // folder or file is made empty, no message) and brings the controls in line with CoNum.
  // Reading stops at the first row that cannot be read, keeping the rows before it; the
  // controls are then left as they are.
  void Form_Load();
  // Brings the controls in line with the company in CoNum, adding that company's row with
  // the defaults when it has none. A failure shows "Warning - error occurred with gathering
  // Kronos 8 data for <CoNum>".
  void Set_rsK8();
  // Double-click on List1 to List6 (n from 1): the list selects nothing.
  void List_DblClick(int n);
  // Discards what was changed on the form and hides it.
  void cmdCancel_Click();
  // "Save": writes the controls into the company's row and replaces the file with the whole
  // table. A company holding an apostrophe raises to the caller; a file that cannot be
  // replaced is left as it was, with a message, and the form stays shown.
  void cmdClose_Click();
  // Shown without blocking the main screen.
  void Show() { visible = true; }
  void Hide() { visible = false; }

  Control& List1() { return List[0]; }
  Control& List2() { return List[1]; }
  Control& List3() { return List[2]; }
  Control& List4() { return List[3]; }
  Control& List5() { return List[4]; }
  Control& List6() { return List[5]; }

  // The form's title and whether it is shown.
  std::string caption;
  bool visible = false;

  Control lblTitle;
  Control Frame1;                // the frame of the department choice
  std::array<Control, 6> List;   // List1 to List6, one per custom field
  std::array<Control, 6> Label;  // Label1 to Label6, "1." to "6."
  Control Label7;                // the custom fields' heading
  Control cmdClose, cmdCancel;

  // One row per company, all companies in one table.
  Recordset<K8Row> rsK8;

 private:
  // The company's row shown on the controls.
  void ShowRow(const K8Row& row);

  Operator& ui_;
  const Screen& main_;
  std::string settings_dir_;
};

}  // namespace corvane
