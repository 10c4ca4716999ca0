// Reading the zipped XML workbook format (.xlsx) through libzip and expat.
#include <expat.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "runtime/workbook.hpp"

namespace corvane::workbook_detail {

namespace {

// Bounds on one part: its unpacked size, its shared strings, its cell styles.
constexpr std::uint64_t kMaxPartBytes = 256ull << 20;
constexpr std::size_t kMaxSharedStrings = 2'000'000;
constexpr std::size_t kMaxStyles = 1'000'000;

void AppendUtf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Cell text in the zipped format spells characters XML cannot carry (a carriage return, a
// tab in some writers) as _xHHHH_; "_x005F_" escapes a literal underscore.
std::string DecodeEscapes(std::string_view in) {
  if (in.find("_x") == std::string_view::npos) return std::string(in);
  std::string out;
  out.reserve(in.size());
  std::size_t i = 0;
  while (i < in.size()) {
    if (in[i] == '_' && i + 6 < in.size() && in[i + 1] == 'x' && in[i + 6] == '_') {
      std::uint32_t cp = 0;
      bool ok = true;
      for (std::size_t k = i + 2; k < i + 6; ++k) {
        const int d = HexDigit(in[k]);
        if (d < 0) {
          ok = false;
          break;
        }
        cp = cp * 16 + static_cast<std::uint32_t>(d);
      }
      if (ok) {
        AppendUtf8(out, cp);
        i += 7;
        continue;
      }
    }
    out.push_back(in[i]);
    ++i;
  }
  return out;
}

bool IsXmlSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string_view TrimXmlSpace(std::string_view s) {
  while (!s.empty() && IsXmlSpace(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsXmlSpace(s.back())) s.remove_suffix(1);
  return s;
}

// A whole non-negative decimal number no greater than limit, blanks around allowed.
std::optional<long> ParseIndex(std::string_view s, long limit) {
  s = TrimXmlSpace(s);
  if (s.empty()) return std::nullopt;
  long n = 0;
  for (char c : s) {
    if (c < '0' || c > '9') return std::nullopt;
    n = n * 10 + (c - '0');
    if (n > limit) return std::nullopt;
  }
  return n;
}

// Whether a number format shows a date or a time of day. Quoted text, escaped characters
// and bracketed parts (colours, locales, conditions) show nothing; a format built only on
// elapsed time ("[h]:mm") shows a duration, which stays a number.
bool FormatShowsDate(std::string_view code) {
  bool date = false, time = false, elapsed = false;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (c == '"') {
      const std::size_t close = code.find('"', i + 1);
      if (close == std::string_view::npos) break;
      i = close;
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == '[') {
      const std::size_t close = code.find(']', i + 1);
      if (close == std::string_view::npos) break;
      const std::string_view inner = code.substr(i + 1, close - i - 1);
      if (!inner.empty()) {
        const char first = static_cast<char>(FoldCase(static_cast<unsigned char>(inner[0])));
        if ((first == 'h' || first == 'm' || first == 's') &&
            std::all_of(inner.begin(), inner.end(), [first](char x) {
              return static_cast<char>(FoldCase(static_cast<unsigned char>(x))) == first;
            }))
          elapsed = true;
      }
      i = close;
    } else {
      const char f = static_cast<char>(FoldCase(static_cast<unsigned char>(c)));
      if (f == 'd' || f == 'y') date = true;
      if (f == 'm' || f == 'h' || f == 's') time = true;
    }
  }
  return date || (time && !elapsed);
}

// The built-in formats that show dates or times of day (14 to 22, and the minute-second
// ones); 46 is elapsed time.
bool BuiltinShowsDate(long id) {
  return (id >= 14 && id <= 22) || id == 45 || id == 47;
}

// Receives the elements of one part. Names arrive without their namespace, so that both
// the transitional and the strict vocabularies read alike. A handler never throws into the
// parser: it calls Fail(), which stops the parse and makes the part unreadable.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  virtual void Start(std::string_view name, const XML_Char** attrs) = 0;
  virtual void End(std::string_view name) = 0;
  virtual void Text(std::string_view) {}

  void Fail() {
    failed_ = true;
    if (parser_ != nullptr) XML_StopParser(parser_, XML_FALSE);
  }
  bool failed() const { return failed_; }
  void set_parser(XML_Parser p) { parser_ = p; }

 protected:
  // An attribute without a namespace ("r", "t", "s").
  static const char* Attr(const XML_Char** attrs, std::string_view name) {
    for (int i = 0; attrs[i] != nullptr; i += 2) {
      if (name == attrs[i]) return attrs[i + 1];
    }
    return nullptr;
  }
  // A namespaced attribute by its local name, such as the relationship id "r:id".
  static const char* NamespacedAttr(const XML_Char** attrs, std::string_view local) {
    for (int i = 0; attrs[i] != nullptr; i += 2) {
      const std::string_view n = attrs[i];
      const std::size_t bar = n.rfind('|');
      if (bar != std::string_view::npos && n.substr(bar + 1) == local) return attrs[i + 1];
    }
    return nullptr;
  }
  static bool PreservesSpace(const XML_Char** attrs) {
    for (int i = 0; attrs[i] != nullptr; i += 2) {
      if (std::string_view(attrs[i]) == "http://www.w3.org/XML/1998/namespace|space")
        return std::string_view(attrs[i + 1]) == "preserve";
    }
    return false;
  }

 private:
  XML_Parser parser_ = nullptr;
  bool failed_ = false;
};

std::string_view LocalName(const XML_Char* name) {
  std::string_view n = name;
  const std::size_t bar = n.rfind('|');
  return bar == std::string_view::npos ? n : n.substr(bar + 1);
}

extern "C" {
static void OnStart(void* data, const XML_Char* name, const XML_Char** attrs) {
  auto* h = static_cast<XmlHandler*>(data);
  if (h->failed()) return;
  try {
    h->Start(LocalName(name), attrs);
  } catch (...) {
    h->Fail();
  }
}
static void OnEnd(void* data, const XML_Char* name) {
  auto* h = static_cast<XmlHandler*>(data);
  if (h->failed()) return;
  try {
    h->End(LocalName(name));
  } catch (...) {
    h->Fail();
  }
}
static void OnText(void* data, const XML_Char* s, int len) {
  auto* h = static_cast<XmlHandler*>(data);
  if (h->failed() || len <= 0) return;
  try {
    h->Text(std::string_view(s, static_cast<std::size_t>(len)));
  } catch (...) {
    h->Fail();
  }
}
// The parts of a workbook never carry a document type; one that does is refused before
// its entities can be declared, let alone expanded.
static void OnDoctype(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int) {
  static_cast<XmlHandler*>(data)->Fail();
}
}

struct ZipCloser {
  void operator()(zip_t* z) const { zip_discard(z); }
};
struct ZipFileCloser {
  void operator()(zip_file_t* f) const { zip_fclose(f); }
};
struct ParserFree {
  void operator()(XML_Parser p) const { XML_ParserFree(p); }
};

class Package {
 public:
  explicit Package(const std::string& path) {
    int error = 0;
    zip_.reset(zip_open(path.c_str(), ZIP_RDONLY, &error));
    if (!zip_) Unreadable();
  }

