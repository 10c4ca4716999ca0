// Workbook access. A workbook is read whole when opened and kept as sparse sheets, so the
// readers ask for cells by column letter and row as often as they like without touching the
// file again. Exports come from many time clocks and are not to be trusted: whatever the
// bytes, opening gives a workbook or raises 1004, and never more than bounded work. The
// two file formats have readers of their own (workbook_xls.cpp, workbook_xlsx.cpp).
#include "runtime/workbook.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <utility>

#include "runtime/errors.hpp"

namespace corvane {

using workbook_detail::FoldCase;
using workbook_detail::Unreadable;

namespace {

bool SameNameIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldCase(static_cast<unsigned char>(a[i])) != FoldCase(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}

// ---------------------------------------------------------------------------------------
// Dates. A date cell comes back the way the system prints a date: m/d/yyyy, with the time
// of day after it ("1/15/2024 1:45:00 PM") only when there is one, and a bare time of day
// ("8:30:00 AM") for a time with no date.

// Days since 1970-01-01 of a civil date, and back.
constexpr long DaysFromCivil(long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long era = (y >= 0 ? y : y - 399) / 400;
  const auto yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long>(doe) - 719468;
}

void CivilFromDays(long z, long& y, unsigned& m, unsigned& d) {
  z += 719468;
  const long era = (z >= 0 ? z : z - 146096) / 146097;
  const auto doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = doy - (153 * mp + 2) / 5 + 1;
  m = mp < 10 ? mp + 3 : mp - 9;
  y = static_cast<long>(yoe) + era * 400 + (m <= 2);
}

std::string DateText(long y, unsigned m, unsigned d) {
  return std::to_string(m) + "/" + std::to_string(d) + "/" + std::to_string(y);
}

std::string TimeText(long seconds) {
  const long h = seconds / 3600;
  const long mi = (seconds / 60) % 60;
  const long s = seconds % 60;
  const long h12 = h % 12 == 0 ? 12 : h % 12;
  char buf[32];
  std::snprintf(buf, sizeof buf, "%ld:%02ld:%02ld %s", h12, mi, s, h < 12 ? "AM" : "PM");
  return buf;
}

// day 0 is 1899-12-30, the day the system's dates count from.
constexpr long kSerialEpoch = DaysFromCivil(1899, 12, 30);
constexpr double kLastSerial = 2958465.0;  // 12/31/9999

}  // namespace

namespace workbook_detail {

void Unreadable() {
  Raise(kWorkbookError);
}

// The system's text is single-byte: each character up to U+00FF becomes its byte, anything
// above (or a broken sequence) becomes "?".
std::string Utf8ToLatin1(std::string_view in) {
  std::string out;
  out.reserve(in.size());
  std::size_t i = 0;
  while (i < in.size()) {
    const auto b = static_cast<unsigned char>(in[i]);
    if (b < 0x80) {
      out.push_back(static_cast<char>(b));
      ++i;
      continue;
    }
    int extra = 0;
    std::uint32_t cp = 0;
    if ((b & 0xE0) == 0xC0) {
      extra = 1;
      cp = b & 0x1F;
    } else if ((b & 0xF0) == 0xE0) {
      extra = 2;
      cp = b & 0x0F;
    } else if ((b & 0xF8) == 0xF0) {
      extra = 3;
      cp = b & 0x07;
    } else {
      out.push_back('?');
      ++i;
      continue;
    }
    std::size_t j = i + 1;
    bool ok = true;
    for (int k = 0; k < extra; ++k, ++j) {
      if (j >= in.size() || (static_cast<unsigned char>(in[j]) & 0xC0) != 0x80) {
        ok = false;
        break;
      }
      cp = (cp << 6) | (static_cast<unsigned char>(in[j]) & 0x3F);
    }
    if (!ok) {
      out.push_back('?');
      i = j > i + 1 ? j : i + 1;
      continue;
    }
    out.push_back(cp <= 0xFF ? static_cast<char>(cp) : '?');
    i = j;
  }
  return out;
}

// Case folding over the single-byte character set.
unsigned char FoldCase(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 32);
  return c;
}

// The printed date of a day serial with its fraction of a day; nullopt where the number is
// no date the system could hold, so that it stays a number.
std::optional<std::string> SerialDateText(double serial, bool date1904) {
  if (!std::isfinite(serial) || serial < 0) return std::nullopt;
  if (date1904) serial += 1462;
  if (serial >= kLastSerial + 1) return std::nullopt;
  long days = static_cast<long>(std::floor(serial));
  long seconds = std::lround((serial - static_cast<double>(days)) * 86400.0);
  if (seconds >= 86400) {
    ++days;
    seconds = 0;
  }
  if (days == 0 && seconds != 0) return TimeText(seconds);
  long y;
  unsigned m, d;
  CivilFromDays(days + kSerialEpoch, y, m, d);
  std::string text = DateText(y, m, d);
  if (seconds != 0) text += " " + TimeText(seconds);
  return text;
}

// Reads "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" (or with "T"), or "hh:mm:ss".
std::optional<std::string> IsoDateText(std::string_view s) {
  auto number = [&s](std::size_t pos, std::size_t len, long& out) {
    if (pos + len > s.size()) return false;
    out = 0;
    for (std::size_t i = pos; i < pos + len; ++i) {
      if (s[i] < '0' || s[i] > '9') return false;
      out = out * 10 + (s[i] - '0');
    }
    return true;
  };
  auto time = [&](std::size_t pos, long& seconds) {
    long h, mi, sec;
    if (!number(pos, 2, h) || s.size() < pos + 8 || s[pos + 2] != ':' || !number(pos + 3, 2, mi) ||
        s[pos + 5] != ':' || !number(pos + 6, 2, sec))
      return false;
    if (h > 23 || mi > 59 || sec > 59) return false;
    seconds = h * 3600 + mi * 60 + sec;
    return true;
  };
  long seconds = 0;
  if (s.size() >= 3 && s[2] == ':') {
    if (!time(0, seconds)) return std::nullopt;
    return TimeText(seconds);
  }
  long y, m, d;
  if (!number(0, 4, y) || s.size() < 10 || s[4] != '-' || !number(5, 2, m) || s[7] != '-' ||
      !number(8, 2, d))
    return std::nullopt;
  if (m < 1 || m > 12 || d < 1 || d > 31) return std::nullopt;
  if (s.size() > 10 && (s[10] == ' ' || s[10] == 'T') && !time(11, seconds)) return std::nullopt;
  std::string text = DateText(y, static_cast<unsigned>(m), static_cast<unsigned>(d));
  if (seconds != 0) text += " " + TimeText(seconds);
  return text;
}

void Budget::Add(const Value& v) {
  if (++cells_ > kMaxCells) Unreadable();
  text_bytes_ += v.text().size();
  if (text_bytes_ > kMaxTextBytes) Unreadable();
}

}  // namespace workbook_detail

