// Cross-checks of the dispatch table against the catalogue list and the open-mode table,
// each written out here independently of the table's own rows.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pipeline/dispatch.hpp"

namespace corvane {
namespace {

// The time clock list as the operator sees it, in its stored order (the control file keeps
// an index into it), which is not the order of the dispatch.
// clang-format off
constexpr std::string_view kCatalogue[] = {
    "ABRA", "Access", "AccroPrint v2.0", "ADI", "ADI v9.4.1", "ADP-AS400", "ADP/Aspect",
    "ADP.csv", "ADP (BST)", "ADP (extpaydt)", "ADP/EZ Labor", "ADP v11.2.3", "ADS Custom",
    "AE v1.0.27.6", "AE v1.0.28.616", "Aloha v5.3.13", "Aloha v5.3.17", "Aloha v5.3.20",
    "Aloha v5.3.26", "Aloha v5.3.46", "Aloha v6", "Aloha v6.1.1.3", "Aloha v6.2", "Aloha v6.2.12",
    "Aloha v6.2.27", "Aloha v6.5.42", "Aloha v6.5.44", "Aloha v6.7.22", "Aloha v6.7.38",
    "Aloha Enterprise", "Aloha Labor Scheduler (5.3.19)", "Aloha WGL", "Ampay", "Angel Fire",
    "Archaic Beef", "Aspect", "Ave OT", "BGS", "Brioso", "Ceridian Web", "ChronoTek",
    "Cleaning Authority", "CLI", "Costa View EZLabor", "CTuit Radar", "Dairy Queen", "Darwin",
    "dataSIGN", "DataTrak", "DDMGR", "Deltek", "Deltek (Galloway)", "Deltek v6.15", "Deltek v8.3",
    "Deltek v8.3 Fixed", "Denny's DINE", "Denny's DINE - Relco", "Digital Dining", "Dinnerware",
    "Dos Coyote", "Drake-Williams", "ESI", "eWorks", "Five Guys", "FWA", "Generations",
    "Generations (xRef)", "Gradience", "Great Plains", "Hill", "Hill Ascii", "Hill csv",
    "Hill-TMW", "HomePro", "HomeTrak", "Homewatch", "Homewatch 2", "Homewatch 3", "Hooters",
    "IHOP8", "Infotronics AE 1.0.3", "Infotronics", "Infotronics 2", "Insperity", "Jantek v9.0",
    "Job Source", "KanTime", "Karmak", "Konetix v4.1", "Kronos/ADP", "Kronos Hours Summary",
    "Kronos TimeKeeper 3", "Kronos TimeKeeper 3a", "Kronos Summary", "Kronos (14 Columns)",
    "Kronos v2c", "Kronos v2C (Short)", "Kronos v3", "Kronos v5a", "Kronos v6",
    "Kronos v6 Column M", "Kronos v6 csv", "Kronos v8", "Kronos v8D", "Kronos Penn",
    "Lake Austin", "Lathem", "Lathem v6", "Lathem Payclock Pro", "Lathern", "Maddock", "Maitre'D",
    "Micros 3700 v4.1", "Micros 3700 v4.1Br", "Millennium", "Millennium Soneto", "Millennium v2",
    "Monolith", "NetSuite", "NovaTime", "OmniChrome", "OnePOS", "PayChoice", "Sorrelin 2868",
    "PaySuite", "PCI Paper", "POSiTouch (.csv)", "POSiTouch (.flt)", "POSiTouch (.prn)",
    "POSiTouch OTB", "POSiTouch (long .prn)", "PRC", "Prevail Pay", "Prevail Pay 2", "Procede",
    "PXP-Golden Corral", "Q-quest ETC 200", "QsrSoft", "QSRSoft v2", "QuickBooks", "Qwest",
    "RapidPay", "RBI", "Resource", "Restaurant Magic", "ROM", "Sage (Mas90)", "Sage vX",
    "SAILOR Poll", "SEI", "Shelby", "Shepard ES", "Shoneys", "Shoney's Sales", "Sicom (.csv)",
    "Sonic", "Soule", "Squirrel POS 1.45", "Squirrel v3.2", "Student Study", "Taste Bistro",
    "Temp Wizard", "TimeCentre", "Timeclock Plus", "Timeclock Plus (Bezion)",
    "Timeclock Plus Pro v5.0", "Timeclock Plus Pro v5.0.2.189", "Timeforce DCOG", "Time Guardian",
    "Time-in-a-Box", "Time Manager v2.8 csv", "Time Manager v2.8", "Time Manager v2.x",
    "Time Manager v2.0", "Time Manager v1.8", "Time Management Systems", "TimeTrak", "TimeTrax",
    "TLH", "TMX", "Toast", "TruQC", "TruTime", "TSVC", "VBP", "VFN", "Wheatfields", "Yellow Dog"
};
// clang-format on

const ClockEntry& Clock(std::string_view key) {
  const ClockEntry* entry = FindClock(key);
  EXPECT_NE(entry, nullptr) << key;
  static const ClockEntry kMissing{"", "", Shape::S, OpenMode::None, 0, Frame::NoHandler};
  return entry != nullptr ? *entry : kMissing;
}

TEST(DispatchTable, KeysAreExactlyTheCatalogueNames) {
  const auto table = DispatchTable();
  ASSERT_EQ(table.size(), 188u);
  ASSERT_EQ(std::size(kCatalogue), 188u);

  std::set<std::string_view> keys;
  for (const ClockEntry& entry : table) EXPECT_TRUE(keys.insert(entry.key).second) << entry.key;
  const std::set<std::string_view> names(std::begin(kCatalogue), std::end(kCatalogue));
  EXPECT_EQ(names.size(), 188u);
  EXPECT_EQ(keys, names);

  // A configured format that is neither listed nor dispatched.
  EXPECT_EQ(keys.count("HotSauce DTS"), 0u);
}

TEST(DispatchTable, RowsRunShapeByShapeInSelectOrder) {
  const auto table = DispatchTable();
  const std::string order = "WLHCFS";
  std::size_t last = 0;
  for (const ClockEntry& entry : table) {
    const std::size_t at = order.find(ShapeLetter(entry.shape));
    ASSERT_NE(at, std::string::npos) << entry.key;
    EXPECT_GE(at, last) << entry.key << " stands out of its shape's run";
    last = at;
  }
  // First and last of a few runs, by hand from the lists.
  EXPECT_EQ(table[0].key, "ABRA");
  EXPECT_EQ(table[6].key, "Shoney's Sales");
  EXPECT_EQ(table[7].key, "ADI");
  EXPECT_EQ(table[36].key, "Wheatfields");
  EXPECT_EQ(table[37].key, "ADP/EZ Labor");
  EXPECT_EQ(table[63].key, "Access");
  EXPECT_EQ(table[96].key, "ADI v9.4.1");
  EXPECT_EQ(table[119].key, "ADP-AS400");
  EXPECT_EQ(table[187].key, "Yellow Dog");
}

TEST(DispatchTable, FindClockComparesExactText) {
  for (const ClockEntry& entry : DispatchTable()) EXPECT_EQ(FindClock(entry.key), &entry);

  ASSERT_NE(FindClock("Access"), nullptr);
  EXPECT_EQ(FindClock("Access")->translator, "Access");
  EXPECT_EQ(FindClock("access"), nullptr);
  EXPECT_EQ(FindClock("ACCESS"), nullptr);
  EXPECT_EQ(FindClock("Access "), nullptr);
  EXPECT_EQ(FindClock(" Access"), nullptr);
  EXPECT_EQ(FindClock(""), nullptr);
  EXPECT_EQ(FindClock("Nothing"), nullptr);
  EXPECT_EQ(FindClock("HotSauce DTS"), nullptr);
  // Near neighbours that are keys of their own, and near misses that are not.
  EXPECT_EQ(Clock("Kronos v2c").translator, "Kronosv2c");
  EXPECT_EQ(Clock("Kronos v2C (Short)").translator, "Kronosv2cShort");
  EXPECT_EQ(FindClock("Kronos v2C"), nullptr);
  EXPECT_EQ(Clock("Denny's DINE").translator, "DennysDINE");
  EXPECT_EQ(Clock("Denny's DINE - Relco").translator, "DennysDINErelco");
  EXPECT_EQ(FindClock("Dennys DINE"), nullptr);
  EXPECT_EQ(Clock("Maitre'D").translator, "MaitreD");
  EXPECT_EQ(FindClock("Maitre\xE2\x80\x99"
                      "D"),
            nullptr);
  EXPECT_EQ(Clock("Lathem").translator, "Lathem");
  EXPECT_EQ(Clock("Lathern").translator, "Lathern");
  EXPECT_EQ(FindClock("Kronos v8d"), nullptr);
  // A key with an embedded NUL is not a prefix match.
  EXPECT_EQ(FindClock(std::string_view("TMX\0", 4)), nullptr);
}

TEST(DispatchTable, SharedAndMissingTranslators) {
  EXPECT_EQ(Clock("Hill").translator, "HILL");
  EXPECT_EQ(Clock("Hill Ascii").translator, "HILL");
  EXPECT_EQ(Clock("Hill").shape, Shape::W);
  EXPECT_EQ(Clock("Hill Ascii").shape, Shape::L);
  EXPECT_EQ(Clock("Micros 3700 v4.1").translator, "Micros3700v41");
  EXPECT_EQ(Clock("Micros 3700 v4.1Br").translator, "Micros3700v41");
  EXPECT_EQ(Clock("Time Manager v2.8").translator, "TMv28");
  EXPECT_EQ(Clock("Time Manager v2.8 csv").translator, "TMv28");
  EXPECT_EQ(Clock("NetSuite").translator, "");

  // Apart from those three pairs and the branch that writes itself, every key has a
  // translator of its own.
  std::set<std::string_view> translators;
  int empty = 0;
  for (const ClockEntry& entry : DispatchTable()) {
    if (entry.translator.empty()) {
      ++empty;
    } else {
      translators.insert(entry.translator);
    }
  }
  EXPECT_EQ(empty, 1);
  EXPECT_EQ(translators.size(), 184u);
}

TEST(DispatchTable, OpenModesAndRecordLengths) {
  std::map<std::string_view, int> per_mode;
  for (const ClockEntry& entry : DispatchTable()) ++per_mode[ModeName(entry.mode)];
  EXPECT_EQ(per_mode["none"], 16);
  EXPECT_EQ(per_mode["text"], 37);
  EXPECT_EQ(per_mode["byte"], 107);
  EXPECT_EQ(per_mode["fixed"], 28);
  EXPECT_EQ(per_mode.size(), 4u);

  // Every fixed-record clock with its length, grouped by length.
  const std::vector<std::pair<int, std::vector<std::string_view>>> fixed = {
      {72, {"Time Management Systems"}},
      {82, {"ADP (extpaydt)", "Kronos/ADP"}},
      {83, {"Insperity", "PaySuite"}},
      {103, {"TimeTrak", "TLH"}},
      {106, {"ADS Custom"}},
      {116, {"TMX"}},
      {117, {"Konetix v4.1", "Shelby"}},
      {121, {"Homewatch 3"}},
      {122, {"POSiTouch (.flt)"}},
      {129, {"ADI v9.4.1", "Aloha v6.7.22", "RapidPay"}},
      {131, {"AE v1.0.27.6", "Ceridian Web", "Deltek (Galloway)"}},
      {139, {"Homewatch 2"}},
      {211, {"Q-quest ETC 200"}},
      {215, {"PXP-Golden Corral"}},
      {222, {"Ave OT"}},
      {259, {"Jantek v9.0"}},
      {630, {"Deltek v8.3 Fixed"}},
      {1187, {"Time Manager v1.8"}},
      {1310, {"Time Manager v2.0"}},
      {1312, {"Time Manager v2.x"}},
  };
  int listed = 0;
  for (const auto& [length, keys] : fixed) {
    for (std::string_view key : keys) {
      ++listed;
      const ClockEntry& entry = Clock(key);
      EXPECT_EQ(entry.mode, OpenMode::Fixed) << key;
      EXPECT_EQ(entry.record_length, length) << key;
    }
  }
  EXPECT_EQ(listed, 28);

  // Only fixed records carry a length.
  for (const ClockEntry& entry : DispatchTable()) {
    if (entry.mode != OpenMode::Fixed) {
      EXPECT_EQ(entry.record_length, 0) << entry.key;
    }
  }

  // Workbooks and the other files a branch opens itself; Ctrl-Z-ended text; the rest byte.
  for (std::string_view key : {"ABRA", "NetSuite", "Kronos Penn", "VBP", "Digital Dining"})
    EXPECT_EQ(Clock(key).mode, OpenMode::None) << key;
  for (std::string_view key : {"ADI", "Aloha v6", "POSiTouch OTB", "Wheatfields", "Toast"})
    EXPECT_EQ(Clock(key).mode, OpenMode::Text) << key;
  for (std::string_view key : {"Access", "Aloha v6.2", "Kronos v8", "QsrSoft", "Hill csv"})
    EXPECT_EQ(Clock(key).mode, OpenMode::Byte) << key;
}

TEST(DispatchTable, ShapesAgreeWithOpenModes) {
  std::map<char, int> per_shape;
  for (const ClockEntry& entry : DispatchTable()) {
    ++per_shape[ShapeLetter(entry.shape)];
    // A workbook is never opened as a file of lines, a fixed-record reader needs the fixed
    // mode, and none of the comma-field clocks reads a Ctrl-Z-ended text file.
    if (entry.shape == Shape::W) {
      EXPECT_EQ(entry.mode, OpenMode::None) << entry.key;
    }
    if (entry.shape == Shape::F) {
      EXPECT_EQ(entry.mode, OpenMode::Fixed) << entry.key;
    }
    if (entry.shape == Shape::C) {
      EXPECT_EQ(entry.mode, OpenMode::Byte) << entry.key;
    }
  }
  EXPECT_EQ(per_shape['W'], 7);
  EXPECT_EQ(per_shape['L'], 30);
  EXPECT_EQ(per_shape['H'], 26);
  EXPECT_EQ(per_shape['C'], 33);
  EXPECT_EQ(per_shape['F'], 23);
  EXPECT_EQ(per_shape['S'], 69);

  // Self-reading clocks may still open their file in any mode.
  EXPECT_EQ(Clock("Aloha v6.7.22").shape, Shape::S);
  EXPECT_EQ(Clock("Aloha v6.7.22").record_length, 129);
  EXPECT_EQ(Clock("Procede").mode, OpenMode::None);
  EXPECT_EQ(Clock("ROM").mode, OpenMode::Text);
}

TEST(DispatchTable, ErrorFrames) {
  std::map<Frame, int> per_frame;
  for (const ClockEntry& entry : DispatchTable()) {
    ++per_frame[entry.frame];
    // Only branches that hold the reading loop arm a handler or ignore errors.
    if (entry.frame != Frame::NoHandler) {
      EXPECT_TRUE(entry.shape == Shape::L || entry.shape == Shape::H || entry.shape == Shape::C)
          << entry.key;
    }
  }
  EXPECT_EQ(per_frame[Frame::Handler], 63);
  EXPECT_EQ(per_frame[Frame::Ignore], 8);
  EXPECT_EQ(per_frame[Frame::NoHandler], 117);

  EXPECT_EQ(Clock("Access").frame, Frame::Handler);
  EXPECT_EQ(Clock("Aloha v6.5.42").frame, Frame::NoHandler);
  EXPECT_EQ(Clock("IHOP8").frame, Frame::Ignore);
  EXPECT_EQ(Clock("Wheatfields").frame, Frame::Ignore);
  EXPECT_EQ(Clock("POSiTouch OTB").frame, Frame::Ignore);
  // Partly under a handler, but run statement by statement as a whole.
  EXPECT_EQ(Clock("Kronos v8").frame, Frame::Ignore);
  EXPECT_EQ(Clock("Time Manager v2.8 csv").frame, Frame::Ignore);
  EXPECT_EQ(Clock("Kronos v8D").frame, Frame::Handler);
  // Same translator, different frames.
  EXPECT_EQ(Clock("Micros 3700 v4.1Br").frame, Frame::Handler);
  EXPECT_EQ(Clock("Micros 3700 v4.1").frame, Frame::NoHandler);
  EXPECT_EQ(Clock("Infotronics").frame, Frame::NoHandler);
  EXPECT_EQ(Clock("Infotronics 2").frame, Frame::NoHandler);
}

TEST(DispatchTable, NamesOfShapesModesAndFrames) {
  EXPECT_EQ(std::string({ShapeLetter(Shape::W), ShapeLetter(Shape::L), ShapeLetter(Shape::H),
                         ShapeLetter(Shape::C), ShapeLetter(Shape::F), ShapeLetter(Shape::S)}),
            "WLHCFS");
  EXPECT_EQ(ModeName(OpenMode::None), "none");
  EXPECT_EQ(ModeName(OpenMode::Text), "text");
  EXPECT_EQ(ModeName(OpenMode::Byte), "byte");
  EXPECT_EQ(ModeName(OpenMode::Fixed), "fixed");
  EXPECT_EQ(FrameName(Frame::NoHandler), "no handler");
  EXPECT_EQ(FrameName(Frame::Handler), "handler");
  EXPECT_EQ(FrameName(Frame::Ignore), "ignore");
}

}  // namespace
}  // namespace corvane
