// Every entry of the time clock list, chosen in turn, against the documented list of what it
// shows; and the rules of a choice that the list cannot tell.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>

#include "fake_operator.hpp"
#include "pipeline/time_import.hpp"
#include "runtime/text.hpp"
#include "screen/catalogue.hpp"
#include "screen/samples.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;
using testing::TempFolder;

struct Entry {
  std::string name, pattern;
  std::vector<std::pair<std::string, std::string>> boxes;  // label, box as written
  std::vector<std::string> other;
};

std::vector<std::string> SplitAt(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  while (true) {
    std::size_t at = text.find(separator, from);
    std::string part = Trim(text.substr(from, at - from));
    if (!part.empty()) parts.push_back(part);
    if (at == std::string::npos) return parts;
    from = at + 1;
  }
}

std::vector<Entry> DocumentedList() {
  std::ifstream in(std::string(CORVANE_FIXTURES) + "/catalogue/clocks.txt");
  std::vector<Entry> entries;
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> cells;
    std::size_t from = 0;
    for (int i = 0; i < 3; ++i) {
      std::size_t bar = line.find(" | ", from);
      cells.push_back(Trim(line.substr(from, bar - from)));
      from = bar + 3;
    }
    cells.push_back(Trim(line.substr(from)));
    Entry e{cells[0], cells[1], {}, SplitAt(cells[3], ';')};
    for (const std::string& box : SplitAt(cells[2], ',')) {
      std::size_t eq = box.find('=');
      if (eq == std::string::npos)
        e.boxes.push_back({box, box});
      else
        e.boxes.push_back({box.substr(0, eq), box.substr(eq + 1)});
    }
    entries.push_back(std::move(e));
  }
  return entries;
}

// The category a box is written as: its group name or its usual label.
std::optional<Cat> CategoryOf(const std::string& written) {
  static const std::map<std::string, Cat> kLabels = {
      {"W-Reg", Cat::WaitReg}, {"W-OT", Cat::WaitOT}, {"CC-tip", Cat::CCTips}, {"Adj$", Cat::AdjD}};
  if (auto it = kLabels.find(written); it != kLabels.end()) return it->second;
  for (int i = 0; i < kCategoryCount; ++i) {
    if (Boxes(static_cast<Cat>(i)).group == written) return static_cast<Cat>(i);
  }
  return std::nullopt;
}

// The code box tool tips a choice starts from.
std::string NeutralTooltip(Cat c) {
  static const std::map<Cat, std::string> kTips = {{Cat::Reg, "Regular"},
                                                   {Cat::OT, "Overtime"},
                                                   {Cat::Dbl, "DoubleTime"},
                                                   {Cat::Tips, "Tips"},
                                                   {Cat::Sales, "Sales"},
                                                   {Cat::Misc, "Miscellaneous"},
                                                   {Cat::Disb, "Disbursement"},
                                                   {Cat::Abs, "Abs"},
                                                   {Cat::Hol, "Holiday"},
                                                   {Cat::AdjH, "Adjustment Hours"},
                                                   {Cat::AdjD, "Adjustment Dollars"},
                                                   {Cat::WaitReg, "Waitstaff Regular"},
                                                   {Cat::WaitOT, "Waitstaff Overtime"},
                                                   {Cat::CCTips, "CreditCard Tips"}};
  auto it = kTips.find(c);
  return it != kTips.end() ? it->second : "Enter Pay Code";
}

// The controls an entry shows only when its list says so.
constexpr Ctl kOptional[] = {lblWG1,  lblWG2,     lblWG3, cmboWG1, cmboWG2,       cmboWG3, chkDiv,
                             chkBr,   lblOver,    chkAll, chkXref, chkTeam,       cmdKv8,  cmdTM,
                             chkDept, chkPayRate, chkSSN, chkJob,  lblUnavailable};

class Catalogue : public ::testing::Test {
 protected:
  Catalogue() : F(ui, Environment{tmp / "settings", Date{2026, 11, 22}}) { F.Form_Load(); }
  void Choose(std::string_view name) { F.SelectTimeClock(CatalogueIndex(name)); }

  TempFolder tmp;
  FakeOperator ui;
  frmTimeImport F;
};

