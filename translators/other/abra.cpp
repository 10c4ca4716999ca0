// "ABRA": a workbook whose rows name their own earning code. No heading row: the reading
// starts at row 1 and ends at the first row whose column A is blank.
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

struct ABRAFields {
  Value ABRA_Code = "Start";  // lets the loop begin
  Value ABRA_Name, ABRA_Number, ABRA_Hours, ABRA_Dollars, ABRA_Division;
};

bool ABRARead(frmTimeImport& F) {
  ABRAFields& in = F.Fields<ABRAFields>();
  const Sheet& sheet = F.WkbObj->ActiveSheet();
  const long row = F.TCcount + 1;
  in.ABRA_Code = sheet.Cell("A", row);
  in.ABRA_Name = sheet.Cell("B", row);
  in.ABRA_Number = sheet.Cell("C", row);
  in.ABRA_Hours = sheet.Cell("D", row);
  in.ABRA_Dollars = sheet.Cell("E", row);
  in.ABRA_Division = sheet.Cell("F", row);
  return in.ABRA_Code != Value("");
}

void ABRA(frmTimeImport& F) {
  const ABRAFields& in = F.Fields<ABRAFields>();
  ImportRecord& r = F.ImportRec;
  r.payrate = r.Job = r.Department = r.Branch = r.Shift = r.Team = "";
  r.SSN = "";
  r.Seq = "1";
  r.Employee_no = Trim(in.ABRA_Number);
  r.Employee_Name = Trim(in.ABRA_Name);
  r.Hours = in.ABRA_Hours;
  r.Amount = Format(in.ABRA_Dollars, ".00");
  // the code cell: its first character is D or E, the rest the earning code
  r.DorE = Left(in.ABRA_Code, 1);
  r.Earning_Code = Mid(in.ABRA_Code, 2);
  r.Division = in.ABRA_Division;
  F.WriteOutputRec();
}

}  // namespace

extern const Translator kABRATranslator{
    .name = "ABRA",
    .read = ABRARead,
    .translate = ABRA,
};

}  // namespace corvane
