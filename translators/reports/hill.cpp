// The Hill family: one payroll summary in four shapes. "Hill" reads it as workbook rows and
// "Hill Ascii" as printed lines, both handing the same seven fields to HILL; "Hill csv" and
// "Hill-TMW" are comma files that their translators read whole. All of them carry dollars
// only, and each sends its advances and deductions out twice, under two codes that the
// operator chooses.
#include <array>
#include <string>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// ---------------------------------------------------------------------------------------------
// "Hill" and "Hill Ascii": the seven fields in the order both readers pass them on.

struct HillFields {
  Value Hill_Number;    // the social security number with its dashes
  Value Hill_Code;      // the employee code
  Value Hill_LastName;  // first part of the name
  Value Hill_FirstName;
  Value Hill_Gross;
  Value Hill_Reimb;
  Value Hill_AdvDed;  // advances and deductions
};

// One dollars field through ".00": a figure that is no number, or that comes to nothing,
// writes no line.
bool HILL_Dollars(frmTimeImport& F, const Value& field) {
  F.ImportRec.Amount = Format(field, ".00");
  return field.IsNumeric() && F.ImportRec.Amount != ".00";
}

void HILL(frmTimeImport& F) {
  const HillFields& in = F.Fields<HillFields>();
  ImportRecord& r = F.ImportRec;
  r.payrate = r.Job = r.Department = r.Branch = r.Division = r.Shift = r.Team = "";
  r.WorkersComp = r.RateNumber = "";
  r.DorE = "E";
  r.Seq = "1";
  r.SSN = Replace(in.Hill_Number, "-", "");
  r.Employee_no = Trim(in.Hill_Code);
  r.Employee_Name = in.Hill_LastName.str() + ", " + in.Hill_FirstName.str();
  r.Hours = "";
  if (HILL_Dollars(F, in.Hill_Gross)) {
    F.Apply(Cat::e15);
    F.WriteOutputRec();
  }
  if (HILL_Dollars(F, in.Hill_Reimb)) {
    F.Apply(Cat::e16);
    F.WriteOutputRec();
  }
  // one figure, two lines with the same amount: the operator's two codes say what each means
  if (HILL_Dollars(F, in.Hill_AdvDed)) {
    F.Apply(Cat::e17);
    F.WriteOutputRec();
    F.Apply(Cat::e18);
    F.WriteOutputRec();
  }
}

// "Hill": the workbook's rows from the first, up to a first column of "*** FINAL". A row
// with no last name is counted but not translated.
void HillWorkbookRun(frmTimeImport& F) {
  F.WkbObj = Workbook::Open(F.INFile.str());
  const Sheet& sheet = F.WkbObj->ActiveSheet();
  // No row past the sheet's last used one can hold the closing mark; a workbook without it
  // ends there rather than being read for ever.
  const Value last = sheet.LastRow();
  const long last_row = last.IsNumber() ? static_cast<long>(last.number()) : 0;
  HillFields& in = F.Fields<HillFields>();
  in.Hill_Number = "Start";
  while (Trim(in.Hill_Number) != "*** FINAL") {
    const long row = F.TCcount + 1;
    if (row > last_row) break;
    in.Hill_Number = sheet.Cell("A", row);
    in.Hill_Code = sheet.Cell("B", row);
    in.Hill_LastName = sheet.Cell("C", row);
    in.Hill_FirstName = sheet.Cell("D", row);
    in.Hill_Gross = sheet.Cell("F", row);
    in.Hill_Reimb = sheet.Cell("G", row);
    in.Hill_AdvDed = sheet.Cell("H", row);
    // the closing test here is untrimmed, that of the loop trimmed
    if (in.Hill_Number != Value("*** FINAL") && !Trim(in.Hill_LastName).empty()) HILL(F);
    ++F.TCcount;
  }
}

// "Hill Ascii": a run of lines whose second character is a digit are employees; the line that
// ends a run is passed over unread, and the line after it is the next one looked at. The
// reading stops at a line beginning "***" that is looked at, or at the end of the file.
void HillAsciiCut(frmTimeImport& F) {
  HillFields& in = F.Fields<HillFields>();
  const std::string& line = F.InRec;
  in.Hill_Number = Mid(line, 2, 11);
  in.Hill_Code = Trim(Mid(line, 14, 5));
  in.Hill_LastName = Trim(Mid(line, 21, 20));
  in.Hill_FirstName = Trim(Mid(line, 41, 9));
  in.Hill_Gross = Mid(line, 60, 9);
  in.Hill_Reimb = Mid(line, 70, 10);
  in.Hill_AdvDed = Mid(line, 80, 13);
}

