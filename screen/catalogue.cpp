#include "screen/catalogue.hpp"

#include <array>
#include <stdexcept>

#include "screen/samples.hpp"

namespace corvane {

namespace {

struct ClockRow {
  std::string_view name;
  bool listed;
  std::string_view pattern;
  std::string_view boxes;
  std::string_view other;
};

constexpr ClockRow kRows[] = {
#define CLOCK(name, pattern, boxes, other) {name, true, pattern, boxes, other},
#define UNLISTED(name, pattern, boxes, other) {name, false, pattern, boxes, other},
#include "screen/catalogue_table.inc"
#undef UNLISTED
#undef CLOCK
};

constexpr std::size_t kListed = [] {
  std::size_t n = 0;
  for (const ClockRow& r : kRows) n += r.listed ? 1 : 0;
  return n;
}();
static_assert(kListed == 188);

constexpr auto kNames = [] {
  std::array<std::string_view, kListed> names{};
  std::size_t n = 0;
  for (const ClockRow& r : kRows) {
    if (r.listed) names[n++] = r.name;
  }
  return names;
}();

std::string_view TrimBlanks(std::string_view t) {
  while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
  while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
  return t;
}

// Splits a cell at a separator, dropping blanks around each item and empty items.
std::vector<std::string_view> Items(std::string_view cell, char separator) {
  std::vector<std::string_view> items;
  while (!cell.empty()) {
    const std::size_t at = cell.find(separator);
    std::string_view item = TrimBlanks(cell.substr(0, at));
    if (!item.empty()) items.push_back(item);
    if (at == std::string_view::npos) break;
    cell.remove_prefix(at + 1);
  }
  return items;
}

// A box as the catalogue writes it: a group name, or a label that is the group's usual one.
ClockBox BoxOf(std::string_view written, std::string_view clock) {
  static constexpr struct {
    std::string_view written;
    Cat category;
  } kUsual[] = {
      {"W-Reg", Cat::WaitReg}, {"W-OT", Cat::WaitOT}, {"CC-tip", Cat::CCTips}, {"Adj$", Cat::AdjD}};
  ClockBox box;
  if (written == "MinWage") {
    box.kind = ClockBox::kMinWage;
    return box;
  }
  if (written == "MiscText") {
    box.kind = ClockBox::kMiscText;
    return box;
  }
  for (const auto& u : kUsual) {
    if (u.written == written) {
      box.category = u.category;
      return box;
    }
  }
  for (int i = 0; i < kCategoryCount; ++i) {
    if (Boxes(static_cast<Cat>(i)).group == written) {
      box.category = static_cast<Cat>(i);
      return box;
    }
  }
  throw std::logic_error("catalogue row " + std::string(clock) + ": no box " +
                         std::string(written));
}

ClockConfig Parse(const ClockRow& row) {
  ClockConfig c;
  c.name = row.name;
  c.listed = row.listed;
  c.pattern = row.pattern;
  for (std::string_view item : Items(row.boxes, ',')) {
    const std::size_t eq = item.find('=');
    if (eq == std::string_view::npos) {
      ClockBox box = BoxOf(item, row.name);
      box.label = item;
      c.boxes.push_back(std::move(box));
    } else {
      ClockBox box = BoxOf(item.substr(eq + 1), row.name);
      box.label = item.substr(0, eq);
      box.relabelled = true;
      c.boxes.push_back(std::move(box));
    }
  }
  for (std::string_view item : Items(row.other, ';')) {
    if (item == "grid") {
      c.grid = true;
    } else if (item == "location") {
      c.location = true;
    } else if (item == "no pdEndDate") {
      c.end_date = false;
    } else {
      ClockShow show;
      const std::size_t quote = item.find('"');
      show.control = TrimBlanks(item.substr(0, quote));
      if (quote != std::string_view::npos) {
        std::string_view text = item.substr(quote + 1);
        if (text.empty() || text.back() != '"') {
          throw std::logic_error("catalogue row " + std::string(row.name) + ": " +
                                 std::string(item));
        }
        text.remove_suffix(1);
        show.text = std::string(text);
      }
      if (show.control != "frmTMdept.lblTitle" && !Screen::IdOf(show.control)) {
        throw std::logic_error("catalogue row " + std::string(row.name) + ": no control " +
                               show.control);
      }
      c.shows.push_back(std::move(show));
    }
  }
  for (const SampleRow& s : SampleRows()) {
    if (s.format == row.name) c.samples.push_back(s.row);
  }
  return c;
}

const std::vector<ClockConfig>& Configs() {
  static const auto* configs = [] {
    auto* v = new std::vector<ClockConfig>;
    v->reserve(std::size(kRows));
    for (const ClockRow& r : kRows) v->push_back(Parse(r));
    return v;
  }();
  return *configs;
}

void Show(Screen& S, std::initializer_list<Ctl> controls, bool visible) {
  for (Ctl c : controls) S[c].visible = visible;
}

}  // namespace

std::span<const std::string_view> CatalogueNames() {
  return kNames;
}

int CatalogueIndex(std::string_view name) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (kNames[i] == name) return static_cast<int>(i);
  }
  return -1;
}

std::span<const ClockConfig> Catalogue() {
  return Configs();
}

