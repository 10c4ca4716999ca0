// The files that time clocks prepare for the ADP payroll service. Most are comma files in the
// service's column vocabulary ("Co Code", "File #", "Reg Hours", "Hours 3 Code", "Hours 3
// Amount", ...) whose code and amount pairs each fold into a pay category; "ADP (extpaydt)"
// and "ADS Custom" are fixed records.
//
// How a comma field comes out shows in the import line: read into a value, 40.00 prints "40"
// and a department 0200 prints "200"; read into text, or cut from a line by the translator,
// it keeps its characters ("40.00").
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// ---------------------------------------------------------------------------------------------
// Shared by the family.

// The value test of the EZ Labor family: the trimmed text is neither blank nor "0". "0.00"
// passes, and the writer then drops the empty record.
bool ADPHasValue(std::string_view field) {
  const std::string t = Trim(field);
  return !t.empty() && t != "0";
}

// The record defaults: what these formats never take from the file is cleared, so that
// nothing of the previous record leaks into this one.
void ADPRecordDefaults(ImportRecord& r) {
  r.payrate = r.Job = r.Department = r.Branch = r.Division = r.Shift = r.Team = "";
  r.SSN = "";
  r.WorkersComp = r.RateNumber = "";
  r.DorE = "E";
  r.Seq = "1";
}

template <class Code, std::size_t N>
std::optional<Cat> ADPLookup(const std::pair<Code, Cat> (&table)[N], const Value& code) {
  for (const auto& [known, category] : table) {
    if (code == Value(known)) return category;
  }
  return std::nullopt;
}

// ---------------------------------------------------------------------------------------------
// "ADP-AS400": quoted comma lines that the translator splits itself; it opens the files and
// runs the whole file.

// The eleven stores of a line, by column.
enum ADPas400Column {
  AS400_CoCode,
  AS400_BatchID,
  AS400_FileNo,
  AS400_RegHours,
  AS400_OTHours,
  AS400_Hours3Code,
  AS400_Hours3Amount,
  AS400_MemoCode,
  AS400_MemoAmount,
  AS400_Earnings3Code,
  AS400_Earnings3Amount,
  AS400_Columns
};

struct ADPas400Fields {
  // Not cleared between lines: a short line leaves the last line's values in the columns it
  // does not reach, and they are written again under the new employee.
  std::array<Value, AS400_Columns> AS400_F;
};

// The codes of the hours 3, memo and earnings 3 columns.
constexpr std::pair<const char*, Cat> kADPas400Codes[] = {
    {"V", Cat::e15}, {"S", Cat::e16}, {"F", Cat::e17}, {"T", Cat::e18},  {"B", Cat::e19},
    {"P", Cat::e20}, {"H", Cat::e21}, {"O", Cat::e22}, {"BN", Cat::e23}, {"C", Cat::e24},
};

// Cuts the line at its commas into the stores, each trimmed; columns past the eleventh are
// ignored.
void ADPas400_Split(const std::string& line, ADPas400Fields& in) {
  const std::vector<std::string> fields = Split(line, ",");
  const std::size_t stores = std::min<std::size_t>(fields.size(), AS400_Columns);
  for (std::size_t k = 0; k < stores; ++k) in.AS400_F[k] = Trim(fields[k]);
}

// A code column with its amount: an unknown code keeps the category of the line before.
void ADPas400_Coded(frmTimeImport& F, const Value& code, const Value& amount, bool dollars) {
  if (!NumericAbove0(amount)) return;
  if (const auto category = ADPLookup(kADPas400Codes, code)) F.Apply(*category);
  ImportRecord& r = F.ImportRec;
  if (dollars) {
    r.Hours = "";
    r.Amount = amount.str();
  } else {
    r.Amount = "";
    r.Hours = amount;
  }
  F.WriteOutputRec();
}

