// The Evolution import line, the audit trail and the exception files.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

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
bool RoundsToZero(std::optional<double> number, const Value& figure) {
  if (number) {
    const double size = std::fabs(*number);
    if (size == 0.0) return true;
    if (size >= 0.01) return false;
  }
  return DropTestNumber(Format(figure, ".00")) == 0.0;
}

bool RoundsToZero(const Value& figure) {
  if (figure.IsBlank()) return true;
  if (figure.IsNumber()) return RoundsToZero(figure.number(), figure);
  if (figure.text().empty()) return true;
  return RoundsToZero(NumericValue(figure.text()), figure);
}

// The same test on the dollars, which the record holds as text: a value is made only for
// the picture, near a rounding edge or for text that is no number.
bool RoundsToZero(const std::string& figure) {
  if (figure.empty()) return true;
  const std::optional<double> number = NumericValue(figure);
  if (number && (*number == 0.0 || std::fabs(*number) >= 0.01)) return *number == 0.0;
  return RoundsToZero(number, Value(figure));
}

// The code that switches a category off: "X" in either case, blanks around it.
bool IsCodeX(const Value& code) {
  char room[kPrintedNumberRoom];
  const std::string_view text = TrimView(PrintedView(code, room));
  return text.size() == 1 && (text[0] == 'X' || text[0] == 'x');
}

// Shift 1 is the default and is not sent; "0" and "00" mean none.
bool IsDefaultShift(const Value& shift) {
  char room[kPrintedNumberRoom];
  const std::string_view text = TrimView(PrintedView(shift, room));
  return text == "0" || text == "00" || text == "1";
}

// Copies n bytes: a short text, the usual field, by fixed-size moves rather than a call.
[[gnu::always_inline]] inline void CopyText(char* to, const char* from, std::size_t n) {
  if (n > 16) {
    std::memcpy(to, from, n);
  } else if (n >= 8) {
    std::uint64_t head, tail;
    std::memcpy(&head, from, 8);
    std::memcpy(&tail, from + n - 8, 8);
    std::memcpy(to, &head, 8);
    std::memcpy(to + n - 8, &tail, 8);
  } else if (n >= 4) {
    std::uint32_t head, tail;
    std::memcpy(&head, from, 4);
    std::memcpy(&tail, from + n - 4, 4);
    std::memcpy(to, &head, 4);
    std::memcpy(to + n - 4, &tail, 4);
  } else if (n > 0) {
    to[0] = from[0];
    to[n / 2] = from[n / 2];
    to[n - 1] = from[n - 1];
  }
}

// Builds a line straight into the writers' buffer, which grows only for a line longer than
// any before it: the writers run for every line of a million-record export.
class LineBuilder {
 public:
  // line is set to the line built when the builder goes.
  LineBuilder(std::vector<char>& buffer, std::string_view& line) : buffer_(buffer), line_(line) {
    if (buffer_.size() < 256) buffer_.resize(256);
    at_ = buffer_.data();
    end_ = at_ + buffer_.size();
  }
  LineBuilder(const LineBuilder&) = delete;
  LineBuilder& operator=(const LineBuilder&) = delete;
  ~LineBuilder() { line_ = View(); }

  [[gnu::always_inline]] void Put(char c) {
    Room(1);
    *at_++ = c;
  }
  [[gnu::always_inline]] void Put(std::string_view text) {
    Room(text.size());
    CopyText(at_, text.data(), text.size());
    at_ += text.size();
  }
  // A value in its printed form.
  [[gnu::always_inline]] void Put(const Value& v) {
    if (v.IsText()) {
      // most fields of a line are empty
      if (!v.text().empty()) Put(std::string_view(v.text()));
    } else if (v.IsNumber()) {
      Room(kPrintedNumberRoom);
      at_ += PrintedView(v, at_).size();
    }
  }
  std::string_view View() const {
    return {buffer_.data(), static_cast<std::size_t>(at_ - buffer_.data())};
  }

 private:
  [[gnu::always_inline]] void Room(std::size_t n) {
    if (static_cast<std::size_t>(end_ - at_) < n) Grow(n);
  }
  void Grow(std::size_t n) {
    const std::size_t used = static_cast<std::size_t>(at_ - buffer_.data());
    buffer_.resize(std::max(buffer_.size() * 2, used + n));
    at_ = buffer_.data() + used;
    end_ = buffer_.data() + buffer_.size();
  }

  std::vector<char>& buffer_;
  std::string_view& line_;
  char* at_;
  char* end_;
};