  bool Has(const std::string& part) const { return Locate(part) >= 0; }

  // Parses a part through the handler; false when the package has no such part. A part
  // that cannot be unpacked or parsed, or that unpacks beyond the bound, is unreadable.
  bool Parse(const std::string& part, XmlHandler& handler) const {
    const zip_int64_t index = Locate(part);
    if (index < 0) return false;
    std::unique_ptr<zip_file_t, ZipFileCloser> file(
        zip_fopen_index(zip_.get(), static_cast<zip_uint64_t>(index), 0));
    if (!file) Unreadable();
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserFree> parser(
        XML_ParserCreateNS(nullptr, '|'));
    if (!parser) Unreadable();
    XML_SetUserData(parser.get(), &handler);
    XML_SetElementHandler(parser.get(), OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser.get(), OnText);
    XML_SetStartDoctypeDeclHandler(parser.get(), OnDoctype);
    handler.set_parser(parser.get());

    std::array<char, 65536> buffer;
    std::uint64_t total = 0;
    bool ok = true;
    for (;;) {
      const zip_int64_t n = zip_fread(file.get(), buffer.data(), buffer.size());
      if (n < 0) {
        ok = false;
        break;
      }
      total += static_cast<std::uint64_t>(n);
      if (total > kMaxPartBytes) {
        ok = false;
        break;
      }
      const bool last = n == 0;
      if (XML_Parse(parser.get(), buffer.data(), static_cast<int>(n), last ? 1 : 0) !=
          XML_STATUS_OK) {
        ok = false;
        break;
      }
      if (last) break;
    }
    handler.set_parser(nullptr);
    if (!ok || handler.failed()) Unreadable();
    return true;
  }

