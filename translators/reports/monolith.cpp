// "Monolith": a fixed-column text export, one pay line per line. The earning code comes
// from the file; the job can be turned into a department through a cross-reference file
// beside the export, and overtime can be taken back out of regular pay.
#include <string>
#include <vector>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "translators/reports/side_tables.hpp"

namespace corvane {

namespace {

constexpr std::size_t kMonolithXrefRows = 50;

struct MonolithFields {
  std::vector<SideRow> MonolithXrefTable;  // job, department
};

constexpr SideFileAsk kMonolithXrefAsk{
    "Where is the Job > Department Cross Reference File?", "Corvane - Monolith - xRef file",
    "Cross Reference File Not Found", "Corvane - Monolith - Please Try Again"};

void Monolith_LoadXrefs(frmTimeImport& F) {
  const std::string path =
      AskForSideFile(F, kMonolithXrefAsk, JoinPath(F.S[dirInput].text, "xRef.txt"));
  LoadSideTable(F, path, ',', 2, kMonolithXrefRows, F.Fields<MonolithFields>().MonolithXrefTable);
}

// A job the file does not know leaves the department blank.
void Monolith_LookupDepartment(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  if (const SideRow* row = FindSideRow(F.Fields<MonolithFields>().MonolithXrefTable, Trim(r.Job))) {
    r.Department = row->value;
  }
}

void Monolith_Prepare(frmTimeImport& F) {
  Monolith_LoadXrefs(F);
  F.Response =
      F.ui.InputBox("Should we subtract OT from Regular? (Y/N)", "Corvane - Monolith", "Y");
}

// One line: code at 11, value kind at 13 ("$" dollars), value at 15 (9 wide) with its sign
// at 24, rate number at 32, division and branch at 34 (5 wide), job at 39 (4 wide), social
// security number at 51 (11 wide), pay rate from 62 to the end.
void Monolith(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const std::string& line = F.InRec;
  r.Employee_no = r.Employee_Name = r.Department = r.payrate = r.Hours = r.Job = "";
  r.Amount = "";
  r.DorE = "E";
  r.Seq = "1";
  r.Team = "";
  r.SSN = Replace(Mid(line, 51, 11), "-", "");
  r.Earning_Code = Mid(line, 11, 2);

  std::string value = Format(Value(Mid(line, 15, 9)), ".00");
  if (value == ".00") return;
  if (Mid(line, 24, 1) == "-") value = "-" + value;
  const bool dollars = Mid(line, 13, 1) == "$";
  if (dollars) {
    r.Amount = value;
  } else {
    r.Hours = value;
  }

  // The box reads "Use Rate Number?", yet ticked it sends the pay rate and leaves the rate
  // number as it stood.
  if (!F.S.Checked(chkTeam)) {
    r.RateNumber = Mid(line, 32, 1);
  } else if (Len(line) > 61) {
    r.payrate = Format(Value(Trim(Mid(line, 62))), "#0.00");
  }
  r.Division = r.Branch = Mid(line, 34, 5);
  r.Job = Trim(Mid(line, 39, 4));
  if (F.S.Checked(chkXref)) Monolith_LookupDepartment(F);
  F.WriteOutputRec();

  // Overtime lines (02, 62) are paid on top of the regular hours of the same week: the
  // answer "Y" takes them back out of regular pay (01, 61).
  const std::string code = r.Earning_Code.str();
  if (UCase(Trim(F.Response)) == "Y" && (code == "02" || code == "62")) {
    r.Earning_Code = Left(code, 1) + "1";
    const std::string negated = Replace("-" + value, "--", "");
    if (dollars) {
      r.Amount = negated;
    } else {
      r.Hours = negated;
    }
    F.WriteOutputRec();
  }
}

// The first line is read before the loop and counted; the loop translates each line read
// while more follow, so the line that ends the file is read but never translated.
void Monolith_Run(frmTimeImport& F) {
  InputFile& in = F.File(1);
  in.LineInput(F.InRec);
  F.TCcount = 1;
  while (!in.Eof()) {
    Monolith(F);
    ++F.TCcount;
    in.LineInput(F.InRec);
  }
}

}  // namespace

extern const Translator kMonolithTranslator{
    .name = "Monolith",
    .prepare = Monolith_Prepare,
    .run = Monolith_Run,
};

}  // namespace corvane
