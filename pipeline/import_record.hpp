// The one import record through which every translator writes a line of the Evolution
// import file. A field keeps its value until somebody overwrites it, and translators rely
// on that.
#pragma once

#include <string>

#include "runtime/value.hpp"

namespace corvane {

struct ImportRecord {
  Value Employee_no;       // field 1, quoted
  Value Employee_Name;     // field 2, quoted
  Value DorE;              // field 6: the D-or-E box of the pay category (also H, M, S)
  Value Earning_Code;      // field 7; "X" marks a code not to be paid
  Value Hours;             // field 9
  std::string Amount;      // field 15, dollars
  Value Division;          // field 17
  Value Branch;            // field 18
  Value Department;        // field 3
  Value Job;               // field 4
  Value payrate;           // field 8
  Value Shift;             // field 5, after the writer's normalisation
  Value Seq;               // field 16
  Value Team;              // field 23 (old format) or 29 (new format)
  std::string SSN;         // field 24
  Value WorkersComp;       // field 25
  Value RateNumber;        // field 26
  std::string State;       // field 19, never set: blank in every line
  Value CorvaneYear;       // field 10, "Denny's DINE - Relco" only
  Value CorvaneMonth;      // field 11, "Denny's DINE - Relco" only
  std::string CorvaneDay;  // field 12, "Denny's DINE - Relco" only
  // Fields 27 and 28 of "Generations": date and time stamps.
  Value Gen_Field27;
  std::string Gen_Field28;
};

}  // namespace corvane
