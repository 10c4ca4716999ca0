// The control file and the location table: what a start restores and an exit stores, byte
// for byte against lines worked out by hand.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "fake_operator.hpp"
#include "pipeline/time_import.hpp"
#include "screen/catalogue.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;
using testing::TempFolder;

// A line of the control file: the value, spaces to column 60, CR LF.
std::string Line(const std::string& value) {
  return value + std::string(60 - value.size(), ' ') + "\r\n";
}

std::string Lines(const std::vector<std::string>& values) {
  std::string out;
  for (const std::string& v : values) out += Line(v);
  return out;
}

class ControlFile : public ::testing::Test {
 protected:
  ControlFile() { std::filesystem::create_directories(settings()); }
  std::string settings() const { return tmp / "settings"; }
  std::string control_path() const { return tmp / "settings/Corvane_Control.dat"; }
  std::string loc_path() const { return tmp / "settings/LocFile.dat"; }

  // A fresh start of the program on the settings folder.
  frmTimeImport& Start() {
    ui = std::make_unique<FakeOperator>();
    F = std::make_unique<frmTimeImport>(*ui, Environment{settings(), Date{2026, 11, 22}});
    F->Form_Load();
    return *F;
  }
  void WriteControl(const std::string& bytes) { tmp.Write("settings/Corvane_Control.dat", bytes); }

  TempFolder tmp;
  std::unique_ptr<FakeOperator> ui;
  std::unique_ptr<frmTimeImport> F;
};

