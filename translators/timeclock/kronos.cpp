// The Kronos family of time clocks. One family by name and pay-code vocabulary, four shapes of
// input: "Kronos/ADP" packs a chain of transactions into each 82-byte record; the TimeKeeper,
// Hours Summary and Summary formats are printed reports cut at fixed columns; "Kronos v3",
// "Kronos v6 csv", "Kronos (14 Columns)" and "Kronos v2C (Short)" are comma exports whose
// columns are named categories; "Kronos v2c", "Kronos v5a", "Kronos v6" and "Kronos v6 Column
// M" are comma exports whose columns are only numbered, their meaning coming from the
// company's earning-code table.
//
// The screen's labels follow the time clock, so a box's name says nothing of its use here:
// vacation goes to txtDbl in one report and to txtTips in another.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "pipeline/coded_columns.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

constexpr char kCR = '\r';

// ---------------------------------------------------------------------------------------------
// Shared by the family.

// What these clocks never send: cleared before anything is filled, so nothing of the previous
// record leaks into this one.
void KronosRecordDefaults(ImportRecord& r) {
  r.DorE = "E";
  r.Amount = "";
  r.payrate = r.Division = r.Branch = r.Job = r.Team = "";
  r.SSN = "";
  r.Seq = "1";
}

template <std::size_t N>
const Cat* KronosLookup(const std::pair<std::string_view, Cat> (&table)[N],
                        std::string_view label) {
  for (const auto& [known, category] : table) {
    if (known == label) return &category;
  }
  return nullptr;
}

// A segment length of the department breakout, as the customisation form shows it.
long KronosTMLength(const Control& box) {
  return ToLong(Value(box.text));
}

// One numbered column through the company's earning-code table. A column whose position has
// no code goes out with "?" and is marked for the end-of-run message; these clocks mark the
// entry one below the position.
void Kronos_Column(frmTimeImport& F, int j, const Value& figure) {
  if (WriteCodedColumn(F, j, figure)) F.ColumnValues[static_cast<std::size_t>(j - 1)] = "X";
}

// ---------------------------------------------------------------------------------------------
// "Kronos/ADP": after a head record, 82-byte records each holding the file number and a chain
// of transactions. A transaction's code says what it carries and how far on the next code
// stands; the chain ends at a code beginning with "z".

// With the output files open, the customisation form shows the company's department breakout,
// which the translator reads; then the file's head record is dropped.
void KronosADPHeading(frmTimeImport& F) {
  F.TMdept.Set_rsTM();
  F.File(1).Get(F.InRec);
}

// Seven digits with two implied decimals.
std::string KronosADP_Hundredths(const std::string& digits) {
  return Format(Value(Value(digits).ToNumber() / 100), "####.00");
}

// Hours of the regular or overtime kind: a pay rate below the minimum wage marks tipped staff,
// whose hours go to the wait categories. The rate is that of an earlier "011" of the record.
void KronosADP_Worked(frmTimeImport& F, const std::string& T, Cat wait, Cat normal) {
  ImportRecord& r = F.ImportRec;
  r.Hours = KronosADP_Hundredths(Mid(T, 1, 7));
  r.Amount = "";
  const bool tipped = !Trim(r.payrate).empty() && Below(r.payrate, Value(F.S[txtMinWage].text));
  F.Apply(tipped ? wait : normal);
}

// Acts on one transaction C with the text T behind it, and sets the step S to where the next
// code stands in T.
void KronosADP_Transaction(frmTimeImport& F, const std::string& C, const std::string& T, long& S) {
  ImportRecord& r = F.ImportRec;
  if (C == "008") {
    const frmTMdept& tm = F.TMdept;
    const long BrLen = KronosTMLength(tm.BrLen);
    const long DeptLen = KronosTMLength(tm.DeptLen);
    const std::string branch = Mid(T, 1, BrLen);
    const std::string department = Mid(T, BrLen + 1, DeptLen);
    r.Branch = r.Department = "";
    if (BrLen > 0 && tm.BrInc.text == "T") r.Branch = branch;
    if (DeptLen > 0 && tm.DeptInc.text == "T") r.Department = department;
    r.Hours = "";
    r.Amount = "";
    S = 7;
  } else if (C == "011") {
    r.payrate = Format(Value(Value(Mid(T, 1, 7)).ToNumber() / 10000), "###.00##");
    r.Hours = "";
    r.Amount = "";
    S = 9;
  } else if (C == "012") {
    KronosADP_Worked(F, T, Cat::WaitReg, Cat::Reg);
    S = 9;
  } else if (C == "013") {
    KronosADP_Worked(F, T, Cat::WaitOT, Cat::OT);
    S = 9;
  } else if (C == "016" || C == "018") {
    static constexpr std::pair<std::string_view, Cat> kHoursLetters[] = {
        {"A", Cat::AdjH}, {"D", Cat::Disb}, {"S", Cat::Abs}, {"H", Cat::Hol}, {"V", Cat::Dbl},
    };
    const std::string letter = Mid(T, 2, 1);
    if (const Cat* category = KronosLookup(kHoursLetters, letter)) {
      F.Apply(*category);
    } else {
      // an unknown letter keeps the category in hand, and its hours are still written
      F.MsgBox("Unexpected Hours Code 018 : " + letter);
    }
    r.Hours = KronosADP_Hundredths(Mid(T, 3, 7));
    r.Amount = "";
    S = 11;
  } else if (C == "020") {
    F.Apply(Cat::Tips);
    r.Amount = KronosADP_Hundredths(Mid(T, 3, 7));
    r.Hours = "";
    S = 11;
  } else if (C == "022") {
    const std::string letter = Mid(T, 2, 1);
    if (letter == "A") {
      F.Apply(Cat::AdjD);
    } else if (letter == "B") {
      F.Apply(Cat::Sales);
    } else {
      F.MsgBox("Unexpected Dollars Code 022 : " + letter);
    }
    r.Amount = KronosADP_Hundredths(Mid(T, 3, 7));
    r.Hours = "";
    S = 11;
  } else if (C == "024") {
    F.Apply(Cat::Misc);
    r.Amount = KronosADP_Hundredths(Mid(T, 3, 7));
    r.Hours = "";
    S = 11;
  } else {
    // Hours, amount and step stay those of the last transaction: the record goes out again,
    // and the chain goes on from the same distance.
    F.MsgBox("unexpected transaction type found: " + C);
  }
}

