// The reader shapes and the error frames, driven with a translator that records what it saw.
#include <gtest/gtest.h>

#include "fake_operator.hpp"
#include "pipeline/dispatch.hpp"
#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "screen/catalogue.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;
using testing::TempFolder;

// What the recording translator saw, and where it should fail.
struct Seen {
  std::vector<std::string> records;
  int fail_at = -1;  // the record (from 0) whose translation raises error 13
};
Seen seen;

struct ThreeFields {
  Value a, b, c;
};

bool ReadThree(frmTimeImport& F) {
  auto& in = F.Fields<ThreeFields>();
  F.File(1).Input(in.a);
  F.File(1).Input(in.b);
  F.File(1).Input(in.c);
  return true;
}

void RecordFields(frmTimeImport& F) {
  auto& in = F.Fields<ThreeFields>();
  if (static_cast<int>(seen.records.size()) == seen.fail_at) {
    seen.records.push_back("fail");
    Raise(13);
  }
  seen.records.push_back(in.a.str() + "|" + in.b.str() + "|" + in.c.str());
}

void RecordLine(frmTimeImport& F) {
  seen.records.push_back(F.InRec);
}

class Readers : public ::testing::Test {
 protected:
  Readers() : F(ui, Environment{tmp / "settings", Date{2026, 11, 22}}) {
    seen = Seen();
    F.Form_Load();
    ui.messages.clear();  // the first start's notice of a missing control file
  }
  // Prepares a run of a time clock over an input of these bytes.
  ClockEntry Prepare(std::string_view key, const std::string& bytes) {
    F.SelectTimeClock(CatalogueIndex(key));
    F.INFile = tmp.Write("input.dat", bytes);
    F.Output_Path = tmp / "out";
    F.OUTFile = tmp / "out/123_ta.txt";
    return *FindClock(key);
  }
  void Run(const ClockEntry& clock, const Translator& t) { RunBranch(F, clock, t); }

  TempFolder tmp;
  FakeOperator ui;
  frmTimeImport F;
};

const Translator kThree{.name = "three", .read = ReadThree, .translate = RecordFields};

TEST_F(Readers, CommaFieldsDropTheHeadingAndStopSilentlyInsideAHalfRecord) {
  ClockEntry clock = Prepare("Access", "h1,h2,h3\r\n1,a,x\r\n2,b\r\ny\r\n3,c");
  Run(clock, kThree);
  // the second record runs on over its short line; the third is cut short by the end
  EXPECT_EQ(seen.records, (std::vector<std::string>{"1|a|x", "2|b|y"}));
  EXPECT_EQ(F.TCcount, 2);
  EXPECT_TRUE(F.Ready);
  EXPECT_TRUE(TempFolder::Read(tmp / "out/123_ta.txt").empty());  // created all the same
}

TEST_F(Readers, WithoutAHandlerTheErrorEndsTheProgram) {
  ClockEntry clock = Prepare("Access", "h1,h2,h3\r\n1,a,x\r\n3,c");
  clock.frame = Frame::NoHandler;
  try {
    Run(clock, kThree);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 62);
  }
  EXPECT_EQ(seen.records, (std::vector<std::string>{"1|a|x"}));
}

TEST_F(Readers, AHandlerEndsTheReadingAtATranslatorError) {
  ClockEntry clock = Prepare("Access", "h,h,h\r\n1,a,x\r\n2,b,y\r\n3,c,z\r\n");
  seen.fail_at = 1;
  Run(clock, kThree);
  EXPECT_EQ(seen.records, (std::vector<std::string>{"1|a|x", "fail"}));
  EXPECT_EQ(F.TCcount, 1);
}

TEST_F(Readers, IgnoreGoesOnWithTheNextRecord) {
  ClockEntry clock = Prepare("Access", "h,h,h\r\n1,a,x\r\n2,b,y\r\n3,c,z\r\n");
  clock.frame = Frame::Ignore;
  seen.fail_at = 1;
  Run(clock, kThree);
  EXPECT_EQ(seen.records, (std::vector<std::string>{"1|a|x", "fail", "3|c|z"}));
  EXPECT_EQ(F.TCcount, 3);
}

TEST_F(Readers, AnEmptyFileUnderAHandlerReportsZeroRecords) {
  ClockEntry clock = Prepare("Access", "");
  Run(clock, kThree);
  EXPECT_TRUE(seen.records.empty());
  EXPECT_EQ(F.TCcount, 0);
  EXPECT_TRUE(F.fs.fileexists(tmp / "out/Corvane_Audit_123.txt"));
}

TEST_F(Readers, WholeLinesAreReadOneAheadSoTheLastLineNeedsAnExtraCall) {
  const std::string bytes = "TITLE\r\nA\nB\rC";
  ClockEntry clock = Prepare("ADI", bytes);
  clock.frame = Frame::Handler;
  Translator t{.name = "lines", .heading_lines = 1, .translate = RecordLine};
  Run(clock, t);
  EXPECT_EQ(seen.records, (std::vector<std::string>{"A", "B"}));

  seen = Seen();
  F.TCcount = 0;
  clock = Prepare("ADI", bytes);
  t.translate_last_line = true;
  Run(clock, t);
  EXPECT_EQ(seen.records, (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(F.TCcount, 3);
}

TEST_F(Readers, FixedRecordsNeverHandOnThePartialLastRecord) {
  std::string one(80, 'a');
  std::string two(80, 'b');
  ClockEntry clock = Prepare("ADP (extpaydt)", one + "\r\n" + two + "\r\n" + "short");
  Translator t{.name = "fixed", .translate = RecordLine};
  Run(clock, t);
  EXPECT_EQ(seen.records, (std::vector<std::string>{one + "\r\n", two + "\r\n"}));
  EXPECT_EQ(F.TCcount, 2);
}

TEST_F(Readers, AMissingOutputFolderIsToldOnceAndTheReadingEndsQuietly) {
  ClockEntry clock = Prepare("ADI", "A\r\nB\r\n");
  F.Output_Path = tmp / "no/such";
  F.OUTFile = tmp / "no/such/123_ta.txt";
  clock.frame = Frame::NoHandler;
  Translator t{.name = "writes", .translate = [](frmTimeImport& F) {
                 F.ImportRec.Hours = 8;
                 F.WriteOutputRec();
               }};
  EXPECT_NO_THROW(Run(clock, t));
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].title, "Check your Output Path");
  EXPECT_EQ(ui.messages[0].text,
            "Trouble creating output path to store your Evolution Import file.\r\rPath not "
            "found\r\r" +
                tmp / "no/such/123_ta.txt");
  F.CloseFiles();
  EXPECT_FALSE(F.Reported());
  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(Readers, AMissingInputFileGoesPastEvenAHandler) {
  ClockEntry clock = Prepare("Access", "");
  F.INFile = tmp / "gone.txt";
  for (Frame frame : {Frame::Handler, Frame::Ignore, Frame::NoHandler}) {
    clock.frame = frame;
    try {
      Run(clock, kThree);
      FAIL() << "no error";
    } catch (const FatalError& e) {
      EXPECT_EQ(e.error().number(), 53);
    }
  }
  EXPECT_FALSE(F.fs.fileexists(tmp / "out/123_ta.txt"));
}

}  // namespace
}  // namespace corvane