const ClockConfig* FindClockConfig(std::string_view name) {
  for (const ClockConfig& c : Configs()) {
    if (c.name == name) return &c;
  }
  return nullptr;
}

void ResetToNeutral(Screen& S) {
  Show(S, {lblLocLook, cmdLookup, labLocNum, LocNum, cmdAssEcodes}, true);
  // Four formats take no end date; every other choice asks for it again.
  Show(S, {labpdEndDate, pdEndDate}, true);
  S[ShowSample].items.clear();
  S[ShowSample].list_index = -1;
  S[txtSample].text = " ";
  Show(S,
       {lblWG1, lblWG2, lblWG3, cmboWG1, cmboWG2, cmboWG3, chkDiv, chkBr, lblOver, chkAll, chkXref,
        chkTeam, cmdKv8, cmdTM, lblUnavailable, lblEarnCode},
       false);
  S[chkDept].visible = false;
  S[chkDept].value = 1;
  S[chkPayRate].visible = false;
  S[chkPayRate].value = 0;
  S[chkSSN].visible = false;
  S[chkSSN].caption = "SSN";
  S[chkSSN].value = 1;
  S[chkJob].visible = false;
  S[chkJob].value = 1;
  for (int i = 0; i < kCategoryCount; ++i) {
    const CategoryBoxes& b = Boxes(static_cast<Cat>(i));
    Show(S, {b.label, b.de, b.code}, false);
  }
  Show(S, {lblMinWage, txtMinWage, lblMiscText, txtMiscText}, false);
  static constexpr struct {
    Cat category;
    std::string_view label;
    std::string_view tooltip;
  } kNeutral[] = {
      {Cat::Reg, "Reg", "Regular"},
      {Cat::OT, "OT", "Overtime"},
      {Cat::Dbl, "Dbl", "DoubleTime"},
      {Cat::Tips, "Tips", "Tips"},
      {Cat::Sales, "Sales", "Sales"},
      {Cat::Misc, "Misc", "Miscellaneous"},
      {Cat::Hol, "Hol", "Holiday"},
      {Cat::Disb, "", "Disbursement"},
      {Cat::Abs, "", "Abs"},
      {Cat::AdjH, "", "Adjustment Hours"},
      {Cat::AdjD, "", "Adjustment Dollars"},
      {Cat::WaitReg, "", "Waitstaff Regular"},
      {Cat::WaitOT, "", "Waitstaff Overtime"},
      {Cat::CCTips, "", "CreditCard Tips"},
  };
  // Only the first seven labels are restored; the others keep the caption a format gave them.
  for (const auto& n : kNeutral) {
    if (!n.label.empty()) S[Boxes(n.category).label].caption = n.label;
  }
  S[cmdTM].caption = "Customize Time Manager";
  // The file list is read once the choice has set its pattern (PickTC_Click).
  S[filInput].pattern = "*.*";
  for (const auto& n : kNeutral) S[Boxes(n.category).code].tooltip = n.tooltip;
  for (int n = 15; n <= 28; ++n) S[Boxes(Numbered(n)).code].tooltip = "Enter Pay Code";
  S[chkTeam].caption = "Team";
  S[chkDept].caption = "Department";
}

void ApplyClock(Screen& S, const ClockConfig& clock) {
  S[filInput].pattern = clock.pattern;
  for (std::string_view row : clock.samples) S[ShowSample].items.emplace_back(row);

  MainUIProperties ui(S);
  bool categories = false;
  for (const ClockBox& box : clock.boxes) {
    switch (box.kind) {
      case ClockBox::kMinWage:
        ui.MinWageUIVisible(true);
        break;
      case ClockBox::kMiscText:
        ui.MiscTextUIVisible(true);
        break;
      case ClockBox::kCategory:
        categories = true;
        if (box.relabelled) {
          ui.GroupUIVisible(box.category, true, box.label);
        } else {
          // Shown under its usual label: the tool tips of the reset stand.
          const CategoryBoxes& b = Boxes(box.category);
          S[b.label].caption = box.label;
          Show(S, {b.label, b.de, b.code}, true);
        }
        break;
    }
  }
  S[lblEarnCode].visible = categories;
  if (!clock.grid) S[cmdAssEcodes].visible = false;
  if (!clock.location) Show(S, {lblLocLook, cmdLookup, labLocNum, LocNum}, false);
  if (!clock.end_date) Show(S, {labpdEndDate, pdEndDate}, false);

  for (const ClockShow& show : clock.shows) {
    Control* c = S.Find(show.control);
    if (c == nullptr) continue;  // a control of another form
    if (c->kind == kTextBox) {
      // The few code boxes a format fills; a text box's visibility is its group's.
      if (show.text) c->text = *show.text;
      continue;
    }
    c->visible = true;
    if (show.text) c->caption = *show.text;
  }
}

void ShowUnavailable(Screen& S) {
  S[lblUnavailable].visible = true;
  S[cmdAssEcodes].visible = true;
  Show(S, {cmdKv8, cmdTM, lblEarnCode}, false);
  for (Cat c : {Cat::Reg, Cat::OT, Cat::Dbl, Cat::Tips, Cat::Sales, Cat::Misc}) {
    const CategoryBoxes& b = Boxes(c);
    Show(S, {b.label, b.de, b.code}, false);
  }
}

}  // namespace corvane