void KronosADP(frmTimeImport& F) {
  const std::string& rec = F.InRec;
  ImportRecord& r = F.ImportRec;
  // The earning code is left as the last record set it.
  r.Employee_Name = r.Department = r.payrate = r.Hours = "";
  r.Amount = "";
  r.Division = r.Branch = r.Job = r.Shift = r.Team = "";
  r.SSN = "";
  r.DorE = "E";
  r.Seq = "1";
  r.Employee_no = Trim(Mid(rec, 6, 5));

  std::string C = Mid(rec, 15, 3);
  std::string T = Mid(rec, 18);
  long S = 0;
  // A chain that runs past the record's end without its "z" code meets a negative length
  // here, and an unknown first code a step of 0; either error ends the program, and there is
  // no other way out of such a chain.
  while (Left(C, 1) != "z") {
    KronosADP_Transaction(F, C, T, S);
    if (!Trim(r.Hours).empty() || !Trim(r.Amount).empty()) F.WriteOutputRec();
    C = Mid(T, S, 3);
    T = Mid(T, S + 3, Len(T) - S - 2);
  }
}

// ---------------------------------------------------------------------------------------------
// The printed reports. The branch finds each employee line and hands it on; the translator
// reads on through the employee's block. An error inside a block, the end of the file among
// them, returns to the branch.

template <class Body>
void KronosReturnOnError(Body&& body) {
  try {
    body();
  } catch (const RuntimeError&) {
    // the block ends where the error met it
  }
}

// "Kronos TimeKeeper 3" and "3a": the employee line has its number in columns 34 to 39 and a
// name at the start.
bool KronosTK_EmployeeLine(const std::string& line) {
  return IsNumeric(Trim(Mid(line, 34, 6))) && !Trim(Left(line, 5)).empty();
}

// The department column holds the department and a description after it: only the text
// before the first blank is the department, and a text with no blank is none.
std::string KronosTK_Department(const std::string& line) {
  const std::string text = Trim(Mid(line, 45, 10));
  const long blank = InStr(text, " ");
  return blank > 0 ? Left(text, blank - 1) : std::string();
}

// The branch of both TimeKeeper reports: lines up to "Summary" or the end of the file.
void KronosTK_Reader(frmTimeImport& F, void (*translator)(frmTimeImport&), bool always_dept) {
  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  ImportRecord& r = F.ImportRec;
  while (!in.Eof()) {
    in.LineInput(line);
    if (Left(line, 7) == "Summary") break;
    if (!KronosTK_EmployeeLine(line)) continue;
    r.Employee_no = Trim(Mid(line, 34, 6));
    r.Employee_Name = Trim(Left(line, 30));
    r.Department = always_dept || F.S.Checked(chkDept) ? KronosTK_Department(line) : std::string();
    ++F.TCcount;
    translator(F);
  }
}

// "Kronos TimeKeeper 3": hours lines hold two label and hours pairs; a line of dashes ends the
// employee.

void KronosTimeKeeper3_Pair(frmTimeImport& F, const std::string& label, const std::string& hours) {
  if (label == "REGULAR:") {
    F.Apply(Cat::Reg);
  } else if (label == "OVERTIME") {
    F.Apply(Cat::OT);
  } else if (!label.empty()) {
    // the hours still go out, under the category in hand
    F.MsgBox("Unexpected Pay Category: " + label + kCR + kCR + F.ImportRec.Employee_Name.str(),
             MsgButtons::OKOnly, "Corvane - Kronos TimeKeeper 3");
  }
  if (hours.empty()) return;
  F.ImportRec.Hours = hours;
  F.WriteOutputRec();
}

