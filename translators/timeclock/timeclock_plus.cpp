// The Timeclock Plus family: comma exports of one row per employee and pay code
// ("Timeclock Plus", "Timeclock Plus Pro v5.0", "Timeclock Plus Pro v5.0.2.189") and the
// Bezion export of one row per employee and job, which reads its file itself.
//
// The screen's labels follow the time clock, so a box's name says nothing of its use here:
// vacation goes to txtDbl in one export and to txtAdjH in another.
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// ---------------------------------------------------------------------------------------------
// Shared by the family.

// What these clocks never send: cleared before anything is filled, so nothing of the previous
// row leaks into this one. Shift, Department and the earning code are not among them.
void TCP_RecordDefaults(ImportRecord& r) {
  r.DorE = "E";
  r.Amount = "";
  r.payrate = r.Division = r.Branch = r.Job = r.Team = "";
  r.SSN = "";
  r.Seq = "1";
}

template <class Row, std::size_t N>
const Row* TCP_Lookup(const Row (&table)[N], const Value& code) {
  for (const Row& row : table) {
    if (code == Value(row.code)) return &row;
  }
  return nullptr;
}

// The pay codes of the Timeclock Plus exports, and the title of their messages.
constexpr std::string_view kTCPTitle = "Corvane: Timeclock Plus";
constexpr std::string_view kTCP5Title = "Corvane: Timeclock Plus Pro v5.0";

// ---------------------------------------------------------------------------------------------
// "Timeclock Plus": ten fields a row, no heading. The pay code picks one category; the hours
// carry two implied decimals.

struct TimeClockPlusFields {
  Value TCP_EmpNo, TCP_F2, TCP_Shift, TCP_Division, TCP_PayCode, TCP_Hours;
  Value TCP_F7, TCP_F8, TCP_F9, TCP_F10;
};

// The export has no heading: the first row is an employee's.
void TCP_NoHeading(frmTimeImport&) {}

bool TimeClockPlusRead(frmTimeImport& F) {
  TimeClockPlusFields& in = F.Fields<TimeClockPlusFields>();
  InputFile& file = F.File(1);
  for (Value* field : {&in.TCP_EmpNo, &in.TCP_F2, &in.TCP_Shift, &in.TCP_Division, &in.TCP_PayCode,
                       &in.TCP_Hours, &in.TCP_F7, &in.TCP_F8, &in.TCP_F9, &in.TCP_F10}) {
    file.Input(*field);
  }
  return true;
}

struct TCP_Code {
  std::string_view code;
  Cat category;
};

constexpr TCP_Code kTimeClockPlusCodes[] = {
    {"REGHR", Cat::Reg},   {"OTHR", Cat::OT},    {"VACHR", Cat::Dbl},  {"SICHR", Cat::Tips},
    {"HOLHR", Cat::Sales}, {"HOLOT", Cat::Misc}, {"BRVHR", Cat::Disb}, {"OJI", Cat::Abs},
};

void TimeClockPlus(frmTimeImport& F) {
  const TimeClockPlusFields& in = F.Fields<TimeClockPlusFields>();
  ImportRecord& r = F.ImportRec;
  r.Employee_no = Trim(in.TCP_EmpNo);
  TCP_RecordDefaults(r);
  r.Earning_Code = "?";
  r.Shift = in.TCP_Shift;
  if (in.TCP_Division.IsNumeric()) r.Division = in.TCP_Division;
  if (in.TCP_Hours.IsNumeric()) {
    r.Hours = Format(Value(in.TCP_Hours.ToNumber() / 100), "###.00");
  } else {
    // zero hours: the writer drops the row once the operator has seen it
    r.Hours = ".00";
    F.MsgBox("Emp# " + r.Employee_no.str() + ", Hours = " + in.TCP_Hours.str(), MsgButtons::OKOnly,
             kTCPTitle);
  }
  if (const TCP_Code* known = TCP_Lookup(kTimeClockPlusCodes, in.TCP_PayCode)) {
    F.Apply(known->category);
  } else {
    // the row still goes out, with "?" for the bureau to find
    F.MsgBox("Unknown Earning Code: " + in.TCP_PayCode.str(), MsgButtons::OKOnly, kTCPTitle);
  }
  F.WriteOutputRec();
}

