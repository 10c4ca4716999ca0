// Workbook access: the committed fixtures (tests/fixtures/workbooks/README.md says what each
// holds), and small or hostile workbooks written here at run time.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <zip.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <utility>
#include <vector>

#include "error_of.hpp"
#include "runtime/errors.hpp"
#include "runtime/workbook.hpp"

namespace corvane {
namespace {

namespace fs = std::filesystem;

std::string Fixture(const std::string& name) {
  return std::string(CORVANE_FIXTURES) + "/workbooks/" + name;
}

std::string Show(const Value& v) {
  std::ostringstream out;
  out.precision(17);
  if (v.IsBlank()) out << "blank";
  if (v.IsText()) out << "text \"" << v.text() << "\"";
  if (v.IsNumber()) out << "number " << v.number();
  return out.str();
}

// Exact sameness: kind and contents, not the loose comparison of the value rules.
::testing::AssertionResult Same(const Value& actual, const Value& expected) {
  if (actual.kind() == expected.kind() && actual.text() == expected.text() &&
      actual.number() == expected.number())
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << Show(actual) << ", expected " << Show(expected);
}

using testing::ErrorOf;

class TempDir {
 public:
  TempDir() {
    std::string pattern = (fs::temp_directory_path() / "corvane_wb_XXXXXX").string();
    if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
  }
  ~TempDir() {
    std::error_code ec;
    if (!path_.empty()) fs::remove_all(path_, ec);
  }
  std::string File(const std::string& name) const { return (path_ / name).string(); }
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(File(name), std::ios::binary) << bytes;
    return File(name);
  }

