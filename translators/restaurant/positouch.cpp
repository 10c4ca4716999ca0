// The POSiTouch point-of-sale exports, five shapes of the same labour figures:
//  - "POSiTouch (.prn)" and "POSiTouch (long .prn)": per employee one employee row and his job
//    detail rows, comma separated, a record free to run over several lines. Both go through
//    POSiTouchPRN, which tells them apart by the "long" in the time clock's name;
//  - "POSiTouch (.csv)": one row per employee, with the rate, department and job of his hours
//    found in the "PAYRJOBD.csv" rate file beside the export;
//  - "POSiTouch (.flt)": fixed records of 122 bytes with implied decimals;
//  - "POSiTouch OTB": employee and detail rows whose divisions go through a cross-reference.
// Fields a step does not set keep the value the record before left them: clients' files rely
// on it, so it stays even where it pays a figure twice.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// A fixed text member: padded with blanks, or cut, to its width.
std::string FixedText(std::string_view text, std::size_t width) {
  std::string fixed(text.substr(0, width));
  fixed.resize(width, ' ');
  return fixed;
}

// A rate below the minimum wage marks tipped staff, whose hours go to the wait categories. A
// rate that is not there (blank, or no number) marks nobody: those hours stay regular.
bool Posi_BelowMinWage(const frmTimeImport& F, const Value& rate) {
  return rate.IsNumeric() && Below(rate, Value(F.S[txtMinWage].text));
}

// A writer's error (hours that are no number) costs the line, not the employee.
void Posi_Write(frmTimeImport& F) {
  ResumeNext([&] { F.WriteOutputRec(); });
}

// ---------------------------------------------------------------------------------------
// "POSiTouch (.prn)" and "POSiTouch (long .prn)".

// One employee as the readers fill it (fields 1 to 21; 19 to 21 only in the long form), and
// one job detail row. The detail row's first two fields are the employee's number and the row
// type themselves: reading a detail row overwrites them.
struct PosiEmployee {
  std::string PosiEmpNo;  // 1
  Value PosiRecType;      // 2: "0" employee row, "1" job detail row
  Value PosiName;         // 3
  Value PosiField4;       // 4
  std::string PosiSSN;    // 5, fixed text of 11 characters
  Value PosiField6, PosiField7;
  std::string PosiOTHours;  // 8
  Value PosiField9, PosiField10;
  std::string PosiAdjDollars;  // 11
  Value PosiSales;             // 12
  Value PosiWageType;          // 13
  Value PosiCCTips;            // 14
  Value PosiHolHours;          // 15
  Value PosiDblHours;          // 16: third hours
  Value PosiAdjHours;          // 17
  Value PosiField18;
  Value PosiMisc, PosiAbs, PosiDisb;  // 19 to 21, long form
};

// The detail fields are kept as the file writes them: a tips figure without a point is how a
// row cut short shows itself.
struct PosiDetail {
  std::string PosiJobCode, PosiDept, PosiWageCode, PosiDetailHours, PosiDetailRate,
      PosiDetailAmount, PosiDetailTips;
};

struct PosiPRNFields {
  PosiEmployee e;
  PosiDetail d;
  std::string line;  // the whole-line reads
};

bool POSiTouchPRN_IsLong(const frmTimeImport& F) {
  return InStr(F.ChosenTC, "long") > 0;
}

constexpr std::string_view kPrnTitle = "Corvane - POSiTouch (.prn)";

