// The Infotronics family: a comma export of one row per employee with a column per category
// ("Infotronics"), the AE export that knows its employees by social security number
// ("Infotronics AE 1.0.3"), and a file of fixed columns whose own codes are looked up in the
// code file "ECodes.txt" of the input folder ("Infotronics 2").
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// What these clocks never send: cleared before anything is filled, so nothing of the previous
// row leaks into this one. Shift, Department and the earning code are not among them.
void ITron_RecordDefaults(ImportRecord& r) {
  r.DorE = "E";
  r.Amount = "";
  r.payrate = r.Division = r.Branch = r.Job = r.Team = "";
  r.SSN = "";
  r.Seq = "1";
}

// ---------------------------------------------------------------------------------------------
// "Infotronics": 33 fields a row, the first row the heading. A row with a blank first field is
// passed over, uncounted, and the reading goes on at its second field.

struct InfotronicsFields {
  std::array<Value, 34> ITron_F;  // by field, from 1
};

enum InfotronicsField {
  ITron_Name = 1,
  ITron_EmpNo = 2,
  ITron_Reg = 4,
  ITron_OT = 5,
  ITron_Dbl = 6,
  ITron_Tips = 7,
  ITron_Misc = 8,
  ITron_Sales = 9,
  ITron_Disb = 10,
};

void Infotronics_ReadFields(frmTimeImport& F, int from, int to) {
  auto& f = F.Fields<InfotronicsFields>().ITron_F;
  for (int k = from; k <= to; ++k) F.File(1).Input(f[static_cast<std::size_t>(k)]);
}

void InfotronicsHeading(frmTimeImport& F) {
  Infotronics_ReadFields(F, 1, 33);
}

bool InfotronicsRead(frmTimeImport& F) {
  Infotronics_ReadFields(F, 1, 1);
  if (Trim(F.Fields<InfotronicsFields>().ITron_F[ITron_Name]).empty()) return false;
  Infotronics_ReadFields(F, 2, 33);
  return true;
}

void Infotronics(frmTimeImport& F) {
  const auto& f = F.Fields<InfotronicsFields>().ITron_F;
  ImportRecord& r = F.ImportRec;
  r.Employee_no = Trim(f[ITron_EmpNo]);
  r.Employee_Name = Trim(f[ITron_Name]);
  ITron_RecordDefaults(r);
  // Sales stands after misc in the row but goes out before it.
  static constexpr std::pair<InfotronicsField, Cat> kHours[] = {
      {ITron_Reg, Cat::Reg},   {ITron_OT, Cat::OT},       {ITron_Dbl, Cat::Dbl},
      {ITron_Tips, Cat::Tips}, {ITron_Sales, Cat::Sales}, {ITron_Misc, Cat::Misc},
  };
  for (const auto& [field, category] : kHours) {
    const Value& hours = f[field];
    // a blank column counts as 0; text is not 0 and goes to the writer as it stands
    if (hours != Value(0)) F.WriteHours(category, hours);
  }
  if (f[ITron_Disb].ToNumber() != 0) F.WriteDollars(Cat::Disb, f[ITron_Disb].str());
}

// ---------------------------------------------------------------------------------------------
// "Infotronics AE 1.0.3": a heading line, then rows of nine fields: name, seven hours columns
// and the social security number, which is how the payroll knows the employee.

struct InfotronicsAEv103Fields {
  Value AE103_Name, AE103_Reg, AE103_OT, AE103_Tips, AE103_Sales, AE103_Hol, AE103_Misc, AE103_Disb;
  std::string AE103_SSN;  // text: its leading zeros are part of the number
};

bool InfotronicsAEv103Read(frmTimeImport& F) {
  InfotronicsAEv103Fields& in = F.Fields<InfotronicsAEv103Fields>();
  InputFile& file = F.File(1);
  for (Value* field : {&in.AE103_Name, &in.AE103_Reg, &in.AE103_OT, &in.AE103_Tips, &in.AE103_Sales,
                       &in.AE103_Hol, &in.AE103_Misc, &in.AE103_Disb}) {
    file.Input(*field);
  }
  file.Input(in.AE103_SSN);
  return true;
}

