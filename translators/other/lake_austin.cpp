// "Lake Austin": a payroll detail report, one pay line a line at fixed columns. Three heading
// lines; the last line is the report's total and is not translated.
#include <cctype>

#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// An employee's line begins with his six-digit number; headings and totals do not.
bool LakeAustin_IsPayLine(std::string_view line) {
  if (line.size() < 6) return false;
  for (char c : line.substr(0, 6)) {
    if (std::isdigit(static_cast<unsigned char>(c)) == 0) return false;
  }
  return true;
}

// The two codes the choice of the format puts in boxes 15 and 16 ("98" and "99").
constexpr PayCode kLakeAustinCodes[] = {
    {"REG", Cat::e15, Figure::Hours},
    {"GRAT", Cat::e16, Figure::Dollars},
};

// 1-6 employee number, 8-32 name, 34-37 pay code, 39-48 hours or dollars
constexpr ColumnMap kLakeAustin{
    .translator = "LakeAustin",
    .heading_lines = 3,
    .is_record = LakeAustin_IsPayLine,
    .employee = Slice(1, 6),
    .name = Slice(8, 25),
    .code_rule = CodeRule::Lookup,
    .code = Slice(34, 4),
    .code_hours = Slice(39, 10),
    .code_dollars = Slice(39, 10),
    .codes = kLakeAustinCodes,
};

}  // namespace

extern const Translator kLakeAustinTranslator = MapTranslator<kLakeAustin>(MapInput::Lines);

}  // namespace corvane
