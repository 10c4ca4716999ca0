// `corvane formats --json` names every box as the screen does, so that what it prints can be
// typed back into `corvane run --set`.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

nlohmann::json FormatsJson(const WorkDir& dir) {
  auto result = RunCommand({"formats", "--json"}, dir.root(), dir.home());
  EXPECT_EQ(result.status, 0) << result.err;
  return nlohmann::json::parse(result.out);
}

const nlohmann::json* Entry(const nlohmann::json& all, const std::string& name) {
  for (const auto& entry : all) {
    if (entry["name"] == name) return &entry;
  }
  return nullptr;
}

struct Box {
  std::string box;
  std::string de;  // "" for a box without a D-or-E box
  std::string label;
  bool operator==(const Box&) const = default;
};

void PrintTo(const Box& b, std::ostream* os) {
  *os << "{" << b.box << ", " << b.de << ", \"" << b.label << "\"}";
}

std::vector<Box> Boxes(const nlohmann::json& entry) {
  std::vector<Box> boxes;
  for (const auto& b : entry["boxes"]) {
    boxes.push_back({b["box"], b.value("de", ""), b["label"]});
  }
  return boxes;
}

TEST(FormatsJson, BoxesCarryTheScreensNamesAndTheirLabels) {
  WorkDir dir;
  const nlohmann::json all = FormatsJson(dir);

  // The wait hours of this format go to numbered boxes, not to the wait groups.
  const nlohmann::json* v6542 = Entry(all, "Aloha v6.5.42");
  ASSERT_NE(v6542, nullptr);
  const std::vector<Box> v6542_boxes = {
      {"txtReg", "txtRegDE", "Reg"},        {"txtOT", "txtOTDE", "OT"},
      {"txt15", "txt15DE", "Wait-Reg"},     {"txt16", "txt16DE", "Wait-OT"},
      {"txt17", "txt17DE", "Avg OT"},       {"txtTips", "txtTipsDE", "Tips"},
      {"txtCCtip", "txtCCtipDE", "CC-tip"}, {"txtMinWage", "", "Min Wage"},
  };
  EXPECT_EQ(Boxes(*v6542), v6542_boxes);

  // All fourteen named groups, among them the three whose D-or-E box ends in lower case
  // "de" and the credit card tips box, whose name is not its group's.
  const nlohmann::json* v6 = Entry(all, "Aloha v6");
  ASSERT_NE(v6, nullptr);
  const std::vector<Box> v6_boxes = {
      {"txtReg", "txtRegDE", "Reg"},        {"txtOT", "txtOTDE", "OT"},
      {"txtDbl", "txtDblDE", "Vac"},        {"txtTips", "txtTipsDE", "Tips"},
      {"txtSales", "txtSalesDE", "Sales"},  {"txtMisc", "txtMiscDE", "Misc"},
      {"txtAbs", "txtAbsDE", "Sick"},       {"txtDisb", "txtDisbDE", "016 D"},
      {"txtHol", "txtHolDE", "Hol"},        {"txtAdjH", "txtAdjHde", "AdjH"},
      {"txtAdjD", "txtAdjDde", "Adj$"},     {"txtWaitReg", "txtWaitRegDE", "W-Reg"},
      {"txtWaitOT", "txtWaitOTDE", "W-OT"}, {"txtCCtip", "txtCCtipDE", "CC-tip"},
      {"txt15", "txt15DE", "PTO"},          {"txtMinWage", "", "Min Wage"},
  };
  EXPECT_EQ(Boxes(*v6), v6_boxes);

  const nlohmann::json* hometrak = Entry(all, "HomeTrak");
  ASSERT_NE(hometrak, nullptr);
  ASSERT_FALSE((*hometrak)["boxes"].empty());
  EXPECT_EQ(Boxes(*hometrak).back(), (Box{"txtMiscText", "", "Misc Text"}));
}

TEST(FormatsJson, EveryBoxNamePrintedIsTakenBySet) {
  WorkDir dir;
  const nlohmann::json all = FormatsJson(dir);
  ASSERT_GE(all.size(), 188u);

  // One run per format, its own boxes set. Without an input file every run is refused by the
  // first check (status 1); a name --set does not know would end it with status 2 first.
  std::set<std::string> seen;
  for (const auto& entry : all) {
    const std::string name = entry["name"];
    SCOPED_TRACE(name);
    std::vector<std::string> args = {"run", "--settings-dir", dir.settings().string(), "--today",
                                     "2026-11-22"};
    // An entry without a place in the list cannot be chosen; its boxes are set on the screen
    // as it was restored.
    if (entry["listed"].get<bool>()) args.insert(args.end(), {"--format", name});
    for (const auto& b : entry["boxes"]) {
      const std::string box = b["box"];
      args.insert(args.end(), {"--set", box + "=" + (box == "txtMinWage" ? "5.15" : "7")});
      seen.insert(box);
      if (b.contains("de")) {
        args.insert(args.end(), {"--set", b["de"].get<std::string>() + "=E"});
        seen.insert(b["de"]);
      }
    }
    if (entry["boxes"].empty()) continue;
    auto result = RunCommand(args, dir.root(), dir.home());
    EXPECT_EQ(result.status, 1) << result.err;
    EXPECT_NE(result.err.find("You must enter an input filename"), std::string::npos) << result.err;
  }
  // The catalogue shows every code box and D-or-E box of the screen somewhere, and the two
  // option boxes: 42 groups of two, and txtMinWage and txtMiscText.
  EXPECT_EQ(seen.size(), 42u * 2 + 2);
}

}  // namespace
}  // namespace corvane_test