void KronosTimeKeeper3(frmTimeImport& F) {
  KronosRecordDefaults(F.ImportRec);
  F.ImportRec.Earning_Code = "?";
  std::string& line = F.InRec;
  KronosReturnOnError([&] {
    while (!line.starts_with("-----")) {
      if (InStr(line, ".") > 0) {
        KronosTimeKeeper3_Pair(F, Trim(Mid(line, 20, 8)), Trim(Mid(line, 30, 9)));
        KronosTimeKeeper3_Pair(F, Trim(Mid(line, 40, 8)), Trim(Mid(line, 50, 9)));
      }
      F.File(1).LineInput(line);
    }
  });
}

void KronosTimeKeeper3Run(frmTimeImport& F) {
  KronosTK_Reader(F, KronosTimeKeeper3, true);
}

// "Kronos TimeKeeper 3a": hours lines hold four blocks of label and hours and minutes, 21
// columns apart. The labels are read eight columns wide; the longer ones of the table stand in
// it as the report's pay codes are named, width and all.

constexpr std::pair<std::string_view, Cat> kTimeKeeper3aLabels[] = {
    {"REG", Cat::Reg},        {"OT", Cat::OT},          {"DOUBLE", Cat::Dbl},
    {"VACATION", Cat::Tips},  {"HOLIDAY", Cat::Hol},    {"PERS HOL", Cat::Sales},
    {"JURY", Cat::Misc},      {"BEREAVE", Cat::Disb},   {"LEAD SHIP", Cat::WaitReg},
    {"LEADCUT", Cat::WaitOT}, {"OPR A 1", Cat::e15},    {"OPR A 2", Cat::e16},
    {"OPR A 3", Cat::e17},    {"OT OPRA1", Cat::e29},   {"OT OPRA2", Cat::e30},
    {"OT OPRA3", Cat::e31},   {"M OPR 1", Cat::e18},    {"M OPR 2", Cat::e19},
    {"M OPR 3", Cat::e20},    {"OT M OPR 1", Cat::e32}, {"OT M OPR 2", Cat::e33},
    {"OT M OPR 3", Cat::e34}, {"MH1", Cat::e21},        {"MH2", Cat::e22},
    {"MH3", Cat::e23},        {"OT MH 1", Cat::e35},    {"OT MH 2", Cat::e36},
    {"OT MH 3", Cat::e37},    {"TRAINER", Cat::e39},    {"TRAINER OT", Cat::e40},
    {"SHIP 1", Cat::e24},     {"SHIP 2", Cat::e25},     {"SHIP 3", Cat::e26},
};

// Unpaid time: no record.
constexpr std::string_view kTimeKeeper3aUnpaid[] = {"SICK UNP", "OTHER", "FMLA", "WORK COM"};

// Hours and minutes to hours: 12:30 is 12.50; minutes that are not a number count as none.
// Hours without a ":" cannot be cut, and that error ends the employee.
std::string KronosTimeKeeper3a_Hours(const std::string& text) {
  const long n = InStr(text, ":");
  const std::string m = Mid(text, n + 1, 2);
  const std::string fraction =
      m != "00" && IsNumeric(m) ? Format(Value(Value(m).ToNumber() / 60), ".#0") : ".00";
  return Left(text, n - 1) + fraction;
}

void KronosTimeKeeper3a_Category(frmTimeImport& F, const std::string& label) {
  if (const Cat* category = KronosLookup(kTimeKeeper3aLabels, label)) {
    F.Apply(*category);
    return;
  }
  for (std::string_view unpaid : kTimeKeeper3aUnpaid) {
    if (label == unpaid) {
      F.ImportRec.Earning_Code = "X";
      return;
    }
  }
  F.MsgBox("Unexpected Pay Category: " + label + kCR + kCR + F.ImportRec.Employee_Name.str(),
           MsgButtons::OKOnly, "Corvane - Kronos TimeKeeper 3a");
}

void KronosTimeKeeper3a(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  r.Earning_Code = "?";
  std::string& line = F.InRec;
  KronosReturnOnError([&] {
    while (!line.starts_with("-----")) {
      if (Mid(line, 23, 1) == ":") {
        for (long k = 0; k < 4; ++k) {
          const std::string hours = Trim(Mid(line, 25 + 21 * k, 10));
          if (hours.empty()) continue;
          const std::string label = UCase(Trim(Mid(line, 15 + 21 * k, 8)));
          r.Hours = KronosTimeKeeper3a_Hours(hours);
          KronosTimeKeeper3a_Category(F, label);
          // an unknown label after an unpaid one stays unpaid
          if (r.Earning_Code != Value("X")) F.WriteOutputRec();
        }
      }
      F.File(1).LineInput(line);
    }
  });
}

void KronosTimeKeeper3aRun(frmTimeImport& F) {
  KronosTK_Reader(F, KronosTimeKeeper3a, false);
}

// ---------------------------------------------------------------------------------------------
// "Kronos Hours Summary": the employee line is followed by a "Days worked" line (a page break
// may put its headers between them), an account line, then lines of three pay-code blocks up
// to a blank line.