// ---------------------------------------------------------------------------------------------
// "Timeclock Plus Pro v5.0": eleven fields a row, no heading. The pay code routes the row's
// three hours columns, each to its own category or to none.

struct TimeClockPlus5Fields {
  Value TCP5_EmpNo, TCP5_Name, TCP5_F3, TCP5_Job, TCP5_PayCode;
  Value TCP5_H1, TCP5_H2, TCP5_H3;
  Value TCP5_F9, TCP5_F10, TCP5_F11;
};

bool TimeClockPlus5Read(frmTimeImport& F) {
  TimeClockPlus5Fields& in = F.Fields<TimeClockPlus5Fields>();
  InputFile& file = F.File(1);
  for (Value* field :
       {&in.TCP5_EmpNo, &in.TCP5_Name, &in.TCP5_F3, &in.TCP5_Job, &in.TCP5_PayCode, &in.TCP5_H1,
        &in.TCP5_H2, &in.TCP5_H3, &in.TCP5_F9, &in.TCP5_F10, &in.TCP5_F11}) {
    file.Input(*field);
  }
  return true;
}

// A column the code does not route is never written.
struct TCP5_Route {
  std::string_view code;
  std::optional<Cat> h1, h2, h3;
};

constexpr std::nullopt_t kNotUsed = std::nullopt;

constexpr TCP5_Route kTimeClockPlus5Routes[] = {
    {"REGHR", Cat::Reg, Cat::OT, Cat::Dbl},   {"OTHR", Cat::Reg, Cat::OT, Cat::Dbl},
    {"VACHR", Cat::AdjH, Cat::OT, Cat::Dbl},  {"SICHR", Cat::Tips, kNotUsed, kNotUsed},
    {"HOLHR", Cat::Sales, Cat::OT, kNotUsed}, {"HOLOT", Cat::Misc, Cat::OT, Cat::Dbl},
    {"BRVHR", Cat::Disb, Cat::OT, kNotUsed},  {"OJI", Cat::Abs, Cat::OT, Cat::Dbl},
};

// A column goes out when it is a number and not the text "0".
void TimeClockPlus5_Column(frmTimeImport& F, std::optional<Cat> category, const Value& hours) {
  if (!category || !hours.IsNumeric() || Trim(hours) == "0") return;
  F.WriteHours(*category, hours);
}

void TimeClockPlus5(frmTimeImport& F) {
  const TimeClockPlus5Fields& in = F.Fields<TimeClockPlus5Fields>();
  ImportRecord& r = F.ImportRec;
  // The job is the row's own: it is filled after the defaults so that it goes out.
  TCP_RecordDefaults(r);
  r.Employee_no = Trim(in.TCP5_EmpNo);
  r.Employee_Name = Trim(in.TCP5_Name);
  r.Job = Trim(in.TCP5_Job);
  const TCP5_Route* route = TCP_Lookup(kTimeClockPlus5Routes, in.TCP5_PayCode);
  if (route == nullptr) {
    F.MsgBox("Unknown Earning Code: " + in.TCP5_PayCode.str(), MsgButtons::OKOnly, kTCP5Title);
    return;
  }
  TimeClockPlus5_Column(F, route->h1, in.TCP5_H1);
  TimeClockPlus5_Column(F, route->h2, in.TCP5_H2);
  TimeClockPlus5_Column(F, route->h3, in.TCP5_H3);
}

// ---------------------------------------------------------------------------------------------
// "Timeclock Plus Pro v5.0.2.189": a heading row, then rows of seven fields. The code names
// the first hours column's D-or-E and earning code; the second column is overtime, "E03".
// A row that starts with a blank field is the one that follows it.