void HillAsciiRun(frmTimeImport& F) {
  InputFile& file = F.File(1);
  F.TCcount = 0;
  F.InRec = "HILL ASCII";
  while (!file.Eof() && Left(F.InRec, 3) != "***") {
    while (IsNumeric(Mid(F.InRec, 2, 1))) {
      HillAsciiCut(F);
      ++F.TCcount;
      HILL(F);
      file.LineInput(F.InRec);
    }
    file.LineInput(F.InRec);
  }
}

// ---------------------------------------------------------------------------------------------
// "Hill csv": ten comma fields a row, of which the number, the name and the dollars of
// columns E to G are used.

struct HillCsvFields {
  std::array<Value, 11> HillCsv_Field;  // fields 1 to 10
};

// One dollars column, its code box through "00" so that a one-digit code reaches the file
// with its leading zero.
void HillCsv_Write(frmTimeImport& F, Cat category, const Value& field) {
  F.Apply(category);
  F.ImportRec.Earning_Code = Format(F.ImportRec.Earning_Code, "00");
  F.ImportRec.Amount = Trim(field);
  F.WriteOutputRec();
}

bool HillCsv_Counts(const Value& field) {
  return !Trim(field).empty() && NumericAbove0(field);
}

void HillCsv(frmTimeImport& F) {
  HillCsvFields& in = F.Fields<HillCsvFields>();
  auto& f = in.HillCsv_Field;
  ImportRecord& r = F.ImportRec;
  try {
    F.InitFiles();
    F.TCcount = 0;
    InputFile& file = F.File(1);
    while (!file.Eof()) {
      for (int k = 1; k <= 3; ++k) file.Input(f[k]);
      for (int k = 4; k <= 10; ++k) file.Input(f[k]);
      ++F.TCcount;
      r.SSN = Format(Value(Trim(f[1])), "000000000");
      r.Employee_Name = Trim(f[4]);
      r.Hours = "";
      if (HillCsv_Counts(f[5])) HillCsv_Write(F, Cat::Reg, f[5]);
      if (HillCsv_Counts(f[6])) HillCsv_Write(F, Cat::OT, f[6]);
      if (HillCsv_Counts(f[7])) {
        HillCsv_Write(F, Cat::Dbl, f[7]);
        HillCsv_Write(F, Cat::e17, f[7]);
      }
    }
  } catch (const RuntimeError& error) {
    // A read past the end is how the file ends, a row cut short among them. Output files that
    // could not be created have been reported already.
    if (error.number() == kInputPastEnd || F.OutputMissing()) return;
    F.MsgBox("Error " + std::to_string(error.number()) + " " + error.description());
  }
}

// ---------------------------------------------------------------------------------------------
// "Hill-TMW": eleven comma fields a row; only the employee code and the dollars of fields 6
// to 8 are used.

struct HillTMWFields {
  std::array<Value, 12> HillTMW_Field;  // fields 1 to 11
};

void HillTMW_Write(frmTimeImport& F, Cat category, const Value& field) {
  if (!NumericAbove0(Value(Trim(field)))) return;
  F.Apply(category);
  F.ImportRec.Amount = Format(field, "0.00");
  F.WriteOutputRec();
}

void HillTMW(frmTimeImport& F) {
  HillTMWFields& in = F.Fields<HillTMWFields>();
  auto& f = in.HillTMW_Field;
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  r.DorE = "E";
  r.Job = r.Department = r.Division = r.Branch = r.Shift = r.Team = "";
  r.SSN = "";
  r.Employee_no = r.Employee_Name = r.Hours = "";
  r.Amount = "";
  r.Seq = "1";
  InputFile& file = F.File(1);
  // no handler: a row cut short at the end is a read past the end that ends the program
  while (!file.Eof()) {
    for (int k = 1; k <= 6; ++k) file.Input(f[k]);
    for (int k = 7; k <= 11; ++k) file.Input(f[k]);
    r.Employee_no = f[2];
    ++F.TCcount;
    HillTMW_Write(F, Cat::e15, f[6]);
    HillTMW_Write(F, Cat::e16, f[7]);
    HillTMW_Write(F, Cat::e17, f[8]);
    HillTMW_Write(F, Cat::e18, f[8]);
  }
}

}  // namespace

extern const Translator kHILLTranslator{
    .name = "HILL",
    .run =
        [](frmTimeImport& F) {
          // both keys share the translator; the reading is told by the key
          if (F.ChosenTC == "Hill Ascii") {
            HillAsciiRun(F);
          } else {
            HillWorkbookRun(F);
          }
        },
};

extern const Translator kHillCsvTranslator{
    .name = "HillCsv",
    .run = HillCsv,
};

extern const Translator kHillTMWTranslator{
    .name = "HillTMW",
    .run = HillTMW,
};

}  // namespace corvane
