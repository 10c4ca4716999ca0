// "SEI": the labour summary report, cut at fixed columns. Page headings, rules and totals are
// told from employee lines by the six-digit number an employee's line begins with.
#include <cctype>

#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

bool SEI_IsEmployee(std::string_view line) {
  if (line.size() < 6) return false;
  for (char c : line.substr(0, 6)) {
    if (std::isdigit(static_cast<unsigned char>(c)) == 0) return false;
  }
  return true;
}

const PayColumn kSEIPay[] = {
    {.column = Slice(34, 8), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Slice(43, 8), .kind = Figure::Hours, .category = Cat::OT},
};

// 1-6 employee number, 8-32 name, 34-41 regular hours, 43-50 overtime hours
constexpr ColumnMap kSEI{
    .translator = "SEI",
    .is_record = SEI_IsEmployee,
    .employee = Slice(1, 6),
    .name = Slice(8, 25),
    .pay = kSEIPay,
};

}  // namespace

extern const Translator kSEITranslator = MapTranslator<kSEI>(MapInput::Lines);

}  // namespace corvane
