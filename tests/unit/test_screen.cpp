// The screen model: the D-or-E rule, the pickers, the group operations.
#include <gtest/gtest.h>

#include "fake_operator.hpp"
#include "pipeline/time_import.hpp"
#include "screen/catalogue.hpp"
#include "screen/screen.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;

TEST(ScreenModel, DOrERuleAcceptsFiveLettersInAnyCase) {
  Screen s;
  FakeOperator ui;
  s[txtRegDE].text = "h";
  s.LeaveBox(txtRegDE, ui);
  EXPECT_EQ(s[txtRegDE].text, "H");
  for (const char* ok : {"d", "E", "s", "M"}) {
    s[txt15DE].text = ok;
    s.LeaveBox(txt15DE, ui);
  }
  EXPECT_TRUE(ui.messages.empty());
}

TEST(ScreenModel, DOrERuleReplacesAWrongLetterWithE) {
  Screen s;
  FakeOperator ui;
  for (const char* wrong : {"x", "", "EE", " e"}) {
    s[txtCCtipDE].text = wrong;
    s.LeaveBox(txtCCtipDE, ui);
    EXPECT_EQ(s[txtCCtipDE].text, "E") << '"' << wrong << '"';
  }
  ASSERT_EQ(ui.messages.size(), 4u);
  EXPECT_EQ(ui.messages[0].text, "Please enter E for Earnings, D for Deductions, H, M or S.");
  EXPECT_EQ(ui.messages[0].buttons, MsgButtons::OKOnly);
}

TEST(ScreenModel, ThreeBoxesHaveNoValidation) {
  Screen s;
  FakeOperator ui;
  for (Ctl box : {txtHolDE, txtAdjHde, txtAdjDde}) {
    s[box].text = "x";
    s.LeaveBox(box, ui);
    EXPECT_EQ(s[box].text, "x");
  }
  // a code box is not a D-or-E box
  s[txtReg].text = "x";
  s.LeaveBox(txtReg, ui);
  EXPECT_EQ(s[txtReg].text, "x");
  EXPECT_TRUE(ui.messages.empty());
}

TEST(ScreenModel, CategoriesPairTheirBoxes) {
  Screen s;
  EXPECT_EQ(Screen::NameOf(Boxes(Cat::Hol).de), "txtHolDE");
  EXPECT_EQ(Screen::NameOf(Boxes(Cat::CCTips).code), "txtCCtip");
  EXPECT_EQ(Screen::NameOf(Boxes(Numbered(15)).label), "lbl15");
  EXPECT_EQ(Screen::NameOf(Boxes(Numbered(42)).de), "txt42DE");
  EXPECT_EQ(s[lblDisb].caption, "Disburse");
  EXPECT_EQ(s[lblAdjD].caption, "Adj$");
  EXPECT_EQ(s[lbl15].tooltip, "INC");
  EXPECT_EQ(s[txtHol].text, "H");  // design text of the code box
  EXPECT_EQ(s[txt42DE].text, "E");
  EXPECT_EQ(s[txtMinWage].text, "6.75");
  EXPECT_EQ(s[optNewFormat].value, 1);
  EXPECT_EQ(s[CorvaneInputFile].text, "Input file (from Time Clock system)");
  ASSERT_NE(s.Find("chkDept"), nullptr);
  EXPECT_EQ(s.Find("chkDept")->tooltip,
            "Check to use the Department found in the Input file.  Uncheck to use the \"Home\" "
            "department in Evolution.");
  EXPECT_EQ(s.Find("txtreg"), nullptr);  // names are exact
}

TEST(ScreenModel, GroupOperationSetsCaptionVisibilityAndToolTips) {
  Screen s;
  MainUIProperties ui(s);
  ui.TipsUIVisible(true, "CTO");
  EXPECT_EQ(s[lblTips].caption, "CTO");
  EXPECT_EQ(s[lblTips].tooltip, "CTO");
  EXPECT_EQ(s[txtTips].tooltip, "CTO");
  EXPECT_TRUE(s[txtTipsDE].visible);
  ui.eUIVisible(17, false, "Avg OT");
  EXPECT_FALSE(s[lbl17].visible);
  EXPECT_FALSE(s[txt17DE].visible);
  EXPECT_FALSE(s[txt17].visible);
  EXPECT_EQ(s[txt17].tooltip, "Avg OT");
  ui.MinWageUIVisible(false);
  EXPECT_FALSE(s[lblMinWage].visible);
  EXPECT_FALSE(s[txtMinWage].visible);
}

