// The value rules and pictures: the numeric test, field values, comparison, integer
// conversions, printing and number pictures, on any text.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/dates.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"
#include "runtime/value.hpp"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The input is a text, a picture and a second text, split at the first two NUL bytes.
  const std::string_view all(reinterpret_cast<const char*>(data), size);
  const std::size_t a = all.find('\0');
  const std::string_view text = all.substr(0, a);
  const std::string_view rest = a == std::string_view::npos ? "" : all.substr(a + 1);
  const std::size_t b = rest.find('\0');
  const std::string_view picture = rest.substr(0, b);
  const std::string_view other = b == std::string_view::npos ? "" : rest.substr(b + 1);

  const bool numeric = IsNumeric(text);
  if (NumericValue(text).has_value() != numeric) __builtin_trap();
  for (bool quoted : {false, true}) {
    const Value v = FieldValue(text, quoted);
    const Value w = FieldValue(other, !quoted);
    (void)v.str();
    (void)Compare(v, w);
    (void)NumericAbove0(v);
    (void)AtLeast1(v);
    (void)Below(v, w);
    try {
      (void)Format(v, picture);
    } catch (const RuntimeError&) {
    }
    try {
      (void)ToInteger(v);
    } catch (const RuntimeError&) {
    }
    try {
      (void)ToLong(v);
    } catch (const RuntimeError&) {
    }
    try {
      (void)v.ToNumber();
    } catch (const RuntimeError&) {
    }
  }
  (void)ParseDate(text);
  (void)Trim(text);
  try {
    (void)Val(text);  // a figure too large for a double overflows
    (void)Split(text, other.empty() ? "," : other);
    (void)Replace(text, other.empty() ? "," : other, picture);
    (void)InStr(text, other);
  } catch (const RuntimeError&) {
  }
  return 0;
}
