#include "settings/company_choices.hpp"

#include <utility>

namespace corvane {

Control MakeControl(std::string_view name, ControlKind kind, std::string caption,
                    std::string tooltip, std::string text) {
  Control c;
  c.name = name;
  c.kind = kind;
  c.caption = std::move(caption);
  c.tooltip = std::move(tooltip);
  c.text = std::move(text);
  return c;
}

void SwitchOption(Control& button, Control& partner, bool on) {
  button.value = on ? 1 : 0;
  if (on) partner.value = 0;
}

CompanyChoices::CompanyChoices(const Texts& texts)
    : empnoframe(MakeControl("empnoframe", kLabel, "Employee #",
                             "Which column (in Kronos) stores your Employee Numbers?")),
      rdoEmp(MakeControl("rdoEmp", kOptionButton, "Emp #",
                         "The 1st column stores the employee number.")),
      rdoBadge(MakeControl("rdoBadge", kOptionButton, "Badge#", texts.badge)),
      PayRateFrame(MakeControl("PayRateFrame", kLabel, "Override Pay Rate")),
      rdoPRyes(MakeControl("rdoPRyes", kOptionButton, "Yes", texts.pay_rate_yes)),
      rdoPRno(MakeControl("rdoPRno", kOptionButton, "No", texts.pay_rate_no)),
      rdoDeptYes(MakeControl(
          "rdoDeptYes", kOptionButton, "Yes",
          "Yes, override the home Department stored in Payroll with Department Worked.")),
      rdoDeptNo(MakeControl("rdoDeptNo", kOptionButton, "No", texts.dept_no)) {
  rdoEmp.value = rdoPRyes.value = rdoDeptYes.value = 1;
}

void CompanyChoices::SetOption(Control& button, bool on) {
  Control* partner = nullptr;
  if (&button == &rdoEmp) partner = &rdoBadge;
  if (&button == &rdoBadge) partner = &rdoEmp;
  if (&button == &rdoPRyes) partner = &rdoPRno;
  if (&button == &rdoPRno) partner = &rdoPRyes;
  if (&button == &rdoDeptYes) partner = &rdoDeptNo;
  if (&button == &rdoDeptNo) partner = &rdoDeptYes;
  if (partner == nullptr) return;
  SwitchOption(button, *partner, on);
}

void CompanyChoices::ShowChoices(bool emp, bool pay_rate, bool dept) {
  SetOption(rdoEmp, emp);
  if (!emp) SetOption(rdoBadge, true);
  SetOption(rdoPRyes, pay_rate);
  if (!pay_rate) SetOption(rdoPRno, true);
  SetOption(rdoDeptYes, dept);
  if (!dept) SetOption(rdoDeptNo, true);
}

}  // namespace corvane