// Takes an employee row packed on one line (in Build_String, its employee number already
// taken) apart at its commas. The name stands in two fields, last then first; a line that
// ends early leaves the fields it does not reach as they were.
void POSiTouchPRNLong_GetRec(frmTimeImport& F) {
  PosiEmployee& e = F.Fields<PosiPRNFields>().e;
  const std::string& quote = F.quote;
  // the fields of the line kept as values; the others are told one by one below
  Value* const values[22] = {
      nullptr,         &e.PosiRecType,  nullptr,         nullptr,         &e.PosiField4,
      nullptr,         &e.PosiField6,   &e.PosiField7,   nullptr,         &e.PosiField9,
      &e.PosiField10,  nullptr,         &e.PosiSales,    &e.PosiWageType, &e.PosiCCTips,
      &e.PosiHolHours, &e.PosiDblHours, &e.PosiAdjHours, &e.PosiField18,  &e.PosiMisc,
      &e.PosiAbs,      &e.PosiDisb,
  };
  const std::vector<std::string> fields = Split(F.Build_String, ",");
  const std::size_t count = fields.size() < 21 ? fields.size() : 21;
  for (std::size_t n = 1; n <= count; ++n) {
    const std::string field = Trim(fields[n - 1]);
    if (values[n] != nullptr) {
      *values[n] = field;
    } else if (n == 2) {
      e.PosiName = Replace(field, quote, "");
    } else if (n == 3) {
      e.PosiName = e.PosiName.str() + ", " + Replace(field, quote, "");
    } else if (n == 5) {
      e.PosiSSN = FixedText(field, 11);
    } else if (n == 8) {
      e.PosiOTHours = field;
    } else {
      e.PosiAdjDollars = field;  // 11
    }
  }
}

// Reads one employee. A read past the end of the file raises, and the branch's handler takes
// that as the end flag.
void POSiTouchPRN_ReadEmployee(frmTimeImport& F, bool is_long) {
  PosiPRNFields& p = F.Fields<PosiPRNFields>();
  PosiEmployee& e = p.e;
  InputFile& in = F.File(1);

  in.Input(e.PosiEmpNo);
  in.Input(e.PosiRecType);
  // Everything up to an employee row is heading. In the long form an employee row can stand
  // packed on one line, its number at the end of the line before: it is then complete.
  while (e.PosiRecType != Value("0")) {
    in.LineInput(p.line);
    if (is_long && Trim(Left(p.line, 3)).starts_with("0,")) {
      e.PosiEmpNo = Format(e.PosiRecType, "00000");
      F.Build_String = p.line;
      POSiTouchPRNLong_GetRec(F);
      return;
    }
    in.Input(e.PosiEmpNo);
    in.Input(e.PosiRecType);
  }

  in.Input(e.PosiName);
  in.Input(e.PosiField4);
  in.Input(e.PosiSSN);
  e.PosiSSN = FixedText(e.PosiSSN, 11);
  in.Input(e.PosiField6);
  in.Input(e.PosiField7);
  in.Input(e.PosiOTHours);
  in.Input(e.PosiField9);
  in.Input(e.PosiField10);
  in.Input(e.PosiAdjDollars);
  in.Input(e.PosiSales);
  in.Input(e.PosiWageType);

  if (Trim(e.PosiWageType).empty()) {
    // Fields 14 on are not read: the employee is paid with the figures of the one before.
    e.PosiWageType = "H";
    in.LineInput(p.line);
    in.LineInput(p.line);
    F.MsgBox("Problem with " + e.PosiName.str() + ".  Bad Wage Type", MsgButtons::OKOnly,
             kPrnTitle);
    return;
  }
  in.Input(e.PosiCCTips);
  in.Input(e.PosiHolHours);
  in.Input(e.PosiDblHours);
  in.Input(e.PosiAdjHours);
  in.Input(e.PosiField18);
  if (is_long) {
    in.Input(e.PosiMisc);
    in.Input(e.PosiAbs);
    in.Input(e.PosiDisb);
  }
}

// Reads one job detail row. False when the file ended inside it: the row type then still says
// what the row before was, so the detail rows end here rather than repeat for ever.
bool POSiTouchPRNtype1(frmTimeImport& F) {
  PosiPRNFields& p = F.Fields<PosiPRNFields>();
  InputFile& in = F.File(1);
  try {
    in.Input(p.e.PosiEmpNo);
    in.Input(p.e.PosiRecType);
    in.Input(p.d.PosiJobCode);
    in.Input(p.d.PosiDept);
    in.Input(p.d.PosiWageCode);
    in.Input(p.d.PosiDetailHours);
    in.Input(p.d.PosiDetailRate);
    in.Input(p.d.PosiDetailAmount);
    in.Input(p.d.PosiDetailTips);
  } catch (const RuntimeError&) {
    return false;
  }
  return true;
}