constexpr std::pair<std::string_view, Cat> kHoursSummaryLabels[] = {
    {"REGULAR", Cat::Reg},   {"OVERTIME", Cat::OT},      {"VACATION", Cat::Dbl},
    {"HOLIDAY", Cat::Hol},   {"HOL PREM", Cat::Misc},    {"FLOATING", Cat::Tips},
    {"JURYDUTY", Cat::Abs},  {"FUNERAL", Cat::Disb},     {"CALL-IN", Cat::AdjH},
    {"CALLINOT", Cat::AdjD}, {"CALLINNO", Cat::WaitReg}, {"SHIFTREG", Cat::e15},
    {"SHIFTOT", Cat::e16},   {"SHIFTVAC", Cat::e17},     {"SHFLOAT", Cat::e18},
    {"SHIFTHOL", Cat::e20},  {"SHHOLPRE", Cat::e21},     {"SHFUNER", Cat::e22},
    {"SHJURY", Cat::e23},    {"SHCALLIN", Cat::e24},     {"SHCALLOT", Cat::e25},
    {"SHCALLNO", Cat::e26},  {"NP-EX", Cat::e29},        {"NP-UNEX", Cat::e30},
};

// The report's pay-code text in Earning_Code and its hours in Hours, to the category.
void KHS_Hours(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const std::string label = UCase(Trim(r.Earning_Code));
  r.Earning_Code = label;
  const Cat* category = KronosLookup(kHoursSummaryLabels, label);
  if (category == nullptr) {
    F.MsgBox("Unexpected Type of Hours: " + label, MsgButtons::OKOnly,
             "Corvane - Kronos Hours Summary");
    return;
  }
  F.Apply(*category);
  F.WriteOutputRec();
}

bool KronosHoursSummary_Header(const std::string& line) {
  return InStr(line, "Hours Summary") > 0 || InStr(line, "Previous") > 0 ||
         InStr(line, "Selected") > 0;
}

void KronosHoursSummary(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  KronosReturnOnError([&] {
    // the employee line is done with: read on, past the headers of a page that breaks here
    do {
      in.LineInput(line);
    } while (KronosHoursSummary_Header(line));
    if (InStr(line, "Days worked") == 0) return;
    in.LineInput(line);  // the account line
    F.Build_String = "Start";
    in.LineInput(line);
    struct Block {
      long label, label_width, hours, hours_width;
    };
    static constexpr Block kBlocks[] = {{19, 8, 30, 8}, {39, 8, 50, 8}, {59, 9, 70, 9}};
    while (!Trim(line).empty()) {
      for (const Block& b : kBlocks) {
        r.Earning_Code = Trim(Mid(line, b.label, b.label_width));
        r.Hours = Trim(Mid(line, b.hours, b.hours_width));
        // hours without a point are counts, not hours
        if (InStr(r.Hours, ".") > 0) KHS_Hours(F);
      }
      in.LineInput(line);
    }
  });
}

void KronosHoursSummaryRun(frmTimeImport& F) {
  InputFile& in = F.File(1);
  std::string& line = F.InRec;
  ImportRecord& r = F.ImportRec;
  while (!in.Eof()) {
    in.LineInput(line);
    if (Left(line, 7) == "Summary") break;
    if (!IsNumeric(Mid(line, 45, 5))) continue;
    r.Department = "";
    r.Employee_Name = Trim(Left(line, 30));
    r.Employee_no = Trim(Mid(line, 31, 10));
    ++F.TCcount;
    KronosHoursSummary(F);
  }
}

// ---------------------------------------------------------------------------------------------
// "Kronos Summary": every line goes through the translator, which tells it by its contents. The
// employee and the shift carry on from line to line.

void KronosSummary_Pair(frmTimeImport& F, const std::string& label, const std::string& hours) {
  if (!IsNumeric(hours)) return;
  static constexpr std::pair<std::string_view, Cat> kSummaryLabels[] = {
      {"REG:", Cat::Reg}, {"OT:", Cat::OT}, {"VAC:", Cat::Tips}, {"SICK PAY:", Cat::Sales}};
  const Cat* category = KronosLookup(kSummaryLabels, label);
  if (category == nullptr) return;
  F.WriteHours(*category, hours);
}

void KronosSummary(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  r.Department = r.payrate = r.Hours = "";
  r.Amount = "";
  r.Division = r.Branch = r.Job = r.Team = "";
  r.SSN = "";
  r.RateNumber = "";
  r.DorE = "E";
  r.Seq = "1";
  // the writers overwrite the line buffer: the line is kept aside first
  const std::string line = F.Build_String.str();

  if (Mid(line, 3, 7) == "Totals:" || InStr(line, "---------") > 0 || Trim(line).empty()) return;
  if (InStr(line, "Hours Summary") > 0 || InStr(line, "Current pay") > 0 ||
      InStr(line, "All accounts,") > 0) {
    return;
  }
  const std::string number = Trim(Mid(line, 31, 9));
  if (InStr(line, ":") == 0 && IsNumeric(number)) {
    r.Employee_Name = Trim(Left(line, 30));
    r.Employee_no = number;
    return;
  }
  // the shift stays for the employee's following lines
  if (const std::string shift = Mid(line, 28, 1); IsNumeric(shift)) {
    r.Shift = shift;
    return;
  }
  const std::array<std::pair<std::string, std::string>, 3> pairs = {{
      {Trim(Mid(line, 24, 8)), Trim(Mid(line, 32, 6))},
      {Trim(Mid(line, 40, 12)), Trim(Mid(line, 53, 6))},
      {Trim(Mid(line, 61, 12)), Trim(Mid(line, 74, 6))},
  }};
  for (const auto& [label, hours] : pairs) KronosSummary_Pair(F, label, hours);
}