 private:
  fs::path path_;
};

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

using Parts = std::vector<std::pair<std::string, std::string>>;

void WriteZip(const std::string& path, const Parts& parts) {
  int error = 0;
  zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  ASSERT_NE(z, nullptr);
  for (const auto& [name, data] : parts) {
    zip_source_t* src = zip_source_buffer(z, data.data(), data.size(), 0);
    ASSERT_GE(zip_file_add(z, name.c_str(), src, ZIP_FL_OVERWRITE), 0);
  }
  ASSERT_EQ(zip_close(z), 0);
}

constexpr const char* kMain = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr const char* kRel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

// A one-sheet workbook laid out as the spreadsheet applications lay it out.
Parts Xlsx(const std::string& sheet_data, const std::string& shared = "",
           const std::string& styles = "", const std::string& workbook_pr = "") {
  const std::string ns = std::string("xmlns=\"") + kMain + "\" xmlns:r=\"" + kRel + "\"";
  Parts parts = {
      {"_rels/.rels",
       "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
       "<Relationship Id=\"rId1\" Type=\"" +
           std::string(kRel) + "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>"},
      {"xl/workbook.xml", "<workbook " + ns + ">" + workbook_pr +
                              "<sheets><sheet name=\"Data\" sheetId=\"1\" r:id=\"rId1\"/>"
                              "</sheets></workbook>"},
      {"xl/_rels/workbook.xml.rels",
       "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
       "<Relationship Id=\"rId1\" Type=\"" +
           std::string(kRel) +
           "/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
           "<Relationship Id=\"rId2\" Type=\"" +
           kRel +
           "/sharedStrings\" Target=\"sharedStrings.xml\"/>"
           "<Relationship Id=\"rId3\" Type=\"" +
           kRel + "/styles\" Target=\"styles.xml\"/></Relationships>"},
      {"xl/worksheets/sheet1.xml",
       "<worksheet " + ns + "><sheetData>" + sheet_data + "</sheetData></worksheet>"},
  };
  if (!shared.empty())
    parts.push_back(
        {"xl/sharedStrings.xml", "<sst xmlns=\"" + std::string(kMain) + "\">" + shared + "</sst>"});
  if (!styles.empty())
    parts.push_back({"xl/styles.xml", "<styleSheet xmlns=\"" + std::string(kMain) + "\">" + styles +
                                          "</styleSheet>"});
  return parts;
}

// ---------------------------------------------------------------------------------------

TEST(WorkbookColumnNumber, LettersToNumbers) {
  EXPECT_EQ(ColumnNumber("A"), 1);
  EXPECT_EQ(ColumnNumber("Z"), 26);
  EXPECT_EQ(ColumnNumber("AA"), 27);
  EXPECT_EQ(ColumnNumber("az"), 52);
  EXPECT_EQ(ColumnNumber("XFD"), 16384);
  EXPECT_EQ(ColumnNumber("ZZZ"), 18278);
  for (const char* bad : {"", "1", "A1", "ABCD", "A-", " A", "\xC9"})
    EXPECT_EQ(ErrorOf([&] { ColumnNumber(bad); }), 5) << bad;
}

TEST(WorkbookSheet, SparseCellsAndUsedRows) {
  const Sheet sheet("Data", {{5, 2, Value("x")},
                             {2, 1, Value(8.5)},
                             {9, 1, Value("")},
                             {2, 1, Value("dup")},
                             {7, 3, Value()}});
  EXPECT_TRUE(Same(sheet.Cell(1, 2), Value("dup")));  // the later of two cells wins
  EXPECT_TRUE(Same(sheet.Cell("B", 5), Value("x")));
  EXPECT_TRUE(Same(sheet.Cell(1, 9), Value("")));
  EXPECT_TRUE(Same(sheet.Cell(3, 7), Value()));
  EXPECT_TRUE(Same(sheet.Cell(2, 2), Value()));
  // The empty string on row 9 holds nothing: rows 2 to 5 are used.
  EXPECT_EQ(sheet.UsedRangeRows(), 4);
  EXPECT_TRUE(Same(sheet.LastRow(), Value(5L)));

  const Sheet empty("Empty", {});
  EXPECT_EQ(empty.UsedRangeRows(), 0);
  EXPECT_TRUE(empty.LastRow().IsBlank());
  EXPECT_TRUE(Same(empty.Cell("A", 1), Value()));
  EXPECT_EQ(ErrorOf([&] { empty.Cell("A1", 1); }), 5);
}

// The same export saved three ways: by LibreOffice as .xls and as .xlsx (shared strings),
// and by openpyxl as .xlsx (inline strings).
class WorkbookAbra : public ::testing::TestWithParam<const char*> {};

TEST_P(WorkbookAbra, CellsOfEachKind) {
  const auto book = Workbook::Open(Fixture(GetParam()));
  ASSERT_EQ(book->SheetCount(), 1);
  const Sheet& s = book->ActiveSheet();
  EXPECT_EQ(&s, &book->FirstSheet());
  EXPECT_EQ(s.Name(), "abra");

  EXPECT_TRUE(Same(s.Cell("A", 1), Value("EREG")));
  EXPECT_TRUE(Same(s.Cell("B", 1), Value("Smith, John")));
  EXPECT_TRUE(Same(s.Cell("C", 1), Value("00123")));  // text, not the number 123
  EXPECT_TRUE(Same(s.Cell("D", 1), Value(40)));
  EXPECT_TRUE(Same(s.Cell("E", 1), Value()));
  EXPECT_TRUE(Same(s.Cell("F", 1), Value(10)));
  EXPECT_TRUE(Same(s.Cell("G", 1), Value("1/15/2024")));
  EXPECT_TRUE(Same(s.Cell("d", 2), Value(2.5)));

  EXPECT_TRUE(Same(s.Cell("B", 3), Value("Pe\xF1"
                                         "a, Jos\xE9")));
  EXPECT_TRUE(Same(s.Cell("C", 3), Value(456)));
  EXPECT_TRUE(Same(s.Cell("D", 3), Value()));
  EXPECT_TRUE(Same(s.Cell("E", 3), Value(12.5)));

  // Row 4 has no code; the rows after it still read.
  EXPECT_TRUE(Same(s.Cell("A", 4), Value()));
  EXPECT_TRUE(Same(s.Cell("B", 4), Value("Subtotal")));
  EXPECT_TRUE(Same(s.Cell("A", 5), Value("E")));
  EXPECT_TRUE(Same(s.Cell("B", 5), Value("M\xFCller")));
  EXPECT_TRUE(Same(s.Cell("D", 5), Value(8.5)));
  EXPECT_TRUE(Same(s.Cell("E", 5), Value(100)));
  EXPECT_TRUE(Same(s.Cell("B", 6), Value("?ukasz")));  // L-stroke is beyond one byte
  EXPECT_TRUE(Same(s.Cell("C", 6), Value("0042")));
  EXPECT_TRUE(Same(s.Cell("E", 6), Value(0)));

  EXPECT_TRUE(Same(s.Cell("A", 7), Value()));
  EXPECT_TRUE(Same(s.Cell("H", 1), Value()));
  EXPECT_TRUE(Same(s.Cell(1, 0), Value()));
  EXPECT_TRUE(Same(s.Cell(1, -3), Value()));
  EXPECT_TRUE(Same(s.Cell("XFD", 1048576), Value()));
  EXPECT_EQ(s.UsedRangeRows(), 6);
  EXPECT_TRUE(Same(s.LastRow(), Value(6L)));
}

INSTANTIATE_TEST_SUITE_P(WorkbookFixtures, WorkbookAbra,
                         ::testing::Values("abra.xls", "abra.xlsx", "abra_inline.xlsx"));

TEST(WorkbookAbraFormats, AllThreeGiveTheSameValues) {
  const auto xls = Workbook::Open(Fixture("abra.xls"));
  const auto shared = Workbook::Open(Fixture("abra.xlsx"));
  const auto inlined = Workbook::Open(Fixture("abra_inline.xlsx"));
  for (long row = 1; row <= 8; ++row) {
    for (int col = 1; col <= 9; ++col) {
      const Value v = xls->FirstSheet().Cell(col, row);
      EXPECT_TRUE(Same(shared->FirstSheet().Cell(col, row), v)) << col << "," << row;
      EXPECT_TRUE(Same(inlined->FirstSheet().Cell(col, row), v)) << col << "," << row;
    }
  }
}

TEST(WorkbookTwoSheets, SheetsByNameAndIndex) {
  const auto book = Workbook::Open(Fixture("two_sheets.xlsx"));
  ASSERT_EQ(book->SheetCount(), 2);
  EXPECT_EQ(book->SheetAt(1).Name(), "Hours");
  EXPECT_EQ(book->SheetAt(2).Name(), "Rates");
  EXPECT_EQ(&book->SheetByName("rATES"), &book->SheetAt(2));
  EXPECT_EQ(&book->SheetByName("Hours"), &book->FirstSheet());
  EXPECT_EQ(&book->ActiveSheet(), &book->SheetAt(2));  // saved with "Rates" active
  EXPECT_TRUE(Same(book->SheetAt(1).Cell("C", 2), Value("00123")));
  for (int index : {0, 3, -1}) EXPECT_EQ(ErrorOf([&] { book->SheetAt(index); }), 9);
  for (const char* name : {"Pay", "", "Rates "})
    EXPECT_EQ(ErrorOf([&] { book->SheetByName(name); }), 9);
}

TEST(WorkbookTwoSheets, BooleansErrorsTimesAndFormats) {
  const auto book = Workbook::Open(Fixture("two_sheets.xlsx"));
  const Sheet& s = book->SheetByName("Rates");
  EXPECT_TRUE(Same(s.Cell("B", 4), Value(12.75)));
  EXPECT_TRUE(Same(s.Cell("C", 4), Value("True")));
  EXPECT_TRUE(Same(s.Cell("C", 5), Value("False")));
  EXPECT_TRUE(Same(s.Cell("D", 4), Value("#N/A")));
  EXPECT_TRUE(Same(s.Cell("E", 4), Value("8:30:00 AM")));
  EXPECT_TRUE(Same(s.Cell("E", 5), Value("1/15/2024 1:45:00 PM")));
  EXPECT_TRUE(Same(s.Cell("B", 5), Value(2.13)));  // "hrs" in quotes is no date
  EXPECT_TRUE(Same(s.Cell("D", 5), Value(1.5)));   // elapsed hours stay a number
  EXPECT_TRUE(Same(s.Cell("B", 6), Value("  padded  ")));
  EXPECT_TRUE(Same(s.Cell("AB", 7), Value("far")));
  // Used rows 3 to 7.
  EXPECT_EQ(s.UsedRangeRows(), 5);
  EXPECT_TRUE(Same(s.LastRow(), Value(7L)));
}

TEST(WorkbookOpen, ByContentsNotByName) {
  TempDir dir;
  const auto as_xlsx = dir.Write("export.xlsx", ReadBytes(Fixture("abra.xls")));
  const auto as_xls = dir.Write("export.xls", ReadBytes(Fixture("abra.xlsx")));
  EXPECT_TRUE(Same(Workbook::Open(as_xlsx)->FirstSheet().Cell("A", 6), Value("EHOL")));
  EXPECT_TRUE(Same(Workbook::Open(as_xls)->FirstSheet().Cell("A", 6), Value("EHOL")));
}

TEST(WorkbookOpen, MissingAndUnreadableFiles) {
  TempDir dir;
  EXPECT_EQ(ErrorOf([&] { Workbook::Open(dir.File("none.xls")); }), 53);
  EXPECT_EQ(ErrorOf([&] { Workbook::Open(""); }), 53);
  EXPECT_EQ(ErrorOf([&] { Workbook::Open(dir.File("")); }), 1004);  // a folder

  std::mt19937 random(7);
  std::string noise(4096, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  const std::string ole2("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
  for (const auto& bytes : {std::string(), std::string("EREG,Smith,40\r\n"), noise, ole2 + noise,
                            "PK\x03\x04" + noise}) {
    const auto path = dir.Write("hostile.xls", bytes);
    EXPECT_EQ(ErrorOf([&] { Workbook::Open(path); }), 1004) << bytes.size();
  }
}

TEST(WorkbookOpen, TruncatedFiles) {
  TempDir dir;
  // A zip is read from its directory at the end, so every cut leaves nothing readable.
  const std::string xlsx = ReadBytes(Fixture("abra.xlsx"));
  for (std::size_t cut = 0; cut < xlsx.size(); cut += 97) {
    const auto path = dir.Write("cut.xlsx", xlsx.substr(0, cut));
    EXPECT_EQ(ErrorOf([&] { Workbook::Open(path); }), 1004) << cut;
  }
  // The old format may survive losing its tail; it must open or refuse, nothing else.
  const std::string xls = ReadBytes(Fixture("abra.xls"));
  for (std::size_t cut = 0; cut < xls.size(); cut += 61) {
    const auto path = dir.Write("cut.xls", xls.substr(0, cut));
    const int error = ErrorOf([&] { Workbook::Open(path); });
    EXPECT_TRUE(error == 0 || error == 1004) << cut << ": " << error;
  }
}

TEST(WorkbookOpen, DamagedCompoundFileDirectory) {
  // The binary format's library trusts the name length of a directory entry; one far
  // beyond the 64 bytes an entry holds sends it reading off its buffer. The program must
  // come through that with the file refused.
  std::string xls = ReadBytes(Fixture("abra.xls"));
  ASSERT_GT(xls.size(), 512u);
  std::uint16_t shift = 0;
  std::uint32_t directory = 0;
  std::memcpy(&shift, xls.data() + 30, 2);
  std::memcpy(&directory, xls.data() + 48, 4);
  const std::size_t length_at = (directory + 1) * (std::size_t{1} << shift) + 128 + 64;
  ASSERT_LT(length_at + 1, xls.size());
  xls[length_at] = 0x12;
  xls[length_at + 1] = 0x6E;
  TempDir dir;
  const auto path = dir.Write("damaged.xls", xls);
  EXPECT_EQ(ErrorOf([&] { Workbook::Open(path); }), 1004);
}

TEST(WorkbookXlsx, SharedStringsRichTextAndSpace) {
  TempDir dir;
  const auto path = dir.File("s.xlsx");
  WriteZip(path, Xlsx("<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v>"
                      "</c><c r=\"C1\" t=\"s\"><v>2</v></c><c r=\"D1\" t=\"s\"><v>3</v></c>"
                      "<c r=\"E1\" t=\"s\"><v>4</v></c><c r=\"F1\" t=\"s\"><v>-1</v></c>"
                      "<c r=\"G1\" t=\"s\"><v>x</v></c></row>",
                      "<si><r><rPr><b/></rPr><t xml:space=\"preserve\">Smith, </t></r>"
                      "<r><t>John</t></r><rPh sb=\"0\" eb=\"1\"><t>sumisu</t></rPh></si>"
                      "<si><t>  trimmed\n</t></si>"
                      "<si><t xml:space=\"preserve\"> kept </t></si>"
                      "<si><t>Line_x000D_break_x005F_x0041_</t></si>"));
  const auto book = Workbook::Open(path);
  const Sheet& s = book->FirstSheet();
  EXPECT_TRUE(Same(s.Cell("A", 1), Value("Smith, John")));
  EXPECT_TRUE(Same(s.Cell("B", 1), Value("trimmed")));
  EXPECT_TRUE(Same(s.Cell("C", 1), Value(" kept ")));
  EXPECT_TRUE(Same(s.Cell("D", 1), Value("Line\rbreak_x0041_")));
  for (const char* col : {"E", "F", "G"}) EXPECT_TRUE(Same(s.Cell(col, 1), Value())) << col;
}

TEST(WorkbookXlsx, CellKindsAndPositions) {
  TempDir dir;
  const auto path = dir.File("k.xlsx");
  WriteZip(path, Xlsx("<row r=\"2\"><c r=\"A2\" t=\"str\"><f>B2</f><v>EREG</v></c>"
                      "<c r=\"B2\" t=\"e\"><v>#DIV/0!</v></c><c r=\"C2\" t=\"n\"><v>1E3</v></c>"
                      "<c r=\"D2\"><v>8.50</v></c><c r=\"E2\"><f>1+1</f><v></v></c>"
                      "<c r=\"F2\" t=\"inlineStr\"><is><r><t>D</t></r><r><t>401</t></r></is></c>"
                      "<c r=\"G2\"><v>abc</v></c></row>"
                      // Cells and rows without references follow the ones before them.
                      "<row r=\"4\"><c r=\"B4\"><v>1</v></c><c><v>2</v></c></row>"
                      "<row><c><v>3</v></c></row>"
                      // Beyond the grid: dropped.
                      "<row r=\"6\"><c r=\"A99999999\"><v>9</v></c><c r=\"XFE6\"><v>9</v></c>"
                      "<c r=\"1A\"><v>9</v></c></row><row r=\"99999999\"><c><v>9</v></c></row>"
                      "<row r=\"7\"><c r=\"A7\"><v>1</v></c><c r=\"A7\"><v>2</v></c></row>"
                      "<row r=\"9\"><c r=\"A9\" t=\"inlineStr\"><is><t></t></is></c></row>"));
  const auto book = Workbook::Open(path);
  const Sheet& s = book->FirstSheet();
  EXPECT_TRUE(Same(s.Cell("A", 2), Value("EREG")));
  EXPECT_TRUE(Same(s.Cell("B", 2), Value("#DIV/0!")));
  EXPECT_TRUE(Same(s.Cell("C", 2), Value(1000)));
  EXPECT_TRUE(Same(s.Cell("D", 2), Value(8.5)));
  EXPECT_TRUE(Same(s.Cell("E", 2), Value()));
  EXPECT_TRUE(Same(s.Cell("F", 2), Value("D401")));
  EXPECT_TRUE(Same(s.Cell("G", 2), Value()));
  EXPECT_TRUE(Same(s.Cell("C", 4), Value(2)));
  EXPECT_TRUE(Same(s.Cell("A", 5), Value(3)));
  EXPECT_TRUE(Same(s.Cell("A", 6), Value()));
  EXPECT_TRUE(Same(s.Cell("B", 6), Value()));
  EXPECT_TRUE(Same(s.Cell("A", 7), Value(2)));
  EXPECT_TRUE(Same(s.Cell("A", 9), Value("")));
  // Rows 2 to 7 hold something; the empty string on row 9 does not count.
  EXPECT_EQ(s.UsedRangeRows(), 6);
  EXPECT_TRUE(Same(s.LastRow(), Value(7L)));
}

TEST(WorkbookXlsx, DateFormats) {
  const std::string styles =
      "<numFmts><numFmt numFmtId=\"164\" formatCode=\"d\\-mmm\\-yy\"/>"
      "<numFmt numFmtId=\"165\" formatCode=\"[Red]0.00\"/></numFmts>"
      "<cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs>"
      "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"164\"/>"
      "<xf numFmtId=\"165\"/><xf numFmtId=\"22\"/></cellXfs>";
  const std::string cells =
      "<row r=\"1\"><c r=\"A1\" s=\"1\"><v>45306</v></c><c r=\"B1\" s=\"2\"><v>45306</v></c>"
      "<c r=\"C1\" s=\"3\"><v>45306</v></c><c r=\"D1\" s=\"0\"><v>45306</v></c>"
      "<c r=\"E1\" s=\"9\"><v>45306</v></c><c r=\"F1\" s=\"4\"><v>45306.75</v></c>"
      "<c r=\"G1\" s=\"1\"><v>-5</v></c><c r=\"H1\" t=\"d\"><v>2024-01-15T00:00:00</v></c></row>";
  TempDir dir;
  WriteZip(dir.File("d.xlsx"), Xlsx(cells, "", styles));
  const auto book = Workbook::Open(dir.File("d.xlsx"));
  const Sheet& s = book->FirstSheet();
  EXPECT_TRUE(Same(s.Cell("A", 1), Value("1/15/2024")));
  EXPECT_TRUE(Same(s.Cell("B", 1), Value("1/15/2024")));
  EXPECT_TRUE(Same(s.Cell("C", 1), Value(45306)));
  EXPECT_TRUE(Same(s.Cell("D", 1), Value(45306)));
  EXPECT_TRUE(Same(s.Cell("E", 1), Value(45306)));  // no such style
  EXPECT_TRUE(Same(s.Cell("F", 1), Value("1/15/2024 6:00:00 PM")));
  EXPECT_TRUE(Same(s.Cell("G", 1), Value(-5)));
  EXPECT_TRUE(Same(s.Cell("H", 1), Value("1/15/2024")));

  // Workbooks that count days from 1904.
  WriteZip(dir.File("d1904.xlsx"), Xlsx("<row r=\"1\"><c r=\"A1\" s=\"1\"><v>0</v></c></row>", "",
                                        styles, "<workbookPr date1904=\"1\"/>"));
  EXPECT_TRUE(
      Same(Workbook::Open(dir.File("d1904.xlsx"))->FirstSheet().Cell("A", 1), Value("1/1/1904")));
}

TEST(WorkbookXlsx, MissingOrBrokenParts) {
  TempDir dir;
  const auto path = dir.File("p.xlsx");
  auto open_error = [&](const Parts& parts) {
    WriteZip(path, parts);
    return ErrorOf([&] { Workbook::Open(path); });
  };
  EXPECT_EQ(open_error({{"hello.txt", "hello"}}), 1004);
  Parts no_sheets = Xlsx("");
  no_sheets[1].second = std::string("<workbook xmlns=\"") + kMain + "\"><sheets/></workbook>";
  EXPECT_EQ(open_error(no_sheets), 1004);
  Parts broken = Xlsx("");
  broken[1].second = "<workbook><sheets><sheet name=\"A\"";
  EXPECT_EQ(open_error(broken), 1004);
  EXPECT_EQ(open_error(Xlsx("<row><c><v>1</v></c></row")), 1004);
  // A document type could declare expanding entities; none is accepted.
  Parts laughs = Xlsx("");
  laughs[3].second =
      "<!DOCTYPE w [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>"
      "<worksheet><sheetData><row><c t=\"inlineStr\"><is><t>&b;</t></is></c></row>"
      "</sheetData></worksheet>";
  EXPECT_EQ(open_error(laughs), 1004);

  // Only the workbook part: a sheet with nothing in it.
  WriteZip(path,
           {{"xl/workbook.xml", std::string("<workbook xmlns=\"") + kMain +
                                    "\"><sheets><sheet name=\"Lone\"/></sheets></workbook>"}});
  const auto book = Workbook::Open(path);
  ASSERT_EQ(book->SheetCount(), 1);
  EXPECT_EQ(book->FirstSheet().Name(), "Lone");
  EXPECT_EQ(book->FirstSheet().UsedRangeRows(), 0);
  EXPECT_TRUE(book->FirstSheet().LastRow().IsBlank());
}

// A sheet that unpacks to more than any workbook needs: sound XML padded with blanks,
// generated as libzip asks for it so that the test holds only the compressed bytes.
struct PaddedSheet {
  std::string head = "<worksheet><sheetData><row r=\"1\"><c r=\"A1\"><v>1</v></c></row>";
  std::string tail = "</sheetData></worksheet>";
  std::uint64_t size;  // in all
  std::uint64_t pos = 0;

  // Fills out with bytes pos to pos + n of the part.
  void Fill(char* out, std::uint64_t n) const {
    std::memset(out, ' ', n);
    Overlay(out, n, head, 0);
    Overlay(out, n, tail, size - tail.size());
  }
  void Overlay(char* out, std::uint64_t n, const std::string& text, std::uint64_t at) const {
    const std::uint64_t from = std::max(pos, at), to = std::min(pos + n, at + text.size());
    for (std::uint64_t i = from; i < to; ++i) out[i - pos] = text[i - at];
  }
};

zip_int64_t PaddedSource(void* state, void* data, zip_uint64_t len, zip_source_cmd_t cmd) {
  auto* s = static_cast<PaddedSheet*>(state);
  switch (cmd) {
    case ZIP_SOURCE_OPEN:
      s->pos = 0;
      return 0;
    case ZIP_SOURCE_READ: {
      const zip_uint64_t n = std::min<zip_uint64_t>(len, s->size - s->pos);
      s->Fill(static_cast<char*>(data), n);
      s->pos += n;
      return static_cast<zip_int64_t>(n);
    }
    case ZIP_SOURCE_STAT: {
      auto* st = static_cast<zip_stat_t*>(data);
      zip_stat_init(st);
      st->size = s->size;
      st->valid |= ZIP_STAT_SIZE;
      return sizeof(zip_stat_t);
    }
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                            ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
    case ZIP_SOURCE_ERROR: {
      zip_error_t error;
      zip_error_init(&error);
      return zip_error_to_data(&error, data, len);
    }
    default:
      return 0;
  }
}

// Writes a one-sheet workbook whose sheet part unpacks to size bytes.
void WritePadded(const std::string& path, std::uint64_t size) {
  Parts parts = Xlsx("");
  parts.pop_back();  // the sheet comes from the generator
  int error = 0;
  zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  ASSERT_NE(z, nullptr);
  for (const auto& [name, data] : parts)
    zip_file_add(z, name.c_str(), zip_source_buffer(z, data.data(), data.size(), 0), 0);
  PaddedSheet sheet;
  sheet.size = size;
  const zip_int64_t index =
      zip_file_add(z, "xl/worksheets/sheet1.xml", zip_source_function(z, PaddedSource, &sheet), 0);
  ASSERT_GE(index, 0);
  zip_set_file_compression(z, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 1);
  ASSERT_EQ(zip_close(z), 0);
}

TEST(WorkbookXlsx, PartTooLargeToUnpack) {
  TempDir dir;
  WritePadded(dir.File("fits.xlsx"), 1 << 20);
  EXPECT_TRUE(Same(Workbook::Open(dir.File("fits.xlsx"))->FirstSheet().Cell("A", 1), Value(1)));
  WritePadded(dir.File("bomb.xlsx"), (256ull << 20) + 1);
  ASSERT_LT(fs::file_size(dir.File("bomb.xlsx")), 4u << 20);
  EXPECT_EQ(ErrorOf([&] { Workbook::Open(dir.File("bomb.xlsx")); }), 1004);
}

TEST(WorkbookXlsx, TextCopiedBeyondTheBound) {
  // One shared string of 1 MB placed in 300 cells.
  std::string cells = "<row r=\"1\">";
  for (int i = 0; i < 300; ++i) cells += "<c t=\"s\"><v>0</v></c>";
  cells += "</row>";
  TempDir dir;
  WriteZip(dir.File("t.xlsx"), Xlsx(cells, "<si><t>" + std::string(1 << 20, 'x') + "</t></si>"));
  EXPECT_EQ(ErrorOf([&] { Workbook::Open(dir.File("t.xlsx")); }), 1004);
}

}  // namespace
}  // namespace corvane
