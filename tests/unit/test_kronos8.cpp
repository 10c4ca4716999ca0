// The Kronos v8 customisation form: its file, the company's row, Save and Cancel.
#include <gtest/gtest.h>

#include <filesystem>

#include "error_of.hpp"
#include "fake_operator.hpp"
#include "screen/screen.hpp"
#include "settings/kronos8.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::ErrorOf;
using testing::FakeOperator;
using testing::TempFolder;

class Kv8 : public ::testing::Test {
 protected:
  Kv8() { main[CoNum].text = "123"; }
  std::string File() const { return tmp / "Corvane/TimeImport_K8settings.dat"; }
  void WriteFile(const std::string& bytes) {
    std::filesystem::create_directories(tmp.path() / "Corvane");
    tmp.Write("Corvane/TimeImport_K8settings.dat", bytes);
  }

  TempFolder tmp;
  FakeOperator ui;
  Screen main;
  frmKv8 form{ui, main, tmp / "Corvane"};
};

TEST_F(Kv8, NewCompanyGetsDefaultsSilentlyAndTheFileIsMade) {
  form.Form_Load();
  EXPECT_TRUE(std::filesystem::exists(File()));
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(form.rdoEmp.value, 1);
  EXPECT_EQ(form.rdoBadge.value, 0);
  EXPECT_EQ(form.rdoPRyes.value, 1);
  EXPECT_EQ(form.rdoDeptYes.value, 1);
  for (const Control& list : form.List) EXPECT_EQ(list.list_index, -1);
  ASSERT_EQ(form.rsK8.rows().size(), 1u);
  EXPECT_EQ(form.rsK8.rows()[0].Company, "123");
  // the row is in memory only until a Save
  EXPECT_EQ(TempFolder::Read(File()), "");

  form.Show();
  form.cmdClose_Click();
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(TempFolder::Read(File()),
            "\"123\",\"True\",\"True\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
}

TEST_F(Kv8, SaveWritesTheFormIntoItsCompanyAndRewritesEveryRow) {
  // The second row is written bare and over two lines: the reader takes ten items
  // whatever the line structure, and Save writes it back in the file's own form.
  WriteFile(
      "\"123\",\"True\",\"False\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
      "456,False,True\r\nFalse,2,1,-1,-1,0,-1\r\n");
  main[CoNum].text = "456";
  form.Form_Load();
  EXPECT_EQ(form.rdoEmp.value, 0);
  EXPECT_EQ(form.rdoBadge.value, 1);
  EXPECT_EQ(form.rdoPRyes.value, 1);
  EXPECT_EQ(form.rdoPRno.value, 0);
  EXPECT_EQ(form.rdoDeptNo.value, 1);
  EXPECT_EQ(form.List1().list_index, 2);
  EXPECT_EQ(form.List2().list_index, 1);
  EXPECT_EQ(form.List5().list_index, 0);

  form.SetOption(form.rdoPRno, true);
  EXPECT_EQ(form.rdoPRyes.value, 0);
  form.List_DblClick(1);
  form.cmdClose_Click();
  EXPECT_EQ(TempFolder::Read(File()),
            "\"123\",\"True\",\"False\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
            "\"456\",\"False\",\"False\",\"False\",\"-1\",\"1\",\"-1\",\"-1\",\"0\",\"-1\"\r\n");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Kv8, CancelRestoresTheSavedStateOfTheCompany) {
  WriteFile("\"123\",\"True\",\"False\",\"True\",\"0\",\"2\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
  form.Form_Load();
  form.Show();
  form.SetOption(form.rdoBadge, true);
  form.SetOption(form.rdoPRyes, true);
  form.List_DblClick(1);
  form.List3().list_index = 1;
  form.cmdCancel_Click();
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(form.rdoEmp.value, 1);
  EXPECT_EQ(form.rdoBadge.value, 0);
  EXPECT_EQ(form.rdoPRno.value, 1);
  EXPECT_EQ(form.List1().list_index, 0);
  EXPECT_EQ(form.List2().list_index, 2);
  EXPECT_EQ(form.List3().list_index, -1);
}

TEST_F(Kv8, DamagedRowEndsTheReadingKeepingTheRowsBefore) {
  WriteFile(
      "\"123\",\"True\",\"True\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
      "\"456\",\"Maybe\",\"True\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
      "\"789\",\"True\",\"True\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
  main[CoNum].text = "789";
  form.Form_Load();
  ASSERT_EQ(form.rsK8.rows().size(), 1u);
  EXPECT_EQ(form.rsK8.rows()[0].Company, "123");
  // the company's row is not looked for: the form keeps its design values
  EXPECT_EQ(form.List1().list_index, -1);
  EXPECT_TRUE(ui.messages.empty());

  // a last row cut short is dropped as well
  WriteFile(
      "\"123\",\"True\",\"True\",\"True\",\"0\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
      "\"456\",\"True\",\"True\"\r\n");
  form.Form_Load();
  ASSERT_EQ(form.rsK8.rows().size(), 1u);
}

TEST_F(Kv8, FailuresInGatheringTheCompanyShowTheWarning) {
  main[CoNum].text = "12'3";
  form.Form_Load();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].text, "Warning - error occurred with gathering Kronos 8 data for 12'3");
  EXPECT_EQ(ui.messages[0].title, "Corvane");
  EXPECT_EQ(ui.messages[0].buttons, MsgButtons::OKOnly);
  EXPECT_TRUE(form.rsK8.rows().empty());
  // Save cannot find the company either; the file stays as it was
  EXPECT_EQ(ErrorOf([&] { form.cmdClose_Click(); }), kTableArguments);
  EXPECT_EQ(TempFolder::Read(File()), "");

  // an index the lists do not have
  WriteFile("\"5\",\"True\",\"True\",\"True\",\"1\",\"7\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
  main[CoNum].text = "5";
  form.Form_Load();
  ASSERT_EQ(ui.messages.size(), 2u);
  EXPECT_EQ(ui.messages[1].text, "Warning - error occurred with gathering Kronos 8 data for 5");
  EXPECT_EQ(form.List1().list_index, 1);
}

TEST_F(Kv8, SaveAfterCoNumChangedKeepsTheEntriesUnderTheNewCompany) {
  form.Form_Load();
  form.List6().list_index = 2;
  main[CoNum].text = "0123";  // a different company from "123"
  form.cmdClose_Click();
  EXPECT_EQ(TempFolder::Read(File()),
            "\"123\",\"True\",\"True\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
            "\"0123\",\"True\",\"True\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"2\"\r\n");
}

}  // namespace
}  // namespace corvane
