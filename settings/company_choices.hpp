// What both customisation forms offer per company besides their own fields: three choices,
// each a pair of option buttons in a frame.
#pragma once

#include <string>
#include <string_view>

#include "screen/screen.hpp"

namespace corvane {

// A control of a side form at its design values.
Control MakeControl(std::string_view name, ControlKind kind, std::string caption,
                    std::string tooltip = {}, std::string text = {});

// Switches an option button on or off. Only one button of a frame is on, so switching one
// on switches its partner off; switching one off leaves the partner as it is.
void SwitchOption(Control& button, Control& partner, bool on);

// Which column holds the employee number, whether the file's pay rates count, and whether
// the department worked overrides the home department. The department frame is each form's
// own (it carries another name on each).
class CompanyChoices {
 public:
  // Frames are labels here: a caption and a help text over their buttons.
  Control empnoframe, rdoEmp, rdoBadge;
  Control PayRateFrame, rdoPRyes, rdoPRno;
  Control rdoDeptYes, rdoDeptNo;

  // Switches one of the option buttons, and its partner with it.
  void SetOption(Control& button, bool on);

 protected:
  // The help texts that differ between the two forms.
  struct Texts {
    std::string badge, pay_rate_yes, pay_rate_no, dept_no;
  };
  explicit CompanyChoices(const Texts& texts);
  // A company's stored choices on the buttons.
  void ShowChoices(bool emp, bool pay_rate, bool dept);
};

}  // namespace corvane
