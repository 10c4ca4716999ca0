// The Time Manager clock: one record per employee with its home and worked departments and
// fifty hour columns, in four versions of the export (three fixed records of 1187, 1310 and
// 1312 bytes, and lines cut at the widths of the oldest). Each column pays by the company's
// earning code of its position; the department string breaks into the company's Division,
// Branch, Department and Team segments. "Time Management Systems" is an unrelated clock of
// 72-byte records whose pay codes carry their own earning codes.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

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
// The record, under the names of the export's own heading. The name "dept" stands twice: the
// employee's home department, and further on the department the hours were worked in.

enum TMField : int {
  TM_empl,
  TM_lname,
  TM_badge,
  TM_dept,  // home department
  TM_wage,
  TM_dept1,  // dept1, wage1, ... dept9, wage9
  TM_pr_rule = TM_dept1 + 18,
  TM_clock,
  TM_restrict,
  TM_schedule,
  TM_auto,
  TM_user1,
  TM_dept_worked = TM_user1 + 12,
  TM_dept_1,
  TM_dept_2,
  TM_dept_3,
  TM_r,  // the pay rate
  TM_h1,
  TM_FieldCount = TM_h1 + 50
};

struct TMSpan {
  int offset = 0;
  int width = 0;
};

using TMLayout = std::array<TMSpan, TM_FieldCount>;

// One version's column of the layout table, as the export's documentation states it.
struct TMVersion {
  TMSpan empl, lname, badge, dept, wage;
  int pairs_from, pair_dept_width, pair_wage_width;
  int rules_from, rule_width;
  int users_from, user_width;
  TMSpan dept_worked;
  std::array<int, 3> dept_n;
  int dept_n_width;
  TMSpan r;
  int h_from, h_width;
};

constexpr TMLayout Expand(const TMVersion& v) {
  TMLayout l{};
  l[TM_empl] = v.empl;
  l[TM_lname] = v.lname;
  l[TM_badge] = v.badge;
  l[TM_dept] = v.dept;
  l[TM_wage] = v.wage;
  int at = v.pairs_from;
  for (int k = 0; k < 9; ++k) {
    l[TM_dept1 + 2 * k] = {at, v.pair_dept_width};
    at += v.pair_dept_width;
    l[TM_dept1 + 2 * k + 1] = {at, v.pair_wage_width};
    at += v.pair_wage_width;
  }
  for (int k = 0; k < 5; ++k) l[TM_pr_rule + k] = {v.rules_from + k * v.rule_width, v.rule_width};
  for (int k = 0; k < 12; ++k) l[TM_user1 + k] = {v.users_from + k * v.user_width, v.user_width};
  l[TM_dept_worked] = v.dept_worked;
  for (int k = 0; k < 3; ++k) l[TM_dept_1 + k] = {v.dept_n[k], v.dept_n_width};
  l[TM_r] = v.r;
  for (int k = 0; k < 50; ++k) l[TM_h1 + k] = {v.h_from + k * v.h_width, v.h_width};
  return l;
}

// v1.8 and v2.8 (its line ends at 1185, 2; the v2.8 line is cut by these widths).
constexpr TMLayout kTMv18 = Expand({.empl = {0, 10},
                                    .lname = {10, 30},
                                    .badge = {40, 10},
                                    .dept = {50, 15},
                                    .wage = {65, 8},
                                    .pairs_from = 73,
                                    .pair_dept_width = 15,
                                    .pair_wage_width = 8,
                                    .rules_from = 280,
                                    .rule_width = 10,
                                    .users_from = 330,
                                    .user_width = 33,
                                    .dept_worked = {726, 15},
                                    .dept_n = {741, 753, 765},
                                    .dept_n_width = 12,
                                    .r = {777, 8},
                                    .h_from = 785,
                                    .h_width = 8});
// v2.0: two leading bytes, no line end.
constexpr TMLayout kTMv20 = Expand({.empl = {2, 10},
                                    .lname = {12, 30},
                                    .badge = {42, 11},
                                    .dept = {53, 15},
                                    .wage = {68, 10},
                                    .pairs_from = 78,
                                    .pair_dept_width = 15,
                                    .pair_wage_width = 10,
                                    .rules_from = 293,
                                    .rule_width = 10,
                                    .users_from = 353,
                                    .user_width = 33,
                                    .dept_worked = {749, 15},
                                    .dept_n = {764, 776, 788},
                                    .dept_n_width = 12,
                                    .r = {800, 10},
                                    .h_from = 810,
                                    .h_width = 10});