TEST_F(Catalogue, EveryEntryConfiguresTheScreenAsItsRowSays) {
  const std::vector<Entry> list = DocumentedList();
  ASSERT_EQ(list.size(), 188u);
  ASSERT_EQ(CatalogueNames().size(), 188u);
  for (std::size_t i = 0; i < list.size(); ++i) {
    const Entry& e = list[i];
    SCOPED_TRACE(e.name);
    ASSERT_EQ(CatalogueNames()[i], e.name);
    F.SelectTimeClock(static_cast<int>(i));
    const Screen& S = F.S;
    EXPECT_EQ(F.ChosenTC, e.name);
    EXPECT_EQ(S[filInput].pattern, e.pattern);

    std::set<Cat> shown;
    bool min_wage = false, misc_text = false;
    for (const auto& [label, written] : e.boxes) {
      if (written == "MinWage") {
        min_wage = true;
        continue;
      }
      if (written == "MiscText") {
        misc_text = true;
        continue;
      }
      std::optional<Cat> c = CategoryOf(written);
      ASSERT_TRUE(c.has_value()) << written;
      shown.insert(*c);
      const CategoryBoxes& b = Boxes(*c);
      EXPECT_EQ(S[b.label].caption, label);
      if (label != written) {
        EXPECT_EQ(S[b.label].tooltip, label);
        EXPECT_EQ(S[b.code].tooltip, label);
      }
    }
    // A box shown twice keeps its last label; the plain ones keep the tool tip of the reset.
    for (int n = 0; n < kCategoryCount; ++n) {
      const Cat c = static_cast<Cat>(n);
      const CategoryBoxes& b = Boxes(c);
      const bool on = shown.count(c) != 0;
      EXPECT_EQ(S[b.label].visible, on) << b.group;
      EXPECT_EQ(S[b.de].visible, on) << b.group;
      EXPECT_EQ(S[b.code].visible, on) << b.group;
      bool relabelled = false;
      for (const auto& [label, written] : e.boxes) {
        if (CategoryOf(written) == c && label != written) relabelled = true;
      }
      if (!relabelled && n < 28) {
        EXPECT_EQ(S[b.code].tooltip, NeutralTooltip(c)) << b.group;
      }
    }
    EXPECT_EQ(S[lblMinWage].visible, min_wage);
    EXPECT_EQ(S[txtMinWage].visible, min_wage);
    EXPECT_EQ(S[lblMiscText].visible, misc_text);
    EXPECT_EQ(S[txtMiscText].visible, misc_text);
    EXPECT_EQ(S[lblEarnCode].visible, !shown.empty());

    const std::set<std::string> other(e.other.begin(), e.other.end());
    EXPECT_EQ(S[cmdAssEcodes].visible, other.count("grid") == 1);
    for (Ctl c : {lblLocLook, cmdLookup, labLocNum, LocNum}) {
      EXPECT_EQ(S[c].visible, other.count("location") == 1) << Screen::NameOf(c);
    }
    EXPECT_EQ(S[pdEndDate].visible, other.count("no pdEndDate") == 0);

    std::map<std::string, std::optional<std::string>> named;
    for (const std::string& item : e.other) {
      if (item == "grid" || item == "location" || item == "no pdEndDate") continue;
      const std::size_t quote = item.find('"');
      if (quote == std::string::npos) {
        named[item] = std::nullopt;
      } else {
        named[Trim(item.substr(0, quote))] = item.substr(quote + 1, item.size() - quote - 2);
      }
    }
    for (Ctl c : kOptional) {
      EXPECT_EQ(S[c].visible, named.count(std::string(Screen::NameOf(c))) == 1)
          << Screen::NameOf(c);
    }
    for (const auto& [control, text] : named) {
      const Control* c = F.S.Find(control);
      ASSERT_NE(c, nullptr) << control;
      if (!text) continue;
      EXPECT_EQ(c->kind == kTextBox ? c->text : c->caption, *text) << control;
    }
    // What the reset gives back whatever came before.
    if (!named.count("chkTeam") || !named["chkTeam"]) {
      EXPECT_EQ(S[chkTeam].caption, "Team");
    }
    if (!named.count("chkDept") || !named["chkDept"]) {
      EXPECT_EQ(S[chkDept].caption, "Department");
    }
    if (!named.count("chkSSN") || !named["chkSSN"]) {
      EXPECT_EQ(S[chkSSN].caption, "SSN");
    }
    if (!named.count("cmdTM") || !named["cmdTM"]) {
      EXPECT_EQ(S[cmdTM].caption, "Customize Time Manager");
    }
    EXPECT_EQ(S[chkDept].value, 1);
    EXPECT_EQ(S[chkPayRate].value, 0);
    EXPECT_EQ(S[chkSSN].value, 1);
    EXPECT_EQ(S[chkJob].value, 1);
    EXPECT_EQ(S[txtSample].text, " ");

    std::vector<std::string> samples;
    for (const SampleRow& row : SampleRows()) {
      if (row.format == e.name) samples.emplace_back(row.row);
    }
    EXPECT_LE(samples.size(), 32u);
    EXPECT_EQ(S[ShowSample].items, samples);
  }
}

