// Number pictures (".00", "###.#0", "000000000", "mmddyyyy", ...).
#pragma once

#include <string>
#include <string_view>

#include "runtime/value.hpp"

namespace corvane {

// format(value, picture): blank gives ""; text that is not numeric comes back unchanged;
// otherwise the number is rounded half away from zero to the places the picture shows and
// written by it: "0" a digit that always prints, "#" a digit that prints only where
// significant, "." the point, "," thousands separators. Extra whole digits always print; a
// negative number gets a leading "-". Date pictures ("mmddyyyy") write a date value or date
// text as two-digit month, two-digit day, four-digit year.
std::string Format(const Value& value, std::string_view picture);

}  // namespace corvane
