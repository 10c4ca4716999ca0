// The catalogue of time clocks that PickTC offers.
#pragma once

#include <span>
#include <string_view>

namespace corvane {

// The 188 names in list order; index 0 is "ABRA".
std::span<const std::string_view> CatalogueNames();
// The list index of a name compared as exact text, -1 when it is not in the list.
int CatalogueIndex(std::string_view name);

}  // namespace corvane