void ADPas400(frmTimeImport& F) {
  F.TCcount = 0;
  F.Ready = true;
  F.InitFiles();
  ADPas400Fields& in = F.Fields<ADPas400Fields>();
  const auto& f = in.AS400_F;
  ImportRecord& r = F.ImportRec;
  InputFile& file = F.File(1);
  std::string& line = F.InRec;
  while (!file.Eof()) {
    file.LineInput(line);
    std::erase(line, '"');
    // an empty line is the end of the export, whatever follows it
    if (line.empty()) return;
    ++F.TCcount;
    ADPas400_Split(line, in);

    r.Employee_no = Format(f[AS400_FileNo], "000000");
    if (NumericAbove0(f[AS400_RegHours])) F.WriteHours(Cat::Reg, f[AS400_RegHours]);
    if (NumericAbove0(f[AS400_OTHours])) F.WriteHours(Cat::OT, f[AS400_OTHours]);
    ADPas400_Coded(F, f[AS400_Hours3Code], f[AS400_Hours3Amount], false);
    ADPas400_Coded(F, f[AS400_MemoCode], f[AS400_MemoAmount], false);
    ADPas400_Coded(F, f[AS400_Earnings3Code], f[AS400_Earnings3Amount], true);
  }
}

// ---------------------------------------------------------------------------------------------
// "ADP/Aspect": 11 comma fields a row, the first row the heading. File # and Earnings 3
// Amount go to the form's ADPAspect_EmpNo and ADPAspect_Dollars, which the exception line
// quotes.

struct ADPAspectFields {
  Value ADPAspect_CoCode, ADPAspect_BatchID, ADPAspect_TempDept, ADPAspect_E3Code;
  Value ADPAspect_TempRate, ADPAspect_RegHours, ADPAspect_OTHours;
  Value ADPAspect_MemoCode, ADPAspect_MemoAmount;
};

void ADPAspect_ReadRow(frmTimeImport& F) {
  ADPAspectFields& in = F.Fields<ADPAspectFields>();
  InputFile& file = F.File(1);
  file.Input(in.ADPAspect_CoCode);
  file.Input(in.ADPAspect_BatchID);
  file.Input(F.ADPAspect_EmpNo);
  file.Input(in.ADPAspect_TempDept);
  file.Input(in.ADPAspect_E3Code);
  file.Input(F.ADPAspect_Dollars);
  file.Input(in.ADPAspect_TempRate);
  file.Input(in.ADPAspect_RegHours);
  file.Input(in.ADPAspect_OTHours);
  file.Input(in.ADPAspect_MemoCode);
  file.Input(in.ADPAspect_MemoAmount);
}

bool ADPAspectRead(frmTimeImport& F) {
  ADPAspect_ReadRow(F);
  ++F.TCcount;  // counted before the translator runs
  return true;
}

void ADPAspect(frmTimeImport& F) {
  const ADPAspectFields& in = F.Fields<ADPAspectFields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = F.ADPAspect_EmpNo;
  ADPRecordDefaults(r);
  if (F.S.Checked(chkPayRate)) r.payrate = in.ADPAspect_TempRate;
  if (F.S.Checked(chkDept)) r.Department = in.ADPAspect_TempDept;

  // The hours are taken as numbers with no test: text there is a type mismatch, which ends
  // the reading.
  if (in.ADPAspect_RegHours.ToNumber() > 0) F.WriteHours(Cat::Reg, in.ADPAspect_RegHours);
  if (in.ADPAspect_OTHours.ToNumber() > 0) F.WriteHours(Cat::OT, in.ADPAspect_OTHours);

  const Value& code = in.ADPAspect_E3Code;
  if (code == Value("T")) {
    F.Apply(Cat::e15);
    r.Amount = F.ADPAspect_Dollars.str();
    r.Hours = "";
    F.WriteOutputRec();
  } else if (!Trim(code).empty()) {
    F.MsgBox("Unrecognized Earnings 3 Code '" + code.str() + "' from ADP/Aspect");
    F.WriteExceptionRec(code);
  }
}

// ---------------------------------------------------------------------------------------------
// "ADP.csv": 11 comma fields a row, the first row the heading. Second and third shift hours
// go out twice: at full rate, then under the shift's premium category.

struct ADPcsvFields {
  Value ADPcsv_CoCode, ADPcsv_BatchID, ADPcsv_FileNo, ADPcsv_TempDept, ADPcsv_Shift;
  Value ADPcsv_RegHours, ADPcsv_OTHours;
  Value ADPcsv_H3Code, ADPcsv_H3Amount, ADPcsv_H4Code, ADPcsv_H4Amount;
};