 private:
  zip_int64_t Locate(const std::string& part) const {
    if (part.empty()) return -1;
    return zip_name_locate(zip_.get(), part.c_str(), ZIP_FL_NOCASE);
  }

  std::unique_ptr<zip_t, ZipCloser> zip_;
};

// Part names: a relationship's target is relative to the folder of the part that names
// it, or absolute from the package root.
std::string FolderOf(const std::string& part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string::npos ? std::string() : part.substr(0, slash + 1);
}

std::string ResolvePart(const std::string& folder, std::string_view target) {
  std::string joined = !target.empty() && target.front() == '/' ? std::string(target.substr(1))
                                                                : folder + std::string(target);
  std::vector<std::string> segments;
  std::size_t start = 0;
  while (start <= joined.size()) {
    std::size_t slash = joined.find('/', start);
    if (slash == std::string::npos) slash = joined.size();
    const std::string segment = joined.substr(start, slash - start);
    if (segment == "..") {
      if (!segments.empty()) segments.pop_back();
    } else if (!segment.empty() && segment != ".") {
      segments.push_back(segment);
    }
    start = slash + 1;
  }
  std::string out;
  for (const auto& s : segments) {
    if (!out.empty()) out += '/';
    out += s;
  }
  return out;
}

bool EndsWith(std::string_view s, std::string_view tail) {
  return s.size() >= tail.size() && s.substr(s.size() - tail.size()) == tail;
}

struct Relationship {
  std::string type;
  std::string part;
};

class RelsHandler : public XmlHandler {
 public:
  explicit RelsHandler(std::string folder) : folder_(std::move(folder)) {}
  std::map<std::string, Relationship> by_id;

  void Start(std::string_view name, const XML_Char** attrs) override {
    if (name != "Relationship") return;
    const char* id = Attr(attrs, "Id");
    const char* type = Attr(attrs, "Type");
    const char* target = Attr(attrs, "Target");
    const char* mode = Attr(attrs, "TargetMode");
    if (id == nullptr || target == nullptr) return;
    if (mode != nullptr && std::string_view(mode) == "External") return;
    by_id[id] = {type != nullptr ? type : "", ResolvePart(folder_, target)};
  }
  void End(std::string_view) override {}

  // The first relationship whose type ends with the given name ("/styles").
  std::string PartOfType(std::string_view type_tail) const {
    for (const auto& [id, rel] : by_id) {
      if (EndsWith(rel.type, type_tail)) return rel.part;
    }
    return {};
  }

 private:
  std::string folder_;
};

std::string RelsPartOf(const std::string& part) {
  const std::size_t slash = part.rfind('/');
  const std::string folder = slash == std::string::npos ? "" : part.substr(0, slash + 1);
  const std::string file = slash == std::string::npos ? part : part.substr(slash + 1);
  return folder + "_rels/" + file + ".rels";
}

class WorkbookPartHandler : public XmlHandler {
 public:
  struct SheetRef {
    std::string name;
    std::string rel_id;
  };
  std::vector<SheetRef> sheets;
  bool date1904 = false;
  long active_tab = 0;

