// The Aloha labour reports that need a side file beside the export: a cross-reference that
// turns a job name into a division, a department or an earning code. The side file lies in
// the export's own folder. Beside them stand three report forms of the same family that need
// none. As in the other Aloha reports, fields a translator leaves alone keep the value of the
// record before.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "runtime/workbook.hpp"
#include "translators/restaurant/aloha_job_table.hpp"
#include "translators/restaurant/aloha_lines.hpp"

namespace corvane {

namespace {

// The side file is read under this number, the export being number 1.
constexpr int kXRefFile = 2;

// Field n (from 1) of a line split at commas into at most `count` fields, the last holding
// all that follows it; a field the line does not have is blank.
std::string AlohaXRef_Field(const std::vector<std::string>& fields, std::size_t n) {
  return n >= 1 && n <= fields.size() ? Trim(fields[n - 1]) : std::string();
}

// Splits a line into at most `count` fields; the last keeps the rest of the line, commas
// included.
std::vector<std::string> AlohaXRef_Split(const std::string& line, std::size_t count) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  while (fields.size() + 1 < count) {
    const std::size_t comma = line.find(',', start);
    if (comma == std::string::npos) break;
    fields.push_back(line.substr(start, comma - start));
    start = comma + 1;
  }
  fields.push_back(line.substr(start));
  return fields;
}

// The side file's full name: the export's folder and the name the operator gave.
std::string AlohaXRef_Path(const frmTimeImport& F, const std::string& name) {
  return F.ExtractInputPath().str() + name;
}

// Reads a cross-reference of delimited rows from the export's folder to its end, each row as
// read_row reads it, keeping the first `kept`. A file that is missing or cut short leaves the
// rows read before, and no message.
template <class Row, class ReadRow>
void AlohaXRef_ReadRows(frmTimeImport& F, const std::string& name, std::size_t kept,
                        std::vector<Row>& rows, ReadRow read_row) {
  rows.clear();
  InputFile& in = F.File(kXRefFile);
  try {
    in.Open(AlohaXRef_Path(F, name), OpenMode::Byte);
    while (!in.Eof()) {
      Row row;
      read_row(in, row);
      if (rows.size() < kept) rows.push_back(std::move(row));
    }
  } catch (const RuntimeError&) {
  }
  in.Close();
}

// A cross-reference of "job = value" rows, kept whole and taken apart when looked up.
struct AlohaEqualsXRef {
  std::vector<std::string> rows;

  // Reads the file to its end, keeping its first `kept` lines. A file that cannot be read
  // leaves the table as far as it got: the run goes on with blank values.
  void Read(frmTimeImport& F, const std::string& path, std::size_t kept) {
    rows.clear();
    InputFile& in = F.File(kXRefFile);
    std::string line;
    try {
      in.Open(path, OpenMode::Byte);
      while (!in.Eof()) {
        in.LineInput(line);
        if (rows.size() < kept) rows.push_back(line);
      }
    } catch (const RuntimeError&) {
    }
    in.Close();
  }