void ADPcsv_ReadRow(frmTimeImport& F) {
  ADPcsvFields& in = F.Fields<ADPcsvFields>();
  InputFile& file = F.File(1);
  for (Value* field :
       {&in.ADPcsv_CoCode, &in.ADPcsv_BatchID, &in.ADPcsv_FileNo, &in.ADPcsv_TempDept,
        &in.ADPcsv_Shift, &in.ADPcsv_RegHours, &in.ADPcsv_OTHours, &in.ADPcsv_H3Code,
        &in.ADPcsv_H3Amount, &in.ADPcsv_H4Code, &in.ADPcsv_H4Amount}) {
    file.Input(*field);
  }
}

bool ADPcsvRead(frmTimeImport& F) {
  ADPcsv_ReadRow(F);
  ++F.TCcount;  // counted before the translator runs
  return true;
}

// The hours under their category, then, on second or third shift, once more under the
// premium category of that shift (none for double time).
void ADPcsv_Hours(frmTimeImport& F, const Value& hours, Cat category,
                  std::optional<Cat> second_shift, std::optional<Cat> third_shift) {
  F.WriteHours(category, hours);
  // The file's shift decides the premium whether or not the shift goes to the record; a
  // shift read as 02 is the number 2.
  const std::string shift = Trim(F.Fields<ADPcsvFields>().ADPcsv_Shift);
  if (shift == "2" && second_shift) F.WriteHours(*second_shift, hours);
  if (shift == "3" && third_shift) F.WriteHours(*third_shift, hours);
}

// A Hours 3 or Hours 4 pair: "D" is double time, "V" vacation; other codes are passed over.
void ADPcsv_Pair(frmTimeImport& F, const Value& code, const Value& amount) {
  if (!NumericAbove0(amount)) return;
  if (code == Value("D")) {
    ADPcsv_Hours(F, amount, Cat::Dbl, std::nullopt, std::nullopt);
  } else if (code == Value("V")) {
    ADPcsv_Hours(F, amount, Cat::Tips, Cat::e15, Cat::e17);
  }
}

void ADPcsv(frmTimeImport& F) {
  const ADPcsvFields& in = F.Fields<ADPcsvFields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = in.ADPcsv_FileNo;
  ADPRecordDefaults(r);
  if (F.S.Checked(chkBr)) r.Shift = in.ADPcsv_Shift;
  if (F.S.Checked(chkDept)) r.Department = in.ADPcsv_TempDept;

  // Reg Hours is taken as a number with no test: text there ends the reading.
  if (in.ADPcsv_RegHours.ToNumber() > 0) {
    ADPcsv_Hours(F, in.ADPcsv_RegHours, Cat::Reg, Cat::e15, Cat::e17);
  }
  if (NumericAbove0(in.ADPcsv_OTHours)) {
    ADPcsv_Hours(F, in.ADPcsv_OTHours, Cat::OT, Cat::e16, Cat::e18);
  }
  ADPcsv_Pair(F, in.ADPcsv_H3Code, in.ADPcsv_H3Amount);
  ADPcsv_Pair(F, in.ADPcsv_H4Code, in.ADPcsv_H4Amount);
}

// ---------------------------------------------------------------------------------------------
// "ADP (BST)": six comma fields, then a tail of "Hours 3 Code,Hours 3 Amount" pairs read as
// the rest of the line. A row without pairs has no tail: its last field ends at the line end,
// and the tail read takes the whole next row, which is then split here into its fields.

struct ADPBSTFields {
  // Text, so that the next row can be told by its first characters.
  std::string BST_CoCode;
  Value BST_BatchID, BST_FileNo, BST_TempRate, BST_RegHours, BST_OTHours;
  std::string TailText;
};

// The next row, arrived as a line: five fields cut at commas, the sixth the rest; the rest's
// own comma starts the row's pairs. A line of fewer fields is out of range.
void ADPBST_SplitRow(ADPBSTFields& in, bool& tail_expected) {
  const std::string row = in.TailText;
  std::array<std::string, 6> f;
  std::size_t start = 0;
  for (std::size_t k = 0; k < 5; ++k) {
    const std::size_t comma = row.find(',', start);
    if (comma == std::string::npos) Raise(kSubscriptOutOfRange);
    f[k] = row.substr(start, comma - start);
    start = comma + 1;
  }
  f[5] = row.substr(start);
  in.BST_CoCode = f[0];
  in.BST_BatchID = f[1];
  in.BST_FileNo = f[2];
  in.BST_TempRate = f[3];
  in.BST_RegHours = f[4];
  if (const std::size_t comma = f[5].find(','); comma != std::string::npos) {
    in.BST_OTHours = f[5].substr(0, comma);
    in.TailText = f[5].substr(comma + 1);
    tail_expected = true;
  } else {
    in.BST_OTHours = f[5];
    in.TailText.clear();
    tail_expected = false;
  }
}

