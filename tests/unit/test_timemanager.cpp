// The Time Manager customisation form: the segment boxes' validation, the file, and the
// department breakout of the Kronos clocks.
#include <gtest/gtest.h>

#include <filesystem>

#include "fake_operator.hpp"
#include "screen/screen.hpp"
#include "settings/timemanager.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;
using testing::Shown;
using testing::TempFolder;
using Lines = std::vector<std::string>;

class TMdept : public ::testing::Test {
 protected:
  TMdept() { main[CoNum].text = "123"; }
  std::string File() const { return tmp / "Corvane/TimeImport_TMsettings.dat"; }
  void WriteFile(const std::string& bytes) {
    std::filesystem::create_directories(tmp.path() / "Corvane");
    tmp.Write("Corvane/TimeImport_TMsettings.dat", bytes);
  }
  Lines Texts() const {
    Lines t;
    for (const Shown& m : ui.messages) t.push_back(m.text);
    return t;
  }

  TempFolder tmp;
  FakeOperator ui;
  Screen main;
  frmTMdept form{ui, main, tmp / "Corvane"};
};

TEST_F(TMdept, TotalOver15ClearsTheBoxBeingEdited) {
  form.SetText(form.DivLen, "5");
  form.SetText(form.BrLen, "5");
  form.SetText(form.DeptLen, "5");
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(form.DivInc.text, "T");
  form.SetText(form.TeamLen, "1");
  EXPECT_EQ(Texts(), Lines{"Total of all segments can not be greater than 15."});
  EXPECT_EQ(ui.messages[0].title, "Corvane - Time Manager");
  EXPECT_EQ(ui.messages[0].buttons, MsgButtons::OKOnly);
  EXPECT_EQ(form.TeamLen.text, "0");
  EXPECT_EQ(form.TeamInc.text, "F");

  // the edited box gives way even when another holds the larger length
  form.SetText(form.BrLen, "0");
  form.SetText(form.DeptLen, "0");
  form.SetText(form.DivLen, "12");
  form.SetText(form.BrLen, "4");
  EXPECT_EQ(ui.messages.size(), 2u);
  EXPECT_EQ(form.BrLen.text, "0");
  EXPECT_EQ(form.BrInc.text, "F");
  EXPECT_EQ(form.DivLen.text, "12");
}

TEST_F(TMdept, ALengthThatIsNoNumberIsReset) {
  form.SetText(form.BrLen, "3");
  form.SetText(form.BrLen, "3x");
  form.SetText(form.DeptLen, "4");
  form.SetText(form.DeptLen, "");
  EXPECT_EQ(Texts(), (Lines{"Length of Branch segment must be a number",
                            "Length of Department segment must be a number"}));
  EXPECT_EQ(form.BrLen.text, "0");
  EXPECT_EQ(form.BrInc.text, "F");
  EXPECT_EQ(form.DeptLen.text, "0");
  EXPECT_EQ(form.DeptInc.text, "F");
}

