// Deltek project accounting exports in four shapes: the "Deltek" workbook keyed by employee
// name, with employee and department side files that turn names into numbers; the
// "Deltek v6.15" report, whose columns map to earning codes through a map file; and the
// "Deltek v8.3" rows, as comma text and as fixed records of 630 bytes. As everywhere, a field
// a step leaves alone keeps the value of the record before.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/text.hpp"
#include "runtime/workbook.hpp"
#include "translators/reports/side_tables.hpp"

namespace corvane {

namespace {

// Puts "-" before a value and takes out any "--", so that a negative value turns positive.
std::string Deltek_Negate(const Value& value) {
  return Replace("-" + value.str(), "--", "");
}

// ---------------------------------------------------------------------------------------
// "Deltek": the workbook. Column A names a department heading or an employee; the employee
// rows carry their hours in columns B to H. The side files turn the names into numbers.

constexpr std::size_t kDeltekEmpRows = 300;
constexpr std::size_t kDeltekDeptRows = 30;
// The rows read stop below this row when the sheet has no "Totals:" line.
constexpr long kDeltekLastRow = 1000;

struct DeltekFields {
  std::vector<SideRow> DeltekEmpTable;   // EmpKey, EmpValue, EmpExtra
  std::vector<SideRow> DeltekDeptTable;  // key, value
  std::string DeltekEmpExtra;            // kept from the employee's row; nothing reads it
};

constexpr SideFileAsk kDeltekEmpAsk{"Where is the Employee File?", "Corvane - Deltek - Employees",
                                    "Employee File Not Found",
                                    "Corvane - Deltek - Please Try Again"};
constexpr SideFileAsk kDeltekDeptAsk{"Where is the Department File?",
                                     "Corvane - Deltek - Departments", "Department File Not Found",
                                     "Corvane - Deltek - Please Try Again"};

void Deltek_LoadEmps(frmTimeImport& F) {
  const std::string path =
      AskForSideFile(F, kDeltekEmpAsk, JoinPath(F.S[dirInput].text, "Employee File.txt"));
  LoadSideTable(F, path, ';', 3, kDeltekEmpRows, F.Fields<DeltekFields>().DeltekEmpTable);
}

void Deltek_LoadDepts(frmTimeImport& F) {
  const std::string path =
      AskForSideFile(F, kDeltekDeptAsk, JoinPath(F.S[dirInput].text, "Department File.txt"));
  LoadSideTable(F, path, ';', 2, kDeltekDeptRows, F.Fields<DeltekFields>().DeltekDeptTable);
}

// A name the employee file does not know goes out as "???", for the bureau to mend.
void Deltek_LookupEmp(frmTimeImport& F) {
  DeltekFields& x = F.Fields<DeltekFields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = "???";
  if (const SideRow* row = FindSideRow(x.DeltekEmpTable, Trim(r.Employee_Name))) {
    r.Employee_no = row->value;
    x.DeltekEmpExtra = row->extra;
  }
}

// A department the file does not know keeps the heading's own text.
void Deltek_LookupDept(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  if (const SideRow* row =
          FindSideRow(F.Fields<DeltekFields>().DeltekDeptTable, Trim(r.Department))) {
    r.Department = row->value;
  }
}

void Deltek_Prepare(frmTimeImport& F) {
  Deltek_LoadEmps(F);
  Deltek_LoadDepts(F);
}

// One employee row. Leave, unpaid and bonus hours stand negative on the sheet.
void Deltek(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const Sheet& sheet = F.WkbObj->ActiveSheet();
  const long row = F.TCcount;
  r.DorE = "E";
  r.Amount = "";
  r.Division = r.Branch = r.Job = r.Team = r.RateNumber = "";
  r.SSN = "";
  r.Seq = "1";

  auto write = [&](Cat category, const Value& hours) {
    if (hours == Value("0")) return;
    F.WriteHours(category, hours);
  };
  write(Cat::Reg, sheet.Cell("B", row).ToNumber() + sheet.Cell("H", row).ToNumber());
  write(Cat::e15, Trim(sheet.Cell("C", row)));
  write(Cat::e16, Deltek_Negate(sheet.Cell("D", row)));
  write(Cat::e17, Deltek_Negate(sheet.Cell("E", row)));
  write(Cat::e18, Deltek_Negate(sheet.Cell("F", row)));
}

// The rows of the sheet down to its "Totals:" line. Blank and numeric names are passed over;
// a name without hours in column B heads the department of the rows below it.
void Deltek_Run(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  F.WkbObj = Workbook::Open(F.INFile.str());
  const Sheet& sheet = F.WkbObj->ActiveSheet();
  r.Employee_Name = "";
  r.Department = "";
  F.TCcount = 1;
  while (F.TCcount < kDeltekLastRow && sheet.Cell("A", F.TCcount) != Value("Totals:")) {
    r.Employee_Name = sheet.Cell("A", F.TCcount);
    if (Trim(r.Employee_Name).empty() || r.Employee_Name.IsNumeric()) {
      // not a name
    } else if (Trim(sheet.Cell("B", F.TCcount)).empty()) {
      r.Department = r.Employee_Name;
      Deltek_LookupDept(F);
    } else {
      Deltek_LookupEmp(F);
      Deltek(F);
    }
    ++F.TCcount;
  }
}

// ---------------------------------------------------------------------------------------
// "Deltek v6.15": a report saved as comma text. Below four heading lines, each employee has
// a "Periods" line with the hours of the period by report column, and lines of other types
// (totals) that carry nothing to pay. The map file gives each column its earning codes.

constexpr std::size_t kDeltek615MapRows = 50;
constexpr std::size_t kDeltek615Fields = 13;

struct Deltek615MapRow {
  Value column;  // the report column's name
  Value DorE;
  Value Earning_Code;
};

struct Deltek615Fields {
  std::vector<Deltek615MapRow> Deltek615Map;
};

// The hour columns in the order they are written, by their place among the line's fields.
struct Deltek615Column {
  std::string_view name;
  std::size_t field;
};
constexpr std::array<Deltek615Column, 7> kDeltek615Columns{{
    {"detail_Col1", 5},
    {"detail_Col3", 6},
    {"detail_Col4", 7},
    {"detail_Col5", 8},
    {"detail_Col6", 9},
    {"detail_Col7", 10},
    {"detail_Dir", 11},
}};

// Reads the map to the end of its file. A last row cut short has no earning code and is
// not stored.
void Deltek615_LoadMap(frmTimeImport& F, const std::string& path) {
  std::vector<Deltek615MapRow>& map = F.Fields<Deltek615Fields>().Deltek615Map;
  map.clear();
  InputFile& in = F.File(9);
  try {
    in.Open(path, OpenMode::Text);
    while (!in.Eof()) {
      Deltek615MapRow row;
      in.Input(row.column);
      in.Input(row.DorE);
      in.Input(row.Earning_Code);
      if (map.size() < kDeltek615MapRows) map.push_back(std::move(row));
    }
  } catch (const RuntimeError&) {
  }
  in.Close();
}

// The line cut at every comma, quotes included; fields the line does not have are blank and
// commas past the last field are not looked at.
using Deltek615Line = std::array<std::string_view, kDeltek615Fields>;
void Deltek615_Split(std::string_view line, Deltek615Line& fields) {
  fields.fill({});
  for (std::size_t n = 0; n < kDeltek615Fields; ++n) {
    const std::size_t comma = line.find(',');
    fields[n] = line.substr(0, comma);
    if (comma == std::string_view::npos) break;
    line.remove_prefix(comma + 1);
  }
}

// The text before the first `mark`, or all of it when there is none.
std::string Deltek615_Before(const std::string& text, std::string_view mark) {
  const long at = InStr(text, mark);
  return at > 0 ? Left(text, at - 1) : text;
}

void Deltek615_Line(frmTimeImport& F, const Deltek615Line& fields) {
  ImportRecord& r = F.ImportRec;
  // The employee text is "101 DOE" once the quoted name has been cut at its comma: a number
  // of three digits and a blank, then the name's first part; its other part stands in the
  // third field.
  const std::string employee = Trim(Replace(fields[1], "\"", ""));
  const std::string third = Trim(Replace(fields[2], "\"", ""));
  r.Employee_no = Deltek615_Before(employee, " ");
  r.Employee_Name = third + Mid(employee, 5);
  // The group is branch and department: "01-0100".
  const std::string group(fields[0]);
  r.Branch = Deltek615_Before(group, "-");
  r.Department = Mid(group, InStr(group, "-") + 1, 4);

  if (fields[3] != "Periods") return;
  const std::vector<Deltek615MapRow>& map = F.Fields<Deltek615Fields>().Deltek615Map;
  for (const Deltek615Column& column : kDeltek615Columns) {
    std::string hours(fields[column.field - 1]);
    if (column.name == "detail_Dir") hours = Replace(hours, "\"", "");
    if (Trim(hours).empty()) continue;
    // a column named in several rows of the map goes out once per row
    for (const Deltek615MapRow& row : map) {
      if (row.column != Value(column.name)) continue;
      r.Hours = hours;
      r.DorE = row.DorE;
      r.Earning_Code = row.Earning_Code;
      F.WriteOutputRec();
    }
  }
}

void Deltek615(frmTimeImport& F) {
  std::string map_file = F.ExtractInputPath().str() + "3483 map.txt";
  map_file = F.ui.InputBox("Please enter the name of cross reference file.", kAppTitle, map_file);
  if (!F.fs.fileexists(map_file)) {
    const char cr = '\r';
    F.MsgBox("Cross-reference File not found." + std::string(1, cr) + "File: " + map_file + cr +
             "Please make sure cross-reference file is in the same location as the Input file.");
    F.Result = 0;
    F.Ready = false;
    F.CloseFiles();
    return;
  }
  Deltek615_LoadMap(F, map_file);
  F.InitFiles();

  InputFile& in = F.File(1);
  for (int heading = 0; heading < 4; ++heading) in.LineInput(F.InRec);
  Deltek615Line fields;
  while (!in.Eof()) {
    in.LineInput(F.InRec);
    ++F.TCcount;
    Deltek615_Split(F.InRec, fields);
    Deltek615_Line(F, fields);
  }
}

// ---------------------------------------------------------------------------------------
// "Deltek v8.3" and "Deltek v8.3 Fixed": one row per employee, pay type and labor code.
// Regular hours go to a category by the leave code at the end of the labor code; the
// screen's boxes carry this clock's own labels (Bereav, Jury, Prsnl, Sick, Vac).

// The category of regular hours by the labor code from position 9 on.
Cat Deltek83_LaborCategory(const std::string& labor_code) {
  const std::string leave = Mid(labor_code, 9);
  if (leave == "BV") return Cat::Dbl;   // bereavement
  if (leave == "JD") return Cat::Tips;  // jury duty
  if (leave == "PH" || leave == "HL") return Cat::Hol;
  if (leave == "PT") return Cat::Sales;  // personal time
  if (leave == "SK") return Cat::Misc;   // sick
  if (leave == "VC") return Cat::Disb;   // vacation
  return Cat::Reg;                       // "ER" and any other
}

// One row, its fields trimmed: Hours already set, the pay type and the labor code.
void Deltek83_Write(frmTimeImport& F, const std::string& pay_type, const std::string& labor_code) {
  ImportRecord& r = F.ImportRec;
  if (!r.Hours.IsNumeric() || r.Hours == Value("0")) return;
  if (pay_type == "R") {
    F.Apply(Deltek83_LaborCategory(labor_code));
  } else if (pay_type == "O") {
    F.Apply(Cat::OT);
  } else {
    return;
  }
  F.WriteOutputRec();
}

// PPE, Emp ID, Name, Org, Pay Type, Project, Hours, Account, Labor Code.
struct Deltek83Fields {
  std::array<Value, 9> field;
};

void Deltek83_Read(frmTimeImport& F) {
  for (Value& v : F.Fields<Deltek83Fields>().field) F.File(1).Input(v);
}

void Deltek83(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const std::array<Value, 9>& in = F.Fields<Deltek83Fields>().field;
  F.InitFiles();
  r.DorE = "E";
  r.Seq = "1";
  Deltek83_Read(F);  // the heading row
  F.TCcount = 0;
  while (!F.File(1).Eof()) {
    Deltek83_Read(F);
    ++F.TCcount;
    r.Employee_no = Trim(in[1]);
    r.Employee_Name = Trim(in[2]);
    r.Hours = Trim(in[6]);
    Deltek83_Write(F, Trim(in[4]), Trim(in[8]));
  }
}

// The fixed record: employee number at 8 (8 bytes), pay type at 95, hours at 120 (10 bytes),
// labor code at 177 (10 bytes); the rest is not used.
void Deltek83Fix_Translate(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  const std::string& rec = F.InRec;
  r.Employee_no = Trim(Mid(rec, 8, 8));
  r.Employee_Name = "";
  r.Hours = Trim(Mid(rec, 120, 10));
  Deltek83_Write(F, Trim(Mid(rec, 95, 1)), Trim(Mid(rec, 177, 10)));
}

void Deltek83Fix(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  InputFile& in = F.File(1);
  F.InitFiles();
  r.DorE = "E";
  r.Seq = "1";
  in.Get(F.InRec);  // the heading record
  F.TCcount = 0;
  in.Get(F.InRec);
  while (!in.Eof()) {
    ++F.TCcount;
    Deltek83Fix_Translate(F);
    in.Get(F.InRec);
  }
}

}  // namespace

extern const Translator kDeltekTranslator{
    .name = "Deltek",
    .prepare = Deltek_Prepare,
    .run = Deltek_Run,
};

extern const Translator kDeltek615Translator{
    .name = "Deltek615",
    .run = Deltek615,
};

extern const Translator kDeltek83Translator{
    .name = "Deltek83",
    .run = Deltek83,
};

extern const Translator kDeltek83FixTranslator{
    .name = "Deltek83Fix",
    .run = Deltek83Fix,
};

}  // namespace corvane