void KronosSummaryRun(frmTimeImport& F) {
  InputFile& in = F.File(1);
  std::string line;
  while (!in.Eof()) {
    in.LineInput(line);
    F.Build_String = line;
    if (Left(line, 7) == "Summary") break;
    ++F.TCcount;
    KronosSummary(F);
  }
}

// ---------------------------------------------------------------------------------------------
// "Kronos v3": a heading that names the columns, then a stream of fields. A row of eight
// columns stops after O/T Hrs; the only sign of it is that the field after holds the next
// File #: four characters or more and no point.

// The end of the file ends the translator.
struct KronosV3End {};

void KronosV3(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  InputFile& in = F.File(1);
  Value unused;
  std::string X;
  // Every statement runs under the translator's handler: past the end of the file it ends, any
  // other error is shown and the next statement runs.
  auto Do = [&](auto&& statement) {
    try {
      statement();
    } catch (const RuntimeError& e) {
      if (e.number() == kInputPastEnd) throw KronosV3End{};
      F.MsgBox(std::string("Error Processing Kronos v3 record") + kCR + kCR +
                   "Last Employee: " + r.Employee_no.str() + kCR + kCR +
                   "Error Number: " + std::to_string(e.number()) + ", " + e.description(),
               MsgButtons::OKOnly, "Corvane - Kronos v3");
    }
  };
  auto Category = [&](Cat category) {
    Do([&] {
      if (r.Hours.IsNumeric() && Len(r.Hours) > 0) {
        F.Apply(category);
        F.WriteOutputRec();
      }
    });
  };
  auto Read = [&](auto& into) { Do([&] { in.Input(into); }); };

  try {
    F.TCcount = 0;
    Read(r.Employee_no);
    while (r.Employee_no.IsNumeric()) {
      ++F.TCcount;
      Read(r.Employee_Name);
      Read(r.Seq);   // Pay#
      Read(unused);  // Tax Frequency
      Read(r.Department);
      Read(r.payrate);
      Read(r.Hours);  // Reg Hrs
      if (!F.S.Checked(chkDept)) r.Department = "";
      if (!F.S.Checked(chkPayRate)) r.payrate = "";
      Category(Cat::Reg);
      Read(r.Hours);  // O/T Hrs
      Category(Cat::OT);
      Read(X);  // Reg Earnings, or the next row's File #
      if (Len(X) < 4 || InStr(X, ".") > 0) {
        Read(unused);   // O/T Earnings
        Read(r.Hours);  // Personal Hrs
        Category(Cat::Tips);
        for (Cat category : {Cat::Sales, Cat::Dbl, Cat::Hol, Cat::Misc}) {
          Read(r.Hours);  // Union, Premium, Vacation and MISC Hrs
          Category(category);
        }
        Read(r.Employee_no);
      } else {
        r.Employee_no = X;
      }
    }
  } catch (const KronosV3End&) {
    // the export is used up
  }
}

void KronosV3Run(frmTimeImport& F) {
  F.File(1).LineInput(F.InRec);
  if (Left(F.InRec, 6) != "File #") {
    F.MsgBox("Expecting First record to begin with " + F.quote + "File #" + F.quote,
             MsgButtons::OKOnly, "Corvane - Kronos v3 - Unknown Input File");
    return;
  }
  KronosV3(F);
}

// ---------------------------------------------------------------------------------------------
// "Kronos v2C (Short)": rows of an employee and four hours fields, each with two implied
// decimals. The translator opens the files and reads the whole export.

void Kronosv2cShort(frmTimeImport& F) {
  F.InitFiles();
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  InputFile& in = F.File(1);
  std::array<Value, 5> field;
  static constexpr Cat kColumns[] = {Cat::Reg, Cat::OT, Cat::Dbl, Cat::Hol};
  KronosReturnOnError([&] {
    while (!in.Eof()) {
      for (Value& f : field) in.Input(f);
      r.Employee_no = Format(field[0], "#");
      ++F.TCcount;
      for (std::size_t k = 0; k < 4; ++k) {
        const Value& hours = field[k + 1];
        // a figure beyond a 16-bit integer is an error, which ends the reading
        if (!hours.IsNumeric() || ToInteger(hours) <= 0) continue;
        const std::string digits = hours.str();
        F.WriteHours(kColumns[k],
                     Format(Value(Left(digits, Len(digits) - 2)), "#") + "." + Right(digits, 2));
      }
    }
  });
}

// ---------------------------------------------------------------------------------------------
// "Kronos v2c": rows of employee, social security number, department, rate and 21 hour
// columns of two implied decimals, with no heading.

struct Kronosv2cFields {
  Value v2c_EmpNo, v2c_SSN, v2c_Dept, v2c_Rate;
  std::array<Value, 101> v2c_Hours;  // by column position, from 1
};

void Kronosv2cPrepare(frmTimeImport& F) {
  F.NumHoursColumns = 21;
}

// The export has no heading: the first row is an employee's.
void Kronosv2cHeading(frmTimeImport&) {}

