// The comma exports of Kronos version 8. "Kronos v8" carries a head of thirteen fields and as
// many hours or dollars columns as the operator says; what each column pays comes from the
// company's earning codes by its position, and where the six custom fields and the head's
// choices go is the company's own customisation. "Kronos v8D" has a fixed row of regular,
// overtime, double and holiday hours.
//
// The first row of either export is data: neither has a heading row.
//
// Codes that the payroll matches as text (department, custom fields, department segments) are
// read as text so that a department 0200 reaches the import file as 0200; employee numbers,
// rates, shifts and figures are read as values.
#include <array>
#include <cstdint>
#include <string>

#include "pipeline/coded_columns.hpp"
#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// ---------------------------------------------------------------------------------------------
// "Kronos v8"

struct Kronosv8Fields {
  Value K8_EmpNo, K8_Badge;
  std::string K8_Name;
  Value K8_Unused;
  std::array<std::string, 6> K8_Custom;  // custom fields 1 to 6
  std::string K8_Dept;
  Value K8_PayRate;
  std::array<Value, 100> K8_Column;  // positions 1 to NumHoursColumns
};

// The head, then one value per column; a row with fewer columns runs on into the next line.
void Kronosv8_ReadRow(frmTimeImport& F) {
  Kronosv8Fields& in = F.Fields<Kronosv8Fields>();
  InputFile& file = F.File(1);
  file.Input(in.K8_EmpNo);
  file.Input(in.K8_Badge);
  file.Input(in.K8_Name);
  file.Input(in.K8_Unused);
  for (std::string& custom : in.K8_Custom) file.Input(custom);
  file.Input(in.K8_Unused);
  file.Input(in.K8_Dept);
  file.Input(in.K8_PayRate);
  for (int j = 1; j <= F.NumHoursColumns; ++j) file.Input(in.K8_Column[j]);
}

// An answer of the column question, as the count it gives; 0 when it is no count at all.
std::int16_t Kronosv8_Count(const std::string& answer) {
  try {
    return ToInteger(Value(answer));
  } catch (const RuntimeError&) {
    return 0;  // text, a cancelled box, or a number beyond 16 bits
  }
}

// The count the question offers: the last run's. A count the control file holds outside the
// range could never be accepted, so the factory count is offered in its place.
std::string Kronosv8_Offered(std::int16_t kept) {
  return std::to_string(kept >= 1 && kept <= 99 ? kept : 6);
}

// Asks until the answer is a count of columns from 1 to 99. A cancelled box answers "", which
// is no count, so the question comes back: there is no other way out of it.
void Kronosv8_AskColumns(frmTimeImport& F) {
  const std::string prompt =
      "Enter the number of columns containing Hours or Dollars to be processed.\r\r"
      "          (between 1 and 99)";
  const std::string offered = Kronosv8_Offered(F.NumHoursColumns);
  while (true) {
    const std::int16_t count = Kronosv8_Count(F.ui.InputBox(prompt, "How many columns?", offered));
    if (count >= 1 && count <= 99) {
      F.NumHoursColumns = count;
      return;
    }
  }
}

// The index selected in a custom field's list: 0 job, 1 division, 2 branch, else nowhere.
Value* Kronosv8_Target(ImportRecord& r, int index) {
  switch (index) {
    case 0:
      return &r.Job;
    case 1:
      return &r.Division;
    case 2:
      return &r.Branch;
    default:
      return nullptr;
  }
}

void Kronosv8(frmTimeImport& F) {
  const Kronosv8Fields& in = F.Fields<Kronosv8Fields>();
  const frmKv8& form = F.Kv8;
  ImportRecord& r = F.ImportRec;
  F.rsECodes->rsECodes.Filter(F.S[CoNum].text);

  r.Employee_no = Format(form.rdoEmp.value == 1 ? in.K8_EmpNo : in.K8_Badge, "#######");
  r.Employee_Name = in.K8_Name;
  r.payrate = form.rdoPRyes.value == 1 ? Format(in.K8_PayRate, "###.00") : "";
  r.DorE = "E";
  r.Amount = "";
  r.Department = form.rdoDeptYes.value == 1 ? in.K8_Dept : "";
  r.Job = r.Division = r.Branch = "";
  // in field order, so that of two fields sent to one target the later stays
  for (std::size_t k = 0; k < in.K8_Custom.size(); ++k) {
    if (Value* target = Kronosv8_Target(r, form.List[k].list_index)) *target = in.K8_Custom[k];
  }
  r.Shift = "";
  r.Seq = "1";
  r.Team = "";
  r.SSN = "";
  if (r.payrate == Value(0)) r.payrate = "";

  for (int j = 1; j <= F.NumHoursColumns; ++j) {
    const Value& figure = in.K8_Column[static_cast<std::size_t>(j)];
    if (figure == Value(0)) continue;
    if (WriteCodedColumn(F, j, figure)) F.ColumnValues[static_cast<std::size_t>(j)] = "X";
  }
}

