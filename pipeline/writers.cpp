// The Evolution import line, the audit trail and the exception files.
#include <charconv>
#include <cmath>
#include <optional>

#include "pipeline/dispatch.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// The empty-record test of the writer: a blank or empty figure counts as zero, and text that
// is not a number is a type mismatch.
double DropTestNumber(const std::string& formatted) {
  if (formatted.empty()) return 0.0;
  return Value(formatted).ToNumber();
}

// Whether a figure counts as zero in the empty-record test: its ".00" picture is zero. Plain
// cases are told from the number itself; anything near a rounding edge, and text that is no
// number, takes the picture.
bool RoundsToZero(const Value& figure) {
  std::optional<double> number;
  if (figure.IsBlank()) return true;
  if (figure.IsNumber()) {
    number = figure.number();
  } else if (figure.text().empty()) {
    return true;
  } else {
    number = NumericValue(figure.text());
  }
  if (number) {
    const double size = std::fabs(*number);
    if (size == 0.0) return true;
    if (size >= 0.01) return false;
  }
  return DropTestNumber(Format(figure, ".00")) == 0.0;
}

// The employee number of the audit line, by the picture "######": a whole number, or a text
// of digits alone, prints its digits without leading zeros; anything else takes the picture.
void AppendAuditNumber(std::string& out, const Value& number) {
  if (number.IsText()) {
    const std::string& text = number.text();
    const std::size_t first = text.find_first_not_of('0');
    if (first != std::string::npos && text.size() <= 15 &&
        text.find_first_not_of("0123456789") == std::string::npos) {
      out.append(text, first);
      return;
    }
  } else if (number.IsNumber()) {
    const double x = number.number();
    if (x >= 1.0 && x < 1e15 && x == std::floor(x)) {
      char digits[24];
      const auto end = std::to_chars(digits, digits + sizeof digits, static_cast<long long>(x));
      out.append(digits, end.ptr);
      return;
    }
  }
  out += Format(number, "######");
}

TextStream& Stream(std::unique_ptr<TextStream>& stream) {
  if (!stream) Raise(kObjectNotSet);
  return *stream;
}

}  // namespace

void frmTimeImport::BuildLine(bool other) {
  const ImportRecord& r = ImportRec;
  std::string& b = line_;
  b.clear();
  auto field = [&b](const Value& v) {
    b += ',';
    v.AppendTo(b);
  };
  auto text = [&b](const std::string& s) {
    b += ',';
    b += s;
  };
  auto blank = [&b] { b += ','; };

  b += quote;
  r.Employee_no.AppendTo(b);
  b += quote;
  b += ',';
  b += quote;
  r.Employee_Name.AppendTo(b);
  b += quote;
  field(r.Department);    // 3
  field(r.Job);           // 4
  field(r.Shift);         // 5
  field(r.DorE);          // 6
  field(r.Earning_Code);  // 7
  field(r.payrate);       // 8
  field(r.Hours);         // 9
  if (!other && ChosenTC == "Denny's DINE - Relco") {
    field(r.CorvaneYear);   // 10
    field(r.CorvaneMonth);  // 11
    text(r.CorvaneDay);     // 12
  } else {
    blank();
    blank();
    blank();
  }
  blank();            // 13
  blank();            // 14
  text(r.Amount);     // 15
  field(r.Seq);       // 16
  field(r.Division);  // 17
  field(r.Branch);    // 18
  if (other) {
    blank();  // 19
  } else {
    text(r.State);
  }
  blank();  // 20
  blank();  // 21
  blank();  // 22
  const bool old_format = S[optOldFormat].value == 1 && S[optNewFormat].value != 1;
  if (old_format) {
    field(r.Team);  // 23
  } else {
    blank();
  }
  text(r.SSN);           // 24
  field(r.WorkersComp);  // 25
  field(r.RateNumber);   // 26
  if (ChosenTC == "Generations") {
    field(r.Gen_Field27);  // 27
    text(r.Gen_Field28);   // 28
  } else {
    blank();
    blank();
  }
  const bool new_format = S[optNewFormat].value == 1 && S[optOldFormat].value != 1;
  if (new_format) {
    field(r.Team);  // 29
  } else {
    blank();
  }
}

bool frmTimeImport::KeepRecord(bool x_passes) {
  ImportRecord& r = ImportRec;
  if (!x_passes && UCase(Trim(r.Earning_Code)) == "X") {
    if (gather_summary) summary_.Dropped(DropReason::CodeX, r);
    return false;
  }
  // both figures are always tested: a text that is no number raises in either
  const bool no_hours = RoundsToZero(r.Hours);
  const bool no_amount = RoundsToZero(Value(r.Amount));
  if (no_hours && no_amount) {
    if (gather_summary) summary_.Dropped(DropReason::NoFigures, r);
    return false;
  }
  // Shift 1 is the default and is not sent.
  const std::string shift = Trim(r.Shift);
  if (shift == "0" || shift == "00" || shift == "1") r.Shift = "";
  return true;
}

