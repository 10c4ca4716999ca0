// The AE time clocks: 131-byte binary records whose one-letter code picks the category
// ("AE v1.0.27.6"), and a comma export of pay designations, each paid by the company's
// earning code for it, with three work groups that the screen's combo boxes place in the
// record ("AE v1.0.28.616").
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "settings/ecode_data.hpp"

namespace corvane {

namespace {

// What these clocks never send: cleared before anything is filled, so nothing of the previous
// record leaks into this one. Shift, Department and the earning code are not among them.
void AE_RecordDefaults(ImportRecord& r) {
  r.DorE = "E";
  r.Amount = "";
  r.payrate = r.Division = r.Branch = r.Job = r.Team = "";
  r.SSN = "";
  r.Seq = "1";
}

// ---------------------------------------------------------------------------------------------
// "AE v1.0.27.6": records of 131 bytes, line end included. The record's own D-or-E stands
// until a known code applies its category's.

void AEv10276(frmTimeImport& F) {
  const std::string& rec = F.InRec;
  ImportRecord& r = F.ImportRec;
  // The record's fields are filled after the defaults, so that they go out.
  AE_RecordDefaults(r);
  r.Employee_no = Trim(Mid(rec, 1, 6));
  r.Division = Mid(rec, 32, 1);
  r.Branch = Mid(rec, 33, 2);
  r.Department = Mid(rec, 35, 3);
  r.DorE = Mid(rec, 51, 1);
  const std::string code = Mid(rec, 52, 1);
  const std::string hours = Mid(rec, 63, 8);
  if (!F.AuditStream) Raise(kObjectNotSet);
  F.AuditStream->WriteLine("Employee_num: " + r.Employee_no.str());
  if (!IsNumeric(hours)) return;
  r.Hours = Format(Value(hours), "0.0#");
  if (r.Hours == Value("0.0")) return;
  static constexpr std::pair<std::string_view, Cat> kCodes[] = {
      {"1", Cat::Reg}, {"2", Cat::OT}, {"V", Cat::Tips}, {"H", Cat::Hol}, {"S", Cat::Sales},
  };
  bool known = false;
  for (const auto& [letter, category] : kCodes) {
    if (code == letter) {
      F.Apply(category);
      known = true;
    }
  }
  if (!known) {
    // the hours still go out, under the earning code of the record before
    F.MsgBox("Unexpected Earning Code: " + code + " for EE# " + r.Employee_no.str() + " - " +
             r.Hours.str() + " hours");
  }
  F.WriteOutputRec();
}

// ---------------------------------------------------------------------------------------------
// "AE v1.0.28.616": a heading line, then rows of 23 columns. A row is one pay designation of
// one employee; the company's earning-code table says what the designation pays.

enum AE616Column {
  AE616_Name,
  AE616_ID,
  AE616_SSN,
  AE616_HomeWG1,
  AE616_HomeWG2,
  AE616_HomeWG3,
  AE616_HomeRate,
  AE616_PayClass,
  AE616_PayDes,
  AE616_Hours,
  AE616_Dollars,
  AE616_EffectiveRate,
  AE616_WorkedWG1,
  AE616_WorkedWG2,
  AE616_WorkedWG3,
  AE616_PeriodStart,
  AE616_PeriodEnd,
  AE616_WG1Code,
  AE616_WG2Code,
  AE616_WG3Code,
  AE616_WorkedWG1Code,
  AE616_WorkedWG2Code,
  AE616_WorkedWG3Code,
  AE616_Columns
};

struct AEv1028616Fields {
  std::array<Value, AE616_Columns> AE616_F;
};

bool AEv1028616Read(frmTimeImport& F) {
  auto& f = F.Fields<AEv1028616Fields>().AE616_F;
  for (Value& column : f) F.File(1).Input(column);
  return true;
}

// A worked work group of "DEFAULT" is the worked group's own column.
void AEv1028616_WorkGroups(std::array<Value, AE616_Columns>& f) {
  static constexpr std::pair<AE616Column, AE616Column> kGroups[] = {
      {AE616_WorkedWG1Code, AE616_WorkedWG1},
      {AE616_WorkedWG2Code, AE616_WorkedWG2},
      {AE616_WorkedWG3Code, AE616_WorkedWG3},
  };
  for (const auto& [code, worked] : kGroups) {
    if (UCase(Trim(f[code])) == "DEFAULT") f[code] = f[worked];
  }
}

// A work group goes where its combo box says: to the division, branch or department when
// their boxes are checked, to the team always.
void AEv1028616_Place(frmTimeImport& F, Ctl combo, const Value& group) {
  ImportRecord& r = F.ImportRec;
  const std::string_view holds = F.S[combo].SelectedText();
  if (holds == "Division") {
    if (F.S.Checked(chkDiv)) r.Division = group;
  } else if (holds == "Branch") {
    if (F.S.Checked(chkBr)) r.Branch = group;
  } else if (holds == "Department") {
    if (F.S.Checked(chkDept)) r.Department = group;
  } else if (holds == "Team") {
    r.Team = group;
  }
}

void AEv1028616(frmTimeImport& F) {
  auto& f = F.Fields<AEv1028616Fields>().AE616_F;
  ImportRecord& r = F.ImportRec;
  if (!F.rsECodes) Raise(kObjectNotSet);
  F.rsECodes->FilterField(F.rsECodes->rsECodes, "Company", F.S[CoNum].text);
  AE_RecordDefaults(r);
  r.Employee_Name = f[AE616_Name];
  r.Employee_no = f[AE616_ID];
  if (F.S.Checked(chkSSN)) {
    r.SSN = Trim(Format(f[AE616_SSN], "000000000"));
    // a number of zeros is no social security number
    if (r.SSN == "000000000") r.SSN = "";
  }
  AEv1028616_WorkGroups(f);
  AEv1028616_Place(F, cmboWG1, f[AE616_WorkedWG1Code]);
  AEv1028616_Place(F, cmboWG2, f[AE616_WorkedWG2Code]);
  AEv1028616_Place(F, cmboWG3, f[AE616_WorkedWG3Code]);
  if (F.S.Checked(chkPayRate) && ToInteger(f[AE616_EffectiveRate]) > 0) {
    r.payrate = f[AE616_EffectiveRate];
  }

  // A designation beyond a 16-bit integer, or text, ends the reading.
  const std::int16_t PayDes = ToInteger(f[AE616_PayDes]);
  std::string DolHrs = "H";
  std::int16_t eShift = 1;
  std::string eSkip = "N";
  const bool found = SetEcodes(F.rsECodes->rsECodes, PayDes, DolHrs, eShift, eSkip, r);
  F.Result = found ? "True" : "False";
  if (eSkip != "Y") {
    r.Shift = std::to_string(eShift);
    if (DolHrs == "$") {
      r.Hours = "";
      r.Amount = f[AE616_Dollars].str();
    } else {
      r.Amount = "";
      r.Hours = f[AE616_Hours];
    }
    F.WriteOutputRec();
  }
  if (r.Earning_Code == Value("?")) {
    // The designation is reported at the end of the run; one past the list's 99 entries has
    // no place, and the error ends the reading.
    if (PayDes < 0 || PayDes > 99) Raise(kSubscriptOutOfRange);
    F.ColumnValues[static_cast<std::size_t>(PayDes)] = "X";
  }
}

}  // namespace

extern const Translator kAEv10276Translator{
    .name = "AEv10276",
    .translate = AEv10276,
};

extern const Translator kAEv1028616Translator{
    .name = "AEv1028616",
    .heading_lines = 1,
    .read = AEv1028616Read,
    .translate = AEv1028616,
};

}  // namespace corvane
