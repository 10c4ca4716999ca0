// The text-or-number value: the type of most record and input fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class Value {
 public:
  enum class Kind : std::uint8_t { Blank, Text, Number };

  Value() = default;  // blank
  Value(const char* text) : kind_(Kind::Text), text_(text) {}
  Value(std::string text) : kind_(Kind::Text), text_(std::move(text)) {}
  Value(std::string_view text) : kind_(Kind::Text), text_(text) {}
  Value(double number) : kind_(Kind::Number), number_(number) {}
  Value(int number) : kind_(Kind::Number), number_(number) {}
  Value(long number) : kind_(Kind::Number), number_(static_cast<double>(number)) {}
  Value(long long number) : kind_(Kind::Number), number_(static_cast<double>(number)) {}

  static Value Blank() { return Value(); }

  // In-place assignments: the same value as the constructors give, keeping the text's
  // storage, so that a member filled at every record of an export allocates only for its
  // longest text.
  void SetBlank() {
    kind_ = Kind::Blank;
    number_ = 0.0;
    text_.clear();
  }
  void SetNumber(double number) {
    kind_ = Kind::Number;
    number_ = number;
    text_.clear();
  }
  void SetText(std::string_view text) {
    kind_ = Kind::Text;
    number_ = 0.0;
    if (text.size() <= text_.size()) {
      // no longer than the text held: the characters move in place, and may come from it
      if (!text.empty()) std::memmove(text_.data(), text.data(), text.size());
      text_.resize(text.size());
    } else {
      text_.assign(text.data(), text.size());
    }
  }

  Kind kind() const { return kind_; }
  bool IsBlank() const { return kind_ == Kind::Blank; }
  bool IsText() const { return kind_ == Kind::Text; }
  bool IsNumber() const { return kind_ == Kind::Number; }

  // The characters of a text value; "" for blank and numbers.
  const std::string& text() const { return text_; }
  // The number of a number value; 0 for blank and text.
  double number() const { return kind_ == Kind::Number ? number_ : 0.0; }

  // The printed form: a number as a person writes it ("40", "8.5", "0.5"), blank as "".
  std::string str() const;
  // Appends the printed form to out.
  void AppendTo(std::string& out) const {
    if (kind_ == Kind::Text) {
      out.append(text_);
    } else if (kind_ == Kind::Number) {
      AppendNumber(out);
    }
  }

  // Numbers are numeric; text by the IsNumeric rule; blank is not.
  bool IsNumeric() const;
  // Blank gives 0, numeric text its number; other text raises error 13 "Type mismatch".
  double ToNumber() const;

 private:
  void AppendNumber(std::string& out) const;

  Kind kind_ = Kind::Blank;
  double number_ = 0.0;
  std::string text_;
};

// Comparison by the value rules: numbers (or a number and numeric text) as numbers; two
// texts byte by byte; a number and other text as texts; blank as 0 or "". Returns <0, 0, >0.
int Compare(const Value& a, const Value& b);

inline bool operator==(const Value& a, const Value& b) {
  return Compare(a, b) == 0;
}
inline bool operator!=(const Value& a, const Value& b) {
  return Compare(a, b) != 0;
}
inline bool operator<(const Value& a, const Value& b) {
  return Compare(a, b) < 0;
}
inline bool operator>(const Value& a, const Value& b) {
  return Compare(a, b) > 0;
}
inline bool operator<=(const Value& a, const Value& b) {
  return Compare(a, b) <= 0;
}
inline bool operator>=(const Value& a, const Value& b) {
  return Compare(a, b) >= 0;
}

// A number as the system prints it: up to 15 significant digits, no trailing zeros,
// a leading zero below 1 ("0.5"), no point for whole numbers ("40").
std::string PrintNumber(double number);

// Room for any printed number.
inline constexpr std::size_t kPrintedNumberRoom = 32;
// The printed form of a value without allocating: a number is printed into room (at least
// kPrintedNumberRoom characters), text is its own characters, blank is "".
std::string_view PrintedView(const Value& v, char* room);

// The IsNumeric test on text: blanks, sign, "$", digits with "," in the whole part, a
// fraction, an exponent; or "&H" hex, "&O" octal. At least one digit.
bool IsNumeric(std::string_view text);
// The number of numeric text; nullopt when the text is not numeric.
std::optional<double> NumericValue(std::string_view text);

// A comma field read into a value: a number when unquoted and a plain number (optional
// sign, digits, optional point and fraction, optional exponent); blank when empty and
// unquoted; otherwise text as it stands.
Value FieldValue(std::string_view text, bool quoted);
// The same rule, into an existing value: the comma reader's own path, which keeps the
// value's storage and converts the common short figure ("40", "8.50", "-12.5") in one pass.
void AssignFieldValue(Value& into, std::string_view text, bool quoted);

// Amount tests: numeric whatever the kinds.
bool NumericAbove0(const Value& v);  // IsNumeric and above 0
bool AtLeast1(const Value& v);       // IsNumeric and at least 1
bool IsZero(const Value& v);         // IsNumeric and equal to 0
// A rate below a threshold such as txtMinWage: as numbers when both sides are numeric,
// otherwise as texts (blank as "").
bool Below(const Value& rate, const Value& threshold);

// 16-bit integer conversion (round half to even); raises 6 outside -32768..32767 and 13
// for text that is not numeric.
std::int16_t ToInteger(const Value& v);
// 32-bit integer conversion (round half to even); raises 6 outside the range.
std::int32_t ToLong(const Value& v);

}  // namespace corvane