// The pairs of a true tail. Only paid time off ("U") is paid, in dollars; the code is not
// trimmed, so " U" is passed over.
void ADPBST_Pairs(frmTimeImport& F, std::string& tail, long pairs) {
  ImportRecord& r = F.ImportRec;
  for (long i = 0; i < pairs; ++i) {
    const std::size_t first = tail.find(',');
    const std::string code = tail.substr(0, first);
    std::string amount;
    if (first != std::string::npos) {
      const std::size_t next = tail.find(',', first + 1);
      amount = tail.substr(first + 1, next == std::string::npos ? next : next - first - 1);
    }
    const Value figure(amount);
    if (UCase(code) == "U" && NumericAbove0(figure)) {
      F.Apply(Cat::Tips);
      r.Amount = Format(figure, "#.00");
      r.Hours = "";
      F.WriteOutputRec();
    }
    tail = Replace(tail, code + "," + amount, "");
    if (!tail.empty() && tail.front() == ',') tail.erase(0, 1);
  }
}

void ADPBST(frmTimeImport& F) {
  F.InitFiles();
  ADPBSTFields& in = F.Fields<ADPBSTFields>();
  ImportRecord& r = F.ImportRec;
  InputFile& file = F.File(1);
  file.LineInput(F.InRec);  // the heading line

  // Changed only when a row arrives as a line: once such a row had no pairs, the rows read
  // after it are read without their tail.
  bool tail_expected = true;
  while (!file.Eof()) {
    file.Input(in.BST_CoCode);
    file.Input(in.BST_BatchID);
    file.Input(in.BST_FileNo);
    file.Input(in.BST_TempRate);
    file.Input(in.BST_RegHours);
    file.Input(in.BST_OTHours);
    if (tail_expected) file.LineInput(in.TailText);

    while (true) {
      ++F.TCcount;
      const bool next_row = in.TailText.starts_with(in.BST_CoCode);
      long pairs = 0;
      if (!next_row && !in.TailText.empty() && tail_expected) {
        pairs =
            (static_cast<long>(std::count(in.TailText.begin(), in.TailText.end(), ',')) + 1) / 2;
      }

      r.Employee_no = Format(in.BST_FileNo, "000000");
      if (NumericAbove0(in.BST_RegHours)) F.WriteHours(Cat::Reg, in.BST_RegHours);
      if (NumericAbove0(in.BST_OTHours)) F.WriteHours(Cat::OT, in.BST_OTHours);

      if (!next_row) {
        ADPBST_Pairs(F, in.TailText, pairs);
        break;
      }
      if (in.TailText.empty()) break;
      ADPBST_SplitRow(in, tail_expected);
    }
  }
}

// ---------------------------------------------------------------------------------------------
// "ADP (extpaydt)": 82-byte records after a head record. A record whose sales field holds
// digits is followed by a continuation record with the last three digits of the sales.

struct ADPFields {
  std::string ADP_Continuation;
};

// The file's head record is dropped.
void ADPHeading(frmTimeImport& F) {
  F.File(1).Get(F.InRec);
}

// An hours field of two implied decimals under its category; the pay rate goes with it.
void ADP_Hours(frmTimeImport& F, long offset, Cat category) {
  const Value field(Mid(F.InRec, offset + 1, 7));
  if (!field.IsNumeric() || ToLong(field) < 1) return;
  ImportRecord& r = F.ImportRec;
  F.Apply(category);
  // an hours line carries no dollars, though the last tips or sales record left some
  r.Amount = "";
  r.Hours = Format(Value(field.ToNumber() / 100), "####.##");
  if (F.S.Checked(chkPayRate)) {
    r.payrate = Format(Value(Value(Mid(F.InRec, 27, 7)).ToNumber() / 10000), "###.00##");
  }
  F.WriteOutputRec();
}