// ---------------------------------------------------------------------------------------
// Sheets and workbooks

Sheet::Sheet(std::string name, std::vector<Entry> cells) : name_(std::move(name)) {
  std::stable_sort(cells.begin(), cells.end(), [](const Entry& a, const Entry& b) {
    return a.row != b.row ? a.row < b.row : a.column < b.column;
  });
  // A cell given twice keeps its last value; blank cells are not kept.
  for (auto& e : cells) {
    if (!cells_.empty() && cells_.back().row == e.row && cells_.back().column == e.column) {
      cells_.back().value = std::move(e.value);
    } else {
      cells_.push_back(std::move(e));
    }
  }
  std::erase_if(cells_, [](const Entry& e) { return e.value.IsBlank(); });
  // An empty string holds nothing, so it does not extend the used rows.
  for (const auto& e : cells_) {
    if (e.value.IsText() && e.value.text().empty()) continue;
    if (first_row_ == 0) first_row_ = e.row;
    last_row_ = e.row;
  }
}

Value Sheet::Cell(std::string_view column, long row) const {
  return Cell(ColumnNumber(column), row);
}

Value Sheet::Cell(int column, long row) const {
  const auto it =
      std::lower_bound(cells_.begin(), cells_.end(), std::make_pair(row, column),
                       [](const Entry& e, const std::pair<long, int>& key) {
                         return e.row != key.first ? e.row < key.first : e.column < key.second;
                       });
  if (it == cells_.end() || it->row != row || it->column != column) return {};
  return it->value;
}

long Sheet::UsedRangeRows() const {
  return first_row_ == 0 ? 0 : last_row_ - first_row_ + 1;
}

Value Sheet::LastRow() const {
  return last_row_ == 0 ? Value() : Value(last_row_);
}

Workbook::Workbook(std::vector<Sheet> sheets, int active)
    : sheets_(std::move(sheets)),
      active_(active >= 1 && active <= static_cast<int>(sheets_.size()) ? active : 1) {}

const Sheet& Workbook::SheetAt(int index) const {
  if (index < 1 || index > SheetCount()) Raise(kSubscriptOutOfRange);
  return sheets_[static_cast<std::size_t>(index - 1)];
}

const Sheet& Workbook::SheetByName(std::string_view name) const {
  for (const auto& sheet : sheets_) {
    if (SameNameIgnoringCase(sheet.Name(), name)) return sheet;
  }
  Raise(kSubscriptOutOfRange);
}

std::unique_ptr<Workbook> Workbook::Open(const std::string& path) {
  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (path.empty() || !std::filesystem::exists(status)) Raise(kFileNotFound);
  if (!std::filesystem::is_regular_file(status)) Unreadable();

  // The kind of file shows in its first bytes, whatever its name says.
  std::array<unsigned char, 8> magic{};
  {
    std::ifstream in(path, std::ios::binary);
    if (!in) Unreadable();
    in.read(reinterpret_cast<char*>(magic.data()), magic.size());
    if (in.gcount() < 4) Unreadable();
  }
  static constexpr std::array<unsigned char, 8> kOle2 = {0xD0, 0xCF, 0x11, 0xE0,
                                                         0xA1, 0xB1, 0x1A, 0xE1};
  if (magic == kOle2) return std::make_unique<Workbook>(workbook_detail::ReadXls(path));
  if (magic[0] == 'P' && magic[1] == 'K') return workbook_detail::ReadXlsx(path);
  Unreadable();
}

int ColumnNumber(std::string_view letters) {
  if (letters.empty() || letters.size() > 3) Raise(kInvalidCall);
  int n = 0;
  for (char c : letters) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c < 'A' || c > 'Z') Raise(kInvalidCall);
    n = n * 26 + (c - 'A' + 1);
  }
  return n;
}

}  // namespace corvane