bool Kronosv2cRead(frmTimeImport& F) {
  Kronosv2cFields& in = F.Fields<Kronosv2cFields>();
  InputFile& file = F.File(1);
  file.Input(in.v2c_EmpNo);
  file.Input(in.v2c_SSN);
  file.Input(in.v2c_Dept);
  file.Input(in.v2c_Rate);
  for (int j = 1; j <= F.NumHoursColumns; ++j)
    file.Input(in.v2c_Hours[static_cast<std::size_t>(j)]);
  return true;
}

void Kronosv2c(frmTimeImport& F) {
  const Kronosv2cFields& in = F.Fields<Kronosv2cFields>();
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  if (!F.rsECodes) Raise(kObjectNotSet);
  F.rsECodes->FilterField(F.rsECodes->rsECodes, "Company", F.S[CoNum].text);
  r.Employee_no = Trim(Format(in.v2c_EmpNo, "#########"));
  r.Employee_Name = "";
  r.Department = F.S.Checked(chkDept) ? Trim(Format(in.v2c_Dept, "#######")) : std::string();
  r.payrate = F.S.Checked(chkPayRate) && NumericAbove0(in.v2c_Rate)
                  ? Trim(Format(Value(in.v2c_Rate.ToNumber() / 100), "###.00"))
                  : std::string();
  r.SSN = "";
  if (F.S.Checked(chkSSN)) {
    r.SSN = Trim(Format(in.v2c_SSN, "000000000"));
    // a number of zeros is no social security number
    if (r.SSN == "000000000") r.SSN = "";
  }
  for (int j = 1; j <= F.NumHoursColumns; ++j) {
    const Value& column = in.v2c_Hours[static_cast<std::size_t>(j)];
    // an empty column counts as 0; text there cannot be divided and ends the reading
    if (column == Value(0)) continue;
    Kronos_Column(F, j, Value(column.ToNumber() / 100));
  }
}

// ---------------------------------------------------------------------------------------------
// "Kronos v5a", "Kronos v6", "Kronos v6 Column M": four heading lines, then per employee a
// head of fields, a hundred fields of no use, and detail rows of leading fields and 99 numbered
// columns. A leading field that starts with a letter is the next employee's name. The end of
// the file is an error like any other, and it closes the export and ends the translator.

struct KronosV6Layout {
  int head_fields;  // the employee's head, name included
  bool department;  // the detail row's first leading field is the department
  bool shift_head;  // the head's fifth field ends with the shift
  bool column_m;    // the head's seventh field holds hours of its own
};

constexpr KronosV6Layout kKronosv5a{6, false, false, false};
constexpr KronosV6Layout kKronosv6{7, true, true, false};
constexpr KronosV6Layout kKronosv6M{7, true, true, true};

// The head's column-M hours go out under regular and then overtime, each where the company has
// a code, with the employee's home department.
void Kronosv6M_ColumnM(frmTimeImport& F, const std::array<Value, 7>& head) {
  ImportRecord& r = F.ImportRec;
  if (!NumericAbove0(head[6])) return;
  r.Amount = "";
  r.Department = head[2];
  r.Hours = Format(Value(Trim(head[6])), "###.00");
  if (!Trim(F.S.Code(Cat::Reg)).empty()) {
    F.Apply(Cat::Reg);
    F.WriteOutputRec();
  }
  if (!Trim(F.S.Code(Cat::OT)).empty()) {
    F.Apply(Cat::OT);
    F.WriteOutputRec();
  }
}

void KronosV6Family(frmTimeImport& F, const KronosV6Layout& layout) {
  F.InitFiles();
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  // without a shift in the head, shift 1 stands until the earning codes give one
  if (!layout.shift_head) r.Shift = "1";
  InputFile& in = F.File(1);
  std::array<Value, 7> head;
  Value lead, unused, column;
  try {
    for (int n = 0; n < 4; ++n) in.LineInput(F.InRec);
    F.TCcount = 0;
    in.Input(head[0]);
    while (true) {
      for (int k = 1; k < layout.head_fields; ++k) in.Input(head[static_cast<std::size_t>(k)]);
      r.Employee_Name = head[0];
      r.Employee_no = Format(head[1], "#######");
      if (layout.shift_head) {
        const std::string last = Right(head[4], 1);
        r.Shift = IsNumeric(last) ? last : "1";
      }
      if (layout.column_m) {
        Kronosv6M_ColumnM(F, head);
        r.DorE = "E";
        r.Earning_Code = "?";
      }
      for (int n = 0; n < 100; ++n) in.Input(unused);
      while (true) {
        in.Input(lead);
        if (UCase(Left(lead, 1)) >= "A") break;  // the next employee's name
        if (layout.department) {
          r.Department = lead;
          in.Input(unused);
        }
        ++F.TCcount;
        for (int j = 1; j <= 99; ++j) {
          in.Input(column);
          if (NumericAbove0(column)) Kronos_Column(F, j, column);
        }
      }
      head[0] = lead;
    }
  } catch (const RuntimeError&) {
    in.Close();
  }
}