  void Start(std::string_view name, const XML_Char** attrs) override {
    if (name == "sheet") {
      if (sheets.size() >= 65535) return Fail();
      const char* n = Attr(attrs, "name");
      const char* id = NamespacedAttr(attrs, "id");
      sheets.push_back({n != nullptr ? n : "", id != nullptr ? id : ""});
    } else if (name == "workbookPr") {
      const char* v = Attr(attrs, "date1904");
      if (v != nullptr) date1904 = std::string_view(v) == "1" || std::string_view(v) == "true";
    } else if (name == "workbookView" && !seen_view_) {
      seen_view_ = true;
      const char* v = Attr(attrs, "activeTab");
      if (v != nullptr) active_tab = ParseIndex(v, 65535).value_or(0);
    }
  }
  void End(std::string_view) override {}

 private:
  bool seen_view_ = false;
};

// The shared strings: each item is its text, or the runs of its rich text joined; the
// phonetic guides some items carry are not part of the text.
class SharedStringsHandler : public XmlHandler {
 public:
  std::vector<std::string> strings;

  void Start(std::string_view name, const XML_Char** attrs) override {
    if (name == "si") {
      in_item_ = true;
      item_.clear();
    } else if (name == "rPh") {
      ++phonetic_;
    } else if (name == "t" && in_item_ && phonetic_ == 0) {
      in_text_ = true;
      preserve_ = PreservesSpace(attrs);
      text_.clear();
    }
  }
  void End(std::string_view name) override {
    if (name == "t" && in_text_) {
      in_text_ = false;
      item_ += preserve_ ? std::string_view(text_) : TrimXmlSpace(text_);
    } else if (name == "rPh") {
      if (phonetic_ > 0) --phonetic_;
    } else if (name == "si" && in_item_) {
      in_item_ = false;
      if (strings.size() >= kMaxSharedStrings) return Fail();
      strings.push_back(Utf8ToLatin1(DecodeEscapes(item_)));
    }
  }
  void Text(std::string_view s) override {
    if (in_text_) text_ += s;
  }

 private:
  bool in_item_ = false;
  bool in_text_ = false;
  bool preserve_ = false;
  int phonetic_ = 0;
  std::string item_;
  std::string text_;
};

// The number format of each cell style, so that date cells can be told from numbers.
class StylesHandler : public XmlHandler {
 public:
  std::map<long, std::string> custom_formats;
  std::vector<long> style_formats;  // by style index

  void Start(std::string_view name, const XML_Char** attrs) override {
    if (name == "numFmt") {
      const char* id = Attr(attrs, "numFmtId");
      const char* code = Attr(attrs, "formatCode");
      if (id == nullptr || code == nullptr) return;
      if (auto n = ParseIndex(id, 1'000'000)) custom_formats[*n] = code;
    } else if (name == "cellXfs") {
      in_cell_styles_ = true;
    } else if (name == "xf" && in_cell_styles_) {
      if (style_formats.size() >= kMaxStyles) return Fail();
      const char* id = Attr(attrs, "numFmtId");
      style_formats.push_back(id != nullptr ? ParseIndex(id, 1'000'000).value_or(0) : 0);
    }
  }
  void End(std::string_view name) override {
    if (name == "cellXfs") in_cell_styles_ = false;
  }

  std::vector<bool> DateStyles() const {
    std::vector<bool> out;
    out.reserve(style_formats.size());
    for (long id : style_formats) {
      const auto custom = custom_formats.find(id);
      out.push_back(custom != custom_formats.end() ? FormatShowsDate(custom->second)
                                                   : BuiltinShowsDate(id));
    }
    return out;
  }

