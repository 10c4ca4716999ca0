#include "pipeline/time_import.hpp"

#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "screen/catalogue.hpp"

namespace corvane {

frmTimeImport::frmTimeImport(Operator& ui_, Environment env_)
    : ui(ui_),
      env(std::move(env_)),
      ECode(ui),
      Kv8(ui, S, env.settings_dir),
      TMdept(ui, S, env.settings_dir) {
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

void frmTimeImport::LoadSideForms(bool read_tm) {
  if (!kv8_loaded_) {
    kv8_loaded_ = true;
    Kv8.Form_Load();
  }
  Kv8.Hide();
  if (read_tm && !tm_read_) {
    tm_read_ = true;
    TMdept.ReadSettings();
  }
  TMdept.Hide();
}

void frmTimeImport::UnloadSideForms() {
  // Nothing is saved: earning codes and customisations are written only by their Save.
  ECode.ECodeGrid.Bind(nullptr);
  ECode.visible = false;
  rsUsedECodes.reset();
  Kv8.Hide();
  TMdept.Hide();
}

void frmTimeImport::cmdAssEcodes_Click() {
  ::corvane::cmdAssEcodes_Click(ECode, rsUsedECodes, env.settings_dir, S, ui);
}

void frmTimeImport::cmdKv8_Click() {
  Kv8.Set_rsK8();
  Kv8.Show();
}

void frmTimeImport::cmdTM_Click() {
  TMdept.cmdTM_Click();
}

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
  } else {
    ApplyClock(S, *clock);
    for (const ClockShow& show : clock->shows) {
      if (show.control == "frmTMdept.lblTitle" && show.text) TMdept.lblTitle.caption = *show.text;
    }
  }
  S.filInput_Refresh();
}

}  // namespace corvane