void Kronosv5a(frmTimeImport& F) {
  KronosV6Family(F, kKronosv5a);
}
void Kronosv6(frmTimeImport& F) {
  KronosV6Family(F, kKronosv6);
}
void Kronosv6M(frmTimeImport& F) {
  KronosV6Family(F, kKronosv6M);
}

// ---------------------------------------------------------------------------------------------
// "Kronos v6 csv": a heading line, then rows of File #, regular and overtime hours, five pairs
// of code and hours, and the department text that the customisation form breaks out.

struct KronosV6csvFields {
  Value V6csv_CoCode, V6csv_BatchID, V6csv_FileNo, V6csv_RegHours, V6csv_OTHours;
  std::array<Value, 5> V6csv_Code, V6csv_Amount;
  std::string V6csv_JobCost;  // text: its segments are cut by position
};

// The company's department breakout, then the heading line dropped.
void KronosV6csvHeading(frmTimeImport& F) {
  F.TMdept.Set_rsTM();
  F.File(1).LineInput(F.InRec);
}

bool KronosV6csvRead(frmTimeImport& F) {
  KronosV6csvFields& in = F.Fields<KronosV6csvFields>();
  InputFile& file = F.File(1);
  file.Input(in.V6csv_CoCode);
  file.Input(in.V6csv_BatchID);
  file.Input(in.V6csv_FileNo);
  file.Input(in.V6csv_RegHours);
  file.Input(in.V6csv_OTHours);
  for (std::size_t k = 0; k < 5; ++k) {
    file.Input(in.V6csv_Code[k]);
    file.Input(in.V6csv_Amount[k]);
  }
  file.Input(in.V6csv_JobCost);
  return true;
}

// Division, Branch and Department from the department text, in that order.
void KronosV6csv_Breakout(frmTimeImport& F) {
  const frmTMdept& tm = F.TMdept;
  ImportRecord& r = F.ImportRec;
  const long DivLen = KronosTMLength(tm.DivLen);
  const long BrLen = KronosTMLength(tm.BrLen);
  const long DeptLen = KronosTMLength(tm.DeptLen);
  if (tm.DivInc.text == "T") r.Division = Left(r.Department, DivLen);
  if (tm.BrInc.text == "T") r.Branch = Mid(Trim(r.Department), DivLen + 1, BrLen);
  r.Department =
      tm.DeptInc.text == "T" ? Mid(Trim(r.Department), DivLen + BrLen + 1, DeptLen) : std::string();
}

void KronosV6csv(frmTimeImport& F) {
  const KronosV6csvFields& in = F.Fields<KronosV6csvFields>();
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  r.Employee_no = in.V6csv_FileNo;
  r.Department = in.V6csv_JobCost;
  KronosV6csv_Breakout(F);

  if (in.V6csv_RegHours.IsNumeric()) F.WriteHours(Cat::Reg, in.V6csv_RegHours);
  if (in.V6csv_OTHours.IsNumeric()) F.WriteHours(Cat::OT, in.V6csv_OTHours);
  static constexpr std::pair<std::string_view, Cat> kCodes[] = {
      {"V", Cat::Dbl},  {"P", Cat::Tips}, {"S", Cat::Sales}, {"E", Cat::Misc},
      {"B", Cat::Disb}, {"J", Cat::Abs},  {"H", Cat::Hol},   {"M", Cat::AdjH},
  };
  for (std::size_t k = 0; k < 5; ++k) {
    if (!in.V6csv_Amount[k].IsNumeric()) continue;
    if (const Cat* category = KronosLookup(kCodes, Trim(in.V6csv_Code[k]))) {
      F.Apply(*category);
    } else {
      r.DorE = "E";
      r.Earning_Code = "?";
    }
    r.Hours = in.V6csv_Amount[k];
    r.Amount = "";
    F.WriteOutputRec();
  }
}

// ---------------------------------------------------------------------------------------------
// "Kronos (14 Columns)": the first data row is cut by hand, which tells the long form from the
// short one without the adjustment columns. The later rows' earnings and adjustment columns
// are read past, so the first row's stay in place and go out again with every row; and the end
// of the file is tested before the row in hand is taken, so the last row is never translated.
// A client's payroll has been checked against both.

enum Kronos14Column {
  K14_CoCode = 1,
  K14_BatchID,
  K14_FileNo,
  K14_RegHours,
  K14_OTHours,
  K14_Hours3Code,
  K14_Hours3Amount,
  K14_Hours4Code,
  K14_Hours4Amount,
  K14_Earnings3Code,
  K14_Earnings3Amount,
  K14_TempDept,
  K14_AdjustCode,
  K14_AdjustAmount,
};

struct Kronos14ColFields {
  std::array<Value, 15> K14_F;  // by column, from 1
  bool HasAdjustColumns = true;
};

