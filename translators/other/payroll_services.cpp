// The exports of payroll services and bureaus' own systems: "PayChoice" (comma lines),
// "PaySuite", "RapidPay", "Ceridian Web", "Shelby" and "Ave OT" (fixed records). Each record
// names its employee and either its own earning code, a pay code of the service, or a run
// of hour columns; the layouts are told in their pages under docs/formats.
#include <array>

#include "pipeline/column_map.hpp"
#include "pipeline/time_import.hpp"
#include "runtime/picture.hpp"

namespace corvane {

namespace {

// Hours and dollars of the fixed records go out with two places, as the bureau keyed them.
constexpr std::string_view kTwoPlaces = "0.00";

// "PayChoice": one comma line a pay item after a heading line; the line names its earning
// code and whether it is an earning or a deduction. Every field is kept as written. A line
// without an employee number (a blank line too) is no pay item and is not counted.
bool PayChoiceItem(std::string_view line) {
  for (char c : line) {
    if (c == ',') return false;
    if (c != ' ' && c != '"') return true;
  }
  return false;
}

constexpr ColumnMap kPayChoiceMap = [] {
  ColumnMap m;
  m.translator = "PayChoice";
  m.fields = 9;
  m.text_fields = 0x3FE;  // fields 1 to 9
  m.heading_lines = 1;
  m.is_record = PayChoiceItem;
  // a line export with no totals line: its last line is a pay item like the others
  m.translate_last_line = true;
  m.employee = Field(1);
  m.name = Field(2);
  m.department = Field(3);
  m.payrate = Field(8);
  // the product's "Job" column holds the number the payroll matches the employee by
  m.ssn = Field(9);
  m.code_rule = CodeRule::FromRecord;
  m.code = Field(5);
  m.dore = Field(4);
  m.code_hours = Field(6);
  m.code_dollars = Field(7);
  return m;
}();

// "PaySuite": 81 characters and CR LF; figures written with their point.
constexpr ColumnMap kPaySuiteMap = [] {
  ColumnMap m;
  m.translator = "PaySuite";
  m.employee = Slice(1, 9);
  m.name = Slice(10, 25);
  m.code_rule = CodeRule::FromRecord;
  m.code = Slice(36, 4);
  m.dore = Slice(35, 1);
  m.code_hours = Slice(40, 8);
  m.code_dollars = Slice(48, 10);
  m.hours_picture = kTwoPlaces;
  m.dollars_picture = kTwoPlaces;
  return m;
}();

// "RapidPay": a heading record, detail records, a trailer record, each 127 characters and
// CR LF; the first character tells them apart.
bool RapidPayDetail(std::string_view record) {
  return !record.empty() && record.front() == 'D';
}

constexpr ColumnMap kRapidPayMap = [] {
  ColumnMap m;
  m.translator = "RapidPay";
  m.is_record = RapidPayDetail;
  m.employee = Slice(2, 10);
  m.name = Slice(12, 30);
  m.code_rule = CodeRule::FromRecord;
  m.code = Slice(49, 4);
  m.dore = Slice(48, 1);
  m.code_hours = Slice(53, 9, 2);
  m.code_dollars = Slice(62, 11, 2);
  m.hours_picture = kTwoPlaces;
  m.dollars_picture = kTwoPlaces;
  return m;
}();

// "Ceridian Web": the service's two-digit pay codes, each paid under the category the
// catalogue labels with it.
constexpr std::array<PayCode, 28> kCeridianWebCodes{{
    {"01", Cat::Reg},    {"02", Cat::OT},     {"03", Cat::Dbl},  {"04", Cat::Tips},
    {"05", Cat::Sales},  {"06", Cat::Misc},   {"07", Cat::Disb}, {"08", Cat::Abs},
    {"09", Cat::Hol},    {"10", Cat::AdjH},   {"11", Cat::AdjD}, {"12", Cat::WaitReg},
    {"13", Cat::WaitOT}, {"14", Cat::CCTips}, {"15", Cat::e15},  {"16", Cat::e16},
    {"17", Cat::e17},    {"18", Cat::e18},    {"19", Cat::e19},  {"20", Cat::e20},
    {"21", Cat::e21},    {"22", Cat::e22},    {"23", Cat::e23},  {"24", Cat::e24},
    {"25", Cat::e25},    {"26", Cat::e26},    {"45", Cat::e27},  {"46", Cat::e28},
}};

constexpr ColumnMap kCeridianWebMap = [] {
  ColumnMap m;
  m.translator = "CeridianWeb";
  m.employee = Slice(5, 10);
  m.name = Slice(15, 30);
  m.code_rule = CodeRule::Lookup;
  m.code = Slice(45, 2);
  m.code_hours = Slice(47, 11);
  m.codes = kCeridianWebCodes;
  m.hours_picture = kTwoPlaces;
  return m;
}();

// "Shelby": regular and overtime hours of one employee a record.
constexpr std::array<PayColumn, 2> kShelbyPay{{
    {Slice(46, 7, 2), Figure::Hours, Cat::Reg},
    {Slice(53, 7, 2), Figure::Hours, Cat::OT},
}};

constexpr ColumnMap kShelbyMap = [] {
  ColumnMap m;
  m.translator = "Shelby";
  m.employee = Slice(1, 9);
  m.name = Slice(10, 30);
  m.pay = kShelbyPay;
  m.hours_picture = kTwoPlaces;
  return m;
}();

// "Ave OT": six pay slots a record, each naming its own earning code, so one record may
// send several lines. The slot's average rate is the product's own working and is not sent.
constexpr int kAveOTSlots = 6;
constexpr int kAveOTFirstSlot = 40;
constexpr int kAveOTSlotWidth = 30;

bool AveOT_Slots(frmTimeImport& F);

constexpr ColumnMap kAveOTMap = [] {
  ColumnMap m;
  m.translator = "AveOT";
  m.employee = Slice(1, 9);
  m.name = Slice(10, 30);
  m.extra = AveOT_Slots;
  return m;
}();

bool AveOT_Slots(frmTimeImport& F) {
  ImportRecord& r = F.ImportRec;
  for (int k = 0; k < kAveOTSlots; ++k) {
    const int at = kAveOTFirstSlot + k * kAveOTSlotWidth;
    auto get = [&](int offset, int width, int places = -1) {
      return column_map::Get(F, kAveOTMap, {}, Slice(at + offset, width, places));
    };
    const Value code = get(1, 4);
    if (code.str().empty()) continue;  // an unused slot
    const Value hours = get(5, 8, 2);
    const Value dollars = get(13, 10, 2);
    if (NumericAbove0(hours)) {
      r.Hours = Format(hours, kTwoPlaces);
      r.Amount = "";
    } else if (NumericAbove0(dollars)) {
      r.Hours = "";
      r.Amount = Format(dollars, kTwoPlaces);
    } else {
      continue;
    }
    const Value dore = get(0, 1);
    r.DorE = dore.str().empty() ? Value("E") : dore;
    r.Earning_Code = code;
    F.WriteOutputRec();
  }
  return true;
}

}  // namespace

extern const Translator kPayChoiceTranslator = MapTranslator<kPayChoiceMap>(MapInput::Lines);
extern const Translator kPaySuiteTranslator = MapTranslator<kPaySuiteMap>(MapInput::Lines);
extern const Translator kRapidPayTranslator = MapTranslator<kRapidPayMap>(MapInput::Lines);
extern const Translator kCeridianWebTranslator = MapTranslator<kCeridianWebMap>(MapInput::Lines);
extern const Translator kShelbyTranslator = MapTranslator<kShelbyMap>(MapInput::Lines);
extern const Translator kAveOTTranslator = MapTranslator<kAveOTMap>(MapInput::Lines);

}  // namespace corvane
