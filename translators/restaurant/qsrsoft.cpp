// The QsrSoft exports. "QsrSoft" is the one export that holds several client companies at
// once: a run takes one company, picked by the company number, or all of them, with an
// import file for each, and can send a department's managers to a second file beside the
// import file. "QSRSoft v2" is the later, flat export of one company: one row per employee,
// with fixed field numbers.
//
// Employees are known by their social security number alone: the import line's employee
// number stays blank.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// ---------------------------------------------------------------------------------------------
// "QsrSoft": 20 comma fields a record, read in three reads of 7, 6 and 7. The first record
// is the heading.

struct QsrSoftFields {
  Value Qsr_compID, Qsr_Date, Qsr_Badge, Qsr_Dept, Qsr_ssn, Qsr_name, Qsr_reg;
  Value Qsr_OT, Qsr_Hol, Qsr_Prem, Qsr_MiscH, Qsr_MiscD, Qsr_Gross;
  Value Qsr_days, Qsr_Skip1, Qsr_Skip2, Qsr_Skip3, Qsr_Skip4, Qsr_Skip5, Qsr_Skip6;
  // Sends the record in hand to the management file.
  bool QsrSoftManagement = false;
};

void QsrSoft_ReadRecord(frmTimeImport& F) {
  QsrSoftFields& in = F.Fields<QsrSoftFields>();
  InputFile& file = F.File(1);
  for (Value* field : {&in.Qsr_compID, &in.Qsr_Date, &in.Qsr_Badge, &in.Qsr_Dept, &in.Qsr_ssn,
                       &in.Qsr_name, &in.Qsr_reg}) {
    file.Input(*field);
  }
  for (Value* field :
       {&in.Qsr_OT, &in.Qsr_Hol, &in.Qsr_Prem, &in.Qsr_MiscH, &in.Qsr_MiscD, &in.Qsr_Gross}) {
    file.Input(*field);
  }
  for (Value* field : {&in.Qsr_days, &in.Qsr_Skip1, &in.Qsr_Skip2, &in.Qsr_Skip3, &in.Qsr_Skip4,
                       &in.Qsr_Skip5, &in.Qsr_Skip6}) {
    file.Input(*field);
  }
}

// One more call of InitFiles; the count is a 16-bit number, and a file of more company
// changes than it holds ends the reading.
void QsrSoft_NextFiles(frmTimeImport& F) {
  if (F.QsrOUTFileCount == INT16_MAX) Raise(kOverflow);
  ++F.QsrOUTFileCount;
  F.InitFiles();
}

// One figure of the record under its code box. The figure is taken as a number, so text
// that is no number ends the reading; any figure but 0 counts, a negative one too. The
// miscellaneous dollars go out as hours like the others, and the line is always an earning.
void QsrSoft_Figure(frmTimeImport& F, const Value& figure, Cat category) {
  if (figure.ToNumber() == 0) return;
  ImportRecord& r = F.ImportRec;
  r.Earning_Code = F.S.Code(category);
  r.Hours = Trim(figure);
  r.Amount = "";
  if (F.Fields<QsrSoftFields>().QsrSoftManagement) {
    F.WriteOutputRecOther();
  } else {
    F.WriteOutputRec();
  }
}

void QsrSoft(frmTimeImport& F) {
  QsrSoftFields& in = F.Fields<QsrSoftFields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = "";
  r.DorE = "E";
  r.payrate = r.Division = r.Branch = r.Shift = r.Job = r.Team = r.Department = "";
  r.Seq = "1";
  r.Employee_Name = in.Qsr_name;
  r.SSN = Trim(Format(in.Qsr_ssn, "000000000"));
  if (F.S.Checked(chkDept)) r.Department = Trim(in.Qsr_Dept);

  QsrSoft_Figure(F, in.Qsr_reg, Cat::Reg);
  QsrSoft_Figure(F, in.Qsr_OT, Cat::OT);
  QsrSoft_Figure(F, in.Qsr_Hol, Cat::Hol);
  QsrSoft_Figure(F, in.Qsr_Prem, Cat::Sales);
  QsrSoft_Figure(F, in.Qsr_MiscH, Cat::Misc);
  QsrSoft_Figure(F, in.Qsr_MiscD, Cat::Disb);
  in.QsrSoftManagement = false;
}