struct TimeClockPlus502189Fields {
  Value TCP189_EmpNo, TCP189_Name, TCP189_F3, TCP189_Code, TCP189_H1, TCP189_H2, TCP189_H3;
};

void TimeClockPlus502189_Rest(frmTimeImport& F, TimeClockPlus502189Fields& in) {
  InputFile& file = F.File(1);
  for (Value* field : {&in.TCP189_Name, &in.TCP189_F3, &in.TCP189_Code, &in.TCP189_H1,
                       &in.TCP189_H2, &in.TCP189_H3}) {
    file.Input(*field);
  }
}

void TimeClockPlus502189Heading(frmTimeImport& F) {
  TimeClockPlus502189Fields& in = F.Fields<TimeClockPlus502189Fields>();
  F.File(1).Input(in.TCP189_EmpNo);
  TimeClockPlus502189_Rest(F, in);
}

bool TimeClockPlus502189Read(frmTimeImport& F) {
  TimeClockPlus502189Fields& in = F.Fields<TimeClockPlus502189Fields>();
  F.File(1).Input(in.TCP189_EmpNo);
  // a blank first field stands before a whole row: that row is read into place
  if (Trim(in.TCP189_EmpNo).empty()) F.File(1).Input(in.TCP189_EmpNo);
  TimeClockPlus502189_Rest(F, in);
  return true;
}

void TimeClockPlus502189(frmTimeImport& F) {
  const TimeClockPlus502189Fields& in = F.Fields<TimeClockPlus502189Fields>();
  ImportRecord& r = F.ImportRec;
  // a quoted number may hold the line end of a row broken in two
  std::string number = in.TCP189_EmpNo.str();
  std::erase(number, '\r');
  std::erase(number, '\n');
  r.Employee_no = number;
  r.Employee_Name = Trim(in.TCP189_Name);
  TCP_RecordDefaults(r);
  const std::string code = Trim(in.TCP189_Code);
  r.DorE = Left(code, 1);
  r.Earning_Code = Right(code, 2);
  if (in.TCP189_H1.IsNumeric()) {
    r.Hours = Trim(in.TCP189_H1);
    if (r.Hours != Value("0")) F.WriteOutputRec();
  }
  if (in.TCP189_H2.IsNumeric()) {
    r.DorE = "E";
    r.Earning_Code = "03";
    r.Hours = Trim(in.TCP189_H2);
    if (r.Hours != Value("0")) F.WriteOutputRec();
  }
}

// ---------------------------------------------------------------------------------------------
// "Timeclock Plus (Bezion)": a heading row, then rows of nine fields. An employee's name and
// number stand on the first of the employee's rows only, and carry over to the rest. A
// numeric job code is worked time; any other is a time-off code.

struct TimeclockPlusVieDelFields {
  Value VD_SSN, VD_JobCode, VD_Rate, VD_RegHours, VD_Overtime1, VD_Overtime2, VD_Track1;
  Value VD_LastName, VD_LastNo;  // the name and number remembered from the employee's first row
};

// Reads a row straight into the record's employee fields and the format's own.
void TimeclockPlusVieDel_Read(frmTimeImport& F, TimeclockPlusVieDelFields& in) {
  InputFile& file = F.File(1);
  ImportRecord& r = F.ImportRec;
  file.Input(r.Employee_no);
  file.Input(r.Employee_Name);
  for (Value* field : {&in.VD_SSN, &in.VD_JobCode, &in.VD_Rate, &in.VD_RegHours, &in.VD_Overtime1,
                       &in.VD_Overtime2, &in.VD_Track1}) {
    file.Input(*field);
  }
}

