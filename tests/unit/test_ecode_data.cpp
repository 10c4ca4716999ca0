// The earning-code store: reading the file, the lookup of the run, and the grid's save.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "error_of.hpp"
#include "fake_operator.hpp"
#include "screen/screen.hpp"
#include "settings/ecode_data.hpp"
#include "settings/ecode_grid.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::ErrorOf;
using testing::FakeOperator;
using testing::TempFolder;

constexpr const char* kFile = "TimeImport_EarnCodes.dat";
const std::string k456 = "\"456\",\"P\",\"4\",\"E\",\"12\",\"H\",1,\"N\"\r\n";

// What SetEcodes hands back, started from values it must either overwrite or leave alone.
struct Lookup {
  bool result = false;
  std::string dolhrs = "x", skip = "z";
  std::int16_t shift = 7;
  ImportRecord rec;
};

class ECodeTest : public ::testing::Test {
 protected:
  ECodeTest() {
    main[CoNum].text = "123";
    main[PickTC].items = {"Aloha v6.2", "AE v1.0.28.616"};
    main[PickTC].list_index = 0;
  }
  std::string dir() const { return tmp.path().string(); }
  std::string file() const { return tmp / kFile; }
  ECodeData Load() { return ECodeData(dir(), main, ui); }
  Lookup Find(ECodeData& data, std::int16_t pos) {
    Lookup l;
    l.rec.DorE = "D";
    l.rec.Earning_Code = "99";
    l.result = SetEcodes(data.rsECodes, pos, l.dolhrs, l.shift, l.skip, l.rec);
    return l;
  }
  void Open(const std::string& folder) { cmdAssEcodes_Click(form, used, folder, main, ui); }

  TempFolder tmp;
  Screen main;
  FakeOperator ui;
  frmECode form{ui};
  std::unique_ptr<ECodeData> used;
};

using ECodeDataRead = ECodeTest;
using SetEcodesLookup = ECodeTest;
using ECodeGridForm = ECodeTest;

TEST_F(ECodeDataRead, MissingFolderAndFileAreMadeQuietlyAndAStarterRowAppears) {
  const std::string folder = tmp / "Corvane";
  ECodeData data(folder, main, ui);
  EXPECT_EQ(TempFolder::Read(folder + "/" + kFile), "");
  EXPECT_TRUE(ui.messages.empty());
  ASSERT_EQ(data.rsECodes.rows().size(), 1u);
  EXPECT_EQ(ECodeLine(data.rsECodes.Current()), R"("123","Aloha v6.2","1","E","?","H",1,"N")");
}

TEST_F(ECodeDataRead, QuotesAreOptionalLinesDoNotMatterAndCompanyIsExactText) {
  tmp.Write(kFile,
            "\"0123\",\"P\",\"4\",\"E\",\"12\",\"H\",1,\"N\"\r\n"
            "123 , Aloha , 5 , d , 7 , $ , 2 , y\n"
            "\"123\",\"P\",\"9\",\"E\"\r\n\"3\",\"H\",0,\"N\"\r\n");
  ECodeData data = Load();
  ASSERT_EQ(data.rsECodes.rows().size(), 3u);  // a company with rows gets no starter row
  EXPECT_EQ(data.rsECodes.ShownCount(), 2u);
  EXPECT_EQ(ECodeLine(data.rsECodes.Current()), R"("123","Aloha","5","d","7","$",2,"y")");
  EXPECT_EQ(ECodeLine(data.rsECodes.rows()[2]), R"("123","P","9","E","3","H",0,"N")");

  main[CoNum].text = "0123";
  EXPECT_EQ(Load().rsECodes.ShownCount(), 1u);
  main[CoNum].text = "00123";  // as numbers all three are one company; as text none is
  EXPECT_EQ(Load().rsECodes.Current().Earning_Code, "?");
}

TEST_F(ECodeDataRead, ADamagedRowStopsReadingKeepsEarlierRowsAndWithholdsTheStarter) {
  for (const std::string& damaged : {
           "\"123\",\"P\",\"four\",\"E\",\"12\",\"H\",1,\"N\"\r\n" + k456,
           "\"123\",\"P\",\"4\",\"E\",\"12\",\"H\",\"\",\"N\"\r\n" + k456,  // "" is not 0
           "\"123\",\"P\",\"4\",\"E\",\"12\",\"H\",9999999999,\"N\"\r\n" + k456,
           std::string("\"123\",\"P\",\"4\"\r\n"),  // the file ends inside the row
           std::string("\r\n"),                     // a blank last line
       }) {
    tmp.Write(kFile, k456 + damaged);
    ECodeData data = Load();
    ASSERT_EQ(data.rsECodes.rows().size(), 1u) << damaged;
    EXPECT_EQ(data.rsECodes.rows()[0].Company, "456");
  }
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ECodeDataRead, AnApostropheBreaksTheFilterAndTheTableStaysUnfiltered) {
  tmp.Write(kFile, k456);
  main[CoNum].text = "O'Hare";
  ECodeData data = Load();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].text, "Filters are an issue.");
  EXPECT_EQ(ui.messages[0].title, "Corvane");
  EXPECT_EQ(data.rsECodes.ShownCount(), 2u);  // the other company and the starter row
}

