// The Squirrel point-of-sale exports. "Squirrel POS 1.45" is a comma report whose job names
// find their earning codes in a cross-reference beside the export; "Squirrel v3.2" is a fixed
// text report whose departments are placed in branches by a table of the two locations that
// use it. Both read their whole file themselves.
#include <array>
#include <string>
#include <string_view>

#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "translators/restaurant/side_file.hpp"

namespace corvane {

namespace {

// ---------------------------------------------------------------------------------------
// "Squirrel POS 1.45": 1 period end date, 2 location name, 3 employee number, 4 name, 5 job
// name, 6 regular hours, 7 overtime hours, 8 reported tips. The report's last row is its
// total.

constexpr int kSquirrelXrefRows = 100;

struct SquirrelXrefRow {
  Value JobName;
  Value Code;  // one letter for DorE, then the two characters of the earning code
};

struct Squirrel145Fields {
  std::array<Value, 9> Squirrel_F;                                  // fields 1 to 8
  std::array<SquirrelXrefRow, kSquirrelXrefRows + 1> SquirrelXref;  // rows 1 to 100
};

// The cross-reference "Squirrel Cross Ref.txt" in the export's folder: job name and code a
// row. A file that is missing or cannot be read leaves the table empty, with no message.
void Squirrel145_LoadXref(frmTimeImport& F) {
  auto& xref = F.Fields<Squirrel145Fields>().SquirrelXref;
  xref.fill(SquirrelXrefRow{});
  if (!OpenBesideExport(F, 9, "Squirrel Cross Ref.txt")) return;
  InputFile& side = F.File(9);
  // Read to the end; rows past the table's end are read and not kept.
  Value job, code;
  for (int row = 1; !side.Eof(); ++row) {
    ResumeNext([&] { side.Input(job); });
    ResumeNext([&] { side.Input(code); });
    if (row <= kSquirrelXrefRows) xref[row] = SquirrelXrefRow{job, code};
  }
  side.Close();
}

// DorE and Earning_Code from the first row of the cross-reference that names the job; a job
// not found leaves both blank.
void Squirrel145_LookUp(frmTimeImport& F, const Value& job) {
  const auto& xref = F.Fields<Squirrel145Fields>().SquirrelXref;
  ImportRecord& r = F.ImportRec;
  r.DorE = "";
  r.Earning_Code = "";
  for (int row = 1; row <= kSquirrelXrefRows; ++row) {
    if (xref[row].JobName == job) {
      r.DorE = Left(xref[row].Code, 1);
      r.Earning_Code = Right(xref[row].Code, 2);
      return;
    }
  }
}

// One row of the report: hours under the job's own code, overtime under the code of "OT",
// and the tips.
void Squirrel145(frmTimeImport& F) {
  auto& f = F.Fields<Squirrel145Fields>().Squirrel_F;
  ImportRecord& r = F.ImportRec;

  // Only the two stores of this client have a division and branch.
  const std::string location = Trim(f[2]);
  if (location == "Bellevue") {
    r.Division = r.Branch = "1";
  } else if (location == "West") {
    r.Division = r.Branch = "2";
  } else {
    r.Division = r.Branch = "";
  }

  r.Employee_no = Trim(f[3]);
  r.Employee_Name = Trim(f[4]);

  if (NumericAbove0(f[6])) {
    Squirrel145_LookUp(F, Value(Trim(f[5])));
    r.Amount = "";
    r.Hours = f[6];
    F.WriteOutputRec();
  }
  // The overtime line sets only its hours: the dollars of the record before stay with it
  // when the row has no regular hours.
  if (NumericAbove0(f[7])) {
    Squirrel145_LookUp(F, Value("OT"));
    r.Hours = f[7];
    F.WriteOutputRec();
  }
  if (NumericAbove0(f[8])) F.WriteDollars(Cat::Tips, f[8].str());
}

void Squirrel145_Run(frmTimeImport& F) {
  F.InitFiles();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = r.Employee_Name = r.DorE = "";
  r.Amount = "";
  r.Division = r.Branch = r.Department = r.Earning_Code = r.Hours = r.Job = r.payrate = "";
  r.Shift = "";
  r.Seq = "1";
  r.Team = "";
  r.SSN = "";

  Squirrel145_LoadXref(F);
  InputFile& in = F.File(1);
  in.LineInput(F.InRec);  // the heading

  auto& f = F.Fields<Squirrel145Fields>().Squirrel_F;
  while (!in.Eof()) {
    for (int n = 1; n <= 8; ++n) in.Input(f[n]);
    // the row that the file ends with is the report's total
    if (in.Eof()) break;
    ++F.TCcount;
    Squirrel145(F);
  }
}

// ---------------------------------------------------------------------------------------
// "Squirrel v3.2": fixed text lines. Store 1-4, employee number 5-12, name 13-42, regular
// hours 43-48, overtime hours 49-54, department 83-85, rate 86-93, extra dollars 93-100 (the
// rate's last column is the first of the dollars), branch 102-104, tips 137-144. Lines that
// begin "0000" are the store's totals.

// The branch of a department at the two locations that use this export; "" where the
// location's table does not name the department.
std::string_view Squirrel32_Branch(std::string_view location, std::string_view department) {
  struct Placement {
    std::string_view branch;
    std::initializer_list<std::string_view> departments;
  };
  static const Placement kSW[] = {
      {"1", {"1", "5", "6", "19", "20"}},
      {"2", {"4", "22"}},
      {"3", {"3", "12"}},
      {"5", {"8", "9", "11", "14", "15", "21"}},
      {"8", {"2", "7", "10", "13", "17", "18"}},
      {"9", {"23"}},
      {"10", {"16"}},
      {"20", {"30", "31", "32"}},
  };
  static const Placement kRH[] = {
      {"1", {"4"}},
      {"2", {"1", "5", "6", "20", "24"}},
      {"3", {"8", "9", "12", "13", "15", "21"}},
      {"4", {"2", "16", "17", "18", "22", "25"}},
      {"5", {"7", "10"}},
      {"6", {"3", "14", "33"}},
      {"20", {"32"}},
  };
  auto find = [&](const auto& table) -> std::string_view {
    for (const Placement& p : table) {
      for (std::string_view d : p.departments) {
        if (d == department) return p.branch;
      }
    }
    return "";
  };
  if (location == "SW") return find(kSW);
  if (location == "RH") return find(kRH);
  return "";
}

// The waiting staff's departments: their hours and dollars go to the wait categories.
bool Squirrel32_WaitDepartment(std::string_view location, std::string_view department) {
  return (department == "22" && location == "SW") || department == "4" || department == "1";
}

// One line of the report.
void Squirrel32(frmTimeImport& F, const std::string& line) {
  ImportRecord& r = F.ImportRec;
  const std::string location = Trim(F.S[LocNum].text);
  const std::string regular = Mid(line, 43, 6);
  const std::string overtime = Mid(line, 49, 6);
  const std::string extra = Mid(line, 93, 8);

  r.payrate = Mid(line, 86, 8);
  r.Branch = Trim(Mid(line, 102, 3));
  const std::string department = Trim(Mid(line, 83, 3));
  r.Department = department;
  // A department the location's table does not name keeps the branch of the file.
  const std::string_view placed = Squirrel32_Branch(location, department);
  if (!placed.empty()) r.Branch = std::string(placed);

  const bool wait = Squirrel32_WaitDepartment(location, department);
  if (NumericAbove0(Value(regular))) F.WriteHours(wait ? Cat::e15 : Cat::Reg, regular);
  if (NumericAbove0(Value(overtime))) F.WriteHours(wait ? Cat::e16 : Cat::OT, overtime);
  if (NumericAbove0(Value(extra))) F.WriteDollars(wait ? Cat::e18 : Cat::Tips, extra);

  // The tips go out under the code of the category written last, whichever record wrote it.
  r.Hours = r.payrate = "";
  r.Amount = Format(Value(Mid(line, 137, 8)), "0.00");
  F.WriteOutputRec();
}

void Squirrel32_Run(frmTimeImport& F) {
  F.InitFiles();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = r.Employee_Name = "";
  r.Amount = "";
  r.Division = r.Branch = r.Department = r.Earning_Code = r.Job = r.payrate = r.Shift = "";
  r.SSN = "";
  r.DorE = "E";
  r.Seq = "1";
  r.Team = "";

  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  while (!in.Eof()) {
    in.LineInput(line);
    if (Left(line, 4) == "0000") continue;
    ++F.TCcount;
    r.Employee_no = Trim(Mid(line, 5, 8));
    // a line without an employee number ends the report
    if (r.Employee_no.str().empty()) break;
    Squirrel32(F, line);
  }
}

}  // namespace

extern const Translator kSquirrel145Translator{
    .name = "Squirrel145",
    .run = Squirrel145_Run,
    .reader_counts = false,
};

extern const Translator kSquirrel32Translator{
    .name = "Squirrel32",
    .run = Squirrel32_Run,
    .reader_counts = false,
};

}  // namespace corvane