TEST_F(TMdept, IncludeBoxesTakeTOrF) {
  form.SetText(form.DivInc, "t");
  EXPECT_EQ(form.DivInc.text, "T");
  form.SetText(form.DivInc, "x");
  EXPECT_EQ(form.DivInc.text, "F");
  form.SetText(form.TeamInc, "");
  EXPECT_EQ(form.TeamInc.text, "F");
  // switching a segment off by hand keeps its length
  form.SetText(form.BrLen, "4");
  form.SetText(form.BrInc, "f");
  EXPECT_EQ(form.BrInc.text, "F");
  EXPECT_EQ(form.BrLen.text, "4");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(TMdept, ReadSettingsShowsTheCompanyAndSaveRewritesEveryRow) {
  WriteFile(
      "\"123\",\"True\",\"True\",\"False\",\"2\",\"T\",\"2\",\"T\",\"4\",\"T\",\"3\",\"F\"\r\n"
      "\"77\",\"False\",\"False\",\"True\",\"10\",\"T\",\"0\",\"F\",\"5\",\"F\",\"0\",\"F\"\r\n");
  main[CoNum].text = "77";
  form.ReadSettings();
  EXPECT_EQ(form.rdoBadge.value, 1);
  EXPECT_EQ(form.rdoPRno.value, 1);
  EXPECT_EQ(form.rdoDeptYes.value, 1);
  EXPECT_EQ(form.DivLen.text, "10");
  EXPECT_EQ(form.DeptInc.text, "F");

  // another company's lengths are shown as stored, not checked against the boxes before
  main[CoNum].text = "123";
  form.Set_rsTM();
  EXPECT_EQ(form.DeptLen.text, "4");
  EXPECT_EQ(form.DeptFrame.caption, "Department Worked");
  EXPECT_TRUE(ui.messages.empty());

  form.SetText(form.TeamLen, "1");
  form.SetOption(form.rdoEmp, false);  // off alone leaves both off: Save writes False
  form.cmdClose_Click();
  EXPECT_EQ(
      TempFolder::Read(File()),
      "\"123\",\"False\",\"True\",\"False\",\"2\",\"T\",\"2\",\"T\",\"4\",\"T\",\"1\",\"T\"\r\n"
      "\"77\",\"False\",\"False\",\"True\",\"10\",\"T\",\"0\",\"F\",\"5\",\"F\",\"0\",\"F\"\r\n");
}

TEST_F(TMdept, NewCompanyDefaultsAndCancel) {
  form.ReadSettings();
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(form.TeamLen.text, "0");
  EXPECT_EQ(form.TeamInc.text, "F");
  form.SetText(form.DivLen, "3");
  form.SetOption(form.rdoBadge, true);
  form.cmdCancel_Click();
  EXPECT_EQ(form.DivLen.text, "0");
  EXPECT_EQ(form.DivInc.text, "F");
  EXPECT_EQ(form.rdoEmp.value, 1);
  EXPECT_EQ(TempFolder::Read(File()), "");
}

TEST_F(TMdept, SaveWithoutReadingTheFileKeepsOnlyTheTableAsItStands) {
  WriteFile(
      "\"999\",\"True\",\"True\",\"True\",\"1\",\"T\",\"0\",\"F\",\"0\",\"F\",\"0\",\"F\"\r\n");
  form.SetText(form.DeptLen, "6");
  form.cmdClose_Click();
  EXPECT_EQ(
      TempFolder::Read(File()),
      "\"123\",\"True\",\"True\",\"True\",\"0\",\"F\",\"0\",\"F\",\"6\",\"T\",\"0\",\"F\"\r\n");
}

TEST_F(TMdept, KronosV6CsvShowsOnlyBranchAndDepartmentAndKeepsTheRest) {
  const std::string line =
      "\"123\",\"False\",\"True\",\"True\",\"2\",\"T\",\"3\",\"T\",\"4\",\"F\",\"1\",\"T\"\r\n";
  WriteFile(line);
  form.ReadSettings();
  main[PickTC].items = {"Kronos/ADP", "Kronos v6 csv"};
  main[PickTC].list_index = 1;
  main[cmdTM].caption = "Department Breakout";
  form.cmdTM_Click();
  EXPECT_TRUE(form.visible);
  EXPECT_EQ(form.caption, "Kronos/ADP Customization");
  for (const Control* c :
       {&form.empnoframe, &form.PayRateFrame, &form.DeptFrame, &form.lblDiv, &form.DivLen,
        &form.DivInc, &form.lblTeam, &form.TeamLen, &form.TeamInc}) {
    EXPECT_FALSE(c->visible) << c->name;
  }
  EXPECT_TRUE(form.BrLen.visible);
  EXPECT_TRUE(form.DeptInc.visible);
  form.cmdClose_Click();
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(TempFolder::Read(File()), line);

  main[cmdTM].caption = "Customize Time Manager";
  form.cmdTM_Click();
  EXPECT_EQ(form.caption, "Time Manager Customization");
  EXPECT_TRUE(form.empnoframe.visible);
  EXPECT_TRUE(form.TeamInc.visible);
}

TEST_F(TMdept, DamagedRowsAndApostrophes) {
  WriteFile(
      "\"1\",\"True\",\"True\",\"True\",\"1\",\"T\",\"0\",\"F\",\"0\",\"F\",\"0\",\"F\"\r\n"
      "\"2\",\"True\",\"True\",\"True\",\"one\",\"T\",\"0\",\"F\",\"0\",\"F\",\"0\",\"F\"\r\n"
      "\"123\",\"True\",\"True\",\"True\",\"1\",\"T\",\"0\",\"F\",\"0\",\"F\",\"0\",\"F\"\r\n");
  form.ReadSettings();
  ASSERT_EQ(form.rsTM.rows().size(), 1u);
  EXPECT_EQ(form.rsTM.rows()[0].Company, "1");
  EXPECT_TRUE(ui.messages.empty());

  main[CoNum].text = "O'Brien";
  form.Set_rsTM();
  EXPECT_EQ(Texts(),
            Lines{"Warning - error occurred with gathering Time Manager data for O'Brien"});
  EXPECT_EQ(ui.messages[0].title, "Corvane");
}

}  // namespace
}  // namespace corvane