// The factory state with "Access" chosen, as an exit writes it: lines 1 to 102.
std::vector<std::string> FactoryAccessLines(const std::string& input, const std::string& output,
                                            const std::string& folder) {
  std::vector<std::string> v = {"1", input, output, "456", folder, "6"};
  for (const char* code : {"2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "61", "62"}) {
    v.push_back("E");
    v.push_back(code);
  }
  v.push_back("E");  // line 33, from txtCCtipDE
  v.push_back("69");
  for (int k = 15; k <= 42; ++k) {
    v.push_back("E");
    v.push_back("");
  }
  // chkDept, chkPayRate, chkSSN as the choice resets them; chkDiv, chkBr, chkSupEE unticked
  for (const char* check : {"1", "0", "1", "0", "0", "0"}) v.push_back(check);
  for (int wg = 0; wg < 3; ++wg) v.push_back("0");
  v.push_back("1");  // chkJob, ticked by the choice
  v.push_back("6.75");
  v.push_back("80");
  return v;
}

TEST_F(ControlFile, FirstStartReportsTheMissingFileAndExitWritesTheWholeScreen) {
  std::filesystem::remove_all(settings());
  frmTimeImport& f = Start();
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(ui->messages[0].text,
            "Unable to locate a file to store your default settings.\r\rFile not found\r\r"
            "A new one will be created in " +
                settings() + " called: Corvane_Control.dat");
  EXPECT_EQ(ui->messages[0].title, "Corvane");
  EXPECT_EQ(f.Caption, "Corvane Import Manager - v0.1");
  EXPECT_EQ(f.ChosenTC, "ABRA");
  EXPECT_EQ(f.S[CoNum].text, "123");
  EXPECT_EQ(f.S[pdEndDate].text, "11/22/2026");
  EXPECT_FALSE(std::filesystem::exists(control_path())) << "a start never writes the file";

  f.SelectTimeClock(CatalogueIndex("Access"));
  f.S[CoNum].text = "456";
  f.S[CorvaneInputFile].text = "/exports/access.csv";
  f.S[CorvaneOutputPath].text = "/evolution";
  f.S[dirInput].text = "/exports";
  f.Exit();
  EXPECT_EQ(TempFolder::Read(control_path()),
            Lines(FactoryAccessLines("/exports/access.csv", "/evolution", "/exports")));
  EXPECT_EQ(TempFolder::Read(loc_path()), "");
}

TEST_F(ControlFile, ASavedScreenComesBackAfterARestart) {
  const std::string exports = tmp / "exports";
  std::filesystem::create_directories(exports);
  {
    frmTimeImport& f = Start();
    f.SelectTimeClock(CatalogueIndex("Aloha v6.5.42"));
    f.S[CoNum].text = "456";
    f.S[txtReg].text = "R1";
    f.S[txt42DE].text = "D";
    f.S[txt42].text = "77";
    f.S[chkSupEE].value = 1;
    f.S[cmboWG2].list_index = 3;
    f.S[txtMinWage].text = "7.25";
    f.S[dirInput].text = exports;
    f.S[CorvaneInputFile].text = exports + "/labor.csv";
    f.S[CorvaneOutputPath].text = exports;
    f.NumHoursColumns = 9;
    f.S[pdEndDate].text = "10/31/2026";
    f.Form_Unload();
  }
  frmTimeImport& f = Start();
  EXPECT_TRUE(ui->messages.empty());
  EXPECT_EQ(f.ChosenTC, "Aloha v6.5.42");
  EXPECT_EQ(f.S[CoNum].text, "456");
  EXPECT_EQ(f.S[txtReg].text, "R1");
  EXPECT_EQ(f.S[txt42DE].text, "D");
  EXPECT_EQ(f.S[txt42].text, "77");
  EXPECT_EQ(f.S[chkSupEE].value, 1);
  EXPECT_EQ(f.S[cmboWG2].list_index, 3);
  EXPECT_EQ(f.S[txtMinWage].text, "7.25");
  EXPECT_EQ(f.NumHoursColumns, 9);
  EXPECT_EQ(f.S[pdEndDate].text, "11/22/2026") << "the end date is never stored";
  EXPECT_EQ(f.S[dirInput].text, exports);
  EXPECT_EQ(f.S[CorvaneInputFile].text, exports + "/labor.csv");
  EXPECT_EQ(f.S[CorvaneOutputPath].text, exports);
  EXPECT_FALSE(f.S[ShowSample].visible);
}

TEST_F(ControlFile, AShortFileTakesDefaultsAndCarriesTheLastValueOver) {
  std::vector<std::string> lines = {"1", "in", "out", "456", "/nowhere/at/all", "6"};
  for (int i = 0; i < 6; ++i) {
    lines.push_back("D");
    lines.push_back(std::to_string(20 + i));
  }
  WriteControl(Lines(lines));  // 18 lines
  frmTimeImport& f = Start();
  EXPECT_TRUE(ui->messages.empty());
  EXPECT_EQ(f.ChosenTC, "Access");
  EXPECT_EQ(f.S[txtMisc].text, "25");
  EXPECT_EQ(f.S[txtDisbDE].text, "E");
  EXPECT_EQ(f.S[txtDisb].text, "8");
  EXPECT_EQ(f.S[txtWaitOT].text, "62");
  EXPECT_EQ(f.S[txtCCtip].text, "69");
  EXPECT_EQ(f.S[txt15DE].text, "E");
  EXPECT_EQ(f.S[txt15].text, "");
  for (Ctl check : {chkDept, chkPayRate, chkSSN, chkDiv, chkBr, chkSupEE}) {
    EXPECT_EQ(f.S[check].value, 1) << Screen::NameOf(check);
  }
  EXPECT_EQ(f.S[chkJob].value, 0);
  // No default of their own: the "1" of line 96 and the "0" of line 100 are what is left.
  for (Ctl wg : {cmboWG1, cmboWG2, cmboWG3}) EXPECT_EQ(f.S[wg].list_index, 1);
  EXPECT_EQ(f.S[txtMinWage].text, "0");
  EXPECT_EQ(f.S[txtMiscText].text, "0");
  // The input folder does not exist: that step is skipped, and the box keeps line 2.
  EXPECT_EQ(f.S[CorvaneInputFile].text, "in");
}

TEST_F(ControlFile, LineThirtyThreeGoesToTheWaitOvertimeLetter) {
  std::vector<std::string> lines = FactoryAccessLines("in", "out", "/");
  lines[30] = "M";  // line 31, txtWaitOTDE
  lines[32] = "S";  // line 33, txtCCtipDE
  WriteControl(Lines(lines));
  frmTimeImport& f = Start();
  EXPECT_EQ(f.S[txtWaitOTDE].text, "S");
  EXPECT_EQ(f.S[txtCCtipDE].text, "E");
}

TEST_F(ControlFile, FailuresOfTheFirstFourLinesFallBackToTheFactoryState) {
  WriteControl(Line("1") + Line("in") + Line("out"));
  frmTimeImport& f = Start();
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(ui->messages[0].text,
            "Unable to set all your default settings.\r\rInput past end of file\r\r"
            "Please check all your inputs before creating your Evolution Import File.");
  EXPECT_EQ(f.S[CoNum].text, "123");
  EXPECT_EQ(f.ChosenTC, "ABRA");
  // Values read before the failure stay where the factory state does not reach.
  EXPECT_EQ(f.S[CorvaneOutputPath].text, "out");

  WriteControl(Lines({"500", "in", "out", "456"}));
  Start();
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_NE(ui->messages[0].text.find("Invalid property value"), std::string::npos);
  EXPECT_EQ(F->S[CoNum].text, "123");
}

TEST_F(ControlFile, ANonNumericFirstLineChoosesTheFirstClockQuietly) {
  WriteControl(Lines({"Access", "in", "out", "456"}));
  frmTimeImport& f = Start();
  EXPECT_TRUE(ui->messages.empty());
  EXPECT_EQ(f.ChosenTC, "ABRA");
  EXPECT_EQ(f.S[CoNum].text, "456");
}

TEST_F(ControlFile, ReadingCutsAtSixtyAndWritingGuardsThreePaths) {
  const std::string seventy(70, '7');
  WriteControl("1\r\nin\r\nout\r\n" + seventy + "\r\n");
  frmTimeImport& f = Start();
  EXPECT_EQ(f.S[CoNum].text, std::string(60, '7'));

  f.S[CoNum].text = "456";
  f.S[CorvaneInputFile].text = "/" + std::string(59, 'i');  // exactly 60
  f.S[CorvaneOutputPath].text = "/" + std::string(60, 'o');
  f.S[dirInput].text = "/" + std::string(60, 'd');
  f.Form_Unload();
  const std::string saved = TempFolder::Read(control_path());
  EXPECT_EQ(saved.substr(62, 62), Line("/" + std::string(59, 'i')));
  EXPECT_EQ(saved.substr(124, 62), Line("Output path (folder for Evolution Import file)"));
  EXPECT_EQ(saved.substr(248, 62), Line("c:\\"));
}

TEST_F(ControlFile, AnOverlongCompanyEndsTheSaveAndKeepsBothFilesAsTheyWere) {
  const std::string stores = "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n";
  const std::string control = Lines(FactoryAccessLines("in", "out", "/"));
  tmp.Write("settings/LocFile.dat", stores);
  WriteControl(control);
  frmTimeImport& f = Start();
  f.S[CoNum].text = std::string(61, '1');
  f.Form_Unload();
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(ui->messages[0].text,
            "Unable to store Corvane_Control Information.Invalid procedure call or argument");
  EXPECT_EQ(TempFolder::Read(control_path()), control);
  EXPECT_EQ(TempFolder::Read(loc_path()), stores);
  // nothing half-written is left beside them
  for (const auto& entry : std::filesystem::directory_iterator(settings())) {
    EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
  }
}

// The location table's rows as LocFile holds them.
const char* const kTwoStores =
    "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n"
    "\"9\",D20,E30,E40,E50,E60,E70,E80,E90,H100,E110,E120,E610,E620,E\r\n";

class Locations : public ControlFile {
 protected:
  frmTimeImport& StartWithStores(const std::string& table) {
    WriteControl(Lines(FactoryAccessLines("in", "out", "/")));
    tmp.Write("settings/LocFile.dat", table);
    return Start();
  }
};

TEST_F(Locations, LookupFillsTheFourteenCategoriesOfAKnownStore) {
  frmTimeImport& f = StartWithStores(kTwoStores);
  f.S[LocNum].text = " 9 ";
  f.S[txt15].text = "keep";
  f.cmdLookup_Click();
  EXPECT_EQ(f.S[txtRegDE].text, "D");
  EXPECT_EQ(f.S[txtReg].text, "20");
  EXPECT_EQ(f.S[txtHolDE].text, "H");
  EXPECT_EQ(f.S[txtHol].text, "100");
  EXPECT_EQ(f.S[txtCCtipDE].text, "E");
  EXPECT_EQ(f.S[txtCCtip].text, "") << "a cell of the letter alone has no code";
  EXPECT_EQ(f.S[txt15].text, "keep");
  EXPECT_TRUE(ui->messages.empty());
}

TEST_F(Locations, ALaterRowOfTheSameNumberWins) {
  frmTimeImport& f = StartWithStores(std::string(kTwoStores) +
                                     "7,E99,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n");
  f.S[LocNum].text = "7";
  f.cmdLookup_Click();
  EXPECT_EQ(f.S[txtReg].text, "99");
}

TEST_F(Locations, AnUnknownStoreIsAddedWithTheScreenAndStoredAtExit) {
  frmTimeImport& f = StartWithStores(kTwoStores);
  f.S[LocNum].text = "12";
  f.S[txtReg].text = " 5 ";
  f.cmdLookup_Click();
  EXPECT_EQ(f.INPData[3][1], "12");
  EXPECT_EQ(f.INPData[3][2], "E5");
  f.S[txtOT].text = "33";  // changed after the lookup: the exit stores it too
  f.Exit();
  EXPECT_EQ(TempFolder::Read(loc_path()),
            "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n"
            "9,D20,E30,E40,E50,E60,E70,E80,E90,H100,E110,E120,E610,E620,E\r\n"
            "12,E5,E33,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n");
}

TEST_F(Locations, ABlankStoreChangesNothingAndTheTableIsWrittenAsRead) {
  frmTimeImport& f = StartWithStores(kTwoStores);
  f.S[txtReg].text = "2";
  f.cmdLookup_Click();
  EXPECT_EQ(f.S[txtReg].text, "2");
  f.Exit();
  EXPECT_EQ(TempFolder::Read(loc_path()),
            "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n"
            "9,D20,E30,E40,E50,E60,E70,E80,E90,H100,E110,E120,E610,E620,E\r\n");
}

TEST_F(Locations, ABlankLineEndsTheTableAtExit) {
  frmTimeImport& f = StartWithStores(
      "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n\r\n"
      "9,D20,E30,E40,E50,E60,E70,E80,E90,H100,E110,E120,E610,E620,E\r\n");
  f.Exit();
  EXPECT_EQ(TempFolder::Read(loc_path()), "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n");
}

TEST_F(Locations, AHundredAndFirstStoreFindsNoRow) {
  std::string table;
  for (int n = 1; n <= 100; ++n)
    table += std::to_string(n) + ",E1,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E13,E14\r\n";
  frmTimeImport& f = StartWithStores(table);
  f.S[LocNum].text = "101";
  f.cmdLookup_Click();
  f.Exit();
  EXPECT_TRUE(ui->messages.empty());
  EXPECT_EQ(TempFolder::Read(loc_path()), table);
}

TEST_F(Locations, AStartWithoutAControlFileNeverReadsTheTable) {
  tmp.Write("settings/LocFile.dat", kTwoStores);
  frmTimeImport& f = Start();
  f.Exit();
  EXPECT_EQ(TempFolder::Read(loc_path()), "");
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

class SideForms : public ControlFile {};

TEST_F(SideForms, AStartFromTheControlFileShowsTheCompanysCustomisations) {
  WriteControl(Lines(FactoryAccessLines("in", "out", "/")));  // CoNum 456
  tmp.Write(
      "settings/TimeImport_TMsettings.dat",
      "\"456\",\"True\",\"True\",\"False\",\"2\",\"T\",\"3\",\"T\",\"4\",\"F\",\"0\",\"F\"\r\n");
  tmp.Write("settings/TimeImport_K8settings.dat",
            "\"456\",\"False\",\"True\",\"True\",\"1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
  frmTimeImport& f = Start();
  EXPECT_EQ(f.TMdept.DivLen.text, "2");
  EXPECT_EQ(f.TMdept.DeptInc.text, "F");
  EXPECT_EQ(f.TMdept.rdoDeptNo.value, 1);
  EXPECT_EQ(f.Kv8.rdoBadge.value, 1);
  EXPECT_EQ(f.Kv8.List[0].list_index, 1);
  EXPECT_FALSE(f.TMdept.visible);
  EXPECT_FALSE(f.Kv8.visible);
}

TEST_F(SideForms, AFirstStartReadsKronosButNotTimeManager) {
  // The factory state's company is 123.
  tmp.Write(
      "settings/TimeImport_TMsettings.dat",
      "\"123\",\"True\",\"True\",\"True\",\"2\",\"T\",\"3\",\"T\",\"4\",\"T\",\"0\",\"F\"\r\n");
  tmp.Write("settings/TimeImport_K8settings.dat",
            "\"123\",\"False\",\"True\",\"True\",\"1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
  frmTimeImport& f = Start();
  ASSERT_EQ(ui->messages.size(), 1u);  // the missing control file
  EXPECT_EQ(f.Kv8.rdoBadge.value, 1);
  EXPECT_EQ(f.TMdept.DivLen.text, "0");
  EXPECT_EQ(f.TMdept.rsTM.rows().size(), 0u);
}

TEST_F(SideForms, TheButtonsOpenTheFormsForTheCompanyNowTyped) {
  WriteControl(Lines(FactoryAccessLines("in", "out", "/")));
  tmp.Write("settings/TimeImport_K8settings.dat",
            "\"77\",\"True\",\"False\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"2\"\r\n");
  frmTimeImport& f = Start();
  f.S[CoNum].text = "77";
  f.cmdKv8_Click();
  EXPECT_TRUE(f.Kv8.visible);
  EXPECT_EQ(f.Kv8.rdoPRno.value, 1);
  EXPECT_EQ(f.Kv8.List[5].list_index, 2);

  f.SelectTimeClock(CatalogueIndex("Kronos v6 csv"));
  EXPECT_EQ(f.TMdept.lblTitle.caption, "Customize Kronos/ADP");
  f.cmdTM_Click();
  EXPECT_EQ(f.TMdept.caption, "Kronos/ADP Customization");
  EXPECT_FALSE(f.TMdept.DivLen.visible);
  f.SelectTimeClock(CatalogueIndex("Aloha v6"));
  EXPECT_EQ(f.TMdept.lblTitle.caption, "Customize Aloha");
  f.SelectTimeClock(CatalogueIndex("Time Manager v2.8"));
  f.cmdTM_Click();
  EXPECT_EQ(f.TMdept.caption, "Time Manager Customization");
  EXPECT_TRUE(f.TMdept.DivLen.visible);

  f.cmdAssEcodes_Click();
  EXPECT_TRUE(f.ECode.visible);
  ASSERT_EQ(f.ECode.ECodeGrid.RowCount(), 1u);  // the starter row of company 77
  EXPECT_EQ(f.ECode.ECodeGrid.Row(0).Package, "Time Manager v2.8");
  f.Exit();
  EXPECT_FALSE(f.ECode.visible);
  EXPECT_FALSE(f.Kv8.visible);
  // Exit saves no customisation: the starter row never reached the file.
  EXPECT_EQ(TempFolder::Read(tmp / "settings/TimeImport_EarnCodes.dat"), "");
}

TEST_F(SideForms, EachRunReadsTheCompanysCodesAfresh) {
  WriteControl(Lines(FactoryAccessLines("in", "out", "/")));
  frmTimeImport& f = Start();
  tmp.Write("settings/TimeImport_EarnCodes.dat",
            "\"456\",\"Kronos v6\",\"4\",\"e\",\"12\",\"$\",2,\"N\"\r\n"
            "\"999\",\"Kronos v6\",\"4\",\"D\",\"99\",\"H\",1,\"N\"\r\n");
  // A run stopped by a check after the table was made: Squirrel without a location.
  f.SelectTimeClock(CatalogueIndex("Squirrel v3.2"));
  f.S[CorvaneInputFile].text = tmp / "in.ccc";
  f.S[CorvaneOutputPath].text = tmp.path().string();
  f.S[pdEndDate].text = "11/20/2026";
  f.Corvane();
  ASSERT_NE(f.rsECodes, nullptr);
  std::string DolHrs;
  std::int16_t eShift = 0;
  std::string eSkip;
  ASSERT_TRUE(SetEcodes(f.rsECodes->rsECodes, 4, DolHrs, eShift, eSkip, f.ImportRec));
  EXPECT_EQ(f.ImportRec.Earning_Code, Value("12"));
  EXPECT_EQ(f.ImportRec.DorE, Value("E"));
  EXPECT_EQ(DolHrs, "$");
  EXPECT_EQ(eShift, 2);
}

}  // namespace
}  // namespace corvane