void frmTimeImport::WriteOutputRec() {
  // "eWorks" passes a code of "X" through to the file.
  if (!KeepRecord(S[PickTC].SelectedText() == "eWorks")) return;
  BuildLine(false);
  Build_String = line_;
  Stream(OutputStream).WriteLine(line_);
  ++RecCount;
  NoteWritten(false);
  WriteAuditRec();
}

void frmTimeImport::WriteOutputRecOther() {
  if (!KeepRecord(false)) return;
  BuildLine(true);
  Build_String = line_;
  Stream(ExceptionStream).WriteLine(line_);
  ++RecCount;
  NoteWritten(true);
  WriteAuditRec();
}

void frmTimeImport::NoteWritten(bool other) {
  if (!gather_summary) return;
  const RunSummary::Placed at = summary_.Written(ImportRec, other);
  // the check numbers its files as the summary does
  while (check_.files().size() < summary_.files().size()) {
    check_.BeginFile(summary_.files()[check_.files().size()].path);
  }
  check_.CheckLine(at.file, at.line, line_);
}

void frmTimeImport::WriteAuditRec() {
  const ImportRecord& r = ImportRec;
  std::string& b = line_;
  b = "Emp_no: ";
  AppendAuditNumber(b, r.Employee_no);
  b += ", Emp_Name: ";
  r.Employee_Name.AppendTo(b);
  b += ", Dept: ";
  r.Department.AppendTo(b);
  b += ", Shift: ";
  r.Shift.AppendTo(b);
  Stream(AuditStream).WriteLine(b);

  b = " ";
  r.DorE.AppendTo(b);
  r.Earning_Code.AppendTo(b);
  b += " - ";
  if (r.Hours > Value("")) {
    r.Hours.AppendTo(b);
    b += " Hours";
  } else {
    b += r.Amount;
    b += " Dollars";
  }
  Build_String = b;
  Stream(AuditStream).WriteLine(b);
}

void frmTimeImport::WriteExceptionRec(const Value& Detail) {
  const std::string Co = Trim(S[CoNum].text);
  const std::string TAB = "\t";
  std::string name;
  if (ChosenTC == "Sage (Mas90)" || ChosenTC == "ADP/Aspect") {
    name = "Corvane_Exception_" + Co + ".txt";
  } else if (ChosenTC == "HomeTrak") {
    name = "E02_Exception.txt";
  } else if (ChosenTC == "Digital Dining") {
    name = "DD_Employee_Check.txt";
  } else {
    return;
  }
  const std::string path = JoinPath(Output_Path.str(), name);
  ExceptionFile = path;
  exceptNotice = true;
  try {
    ExceptionStream = fs.createtextfile(path, true);
  } catch (const RuntimeError&) {
    // Only "HomeTrak" passes over the file it already holds open, and so collects every
    // exception of the run in one file; the others let the error go to the reader's frame.
    if (ChosenTC != "HomeTrak") throw;
  }

  const ImportRecord& r = ImportRec;
  std::string line;
  if (ChosenTC == "Sage (Mas90)") {
    line = "Sage Mas90 code '" + Detail.str() + "' not found." + TAB + TAB +
           "Emp_no: " + Format(r.Employee_no, "######") + " Hours: " + r.Hours.str() +
           "  not written.";
  } else if (ChosenTC == "ADP/Aspect") {
    line = "ADP/Aspect code '" + Detail.str() + "' unrecognized." + TAB +
           "Emp_no: " + ADPAspect_EmpNo.str() + " - " + ADPAspect_Dollars.str() +
           " dollars not written.";
  } else if (ChosenTC == "HomeTrak") {
    line = "Employee: " + r.Employee_no.str() + " - " + r.Employee_Name.str() + TAB +
           " E02 Hours: " + Detail.str() + " exceeds the Per Payroll Hours.";
  } else {
    line = "Employee: " + r.Employee_no.str() + " - " + r.Employee_Name.str() + TAB +
           "Department: " + r.Department.str() + TAB;
  }
  Build_String = line;
  Stream(ExceptionStream).WriteLine(line);
}

void frmTimeImport::ClearData() {
  if (ChosenTC == "Generations") {
    ImportRec.Gen_Field27 = Value();
    ImportRec.Gen_Field28.clear();
  }
  if (const ClockEntry* clock = FindClock(ChosenTC)) {
    if (const Translator* t = FindTranslator(clock->translator); t && t->clear_data) {
      t->clear_data(*this);
    }
  }
}

}  // namespace corvane
