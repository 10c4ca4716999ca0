#include "screen/screen.hpp"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_map>

#include "runtime/filesystem.hpp"
#include "screen/operator.hpp"

namespace corvane {

namespace {

struct ControlDef {
  std::string_view name;
  ControlKind kind;
  std::string_view caption;
  std::string_view tooltip;
  std::string_view text;
  int value;
  bool visible;
};

constexpr ControlDef kDefs[] = {
#define X(name, kind, caption, tooltip, text, value, visible) \
  {#name, kind, caption, tooltip, text, value, visible},
#include "screen/controls.inc"
#undef X
};
static_assert(std::size(kDefs) == kControlCount);

constexpr CategoryBoxes kCategories[] = {
#define X(group, label, de, code) {#group, label, de, code},
    CORVANE_CATEGORIES(X)
#undef X
};
static_assert(std::size(kCategories) == kCategoryCount);

const std::unordered_map<std::string_view, Ctl>& NameIndex() {
  static const auto* index = [] {
    auto* m = new std::unordered_map<std::string_view, Ctl>;
    for (std::size_t i = 0; i < std::size(kDefs); ++i) m->emplace(kDefs[i].name, Ctl(i));
    return m;
  }();
  return *index;
}

constexpr char kSep = kPathSeparator;

}  // namespace

const CategoryBoxes& Boxes(Cat category) {
  return kCategories[static_cast<int>(category)];
}

Cat Numbered(int n) {
  return static_cast<Cat>(static_cast<int>(Cat::e15) + (n - 15));
}

std::string_view Control::SelectedText() const {
  if (list_index < 0 || list_index >= static_cast<int>(items.size())) return {};
  return items[list_index];
}

Screen::Screen() {
  for (std::size_t i = 0; i < std::size(kDefs); ++i) {
    const ControlDef& d = kDefs[i];
    Control& c = controls_[i];
    c.name = d.name;
    c.kind = d.kind;
    c.caption = d.caption;
    c.tooltip = d.tooltip;
    c.text = d.text;
    c.value = d.value;
    c.visible = d.visible;
  }
  for (Ctl wg : {cmboWG1, cmboWG2, cmboWG3}) {
    controls_[wg].items = {"Division", "Branch", "Department", "Team"};
  }
  // The pickers start at the user's home folder.
  std::string home;
  if (const char* h = std::getenv("HOME"); h != nullptr && *h != '\0') home = h;
  if (home.empty()) home = std::string(1, kSep);
  controls_[drvInput].text = controls_[drvOutput].text = std::string(1, kSep);
  controls_[dirInput].text = controls_[dirOutput].text = controls_[filInput].text = home;
  controls_[filInput].pattern = "*.*";
}

std::optional<Ctl> Screen::IdOf(std::string_view name) {
  auto it = NameIndex().find(name);
  if (it == NameIndex().end()) return std::nullopt;
  return it->second;
}

Control* Screen::Find(std::string_view name) {
  const std::optional<Ctl> id = IdOf(name);
  return id ? &controls_[*id] : nullptr;
}

std::string_view Screen::NameOf(Ctl c) {
  return kDefs[c].name;
}

bool Screen::Validates(Ctl c) {
  if (c == txtHolDE || c == txtAdjHde || c == txtAdjDde) return false;
  for (const CategoryBoxes& b : kCategories) {
    if (b.de == c) return true;
  }
  return false;
}

void Screen::LeaveBox(Ctl c, Operator& ui) {
  if (!Validates(c)) return;
  std::string& t = controls_[c].text;
  std::transform(t.begin(), t.end(), t.begin(), [](unsigned char ch) {
    return static_cast<char>(ch >= 'a' && ch <= 'z' ? ch - 32 : ch);
  });
  if (t == "D" || t == "E" || t == "S" || t == "M" || t == "H") return;
  ui.MsgBox(kDEMessage, MsgButtons::OKOnly, "Corvane");
  t = "E";
}

void Screen::cmdShowSample_Click() {
  controls_[cmdShowSample].visible = false;
  controls_[cmdHideSample].visible = true;
  controls_[ShowSample].visible = true;
  controls_[txtSample].visible = true;
}

void Screen::cmdHideSample_Click() {
  controls_[cmdHideSample].visible = false;
  controls_[ShowSample].visible = false;
  controls_[txtSample].visible = false;
  controls_[cmdShowSample].visible = true;
}

void Screen::ShowSample_Click() {
  controls_[txtSample].text = std::string(controls_[ShowSample].SelectedText());
}

namespace {

// A drive change moves its folder list to the drive; a drive that cannot be read is ignored.
void MoveToDrive(Control& drive, Control& dir) {
  std::error_code ec;
  if (std::filesystem::is_directory(drive.text, ec)) dir.text = drive.text;
}

}  // namespace

void Screen::drvInput_Change() {
  MoveToDrive(controls_[drvInput], controls_[dirInput]);
  dirInput_Change();
}

void Screen::drvOutput_Change() {
  MoveToDrive(controls_[drvOutput], controls_[dirOutput]);
  dirOutput_Change();
}

void Screen::dirInput_Change() {
  Control& dir = controls_[dirInput];
  controls_[filInput].text = dir.text;
  controls_[filInput].file_name.clear();
  filInput_Refresh();
  std::string_view selected = dir.SelectedText();
  controls_[CorvaneInputFile].text = selected.empty() ? dir.text : std::string(selected);
}

void Screen::dirOutput_Change() {
  Control& dir = controls_[dirOutput];
  std::string_view selected = dir.SelectedText();
  controls_[CorvaneOutputPath].text = selected.empty() ? dir.text : std::string(selected);
}

std::string Screen::filInput_Click() {
  const Control& files = controls_[filInput];
  std::string path = files.text;
  if (path.empty() || path.back() != kSep) path += kSep;
  path += files.file_name;
  controls_[CorvaneInputFile].text = path;
  return path;
}

void Screen::filInput_Refresh() {
  Control& files = controls_[filInput];
  files.items.clear();
  std::error_code ec;
  std::filesystem::directory_iterator it(files.text, ec), end;
  for (; !ec && it != end; it.increment(ec)) {
    std::error_code fec;
    if (!it->is_regular_file(fec)) continue;
    std::string name = it->path().filename().string();
    if (MatchesPattern(name, files.pattern)) files.items.push_back(std::move(name));
  }
  std::sort(files.items.begin(), files.items.end());
}

namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// A wildcard match without regard to case: "*" any run, "?" one character.
bool Wildcard(std::string_view name, std::string_view pat) {
  std::size_t n = 0, p = 0, star = std::string_view::npos, mark = 0;
  while (n < name.size()) {
    if (p < pat.size() && (pat[p] == '?' || Lower(pat[p]) == Lower(name[n]))) {
      ++n;
      ++p;
    } else if (p < pat.size() && pat[p] == '*') {
      star = p++;
      mark = n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++mark;
    } else {
      return false;
    }
  }
  while (p < pat.size() && pat[p] == '*') ++p;
  return p == pat.size();
}

}  // namespace

bool MatchesPattern(std::string_view file_name, std::string_view pattern) {
  while (true) {
    std::size_t semi = pattern.find(';');
    std::string_view one = pattern.substr(0, semi);
    // "*.*" shows every file, names without a point included, as the file list does.
    if (one == "*.*" || Wildcard(file_name, one)) return true;
    if (semi == std::string_view::npos) return false;
    pattern.remove_prefix(semi + 1);
  }
}

void MainUIProperties::GroupUIVisible(Cat category, bool visible, std::string_view caption) {
  const CategoryBoxes& b = Boxes(category);
  screen_[b.label].caption = caption;
  screen_[b.label].visible = visible;
  screen_[b.de].visible = visible;
  screen_[b.code].visible = visible;
  screen_[b.label].tooltip = caption;
  screen_[b.code].tooltip = caption;
}

void MainUIProperties::MinWageUIVisible(bool visible) {
  screen_[lblMinWage].visible = visible;
  screen_[txtMinWage].visible = visible;
}

void MainUIProperties::MiscTextUIVisible(bool visible) {
  screen_[lblMiscText].visible = visible;
  screen_[txtMiscText].visible = visible;
}

}  // namespace corvane