// v2.x: the line end is 1308, 4.
constexpr TMLayout kTMv2x = Expand({.empl = {0, 10},
                                    .lname = {10, 30},
                                    .badge = {40, 11},
                                    .dept = {51, 15},
                                    .wage = {66, 10},
                                    .pairs_from = 76,
                                    .pair_dept_width = 15,
                                    .pair_wage_width = 10,
                                    .rules_from = 291,
                                    .rule_width = 10,
                                    .users_from = 351,
                                    .user_width = 33,
                                    .dept_worked = {747, 15},
                                    .dept_n = {762, 774, 786},
                                    .dept_n_width = 12,
                                    .r = {798, 10},
                                    .h_from = 808,
                                    .h_width = 10});

// The columns that matter end where each version says its record ends.
static_assert(kTMv18[TM_h1 + 49].offset + 8 == 1185);
static_assert(kTMv20[TM_h1 + 49].offset + 10 == 1310);
static_assert(kTMv2x[TM_h1 + 49].offset + 10 == 1308);

// A v2.8 line shorter than this has been broken over two lines.
constexpr std::size_t kTMv28LineLength = 1185;

// The record in memory, whichever version filled it.
struct TMFields {
  std::array<std::string, TM_FieldCount> TM;
  // The csv reader's home department, read before the worked one of the same name.
  std::string TM_HomeDept;
  // Set by the whole-line reader of v2.8, whose errors pass statement by statement.
  bool TM_ResumeNext = false;
};

// A statement of the record's translation: under the whole-line reader an error in it is
// passed over and the next runs; under the others it goes to the reader's frame.
template <class Statement>
void TM_Do(const TMFields& in, Statement&& statement) {
  if (in.TM_ResumeNext) {
    ResumeNext(statement);
  } else {
    statement();
  }
}

// A fixed record cut into the fields by its version's table.
void TM_Cut(const std::string& record, const TMLayout& layout, TMFields& in) {
  for (int k = 0; k < TM_FieldCount; ++k) {
    const auto offset = static_cast<std::size_t>(layout[k].offset);
    std::string& field = in.TM[k];
    if (offset < record.size()) {
      field.assign(record, offset, static_cast<std::size_t>(layout[k].width));
    } else {
      field.clear();
    }
  }
}

long TM_Length(const Control& box) {
  return ToLong(Value(box.text));
}

// ---------------------------------------------------------------------------------------------
// The translation of one record, the same for every version but that v1.8 leaves DorE to the
// earning-code lookup.

// The department string broken into the company's segments. The lengths count whether or not
// a segment is sent, so each segment starts after all those before it.
void TM_Segments(frmTimeImport& F, const TMFields& in) {
  const frmTMdept& form = F.TMdept;
  ImportRecord& r = F.ImportRec;
  long DivLen = 0, BrLen = 0, DeptLen = 0, TeamLen = 0;
  TM_Do(in, [&] { DivLen = TM_Length(form.DivLen); });
  TM_Do(in, [&] { BrLen = TM_Length(form.BrLen); });
  TM_Do(in, [&] { DeptLen = TM_Length(form.DeptLen); });
  TM_Do(in, [&] { TeamLen = TM_Length(form.TeamLen); });
  if (form.DivInc.text == "T") TM_Do(in, [&] { r.Division = Left(r.Department, DivLen); });
  if (form.BrInc.text == "T") {
    TM_Do(in, [&] { r.Branch = Mid(Trim(r.Department), DivLen + 1, BrLen); });
  }
  if (form.TeamInc.text == "T") {
    TM_Do(in, [&] { r.Team = Mid(Trim(r.Department), DivLen + BrLen + DeptLen + 1, TeamLen); });
  }
  // last, for the others cut from the whole string
  if (form.DeptInc.text == "T") {
    TM_Do(in, [&] { r.Department = Mid(Trim(r.Department), DivLen + BrLen + 1, DeptLen); });
  } else {
    r.Department = "";
  }
}

// The fifty columns: a column with anything in it goes to the lookup of its position, so a
// column of 0.00 reaches the writer, which drops it. A column without an earning code is
// written with "?" and marked for the message at the end of the run.
void TM_Columns(frmTimeImport& F, const TMFields& in) {
  for (int j = 1; j <= 50; ++j) {
    const std::string& column = in.TM[TM_h1 + j - 1];
    if (Trim(column).empty()) continue;
    const bool no_code =
        WriteCodedColumn(F, j, Value(column), [&] { TM_Do(in, [&] { F.WriteOutputRec(); }); });
    if (no_code) F.ColumnValues[static_cast<std::size_t>(j)] = "X";
  }
}