TEST_F(SetEcodesLookup, LaterDuplicateWinsButDollarsStickAndUnknownGetsDefaults) {
  tmp.Write(kFile,
            "\"123\",\"P\",\"4\",\"d\",\"ab\",\"$\",2,\"N\"\r\n"
            "\"456\",\"P\",\"4\",\"E\",\"ZZ\",\"H\",0,\"N\"\r\n"
            "\"123\",\"P\",\"4\",\"m\",\"cd\",\"H\",3,\"Y\"\r\n"
            "\"123\",\"P\",\"6\",\"E\",\"6\",\"h\",4,\"N\"\r\n"
            "\"123\",\"P\",\"6\",\"E\",\"7\",\"$ \",4,\"N\"\r\n");
  ECodeData data = Load();
  Lookup four = Find(data, 4);
  ASSERT_TRUE(four.result);
  EXPECT_EQ(four.rec.DorE.text(), "M");
  EXPECT_EQ(four.rec.Earning_Code.text(), "CD");  // not the other company's ZZ
  EXPECT_EQ(four.dolhrs, "$");
  EXPECT_EQ(four.shift, 3);
  EXPECT_EQ(four.skip, "Y");

  EXPECT_EQ(Find(data, 6).dolhrs, "H");  // neither "h" nor "$ " is exactly "$"
  Lookup nine = Find(data, 9);
  ASSERT_TRUE(nine.result);
  EXPECT_EQ(nine.rec.DorE.text() + nine.rec.Earning_Code.text() + nine.dolhrs + nine.skip, "E?HN");
  EXPECT_EQ(nine.shift, 1);
}

TEST_F(SetEcodesLookup, FailuresAnswerFalse) {
  // An empty table (the damaged end withholds the starter row) leaves everything alone.
  tmp.Write(kFile, k456 + "\"x\"");
  ECodeData none = Load();
  Lookup empty = Find(none, 4);
  EXPECT_FALSE(empty.result);
  EXPECT_EQ(empty.rec.DorE.text() + empty.rec.Earning_Code.text() + empty.dolhrs + empty.skip,
            "D99xz");
  EXPECT_EQ(empty.shift, 7);

  // A Shift beyond 16 bits overflows after DorE, Earning_Code and DolHrs were taken.
  tmp.Write(kFile, "\"123\",\"P\",\"4\",\"S\",\"12\",\"$\",70000,\"Y\"\r\n");
  ECodeData wide = Load();
  Lookup half = Find(wide, 4);
  EXPECT_FALSE(half.result);
  EXPECT_EQ(half.rec.DorE.text() + half.rec.Earning_Code.text() + half.dolhrs + half.skip, "S12$N");
  EXPECT_EQ(half.shift, 1);
}

TEST_F(ECodeGridForm, SaveMendsEveryCompanysRowsAndWritesTheFileAfresh) {
  tmp.Write(kFile,
            "\"456\",\"Kronos v6\",\"2\",\"s\",\"30\",\"$\",0,\"Y\"\r\n"
            "123,Aloha v6.2,4,d,12,h,5,n\r\n"
            "\"123\",\"Aloha v6.2\",\"7\",\"H\",\"\",\"x\",-1,\"maybe\"\r\n");
  Open(dir());
  ASSERT_TRUE(form.visible);
  ASSERT_EQ(form.ECodeGrid.RowCount(), 2u);
  EXPECT_EQ(form.ECodeGrid.Text(0, 2), "4");
  EXPECT_TRUE(form.ECodeGrid.SetText(1, 4, "15"));

  form.cmdCloseForm_Click();
  EXPECT_EQ(TempFolder::Read(file()),
            "\"456\",\"Kronos v6\",\"2\",\"S\",\"30\",\"$\",0,\"Y\"\r\n"
            "\"123\",\"Aloha v6.2\",\"4\",\"D\",\"12\",\"H\",1,\"N\"\r\n"
            "\"123\",\"Aloha v6.2\",\"7\",\"E\",\"15\",\"H\",1,\"N\"\r\n");
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(form.ECodeGrid.DataSource(), nullptr);
}