// The branch has opened the files. The company's customisation is put on the form, the column
// count asked, and the rows read until a read fails: that failure, or any other in the loop,
// is the end of the export and keeps what was written.
void Kronosv8_Run(frmTimeImport& F) {
  ResumeNext([&] { F.Kv8.Set_rsK8(); });
  Kronosv8_AskColumns(F);
  try {
    Kronosv8_ReadRow(F);
    while (true) {
      ++F.TCcount;
      Kronosv8(F);
      Kronosv8_ReadRow(F);
    }
  } catch (const RuntimeError&) {
  }
}

// ---------------------------------------------------------------------------------------------
// "Kronos v8D"

struct KronosV8DFields {
  Value K8D_EmpNo, K8D_Unused;
  std::array<std::string, 4> K8D_Segment;  // three department segments and a fourth
  Value K8D_Reg, K8D_OT, K8D_Dbl, K8D_Hol, K8D_Shift;
};

// The five fields after the employee number, and the seven figures.
void KronosV8D_ReadRest(frmTimeImport& F) {
  KronosV8DFields& in = F.Fields<KronosV8DFields>();
  InputFile& file = F.File(1);
  file.Input(in.K8D_Unused);
  for (std::string& segment : in.K8D_Segment) file.Input(segment);
  file.Input(in.K8D_Reg);
  file.Input(in.K8D_OT);
  file.Input(in.K8D_Dbl);
  file.Input(in.K8D_Hol);
  file.Input(in.K8D_Unused);
  file.Input(in.K8D_Unused);
  file.Input(in.K8D_Shift);
}

void KronosV8D(frmTimeImport& F) {
  const KronosV8DFields& in = F.Fields<KronosV8DFields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = in.K8D_EmpNo;
  r.Employee_Name = r.payrate = r.Job = r.Division = "";
  r.DorE = "E";
  r.Branch = in.K8D_Segment[1];
  r.Department = Trim(in.K8D_Segment[0]) + Trim(in.K8D_Segment[1]) + Trim(in.K8D_Segment[2]) +
                 Trim(in.K8D_Segment[3]);
  r.Team = "";
  r.SSN = "";
  r.Amount = "";
  r.Shift = in.K8D_Shift;
  r.Seq = "1";
  if (in.K8D_Reg != Value(0)) F.WriteHours(Cat::Reg, in.K8D_Reg);
  if (in.K8D_OT != Value(0)) F.WriteHours(Cat::OT, in.K8D_OT);
  if (in.K8D_Dbl != Value(0)) F.WriteHours(Cat::Dbl, in.K8D_Dbl);
  if (in.K8D_Hol != Value(0)) F.WriteHours(Cat::Hol, in.K8D_Hol);
}

// Rows until one whose employee number is blank; the rows behind it are not read. The end of
// the file, or an error, ends the reading under the branch's handler.
void KronosV8D_Run(frmTimeImport& F) {
  KronosV8DFields& in = F.Fields<KronosV8DFields>();
  InputFile& file = F.File(1);
  file.Input(in.K8D_EmpNo);
  KronosV8D_ReadRest(F);
  while (true) {
    ++F.TCcount;
    KronosV8D(F);
    file.Input(in.K8D_EmpNo);
    if (Trim(in.K8D_EmpNo).empty()) return;
    KronosV8D_ReadRest(F);
  }
}

}  // namespace

extern const Translator kKronosv8Translator{
    .name = "Kronosv8",
    .run = Kronosv8_Run,
};

extern const Translator kKronosV8DTranslator{
    .name = "KronosV8D",
    .run = KronosV8D_Run,
};

}  // namespace corvane