void TM_Translate(frmTimeImport& F, bool sets_dore) {
  const TMFields& in = F.Fields<TMFields>();
  const auto& f = in.TM;
  const frmTMdept& form = F.TMdept;
  ImportRecord& r = F.ImportRec;
  // the csv reader has taken the department itself
  const bool csv = F.ChosenTC == "Time Manager v2.8 csv";

  TM_Do(in, [&] { F.rsECodes->rsECodes.Filter(F.S[CoNum].text); });
  r.Division = r.Branch = r.Job = r.Team = "";
  r.SSN = "";
  if (!csv) r.Department = "";
  r.Seq = "1";
  r.Employee_no = Format(Value(form.rdoEmp.value == 1 ? f[TM_empl] : f[TM_badge]), "#######");
  r.Employee_Name = Trim(f[TM_lname]);
  r.payrate = "";
  if (form.rdoPRyes.value == 1 && NumericAbove0(Value(f[TM_r]))) {
    r.payrate = Format(Value(f[TM_r]), "###.#0");
  }
  if (!csv) r.Department = Trim(form.rdoDeptYes.value == 1 ? f[TM_dept_worked] : f[TM_dept]);
  TM_Segments(F, in);
  if (sets_dore) r.DorE = "E";
  r.Amount = "";
  TM_Columns(F, in);
}

// ---------------------------------------------------------------------------------------------
// The fixed records: the settings are put on the form before the heading record.

void TM_LoadSettings(frmTimeImport& F) {
  F.TMdept.Set_rsTM();
  F.Fields<TMFields>().TM_ResumeNext = false;
}

void TM_SettingsAndHeading(frmTimeImport& F) {
  TM_LoadSettings(F);
  F.File(1).Get(F.InRec);
}

void TMv18(frmTimeImport& F) {
  TM_Cut(F.InRec, kTMv18, F.Fields<TMFields>());
  TM_Translate(F, false);
}

void TMv20(frmTimeImport& F) {
  TM_Cut(F.InRec, kTMv20, F.Fields<TMFields>());
  TM_Translate(F, true);
}

void TMv2x(frmTimeImport& F) {
  TM_Cut(F.InRec, kTMv2x, F.Fields<TMFields>());
  TM_Translate(F, true);
}

// ---------------------------------------------------------------------------------------------
// "Time Manager v2.8" and "Time Manager v2.8 csv".

// The line in hand to the record. A line short of a whole record was broken in two by the
// export: the next line, less its first character, completes it. At the end of the file
// there is no next line and the line is cut as it stands.
void TMv28_SetData(frmTimeImport& F, std::string line) {
  TMFields& in = F.Fields<TMFields>();
  if (line.size() < kTMv28LineLength) {
    std::string rest;
    ResumeNext([&] { F.File(1).LineInput(rest); });
    if (!rest.empty()) line.append(rest, 1);
  }
  // each piece starts where the one before ended
  std::size_t at = 0;
  for (int k = 0; k < TM_FieldCount; ++k) {
    const auto width = static_cast<std::size_t>(kTMv18[k].width);
    std::string& field = in.TM[k];
    if (at < line.size()) {
      field.assign(line, at, width);
    } else {
      field.clear();
    }
    at += width;
  }
}

void TMv28(frmTimeImport& F) {
  TM_Translate(F, true);
}

// Whole lines, one ahead, under the ignore frame: every statement stands alone. After the
// loop the line in hand is handled once more, so the file's last line is translated.
void TMv28_Lines(frmTimeImport& F) {
  InputFile& file = F.File(1);
  F.Fields<TMFields>().TM_ResumeNext = true;
  auto read = [&] { ResumeNext([&] { file.LineInput(F.InRec); }); };
  auto at_end = [&] {
    try {
      return file.Eof();
    } catch (const RuntimeError&) {
      return true;  // no file to read
    }
  };
  auto handle = [&] {
    ResumeNext([&] { TMv28_SetData(F, F.InRec); });
    ++F.TCcount;
    ResumeNext([&] { TMv28(F); });
  };
  read();
  ResumeNext([&] { TMv28_SetData(F, F.InRec); });  // the heading
  read();
  while (!at_end()) {
    handle();
    read();
  }
  handle();
}

