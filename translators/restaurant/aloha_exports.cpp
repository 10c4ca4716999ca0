// The Aloha labour reports that need no cross-reference file. The report has changed shape
// with nearly every release, so each version has its own translator: they differ in how a
// line's kind is recognised, where the figures stand, and whether an employee's lines go out
// line by line or are gathered first. Fields a translator leaves alone keep the value of the
// record before: the employee number is set once per employee and stands for all his lines.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/dates.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "translators/restaurant/aloha_job_table.hpp"
#include "translators/restaurant/aloha_lines.hpp"

namespace corvane {

bool AlohaBelowMinWage(const frmTimeImport& F, const Value& rate) {
  return Below(rate, Value(F.S[txtMinWage].text));
}

const std::string& AlohaSplitField(const std::vector<std::string>& fields, long n) {
  if (n < 1 || n > static_cast<long>(fields.size())) Raise(kSubscriptOutOfRange);
  return fields[static_cast<std::size_t>(n - 1)];
}

namespace {

constexpr char kCR = '\r';

// ---------------------------------------------------------------------------------------
// "Aloha v5.3.13": the rows of a comma-separated report, 14 fields a row, read by the branch.
// Seven title lines stand above the first row. Each employee's first row carries his
// number; his further rows leave it blank. A row whose date is missing is a subtotal with
// two more lines under it. "0.00" means nothing to report.

struct AlohaV5313Fields {
  // 1 employee number, 2 name, 3 social security number, 4 date, 5 job, 6 regular rate,
  // 7 regular hours, 8 overtime rate, 9 overtime hours, 12 tips
  std::array<Value, 15> AlohaV5313_F;
};

void AlohaV5313_ReadRow(frmTimeImport& F) {
  auto& f = F.Fields<AlohaV5313Fields>().AlohaV5313_F;
  InputFile& in = F.File(1);
  for (int n = 1; n <= 14; ++n) in.Input(f[n]);
}

// The job names the payroll keeps a rate number for.
std::string AlohaV5313_RateNumber(const std::string& job) {
  if (job == "SERVER") return "1";
  if (job == "HOST") return "2";
  if (job == "BAR") return "3";
  if (job == "BANQUET") return "4";
  if (job == "TRAINING") return "5";
  return "";
}

// One report row. Its figures were read as comma fields, so they print as numbers: "8.50"
// reaches the file as 8.5 and "40.00" as 40.
void AlohaV5313(frmTimeImport& F) {
  const auto& f = F.Fields<AlohaV5313Fields>().AlohaV5313_F;
  ImportRecord& r = F.ImportRec;
  const Value nothing("0.00");

  // A row without an employee number is a further line of the employee above.
  if (f[1].IsNumeric()) {
    r.Employee_no = f[1];
    r.Employee_Name = f[2];
    r.SSN = Trim(Replace(f[3], "-", ""));
  }

  r.payrate = r.Hours = r.Division = r.Branch = r.Shift = r.Team = "";
  r.Amount = "";
  r.Seq = "1";
  r.Department = r.Job = f[5];
  r.DorE = "E";
  r.Earning_Code = "?";
  r.RateNumber = AlohaV5313_RateNumber(UCase(f[5]));

  if (f[7] != nothing) {
    r.Hours = f[7];
    F.Apply(Cat::Reg);
    if (f[6] != nothing) r.payrate = f[6];
    if (AlohaBelowMinWage(F, f[6]) && f[6] != nothing) F.Apply(Cat::WaitReg);
    F.WriteOutputRec();
  }

  if (f[9] != nothing) {
    r.Hours = f[9];
    F.Apply(Cat::OT);
    r.payrate = f[8] != nothing ? f[8] : Value("");
    if (AlohaBelowMinWage(F, f[8]) && f[8] != nothing) F.Apply(Cat::WaitOT);
    F.WriteOutputRec();
  }

  if (f[12] != nothing) {
    r.Hours = "";
    r.Amount = f[12].str();
    F.Apply(Cat::Tips);
    r.payrate = "";
    F.WriteOutputRec();
  }
}

// The branch's loop, after InitFiles. A read past the end of the file raises an error, and
// the branch's handler takes it as the end flag: the reading ends and the run reports what
// was written.
void AlohaV5313_Branch(frmTimeImport& F) {
  const auto& f = F.Fields<AlohaV5313Fields>().AlohaV5313_F;
  InputFile& in = F.File(1);

  for (int n = 1; n <= 7; ++n) in.LineInput(F.InRec);
  F.TCcount = 0;
  AlohaV5313_ReadRow(F);

  // A report whose eighth line is no employee row is not this version's report.
  if (!f[1].IsNumeric()) {
    F.MsgBox(std::string("Expected Employee Number in the 1st column of the 8th line.") + kCR +
                 kCR + "found: " + f[1].str(),
             MsgButtons::OKOnly, "Corvane - Aloha v5.3.13 - Error Message");
    return;
  }

  while (f[1] != Value("TOTALS:")) {
    ++F.TCcount;
    AlohaV5313(F);
    AlohaV5313_ReadRow(F);
    if (!IsDate(f[4])) {
      // a subtotal row: it and the two lines under it carry no employee
      in.LineInput(F.InRec);
      in.LineInput(F.InRec);
      AlohaV5313_ReadRow(F);
    }
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.5.42": a report walked by the first characters of each line. Per employee a
// marker line and his name line, then per job detail lines, a total line and a figures line
// under it. The figures are split from the line, so they go to the file as they stand.

struct Alohav6542Fields {
  // The overtime hours written for the current employee since the last marker line.
  double AlohaOTTotal = 0;
};

// "***  " starts an employee, and closes the one before with his average-overtime line.
void Alohav6542_Employee(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  double& AlohaOTTotal = F.Fields<Alohav6542Fields>().AlohaOTTotal;

  if (AlohaOTTotal > 0) {
    // Employee_no still holds the employee being closed, Department his last job, and Amount
    // what his last job left: the line sets only the rate, the category and the hours, so an
    // employee whose last job ended with tips carries them here as well. The file keeps it;
    // the pre-import check flags a line with both hours and dollars.
    r.payrate = "";
    F.Apply(Cat::e17);
    r.Hours = PrintNumber(AlohaOTTotal);
    F.WriteOutputRec();
    AlohaOTTotal = 0;
  }

  // the name line: the number before the first comma, the name between the first two quotes
  std::string& line = F.InRec;
  F.File(1).LineInput(line);
  r.Employee_no = line.substr(0, line.find(','));
  const std::size_t open = line.find('"');
  if (open == std::string::npos) {
    r.Employee_Name = "";
  } else {
    const std::size_t close = line.find('"', open + 1);
    r.Employee_Name =
        line.substr(open + 1, close == std::string::npos ? std::string::npos : close - open - 1);
  }
}

// "Total" ends a job; the figures line under it says what the job earned.
void Alohav6542_Job(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  double& AlohaOTTotal = F.Fields<Alohav6542Fields>().AlohaOTTotal;

  ++F.TCcount;
  r.Department = Mid(F.InRec, 7, InStr(F.InRec, ":") - 7);

  // 8 rate, 9 regular hours, 10 overtime hours, 11 total hours, 12 total pay, 13 card tips,
  // 14 declared tips, 15 tippable sales
  F.File(1).LineInput(F.InRec);
  const std::vector<std::string> figures = Split(F.InRec, ",");

  r.payrate = AlohaSplitField(figures, 8);
  r.Amount = "";
  r.Hours = AlohaSplitField(figures, 9);
  if (NumericAbove0(r.Hours)) {
    F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::e15 : Cat::Reg);
    F.WriteOutputRec();
  }

  r.Hours = AlohaSplitField(figures, 10);
  if (NumericAbove0(r.Hours)) {
    F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::e16 : Cat::OT);
    AlohaOTTotal += r.Hours.ToNumber();
    F.WriteOutputRec();
  }

  r.Hours = "";
  r.Amount = AlohaSplitField(figures, 13);
  if (NumericAbove0(Value(r.Amount))) {
    F.Apply(Cat::CCTips);
    r.payrate = "";
    F.WriteOutputRec();
  }

  r.Amount = AlohaSplitField(figures, 14);
  if (NumericAbove0(Value(r.Amount))) {
    F.Apply(Cat::Tips);
    r.payrate = "";
    F.WriteOutputRec();
  }
}

// The "TOTALS:" line ends the report; the test looks at the last line read, whichever step
// read it. The last employee's average-overtime line is never written: the report ends
// before another marker line could close him.
void Alohav6542(frmTimeImport& F) {
  // overtime left over from an earlier run belongs to no employee of this report
  F.Fields<Alohav6542Fields>().AlohaOTTotal = 0;
  F.InitFiles();
  InputFile& in = F.File(1);
  in.LineInput(F.InRec);
  do {
    in.LineInput(F.InRec);
    if (F.InRec.starts_with("***  ")) {
      Alohav6542_Employee(F);
    } else if (F.InRec.starts_with("Total")) {
      Alohav6542_Job(F);
    }
  } while (!F.InRec.starts_with("TOTALS:"));
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.5.44": a comma file by columns, one row per employee and department. The heading
// row names them: 1 "Co Code", 2 "Batch ID", 3 "File #", 4 "Temp Dept", 5 "Reg Hours",
// 6 "O/T Hours", 7 "Earnings 3 Code", 8 "Earnings 3 Amount", 9 "Memo Code", 10 "Memo Amount",
// 11 "Temp Rate".

struct Alohav6544Fields {
  std::array<Value, 12> Alohav6544_F;  // fields 1 to 11
};

void Alohav6544_ReadRow(frmTimeImport& F) {
  auto& f = F.Fields<Alohav6544Fields>().Alohav6544_F;
  InputFile& in = F.File(1);
  for (int n = 1; n <= 11; ++n) in.Input(f[n]);
}

// The columns are read as comma fields, so figures print as numbers ("8.50" as 8.5) and a
// department of digits loses its leading zeros.
void Alohav6544(frmTimeImport& F) {
  const auto& f = F.Fields<Alohav6544Fields>().Alohav6544_F;
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  r.Division = r.Branch = r.Shift = r.Team = r.Employee_Name = "";
  r.SSN = "";
  r.Seq = "1";
  r.DorE = "E";

  // the heading row counts as a record
  Alohav6544_ReadRow(F);
  ++F.TCcount;

  InputFile& in = F.File(1);
  while (!in.Eof()) {
    Alohav6544_ReadRow(F);
    ++F.TCcount;
    r.Amount = "";
    r.Employee_no = f[3];
    r.Department = f[4];

    r.Hours = f[5];
    r.payrate = f[11];
    if (r.Hours != Value("")) F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::WaitReg : Cat::Reg);
    F.WriteOutputRec();

    r.Hours = f[6];
    r.payrate = f[11];
    if (r.Hours != Value("")) F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
    F.WriteOutputRec();

    r.Hours = "";
    r.Amount = f[8].str();
    F.Apply(Cat::Tips);
    if (!r.Amount.empty()) F.WriteOutputRec();
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.7.22": fixed records of 129 bytes, line end included. Bytes 1-6 employee number,
// 32-37 job text, 53 line code ("1" regular, "2" overtime, "T" tips), 54-62 rate, 63-70
// hours, 81-89 amount. Lines of any other code ("S" in the sample) carry nothing to pay.

// A figure of the record: trimmed, then with two decimals; a blank figure stays blank.
std::string Alohav6722_Figure(const std::string& record, long start, long length) {
  const std::string figure = Trim(Mid(record, start, length));
  if (figure.empty()) return "";
  return Format(Value(figure), "0.00");
}

void Alohav6722(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  InputFile& in = F.File(1);
  std::string& record = F.InRec;

  in.Get(record);
  while (!in.Eof()) {
    ++F.TCcount;
    // the number and the job text go out as they stand in their columns, blanks included
    r.Employee_no = Mid(record, 1, 6);
    r.Branch = Mid(record, 32, 6);
    r.Division = r.Shift = r.Team = r.Job = r.Employee_Name = "";
    r.SSN = "";
    r.Seq = "1";

    r.payrate = Alohav6722_Figure(record, 54, 9);
    r.Hours = Alohav6722_Figure(record, 63, 8);
    r.Amount = Alohav6722_Figure(record, 81, 9);

    const char code = record.size() >= 53 ? record[52] : ' ';
    if (code == '1') {
      F.Apply(Cat::Reg);
      F.WriteOutputRec();
    } else if (code == '2') {
      F.Apply(Cat::OT);
      F.WriteOutputRec();
    } else if (code == 'T') {
      F.Apply(Cat::Tips);
      F.WriteOutputRec();
    }

    in.Get(record);
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v5.3.26": only the summary block at the end of the report is read. A row of 9
// comma fields: 1 employee number, 2 rate, 3 regular hours, 4 overtime hours, 5 other-wage
// hours, 6 other-wage amount, 7 card tips, 8 declared tips. A row that paid anything has one
// more line under it. A "TOTALS" row ends the block.

struct Alohav5326Fields {
  std::array<Value, 10> Alohav5326_F;  // fields 1 to 9
};

void Alohav5326_ReadRow(frmTimeImport& F) {
  auto& f = F.Fields<Alohav5326Fields>().Alohav5326_F;
  InputFile& in = F.File(1);
  for (int n = 1; n <= 9; ++n) in.Input(f[n]);
}

// The figures are read as comma fields, so they print as numbers ("12.50" as 12.5).
void Alohav5326(frmTimeImport& F) {
  const auto& f = F.Fields<Alohav5326Fields>().Alohav5326_F;
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  r.Division = r.Branch = r.Shift = r.Team = r.Job = r.Employee_Name = r.Hours = "";
  r.SSN = "";
  r.Seq = "1";

  InputFile& in = F.File(1);
  while (!in.Eof()) {
    in.LineInput(F.InRec);
    if (InStr(F.InRec, "SUMMARY") > 0) break;
  }
  for (int n = 1; n <= 3; ++n) in.LineInput(F.InRec);

  bool end = false;
  while (!end) {
    ++F.TCcount;
    Alohav5326_ReadRow(F);
    if (f[1] == Value("TOTALS")) end = true;
    if (!f[1].IsNumeric()) continue;

    r.Employee_no = f[1];
    r.payrate = f[2];
    bool written = false;
    auto hours = [&](int n, Cat category) {
      if (!NumericAbove0(f[n])) return;
      F.WriteHours(category, f[n]);
      written = true;
    };
    auto dollars = [&](int n, Cat category) {
      if (!NumericAbove0(f[n])) return;
      F.WriteDollars(category, f[n].str());
      written = true;
    };
    hours(3, Cat::Reg);
    hours(4, Cat::OT);
    hours(5, Cat::Dbl);
    dollars(8, Cat::e15);
    dollars(7, Cat::e16);
    dollars(6, Cat::e17);
    if (written) in.LineInput(F.InRec);
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.7.38": comma-separated report lines, gathered per employee in the job table and
// written once his closing lines have passed. Per employee: a marker line with his name and
// number, per job a total line with the figures line under it, then a "TTL" line, a line
// that is dropped, and the closing line. Errors are passed over statement by statement: a
// job past the table's last row is neither stored nor written.

// Total line of a job: the job's name is what stands after "Total".
void Alohav6738_TotalLine(Alohav6738_Walk& w, const std::string& line) {
  ++w.job_count;
  ++w.F.TCcount;
  const std::string job = Alohav6738_JobName(line);
  ResumeNext([&] { w.jobs.Row(w.job_count).JobName = job; });
  w.after_total = true;
}

// Figures line under a job's total line: 5 rate, 6 regular hours, 9 overtime hours, 13 card
// tips, 14 declared tips. Kept as text, trimmed and unquoted.
void Alohav6738_FiguresLine(Alohav6738_Walk& w, const std::string& line) {
  const std::vector<std::string> fields = Split(line, ",");
  const std::string& quote = w.F.quote;
  auto field = [&](long n) { return Trim(Replace(AlohaSplitField(fields, n), quote, "")); };
  auto store = [&](std::string AlohaJobRow::*member, long n) {
    ResumeNext([&] { w.jobs.Row(w.job_count).*member = field(n); });
  };
  store(&AlohaJobRow::Rate, 5);
  store(&AlohaJobRow::RegHours, 6);
  ResumeNext([&] {
    AlohaJobRow& row = w.jobs.Row(w.job_count);
    row.OTRate = row.Rate;
  });
  store(&AlohaJobRow::OTHours, 9);
  store(&AlohaJobRow::CCTips, 13);
  store(&AlohaJobRow::DeclTips, 14);
}

// One job of the employee: regular hours, overtime hours, declared tips.
void Alohav6738_WriteRow(frmTimeImport& F, const AlohaJobRow& row) {
  ImportRecord& r = F.ImportRec;
  r.Department = row.JobName;
  r.Amount = "";

  if (NumericAbove0(Value(row.RegHours))) {
    if (Trim(row.Rate) != "0") {
      r.payrate = Trim(row.Rate);
      F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::WaitReg : Cat::Reg);
    } else {
      // a job without a rate keeps the category of the record written before it
      r.payrate = "";
    }
    r.Hours = Trim(row.RegHours);
    F.WriteOutputRec();
  }

  if (NumericAbove0(Value(row.OTHours))) {
    if (Trim(row.Rate) == "0") {
      r.payrate = "";
      F.Apply(Cat::OT);
    } else {
      r.payrate = Trim(row.Rate);
      F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
    }
    r.Hours = Trim(row.OTHours);
    F.WriteOutputRec();
  }

  if (NumericAbove0(Value(row.DeclTips))) {
    F.Apply(Cat::Tips);
    r.payrate = "";
    r.Hours = "";
    r.Amount = Trim(row.DeclTips);
    F.WriteOutputRec();
  }
}

// Closing line: the employee ends here. Its fields carry nothing this report needs. Rows
// past the table's end raise the ignored error, so writing stops at its last row in effect.
void Alohav6738_ClosingLine(Alohav6738_Walk& w, const std::string&) {
  ImportRecord& r = w.F.ImportRec;
  r.Employee_Name = w.name;
  r.Employee_no = w.number;
  r.SSN = "";
  for (long n = 1; n <= w.job_count; ++n) {
    ResumeNext([&] { Alohav6738_WriteRow(w.F, w.jobs.Row(n)); });
  }
}

constexpr Alohav6738_Steps kAlohav6738_Steps{
    .TotalLine = Alohav6738_TotalLine,
    .FiguresLine = Alohav6738_FiguresLine,
    .ClosingLine = Alohav6738_ClosingLine,
};

void Alohav6738(frmTimeImport& F) {
  F.InitFiles();
  Alohav6738_Walk w{.F = F, .jobs = F.Fields<AlohaJobTable>(), .steps = kAlohav6738_Steps};
  F.ImportRec.Branch = F.S.Checked(chkBr) ? "1" : "";
  Alohav6738_Read(w);
}

}  // namespace

void Alohav6738_MarkerLine(Alohav6738_Walk& w, const std::string& line) {
  std::string text = Trim(Replace(line, "*", ""));
  text = Trim(Replace(text, "Emp", ""));
  // without two blanks there is no name, and the one before stands
  ResumeNext([&] { w.name = Trim(Left(text, InStr(text, "  ") - 1)); });
  text = Trim(Replace(Replace(text, w.name, ""), "#", ""));
  w.number = Trim(Left(text, 4));
}

std::string Alohav6738_JobName(const std::string& line) {
  return Trim(Replace(Replace(Replace(line, ":", ""), "Total", ""), ",", ""));
}

namespace {

// A line with no flag set: told by its first three characters.
void Alohav6738_PlainLine(Alohav6738_Walk& w, const std::string& line) {
  if (Trim(Replace(line, ",", "")).empty()) return;
  if (line.starts_with("Emp")) return;  // heading line
  if (line.starts_with("***")) {
    Alohav6738_MarkerLine(w, line);
  } else if (line.starts_with("Tot")) {
    w.steps.TotalLine(w, line);
  } else if (line.starts_with("TTL")) {
    w.after_ttl = true;
  }
}

}  // namespace

void Alohav6738_Read(Alohav6738_Walk& w) {
  InputFile& in = w.F.File(1);
  std::string& line = w.F.InRec;
  while (!in.Eof()) {
    in.LineInput(line);
    if (w.after_total) {
      w.after_total = false;
      w.steps.FiguresLine(w, line);
    } else if (w.after_ttl) {
      w.after_ttl = false;
      w.expect_closing = true;
    } else if (w.expect_closing) {
      // the employee ends here: his jobs are written, and the table starts anew
      w.expect_closing = false;
      w.steps.ClosingLine(w, line);
      w.job_count = 0;
      w.after_total = false;
      w.after_ttl = false;
    } else {
      Alohav6738_PlainLine(w, line);
    }
  }
}

extern const Translator kAlohaV5313Translator{
    .name = "AlohaV5313",
    .translate = AlohaV5313,
    .run = AlohaV5313_Branch,
};

extern const Translator kAlohav6542Translator{
    .name = "Alohav6542",
    .run = Alohav6542,
};

extern const Translator kAlohav6544Translator{
    .name = "Alohav6544",
    .run = Alohav6544,
};

extern const Translator kAlohav6722Translator{
    .name = "Alohav6722",
    .run = Alohav6722,
};

extern const Translator kAlohav5326Translator{
    .name = "Alohav5326",
    .run = Alohav5326,
};

extern const Translator kAlohav6738Translator{
    .name = "Alohav6738",
    .run = Alohav6738,
};

}  // namespace corvane