TEST_F(Catalogue, SwitchingNeverClearsACodeBox) {
  Choose("Access");
  F.S[txtReg].text = "R7";
  F.S[txtDisb].text = "M9";
  Choose("ABRA");  // shows no box at all
  EXPECT_FALSE(F.S[txtReg].visible);
  EXPECT_EQ(F.S[txtReg].text, "R7");
  Choose("Access");
  EXPECT_EQ(F.S[txtReg].text, "R7");
  EXPECT_EQ(F.S[txtDisb].text, "M9");
}

TEST_F(Catalogue, ChoosingTheSameEntryAgainResetsItsCheckBoxes) {
  Choose("Kronos v3");
  F.S[chkDept].value = 0;
  F.S[chkPayRate].value = 1;
  Choose("Kronos v3");
  EXPECT_EQ(F.S[chkDept].value, 1);
  EXPECT_EQ(F.S[chkPayRate].value, 0);
  EXPECT_TRUE(F.S[chkDept].visible);
}

TEST_F(Catalogue, ReusedCaptionsAndLabelToolTipsOutliveTheChoiceThatSetThem) {
  Choose("Access");  // Salary=Dbl
  EXPECT_EQ(F.S[lblDbl].tooltip, "Salary");
  Choose("Five Guys");  // chkDiv "Use EE Num?"
  Choose("ADP/Aspect");
  // The reset restores the seven first labels and the code box tips, never a label's tip.
  EXPECT_EQ(F.S[lblDbl].caption, "Dbl");
  EXPECT_EQ(F.S[lblDbl].tooltip, "Salary");
  EXPECT_EQ(F.S[txtDbl].tooltip, "DoubleTime");
  Choose("KanTime");  // shows chkDiv without a caption of its own
  EXPECT_EQ(F.S[chkDiv].caption, "Use EE Num?");
}

TEST_F(Catalogue, ACodeFromTheListOverwritesWhatWasTyped) {
  F.S[txtMinWage].text = "7.25";
  Choose("Yellow Dog");
  EXPECT_EQ(F.S[txtMinWage].text, "5.85");
  Choose("Aloha v6.2");  // no value of its own: the box keeps it
  EXPECT_EQ(F.S[txtMinWage].text, "5.85");
  F.S[txtAbs].text = "9";
  Choose("Kronos/ADP");
  EXPECT_EQ(F.S[txtAbs].text, "S");
}

TEST_F(Catalogue, NothingChosenShowsTheUnavailableLayout) {
  Choose("Access");
  F.SelectTimeClock(-1);
  EXPECT_EQ(F.ChosenTC, "");
  EXPECT_TRUE(F.S[lblUnavailable].visible);
  EXPECT_TRUE(F.S[cmdAssEcodes].visible);
  for (Ctl c : {txtReg, txtOT, txtDbl, txtTips, txtSales, txtMisc, lblEarnCode, cmdKv8, cmdTM}) {
    EXPECT_FALSE(F.S[c].visible) << Screen::NameOf(c);
  }
}

TEST_F(Catalogue, AConfigurationWithoutAnEntryIsNeverOffered) {
  EXPECT_EQ(CatalogueIndex("HotSauce DTS"), -1);
  const ClockConfig* hot = FindClockConfig("HotSauce DTS");
  ASSERT_NE(hot, nullptr);
  EXPECT_FALSE(hot->listed);
  EXPECT_EQ(hot->pattern, "*.csv");
  EXPECT_EQ(hot->samples.size(), 1u);
  EXPECT_EQ(corvane::Catalogue().size(), 189u);
  EXPECT_EQ(CatalogueIndex("ABRA"), 0);
  EXPECT_EQ(CatalogueIndex("Yellow Dog"), 187);
}

TEST_F(Catalogue, TheFilePickerShowsWhatThePatternLetsThrough) {
  std::filesystem::create_directories(tmp / "in");
  tmp.Write("in/a.csv", "");
  tmp.Write("in/b.CSV", "");
  tmp.Write("in/extpay01", "");
  tmp.Write("in/c.txt", "");
  F.S[dirInput].text = tmp / "in";
  F.S.dirInput_Change();
  Choose("Access");
  EXPECT_EQ(F.S[filInput].items, (std::vector<std::string>{"a.csv", "b.CSV"}));
  Choose("Aloha v6");
  EXPECT_EQ(F.S[filInput].items, (std::vector<std::string>{"c.txt", "extpay01"}));
}

}  // namespace
}  // namespace corvane
