#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "error_of.hpp"
#include "runtime/errors.hpp"
#include "runtime/infile.hpp"

namespace corvane {
namespace {

namespace fs = std::filesystem;

// Each test writes its exports into a folder of its own and removes it afterwards.
class InputFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    dir_ = fs::temp_directory_path() / ("corvane_infile_" + std::to_string(::getpid()) + "_" +
                                        info->test_suite_name() + "_" + info->name());
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  void TearDown() override {
    in_.Close();
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }

  std::string Write(const std::string& bytes, const std::string& name = "in.txt") {
    const auto path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  void OpenWith(const std::string& bytes, OpenMode mode = OpenMode::Text, int length = 0) {
    in_.Open(Write(bytes), mode, length);
  }
  // Every line up to the end of the file.
  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    while (!in_.Eof()) lines.push_back(in_.LineInput());
    return lines;
  }
  std::string Field() {
    std::string s;
    in_.Input(s);
    return s;
  }
  Value FieldAsValue() {
    Value v;
    in_.Input(v);
    return v;
  }

  fs::path dir_;
  InputFile in_;
};

using Strings = std::vector<std::string>;

using testing::ErrorOf;

using InputFileOpen = InputFileTest;

TEST_F(InputFileOpen, BadPathsRaiseTheirNumbers) {
  EXPECT_EQ(ErrorOf([&] { in_.Open("", OpenMode::Text); }), 52);
  EXPECT_EQ(ErrorOf([&] { in_.Open((dir_ / "missing.csv").string(), OpenMode::Text); }), 53);
  EXPECT_EQ(ErrorOf([&] { in_.Open((dir_ / "no/such.csv").string(), OpenMode::Text); }), 53);
  EXPECT_EQ(ErrorOf([&] { in_.Open(dir_.string(), OpenMode::Byte); }), 75);
  EXPECT_EQ(ErrorOf([&] { in_.Open(Write("abc"), OpenMode::Fixed, 0); }), 5);
  EXPECT_FALSE(in_.IsOpen());
  if (::geteuid() != 0) {  // permissions do not bind the superuser
    const auto locked = Write("abc", "locked.txt");
    fs::permissions(locked, fs::perms::none);
    EXPECT_EQ(ErrorOf([&] { in_.Open(locked, OpenMode::Text); }), 75);
  }
}

TEST_F(InputFileOpen, ReadsOnAClosedFileRaise52AndReopenStartsAfresh) {
  std::string s;
  Value v;
  EXPECT_EQ(ErrorOf([&] { in_.Eof(); }), 52);
  OpenWith("one\r\ntwo\r\n");
  EXPECT_EQ(in_.LineInput(), "one");
  in_.Open(Write("three\r\n", "b.txt"), OpenMode::Byte);  // closes the first file
  EXPECT_EQ(Lines(), Strings{"three"});
  in_.Close();
  in_.Close();
  EXPECT_FALSE(in_.IsOpen());
  EXPECT_EQ(ErrorOf([&] { in_.Eof(); }), 52);
  EXPECT_EQ(ErrorOf([&] { in_.LineInput(s); }), 52);
  EXPECT_EQ(ErrorOf([&] { in_.Input(v); }), 52);
  EXPECT_EQ(ErrorOf([&] { in_.Get(s); }), 52);
}

using InputFileLines = InputFileTest;

TEST_F(InputFileLines, EachLineEndEndsOneLine) {
  OpenWith("a\r\nb\nc\rd");
  EXPECT_EQ(Lines(), (Strings{"a", "b", "c", "d"}));
  // LF then CR is two line ends, not one pair.
  OpenWith("\n\r\r\n");
  EXPECT_EQ(Lines(), (Strings{"", "", ""}));
}

TEST_F(InputFileLines, EndOfFileComesRightAfterTheLastLineEnd) {
  OpenWith("a\r\n");
  EXPECT_EQ(in_.LineInput(), "a");
  EXPECT_TRUE(in_.Eof());
  EXPECT_EQ(ErrorOf([&] { in_.LineInput(); }), 62);

  OpenWith("a\r\n\r\n");
  EXPECT_EQ(in_.LineInput(), "a");
  EXPECT_FALSE(in_.Eof());
  EXPECT_EQ(in_.LineInput(), "");
  EXPECT_TRUE(in_.Eof());

  OpenWith("");
  EXPECT_TRUE(in_.Eof());
  EXPECT_EQ(ErrorOf([&] { in_.LineInput(); }), 62);
}

TEST_F(InputFileLines, CtrlZEndsTextModeOnly) {
  const std::string z = "\x1A";
  OpenWith("a\r\nb" + z + "c\r\nd\r\n", OpenMode::Text);
  EXPECT_EQ(Lines(), (Strings{"a", "b"}));
  EXPECT_EQ(ErrorOf([&] { in_.LineInput(); }), 62);
  OpenWith("a\r\n" + z + "b\r\n", OpenMode::Text);
  EXPECT_EQ(Lines(), Strings{"a"});
  OpenWith("1,2" + z + ",3", OpenMode::Text);
  EXPECT_EQ(Field(), "1");
  EXPECT_EQ(Field(), "2");
  EXPECT_TRUE(in_.Eof());
  EXPECT_EQ(ErrorOf([&] { Field(); }), 62);

  OpenWith("a\r\nb" + z + "c\r\n", OpenMode::Byte);
  EXPECT_EQ(Lines(), (Strings{"a", "b" + z + "c"}));
  OpenWith(z + "," + z + "b", OpenMode::Byte);
  EXPECT_FALSE(in_.Eof());
  EXPECT_EQ(Field(), z);
  EXPECT_EQ(in_.LineInput(), z + "b");
  EXPECT_TRUE(in_.Eof());
}

// The line ends straddle the reader's buffer window whatever its size up to 128 KiB.
TEST_F(InputFileLines, LineEndsSplitAcrossTheBuffer) {
  for (std::size_t before : {4095u, 8191u, 16383u, 32767u, 65535u, 131071u}) {
    SCOPED_TRACE(before);
    const std::string xs(before, 'x');
    OpenWith(xs + "\r\nb\r\n");
    EXPECT_EQ(Lines(), (Strings{xs, "b"}));
    OpenWith(xs + "\rb");
    EXPECT_EQ(Lines(), (Strings{xs, "b"}));
    OpenWith(xs + "\r");
    EXPECT_EQ(Lines(), Strings{xs});
    OpenWith(xs + "\r\n7\r\n");
    EXPECT_EQ(Field(), xs);
    EXPECT_EQ(FieldAsValue().str(), "7");
    EXPECT_TRUE(in_.Eof());
  }
}

TEST_F(InputFileLines, HugeLineWithoutALineEnd) {
  const std::string big(10 * 1024 * 1024 + 17, 'q');
  OpenWith("short\n" + big, OpenMode::Byte);
  std::string line;
  in_.LineInput(line);
  EXPECT_EQ(line, "short");
  in_.LineInput(line);
  EXPECT_EQ(line.size(), big.size());
  EXPECT_EQ(line, big);
  EXPECT_TRUE(in_.Eof());
}

using InputFileFields = InputFileTest;

TEST_F(InputFileFields, QuotesAndBlanks) {
  OpenWith("\"Smith, John\" x ,  abc \t,\t\"  a  \",\"two\r\nlines\",last\r\n");
  EXPECT_EQ(Field(), "Smith, John");
  EXPECT_EQ(Field(), "abc");
  EXPECT_EQ(Field(), "  a  ");
  EXPECT_EQ(Field(), "two\r\nlines");
  EXPECT_EQ(Field(), "last");
  EXPECT_TRUE(in_.Eof());
  // No closing quote: the field runs to the end of the data.
  OpenWith("\"abc,def\r\n");
  EXPECT_EQ(Field(), "abc,def\r\n");
  EXPECT_TRUE(in_.Eof());
}

TEST_F(InputFileFields, EmptyFieldsAndBlankLines) {
  OpenWith(",,\r\n\r\n9");
  EXPECT_EQ(Field(), "");
  EXPECT_EQ(Field(), "");
  EXPECT_EQ(Field(), "");  // ends at the CR LF and takes it
  EXPECT_FALSE(in_.Eof());
  EXPECT_TRUE(FieldAsValue().IsBlank());  // the blank line
  EXPECT_EQ(Field(), "9");
  EXPECT_TRUE(in_.Eof());
  EXPECT_EQ(ErrorOf([&] { Field(); }), 62);
  // A trailing comma with nothing after it leaves nothing to read.
  OpenWith("1,");
  EXPECT_EQ(Field(), "1");
  EXPECT_TRUE(in_.Eof());
  EXPECT_EQ(ErrorOf([&] { Field(); }), 62);
}

TEST_F(InputFileFields, ValuesByTheFieldRule) {
  OpenWith("00123,$12.50,\"00123\",,8.50,8.00,-1.5E2,1 2, 42 \r\n");
  Value v = FieldAsValue();
  EXPECT_TRUE(v.IsNumber());
  EXPECT_EQ(v.str(), "123");
  v = FieldAsValue();
  EXPECT_TRUE(v.IsText());
  EXPECT_EQ(v.text(), "$12.50");
  v = FieldAsValue();
  EXPECT_TRUE(v.IsText());
  EXPECT_EQ(v.text(), "00123");
  EXPECT_TRUE(FieldAsValue().IsBlank());
  EXPECT_EQ(FieldAsValue().str(), "8.5");
  EXPECT_EQ(FieldAsValue().str(), "8");
  EXPECT_EQ(FieldAsValue().number(), -150.0);
  v = FieldAsValue();
  EXPECT_TRUE(v.IsText());
  EXPECT_EQ(v.text(), "1 2");
  v = FieldAsValue();
  EXPECT_TRUE(v.IsNumber());
  EXPECT_EQ(v.number(), 42.0);
  EXPECT_TRUE(in_.Eof());
  // A text member keeps the characters.
  OpenWith("00123\r\n");
  EXPECT_EQ(Field(), "00123");
}

TEST_F(InputFileFields, ShortRecordsRunOnAndLinesMixWithFields) {
  // Three fields a record: the first record's third field comes from the next line.
  OpenWith("a,b\r\nc,d,e\r\n");
  EXPECT_EQ((Strings{Field(), Field(), Field()}), (Strings{"a", "b", "c"}));
  EXPECT_EQ(Field(), "d");
  EXPECT_EQ(Field(), "e");
  EXPECT_EQ(ErrorOf([&] { Field(); }), 62);  // the half record ends the reading

  // A heading line, then fields; a line read after a field continues from there.
  OpenWith("Emp,Hours\r\n1,8\r\n2,x,rest\nlast");
  EXPECT_EQ(in_.LineInput(), "Emp,Hours");
  EXPECT_EQ(Field(), "1");
  EXPECT_EQ(Field(), "8");
  EXPECT_EQ(Field(), "2");
  EXPECT_EQ(in_.LineInput(), "x,rest");
  EXPECT_EQ(Field(), "last");
  EXPECT_TRUE(in_.Eof());
}

using InputFileRecords = InputFileTest;

// The reading loop of the fixed-record formats: every whole record, never the partial one.
int TranslatedRecords(InputFile& in, Strings* seen = nullptr) {
  std::string record = "left over from before";
  int count = 0;
  in.Get(record);
  while (!in.Eof()) {
    ++count;
    if (seen) seen->push_back(record);
    in.Get(record);
  }
  return count;
}

TEST_F(InputFileRecords, WholeRecordsThenAShortOne) {
  Strings seen;
  OpenWith("abc\r\ndef\r\nxy", OpenMode::Fixed, 5);
  EXPECT_EQ(TranslatedRecords(in_, &seen), 2);
  EXPECT_EQ(seen, (Strings{"abc\r\n", "def\r\n"}));
  std::string record;
  in_.Get(record);  // once at the end, every further Get is blank
  EXPECT_EQ(record, "     ");
  EXPECT_TRUE(in_.Eof());

  OpenWith("abcdefg", OpenMode::Fixed, 4);
  in_.Get(record);
  EXPECT_EQ(record, "abcd");
  EXPECT_FALSE(in_.Eof());
  in_.Get(record);
  EXPECT_EQ(record, "efg ");
  EXPECT_TRUE(in_.Eof());
}

TEST_F(InputFileRecords, ExactMultiplesEmptyFilesAndCtrlZAsData) {
  OpenWith("abcdefgh", OpenMode::Fixed, 4);
  std::string record;
  in_.Get(record);
  in_.Get(record);
  EXPECT_EQ(record, "efgh");
  EXPECT_FALSE(in_.Eof());
  in_.Get(record);
  EXPECT_EQ(record, "    ");
  EXPECT_TRUE(in_.Eof());

  OpenWith("", OpenMode::Fixed, 3);
  EXPECT_EQ(TranslatedRecords(in_), 0);

  const std::string z = "\x1A";  // an ordinary byte in a record
  OpenWith("a" + z + "b" + z, OpenMode::Fixed, 2);
  Strings seen;
  EXPECT_EQ(TranslatedRecords(in_, &seen), 2);
  EXPECT_EQ(seen, (Strings{"a" + z, "b" + z}));
}

TEST_F(InputFileRecords, RecordsAcrossTheBuffer) {
  // 150 records of 1000 bytes and a 10-byte tail: records cross every buffer edge.
  std::string data;
  for (int i = 0; i < 150; ++i) data += std::string(1000, static_cast<char>('A' + i % 26));
  data += "0123456789";
  OpenWith(data, OpenMode::Fixed, 1000);
  Strings seen;
  EXPECT_EQ(TranslatedRecords(in_, &seen), 150);
  ASSERT_EQ(seen.size(), 150u);
  for (int i = 0; i < 150; ++i) {
    EXPECT_EQ(seen[i], std::string(1000, static_cast<char>('A' + i % 26))) << i;
  }
}

// One record of tricky fields and what each reads as, worked out by the field rule. A field
// that lies whole in the read window and one cut by the window's edge must read alike.
struct Expected {
  Value::Kind kind;
  std::string text;  // the text of a text value
  double number;
};

const std::string kTrickyRecord =
    "  00123 ,-8.50,+.5,1e3,\"0042\",,  ,\"a, b\" x,$12.50,1 2,5.,-,\"two\r\nlines\","
    "caf\xe9 \t,123456789012345,1234567890123456,-0,\xff\"q\"\r\n"
    "7,8\r\n";

std::vector<Expected> TrickyExpected() {
  using K = Value::Kind;
  return {
      {K::Number, "", 123},
      {K::Number, "", -8.5},
      {K::Number, "", 0.5},
      {K::Number, "", 1000},
      {K::Text, "0042", 0},
      {K::Blank, "", 0},
      {K::Blank, "", 0},
      {K::Text, "a, b", 0},
      {K::Text, "$12.50", 0},
      {K::Text, "1 2", 0},
      {K::Number, "", 5},
      {K::Text, "-", 0},
      {K::Text, "two\r\nlines", 0},
      {K::Text, "caf\xe9", 0},
      {K::Number, "", 123456789012345.0},
      {K::Number, "", 1234567890123456.0},
      {K::Number, "", -0.0},
      {K::Text, "\xff\"q\"", 0},
      // a short record: the read goes on on the next line
      {K::Number, "", 7},
      {K::Number, "", 8},
  };
}

// Large exports are read by a second thread, which finds their fields ahead of the read.
// For as long as one of these lives, files of at least `bytes` are read so.
class ReadAheadFrom {
 public:
  explicit ReadAheadFrom(std::uintmax_t bytes) { InputFile::SetReadAheadFrom(bytes); }
  ~ReadAheadFrom() { InputFile::SetReadAheadFrom(1024 * 1024); }
  ReadAheadFrom(const ReadAheadFrom&) = delete;
  ReadAheadFrom& operator=(const ReadAheadFrom&) = delete;
};
constexpr std::uintmax_t kEveryFile = 0;
constexpr std::uintmax_t kNoFile = UINTMAX_MAX;

class InputFileWindows : public InputFileTest {
 protected:
  void ReadTrickyFieldsWhereverTheWindowCuts();
};

void InputFileWindows::ReadTrickyFieldsWhereverTheWindowCuts() {
  const std::vector<Expected> expected = TrickyExpected();
  constexpr std::size_t kWindow = 64 * 1024;
  for (const OpenMode mode : {OpenMode::Text, OpenMode::Byte}) {
    // the record starts at the window's start, then anywhere from just before its edge
    for (std::size_t shift = 0; shift <= kTrickyRecord.size() + 1; ++shift) {
      const std::size_t lead = shift == 0 ? 0 : kWindow - shift;
      SCOPED_TRACE(::testing::Message()
                   << "lead " << lead << (mode == OpenMode::Text ? " text" : " byte"));
      const std::string filler = lead < 2 ? std::string() : std::string(lead - 2, 'z') + "\r\n";
      OpenWith(filler + kTrickyRecord, mode);
      if (!filler.empty()) in_.LineInput();
      for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        const Value v = FieldAsValue();
        ASSERT_EQ(v.kind(), expected[i].kind);
        EXPECT_EQ(v.text(), expected[i].text);
        EXPECT_EQ(v.number(), expected[i].number);
        EXPECT_EQ(std::signbit(v.number()), std::signbit(expected[i].number));
      }
      EXPECT_TRUE(in_.Eof());

      // into text members the same fields keep their characters, blanks around dropped
      in_.Open(dir_.string() + "/in.txt", mode);
      if (!filler.empty()) in_.LineInput();
      const Strings texts = {"00123",
                             "-8.50",
                             "+.5",
                             "1e3",
                             "0042",
                             "",
                             "",
                             "a, b",
                             "$12.50",
                             "1 2",
                             "5.",
                             "-",
                             "two\r\nlines",
                             "caf\xe9",
                             "123456789012345",
                             "1234567890123456",
                             "-0",
                             "\xff\"q\"",
                             "7",
                             "8"};
      for (const std::string& text : texts) EXPECT_EQ(Field(), text);
      EXPECT_TRUE(in_.Eof());
    }
  }
}

