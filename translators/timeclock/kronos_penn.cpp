// "Kronos Penn": the export is a workbook, and a second workbook beside it, "Kronos Penn
// Mapping.xls", turns the export's pay codes, divisions, branches and departments into the
// payroll's. The run reads all the mappings, then all the employee rows, and only then writes;
// each of those phases has its own message when it fails, after which the run goes straight to
// "Finished" with whatever was written so far.
#include <array>
#include <charconv>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"
#include "runtime/workbook.hpp"

namespace corvane {

namespace {

// The fixed limits of the two tables: a mapping sheet of more rows, or an export of more
// rows, fails its phase.
constexpr long kKronPennMappingRows = 500;
constexpr long kKronPennEmployeeRows = 5000;

// One row index of the mapping workbook: the four sheets are independent lists that merely
// share the index.
struct KronPennMapping {
  std::string PayCodeKey, PayCodeValue;
  std::string DivisionKey, DivisionValue;
  std::string BranchKey, BranchValue;
  std::string DepartmentKey, DepartmentValue;
};

// One row of the export, held until the writing: the ten texts of the row's entry.
struct KronPennEmployee {
  std::string Employee_no;  // B
  std::string Hours;        // D
  std::string PayCode;      // E, the key of the "Pay Codes" sheet
  std::string Rate;         // F
  std::string Job;          // no column: always blank
  std::string Shift;        // L
  std::string Division;     // H, the key of the "Division" sheet
  std::string Branch;       // I, the key of the "Branch" sheet
  std::string Department;   // J, the key of the "Department" sheet
  std::string Team;         // K
};

// Both tables are counted from 1, as the row numbers that fill them.
struct KronPennTables {
  std::vector<KronPennMapping> mapping =
      std::vector<KronPennMapping>(static_cast<std::size_t>(kKronPennMappingRows) + 1);
  std::vector<KronPennEmployee> employees =
      std::vector<KronPennEmployee>(static_cast<std::size_t>(kKronPennEmployeeRows) + 1);
};

using MappingText = std::string KronPennMapping::*;

// The mapping sheets in the order they are read: the sheet, the column of its value, where
// key and value go, and the progress line's words.
struct KronPennSheet {
  std::string_view name;
  std::string_view value_column;
  MappingText key;
  MappingText value;
  std::string_view shown;
};

constexpr std::array<KronPennSheet, 4> kKronPennSheets{{
    {"Pay Codes", "C", &KronPennMapping::PayCodeKey, &KronPennMapping::PayCodeValue,
     "Reading in Pay Code mappings..."},
    {"Division", "B", &KronPennMapping::DivisionKey, &KronPennMapping::DivisionValue,
     "Reading in Division mappings..."},
    {"Branch", "B", &KronPennMapping::BranchKey, &KronPennMapping::BranchValue,
     "Reading in Branch mappings..."},
    {"Department", "B", &KronPennMapping::DepartmentKey, &KronPennMapping::DepartmentValue,
     "Reading in Department mappings..."},
}};

// The mapped pay code, upper-cased, to its category; a code outside the list leaves the
// category of the row before.
struct KronPennCode {
  std::string_view code;
  Cat category;
};

constexpr std::array<KronPennCode, 12> kKronPennCodes{{
    {"OT", Cat::OT},
    {"REG", Cat::Reg},
    {"HOL", Cat::Hol},
    {"REG2", Cat::e15},
    {"OTSD", Cat::e16},
    {"BRV", Cat::Dbl},
    {"BON", Cat::Tips},
    {"JURY", Cat::Sales},
    {"TOT", Cat::Misc},
    {"TRN", Cat::Disb},
    {"WSC", Cat::Abs},
    {"WSLOT", Cat::AdjH},
}};

// The mapping workbook lies in the export's folder, under its fixed name.
std::string KronPenn_MappingPath(const frmTimeImport& F) {
  return F.ExtractInputPath().str() + "Kronos Penn Mapping.xls";
}

// Phase 1: every row of the four mapping sheets into the mapping table.
bool KronPenn_ReadMappings(frmTimeImport& F, KronPennTables& t, const std::string& path) {
  F.ui.Progress("Reading in paycode mappings...");
  std::unique_ptr<Workbook> book;
  try {
    book = Workbook::Open(path);
  } catch (const RuntimeError&) {
    F.MsgBox(
        "An employee mapping file was not found.  Please make sure it is in the same directory "
        "as your input file and try again.");
    return false;
  }

  // The row counter runs on from one sheet to the next, so that a sheet that is missing
  // is reported at the row where the sheet before stopped.
  long r = 0;
  std::string shown;
  try {
    for (const KronPennSheet& s : kKronPennSheets) {
      const Sheet& sheet = book->SheetByName(s.name);
      // The used range is counted from its first used row but read from row 1: a sheet whose
      // first rows are empty loses as many rows at its end.
      const long n = sheet.UsedRangeRows();
      for (r = 1; r <= n; ++r) {
        if (r > kKronPennMappingRows) Raise(kSubscriptOutOfRange);
        KronPennMapping& entry = t.mapping[static_cast<std::size_t>(r)];
        entry.*s.key = Trim(sheet.Cell("A", r));
        entry.*s.value = Trim(sheet.Cell(s.value_column, r));
        shown.assign(s.shown);
        shown += entry.*s.key;
        shown += " <-> ";
        shown += entry.*s.value;
        F.ui.Progress(shown);
      }
    }
  } catch (const RuntimeError&) {
    F.MsgBox("There was an error reading the mapping data in your mapping file on the " +
             std::to_string(r) + " record.");
    return false;
  }
  book.reset();  // closed without saving
  return true;
}

// A cell of the export as the table keeps it: trimmed, with every double quote taken out.
std::string KronPenn_Cell(const frmTimeImport& F, const Sheet& sheet, std::string_view column,
                          long row) {
  return Replace(Trim(sheet.Cell(column, row)), F.quote, "");
}

// Phase 2: every row of the export's first worksheet into the employee table, until column A
// comes back blank. TCcount is the row pointer and ends one past the last row.
bool KronPenn_ReadEmployees(frmTimeImport& F, KronPennTables& t) {
  F.ui.Progress("Reading in employee data...");
  try {
    F.WkbObj = Workbook::Open(F.INFile.str());
  } catch (const RuntimeError&) {
    F.MsgBox(
        "Your input file was not found.  Please verify your input file location and try "
        "again.");
    return false;
  }

  std::string shown;
  try {
    const Sheet& sheet = F.WkbObj->SheetAt(1);
    F.TCcount = 1;
    while (!Trim(sheet.Cell("A", F.TCcount)).empty()) {
      const long row = F.TCcount;
      if (row > kKronPennEmployeeRows) Raise(kSubscriptOutOfRange);
      KronPennEmployee& e = t.employees[static_cast<std::size_t>(row)];
      e.Employee_no = KronPenn_Cell(F, sheet, "B", row);
      e.Hours = KronPenn_Cell(F, sheet, "D", row);
      e.PayCode = KronPenn_Cell(F, sheet, "E", row);
      e.Rate = KronPenn_Cell(F, sheet, "F", row);
      e.Job = "";
      e.Shift = KronPenn_Cell(F, sheet, "L", row);
      e.Division = KronPenn_Cell(F, sheet, "H", row);
      e.Branch = KronPenn_Cell(F, sheet, "I", row);
      e.Department = KronPenn_Cell(F, sheet, "J", row);
      e.Team = KronPenn_Cell(F, sheet, "K", row);
      shown.assign("Reading in employee data...");
      shown += e.Employee_no;
      F.ui.Progress(shown);
      ++F.TCcount;
    }
  } catch (const RuntimeError&) {
    F.WkbObj.reset();
    F.MsgBox("There was an error reading the data in your input file on the " +
             std::to_string(F.TCcount) + " record.");
    return false;
  }
  F.WkbObj.reset();  // closed without saving
  return true;
}

// The first entry of the table, 1 to 500, whose key equals `key`; nullptr when none does.
// Entries no sheet filled hold a blank key, which a blank key of the export matches.
const KronPennMapping* KronPenn_Find(const KronPennTables& t, MappingText field,
                                     const std::string& key) {
  for (long n = 1; n <= kKronPennMappingRows; ++n) {
    const KronPennMapping& entry = t.mapping[static_cast<std::size_t>(n)];
    if (entry.*field == key) return &entry;
  }
  return nullptr;
}

// A key the mapping does not know leaves the field as the employee before left it.
void KronPenn_Map(const KronPennTables& t, MappingText key_field, MappingText value_field,
                  const std::string& key, Value& field) {
  if (const KronPennMapping* entry = KronPenn_Find(t, key_field, key)) field = entry->*value_field;
}

// The pay code to its category; an unknown code, or a mapped value outside the list, keeps
// the earning code and D-or-E of the row before ("?" and "E" on the first row).
void KronPenn_PayCode(frmTimeImport& F, const KronPennTables& t, const std::string& key) {
  const KronPennMapping* entry = KronPenn_Find(t, &KronPennMapping::PayCodeKey, key);
  if (entry == nullptr) return;
  const std::string mapped = UCase(entry->PayCodeValue);
  for (const KronPennCode& c : kKronPennCodes) {
    if (c.code == mapped) {
      F.Apply(c.category);
      return;
    }
  }
}

// Phase 3: one line per employee row with hours. Only the fields below are set: the rest of
// the record stands as InitFiles left it.
bool KronPenn_Write(frmTimeImport& F, const KronPennTables& t) {
  ImportRecord& r = F.ImportRec;
  F.ui.Progress("Writing data...");
  long i = 0;
  std::string shown;
  try {
    const long last = F.TCcount - 1;
    for (i = 1; i <= last; ++i) {
      shown.assign("Writing data...");
      char digits[24];
      shown.append(digits, std::to_chars(digits, digits + sizeof digits, i).ptr);
      F.ui.Progress(shown);
      const KronPennEmployee& e = t.employees[static_cast<std::size_t>(i)];
      r.Employee_no = e.Employee_no;
      r.Hours = e.Hours;
      r.Team = e.Team;
      KronPenn_Map(t, &KronPennMapping::DivisionKey, &KronPennMapping::DivisionValue, e.Division,
                   r.Division);
      KronPenn_Map(t, &KronPennMapping::BranchKey, &KronPennMapping::BranchValue, e.Branch,
                   r.Branch);
      KronPenn_Map(t, &KronPennMapping::DepartmentKey, &KronPennMapping::DepartmentValue,
                   e.Department, r.Department);
      KronPenn_PayCode(F, t, e.PayCode);
      Value rate(e.Rate);
      r.payrate = NumericAbove0(rate) ? std::move(rate) : Value("");
      r.Job = e.Job;
      r.Shift = e.Shift;
      if (NumericAbove0(r.Hours)) F.WriteOutputRec();
    }
  } catch (const RuntimeError&) {
    F.MsgBox("There was an error writing row number " + std::to_string(i) + " of output data.");
    return false;
  }
  return true;
}

void KronPenn(frmTimeImport& F) {
  F.Ready = true;
  F.InitFiles();
  F.TCcount = 0;
  const std::string mapping_path = KronPenn_MappingPath(F);
  // The tables live for this one call.
  KronPennTables t;
  if (KronPenn_ReadMappings(F, t, mapping_path) && KronPenn_ReadEmployees(F, t)) {
    KronPenn_Write(F, t);
  }
  F.ui.Progress("Finished");
}

}  // namespace

extern const Translator kKronPennTranslator{
    .name = "KronPenn",
    .run = KronPenn,
};

}  // namespace corvane
