// The main screen as a model of named fields. Translators read its boxes by name while they
// run; the front ends show and edit the same fields.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class Operator;

enum class ControlKind : std::uint8_t {
  kListBox,  // a single-choice list (PickTC)
  kList,     // a plain list of rows (ShowSample)
  kTextBox,
  kLabel,
  kCheckBox,
  kOptionButton,
  kComboBox,
  kCommandButton,
  kDriveList,
  kDirList,
  kFileList,
  kImage,
};
using enum ControlKind;

// Every named control, by name.
enum Ctl : std::uint16_t {
#define X(name, kind, caption, tooltip, text, value, visible) name,
#include "screen/controls.inc"
#undef X
  kControlCount
};

// The pay categories: a label, a D-or-E box and a code box each.
#include "screen/categories.inc"
enum class Cat : std::uint8_t {
#define X(group, label, de, code) group,
  CORVANE_CATEGORIES(X)
#undef X
};
inline constexpr int kCategoryCount = 42;
// The fourteen named groups (Reg to CCTips) come first, in the order of the screen.
inline constexpr int kNamedCategoryCount = 14;
static_assert(static_cast<int>(Cat::e15) == kNamedCategoryCount);

struct CategoryBoxes {
  std::string_view group;
  Ctl label;
  Ctl de;
  Ctl code;
};
const CategoryBoxes& Boxes(Cat category);
// The category of a numbered group, 15 to 42.
Cat Numbered(int n);

struct Control {
  std::string_view name;
  ControlKind kind = kTextBox;
  std::string caption;  // labels, buttons, check boxes, option buttons
  std::string tooltip;
  std::string text;  // text boxes; the path of the folder and file lists; the drive of a drive list
  int value = 0;     // check boxes 0 or 1; option buttons 1 when on
  bool visible = true;
  std::vector<std::string> items;  // lists and combo boxes; the file list's names
  int list_index = -1;             // the selected entry, -1 for none
  std::string pattern;             // the file list's pattern ("*.csv;*.txt")
  std::string file_name;           // the file list's chosen file

  // The selected entry's text, "" with none (a list's Text).
  std::string_view SelectedText() const;
};

class Screen {
 public:
  Screen();

  Control& operator[](Ctl c) { return controls_[c]; }
  const Control& operator[](Ctl c) const { return controls_[c]; }
  // The control of a name, nullptr when the screen has none.
  Control* Find(std::string_view name);
  // The id of a control's name; none when the screen has no control of that name.
  static std::optional<Ctl> IdOf(std::string_view name);
  static std::string_view NameOf(Ctl c);

  // The text of a category's code box and D-or-E box.
  const std::string& Code(Cat c) const { return controls_[Boxes(c).code].text; }
  const std::string& DE(Cat c) const { return controls_[Boxes(c).de].text; }

  // A check box is checked.
  bool Checked(Ctl c) const { return controls_[c].value == 1; }

  // The D-or-E rule, run when the operator leaves a D-or-E box. The three boxes without
  // validation (txtHolDE, txtAdjHde, txtAdjDde) keep whatever was typed.
  static bool Validates(Ctl c);
  void LeaveBox(Ctl c, Operator& ui);

  // Events of the sample panel and the pickers.
  void cmdShowSample_Click();
  void cmdHideSample_Click();
  void ShowSample_Click();
  void drvInput_Change();
  void drvOutput_Change();
  void dirInput_Change();
  void dirOutput_Change();
  // Returns the text that the run's INFile takes.
  std::string filInput_Click();
  // Lists the files of filInput's folder that match its pattern, sorted.
  void filInput_Refresh();

 private:
  std::array<Control, kControlCount> controls_;
};

// Whether a file name matches a pattern of the file list ("*.csv;*.txt", "extpay*", "*").
bool MatchesPattern(std::string_view file_name, std::string_view pattern);

// The one way of showing a pay category group under a label.
class MainUIProperties {
 public:
  explicit MainUIProperties(Screen& screen) : screen_(screen) {}
  // Sets the label's caption, shows or hides label, D-or-E box and code box, and gives the
  // label and the code box the caption as their tool tip.
  void GroupUIVisible(Cat category, bool visible, std::string_view caption);

  void RegUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Reg, v, c); }
  void OTUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::OT, v, c); }
  void DblUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Dbl, v, c); }
  void TipsUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Tips, v, c); }
  void CCTipsUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::CCTips, v, c); }
  void SalesUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Sales, v, c); }
  void WaitOTUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::WaitOT, v, c); }
  void MiscUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Misc, v, c); }
  void DisbUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Disb, v, c); }
  void AbsUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Abs, v, c); }
  void AdjHUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::AdjH, v, c); }
  void AdjDUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::AdjD, v, c); }
  void WaitRegUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::WaitReg, v, c); }
  void HolUIVisible(bool v, std::string_view c) { GroupUIVisible(Cat::Hol, v, c); }
  // e15UIVisible to e42UIVisible.
  void eUIVisible(int n, bool v, std::string_view c) { GroupUIVisible(Numbered(n), v, c); }
  void MinWageUIVisible(bool visible);
  void MiscTextUIVisible(bool visible);

 private:
  Screen& screen_;
};

// Fixed captions of the screen.
inline constexpr std::string_view kPickTCCaption = "Pick a Time Clock layout";
inline constexpr std::string_view kOutputPickerCaption =
    "Where should we put the Evolution Import file?";
inline constexpr std::string_view kFormatChoiceCaption = "Output Format to use:";
inline constexpr std::string_view kDEMessage =
    "Please enter E for Earnings, D for Deductions, H, M or S.";

}  // namespace corvane