void ADP(frmTimeImport& F) {
  const std::string& rec = F.InRec;
  ImportRecord& r = F.ImportRec;
  r.Employee_no = Mid(rec, 4, 6);
  r.Employee_Name = "";
  ADPRecordDefaults(r);
  if (!F.AuditStream) Raise(kObjectNotSet);
  F.AuditStream->WriteLine("Employee_num: " + r.Employee_no.str());
  r.Department = F.S.Checked(chkDept) ? Value(Mid(rec, 18, 6)) : Value("");
  r.payrate = "";

  ADP_Hours(F, 37, Cat::Reg);
  ADP_Hours(F, 48, Cat::OT);

  const Value tips(Mid(rec, 62, 7));
  if (AtLeast1(tips)) {
    F.Apply(Cat::Tips);
    r.Hours = r.payrate = "";
    r.Amount = Format(Value(tips.ToNumber() / 100), "#####0.00");
    F.WriteOutputRec();
  }

  // The sales are whole dollars of seven digits, split across this record and the next.
  const std::string lead = Mid(rec, 77, 4);
  if (!IsNumeric(lead)) return;
  std::string& continuation = F.Fields<ADPFields>().ADP_Continuation;
  F.File(1).Get(continuation);  // read here, so not counted as a record
  r.Amount = lead + Mid(continuation, 2, 3);
  const std::int32_t sales = ToLong(Value(r.Amount));
  if (sales > 0) {
    F.Apply(Cat::Sales);
    r.Hours = r.payrate = "";
    r.Amount = Format(Value(sales), "#####0") + ".00";
    F.WriteOutputRec();
  }
}

// ---------------------------------------------------------------------------------------------
// "ADP/EZ Labor", "Costa View EZLabor", "ADP v11.2.3": a heading line, then rows whose head
// columns go straight to the record (File #, Pay #, Shift); the hours and pairs follow, and
// the rest of the line is read away. The hours and amounts are read as text, for the
// family's value test.

// Co Code, Batch Id, File #, Pay #, Shift, Rate Code, Tax Frequency, Special Action.
void EZLabor_ReadHead(frmTimeImport& F, Value& unused) {
  InputFile& file = F.File(1);
  ImportRecord& r = F.ImportRec;
  file.Input(unused);         // Co Code
  file.Input(unused);         // Batch Id
  file.Input(r.Employee_no);  // File #
  file.Input(r.Seq);          // Pay #
  file.Input(r.Shift);
  file.Input(unused);  // Rate Code
  file.Input(unused);  // Tax Frequency
  file.Input(unused);  // Special Action
}

// The rest of the row is read away as a line, and the row counted.
void EZLabor_EndRow(frmTimeImport& F) {
  F.File(1).LineInput(F.InRec);
  ++F.TCcount;
}

void EZLaborDefaults(ImportRecord& r) {
  r.Employee_Name = r.Hours = "";
  r.Amount = "";
  r.Division = r.Branch = r.Job = r.payrate = "";
  r.SSN = "";
  r.DorE = "E";
}

// A pair whose amount passes the test goes out as hours under the category of its code; an
// unknown code is reported and its pair left out.
void EZLabor_Pair(frmTimeImport& F, const Value& code, const std::string& amount,
                  std::optional<Cat> category) {
  if (!ADPHasValue(amount)) return;
  ImportRecord& r = F.ImportRec;
  r.Hours = amount;
  if (!category) {
    F.MsgBox("Unexpected Earning Code: " + code.str() + " for EE# " + r.Employee_no.str() + " - " +
             r.Hours.str() + " hours");
    return;
  }
  F.Apply(*category);
  F.WriteOutputRec();
}

void EZLabor_RegAndOT(frmTimeImport& F, const std::string& reg, const std::string& ot) {
  ImportRecord& r = F.ImportRec;
  if (ADPHasValue(reg)) {
    r.Hours = reg;
    F.Apply(Cat::Reg);
    F.WriteOutputRec();
  }
  if (ADPHasValue(ot)) {
    r.Hours = ot;
    F.Apply(Cat::OT);
    F.WriteOutputRec();
  }
}

// "ADP/EZ Labor": Temp Dept stands in the row only when the department is taken.

struct ADPEZLaborFields {
  Value EZ_Unused;
  std::string EZ_RegHours, EZ_OTHours;
  std::array<std::string, 3> EZ_Code, EZ_Amount;
};