TEST_F(InputFileWindows, TrickyFieldsReadAlikeWhereverTheWindowCuts) {
  ReadTrickyFieldsWhereverTheWindowCuts();
}

TEST_F(InputFileWindows, TrickyFieldsReadAlikeWhenFoundAhead) {
  ReadAheadFrom ahead(kEveryFile);
  ReadTrickyFieldsWhereverTheWindowCuts();
}

// A CR that closes the window with its LF opening the next, after a plain and after a
// quoted field; and a record cut short by the end of the data.
TEST_F(InputFileFields, LineEndsAndQuotesAtTheWindowsEdge) {
  constexpr std::size_t kWindow = 64 * 1024;
  for (const std::string& field : {std::string("12"), std::string("\"ab\"")}) {
    SCOPED_TRACE(field);
    const std::string filler(kWindow - field.size() - 1 - 2, 'z');
    OpenWith(filler + "\r\n" + field + "\r\n3\r\n", OpenMode::Byte);
    in_.LineInput();
    std::string text;
    in_.Input(text);
    EXPECT_EQ(text, field == "12" ? "12" : "ab");
    EXPECT_EQ(FieldAsValue().number(), 3.0);  // the CR LF pair was one line end
    EXPECT_TRUE(in_.Eof());
  }
  OpenWith("1,2", OpenMode::Byte);
  EXPECT_EQ(FieldAsValue().number(), 1.0);
  EXPECT_EQ(FieldAsValue().number(), 2.0);
  EXPECT_TRUE(in_.Eof());
  EXPECT_EQ(ErrorOf([&] { FieldAsValue(); }), kInputPastEnd);
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

// What a run of reads sees, one entry a read: the value's kind and its text or number, or
// the error a read raised.
std::string ReadTranscript(InputFile& in, std::uint32_t seed) {
  std::mt19937 pick(seed);
  std::string seen;
  for (int reads = 0; reads < 2'000'000; ++reads) {
    const int error = ErrorOf([&] {
      if (in.Eof()) {
        seen += "eof\n";
        return;
      }
      switch (pick() % 8) {
        case 0: {
          seen += "line " + in.LineInput() + "\n";
          break;
        }
        case 1: {
          std::string text;
          in.Input(text);
          seen += "text " + text + "\n";
          break;
        }
        default: {
          Value v;
          in.Input(v);
          char number[40];
          std::snprintf(number, sizeof number, "%.17g", v.number());
          seen += "value " + std::to_string(static_cast<int>(v.kind())) + " " + v.text() + " " +
                  number + "\n";
          break;
        }
      }
    });
    if (error != 0) seen += "error " + std::to_string(error) + "\n";
    if (seen.ends_with("eof\n")) break;
  }
  return seen;
}

// An export built of every kind of field, long enough for many buffers: numbers of every
// shape, blanks, quotes holding commas and line ends, quotes with something after them,
// fields longer than a buffer, runs of blanks, every kind of line end.
std::string ManyBuffersOfTrickyFields(std::uint32_t seed) {
  const std::vector<std::string> pieces = {"12",
                                           "-8.50",
                                           "+.5",
                                           "1e3",
                                           "1.5E-2",
                                           "0042",
                                           "",
                                           "  ",
                                           " 7 ",
                                           "\t9\t",
                                           "\"a, b\"",
                                           "\"two\r\nlines\"",
                                           "\"q\" x",
                                           "\"\"",
                                           "$12.50",
                                           "1 2",
                                           "5.",
                                           "-",
                                           "caf\xe9",
                                           "123456789012345",
                                           "1234567890123456",
                                           "-0",
                                           "\xff\"q\"",
                                           "abc",
                                           "0.00",
                                           "e5",
                                           "1e",
                                           std::string(300, ' ') + "3",
                                           std::string(70000, 'w'),
                                           "\"" + std::string(70000, 'v') + "\""};
  const std::vector<std::string> ends = {",", ",", ",", ",", "\r\n", "\n", "\r"};
  std::mt19937 pick(seed);
  std::string data;
  while (data.size() < 1'500'000) {
    const std::string& piece = pieces[pick() % pieces.size()];
    // the longest pieces are rare, as in an export
    if (piece.size() > 1000 && pick() % 3000 != 0) continue;
    data += piece;
    data += ends[pick() % ends.size()];
  }
  return data;
}

TEST_F(InputFileWindows, FieldsFoundAheadReadAsTheReadFindsThem) {
  for (const std::uint32_t seed : {1u, 2u, 3u}) {
    std::string data = ManyBuffersOfTrickyFields(seed);
    if (seed == 3) data += "\"a field open to the end, 1,2\r\n";
    for (const OpenMode mode : {OpenMode::Text, OpenMode::Byte}) {
      SCOPED_TRACE(::testing::Message()
                   << "seed " << seed << (mode == OpenMode::Text ? " text" : " byte"));
      std::string with_ctrl_z = data;
      // a Ctrl-Z some way in: the end of the data in text mode, a byte in byte mode
      if (seed == 2) with_ctrl_z.insert(with_ctrl_z.size() - 200'000, "\x1A");
      const std::string path = Write(with_ctrl_z);
      std::string read_in_place, found_ahead;
      {
        ReadAheadFrom in_place(kNoFile);
        in_.Open(path, mode);
        read_in_place = ReadTranscript(in_, seed);
      }
      {
        ReadAheadFrom ahead(kEveryFile);
        in_.Open(path, mode);
        found_ahead = ReadTranscript(in_, seed);
      }
      ASSERT_EQ(found_ahead.size(), read_in_place.size());
      EXPECT_TRUE(found_ahead == read_in_place);
      EXPECT_GT(std::count(read_in_place.begin(), read_in_place.end(), '\n'), 50'000);
    }
  }
}

TEST_F(InputFileWindows, AFileWhoseFieldsCannotBeFoundAheadStillReadsAlike) {
  // Quotes with something after them throughout: the search ahead passes over each, and
  // the read finds every field itself.
  std::string data;
  for (int i = 0; i < 200'000; ++i) data += i % 3 == 0 ? "\"x\"y," : (i % 3 == 1 ? "\"z,\n" : "5,");
  const std::string path = Write(data);
  std::string read_in_place;
  {
    ReadAheadFrom in_place(kNoFile);
    in_.Open(path, OpenMode::Text);
    read_in_place = ReadTranscript(in_, 9);
  }
  ReadAheadFrom ahead(kEveryFile);
  in_.Open(path, OpenMode::Text);
  EXPECT_TRUE(ReadTranscript(in_, 9) == read_in_place);
}

TEST_F(InputFileRecords, RecordsReadAheadAreTheRecordsReadInPlace) {
  std::string data;
  for (int i = 0; i < 3000; ++i)
    data += std::string(997, static_cast<char>('A' + i % 26)) + ",\r\n";
  data += "tail";
  const std::string path = Write(data);
  Strings in_place, ahead_seen;
  {
    ReadAheadFrom none(kNoFile);
    in_.Open(path, OpenMode::Fixed, 1000);
    EXPECT_EQ(TranslatedRecords(in_, &in_place), 3000);
  }
  ReadAheadFrom ahead(kEveryFile);
  in_.Open(path, OpenMode::Fixed, 1000);
  EXPECT_EQ(TranslatedRecords(in_, &ahead_seen), 3000);
  EXPECT_TRUE(ahead_seen == in_place);
  in_.Close();  // a file closed mid-way lets its second thread go
  in_.Open(path, OpenMode::Text);
  EXPECT_EQ(in_.LineInput().size(), 998u);
  in_.Close();
}

}  // namespace
}  // namespace corvane