 private:
  bool in_cell_styles_ = false;
};

// A cell reference such as "AB12"; nullopt when malformed or beyond the grid.
std::optional<std::pair<int, long>> ParseReference(std::string_view ref) {
  std::size_t i = 0;
  int column = 0;
  while (i < ref.size() && ((ref[i] >= 'A' && ref[i] <= 'Z') || (ref[i] >= 'a' && ref[i] <= 'z'))) {
    column = column * 26 + (FoldCase(static_cast<unsigned char>(ref[i])) - 'a' + 1);
    if (column > kMaxColumn) return std::nullopt;
    ++i;
  }
  if (column == 0) return std::nullopt;
  const auto row = ParseIndex(ref.substr(i), kMaxRow);
  if (!row || *row < 1 || ref.substr(i).empty() || IsXmlSpace(ref[i])) return std::nullopt;
  return std::make_pair(column, *row);
}

class WorksheetHandler : public XmlHandler {
 public:
  WorksheetHandler(const std::vector<std::string>& shared, const std::vector<bool>& date_styles,
                   bool date1904, Budget& budget)
      : shared_(shared), date_styles_(date_styles), date1904_(date1904), budget_(budget) {}

  std::vector<Sheet::Entry> cells;

  void Start(std::string_view name, const XML_Char** attrs) override {
    if (name == "sheetData") {
      in_data_ = true;
      return;
    }
    if (!in_data_) return;
    if (name == "row") {
      StartRow(attrs);
    } else if (name == "c") {
      StartCell(attrs);
    } else if (!in_cell_) {
      return;
    } else if (name == "v") {
      in_value_ = true;
    } else if (name == "is") {
      in_inline_ = true;
      has_inline_ = true;
    } else if (name == "rPh") {
      ++phonetic_;
    } else if (name == "t" && in_inline_ && phonetic_ == 0) {
      in_text_ = true;
      preserve_ = PreservesSpace(attrs);
      text_.clear();
    }
  }

  void End(std::string_view name) override {
    if (name == "sheetData") {
      in_data_ = false;
    } else if (!in_cell_) {
      return;
    } else if (name == "v") {
      in_value_ = false;
    } else if (name == "t" && in_text_) {
      in_text_ = false;
      inline_ += preserve_ ? std::string_view(text_) : TrimXmlSpace(text_);
    } else if (name == "rPh") {
      if (phonetic_ > 0) --phonetic_;
    } else if (name == "is") {
      in_inline_ = false;
    } else if (name == "c") {
      EndCell();
    }
  }

  void Text(std::string_view s) override {
    if (in_text_) {
      text_ += s;
    } else if (in_value_) {
      value_ += s;
    }
  }

 private:
  void StartRow(const XML_Char** attrs) {
    const char* r = Attr(attrs, "r");
    if (r != nullptr) {
      const auto n = ParseIndex(r, kMaxRow);
      row_ = n && *n >= 1 ? *n : 0;
    } else if (row_ != 0) {
      row_ = row_ < kMaxRow ? row_ + 1 : 0;
    } else if (!any_row_) {
      row_ = 1;
    }
    any_row_ = true;
    column_ = 0;
  }

  // A cell without a reference follows the one before it in its row.
  void StartCell(const XML_Char** attrs) {
    in_cell_ = true;
    in_value_ = in_inline_ = in_text_ = has_inline_ = false;
    phonetic_ = 0;
    value_.clear();
    inline_.clear();
    const char* t = Attr(attrs, "t");
    type_ = t != nullptr ? t : "";
    const char* s = Attr(attrs, "s");
    style_ = s != nullptr ? ParseIndex(s, 1'000'000).value_or(0) : 0;
    const char* r = Attr(attrs, "r");
    if (r != nullptr) {
      if (const auto ref = ParseReference(r)) {
        column_ = ref->first;
        row_ = ref->second;
        any_row_ = true;
        cell_valid_ = true;
      } else {
        cell_valid_ = false;
      }
    } else {
      if (!any_row_) row_ = 1;
      any_row_ = true;
      cell_valid_ = row_ != 0 && column_ < kMaxColumn;
      if (cell_valid_) ++column_;
    }
  }

  void EndCell() {
    in_cell_ = false;
    if (!cell_valid_) return;
    Value v = CellValue();
    if (v.IsBlank()) return;
    budget_.Add(v);
    cells.push_back({row_, column_, std::move(v)});
  }