// The long form's wage codes: the numbered categories, with the tipped rate's wait categories
// for regular and overtime work. There is no code "9".
void POSiTouchPRN_WageCode(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const std::string code = Trim(F.Fields<PosiPRNFields>().d.PosiWageCode);
  const bool tipped = AtLeast1(r.payrate) && Posi_BelowMinWage(F, r.payrate);
  if (code == "1") {
    F.Apply(tipped ? Cat::WaitReg : Cat::e15);
  } else if (code == "2") {
    F.Apply(tipped ? Cat::WaitOT : Cat::e16);
  } else if (code == "3") {
    // a blank rate is told apart only while rates come from the file
    const bool rated = !F.S.Checked(chkPayRate) || r.payrate != Value("");
    F.Apply(tipped && rated ? Cat::WaitOT : Cat::e17);
  } else if (code == "4") {
    F.Apply(Cat::e18);
  } else if (code == "5") {
    F.Apply(Cat::e19);
  } else if (code == "6") {
    F.Apply(Cat::e20);
  } else if (code == "7") {
    F.Apply(Cat::e21);
  } else if (code == "8") {
    F.Apply(Cat::e22);
  } else if (code == "10") {
    F.Apply(Cat::e23);
  } else if (code == "11") {
    F.Apply(Cat::e24);
  } else {
    r.Hours = "";
    r.Amount = "";
  }
}

// One job detail row: its hours under the job's department, then its tips.
void POSiTouchPRN_Detail(frmTimeImport& F, bool is_long) {
  ImportRecord& r = F.ImportRec;
  const PosiDetail& d = F.Fields<PosiPRNFields>().d;

  r.Department = Format(Value(d.PosiDept), "000000");
  if (is_long) {
    r.Department = F.S.Checked(chkDept) ? Value(Format(Value(d.PosiJobCode), "0000")) : Value("");
    r.Division = F.S.Checked(chkDiv) ? "001" : "";
    r.Job = "";
    r.SSN = Replace(r.SSN, "-", "");
  } else {
    r.Branch = "";
  }

  r.payrate = Format(Value(d.PosiDetailRate), ".00");
  if (!F.S.Checked(chkPayRate) || r.payrate == Value(".00")) r.payrate = "";

  if (!is_long) {
    if (d.PosiDetailHours != "0.00") {
      F.Apply(Posi_BelowMinWage(F, r.payrate) ? Cat::WaitReg : Cat::Reg);
      r.Amount = "";
      r.Hours = d.PosiDetailHours;
      Posi_Write(F);
    }
  } else {
    r.Hours = d.PosiDetailHours;
    r.Amount = d.PosiDetailAmount;
    // a row with hours drops its amount
    if (Format(r.Hours, ".00") != ".00" && NumericAbove0(Value(r.Amount))) r.Amount = "0";
    POSiTouchPRN_WageCode(F);
    Posi_Write(F);
  }

  if (d.PosiDetailTips != "0.00") {
    r.Hours = "";
    r.Amount = d.PosiDetailTips;
    F.Apply(Cat::Tips);
    Posi_Write(F);
  }
}

// An employee's totals: a figure is written when its whole part is at least 1.
void POSiTouchPRN_Hours(frmTimeImport& F, const Value& hours, Cat category) {
  if (!AtLeast1(hours)) return;
  F.Apply(category);
  F.ImportRec.Hours = hours;
  Posi_Write(F);
}

void POSiTouchPRN_Dollars(frmTimeImport& F, const Value& amount, Cat category) {
  if (!AtLeast1(amount)) return;
  F.Apply(category);
  F.ImportRec.Amount = amount.str();
  Posi_Write(F);
}