constexpr std::pair<const char*, Cat> kADPEZLaborCodes[] = {
    {"D", Cat::Dbl}, {"H", Cat::Hol}, {"V", Cat::Sales}, {"S", Cat::e15},
    {"I", Cat::e16}, {"P", Cat::e17}, {"J", Cat::e18},   {"Z", Cat::e19},
};

bool ADPEZLaborRead(frmTimeImport& F) {
  ADPEZLaborFields& in = F.Fields<ADPEZLaborFields>();
  InputFile& file = F.File(1);
  EZLabor_ReadHead(F, in.EZ_Unused);
  if (F.S.Checked(chkDept)) file.Input(F.ImportRec.Department);  // Temp Dept
  file.Input(in.EZ_RegHours);
  file.Input(in.EZ_OTHours);
  for (std::size_t k = 0; k < 3; ++k) {
    file.Input(in.EZ_Code[k]);
    file.Input(in.EZ_Amount[k]);
  }
  EZLabor_EndRow(F);
  return true;
}

void ADPEZLabor(frmTimeImport& F) {
  const ADPEZLaborFields& in = F.Fields<ADPEZLaborFields>();
  EZLaborDefaults(F.ImportRec);
  EZLabor_RegAndOT(F, in.EZ_RegHours, in.EZ_OTHours);
  for (std::size_t k = 0; k < 3; ++k) {
    const Value code(Trim(in.EZ_Code[k]));
    EZLabor_Pair(F, Value(in.EZ_Code[k]), in.EZ_Amount[k], ADPLookup(kADPEZLaborCodes, code));
  }
}

// "Costa View EZLabor": no Temp Dept; File # may hold blanks; numeric codes.

struct CostaViewFields {
  Value Costa_Unused;
  std::string Costa_RegHours, Costa_OTHours;
  // Values: a code read as 01 is the number 1 and so equals "1".
  std::array<Value, 3> Costa_Code;
  std::array<std::string, 3> Costa_Amount;
};

constexpr std::pair<const char*, Cat> kCostaViewCodes[] = {
    {"1", Cat::Dbl},  {"10", Cat::Tips}, {"2", Cat::Sales}, {"3", Cat::Hol},
    {"4", Cat::Misc}, {"5", Cat::Disb},  {"6", Cat::Abs},   {"14", Cat::AdjH},
};

bool CostaViewEZLaborRead(frmTimeImport& F) {
  CostaViewFields& in = F.Fields<CostaViewFields>();
  InputFile& file = F.File(1);
  EZLabor_ReadHead(F, in.Costa_Unused);
  Value& number = F.ImportRec.Employee_no;
  if (number.IsText() && number.text().find(' ') != std::string::npos) {
    number = Replace(number, " ", "");
  }
  file.Input(in.Costa_RegHours);
  file.Input(in.Costa_OTHours);
  for (std::size_t k = 0; k < 3; ++k) {
    file.Input(in.Costa_Code[k]);
    file.Input(in.Costa_Amount[k]);
  }
  EZLabor_EndRow(F);
  return true;
}

void CostaViewEZLabor(frmTimeImport& F) {
  const CostaViewFields& in = F.Fields<CostaViewFields>();
  EZLaborDefaults(F.ImportRec);
  EZLabor_RegAndOT(F, in.Costa_RegHours, in.Costa_OTHours);
  for (std::size_t k = 0; k < 3; ++k) {
    // compared as read, untrimmed
    EZLabor_Pair(F, in.Costa_Code[k], in.Costa_Amount[k],
                 ADPLookup(kCostaViewCodes, in.Costa_Code[k]));
  }
}

// "ADP v11.2.3": the pairs go by position alone, their codes are not looked at.

struct ADPv1123Fields {
  Value V1123_Unused;
  std::string V1123_RegHours, V1123_OTHours;
  std::array<std::string, 3> V1123_Amount;
};

bool ADPv1123Read(frmTimeImport& F) {
  ADPv1123Fields& in = F.Fields<ADPv1123Fields>();
  InputFile& file = F.File(1);
  EZLabor_ReadHead(F, in.V1123_Unused);
  file.Input(in.V1123_RegHours);
  file.Input(in.V1123_OTHours);
  file.Input(in.V1123_Unused);  // Hours 3 Code
  file.Input(in.V1123_Amount[0]);
  for (int k = 0; k < 16; ++k) file.Input(in.V1123_Unused);  // Hours 4 to Hours 11
  file.Input(in.V1123_Unused);                               // Earnings 3 Code
  file.Input(in.V1123_Amount[1]);
  file.Input(in.V1123_Unused);  // Earnings 4 Code
  file.Input(in.V1123_Amount[2]);
  EZLabor_EndRow(F);
  return true;
}

