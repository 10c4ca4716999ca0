// The Maitre'D labour export. An employee who works at more than one rate has a row per
// rate in the client's rate file, which gives the department and team of the hours worked at
// that rate; the row flagged "1" is his usual one, taken when the export carries no rate.
#include <array>
#include <string>

#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "translators/restaurant/side_file.hpp"

namespace corvane {

namespace {

constexpr int kMaitreRateRows = 500;

struct MaitreRate {
  Value EmpNo;
  Value Flag;  // "1" on the employee's usual rate
  Value Rate;
  Value Department;
  Value Team;
};

struct MaitreDFields {
  // 1 "Co Code", 2 "Batch ID", 3 "File #", 4 "Reg Hours", 5 "O/T Hours", 6 "Hours 3 Code",
  // 7 "Hours 3 Amount", 8 "Temp Rate", 9 "Temp Dept", 10 "Shift"
  std::array<Value, 11> Maitre_F;
  std::array<MaitreRate, kMaitreRateRows + 1> MaitreRates;  // rows 1 to 500
};

// The branch's preparation: the operator names the rate file in the export's folder, five
// fields a row. A file that is missing or cannot be read leaves the table empty, with no
// message.
void MaitreD_LoadRates(frmTimeImport& F) {
  auto& rates = F.Fields<MaitreDFields>().MaitreRates;
  rates.fill(MaitreRate{});
  const std::string answer = F.ui.InputBox("What is the name of your employee rate file?",
                                           kAppTitle, "maitre d rate file.csv");
  F.Response = answer;
  if (!OpenBesideExport(F, 9, answer)) return;
  InputFile& side = F.File(9);
  for (int row = 1; row <= kMaitreRateRows && !side.Eof(); ++row) {
    MaitreRate& rate = rates[row];
    for (Value* field : {&rate.EmpNo, &rate.Flag, &rate.Rate, &rate.Department, &rate.Team}) {
      ResumeNext([&] { side.Input(*field); });
    }
  }
  side.Close();
}

bool MaitreD_Read(frmTimeImport& F) {
  auto& f = F.Fields<MaitreDFields>().Maitre_F;
  InputFile& in = F.File(1);
  for (int n = 1; n <= 10; ++n) in.Input(f[n]);
  return true;
}

// Department, Team and payrate from the employee's row of the rate in hand; failing that,
// when the export gave no rate, from his usual row.
void MaitreD_FindRate(frmTimeImport& F) {
  const auto& rates = F.Fields<MaitreDFields>().MaitreRates;
  ImportRecord& r = F.ImportRec;
  const Value employee(Trim(r.Employee_no));

  r.Department = r.Team = "";
  for (int row = 1; row <= kMaitreRateRows; ++row) {
    const MaitreRate& rate = rates[row];
    if (rate.EmpNo == employee && Value(Format(rate.Rate, "0.00")) == r.payrate) {
      r.Department = rate.Department;
      r.Team = rate.Team;
      r.payrate = rate.Rate;
      return;
    }
  }
  if (!r.payrate.str().empty()) return;
  for (int row = 1; row <= kMaitreRateRows; ++row) {
    const MaitreRate& rate = rates[row];
    if (rate.EmpNo == employee && rate.Flag == Value("1")) {
      r.Department = rate.Department;
      r.Team = rate.Team;
      r.payrate = rate.Rate;
      return;
    }
  }
}

void MaitreD(frmTimeImport& F) {
  const auto& f = F.Fields<MaitreDFields>().Maitre_F;
  ImportRecord& r = F.ImportRec;

  r.Employee_Name = "";
  r.SSN = "";
  r.Amount = "";
  r.Job = r.Shift = "";
  r.Seq = "1";
  r.Branch = F.S[CoNum].text;

  ++F.TCcount;
  r.Employee_no = f[3];
  r.payrate = Format(f[8], "0.00");
  MaitreD_FindRate(F);

  // a rate below the minimum wage marks tipped staff
  const bool tipped = Below(r.payrate, Value(F.S[txtMinWage].text));
  if (!IsZero(f[4])) F.WriteHours(tipped ? Cat::WaitReg : Cat::Reg, Format(f[4], "0.00"));
  if (!IsZero(f[5])) F.WriteHours(tipped ? Cat::WaitOT : Cat::OT, Format(f[5], "0.00"));
}

}  // namespace

extern const Translator kMaitreDTranslator{
    .name = "MaitreD",
    .prepare = MaitreD_LoadRates,
    .read = MaitreD_Read,
    .translate = MaitreD,
    .reader_counts = false,
};

}  // namespace corvane