TEST(ScreenModel, SamplePanelShowsAndHides) {
  Screen s;
  s.cmdShowSample_Click();
  EXPECT_FALSE(s[cmdShowSample].visible);
  EXPECT_TRUE(s[cmdHideSample].visible && s[ShowSample].visible && s[txtSample].visible);
  s[ShowSample].items = {"row one", "row two"};
  s[ShowSample].list_index = 1;
  s.ShowSample_Click();
  EXPECT_EQ(s[txtSample].text, "row two");
  s.cmdHideSample_Click();
  EXPECT_TRUE(s[cmdShowSample].visible);
  EXPECT_FALSE(s[cmdHideSample].visible || s[ShowSample].visible || s[txtSample].visible);
}

TEST(ScreenModel, FileClickJoinsFolderAndNameWithOneSeparator) {
  Screen s;
  s[filInput].text = "/";
  s[filInput].file_name = "export.csv";
  EXPECT_EQ(s.filInput_Click(), "/export.csv");
  s[filInput].text = "/data/exports";
  EXPECT_EQ(s.filInput_Click(), "/data/exports/export.csv");
  EXPECT_EQ(s[CorvaneInputFile].text, "/data/exports/export.csv");
}

TEST(ScreenModel, FolderChangeListsMatchingFilesAndFillsTheInputBox) {
  testing::TempFolder tmp;
  tmp.Write("b.CSV", "x");
  tmp.Write("a.csv", "x");
  tmp.Write("c.txt", "x");
  Screen s;
  s[filInput].pattern = "*.csv";
  s[dirInput].text = tmp.path().string();
  s.dirInput_Change();
  EXPECT_EQ(s[filInput].items, (std::vector<std::string>{"a.csv", "b.CSV"}));
  EXPECT_EQ(s[CorvaneInputFile].text, tmp.path().string());
  s[dirOutput].text = "/var/out";
  s.dirOutput_Change();
  EXPECT_EQ(s[CorvaneOutputPath].text, "/var/out");
}

TEST(ScreenModel, FilePatterns) {
  EXPECT_TRUE(MatchesPattern("week.TXT", "*.txt;*.f3x"));
  EXPECT_TRUE(MatchesPattern("a.f3x", "*.txt;*.f3x"));
  EXPECT_FALSE(MatchesPattern("a.csv", "*.txt;*.f3x"));
  EXPECT_TRUE(MatchesPattern("extpay0601", "*.txt;extpay*"));
  EXPECT_TRUE(MatchesPattern("README", "*.*"));
  EXPECT_TRUE(MatchesPattern("anything", "*"));
  EXPECT_TRUE(MatchesPattern("book.xlsx", "*.xls;*xlsx"));
  EXPECT_FALSE(MatchesPattern("book.xlsx", "*.xls"));
}

TEST(ScreenModel, FactoryStateAtAFirstStart) {
  FakeOperator ui;
  frmTimeImport F(ui, Environment{"/nonexistent", Date{2026, 3, 5}});
  F.Form_Load();
  EXPECT_EQ(F.Caption, "Corvane Import Manager - v0.1");
  EXPECT_EQ(F.S[pdEndDate].text, "3/5/2026");
  EXPECT_EQ(F.ChosenTC, "ABRA");
  EXPECT_EQ(F.S[PickTC].list_index, 0);
  EXPECT_EQ(F.S[PickTC].items.size(), 188u);
  EXPECT_EQ(F.S[CoNum].text, "123");
  EXPECT_EQ(F.S[txtReg].text, "2");
  EXPECT_EQ(F.S[txtCCtip].text, "69");
  EXPECT_EQ(F.S[txtWaitOT].text, "62");
  EXPECT_EQ(F.S[txt15].text, "");
  EXPECT_EQ(F.S[cmboWG3].list_index, 0);
  EXPECT_EQ(F.quote, "\"");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].text.substr(0, 55),
            "Unable to locate a file to store your default settings.");
}

}  // namespace
}  // namespace corvane