// Comma fields in the record's order, each cut to its width. A read past the end, or any
// error of the loop, ends the reading.
void TMv28_Csv(frmTimeImport& F) {
  InputFile& file = F.File(1);
  TMFields& in = F.Fields<TMFields>();
  ResumeNext([&] { file.LineInput(F.InRec); });  // the heading
  ImportRecord& r = F.ImportRec;
  std::string field;
  try {
    while (!file.Eof()) {
      for (int k = 0; k < TM_FieldCount; ++k) {
        file.Input(field);
        std::string& target = k == TM_dept ? in.TM_HomeDept : in.TM[k];
        target.assign(field, 0, static_cast<std::size_t>(kTMv18[k].width));
      }
      in.TM[TM_dept] = in.TM_HomeDept;
      r.Department = Trim(F.TMdept.rdoDeptYes.value == 1 ? in.TM[TM_dept_worked] : in.TM_HomeDept);
      ++F.TCcount;
      TMv28(F);
    }
  } catch (const RuntimeError&) {
  }
}

void TMv28_Run(frmTimeImport& F) {
  ResumeNext([&] { TM_LoadSettings(F); });
  if (F.ChosenTC == "Time Manager v2.8 csv") {
    TMv28_Csv(F);
  } else {
    TMv28_Lines(F);
  }
}

// ---------------------------------------------------------------------------------------------
// "Time Management Systems": the pay code names its earning code, and whether its figure is
// hours or dollars, from the clock's own table.

struct TMSCode {
  std::string_view code;
  const char* DorE;
  const char* Earning_Code;
  bool dollars;
};

constexpr TMSCode kTMSCodes[] = {
    {"E1", "E", "02", false},  {"E2", "E", "03", false},  {"EH", "E", "09", false},
    {"EI", "E", "21", false},  {"EJ", "E", "83", false},  {"EM", "E", "49", false},
    {"EO", "E", "50", false},  {"EQ", "E", "22", true},   {"ER", "E", "15", false},
    {"EBT", "E", "23", false}, {"ECE", "E", "24", false}, {"EET", "E", "08", false},
    {"EHE", "E", "25", false}, {"EXC", "E", "26", false}, {"1P", "D", "36", true},
    {"4B", "D", "29", true},   {"BP", "D", "37", true},   {"CP", "D", "38", true},
    {"RO", "D", "132", true},  {"U", "D", "79", true},    {"SL", "D", "46", true},
    {"CS", "D", "11", true},   {"G1", "D", "16", true},
};

void TimeManagementSystems(frmTimeImport& F) {
  const std::string& rec = F.InRec;
  ImportRecord& r = F.ImportRec;
  r.Employee_no = Trim(Mid(rec, 1, 6));
  r.Employee_Name = r.Division = r.Branch = r.Department = r.payrate = r.Job = r.Shift = "";
  r.Team = r.Hours = "";
  r.SSN = r.Amount = "";
  r.Seq = "1";
  const std::string code = Trim(Mid(rec, 51, 3));
  const Value figure(Mid(rec, 63, 8));
  if (!NumericAbove0(figure)) return;
  // an unknown code is written with what the record holds, which the writer drops
  for (const TMSCode& known : kTMSCodes) {
    if (known.code != code) continue;
    r.DorE = known.DorE;
    r.Earning_Code = known.Earning_Code;
    if (known.dollars) {
      r.Amount = Format(figure, "0.00");
    } else {
      r.Hours = Format(figure, "0.00");
    }
    break;
  }
  F.WriteOutputRec();
}

}  // namespace

extern const Translator kTMv28Translator{
    .name = "TMv28",
    .run = TMv28_Run,
};

extern const Translator kTMv2xTranslator{
    .name = "TMv2x",
    .heading = TM_SettingsAndHeading,
    .translate = TMv2x,
};

extern const Translator kTMv20Translator{
    .name = "TMv20",
    .heading = TM_LoadSettings,
    .translate = TMv20,
};

extern const Translator kTMv18Translator{
    .name = "TMv18",
    .heading = TM_SettingsAndHeading,
    .translate = TMv18,
};

extern const Translator kTimeManagementSystemsTranslator{
    .name = "TimeManagementSystems",
    .translate = TimeManagementSystems,
};

}  // namespace corvane