void ADPv1123(frmTimeImport& F) {
  const ADPv1123Fields& in = F.Fields<ADPv1123Fields>();
  ImportRecord& r = F.ImportRec;
  EZLaborDefaults(r);
  EZLabor_RegAndOT(F, in.V1123_RegHours, in.V1123_OTHours);
  if (ADPHasValue(in.V1123_Amount[0])) {
    r.Hours = in.V1123_Amount[0];
    F.Apply(Cat::Dbl);
    F.WriteOutputRec();
  }
  // the two earnings pairs are dollars
  r.Hours = "";
  if (ADPHasValue(in.V1123_Amount[1])) {
    r.Amount = in.V1123_Amount[1];
    F.Apply(Cat::Tips);
    F.WriteOutputRec();
  }
  if (ADPHasValue(in.V1123_Amount[2])) {
    r.Amount = in.V1123_Amount[2];
    F.Apply(Cat::Sales);
    F.WriteOutputRec();
  }
}

// ---------------------------------------------------------------------------------------------
// "ADS Custom": 106-byte records of six-digit hours with two implied decimals.

// An hours field, unless it is all zeros: 004025 goes out as 40.25.
void ADSCustom_Hours(frmTimeImport& F, long offset, Cat category) {
  const std::string field = Mid(F.InRec, offset + 1, 6);
  if (field == "000000") return;
  F.Apply(category);
  F.ImportRec.Hours = Format(Value(Left(field, 4) + "." + Right(field, 2)), "0.00");
  F.WriteOutputRec();
}

void ADSCustom(frmTimeImport& F) {
  const std::string& rec = F.InRec;
  ImportRecord& r = F.ImportRec;
  ADPRecordDefaults(r);
  r.Earning_Code = "?";
  r.Employee_no = Format(Value(Mid(rec, 7, 6)), "######");
  // a "V" flag makes the first hours vacation
  ADSCustom_Hours(F, 18, Mid(rec, 77, 1) == "V" ? Cat::Misc : Cat::Reg);
  ADSCustom_Hours(F, 24, Cat::OT);
  ADSCustom_Hours(F, 70, Cat::Hol);
  ADSCustom_Hours(F, 91, Cat::Sales);
  ADSCustom_Hours(F, 98, Cat::Misc);
}

}  // namespace

extern const Translator kADPas400Translator{
    .name = "ADPas400",
    .run = ADPas400,
};

extern const Translator kADPAspectTranslator{
    .name = "ADPAspect",
    .heading = ADPAspect_ReadRow,
    .read = ADPAspectRead,
    .translate = ADPAspect,
    .reader_counts = false,
};

extern const Translator kADPcsvTranslator{
    .name = "ADPcsv",
    .heading = ADPcsv_ReadRow,
    .read = ADPcsvRead,
    .translate = ADPcsv,
    .reader_counts = false,
};

extern const Translator kADPBSTTranslator{
    .name = "ADPBST",
    .run = ADPBST,
};

extern const Translator kADPTranslator{
    .name = "ADP",
    .heading = ADPHeading,
    .translate = ADP,
};

extern const Translator kADPEZLaborTranslator{
    .name = "ADPEZLabor",
    .heading_lines = 1,
    .read = ADPEZLaborRead,
    .translate = ADPEZLabor,
    .reader_counts = false,
};

extern const Translator kCostaViewEZLaborTranslator{
    .name = "CostaViewEZLabor",
    .heading_lines = 1,
    .read = CostaViewEZLaborRead,
    .translate = CostaViewEZLabor,
    .reader_counts = false,
};

extern const Translator kADPv1123Translator{
    .name = "ADPv1123",
    .heading_lines = 1,
    .read = ADPv1123Read,
    .translate = ADPv1123,
    .reader_counts = false,
};

extern const Translator kADSCustomTranslator{
    .name = "ADSCustom",
    .translate = ADSCustom,
};

}  // namespace corvane
