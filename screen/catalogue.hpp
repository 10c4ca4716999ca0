// The catalogue of time clocks that PickTC offers, and what choosing one configures on the
// main screen.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screen/screen.hpp"

namespace corvane {

// The 188 names in list order; index 0 is "ABRA".
std::span<const std::string_view> CatalogueNames();
// The list index of a name compared as exact text, -1 when it is not in the list.
int CatalogueIndex(std::string_view name);

// A pay category box shown by a format.
struct ClockBox {
  enum Kind { kCategory, kMinWage, kMiscText } kind = kCategory;
  Cat category = Cat::Reg;
  std::string label;        // the label it is shown under
  bool relabelled = false;  // shown under another label than its usual one
};

// A control a format shows, with the caption (or for a text box the text) it gives it.
struct ClockShow {
  std::string control;  // a main screen control, or "frmTMdept.lblTitle"
  std::optional<std::string> text;
};

// One format's configuration of the screen.
struct ClockConfig {
  std::string_view name;
  bool listed = true;  // has an entry in PickTC
  std::string_view pattern;
  std::vector<ClockBox> boxes;  // in the order they are set
  bool grid = false;            // cmdAssEcodes stays visible
  bool location = false;        // the location group stays visible
  bool end_date = true;         // pdEndDate is asked for
  std::vector<ClockShow> shows;
  std::vector<std::string_view> samples;
};

// Every configuration: the listed ones in list order, then those without an entry.
std::span<const ClockConfig> Catalogue();
// The configuration of a name, nullptr when none has that name.
const ClockConfig* FindClockConfig(std::string_view name);

// The steps of a choice in PickTC that touch only the main screen.
// Step 1: the neutral state. Code boxes keep their contents. The file list's pattern is set
// but the list is not read: the caller refreshes it once the choice is made.
void ResetToNeutral(Screen& S);
// Step 3: a format's row. Controls of other forms (frmTMdept.lblTitle) are the caller's.
void ApplyClock(Screen& S, const ClockConfig& clock);
// Step 4: a name with no row.
void ShowUnavailable(Screen& S);

}  // namespace corvane
