// The real writers and savers on a disk that fails: a run never reports an import file ready
// that was not written whole, and a settings save that fails keeps the old file byte for byte
// and says so.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "error_of.hpp"
#include "fake_operator.hpp"
#include "faulty_disk.hpp"
#include "pipeline/time_import.hpp"
#include "screen/catalogue.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::ErrorOf;
using testing::FakeOperator;
using testing::FaultyDisk;
using testing::TempFolder;

class OnAFailingDisk : public ::testing::Test {
 protected:
  OnAFailingDisk() {
    std::filesystem::create_directories(tmp.path() / "settings");
    F.Form_Load();
    ui.messages.clear();  // the first start's word about the missing control file
  }
  std::string Settings(const std::string& name) const { return tmp / ("settings/" + name); }

  // An "Access" run of company 123 over `employees` employees with 40 regular and 2 overtime
  // hours each: two import lines and four audit lines an employee.
  void PrepareAccessRun(int employees) {
    std::string csv =
        "h1,h2,h3,h4,h5,h6,h7,h8,h9,h10,h11,h12,h13,h14,h15,h16,h17,h18,h19,h20,h21\r\n";
    for (int n = 1; n <= employees; ++n) {
      csv += "S1,A," + std::to_string(1000 + n) + ",,,40,2,,,,,,,,,,,,,,\r\n";
    }
    const std::string input = tmp.Write("access.csv", csv);
    F.SelectTimeClock(CatalogueIndex("Access"));
    F.S[CorvaneInputFile].text = input;
    F.S[CorvaneOutputPath].text = tmp / "out";
    F.S[CoNum].text = "123";
    F.S[pdEndDate].text = "11/20/2026";
  }
  bool ReportShown() const {
    for (const auto& m : ui.messages) {
      if (m.text.find("The file is now ready for import into Evolution.") != std::string::npos) {
        return true;
      }
    }
    return false;
  }

  TempFolder tmp;
  FakeOperator ui;
  frmTimeImport F{ui, Environment{tmp / "settings", Date{2026, 11, 22}}};
};

TEST_F(OnAFailingDisk, AnAuditFileTheDiskCouldNotTakeEndsTheRunWithoutItsReport) {
  // The import file fits; the audit file's disk is full from its first byte. The few lines
  // wait in the stream until the close, which is where the disk says no.
  PrepareAccessRun(1);
  FaultyDisk disk("Corvane_Audit_123.txt");
  disk.room = 0;
  EXPECT_EQ(ErrorOf([&] { F.cmdInterface_Click(); }), 61);
  EXPECT_FALSE(ReportShown());
  EXPECT_FALSE(F.Reported());
  EXPECT_EQ(TempFolder::Read(tmp / "out/Corvane_Audit_123.txt"), "");
  EXPECT_EQ(TempFolder::Read(tmp / "out/123_ta.txt"),
            "\"1001\",\"\",,,,E,2,,40,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"\",,,,E,3,,2,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST_F(OnAFailingDisk, AWriterThatFailsEndsTheReadingUnderTheHandlerAndTheRunStillFails) {
  // Enough employees for the import file to reach the disk during the reading: the writer's
  // error ends the reading as an error does under the handler of "Access", quietly, and the
  // close then raises it again instead of reporting.
  const int employees = 3000;
  PrepareAccessRun(employees);
  FaultyDisk disk("123_ta.txt");
  disk.room = 4096;
  EXPECT_EQ(ErrorOf([&] { F.cmdInterface_Click(); }), 61);
  EXPECT_GT(F.TCcount, 0);
  EXPECT_LT(F.TCcount, employees);
  EXPECT_FALSE(ReportShown());
  EXPECT_EQ(std::filesystem::file_size(tmp / "out/123_ta.txt"), 4096u);
}

TEST_F(OnAFailingDisk, AnImportFileWhoseCloseFailsIsNotReported) {
  PrepareAccessRun(2);
  FaultyDisk disk("123_ta.txt");
  disk.close_error = EIO;
  EXPECT_EQ(ErrorOf([&] { F.cmdInterface_Click(); }), 57);
  EXPECT_FALSE(ReportShown());
  // With the disk well, the next press reports as ever.
  disk.close_error = 0;
  F.cmdInterface_Click();
  EXPECT_TRUE(ReportShown());
}

// The settings saved before each test's save, and the bytes they must keep.
constexpr const char* kCodes =
    "\"123\",\"Kronos v6\",\"1\",\"E\",\"2\",\"H\",1,\"N\"\r\n"
    "\"456\",\"Kronos v6\",\"4\",\"D\",\"77\",\"$\",2,\"Y\"\r\n";
constexpr const char* kK8 =
    "\"123\",\"True\",\"False\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n";
constexpr const char* kTM =
    "\"123\",\"True\",\"True\",\"False\",\"2\",\"T\",\"2\",\"T\",\"4\",\"T\",\"3\",\"F\"\r\n";

TEST_F(OnAFailingDisk, AFailedEarningCodeSaveKeepsTheOldFileAndSaysSo) {
  tmp.Write("settings/TimeImport_EarnCodes.dat", kCodes);
  F.S[CoNum].text = "123";
  F.cmdAssEcodes_Click();
  DataGrid& grid = F.ECode.ECodeGrid;
  ASSERT_EQ(grid.RowCount(), 1u);
  grid.SetText(0, grid.ColumnIndex("Earning_Code"), "12");
  {
    // The disk fills in the middle of the first row.
    FaultyDisk disk("TimeImport_EarnCodes.dat");
    disk.room = 20;
    F.ECode.cmdCloseForm_Click();
  }
  EXPECT_EQ(TempFolder::Read(Settings("TimeImport_EarnCodes.dat")), kCodes);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].text,
            "The earning codes could not be saved.\r\rDisk full\r\rThe settings saved before "
            "are kept as they were.");
  EXPECT_EQ(ui.messages[0].title, "Corvane");
  EXPECT_FALSE(F.ECode.visible);
}

