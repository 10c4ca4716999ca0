// "DataTrak": a printed payroll summary. A department head holds for every employee under
// it, across pages, until the next head; each employee is an hours line of eight figures with
// the employee's name on the dollars line behind it.
#include <array>
#include <string>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// The figures' heads on the report, REG, ITC, OT1, OT2 and PREM1 to PREM4, in column order.
constexpr std::array<Cat, 8> kDataTrakColumns = {
    Cat::Reg, Cat::OT, Cat::Dbl, Cat::Tips, Cat::Sales, Cat::Hol, Cat::Misc, Cat::Disb,
};

bool DataTrak_DeptHead(const std::string& line) {
  return Mid(line, 40, 4) == "DEPT";
}

// One employee: Build_String holds the hours line when it starts, and the dollars line when
// it ends.
void DataTrak(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  std::array<std::string, 8> figures;
  {
    const std::string hours_line = F.Build_String.str();
    for (std::size_t k = 0; k < figures.size(); ++k) {
      figures[k] = Trim(Mid(hours_line, 29 + 10 * static_cast<long>(k), 10));
    }
    r.Employee_no = Trim(Left(hours_line, 9));
  }
  r.DorE = "E";
  r.payrate = r.Hours = "";
  r.Amount = "";
  r.Division = r.Branch = r.Job = r.Shift = r.Team = "";
  r.SSN = "";
  r.Seq = "1";
  // the department is the head's, kept from line to line by the branch

  std::string dollars_line;
  try {
    F.File(1).LineInput(dollars_line);
  } catch (const RuntimeError&) {
    // an hours line with nothing behind it: the employee goes out without a name
    dollars_line.assign(20, ' ');
  }
  F.Build_String = dollars_line;
  r.Employee_Name = Trim(Left(dollars_line, 20));

  for (std::size_t k = 0; k < figures.size(); ++k) {
    const Cat category = kDataTrakColumns[k];
    // a code box holding "X" switches its column off
    if (figures[k] == "0.00" || UCase(Trim(F.S.Code(category))) == "X") continue;
    F.Apply(category);
    r.Hours = figures[k];
    F.WriteOutputRec();
  }
}

void DataTrakRun(frmTimeImport& F) {
  InputFile& file = F.File(1);
  F.ImportRec.Department = "";
  std::string line;
  file.LineInput(line);
  F.Build_String = line;
  while (!file.Eof()) {
    // the writers leave their own lines in Build_String, so the line is taken before any call
    line = F.Build_String.str();
    if (Len(line) >= 5) {
      if (DataTrak_DeptHead(line)) {
        F.ImportRec.Department = Trim(Mid(line, 46, 4));
      } else if (IsNumeric(Left(line, 1))) {
        ++F.TCcount;
        DataTrak(F);
      }
    }
    file.LineInput(line);
    F.Build_String = line;
  }
}

}  // namespace

extern const Translator kDataTrakTranslator{
    .name = "DataTrak",
    .run = DataTrakRun,
};

}  // namespace corvane
