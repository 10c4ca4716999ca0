// What the line and fixed exports of ADI, BGS, Gradience, Homewatch and Lathem share: which
// lines are employee records, and the pay columns of their maps.
#pragma once

#include <string_view>

#include "pipeline/column_map.hpp"

namespace corvane {

// An employee number is all digits, so a record begins with one; headings, rules, page
// breaks and total lines do not.
inline bool BeginsWithDigit(std::string_view line) {
  return !line.empty() && line.front() >= '0' && line.front() <= '9';
}

// A figure paid under a category's boxes.
constexpr PayColumn PaidAs(Column column, Cat category, Figure kind = Figure::Hours) {
  PayColumn pay;
  pay.column = column;
  pay.category = category;
  pay.kind = kind;
  return pay;
}

// Hours paid by the company's earning code for a numbered pay designation.
constexpr PayColumn Designation(Column column, int position) {
  PayColumn pay;
  pay.column = column;
  pay.position = position;
  return pay;
}

}  // namespace corvane