// A record of the company in hand: counted, and translated unless its department is one
// that is not paid through this import. With the "Management" box checked, department 647
// holds the managers, whose lines go to the management file.
void QsrSoft_Handle(frmTimeImport& F) {
  QsrSoftFields& in = F.Fields<QsrSoftFields>();
  ++F.TCcount;
  const std::string dept = Trim(in.Qsr_Dept);
  if (dept == "645" || dept == "644" || dept == "45") return;
  in.QsrSoftManagement = dept == "647" && F.S.Checked(chkBr);
  QsrSoft(F);
}

// Before the branch's first call of InitFiles: the management file, when managers go apart,
// and the first call's number.
void QsrSoft_Prepare(frmTimeImport& F) {
  F.QsrOUTFileCount = 0;
  F.OtherOUTFile = "";
  if (F.S.Checked(chkBr)) F.OtherOUTFile = JoinPath(F.Output_Path.str(), "Management.txt");
  F.QsrOUTFileCount = 1;
}

std::string QsrSoft_ImportFile(const frmTimeImport& F, const Value& company) {
  return JoinPath(F.Output_Path.str(), company.str() + "_ta.txt");
}

// One company, the one of the company number: the other companies' records are passed over
// uncounted.
void QsrSoft_OneCompany(frmTimeImport& F) {
  QsrSoftFields& in = F.Fields<QsrSoftFields>();
  F.OUTFile = JoinPath(F.Output_Path.str(), Trim(F.S[CoNum].text) + "_ta.txt");
  QsrSoft_NextFiles(F);
  InputFile& file = F.File(1);
  QsrSoft_ReadRecord(F);  // the heading
  const std::string company = Trim(F.S[CoNum].text);
  while (!file.Eof()) {
    QsrSoft_ReadRecord(F);
    if (Trim(in.Qsr_compID) != company) continue;
    QsrSoft_Handle(F);
  }
}

// All companies: a new company in the file starts its own import file. A company that comes
// back later in the file starts its file again over the first. The end-of-file test comes
// before the record in hand is handled, so the file's last record is read and not
// translated.
void QsrSoft_AllCompanies(frmTimeImport& F) {
  QsrSoftFields& in = F.Fields<QsrSoftFields>();
  InputFile& file = F.File(1);
  QsrSoft_ReadRecord(F);  // the heading
  QsrSoft_ReadRecord(F);
  Value company = in.Qsr_compID;
  F.OUTFile = QsrSoft_ImportFile(F, company);
  QsrSoft_NextFiles(F);
  while (!file.Eof()) {
    if (in.Qsr_compID != company) {
      company = in.Qsr_compID;
      F.OUTFile = QsrSoft_ImportFile(F, company);
      QsrSoft_NextFiles(F);
    }
    QsrSoft_Handle(F);
    QsrSoft_ReadRecord(F);
  }
}

// The branch after its first call of InitFiles, which for one company found no import file
// yet, and for all companies stopped before any output.
void QsrSoft_Run(frmTimeImport& F) {
  if (F.S.Checked(chkAll)) {
    QsrSoft_AllCompanies(F);
  } else {
    QsrSoft_OneCompany(F);
  }
}

// ---------------------------------------------------------------------------------------------
// "QSRSoft v2": a heading line, then one comma line per employee. The translator walks a
// line's fields by number and writes each hours field as it passes, so the categories go out
// in field order.

enum QSRSoftv2Field {
  QSRv2_EmpNo = 1,
  QSRv2_LastName = 4,
  QSRv2_FirstName = 7,
  QSRv2_Dept = 54,
  QSRv2_Rate = 61,
  QSRv2_Reg = 63,
  QSRv2_OT = 64,
  QSRv2_Sales = 65,
  QSRv2_Hol = 66,
  QSRv2_Misc = 67,
  QSRv2_Disb = 68,  // runs to the end of the line
};

