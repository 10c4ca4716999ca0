// The exports of punch clocks kept at the client's site: "TruTime" (a printed hours summary),
// "Q-quest ETC 200", "TimeTrak", "TLH" and "Konetix v4.1" (fixed records). The layouts are
// told in their pages under docs/formats.
#include <array>

#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// Hours and dollars written without their point go out with two places.
constexpr std::string_view kTwoPlaces = "0.00";

// "TruTime": the hours summary, one line per employee and rate. Headings, page breaks, blank
// lines and the totals line have no clock number in columns 1 to 9.
bool TruTimeEmployeeLine(std::string_view line) {
  if (line.size() < 9) return false;
  bool digit = false;
  for (char c : line.substr(0, 9)) {
    if (c >= '0' && c <= '9') {
      digit = true;
    } else if (c != ' ') {
      return false;
    }
  }
  return digit;
}

constexpr std::array<PayCode, 2> kTruTimeRates{{
    {"Rate1", Cat::Reg},
    {"Rate2", Cat::OT},
}};

constexpr ColumnMap kTruTimeMap{
    .translator = "TruTime",
    .is_record = TruTimeEmployeeLine,
    // the summary may end on an employee's line when the totals are switched off
    .translate_last_line = true,
    .employee = Slice(1, 9),
    .name = Slice(11, 25),
    .code_rule = CodeRule::Lookup,
    .code = Slice(37, 5),
    .code_hours = Slice(43, 8),
    .codes = kTruTimeRates,
};

// "Q-quest ETC 200": one employee a record with a column per pay category; figures are
// written with their point and go out as written.
constexpr std::array<PayColumn, 6> kQquestPay{{
    {Slice(56, 8), Figure::Hours, Cat::Reg},
    {Slice(64, 8), Figure::Hours, Cat::OT},       // "OT1"
    {Slice(72, 8), Figure::Hours, Cat::Tips},     // "Hol"
    {Slice(80, 8), Figure::Hours, Cat::Sales},    // "Sick"
    {Slice(88, 8), Figure::Hours, Cat::Misc},     // "Vac"
    {Slice(96, 10), Figure::Dollars, Cat::Disb},  // "Disburs": tips paid out
}};

constexpr ColumnMap kQquestMap{
    .translator = "Qquest",
    .employee = Slice(1, 9),
    .name = Slice(10, 30),
    .payrate = Slice(49, 7),
    .ssn = Slice(40, 9),
    .pay = kQquestPay,
};

// "TimeTrak": one pay code a record, by the clock's three-letter codes.
constexpr std::array<PayCode, 34> kTimeTrakCodes{{
    {"REG", Cat::Reg},
    {"OT", Cat::OT},
    {"SIC", Cat::Dbl},
    {"VAC", Cat::Tips},
    {"SAL", Cat::Sales, Figure::Dollars},
    {"BER", Cat::Misc},
    {"COM", Cat::Disb, Figure::Dollars},
    {"BON", Cat::Abs, Figure::Dollars},
    {"HOL", Cat::Hol},
    {"JUR", Cat::AdjH},
    {"CHG", Cat::AdjD, Figure::Dollars},
    {"DT", Cat::WaitReg},
    {"RET", Cat::WaitOT, Figure::Dollars},
    {"SEV", Cat::CCTips, Figure::Dollars},
    {"INC", Cat::e15, Figure::Dollars},
    {"RG2", Cat::e16},
    {"OT2", Cat::e17},
    {"RG3", Cat::e18},
    {"OT3", Cat::e19},
    {"RG4", Cat::e20},
    {"OT4", Cat::e21},
    {"RG5", Cat::e22},
    {"OT5", Cat::e23},
    {"RG6", Cat::e24},
    {"OT6", Cat::e25},
    {"RG7", Cat::e26},
    {"OT7", Cat::e27},
    {"RG8", Cat::e28},
    {"OT8", Cat::e29},
    {"RG9", Cat::e30},
    {"OT9", Cat::e31},
    {"R10", Cat::e32},
    {"O10", Cat::e33},
    {"MIS", Cat::e34, Figure::Dollars},
}};

constexpr ColumnMap kTimeTrakMap{
    .translator = "TT",
    .employee = Slice(1, 9),
    .name = Slice(10, 25),
    .code_rule = CodeRule::Lookup,
    .code = Slice(35, 3),
    .code_hours = Slice(38, 8, 2),
    .code_dollars = Slice(46, 10, 2),
    .codes = kTimeTrakCodes,
    .hours_picture = kTwoPlaces,
    .dollars_picture = kTwoPlaces,
};

// "TLH": one pay code a record, by the words the clock prints; every code pays hours.
constexpr std::array<PayCode, 8> kTLHCodes{{
    {"RG", Cat::Reg},
    {"OT", Cat::OT},
    {"S", Cat::Dbl},
    {"V", Cat::Tips},
    {"BAY", Cat::Sales},
    {"BIR", Cat::Misc},
    {"Hol", Cat::Hol},
    {"Funeral", Cat::Disb},
}};

constexpr ColumnMap kTLHMap{
    .translator = "TLH",
    .employee = Slice(7, 9),
    .name = Slice(16, 25),
    .code_rule = CodeRule::Lookup,
    .code = Slice(41, 8),
    .code_hours = Slice(49, 7, 2),
    .codes = kTLHCodes,
    .hours_picture = kTwoPlaces,
};

// "Konetix v4.1": one pay item a record, naming its own earning code.
constexpr ColumnMap kKonetixMap{
    .translator = "Konetix",
    .employee = Slice(1, 10),
    .name = Slice(11, 30),
    .code_rule = CodeRule::FromRecord,
    .code = Slice(50, 5),
    .dore = Slice(49, 1),
    .code_hours = Slice(55, 8, 2),
    .code_dollars = Slice(63, 10, 2),
    .hours_picture = kTwoPlaces,
    .dollars_picture = kTwoPlaces,
};

}  // namespace

extern const Translator kTruTimeTranslator = MapTranslator<kTruTimeMap>(MapInput::Lines);
extern const Translator kQquestTranslator = MapTranslator<kQquestMap>(MapInput::Lines);
extern const Translator kTTTranslator = MapTranslator<kTimeTrakMap>(MapInput::Lines);
extern const Translator kTLHTranslator = MapTranslator<kTLHMap>(MapInput::Lines);
extern const Translator kKonetixTranslator = MapTranslator<kKonetixMap>(MapInput::Lines);

}  // namespace corvane