void InfotronicsAEv103(frmTimeImport& F) {
  const InfotronicsAEv103Fields& in = F.Fields<InfotronicsAEv103Fields>();
  ImportRecord& r = F.ImportRec;
  ITron_RecordDefaults(r);
  r.SSN = Replace(in.AE103_SSN, "-", "");
  r.Employee_no = "";
  r.Employee_Name = in.AE103_Name;
  const std::pair<const Value*, Cat> columns[] = {
      {&in.AE103_Reg, Cat::Reg},     {&in.AE103_OT, Cat::OT},   {&in.AE103_Tips, Cat::Tips},
      {&in.AE103_Sales, Cat::Sales}, {&in.AE103_Hol, Cat::Hol}, {&in.AE103_Misc, Cat::Misc},
      {&in.AE103_Disb, Cat::Disb},
  };
  for (const auto& [hours, category] : columns) {
    if (!Trim(*hours).empty()) F.WriteHours(category, *hours);
  }
}

// ---------------------------------------------------------------------------------------------
// "Infotronics 2": every line holds an employee, a pay rate, the clock's own code and hours at
// fixed columns. The code file pairs each code with a D-or-E and an earning code.

constexpr std::size_t kITron2Entries = 100;
constexpr int kITron2CodeFile = 6;

// One row of the code file, cut to the widths the table holds.
struct ITron2ECode {
  std::string key;   // up to 10 characters
  std::string DorE;  // up to 5
  std::string code;  // up to 5
};

struct Infotronics2Fields {
  std::array<ITron2ECode, kITron2Entries> ITron2_ECodes;
  std::string ITron2_Key;  // the code of the line in hand
};

// Fills the table from "ECodes.txt" in the input folder; false when the file cannot be opened.
// A row cut short by the end of the file ends the table there; rows past the hundredth find no
// room and are left out.
bool InitITron2ECodefile(frmTimeImport& F) {
  auto& table = F.Fields<Infotronics2Fields>().ITron2_ECodes;
  table.fill(ITron2ECode{});
  const std::string path = JoinPath(F.S[dirInput].text, "ECodes.txt");
  InputFile& file = F.File(kITron2CodeFile);
  try {
    file.Open(path, OpenMode::Text);
  } catch (const RuntimeError&) {
    F.MsgBox("Unable to open " + path);
    return false;
  }
  try {
    std::string key, DorE, code;
    for (ITron2ECode& entry : table) {
      if (file.Eof()) break;
      file.Input(key);
      file.Input(DorE);
      file.Input(code);
      entry = {Left(key, 10), Left(DorE, 5), Left(code, 5)};
    }
  } catch (const RuntimeError&) {
  }
  file.Close();
  return true;
}

void Infotronics2Prepare(frmTimeImport& F) {
  if (!InitITron2ECodefile(F)) F.Ready = false;
}

// The last entry of the key wins. Entries the file did not fill are blank, and so are found
// by a blank key.
void LookupInfotronics2ECode(frmTimeImport& F) {
  const Infotronics2Fields& in = F.Fields<Infotronics2Fields>();
  ImportRecord& r = F.ImportRec;
  r.DorE = "E";
  r.Earning_Code = "?";
  bool found = false;
  for (const ITron2ECode& entry : in.ITron2_ECodes) {
    if (Trim(entry.key) != in.ITron2_Key) continue;
    r.DorE = entry.DorE;
    r.Earning_Code = entry.code;
    found = true;
  }
  if (!found) {
    F.MsgBox("Unknown type of Earning Code: " + in.ITron2_Key + " for EE# " + r.Employee_no.str());
  }
}

void Infotronics2(frmTimeImport& F) {
  const std::string& line = F.InRec;
  ImportRecord& r = F.ImportRec;
  r.Employee_no = Trim(Mid(line, 1, 10));
  ITron_RecordDefaults(r);
  r.Hours = Format(Value(Mid(line, 59, 7)), ".00");
  if (r.Hours == Value(".00")) return;
  r.payrate = Format(Value(Mid(line, 40, 7)), ".00");
  if (r.payrate == Value(".00")) r.payrate = "";
  F.Fields<Infotronics2Fields>().ITron2_Key = Trim(Mid(line, 48, 10));
  LookupInfotronics2ECode(F);
  F.WriteOutputRec();
}

}  // namespace

extern const Translator kInfotronicsTranslator{
    .name = "Infotronics",
    .heading = InfotronicsHeading,
    .read = InfotronicsRead,
    .translate = Infotronics,
};

extern const Translator kInfotronicsAEv103Translator{
    .name = "InfotronicsAEv103",
    .heading_lines = 1,
    .read = InfotronicsAEv103Read,
    .translate = InfotronicsAEv103,
};

extern const Translator kInfotronics2Translator{
    .name = "Infotronics2",
    .prepare = Infotronics2Prepare,
    .translate = Infotronics2,
    .translate_last_line = true,
};

}  // namespace corvane