// The employee number of the audit line, by the picture "######": a whole number, or a text
// of digits alone, prints its digits without leading zeros; anything else takes the picture.
void PutAuditNumber(LineBuilder& out, const Value& number) {
  if (number.IsText()) {
    const std::string_view text = number.text();
    const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
    const std::size_t first = text.find_first_not_of('0');
    if (first != std::string_view::npos && text.size() <= 15 &&
        std::all_of(text.begin(), text.end(), is_digit)) {
      out.Put(text.substr(first));
      return;
    }
  } else if (number.IsNumber()) {
    const double x = number.number();
    if (x >= 1.0 && x < 1e15 && x == std::floor(x)) {
      char digits[24];
      const auto end = std::to_chars(digits, digits + sizeof digits, static_cast<long long>(x));
      out.Put(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
      return;
    }
  }
  out.Put(std::string_view(Format(number, "######")));
}

TextStream& Stream(std::unique_ptr<TextStream>& stream) {
  if (!stream) Raise(kObjectNotSet);
  return *stream;
}

}  // namespace

void frmTimeImport::BuildLine(bool other, std::string_view hours) {
  const ImportRecord& r = ImportRec;
  LineBuilder b(line_buffer_, line_);
  auto field = [&b](const Value& v) __attribute__((always_inline)) {
    b.Put(',');
    b.Put(v);
  };
  auto text = [&b](std::string_view s) __attribute__((always_inline)) {
    b.Put(',');
    b.Put(s);
  };
  auto blank = [&b]() __attribute__((always_inline)) {
    b.Put(',');
  };

  b.Put(std::string_view(quote));
  b.Put(r.Employee_no);
  b.Put(std::string_view(quote));
  b.Put(',');
  b.Put(std::string_view(quote));
  b.Put(r.Employee_Name);
  b.Put(std::string_view(quote));
  field(r.Department);    // 3
  field(r.Job);           // 4
  field(r.Shift);         // 5
  field(r.DorE);          // 6
  field(r.Earning_Code);  // 7
  field(r.payrate);       // 8
  text(hours);            // 9
  if (!other && ChosenTC == "Denny's DINE - Relco") {
    field(r.CorvaneYear);   // 10
    field(r.CorvaneMonth);  // 11
    text(r.CorvaneDay);     // 12
  } else {
    b.Put(std::string_view(",,,"));  // 10 to 12
  }
  b.Put(std::string_view(",,"));  // 13, 14
  text(r.Amount);                 // 15
  field(r.Seq);                   // 16
  field(r.Division);              // 17
  field(r.Branch);                // 18
  if (other) {
    blank();  // 19
  } else {
    text(r.State);
  }
  b.Put(std::string_view(",,,"));  // 20 to 22
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
    b.Put(std::string_view(",,"));  // 27, 28
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
  if (!x_passes && IsCodeX(r.Earning_Code)) {
    if (gather_summary) summary_.Dropped(DropReason::CodeX, r);
    return false;
  }
  // both figures are always tested: a text that is no number raises in either
  const bool no_hours = RoundsToZero(r.Hours);
  const bool no_amount = RoundsToZero(r.Amount);
  if (no_hours && no_amount) {
    if (gather_summary) summary_.Dropped(DropReason::NoFigures, r);
    return false;
  }
  if (IsDefaultShift(r.Shift)) r.Shift.SetText("");
  return true;
}

void frmTimeImport::WriteOutputRec() {
  // "eWorks" passes a code of "X" through to the file.
  if (!KeepRecord(S[PickTC].SelectedText() == "eWorks")) return;
  WriteKeptRecord(false);
}

void frmTimeImport::WriteOutputRecOther() {
  if (!KeepRecord(false)) return;
  WriteKeptRecord(true);
}

void frmTimeImport::WriteKeptRecord(bool other) {
  // the hours print once for both files
  char room[kPrintedNumberRoom];
  const std::string_view hours = PrintedView(ImportRec.Hours, room);
  BuildLine(other, hours);
  Build_String.SetText(line_);
  Stream(other ? ExceptionStream : OutputStream).WriteLine(line_);
  ++RecCount;
  NoteWritten(other);
  WriteAuditRec(hours);
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

void frmTimeImport::WriteAuditRec(std::string_view hours) {
  const ImportRecord& r = ImportRec;
  // Both lines go to the stream in one write: the first with its line end, the second
  // taking the stream's own.
  std::size_t second = 0;
  {
    LineBuilder b(line_buffer_, line_);
    b.Put(std::string_view("Emp_no: "));
    PutAuditNumber(b, r.Employee_no);
    b.Put(std::string_view(", Emp_Name: "));
    b.Put(r.Employee_Name);
    b.Put(std::string_view(", Dept: "));
    b.Put(r.Department);
    b.Put(std::string_view(", Shift: "));
    b.Put(r.Shift);
    b.Put(std::string_view("\r\n"));
    second = b.View().size();
    b.Put(' ');
    b.Put(r.DorE);
    b.Put(r.Earning_Code);
    b.Put(std::string_view(" - "));
    // Hours > "": a number always prints something, a text compares as text, blank as "".
    if (r.Hours.IsNumber() || !r.Hours.text().empty()) {
      b.Put(hours);
      b.Put(std::string_view(" Hours"));
    } else {
      b.Put(std::string_view(r.Amount));
      b.Put(std::string_view(" Dollars"));
    }
  }
  Build_String.SetText(line_.substr(second));
  Stream(AuditStream).WriteLine(line_);
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
