// The Micros 3700 labour export, in its plain form and in the form whose cross-reference also
// gives the branch. Text fields stand between single quotes in the file; the revenue centre
// code becomes the division, through the cross-reference when the operator uses one.
#include <array>
#include <string>

#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/text.hpp"
#include "translators/restaurant/side_file.hpp"

namespace corvane {

namespace {

constexpr int kMicrosXrefRows = 100;

struct MicrosXrefRow {
  Value Code;    // the revenue centre code of the export
  Value Value_;  // what the payroll calls it
};

struct MicrosFields {
  // 1 social security number, 2 last name, 3 first name, 4 revenue centre code, 5 job, 6
  // regular hours, 7 overtime hours, 8 a date, 9 pay rate, 12 tips, 13 card tips
  std::array<Value, 14> Micros_F;
  // Row 0 is never loaded: a blank code finds it first.
  std::array<MicrosXrefRow, kMicrosXrefRows + 1> MicrosXref;
};

std::string NoQuotes(const Value& field) {
  return Replace(field, "'", "");
}

bool MicrosBr(const frmTimeImport& F) {
  return F.ChosenTC == "Micros 3700 v4.1Br";
}

// The branch's preparation: with chkXref ticked the operator names the cross-reference in the
// export's folder, two fields a row. A file that is missing or cannot be read leaves the
// table empty, with no message.
void Micros3700v41_LoadXref(frmTimeImport& F) {
  auto& xref = F.Fields<MicrosFields>().MicrosXref;
  xref.fill(MicrosXrefRow{});
  if (!F.S.Checked(chkXref)) return;

  const std::string answer =
      F.ui.InputBox("What is the name of your cross reference file?", kAppTitle,
                    MicrosBr(F) ? "Micros v4.1Br XRef.txt" : "Micros XRef.txt");
  F.Response = answer;
  if (!OpenBesideExport(F, 9, answer)) return;
  InputFile& side = F.File(9);
  for (int row = 1; row <= kMicrosXrefRows && !side.Eof(); ++row) {
    ResumeNext([&] { side.Input(xref[row].Code); });
    ResumeNext([&] { side.Input(xref[row].Value_); });
  }
  side.Close();
}

bool Micros3700v41_Read(frmTimeImport& F) {
  auto& f = F.Fields<MicrosFields>().Micros_F;
  InputFile& in = F.File(1);
  for (int n = 1; n <= 13; ++n) in.Input(f[n]);
  return true;
}

// The division of the revenue centre code, and in the Br form its branch. A code the table
// does not know keeps the code of the file, and the Br form's branch stays as the record
// before left it.
void Micros3700v41_Division(frmTimeImport& F) {
  const auto& xref = F.Fields<MicrosFields>().MicrosXref;
  ImportRecord& r = F.ImportRec;
  if (F.S.Checked(chkXref)) {
    for (int row = 0; row <= kMicrosXrefRows; ++row) {
      if (r.Division == xref[row].Code) {
        r.Division = xref[row].Value_;
        if (MicrosBr(F)) r.Branch = xref[row].Value_;
        break;
      }
    }
  }
  // divisions are two digits in the payroll
  if (Len(r.Division) == 1) r.Division = "0" + r.Division.str();
}

void Micros3700v41(frmTimeImport& F) {
  const auto& f = F.Fields<MicrosFields>().Micros_F;
  ImportRecord& r = F.ImportRec;

  r.Employee_no = "";
  r.Employee_Name = Replace(Trim(f[2]) + ", " + Trim(f[3]), "'", "");
  r.SSN = Replace(NoQuotes(f[1]), "-", "");
  r.Department = "";
  r.DorE = "E";
  r.Amount = "";
  r.Hours = r.payrate = "";
  r.Seq = "1";
  r.Team = r.Job = "";
  r.Division = NoQuotes(f[4]);

  Micros3700v41_Division(F);
  r.payrate = f[9];

  if (NumericAbove0(f[6])) F.WriteHours(Cat::Reg, f[6]);
  if (NumericAbove0(f[7])) {
    // a rate below the minimum wage marks tipped staff
    F.WriteHours(Below(r.payrate, Value(F.S[txtMinWage].text)) ? Cat::WaitOT : Cat::OT, f[7]);
  }
  // The tips lines keep the rate of the hours lines.
  r.Hours = "";
  if (NumericAbove0(f[12])) F.WriteDollars(Cat::Tips, f[12].str());
  if (NumericAbove0(f[13])) F.WriteDollars(Cat::CCTips, f[13].str());
}

}  // namespace

extern const Translator kMicros3700v41Translator{
    .name = "Micros3700v41",
    .prepare = Micros3700v41_LoadXref,
    .read = Micros3700v41_Read,
    .translate = Micros3700v41,
};

}  // namespace corvane