  Value CellValue() const {
    const std::string_view raw = value_;
    if (type_ == "s") {
      const auto index = ParseIndex(raw, 100'000'000);
      if (!index || static_cast<std::size_t>(*index) >= shared_.size()) return {};
      return Value(shared_[static_cast<std::size_t>(*index)]);
    }
    if (type_ == "inlineStr") {
      return Value(Utf8ToLatin1(DecodeEscapes(has_inline_ ? std::string_view(inline_) : raw)));
    }
    if (type_ == "str") return Value(Utf8ToLatin1(DecodeEscapes(raw)));
    if (type_ == "e") return Value(Utf8ToLatin1(TrimXmlSpace(raw)));
    if (type_ == "b") {
      const std::string_view b = TrimXmlSpace(raw);
      if (b == "1" || b == "true") return Value("True");
      if (b == "0" || b == "false") return Value("False");
      return {};
    }
    if (type_ == "d") {
      if (auto text = IsoDateText(TrimXmlSpace(raw))) return Value(std::move(*text));
      return {};
    }
    if (!type_.empty() && type_ != "n") return {};
    const std::string_view digits = TrimXmlSpace(raw);
    if (digits.empty()) return {};
    double number = 0;
    const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (ec != std::errc() || end != digits.data() + digits.size() || !std::isfinite(number))
      return {};
    if (static_cast<std::size_t>(style_) < date_styles_.size() &&
        date_styles_[static_cast<std::size_t>(style_)]) {
      if (auto text = SerialDateText(number, date1904_)) return Value(std::move(*text));
    }
    return Value(number);
  }

  const std::vector<std::string>& shared_;
  const std::vector<bool>& date_styles_;
  bool date1904_;
  Budget& budget_;

  bool in_data_ = false;
  bool any_row_ = false;
  long row_ = 0;  // 0 while the current row lies outside the grid
  int column_ = 0;

  bool in_cell_ = false;
  bool cell_valid_ = false;
  std::string type_;
  long style_ = 0;
  bool in_value_ = false;
  bool in_inline_ = false;
  bool has_inline_ = false;
  bool in_text_ = false;
  bool preserve_ = false;
  int phonetic_ = 0;
  std::string value_;
  std::string inline_;
  std::string text_;
};

}  // namespace

std::unique_ptr<Workbook> ReadXlsx(const std::string& path) {
  Package package(path);

  // The package's own relationships name the workbook part; the usual name stands in when
  // they are missing.
  std::string workbook_part;
  {
    RelsHandler root("");
    if (package.Parse("_rels/.rels", root)) workbook_part = root.PartOfType("/officeDocument");
    if (workbook_part.empty() || !package.Has(workbook_part)) workbook_part = "xl/workbook.xml";
  }
  WorkbookPartHandler book;
  if (!package.Parse(workbook_part, book) || book.sheets.empty()) Unreadable();

  const std::string folder = FolderOf(workbook_part);
  RelsHandler rels(folder);
  package.Parse(RelsPartOf(workbook_part), rels);

  SharedStringsHandler shared;
  {
    std::string part = rels.PartOfType("/sharedStrings");
    if (part.empty()) part = folder + "sharedStrings.xml";
    package.Parse(part, shared);
  }
  StylesHandler styles;
  {
    std::string part = rels.PartOfType("/styles");
    if (part.empty()) part = folder + "styles.xml";
    package.Parse(part, styles);
  }
  const std::vector<bool> date_styles = styles.DateStyles();

  Budget budget;
  std::vector<Sheet> sheets;
  sheets.reserve(book.sheets.size());
  for (const auto& ref : book.sheets) {
    WorksheetHandler handler(shared.strings, date_styles, book.date1904, budget);
    const auto rel = rels.by_id.find(ref.rel_id);
    // A sheet whose part is absent (or is a chart) has no cells.
    if (rel != rels.by_id.end()) package.Parse(rel->second.part, handler);
    sheets.emplace_back(Utf8ToLatin1(ref.name), std::move(handler.cells));
  }
  const long active = book.active_tab + 1;
  return std::make_unique<Workbook>(
      std::move(sheets),
      active <= static_cast<long>(book.sheets.size()) ? static_cast<int>(active) : 1);
}

}  // namespace corvane::workbook_detail