  // The right side of the first row whose left side is the job; false when none is. A row
  // without "=" names no job.
  bool Find(const std::string& job, std::string& value) const {
    for (const std::string& row : rows) {
      const std::size_t eq = row.find('=');
      if (eq == std::string::npos) continue;
      if (Trim(row.substr(0, eq)) == job) {
        value = Trim(row.substr(eq + 1));
        return true;
      }
    }
    return false;
  }
};

// Asks for the side file by the time clock's name and reads it.
void AlohaXRef_AskAndRead(frmTimeImport& F, AlohaEqualsXRef& xref, std::string_view title,
                          std::string_view default_name, std::size_t kept) {
  const std::string name = F.ui.InputBox(
      "What is the name of the cross reference file you will use?", title, default_name);
  F.Response = name;
  xref.Read(F, AlohaXRef_Path(F, name), kept);
}

// A marker line "*** Emp <number>  <name>": the number stands before the first two blanks.
// Without two blanks there is nothing to cut, and the run ends with the platform's report.
void AlohaXRef_MarkerLine(frmTimeImport& F, const std::string& line, bool name_without_commas) {
  ImportRecord& r = F.ImportRec;
  std::string text = Trim(Replace(line, "*", ""));
  text = Trim(Replace(text, "Emp", ""));
  const long blanks = InStr(text, "  ");
  r.Employee_no = Trim(Left(text, blanks - 1));
  const std::string name = Mid(text, blanks);
  r.Employee_Name = Trim(name_without_commas ? Replace(name, ",", "") : name);
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.2" and "Aloha v6.2.12": the report as a comma file. Per employee a marker line,
// per job a "Total" line naming the job, and the figures line under it. The job's division
// comes from the cross-reference. Only overtime looks at the minimum wage.

struct Alohav62_Layout {
  std::string_view title;
  std::string_view default_name;
  std::size_t fields;                                      // the last holds the rest of the line
  std::size_t rate, reg_hours, ot_hours, card_tips, tips;  // card_tips 0: none
  bool zero_rate_blank;  // a rate of "0" goes out blank, and overtime then takes plain OT
};

constexpr Alohav62_Layout kAlohav62{"Aloha v6.2", "Alohav62_XRef.txt", 12, 4, 5, 8, 0, 12, false};
constexpr Alohav62_Layout kAlohav6212{
    "Aloha v6.2.12", "Alohav6212_XRef.txt", 15, 6, 7, 10, 14, 15, true};

struct Alohav62Fields {
  AlohaEqualsXRef xref;
};

void Alohav62_Figures(frmTimeImport& F, const Alohav62_Layout& v,
                      const std::vector<std::string>& fields) {
  ImportRecord& r = F.ImportRec;
  const std::string rate = AlohaXRef_Field(fields, v.rate);
  const bool zero_rate = v.zero_rate_blank && rate == "0";

  const std::string reg = AlohaXRef_Field(fields, v.reg_hours);
  if (NumericAbove0(Value(reg))) {
    F.Apply(Cat::Reg);
    r.payrate = zero_rate ? std::string() : rate;
    r.Amount = "";
    r.Hours = reg;
    F.WriteOutputRec();
  }

  const std::string ot = AlohaXRef_Field(fields, v.ot_hours);
  if (NumericAbove0(Value(ot))) {
    if (zero_rate) {
      r.payrate = "";
      F.Apply(Cat::OT);
    } else {
      r.payrate = rate;
      F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
    }
    r.Amount = "";
    r.Hours = ot;
    F.WriteOutputRec();
  }

  auto dollars = [&](std::size_t n, Cat category) {
    const std::string amount = AlohaXRef_Field(fields, n);
    if (!NumericAbove0(Value(amount))) return;
    F.Apply(category);
    r.payrate = r.Hours = "";
    r.Amount = amount;
    F.WriteOutputRec();
  };
  if (v.card_tips != 0) dollars(v.card_tips, Cat::CCTips);
  dollars(v.tips, Cat::Tips);
}

void Alohav62_Run(frmTimeImport& F, const Alohav62_Layout& v) {
  ImportRecord& r = F.ImportRec;
  const AlohaEqualsXRef& xref = F.Fields<Alohav62Fields>().xref;
  F.InitFiles();
  r.Branch = F.S.Checked(chkBr) ? "1" : "";

  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  bool after_total = false;
  while (!in.Eof()) {
    in.LineInput(line);
    if (Trim(Replace(line, ",", "")).empty()) continue;
    const std::vector<std::string> fields = AlohaXRef_Split(line, v.fields);
    ++F.TCcount;
    if (line.starts_with("*** E")) {
      AlohaXRef_MarkerLine(F, line, true);
    } else if (line.starts_with("Total")) {
      // a second total line before the figures is passed over
      if (after_total) continue;
      std::string division;
      xref.Find(Alohav6738_JobName(line), division);
      r.Division = division;
      after_total = true;
    } else if (after_total) {
      Alohav62_Figures(F, v, fields);
      after_total = false;
    }
  }
}

void Alohav62_Prepare(frmTimeImport& F) {
  AlohaXRef_AskAndRead(F, F.Fields<Alohav62Fields>().xref, kAlohav62.title, kAlohav62.default_name,
                       50);
}
void Alohav62(frmTimeImport& F) {
  Alohav62_Run(F, kAlohav62);
}
void Alohav6212_Prepare(frmTimeImport& F) {
  AlohaXRef_AskAndRead(F, F.Fields<Alohav62Fields>().xref, kAlohav6212.title,
                       kAlohav6212.default_name, 50);
}
void Alohav6212(frmTimeImport& F) {
  Alohav62_Run(F, kAlohav6212);
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.2.27" and "Aloha v5.3.17": the job-table report, its jobs turned into divisions
// by the cross-reference. The employee is known by his social security number alone, which
// stands on his closing line.

struct Alohav6227_Layout {
  std::size_t fields;  // 0: as many as the line has; else the last holds the rest of it
  long rate, reg_hours, ot_rate, ot_hours, card_tips, decl_tips;
};

constexpr Alohav6227_Layout kAlohav6227{15, 6, 7, 9, 10, 14, 15};
constexpr Alohav6227_Layout kAlohav5317{0, 5, 6, 8, 9, 13, 14};

struct Alohav6227Fields {
  AlohaEqualsXRef xref;
  const Alohav6227_Layout* layout = &kAlohav6227;
};

// A job's total line: the job's division, when the cross-reference knows the job, goes in
// the row; a job it does not know leaves what the row held.
void Alohav6227_TotalLine(Alohav6738_Walk& w, const std::string& line) {
  ++w.job_count;
  ++w.F.TCcount;
  std::string division;
  if (w.F.Fields<Alohav6227Fields>().xref.Find(Alohav6738_JobName(line), division)) {
    ResumeNext([&] { w.jobs.Row(w.job_count).JobName = division; });
  }
  w.after_total = true;
}

void Alohav6227_FiguresLine(Alohav6738_Walk& w, const std::string& line) {
  const Alohav6227_Layout& v = *w.F.Fields<Alohav6227Fields>().layout;
  const std::vector<std::string> fields =
      v.fields == 0 ? Split(line, ",") : AlohaXRef_Split(line, v.fields);
  const std::string& quote = w.F.quote;
  auto store = [&](std::string AlohaJobRow::*member, long n) {
    ResumeNext([&] {
      w.jobs.Row(w.job_count).*member = Trim(Replace(AlohaSplitField(fields, n), quote, ""));
    });
  };
  store(&AlohaJobRow::Rate, v.rate);
  store(&AlohaJobRow::RegHours, v.reg_hours);
  store(&AlohaJobRow::OTRate, v.ot_rate);
  store(&AlohaJobRow::OTHours, v.ot_hours);
  store(&AlohaJobRow::CCTips, v.card_tips);
  store(&AlohaJobRow::DeclTips, v.decl_tips);
}

// One job: regular hours, overtime hours, card tips, declared tips, under the job's division.
void Alohav6227_WriteRow(frmTimeImport& F, const AlohaJobRow& row) {
  ImportRecord& r = F.ImportRec;
  r.Division = row.JobName;
  r.Amount = "";
  const bool zero_rate = Trim(row.Rate) == "0";

  if (NumericAbove0(Value(row.RegHours))) {
    r.payrate = zero_rate ? std::string() : Trim(row.Rate);
    F.Apply(Cat::Reg);
    r.Hours = Trim(row.RegHours);
    F.WriteOutputRec();
  }

  if (NumericAbove0(Value(row.OTHours))) {
    if (zero_rate) {
      r.payrate = "";
      F.Apply(Cat::OT);
    } else {
      r.payrate = Trim(row.Rate);
      F.Apply(AlohaBelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
    }
    r.Hours = Trim(row.OTHours);
    F.WriteOutputRec();
  }

  auto dollars = [&](const std::string& amount, Cat category) {
    if (!NumericAbove0(Value(amount))) return;
    F.Apply(category);
    r.payrate = r.Hours = "";
    r.Amount = Trim(amount);
    F.WriteOutputRec();
  };
  dollars(row.CCTips, Cat::CCTips);
  dollars(row.DeclTips, Cat::Tips);
}

// The closing line: field 4 is the social security number, by which alone the payroll knows
// the employee here.
void Alohav6227_ClosingLine(Alohav6738_Walk& w, const std::string& line) {
  ImportRecord& r = w.F.ImportRec;
  const std::vector<std::string> fields = AlohaXRef_Split(line, 14);
  r.Employee_Name = w.name;
  r.Employee_no = "";
  // a closing line too short to hold the number leaves the one before
  ResumeNext([&] { r.SSN = Trim(Replace(AlohaSplitField(fields, 4), "-", "")); });
  for (long n = 1; n <= w.job_count; ++n) {
    ResumeNext([&] { Alohav6227_WriteRow(w.F, w.jobs.Row(n)); });
  }
}

constexpr Alohav6738_Steps kAlohav6227_Steps{
    .TotalLine = Alohav6227_TotalLine,
    .FiguresLine = Alohav6227_FiguresLine,
    .ClosingLine = Alohav6227_ClosingLine,
};

void Alohav6227_Run(frmTimeImport& F, const Alohav6227_Layout& v) {
  F.InitFiles();
  F.Fields<Alohav6227Fields>().layout = &v;
  Alohav6738_Walk w{.F = F, .jobs = F.Fields<AlohaJobTable>(), .steps = kAlohav6227_Steps};
  F.ImportRec.Branch = F.S.Checked(chkBr) ? "1" : "";
  Alohav6738_Read(w);
}

void Alohav6227_Prepare(frmTimeImport& F) {
  AlohaXRef_AskAndRead(F, F.Fields<Alohav6227Fields>().xref, "Aloha v6.2.27", "Alohav6227_XRef.txt",
                       25);
}
void Alohav6227(frmTimeImport& F) {
  Alohav6227_Run(F, kAlohav6227);
}
void Alohav5317_Prepare(frmTimeImport& F) {
  AlohaXRef_AskAndRead(F, F.Fields<Alohav6227Fields>().xref, "Aloha v5.3.17", "Alohav5317_XRef.txt",
                       25);
}
void Alohav5317(frmTimeImport& F) {
  Alohav6227_Run(F, kAlohav5317);
}

// ---------------------------------------------------------------------------------------
// "Aloha v5.3.20": a report laid out with blanks, for one client whose cross-reference
// always has the same name. The figures line is read word by word: 1 rate, 2 regular hours,
// 3 overtime rate, 4 overtime hours, 5 and 6 total hours and pay, 7 tips. Earning codes go
// out with at least two digits.

struct Alohav5320Fields {
  AlohaEqualsXRef xref;
};

// Word n (from 1) of the figures line; a word the line does not have is blank.
std::string Alohav5320_Word(const std::vector<std::string>& words, std::size_t n) {
  return n <= words.size() ? words[n - 1] : std::string();
}

void Alohav5320_Apply(frmTimeImport& F, Cat category) {
  F.Apply(category);
  F.ImportRec.Earning_Code = Format(F.ImportRec.Earning_Code, "00");
}

void Alohav5320_Figures(frmTimeImport& F, const std::string& line) {
  ImportRecord& r = F.ImportRec;
  std::string text = Trim(line);
  while (text.find("  ") != std::string::npos) text = Replace(text, "  ", " ");
  const std::vector<std::string> words = Split(text, " ");
  auto worth_writing = [](const Value& v) { return v != Value("0.00") && v != Value(""); };

  r.payrate = Trim(Alohav5320_Word(words, 1));
  r.Hours = Alohav5320_Word(words, 2);
  r.Amount = "";
  Alohav5320_Apply(F, Cat::Reg);
  if (worth_writing(r.Hours)) F.WriteOutputRec();

  Alohav5320_Apply(F, AlohaBelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
  r.Hours = Alohav5320_Word(words, 4);
  r.Amount = "";
  if (worth_writing(r.Hours)) F.WriteOutputRec();

  Alohav5320_Apply(F, Cat::Tips);
  r.payrate = r.Hours = "";
  r.Amount = Alohav5320_Word(words, 7);
  if (worth_writing(Value(r.Amount))) F.WriteOutputRec();
}

void Alohav5320_Prepare(frmTimeImport& F) {
  F.Fields<Alohav5320Fields>().xref.Read(F, AlohaXRef_Path(F, "Farmhouse_XRef.txt"), 50);
}

// Lines are read one ahead, so the last line of the file is never looked at.
void Alohav5320(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const AlohaEqualsXRef& xref = F.Fields<Alohav5320Fields>().xref;
  F.InitFiles();

  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  bool after_total = false;
  in.LineInput(line);
  while (!in.Eof()) {
    ++F.TCcount;
    // only a line with nothing on it is passed over: a line of blanks under a "Total" line is
    // that job's figures line, and pays nothing
    if (!line.empty()) {
      if (line.starts_with("*** E")) {
        AlohaXRef_MarkerLine(F, line, false);
      } else if (line.starts_with("Total")) {
        if (!after_total) {
          std::string division;
          xref.Find(Alohav6738_JobName(line), division);
          r.Division = division;
          after_total = true;
        }
      } else if (after_total) {
        Alohav5320_Figures(F, line);
        after_total = false;
      }
    }
    in.LineInput(line);
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v5.3.46": rows of 17 comma fields under seven title lines: 1 always "0", 2 the
// employee number or a marker, 3 name, 5 job, 9 rate, 10 regular hours, 11 overtime hours,
// 14 card tips, 15 declared tips, 16 tippable sales, 17 sales share. The employee's totals
// row, the first row with a rate after his "TTL Emp" row, carries what is paid. The
// cross-reference turns his job into a department.

struct Alohav5346Fields {
  std::array<Value, 18> f;                                // fields 1 to 17
  std::vector<std::pair<std::string, std::string>> xref;  // job and department, as read
};

void Alohav5346_Prepare(frmTimeImport& F) {
  std::string name;
  do {
    name = F.ui.InputBox("Enter the name of your cross reference file.", kAppTitle,
                         "Aloha v5.3.46 XRef.txt");
  } while (Trim(name).empty());
  F.Response = name;

  AlohaXRef_ReadRows(F, name, 20, F.Fields<Alohav5346Fields>().xref,
                     [](InputFile& in, std::pair<std::string, std::string>& row) {
                       in.Input(row.first);
                       in.Input(row.second);
                     });
}

void Alohav5346_ReadRow(frmTimeImport& F) {
  auto& f = F.Fields<Alohav5346Fields>().f;
  InputFile& in = F.File(1);
  for (std::size_t n = 1; n <= 17; ++n) in.Input(f[n]);
}

void Alohav5346(frmTimeImport& F) {
  Alohav5346Fields& in = F.Fields<Alohav5346Fields>();
  const auto& f = in.f;
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  r.Division = r.Branch = r.Shift = r.Team = r.Employee_Name = r.Hours = "";
  r.SSN = "";
  r.Seq = "1";

  InputFile& file = F.File(1);
  for (int n = 1; n <= 7; ++n) file.LineInput(F.InRec);
  bool totals_next = false;
  Alohav5346_ReadRow(F);
  // the row that ends the file is never looked at
  while (!file.Eof() && f[1] == Value("0")) {
    ++F.TCcount;
    if (!Trim(f[2]).empty()) {
      r.Employee_no = Trim(f[2]);
      r.Employee_Name = Trim(f[3]);
      const std::string job = UCase(f[5]);
      for (const auto& [xjob, value] : in.xref) {
        if (UCase(xjob) == job) {
          r.Department = value;
          break;
        }
      }
    }
    if (InStr(f[2], "TTL Emp") > 0) totals_next = true;
    if (totals_next && !Trim(f[9]).empty()) {
      r.payrate = "";
      auto hours = [&](std::size_t n, Cat category) {
        if (NumericAbove0(f[n])) F.WriteHours(category, f[n]);
      };
      auto dollars = [&](std::size_t n, Cat category) {
        if (NumericAbove0(f[n])) F.WriteDollars(category, f[n].str());
      };
      hours(10, Cat::Reg);
      hours(11, Cat::OT);
      dollars(14, Cat::CCTips);
      dollars(15, Cat::Tips);
      dollars(16, Cat::Sales);
      dollars(17, Cat::Hol);
      totals_next = false;
    }
    Alohav5346_ReadRow(F);
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v6.1.1.3": the report of v6.2 whose earning codes come from a workbook. A row of the
// workbook's first sheet names a code (column A, a D-or-E letter and two characters), what it
// pays (column B, "Overtime" for overtime hours) and the job (column E); two rows name the
// codes of tips and of tippable sales instead of a job.

struct Alohav6113Fields {
  std::array<std::string, 51> entries;  // 1 to 50: code, ",", kind, ",", job
  std::string tips_code, sales_code;
  std::string reg_code, ot_code;  // of the last job found
};

void Alohav6113_ReadWorkbook(frmTimeImport& F, const std::string& path) {
  Alohav6113Fields& x = F.Fields<Alohav6113Fields>();
  try {
    const std::unique_ptr<Workbook> book = Workbook::Open(path);
    const Sheet& sheet = book->FirstSheet();
    for (long row = 2; !Trim(sheet.Cell("A", row)).empty(); ++row) {
      const std::string A = Trim(sheet.Cell("A", row));
      const std::string E = Trim(sheet.Cell("E", row));
      if (E == "CC Tips and Decl Tips") {
        x.tips_code = A;
      } else if (E == "Emp Tippable Sales") {
        x.sales_code = A;
      } else if (row - 1 <= 50) {
        x.entries[static_cast<std::size_t>(row - 1)] =
            A + "," + Trim(sheet.Cell("B", row)) + "," + E;
      }
    }
  } catch (const RuntimeError&) {
  }
}

void Alohav6113_Prepare(frmTimeImport& F) {
  Alohav6113Fields& x = F.Fields<Alohav6113Fields>();
  x = Alohav6113Fields{};
  const std::string name = F.ui.InputBox(
      "What is the name of the cross reference file you will use?", "Aloha v6.1.1.3", "*.xls");
  F.Response = name;
  if (name != "*.xls") {
    F.ui.Progress("Reading Excel Workbook...");
    Alohav6113_ReadWorkbook(F, AlohaXRef_Path(F, name));
  }
  F.ui.Progress("Processing Input File");
}

// The job's codes: every entry of the job gives one, its overtime code where its kind says
// "Overtime", else its regular code. A job without an entry keeps the codes before.
void Alohav6113_Job(Alohav6113Fields& x, const std::string& job) {
  for (std::size_t n = 1; n <= 50; ++n) {
    const std::string& entry = x.entries[n];
    const std::size_t first = entry.find(',');
    if (first == std::string::npos) continue;
    const std::size_t second = entry.find(',', first + 1);
    if (second == std::string::npos || entry.substr(second + 1) != job) continue;
    if (entry.substr(first + 1, second - first - 1).find("Overtime") != std::string::npos) {
      x.ot_code = entry.substr(0, first);
    } else {
      x.reg_code = entry.substr(0, first);
    }
  }
}

// A code's first character is the D-or-E letter, its last two the earning code.
void Alohav6113_Apply(frmTimeImport& F, const std::string& code) {
  F.ImportRec.DorE = Left(code, 1);
  F.ImportRec.Earning_Code = Right(code, 2);
}

// 7 regular hours, 8 overtime hours, 10 card tips, 11 declared tips, 12 and the rest of the
// line tippable sales. The rate is not read: payrate keeps what it held.
void Alohav6113_Figures(frmTimeImport& F, const std::vector<std::string>& fields) {
  ImportRecord& r = F.ImportRec;
  const Alohav6113Fields& x = F.Fields<Alohav6113Fields>();
  auto hours = [&](std::size_t n, const std::string& code) {
    const std::string h = AlohaXRef_Field(fields, n);
    if (!NumericAbove0(Value(h))) return;
    Alohav6113_Apply(F, code);
    r.Amount = "";
    r.Hours = h;
    F.WriteOutputRec();
  };
  auto dollars = [&](const std::string& amount, const std::string& code) {
    if (!NumericAbove0(Value(amount))) return;
    Alohav6113_Apply(F, code);
    r.Hours = "";
    r.Amount = amount;
    F.WriteOutputRec();
  };
  hours(7, x.reg_code);
  hours(8, x.ot_code);
  dollars(AlohaXRef_Field(fields, 10), x.tips_code);
  dollars(AlohaXRef_Field(fields, 11), x.tips_code);
  dollars(Trim(Replace(Replace(AlohaXRef_Field(fields, 12), F.quote, ""), ",", "")), x.sales_code);
}

void Alohav6113(frmTimeImport& F) {
  Alohav6113Fields& x = F.Fields<Alohav6113Fields>();
  F.InitFiles();
  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  bool after_total = false;
  while (!in.Eof()) {
    in.LineInput(line);
    if (Trim(Replace(line, ",", "")).empty()) continue;
    const std::vector<std::string> fields = AlohaXRef_Split(line, 12);
    ++F.TCcount;
    if (line.starts_with("*** E")) {
      AlohaXRef_MarkerLine(F, line, true);
    } else if (line.starts_with("Total")) {
      if (after_total) continue;
      Alohav6113_Job(x, Alohav6738_JobName(line));
      after_total = true;
    } else if (after_total) {
      Alohav6113_Figures(F, fields);
      after_total = false;
    }
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha v6": transaction lines. A "B" line holds the employee number at 5 and, from 15 on,
// a chain of three-character codes, each followed by its data, closed by "z". Money and
// hours carry implied decimals. The company's department breakout cuts the "008" data into
// branch and department; the "018" code can take its earning code from the cross-reference.

struct AlohaFields {
  struct Row {
    std::string code, DorE, Earning_Code;
  };
  std::vector<Row> xref;
  std::string AlohaDeptKept, AlohaBrKept;  // 6 characters each
  std::string AlohaPrevEmp;                // 6 characters
};

// Fixed text of 6 characters: cut or filled with blanks.
std::string AlohaFixed6(const std::string& text) {
  std::string fixed = text.substr(0, std::min<std::size_t>(text.size(), 6));
  fixed.resize(6, ' ');
  return fixed;
}

// Digits with two implied decimals, or four.
std::string AlohaHundredths(const std::string& digits) {
  return Format(Value(Value(digits).ToNumber() / 100), "####.00");
}
std::string AlohaTenThousandths(const std::string& digits) {
  return Format(Value(Value(digits).ToNumber() / 10000), "###.00##");
}

// A segment length of the breakout; a box that holds no number counts as no segment.
long AlohaSegment(const Control& box) {
  const Value v(box.text);
  return NumericAbove0(v) ? ToLong(v) : 0;
}

void Aloha_ReadXRef(frmTimeImport& F) {
  const std::string name = F.ui.InputBox("What is the name of your cross reference file?",
                                         kAppTitle, "018 Aloha xref.txt");
  F.Response = name;
  AlohaXRef_ReadRows(F, name, 50, F.Fields<AlohaFields>().xref,
                     [](InputFile& in, AlohaFields::Row& row) {
                       in.Input(row.code);
                       in.Input(row.DorE);
                       in.Input(row.Earning_Code);
                     });
}

// Regular or overtime hours: a rate below the minimum wage marks tipped staff. The rate is
// that of an earlier "011" of the line.
void Aloha_Worked(frmTimeImport& F, Cat wait, Cat normal) {
  const ImportRecord& r = F.ImportRec;
  const bool tipped = !Trim(r.payrate).empty() && AlohaBelowMinWage(F, r.payrate);
  F.Apply(tipped ? wait : normal);
}

// Acts on one code C with the rest of the line T behind it, and sets the step to where the
// next code stands in T.
void Aloha_Code(frmTimeImport& F, const std::string& C, const std::string& T, long& step) {
  ImportRecord& r = F.ImportRec;
  AlohaFields& a = F.Fields<AlohaFields>();
  auto letter_category = [&](std::initializer_list<std::pair<char, Cat>> letters, Cat& out) {
    const std::string letter = Mid(T, 2, 1);
    for (const auto& [l, category] : letters) {
      if (letter.size() == 1 && letter[0] == l) {
        out = category;
        return true;
      }
    }
    return false;
  };

  if (C == "008") {
    const frmTMdept& tm = F.TMdept;
    const long BrLen = AlohaSegment(tm.BrLen);
    const long DeptLen = AlohaSegment(tm.DeptLen);
    r.Branch = r.Department = "";
    if (BrLen > 0 && tm.BrInc.text == "T") r.Branch = Left(T, BrLen);
    if (DeptLen > 0 && tm.DeptInc.text == "T") r.Department = Mid(T, BrLen + 1, DeptLen);
    a.AlohaDeptKept = AlohaFixed6(r.Department.str());
    a.AlohaBrKept = AlohaFixed6(r.Branch.str());
    r.Hours = "";
    r.Amount = "";
    step = 7;
  } else if (C == "010") {
    r.Shift = Left(T, 1);
    step = 2;
  } else if (C == "011") {
    r.payrate = AlohaTenThousandths(Left(T, 7));
    r.Hours = "";
    step = 9;
  } else if (C == "012") {
    Aloha_Worked(F, Cat::WaitReg, Cat::Reg);
    const std::string hours = AlohaHundredths(Left(T, 7));
    r.Hours = InStr(Mid(T, 3, 8), "-") > 0 ? "-" + hours : hours;
    r.Amount = "";
    step = 9;
  } else if (C == "013") {
    Aloha_Worked(F, Cat::WaitOT, Cat::OT);
    const std::string hours = AlohaHundredths(Left(T, 7));
    r.Hours = Mid(T, 8, 1) == "-" ? "-" + hours : hours;
    r.Amount = "";
    step = 9;
  } else if (C == "018" && (F.S.Checked(chkXref) || F.S.Checked(chkBr))) {
    // the cross-reference box of this clock is shown as chkBr, captioned "Use 018 xRef?",
    // while chkXref stays hidden: either box ticked sends code 018 to the cross-reference
    const std::string code = Trim(Left(T, 2));
    const auto row = std::find_if(a.xref.begin(), a.xref.end(),
                                  [&](const AlohaFields::Row& x) { return x.code == code; });
    if (row != a.xref.end()) {
      r.DorE = row->DorE;
      r.Earning_Code = row->Earning_Code;
    } else {
      F.MsgBox("Code: " + code + " not found in xRef file.");
    }
    const std::string digits = Mid(Replace(Replace(T, "-", ""), "z", ""), 3, 7);
    std::string hours = Trim(digits).empty() ? std::string() : AlohaHundredths(digits);
    r.Hours = InStr(Mid(T, 3, 8), "-") > 0 ? "-" + hours : hours;
    r.Amount = "";
    step = 11;
  } else if (C == "016" || C == "017" || C == "018") {
    Cat category = Cat::Reg;
    if (letter_category({{'A', Cat::AdjH},
                         {'D', Cat::Disb},
                         {'S', Cat::Abs},
                         {'H', Cat::Hol},
                         {'P', Cat::e15},
                         {'V', Cat::Dbl}},
                        category)) {
      F.Apply(category);
    } else {
      F.MsgBox("Unexpected Hours Code " + C + ": " + Mid(T, 2, 1));
    }
    r.Hours = AlohaHundredths(Mid(T, 3, 7));
    r.Amount = "";
    step = 11;
  } else if (C == "020") {
    F.Apply(Cat::Tips);
    r.Hours = "";
    r.Amount = AlohaHundredths(Mid(T, 3, 7));
    step = 11;
  } else if (C == "022") {
    Cat category = Cat::AdjD;
    if (letter_category({{'A', Cat::AdjD}, {'B', Cat::Misc}}, category)) {
      F.Apply(category);
    } else {
      F.MsgBox("Unexpected Dollars Code 022 : " + Mid(T, 2, 1));
    }
    r.Hours = "";
    r.Amount = AlohaHundredths(Mid(T, 3, 7));
    step = 11;
  } else if (C == "024") {
    F.Apply(Cat::Sales);
    r.Hours = "";
    r.Amount = AlohaHundredths(Mid(T, 3, 7));
    step = 11;
  } else if (C == "028") {
    // the sales figure stands one place further on when a blank comes before it
    F.Apply(Cat::Sales);
    r.Hours = "";
    if (Mid(T, 4, 1) == " ") {
      r.Amount = AlohaHundredths(Mid(T, 5, 7));
      step = 13;
    } else {
      r.Amount = AlohaHundredths(Mid(T, 4, 7));
      step = 12;
    }
  } else if (C == "029") {
    F.Apply(Cat::CCTips);
    r.Hours = "";
    r.Amount = AlohaHundredths(Mid(T, 5, 7));
    step = 13;
  } else {
    // the walk goes on from where the code before would have taken it
    F.MsgBox("unexpected transaction type found: " + C);
  }
}

// One "B" line. A code that writes nothing leaves Hours and Amount as they stand, so a later
// write of the line may carry what an earlier code set.
void Aloha(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  AlohaFields& a = F.Fields<AlohaFields>();
  const std::string& line = F.InRec;

  r.Employee_Name = r.Department = r.payrate = r.Hours = r.Division = r.Branch = "";
  r.Amount = "";
  r.Job = r.Shift = r.Team = "";
  r.SSN = "";
  r.DorE = "E";
  r.Seq = "1";
  r.Employee_no = Trim(Mid(line, 5, 6));
  a.AlohaDeptKept = AlohaFixed6("");
  a.AlohaBrKept = AlohaFixed6("");
  a.AlohaPrevEmp = AlohaFixed6(r.Employee_no.str());

  std::string C = Mid(line, 15, 3);
  std::string T = Mid(line, 18, 65);
  long step = 0;
  // a line cut short before its closing "z" ends where its text does
  while (Left(T, 1) != "z" && !T.empty()) {
    Aloha_Code(F, C, T, step);
    // the number is compared as the 6 characters it is kept in
    if (r.Employee_no == Value(a.AlohaPrevEmp) && Trim(r.Department).empty()) {
      r.Department = Trim(a.AlohaDeptKept);
      r.Branch = Trim(a.AlohaBrKept);
    }
    if (r.Amount != "" || r.Hours != Value("")) F.WriteOutputRec();
    C = Mid(T, step, 3);
    T = Mid(T, step + 3);
  }
}

// The branch after InitFiles: the company's department breakout, the cross-reference, the
// heading line, then every "B" line.
void Aloha_Branch(frmTimeImport& F) {
  F.TMdept.Set_rsTM();
  Aloha_ReadXRef(F);
  InputFile& in = F.File(1);
  in.LineInput(F.InRec);
  while (!in.Eof()) {
    in.LineInput(F.InRec);
    if (Left(F.InRec, 1) == "B") {
      ++F.TCcount;
      Aloha(F);
    }
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha Enterprise": the workbook itself, one row per employee and job, with heading and
// subtotal rows among them. Column D, the social security number, tells an employee row. The
// sheet ends at its "Grand" total row.

void AlohaEnterprise(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  F.WkbObj = Workbook::Open(F.INFile.str());
  const Sheet& sheet = F.WkbObj->ActiveSheet();
  const long last = sheet.LastRow().IsBlank() ? 0 : static_cast<long>(sheet.LastRow().number());

  Value A;
  // a sheet without its "Grand" row ends at its last row rather than never
  while (Left(A, 5) != "Grand" && F.TCcount < last) {
    const long row = F.TCcount + 1;
    F.ui.Progress("Processing Aloha Enterprise record: " + std::to_string(row));
    A = sheet.Cell("A", row);
    const Value B = sheet.Cell("B", row), D = sheet.Cell("D", row), E = sheet.Cell("E", row);
    const Value Fc = sheet.Cell("F", row);
    ++F.TCcount;
    if (Trim(D).empty() || !D.IsNumeric()) continue;

    r.Employee_no = A;
    r.Employee_Name = B;
    r.Department = E;
    r.Division = r.Branch = r.Shift = r.Team = r.Job = "";
    r.Seq = "1";
    r.SSN = D.str();
    r.payrate = F.S.Checked(chkPayRate) ? Fc : Value("");

    auto figure = [&](const char* column, Cat category, bool hours) {
      const Value v = sheet.Cell(column, row);
      const std::string t = Trim(v);
      if (t.empty() || t == "0") return;
      if (hours) {
        F.WriteHours(category, v);
      } else {
        F.WriteDollars(category, v.str());
      }
    };
    figure("H", Cat::Reg, true);
    figure("J", Cat::OT, true);
    figure("L", Cat::Dbl, false);
    figure("M", Cat::Tips, false);
    figure("N", Cat::e15, false);
    figure("O", Cat::e16, false);
    figure("P", Cat::e17, false);
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha Labor Scheduler (5.3.19)": a comma report of 14 fields a row with a detail part and
// a "SUMMARY" part; only the summary is paid. 1 lead field ("0" on every report row), 2 the
// employee number or a marker, 3 name, 8 rate, 9 regular hours, 10 overtime hours, 12 tips.

struct AlohaLaborSchedFields {
  std::array<Value, 15> f;  // fields 1 to 14
};

void AlohaLaborSched_ReadRow(frmTimeImport& F) {
  auto& f = F.Fields<AlohaLaborSchedFields>().f;
  InputFile& in = F.File(1);
  for (std::size_t n = 1; n <= 14; ++n) in.Input(f[n]);
}

void AlohaLaborSched(frmTimeImport& F) {
  const auto& f = F.Fields<AlohaLaborSchedFields>().f;
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  InputFile& in = F.File(1);
  for (int n = 1; n <= 6; ++n) in.LineInput(F.InRec);
  AlohaLaborSched_ReadRow(F);

  bool summary = false;
  // the row that ends the file is never looked at
  while (!in.Eof() && f[1] == Value("0")) {
    ++F.TCcount;
    const std::string marker = Trim(f[2]);
    if (summary && marker == "TOTALS:") summary = false;
    if (summary && IsNumeric(marker)) {
      r.Employee_no = marker;
      r.Employee_Name = Trim(f[3]);
      r.payrate = Trim(f[8]);
      r.Amount = "";
      F.Apply(Cat::Reg);
      r.Hours = Trim(f[9]);
      if (r.Hours != Value("0")) F.WriteOutputRec();
      F.Apply(Cat::OT);
      r.Hours = Trim(f[10]);
      if (r.Hours != Value("0")) F.WriteOutputRec();
      r.Hours = "";
      F.Apply(Cat::Tips);
      r.Amount = Trim(f[12]);
      if (r.Amount != "0") F.WriteOutputRec();
    }
    if (!summary && marker == "SUMMARY") {
      summary = true;
      for (int n = 1; n <= 3; ++n) in.LineInput(F.InRec);
    }
    AlohaLaborSched_ReadRow(F);
  }
}

// ---------------------------------------------------------------------------------------
// "Aloha WGL": a printed report in fixed columns. A "***" line carries the employee number
// at 9; under each "Total" line stands a figures line with the rate at 115, regular hours at
// 134, overtime hours at 172 and tips at 229, each 12 wide. The report's own end line does
// not stop the reading: the file's end does.

void AlohaWGL(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  F.InitFiles();
  r.SSN = "";
  r.Employee_Name = r.Department = r.payrate = r.Employee_no = r.Job = "";
  r.Amount = "";
  r.Branch = r.Shift = r.Division = r.Team = "";
  r.DorE = "E";
  r.Seq = "1";

  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  std::string number;
  const Value min_wage(F.S[txtMinWage].text);
  while (!in.Eof()) {
    in.LineInput(line);
    if (line.empty()) continue;
    if (line.starts_with("***")) {
      ++F.TCcount;
      number = Trim(Mid(line, 9, 6));
    }
    if (!line.starts_with("Total")) continue;

    in.LineInput(line);
    const std::string rate = Trim(Mid(line, 115, 12));
    const std::string reg = Trim(Mid(line, 134, 12));
    const std::string ot = Trim(Mid(line, 172, 12));
    const std::string tips = Trim(Mid(line, 229, 12));
    r.Employee_no = number;
    // the whole part is told without converting it to an integer, which a long figure would
    // overflow
    r.payrate = std::fabs(Val(rate)) < 1.0 ? std::string() : rate;

    const bool plain = min_wage == Value(0) || !Below(Value(rate), min_wage);
    if (NumericAbove0(Value(reg))) F.WriteHours(plain ? Cat::Reg : Cat::e15, reg);
    if (NumericAbove0(Value(ot))) F.WriteHours(plain ? Cat::OT : Cat::e16, ot);
    if (NumericAbove0(Value(tips))) {
      F.Apply(Cat::Tips);
      r.Hours = r.payrate = "";
      r.Amount = tips;
      F.WriteOutputRec();
    }
  }
}

}  // namespace

extern const Translator kAlohav62Translator{
    .name = "Alohav62",
    .prepare = Alohav62_Prepare,
    .run = Alohav62,
};

extern const Translator kAlohav6212Translator{
    .name = "Alohav6212",
    .prepare = Alohav6212_Prepare,
    .run = Alohav6212,
};

extern const Translator kAlohav6227Translator{
    .name = "Alohav6227",
    .prepare = Alohav6227_Prepare,
    .run = Alohav6227,
};

extern const Translator kAlohav5317Translator{
    .name = "Alohav5317",
    .prepare = Alohav5317_Prepare,
    .run = Alohav5317,
};

extern const Translator kAlohav5320Translator{
    .name = "Alohav5320",
    .prepare = Alohav5320_Prepare,
    .run = Alohav5320,
};

extern const Translator kAlohav5346Translator{
    .name = "Alohav5346",
    .prepare = Alohav5346_Prepare,
    .run = Alohav5346,
};

extern const Translator kAlohav6113Translator{
    .name = "Alohav6113",
    .prepare = Alohav6113_Prepare,
    .run = Alohav6113,
};

extern const Translator kAlohaTranslator{
    .name = "Aloha",
    .translate = Aloha,
    .run = Aloha_Branch,
};

extern const Translator kAlohaEnterpriseTranslator{
    .name = "AlohaEnterprise",
    .run = AlohaEnterprise,
};

extern const Translator kAlohaLaborSchedTranslator{
    .name = "AlohaLaborSched",
    .run = AlohaLaborSched,
};

extern const Translator kAlohaWGLTranslator{
    .name = "AlohaWGL",
    .run = AlohaWGL,
};

}  // namespace corvane
