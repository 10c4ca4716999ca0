// "Drake-Williams": a printed check register. Each employee is a head line followed by
// detail lines, one per pay code, and closed by a ruled line; the pay codes are the
// register's own, mapped to the screen's categories by a table.
#include <string>
#include <string_view>
#include <utility>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/dates.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

constexpr char kCR = '\r';
constexpr int kOK = 1;
constexpr int kCancel = 2;

constexpr std::pair<std::string_view, Cat> kDrakeWilliamsCodes[] = {
    {"RG", Cat::Reg},     {"OT", Cat::OT},     {"EA", Cat::e15},   {"EC", Cat::e16},
    {"EO", Cat::e17},     {"ET", Cat::e18},    {"SA", Cat::Sales}, {"SD", Cat::Misc},
    {"SI", Cat::Disb},    {"F", Cat::Dbl},     {"FI", Cat::Tips},  {"MC", Cat::e19},
    {"S NE", Cat::Hol},   {"BO", Cat::e29},    {"VS", Cat::e30},   {"JD", Cat::e31},
    {"HD", Cat::e32},     {"DF", Cat::e33},    {"AA", Cat::AdjH},  {"AP", Cat::AdjD},
    {"AR", Cat::WaitReg}, {"AU", Cat::WaitOT}, {"DD", Cat::e24},   {"DI", Cat::e25},
    {"DS", Cat::e26},     {"DT", Cat::e27},    {"DU", Cat::e28},   {"FM", Cat::e38},
    {"LA", Cat::e39},     {"ML", Cat::e40},    {"OP", Cat::e41},   {"TD", Cat::e42},
    {"VH", Cat::e36},     {"XX", Cat::e37},    {"DP", Cat::e34},
};

const Cat* DrakeWilliams_Lookup(const std::string& code) {
  for (const auto& [known, category] : kDrakeWilliamsCodes) {
    if (known == code) return &category;
  }
  return nullptr;
}

bool DrakeWilliams_Head(const std::string& line) {
  return IsNumeric(Left(line, 5)) && Len(line) >= 12;
}

// A pay line: an employee's job number in column 13, or a check date in column 69.
bool DrakeWilliams_IsDetail(const std::string& line) {
  return (Left(line, 4) != "DATE" && IsNumeric(Mid(line, 13, 5))) || IsDate(Trim(Mid(line, 69, 8)));
}

bool DrakeWilliams_Closing(const std::string& line) {
  return InStr(91, line, "---------") > 0;
}

// One pay line. False when the operator cancelled at an unknown code.
bool DrakeWilliams_Pay(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const std::string& line = F.InRec;
  r.Job = Trim(Mid(line, 13, 8));
  r.Earning_Code = Trim(Mid(line, 90, 4));
  r.Hours = Trim(Mid(line, 95, 6));
  r.Amount = "";
  // dollars are read only where the line has no hours
  if (r.Hours == Value("")) r.Amount = Trim(Mid(line, 112, 13));
  r.payrate = Trim(Mid(line, 101, 11));
  const std::string code = r.Earning_Code.str();
  if (const Cat* category = DrakeWilliams_Lookup(code)) {
    F.Apply(*category);
  } else {
    const MsgAnswer answer =
        F.MsgBox("Unexpected Earning Code: " + code + kCR + "Employee: " + r.Employee_Name.str(),
                 MsgButtons::OKCancel, "Corvane - Drake-Williams");
    F.Response = answer == MsgAnswer::Cancel ? kCancel : kOK;
    if (answer == MsgAnswer::Cancel) return false;
    // OK: the register's own code goes out, with the D-or-E of the line before
  }
  if (r.Amount != "0.00") F.WriteOutputRec();
  return true;
}

// One employee, from the head line in InRec to the closing rule.
void DrakeWilliams(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  r.DorE = "E";
  r.Amount = "";
  r.Division = r.Branch = r.Department = r.Job = "";
  r.Seq = "1";
  r.Team = "";
  r.SSN = "";
  r.RateNumber = "";
  try {
    while (!DrakeWilliams_Closing(F.InRec)) {
      F.File(1).LineInput(F.InRec);
      if (DrakeWilliams_IsDetail(F.InRec) && !DrakeWilliams_Pay(F)) return;
    }
  } catch (const RuntimeError&) {
    // A register that ends inside an employee's block, or a line the writer cannot take,
    // ends the employee; the branch reads on from where the error left the file.
  }
}

void DrakeWilliamsRun(frmTimeImport& F) {
  InputFile& file = F.File(1);
  ImportRecord& r = F.ImportRec;
  F.TCcount = 0;
  F.InRec.clear();
  F.Response = kOK;
  while (!file.Eof()) {
    file.LineInput(F.InRec);
    if (!DrakeWilliams_Head(F.InRec)) continue;
    r.Employee_Name = Trim(Mid(F.InRec, 13));
    r.Employee_no = Trim(Left(F.InRec, 5));
    ++F.TCcount;
    DrakeWilliams(F);
    if (F.Response == Value(kCancel)) break;
  }
}

}  // namespace

extern const Translator kDrakeWilliamsTranslator{
    .name = "DrakeWilliams",
    .run = DrakeWilliamsRun,
};

}  // namespace corvane
