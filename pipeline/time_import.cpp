#include "pipeline/time_import.hpp"

#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "screen/catalogue.hpp"

namespace corvane {

frmTimeImport::frmTimeImport(Operator& ui_, Environment env_) : ui(ui_), env(std::move(env_)) {
  Control& list = S[PickTC];
  for (std::string_view name : CatalogueNames()) list.items.emplace_back(name);
}

frmTimeImport::~frmTimeImport() = default;

InputFile& frmTimeImport::File(int number) {
  if (number < 1 || number >= static_cast<int>(files_.size())) Raise(kBadFileNameOrNumber);
  return files_[number];
}

MsgAnswer frmTimeImport::MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) {
  return ui.MsgBox(text, buttons, title);
}

void frmTimeImport::Form_Load() {
  Caption = std::string(kFormCaption) + " - v" + std::to_string(kVersionMajor) + "." +
            std::to_string(kVersionMinor);
  if (kVersionRevision > 0) Caption += "." + std::to_string(kVersionRevision);
  exceptNotice = false;
  quote = "\"";
  S[pdEndDate].text = ShortDate(env.today);
  // Until the stored settings are read, every start is a first start: the factory state.
  Set_Defaults();
}

void frmTimeImport::Set_Defaults() {
  NumHoursColumns = 6;
  SelectTimeClock(0);
  S[CoNum].text = "123";
  static constexpr struct {
    Cat category;
    const char* code;
  } kFactoryCodes[] = {
      {Cat::Reg, "2"},     {Cat::OT, "3"},      {Cat::Dbl, "4"},   {Cat::Tips, "5"},
      {Cat::Sales, "6"},   {Cat::Misc, "7"},    {Cat::Disb, "8"},  {Cat::Abs, "9"},
      {Cat::Hol, "10"},    {Cat::AdjH, "11"},   {Cat::AdjD, "12"}, {Cat::WaitReg, "61"},
      {Cat::WaitOT, "62"}, {Cat::CCTips, "69"},
  };
  for (const auto& f : kFactoryCodes) {
    S[Boxes(f.category).de].text = "E";
    S[Boxes(f.category).code].text = f.code;
  }
  for (Ctl wg : {cmboWG1, cmboWG2, cmboWG3}) S[wg].list_index = 0;
  S[ShowSample].visible = false;
}

void frmTimeImport::SelectTimeClock(int index) {
  Control& list = S[PickTC];
  list.list_index = index >= 0 && index < static_cast<int>(list.items.size()) ? index : -1;
  PickTC_Click();
}

void frmTimeImport::PickTC_Click() {
  ChosenTC = std::string(S[PickTC].SelectedText());
}

}  // namespace corvane