TEST_F(OnAFailingDisk, AFailedCustomisationSaveKeepsTheOldFileAndTheFormOpen) {
  tmp.Write("settings/TimeImport_K8settings.dat", kK8);
  tmp.Write("settings/TimeImport_TMsettings.dat", kTM);
  F.S[CoNum].text = "123";
  F.Kv8.Form_Load();
  F.TMdept.ReadSettings();
  F.Kv8.Show();
  F.TMdept.Show();
  F.Kv8.SetOption(F.Kv8.rdoPRyes, true);
  F.TMdept.SetOption(F.TMdept.rdoDeptYes, true);
  {
    FaultyDisk disk("TimeImport_K8settings.dat");
    disk.rename_error = EACCES;
    F.Kv8.cmdClose_Click();
  }
  {
    FaultyDisk disk("TimeImport_TMsettings.dat");
    disk.close_error = EIO;
    F.TMdept.cmdClose_Click();
  }
  EXPECT_EQ(TempFolder::Read(Settings("TimeImport_K8settings.dat")), kK8);
  EXPECT_EQ(TempFolder::Read(Settings("TimeImport_TMsettings.dat")), kTM);
  ASSERT_EQ(ui.messages.size(), 2u);
  EXPECT_EQ(ui.messages[0].text,
            "The Kronos 8 settings could not be saved.\r\rPermission denied\r\rThe settings "
            "saved before are kept as they were.");
  EXPECT_EQ(ui.messages[1].text,
            "The Time Manager settings could not be saved.\r\rDevice I/O error\r\rThe settings "
            "saved before are kept as they were.");
  // Still open with the operator's choices: Save can be pressed again once the disk is well.
  EXPECT_TRUE(F.Kv8.visible);
  EXPECT_TRUE(F.TMdept.visible);
  F.Kv8.cmdClose_Click();
  EXPECT_FALSE(F.Kv8.visible);
  EXPECT_EQ(TempFolder::Read(Settings("TimeImport_K8settings.dat")),
            "\"123\",\"True\",\"True\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
}

TEST_F(OnAFailingDisk, AFailedExitSaveKeepsTheControlFileAndTheLocationTable) {
  const std::string stores = "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n";
  const std::string control(102 * 62, 'c');  // any bytes: they are only to survive
  tmp.Write("settings/LocFile.dat", stores);
  tmp.Write("settings/Corvane_Control.dat", control);
  {
    FaultyDisk disk("Corvane_Control.dat");
    disk.room = 62 * 10;  // ten lines, then the disk is full
    F.Form_Unload();
  }
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].text, "Unable to store Corvane_Control Information.Disk full");
  EXPECT_EQ(TempFolder::Read(Settings("Corvane_Control.dat")), control);
  EXPECT_EQ(TempFolder::Read(Settings("LocFile.dat")), stores);
  for (const auto& entry : std::filesystem::directory_iterator(tmp.path() / "settings")) {
    EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
  }
}

}  // namespace
}  // namespace corvane