// One employee, read by the branch, with his detail rows read here. A detail row cut short
// carries the next employee's number as its last field and his row on the rest of that line:
// that employee is then translated at once, and this one's totals are never written.
void POSiTouchPRN(frmTimeImport& F) {
  PosiPRNFields& p = F.Fields<PosiPRNFields>();
  const PosiEmployee& e = p.e;
  ImportRecord& r = F.ImportRec;
  const bool is_long = POSiTouchPRN_IsLong(F);

  bool next_employee = true;
  while (next_employee) {
    next_employee = false;
    r.Employee_no = Trim(e.PosiEmpNo);
    r.Employee_Name = Trim(e.PosiName);
    r.DorE = "E";
    r.Shift = "";
    r.Seq = "1";
    r.Team = "";
    r.SSN = e.PosiSSN;
    r.RateNumber = r.Department = r.Job = r.payrate = "";
    r.Amount = "";

    bool more = POSiTouchPRNtype1(F);
    while (more && e.PosiRecType == Value("1")) {
      POSiTouchPRN_Detail(F, is_long);
      more = POSiTouchPRNtype1(F);
      if (more && p.d.PosiDetailTips.find('.') == std::string::npos) {
        p.e.PosiEmpNo = p.d.PosiDetailTips;
        ResumeNext([&] {
          F.File(1).LineInput(p.line);
          F.Build_String = p.line;
        });
        if (Trim(F.Build_String).starts_with("0")) {
          POSiTouchPRNLong_GetRec(F);
          next_employee = true;
          break;
        }
      }
    }
  }

  r.Amount = "";
  if (AtLeast1(Value(e.PosiOTHours))) {
    F.Apply(Posi_BelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
    r.Hours = e.PosiOTHours;
    Posi_Write(F);
  }
  POSiTouchPRN_Hours(F, e.PosiHolHours, Cat::Hol);
  POSiTouchPRN_Hours(F, e.PosiDblHours, Cat::Dbl);
  POSiTouchPRN_Hours(F, e.PosiAdjHours, Cat::AdjH);

  r.Hours = "";
  POSiTouchPRN_Dollars(F, Value(e.PosiAdjDollars), Cat::AdjD);
  POSiTouchPRN_Dollars(F, e.PosiCCTips, Cat::CCTips);
  POSiTouchPRN_Dollars(F, e.PosiSales, Cat::Sales);
  if (is_long) {
    POSiTouchPRN_Dollars(F, e.PosiMisc, Cat::Misc);
    POSiTouchPRN_Dollars(F, e.PosiAbs, Cat::Abs);
    POSiTouchPRN_Dollars(F, e.PosiDisb, Cat::Disb);
  }
}

// The branch's reading, after InitFiles. It ends when a read of the next employee fails.
void POSiTouchPRN_Read(frmTimeImport& F) {
  const bool is_long = POSiTouchPRN_IsLong(F);
  if (is_long) {
    // Asked once the import record has its start values, so that the answer reaches the file.
    ImportRecord& r = F.ImportRec;
    if (F.S.Checked(chkBr)) {
      r.Branch = "01";
      r.Branch = F.ui.InputBox("Please enter the Branch value you want imported into Evolution:",
                               "Which Branch?", r.Branch.str());
    } else {
      r.Branch = "";
    }
    r.Division = F.S.Checked(chkDiv) ? "001" : "";
  }

  POSiTouchPRN_ReadEmployee(F, is_long);
  for (;;) {
    ++F.TCcount;
    POSiTouchPRN(F);
    POSiTouchPRN_ReadEmployee(F, is_long);
  }
}

// ---------------------------------------------------------------------------------------
// "POSiTouch (.csv)": one row of 21 fields per employee, 1 employee number, 3 name, 4 social
// security number, 6 regular hours, 8 overtime hours, 9 holiday hours, 13 tips. The rate,
// department and job of the regular hours come from the "PAYRJOBD.csv" file beside it.

// A row of the rate file, as fixed text of the widths the table keeps.
struct PosiPayRate {
  std::string RecordCode, EmpNo, Department, Job, Extra, Hours, Rate, Field8, Field9, Field10;
};

struct PosiPayRates {
  std::vector<PosiPayRate> rows;  // at most 2000
  std::array<std::string, 11> field;
};

constexpr std::size_t kPosiPayRateRows = 2000;

// Loads the rate file once per run. A file that cannot be opened is not this branch's to
// handle: the run ends with the run-time error. The end of the file, or a row past the
// table's last, ends the loading.
void FilPosiPayRates(frmTimeImport& F) {
  PosiPayRates& t = F.Fields<PosiPayRates>();
  InputFile& in = F.File(9);
  try {
    in.Open(JoinPath(F.S[filInput].text, "PAYRJOBD.csv"), OpenMode::Text);
  } catch (const RuntimeError& error) {
    throw FatalError(error);
  }
  t.rows.clear();
  auto& f = t.field;
  // each row is read as two reads of five fields
  auto read_row = [&] {
    for (std::size_t n = 1; n <= 10; ++n) in.Input(f[n]);
  };
  try {
    read_row();
    read_row();  // two heading rows
    for (;;) {
      read_row();
      if (t.rows.size() == kPosiPayRateRows) Raise(kSubscriptOutOfRange);
      t.rows.push_back(PosiPayRate{
          .RecordCode = FixedText(Trim(f[1]), 4),
          .EmpNo = FixedText(Trim(f[2]), 6),
          .Department = FixedText(Trim(f[3]), 3),
          .Job = FixedText(Trim(f[4]), 3),
          .Extra = FixedText(Trim(f[5]), 3),
          .Hours = FixedText(Trim(f[6]), 8),
          .Rate = FixedText(Trim(f[7]), 8),
          .Field8 = FixedText(Trim(f[8]), 8),
          .Field9 = FixedText(Trim(f[9]), 8),
          .Field10 = FixedText(Trim(f[10]), 8),
      });
    }
  } catch (const RuntimeError&) {
    // the end of the loading
  }
  in.Close();
}

// The row's fields are kept as text, as the rate file's are, so that the hours of the two
// files match as they are written.
struct PosiCSVFields {
  std::array<std::string, 22> PosiCSV_F;  // fields 1 to 21
};

void POSiTouchCSV_ReadRow(frmTimeImport& F) {
  auto& f = F.Fields<PosiCSVFields>().PosiCSV_F;
  InputFile& in = F.File(1);
  for (std::size_t n = 1; n <= 21; ++n) in.Input(f[n]);
}

void POSiTouchCSV(frmTimeImport& F) {
  const auto& f = F.Fields<PosiCSVFields>().PosiCSV_F;
  const PosiPayRates& t = F.Fields<PosiPayRates>();
  ImportRecord& r = F.ImportRec;

  r.Employee_no = Format(Value(Trim(f[1])), "0000");
  r.Employee_Name = Trim(f[3]);
  r.Department = r.payrate = r.Job = r.Division = r.Branch = r.Shift = r.Team = "";
  r.Amount = "";
  r.DorE = "E";
  r.Seq = "1";
  r.SSN = f[4];

  if (AtLeast1(Value(f[6]))) {
    // the job's row is the employee's row with the same hours
    const std::string hours = Trim(f[6]);
    const std::string employee = r.Employee_no.str();
    for (const PosiPayRate& row : t.rows) {
      if (Trim(row.EmpNo) == employee && Trim(row.Hours) == hours) {
        r.payrate = Trim(row.Rate);
        r.Department = Trim(row.Department);
        r.Job = Trim(row.Job);
        break;
      }
    }
    F.Apply(Posi_BelowMinWage(F, r.payrate) ? Cat::WaitReg : Cat::Reg);
    r.Hours = f[6];
    F.WriteOutputRec();
  }
  if (AtLeast1(Value(f[8]))) {
    F.Apply(Posi_BelowMinWage(F, r.payrate) ? Cat::WaitOT : Cat::OT);
    r.Hours = f[8];
    F.WriteOutputRec();
  }
  if (AtLeast1(Value(f[9]))) {
    F.Apply(Cat::Hol);
    r.Hours = f[9];
    F.WriteOutputRec();
  }
  r.Hours = "";
  if (AtLeast1(Value(f[13]))) {
    F.Apply(Cat::Tips);
    r.Amount = f[13];
    F.WriteOutputRec();
  }
}

// The heading row is dropped; a read that fails is the end of the file.
void POSiTouchCSV_Read(frmTimeImport& F) {
  POSiTouchCSV_ReadRow(F);
  POSiTouchCSV_ReadRow(F);
  for (;;) {
    ++F.TCcount;
    POSiTouchCSV(F);
    POSiTouchCSV_ReadRow(F);
  }
}

// ---------------------------------------------------------------------------------------
// "POSiTouch (.flt)": fixed records of 122 bytes. Hours are in hundredths and rates in
// thousandths; tips, sales and other pay in cents. Each record is dumped into the audit file
// before its lines.

void POSiTouch_Audit(frmTimeImport& F, const std::string& line) {
  if (!F.AuditStream) Raise(kObjectNotSet);
  F.AuditStream->WriteLine(line);
}

// A figure of the record with its implied decimals.
double POSiTouch_Scaled(const std::string& rec, long start, long length, double scale) {
  return Value(Mid(rec, start, length)).ToNumber() / scale;
}

// Hours of one kind with their rate, when the whole hours come to at least 1.
void POSiTouch_Hours(frmTimeImport& F, long hours_at, long rate_at, Cat category) {
  const std::string& rec = F.InRec;
  if (!AtLeast1(Value(Mid(rec, hours_at, 6)))) return;
  ImportRecord& r = F.ImportRec;
  F.Apply(category);
  r.Hours = Format(Value(POSiTouch_Scaled(rec, hours_at, 6, 100)), "####.##");
  r.payrate = Format(Value(POSiTouch_Scaled(rec, rate_at, 6, 1000)), "###.00#");
  F.WriteOutputRec();
}

void POSiTouch_Dollars(frmTimeImport& F, long at, Cat category) {
  const std::string& rec = F.InRec;
  if (!AtLeast1(Value(Mid(rec, at, 8)))) return;
  ImportRecord& r = F.ImportRec;
  F.Apply(category);
  r.Hours = r.payrate = "";
  r.Amount = Format(Value(POSiTouch_Scaled(rec, at, 8, 100)), "#####0.00");
  F.WriteOutputRec();
}

void POSiTouch(frmTimeImport& F) {
  const std::string& rec = F.InRec;
  ImportRecord& r = F.ImportRec;
  r.Employee_no = Mid(rec, 3, 10);
  r.Employee_Name = "";
  r.DorE = "E";
  r.Amount = "";
  r.Division = r.Branch = r.Department = "";
  r.Job = Mid(rec, 25, 5);
  r.Shift = "";
  r.Seq = "1";
  r.Team = "";
  r.SSN = "";

  POSiTouch_Audit(F, "RecType: " + Mid(rec, 1, 2) + ", employee_num: " + Mid(rec, 3, 10) +
                         ", start_date: " + Mid(rec, 13, 6) + ", end_date: " + Mid(rec, 19, 6) +
                         ", job_code: " + Mid(rec, 25, 5));
  auto dump = [&](const char* label, long at, long length, double scale, const char* picture) {
    POSiTouch_Audit(F, label + Format(Value(POSiTouch_Scaled(rec, at, length, scale)), picture));
  };
  dump("reg_hours: ", 30, 6, 100, "####.00");
  dump("reg_rate: ", 37, 6, 1000, "###.000");
  dump("ot_hours: ", 44, 6, 100, "####.00");
  dump("ot_rate: ", 51, 6, 1000, "###.000");
  dump("Tips: ", 58, 8, 100, "######.00");
  dump("Sales: ", 67, 8, 100, "######.00");
  dump("Misc_pay: ", 76, 8, 100, "######.00");

  POSiTouch_Hours(F, 30, 37, Cat::Reg);
  POSiTouch_Hours(F, 44, 51, Cat::OT);
  POSiTouch_Dollars(F, 58, Cat::Tips);
  POSiTouch_Dollars(F, 67, Cat::Sales);
  POSiTouch_Dollars(F, 76, Cat::Misc);
}

// ---------------------------------------------------------------------------------------
// "POSiTouch OTB": lines of up to 15 comma fields. Field 2 is the row type: "0" an employee,
// "1" a detail row of his hours. Divisions are translated by "<time clock>_CrossRef.txt"
// beside the export. The earning code comes from the file: "1" regular, "3" overtime.

struct PosiXRefRow {
  std::string code, value;
};

struct PosiOTBFields {
  std::array<PosiXRefRow, 51> PosiXRef;  // rows 0 to 50; rows 1 to 50 are loaded and searched
  std::string PosiLastName, PosiFirstName;
  // the employee row's amounts, paid with his first detail row
  Value PosiAmount11, PosiAmount15;
  std::array<std::string, 16> field;  // fields 1 to 15 of the line
};

constexpr std::size_t kPosiXRefLast = 50;
constexpr std::size_t kPosiOTBFields = 15;

// Loads the cross-reference to the end of its file. A missing file leaves the table empty and
// every division as the export gives it; lines past row 50 are passed over.
void POSiTouchOTB_LoadXRef(frmTimeImport& F) {
  auto& table = F.Fields<PosiOTBFields>().PosiXRef;
  table.fill(PosiXRefRow{});
  InputFile& in = F.File(9);
  try {
    in.Open(F.ExtractInputPath().str() + std::string(F.S[PickTC].SelectedText()) + "_CrossRef.txt",
            OpenMode::Text);
    std::size_t row = 1;
    Value code, value;
    while (!in.Eof()) {
      in.Input(code);
      in.Input(value);
      if (row <= kPosiXRefLast) table[row] = {Format(code, "00"), Format(value, "00")};
      ++row;
    }
  } catch (const RuntimeError&) {
    // the end of the loading
  }
  in.Close();
}

// Walks the first 15 fields of the line at its commas into the buffers kept from line to
// line; a field the line does not have is blank.
void POSiTouchOTB_Walk(PosiOTBFields& o, std::string_view line) {
  std::size_t start = 0;
  for (std::size_t n = 1; n <= kPosiOTBFields; ++n) {
    std::string& field = o.field[n];
    if (start > line.size()) {
      field.clear();
      continue;
    }
    const std::size_t comma = line.find(',', start);
    const std::size_t end = comma == std::string_view::npos ? line.size() : comma;
    field.assign(line.substr(start, end - start));
    start = end + 1;
  }
}

// A detail row's division: a code with a leading zero keeps its last two characters, then
// the cross-reference may put another in its place.
std::string POSiTouchOTB_Division(const PosiOTBFields& o, const std::string& field) {
  std::string division = Trim(field);
  if (division.starts_with("0")) division = Right(division, 2);
  for (std::size_t row = 1; row <= kPosiXRefLast; ++row) {
    if (o.PosiXRef[row].code == division) return o.PosiXRef[row].value;
  }
  return division;
}

// The rate of a detail row. Without rates from the file an overtime row's rate, once the rate
// before it is above the minimum wage, is brought back to the base rate; another row keeps the
// rate before it. Errors in a row's statements are passed over one by one.
void POSiTouchOTB_PayRate(frmTimeImport& F, const std::string& field) {
  ImportRecord& r = F.ImportRec;
  if (!F.S.Checked(chkPayRate) && r.Earning_Code != Value("01")) {
    if (r.Earning_Code == Value("02") && Below(Value(F.S[txtMinWage].text), r.payrate)) {
      ResumeNext([&] { r.payrate = Value(field).ToNumber() / 1.5; });
    }
  } else {
    r.payrate = Trim(field);
  }
  r.payrate = Format(r.payrate, "#.000");
}

// One pay line of an amount kept from the employee row, under the fixed code 15.
void POSiTouchOTB_Amount(frmTimeImport& F, Value& amount) {
  ImportRecord& r = F.ImportRec;
  r.Amount = amount.str();
  r.Hours = "";
  r.Earning_Code = 15;
  Posi_Write(F);
  amount = Value();
}

void POSiTouchOTB(frmTimeImport& F) {
  PosiOTBFields& o = F.Fields<PosiOTBFields>();
  ImportRecord& r = F.ImportRec;
  const std::string& quote = F.quote;
  POSiTouchOTB_Walk(o, F.InRec);
  auto field = [&](std::size_t n) -> const std::string& { return o.field[n]; };
  const std::string type = Trim(field(2));

  if (type == "0") {
    o.PosiLastName = Trim(Replace(field(3), quote, ""));
    o.PosiFirstName = Trim(Replace(field(4), quote, ""));
    r.Employee_no = Trim(Replace(field(5), quote, ""));
    o.PosiAmount11 = field(11);
    if (F.S.Checked(chkTeam)) o.PosiAmount15 = field(15);
  } else if (type == "1") {
    r.Division = POSiTouchOTB_Division(o, field(3));
    std::string code = Trim(field(5));
    if (code == "1") code = "01";
    if (code == "3") code = "02";
    r.Earning_Code = code;
    r.Amount = "";
    r.Hours = Trim(field(6));
    POSiTouchOTB_PayRate(F, field(7));

    if (r.Hours != Value(0) && r.Hours != Value("")) {
      if (r.Earning_Code == Value("02") && Posi_BelowMinWage(F, r.payrate)) F.Apply(Cat::WaitOT);
      r.Employee_Name = o.PosiLastName + ", " + o.PosiFirstName;
      Posi_Write(F);
    }
    if (o.PosiAmount11 != Value(0)) POSiTouchOTB_Amount(F, o.PosiAmount11);
    if (o.PosiAmount15 != Value(0) && o.PosiAmount15 != Value("")) {
      POSiTouchOTB_Amount(F, o.PosiAmount15);
    }
  }
}

// Every line goes through the translator, the first as much as the last.
void POSiTouchOTB_Read(frmTimeImport& F) {
  InputFile& in = F.File(1);
  auto at_end = [&] {
    try {
      return in.Eof();
    } catch (const RuntimeError&) {
      return true;
    }
  };
  while (!at_end()) {
    ResumeNext([&] { in.LineInput(F.InRec); });
    ++F.TCcount;
    POSiTouchOTB(F);
  }
}

}  // namespace

extern const Translator kPOSiTouchPRNTranslator{
    .name = "POSiTouchPRN",
    .translate = POSiTouchPRN,
    .run = POSiTouchPRN_Read,
};

extern const Translator kPOSiTouchPRNLong_GetRecTranslator{
    .name = "POSiTouchPRNLong_GetRec",
    .translate = POSiTouchPRN,
    .run = POSiTouchPRN_Read,
};

extern const Translator kPOSiTouchCSVTranslator{
    .name = "POSiTouchCSV",
    .prepare = FilPosiPayRates,
    .translate = POSiTouchCSV,
    .run = POSiTouchCSV_Read,
};

extern const Translator kPOSiTouchTranslator{
    .name = "POSiTouch",
    .translate = POSiTouch,
};

extern const Translator kPOSiTouchOTBTranslator{
    .name = "POSiTouchOTB",
    .prepare = POSiTouchOTB_LoadXRef,
    .translate = POSiTouchOTB,
    .run = POSiTouchOTB_Read,
};

}  // namespace corvane
