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

constexpr ColumnMap kPayChoiceMap{
    .translator = "PayChoice",
    .fields = 9,
    .text_fields = TextFields({1, 2, 3, 4, 5, 6, 7, 8, 9}),
    .heading_lines = 1,
    .is_record = PayChoiceItem,
    // a line export with no totals line: its last line is a pay item like the others
    .translate_last_line = true,
    .employee = Field(1),
    .name = Field(2),
    .department = Field(3),
    .payrate = Field(8),
    // the product's "Job" column holds the number the payroll matches the employee by
    .ssn = Field(9),
    .code_rule = CodeRule::FromRecord,
    .code = Field(5),
    .dore = Field(4),
    .code_hours = Field(6),
    .code_dollars = Field(7),
};

// "PaySuite": 81 characters and CR LF; figures written with their point.
constexpr ColumnMap kPaySuiteMap{
    .translator = "PaySuite",
    .employee = Slice(1, 9),
    .name = Slice(10, 25),
    .code_rule = CodeRule::FromRecord,
    .code = Slice(36, 4),
    .dore = Slice(35, 1),
    .code_hours = Slice(40, 8),
    .code_dollars = Slice(48, 10),
    .hours_picture = kTwoPlaces,
    .dollars_picture = kTwoPlaces,
};

// "RapidPay": a heading record, detail records, a trailer record, each 127 characters and
// CR LF; the first character tells them apart.
bool RapidPayDetail(std::string_view record) {
  return !record.empty() && record.front() == 'D';
}

constexpr ColumnMap kRapidPayMap{
    .translator = "RapidPay",
    .is_record = RapidPayDetail,
    .employee = Slice(2, 10),
    .name = Slice(12, 30),
    .code_rule = CodeRule::FromRecord,
    .code = Slice(49, 4),
    .dore = Slice(48, 1),
    .code_hours = Slice(53, 9, 2),
    .code_dollars = Slice(62, 11, 2),
    .hours_picture = kTwoPlaces,
    .dollars_picture = kTwoPlaces,
};

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

constexpr ColumnMap kCeridianWebMap{
    .translator = "CeridianWeb",
    .employee = Slice(5, 10),
    .name = Slice(15, 30),
    .code_rule = CodeRule::Lookup,
    .code = Slice(45, 2),
    .code_hours = Slice(47, 11),
    .codes = kCeridianWebCodes,
    .hours_picture = kTwoPlaces,
};

// "Shelby": regular and overtime hours of one employee a record.
constexpr std::array<PayColumn, 2> kShelbyPay{{
    {Slice(46, 7, 2), Figure::Hours, Cat::Reg},
    {Slice(53, 7, 2), Figure::Hours, Cat::OT},
}};

constexpr ColumnMap kShelbyMap{
    .translator = "Shelby",
    .employee = Slice(1, 9),
    .name = Slice(10, 30),
    .pay = kShelbyPay,
    .hours_picture = kTwoPlaces,
};

// "Ave OT": six pay slots a record, each naming its own earning code, so one record may
// send several lines. The slot's average rate is the product's own working and is not sent.
constexpr int kAveOTSlots = 6;
constexpr int kAveOTFirstSlot = 40;
constexpr int kAveOTSlotWidth = 30;

bool AveOT_Slots(frmTimeImport& F);

constexpr ColumnMap kAveOTMap{
    .translator = "AveOT",
    .employee = Slice(1, 9),
    .name = Slice(10, 30),
    .extra = AveOT_Slots,
};

bool AveOT_Slots(frmTimeImport& F) {
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
      column_map::WriteOwnCode(F, code, get(0, 1), Value(Format(hours, kTwoPlaces)), Figure::Hours);
    } else if (NumericAbove0(dollars)) {
      column_map::WriteOwnCode(F, code, get(0, 1), Value(Format(dollars, kTwoPlaces)),
                               Figure::Dollars);
    }
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