// One write: the box's code always two digits, and no dollars.
void TimeclockPlusVieDel_Write(frmTimeImport& F, Cat category, const Value& hours) {
  ImportRecord& r = F.ImportRec;
  r.Hours = hours;
  r.Amount = "";
  r.DorE = F.S.DE(category);
  r.Earning_Code = Format(Value(F.S.Code(category)), "00");
  F.WriteOutputRec();
}

struct VD_TimeOff {
  std::string_view code;
  Cat category;
};

// The code is compared in upper case, so the lower-case codes here never match; they stand as
// the clock's own list names them.
constexpr VD_TimeOff kVieDelTimeOff[] = {
    {"V", Cat::Sales}, {"WC", Cat::Misc},      {"H", Cat::Hol},      {"S", Cat::Disb},
    {"F", Cat::Abs},   {"jd", Cat::e19},       {"loa", Cat::e20},    {"sus", Cat::e21},
    {"off", Cat::e22}, {"unex off", Cat::e23}, {"nc off", Cat::e37},
};

void TimeclockPlusVieDel_Row(frmTimeImport& F, TimeclockPlusVieDelFields& in) {
  ImportRecord& r = F.ImportRec;
  ++F.TCcount;
  if (!Trim(r.Employee_Name).empty()) {
    in.VD_LastName = r.Employee_Name;
  } else {
    r.Employee_Name = in.VD_LastName;
  }
  if (!Trim(r.Employee_no).empty()) {
    in.VD_LastNo = r.Employee_no;
  } else {
    r.Employee_no = in.VD_LastNo;
  }
  r.SSN = "";
  if (IsNumeric(Trim(in.VD_JobCode))) {
    if (NumericAbove0(in.VD_RegHours)) TimeclockPlusVieDel_Write(F, Cat::Reg, in.VD_RegHours);
    if (NumericAbove0(in.VD_Overtime1)) TimeclockPlusVieDel_Write(F, Cat::OT, in.VD_Overtime1);
    if (NumericAbove0(in.VD_Overtime2)) TimeclockPlusVieDel_Write(F, Cat::e16, in.VD_Overtime2);
    return;
  }
  const std::string code = UCase(Trim(in.VD_JobCode));
  if (!NumericAbove0(in.VD_RegHours)) return;
  for (const VD_TimeOff& off : kVieDelTimeOff) {
    if (code == off.code) {
      TimeclockPlusVieDel_Write(F, off.category, in.VD_RegHours);
      return;
    }
  }
}

void TimeclockPlusVieDel(frmTimeImport& F) {
  F.InitFiles();
  TimeclockPlusVieDelFields& in = F.Fields<TimeclockPlusVieDelFields>();
  in.VD_LastName = in.VD_LastNo = Value();
  // The loop runs until a read fails: that failure, the end of the export among them, ends
  // the reading and keeps what was written.
  try {
    TimeclockPlusVieDel_Read(F, in);  // the heading
    TimeclockPlusVieDel_Read(F, in);
    while (true) {
      TimeclockPlusVieDel_Row(F, in);
      TimeclockPlusVieDel_Read(F, in);
    }
  } catch (const RuntimeError&) {
  }
}

}  // namespace

extern const Translator kTimeClockPlusTranslator{
    .name = "TimeClockPlus",
    .heading = TCP_NoHeading,
    .read = TimeClockPlusRead,
    .translate = TimeClockPlus,
};

extern const Translator kTimeClockPlus5Translator{
    .name = "TimeClockPlus5",
    .heading = TCP_NoHeading,
    .read = TimeClockPlus5Read,
    .translate = TimeClockPlus5,
};

extern const Translator kTimeClockPlus502189Translator{
    .name = "TimeClockPlus502189",
    .heading = TimeClockPlus502189Heading,
    .read = TimeClockPlus502189Read,
    .translate = TimeClockPlus502189,
};

extern const Translator kTimeclockPlusVieDelTranslator{
    .name = "TimeclockPlusVieDel",
    .run = TimeclockPlusVieDel,
};

}  // namespace corvane