TEST_F(ECodeGridForm, StarterRowIsSavedOnlyBySaveNotByCancel) {
  tmp.Write(kFile, k456);
  Open(dir());
  ASSERT_EQ(form.ECodeGrid.RowCount(), 1u);
  form.cndCancel_Click();
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(TempFolder::Read(file()), k456);

  Open(dir());
  form.cmdCloseForm_Click();
  EXPECT_EQ(TempFolder::Read(file()),
            k456 + "\"123\",\"Aloha v6.2\",\"1\",\"E\",\"?\",\"H\",1,\"N\"\r\n");
}

TEST_F(ECodeGridForm, CellsRefuseBrokenNumbersAndAddedRowsStayShownUntilSaved) {
  Open(dir());
  DataGrid& grid = form.ECodeGrid;
  for (const char* wrong : {"4.5", "abc", "", "-", "9999999999", "1e2"}) {
    EXPECT_FALSE(grid.SetText(0, 2, wrong)) << wrong;
  }
  EXPECT_EQ(grid.Text(0, 2), "1");
  EXPECT_FALSE(grid.SetText(5, 0, "x"));
  EXPECT_EQ(ErrorOf([&] { grid.Text(0, 8); }), 9);

  ASSERT_EQ(grid.AddRow(), std::optional<std::size_t>(1));  // no Company typed: still shown
  ASSERT_EQ(grid.AddRow(), std::optional<std::size_t>(2));
  EXPECT_TRUE(grid.SetText(2, 0, "123"));
  EXPECT_TRUE(grid.SetText(2, 2, " +8 "));
  EXPECT_TRUE(grid.DeleteRow(0));
  EXPECT_EQ(grid.Text(1, 2), "8");

  form.cmdCloseForm_Click();
  EXPECT_EQ(TempFolder::Read(file()),
            "\"\",\"Aloha v6.2\",\"0\",\"E\",\"?\",\"H\",1,\"N\"\r\n"
            "\"123\",\"Aloha v6.2\",\"8\",\"E\",\"?\",\"H\",1,\"N\"\r\n");
}

TEST_F(ECodeGridForm, ColumnsFollowTheTimeClockShown) {
  Open(dir());
  const auto& cols = form.ECodeGrid.Columns();
  ASSERT_EQ(cols.size(), 8u);
  const char* captions[] = {"Company",   "Time Clock", "Time Category#", "D or E",
                            "Earn Code", "$ or H",     "Shift",          "Skip? Y/N"};
  const int widths[] = {900, 900, 790, 600, 900, 600, 600, 900};
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(cols[i].caption, captions[i]);
    EXPECT_EQ(cols[i].width, widths[i]);
    EXPECT_EQ(cols[i].hidden, i == 1);
    EXPECT_EQ(cols[i].alignment == ColumnAlignment::Center, i == 2 || i == 4 || i == 7);
  }
  main[PickTC].list_index = 1;
  Open(dir());
  EXPECT_EQ(cols[2].caption, "Pay Designation");
  EXPECT_EQ(cols[2].width, 900);
}

TEST_F(ECodeGridForm, FailuresOpenAnEmptyGridAndAFailedSaveSaysSoAndHides) {
  std::filesystem::create_directory(file());  // a folder where the file should be
  Open(dir());
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].text, "Please assign Earning Codes for company 123");
  EXPECT_TRUE(form.visible);
  EXPECT_EQ(form.ECodeGrid.RowCount(), 0u);
  EXPECT_FALSE(form.ECodeGrid.AddRow());
  form.cmdCloseForm_Click();
  EXPECT_FALSE(form.visible);
  ASSERT_EQ(ui.messages.size(), 2u);
  EXPECT_EQ(ui.messages[1].text,
            "The earning codes could not be saved.\r\rObject variable or With block variable "
            "not set\r\rThe settings saved before are kept as they were.");
  EXPECT_EQ(ui.messages[1].title, "Corvane");

  // The folder vanishes while the grid is open: the save cannot make its new file.
  const std::string folder = tmp / "Corvane";
  Open(folder);
  std::filesystem::remove_all(folder);
  form.cmdCloseForm_Click();
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(form.ECodeGrid.DataSource(), nullptr);
  ASSERT_EQ(ui.messages.size(), 3u);
  EXPECT_EQ(ui.messages[2].text,
            "The earning codes could not be saved.\r\rPath not found\r\rThe settings saved "
            "before are kept as they were.");
}

}  // namespace
}  // namespace corvane