// The first data row, cut at its commas. A row with no comma left after Temp Dept's start is of
// the short form, and Temp Dept is then whatever remains of the row.
void Kronos14Col_Split(const std::string& row, Kronos14ColFields& in) {
  auto& f = in.K14_F;
  std::string rest = row;
  std::string from_temp_dept;
  in.HasAdjustColumns = true;
  for (int k = K14_CoCode; k < K14_AdjustAmount; ++k) {
    if (k == K14_TempDept) from_temp_dept = rest;
    const long comma = InStr(rest, ",");
    if (comma == 0 && k >= K14_TempDept) {
      in.HasAdjustColumns = false;
      break;
    }
    // before Temp Dept a missing comma leaves nothing to cut, and that error ends the run
    f[static_cast<std::size_t>(k)] = Left(rest, comma - 1);
    rest = Mid(rest, comma + 1);
  }
  if (in.HasAdjustColumns) {
    f[K14_AdjustAmount] = rest;
  } else {
    f[K14_TempDept] = from_temp_dept;
    f[K14_AdjustCode] = f[K14_AdjustAmount] = Value();
  }
}

// A code column with its figure, the code sent as it stands.
void Kronos14Col_Coded(frmTimeImport& F, const Value& code, const Value& figure, bool dollars) {
  ImportRecord& r = F.ImportRec;
  r.DorE = "E";
  r.Earning_Code = code;
  if (dollars) {
    r.Hours = "";
    r.Amount = figure.str();
  } else {
    r.Hours = figure;
    r.Amount = "";
  }
  F.WriteOutputRec();
}

void Kronos14Col(frmTimeImport& F) {
  F.InitFiles();
  ImportRecord& r = F.ImportRec;
  KronosRecordDefaults(r);
  Kronos14ColFields& in = F.Fields<Kronos14ColFields>();
  auto& f = in.K14_F;
  InputFile& file = F.File(1);
  F.TCcount = 2;
  std::string line;
  file.LineInput(line);  // the heading
  F.Build_String = line;
  file.LineInput(line);
  F.Build_String = line;
  Kronos14Col_Split(line, in);

  Value scratch;
  while (!file.Eof()) {
    r.Employee_no = f[K14_FileNo];
    r.Department = f[K14_TempDept];
    r.Seq = Format(f[K14_BatchID], "00");
    if (NumericAbove0(f[K14_RegHours])) F.WriteHours(Cat::Reg, f[K14_RegHours]);
    if (NumericAbove0(f[K14_OTHours])) F.WriteHours(Cat::OT, f[K14_OTHours]);
    for (int k : {K14_Hours3Code, K14_Hours4Code}) {
      const Value& amount = f[static_cast<std::size_t>(k + 1)];
      if (amount.IsNumeric() && amount.ToNumber() != 0) {
        Kronos14Col_Coded(F, f[static_cast<std::size_t>(k)], amount, false);
      }
    }
    for (int k : {K14_Earnings3Code, K14_AdjustCode}) {
      const Value& amount = f[static_cast<std::size_t>(k + 1)];
      if (NumericAbove0(amount)) Kronos14Col_Coded(F, f[static_cast<std::size_t>(k)], amount, true);
    }

    for (int k = K14_CoCode; k <= K14_Hours4Amount; ++k) {
      file.Input(f[static_cast<std::size_t>(k)]);
    }
    file.Input(scratch);  // Earnings 3 Code
    file.Input(scratch);  // Earnings 3 Amount
    file.Input(f[K14_TempDept]);
    if (in.HasAdjustColumns) {
      file.Input(scratch);  // Adjust Ded Code
      file.Input(scratch);  // Adjust Ded Amount
    }
    ++F.TCcount;
  }
}

}  // namespace

extern const Translator kKronosADPTranslator{
    .name = "KronosADP",
    .heading = KronosADPHeading,
    .translate = KronosADP,
};

extern const Translator kKronosTimeKeeper3Translator{
    .name = "KronosTimeKeeper3",
    .run = KronosTimeKeeper3Run,
};

extern const Translator kKronosTimeKeeper3aTranslator{
    .name = "KronosTimeKeeper3a",
    .run = KronosTimeKeeper3aRun,
};

extern const Translator kKronosHoursSummaryTranslator{
    .name = "KronosHoursSummary",
    .run = KronosHoursSummaryRun,
};

extern const Translator kKronosSummaryTranslator{
    .name = "KronosSummary",
    .run = KronosSummaryRun,
};

extern const Translator kKronosV3Translator{
    .name = "KronosV3",
    .run = KronosV3Run,
};

extern const Translator kKronosv2cShortTranslator{
    .name = "Kronosv2cShort",
    .run = Kronosv2cShort,
};

extern const Translator kKronosv2cTranslator{
    .name = "Kronosv2c",
    .prepare = Kronosv2cPrepare,
    .heading = Kronosv2cHeading,
    .read = Kronosv2cRead,
    .translate = Kronosv2c,
};

extern const Translator kKronosv5aTranslator{
    .name = "Kronosv5a",
    .run = Kronosv5a,
};

extern const Translator kKronosv6Translator{
    .name = "Kronosv6",
    .run = Kronosv6,
};

extern const Translator kKronosv6MTranslator{
    .name = "Kronosv6M",
    .run = Kronosv6M,
};

extern const Translator kKronosV6csvTranslator{
    .name = "KronosV6csv",
    .heading = KronosV6csvHeading,
    .read = KronosV6csvRead,
    .translate = KronosV6csv,
};

extern const Translator kKronos14ColTranslator{
    .name = "Kronos14Col",
    .run = Kronos14Col,
};

}  // namespace corvane
