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

void frmTimeImport::LoadSideForms(bool) {}
void frmTimeImport::UnloadSideForms() {}

void frmTimeImport::SelectTimeClock(int index) {
  Control& list = S[PickTC];
  list.list_index = index >= 0 && index < static_cast<int>(list.items.size()) ? index : -1;
  PickTC_Click();
}

void frmTimeImport::PickTC_Click() {
  ResetToNeutral(S);
  ChosenTC = std::string(S[PickTC].SelectedText());
  const ClockConfig* clock = FindClockConfig(ChosenTC);
  if (clock == nullptr || !clock->listed) {
    ShowUnavailable(S);
    return;
  }
  ApplyClock(S, *clock);
}

}  // namespace corvane