struct QSRSoftv2Fields {
  std::string QSRv2_Last, QSRv2_First;
};

// An hours field as it passes: "0" and "0.00" mean nothing worked.
void QSRSoftv2_Hours(frmTimeImport& F, const std::string& field, Cat category) {
  if (field == "0" || field == "0.00") return;
  const QSRSoftv2Fields& in = F.Fields<QSRSoftv2Fields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_Name = in.QSRv2_Last + ", " + in.QSRv2_First;
  F.Apply(category);
  r.Hours = field;
  F.WriteOutputRec();
}

// One field of the walk, trimmed, stored or written as its number says.
void QSRSoftv2_Field(frmTimeImport& F, int number, const std::string& field) {
  QSRSoftv2Fields& in = F.Fields<QSRSoftv2Fields>();
  ImportRecord& r = F.ImportRec;
  switch (number) {
    case QSRv2_EmpNo:
      r.Employee_no = field;
      break;
    case QSRv2_LastName:
      in.QSRv2_Last = field;
      break;
    case QSRv2_FirstName:
      in.QSRv2_First = field;
      break;
    case QSRv2_Dept:
      if (F.S.Checked(chkDept)) r.Department = field;
      break;
    case QSRv2_Rate:
      r.payrate = field;
      break;
    case QSRv2_Reg:
      QSRSoftv2_Hours(F, field, Cat::Reg);
      break;
    case QSRv2_OT:
      QSRSoftv2_Hours(F, field, Cat::OT);
      break;
    case QSRv2_Sales:
      QSRSoftv2_Hours(F, field, Cat::Sales);
      break;
    case QSRv2_Hol:
      QSRSoftv2_Hours(F, field, Cat::Hol);
      break;
    case QSRv2_Misc:
      QSRSoftv2_Hours(F, field, Cat::Misc);
      break;
    case QSRv2_Disb:
      QSRSoftv2_Hours(F, field, Cat::Disb);
      break;
    default:
      break;
  }
}

// Walks the fields of one line by searching the next comma. The last field runs to the end
// of the line. A line that runs out of commas early ends its field there, and the fields
// after it are empty.
void QSRSoftv2_Walk(frmTimeImport& F, std::string_view line) {
  std::string field;
  std::size_t start = 0;
  for (int number = 1; number <= QSRv2_Disb; ++number) {
    std::string_view text;
    if (start <= line.size()) {
      const std::size_t comma =
          number == QSRv2_Disb ? std::string_view::npos : line.find(',', start);
      const std::size_t end = comma == std::string_view::npos ? line.size() : comma;
      text = line.substr(start, end - start);
      start = comma == std::string_view::npos ? line.size() + 1 : comma + 1;
    }
    field = Trim(text);
    QSRSoftv2_Field(F, number, field);
  }
}

void QSRSoftv2(frmTimeImport& F) {
  F.Ready = true;
  F.InitFiles();
  InputFile& file = F.File(1);
  ImportRecord& r = F.ImportRec;
  std::string& line = F.InRec;
  // A read that fails ends the translator; what was written stands, and the run is
  // reported as usual.
  auto read = [&] {
    try {
      file.LineInput(line);
      return true;
    } catch (const RuntimeError&) {
      return false;
    }
  };
  if (!read()) return;  // the heading
  while (!file.Eof()) {
    if (!read()) return;
    std::erase(line, '"');
    // a blank line is the end of the export, whatever follows it
    if (line.empty()) return;
    ++F.TCcount;
    r.SSN = r.Amount = "";
    r.payrate = r.Division = r.Branch = r.Department = r.Job = r.Shift = r.Team = "";
    r.DorE = "E";
    r.Seq = "1";
    QSRSoftv2_Walk(F, line);
  }
}

}  // namespace

extern const Translator kQsrSoftTranslator{
    .name = "QsrSoft",
    .prepare = QsrSoft_Prepare,
    .run = QsrSoft_Run,
};

extern const Translator kQSRSoftv2Translator{
    .name = "QSRSoftv2",
    .run = QSRSoftv2,
};

}  // namespace corvane
