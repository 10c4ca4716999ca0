// The dispatch over the time clock's name, held as one constant table in the order of the
// Select, with a sorted index for the exact-text lookup.
#include <algorithm>
#include <array>
#include <cstddef>

#include "pipeline/dispatch.hpp"

namespace corvane {
namespace {

constexpr std::size_t kClockCount = 188;

constexpr std::array<ClockEntry, kClockCount> kClocks = [] {
  using enum Shape;
  using enum OpenMode;
  using enum Frame;
  return std::array<ClockEntry, kClockCount>{{
      // W: workbook rows: the branch reads cells of the active sheet.
      {"ABRA", "ABRA", W, None, 0, NoHandler},
      {"Deltek", "Deltek", W, None, 0, NoHandler},
      {"Hill", "HILL", W, None, 0, NoHandler},
      {"Job Source", "JobSource", W, None, 0, NoHandler},
      // no translator method: the branch fills the import record and writes each pay category
      {"NetSuite", "", W, None, 0, NoHandler},
      {"Shepard ES", "ShepardES", W, None, 0, NoHandler},
      {"Shoney's Sales", "ShoneySales", W, None, 0, NoHandler},

      // L: whole lines, read one ahead.
      {"ADI", "ADI", L, Text, 0, NoHandler},
      {"Archaic Beef", "ArchaicBeef", L, Text, 0, Handler},
      {"BGS", "BGS", L, Byte, 0, Handler},
      {"DataTrak", "DataTrak", L, Text, 0, NoHandler},
      {"Drake-Williams", "DrakeWilliams", L, Text, 0, NoHandler},
      {"Gradience", "Gradience", L, Text, 0, Handler},
      {"Hill Ascii", "HILL", L, Text, 0, NoHandler},
      {"Homewatch", "Homewatch", L, Text, 0, NoHandler},
      {"IHOP8", "IHOP8", L, Byte, 0, Ignore},
      {"Infotronics 2", "Infotronics2", L, Text, 0, NoHandler},
      {"Kronos Hours Summary", "KronosHoursSummary", L, Text, 0, NoHandler},
      {"Kronos TimeKeeper 3", "KronosTimeKeeper3", L, Text, 0, NoHandler},
      {"Kronos TimeKeeper 3a", "KronosTimeKeeper3a", L, Text, 0, NoHandler},
      {"Kronos Summary", "KronosSummary", L, Text, 0, NoHandler},
      {"Kronos v3", "KronosV3", L, Text, 0, NoHandler},
      {"Lake Austin", "LakeAustin", L, Byte, 0, Handler},
      {"Lathem", "Lathem", L, Text, 0, Handler},
      {"Lathem v6", "Lathem6", L, Text, 0, Handler},
      {"Lathem Payclock Pro", "LathemPayClockPro", L, Text, 0, NoHandler},
      {"Lathern", "Lathern", L, Text, 0, NoHandler},
      {"Maddock", "Maddock", L, Text, 0, Handler},
      {"Monolith", "Monolith", L, Text, 0, Handler},
      {"PayChoice", "PayChoice", L, Text, 0, NoHandler},
      {"SAILOR Poll", "SAILORPoll", L, Byte, 0, Handler},
      {"SEI", "SEI", L, Text, 0, Handler},
      {"Shoneys", "Shoneys", L, Byte, 0, Handler},
      {"Time Manager v2.8", "TMv28", L, Text, 0, Ignore},
      {"TimeTrax", "TimeTrax", L, Byte, 0, Handler},
      {"TruTime", "TruTime", L, Byte, 0, NoHandler},
      {"Wheatfields", "Wheatfields", L, Text, 0, Ignore},

      // H: a whole-line read drops the headings, then comma fields.
      {"ADP/EZ Labor", "ADPEZLabor", H, Byte, 0, Handler},
      {"Costa View EZLabor", "CostaViewEZLabor", H, Byte, 0, Handler},
      {"ADP v11.2.3", "ADPv1123", H, Byte, 0, Handler},
      {"AE v1.0.28.616", "AEv1028616", H, Byte, 0, Handler},
      {"Aloha v6", "Aloha", H, Text, 0, Handler},
      {"Aloha v5.3.13", "AlohaV5313", H, Byte, 0, Handler},
      {"Angel Fire", "AngelFire", H, Byte, 0, Handler},
      {"ChronoTek", "ChronoTek", H, Byte, 0, Handler},
      {"CTuit Radar", "CTuitRadar", H, Byte, 0, Handler},
      {"Darwin", "Darwin", H, Byte, 0, Handler},
      {"dataSIGN", "dataSIGN", H, Byte, 0, Handler},
      {"Denny's DINE", "DennysDINE", H, Byte, 0, Ignore},
      {"eWorks", "eWorks", H, Byte, 0, Handler},
      {"Generations (xRef)", "GenerationsXREF", H, Text, 0, Handler},
      {"Hooters", "Hooters", H, Byte, 0, Handler},
      {"Infotronics AE 1.0.3", "InfotronicsAEv103", H, Text, 0, NoHandler},
      {"Kronos v6 csv", "KronosV6csv", H, Byte, 0, Handler},
      {"OmniChrome", "OmniChrome", H, Byte, 0, Handler},
      {"POSiTouch (.prn)", "POSiTouchPRN", H, Byte, 0, Handler},
      {"POSiTouch OTB", "POSiTouchOTB", H, Text, 0, Ignore},
      {"POSiTouch (long .prn)", "POSiTouchPRNLong_GetRec", H, Byte, 0, Handler},
      {"QuickBooks", "QuickBooks", H, Byte, 0, Handler},
      {"RBI", "RBI", H, Byte, 0, Handler},
      {"Restaurant Magic", "RestaurantMagic", H, Byte, 0, Handler},
      {"Temp Wizard", "TempWizard", H, Byte, 0, Handler},
      // also arms a handler for part of its work, but the branch as a whole runs
      // statement by statement, so an error does not end it
      {"Time Manager v2.8 csv", "TMv28", H, Byte, 0, Ignore},

      // C: comma fields; a first read of the same shape drops the heading record.
      {"Access", "Access", C, Byte, 0, Handler},
      {"AccroPrint v2.0", "AccroPrintV20", C, Byte, 0, Handler},
      {"ADP/Aspect", "ADPAspect", C, Byte, 0, Handler},
      {"ADP.csv", "ADPcsv", C, Byte, 0, Handler},
      {"Ampay", "Ampay", C, Byte, 0, Handler},
      {"Aspect", "ASP", C, Byte, 0, Handler},
      {"CLI", "CLI", C, Byte, 0, Handler},
      {"DDMGR", "DDMGR", C, Byte, 0, Handler},
      {"Denny's DINE - Relco", "DennysDINErelco", C, Byte, 0, Ignore},
      {"ESI", "ESI", C, Byte, 0, Handler},
      {"Infotronics", "Infotronics", C, Byte, 0, NoHandler},
      {"Kronos v2c", "Kronosv2c", C, Byte, 0, Handler},
      // also arms a handler for part of its work, but the branch as a whole runs
      // statement by statement, so an error does not end it
      {"Kronos v8", "Kronosv8", C, Byte, 0, Ignore},
      {"Kronos v8D", "KronosV8D", C, Byte, 0, Handler},
      {"Maitre'D", "MaitreD", C, Byte, 0, Handler},
      // shares its translator with the Br form, but only the Br form arms a handler
      {"Micros 3700 v4.1", "Micros3700v41", C, Byte, 0, NoHandler},
      {"Micros 3700 v4.1Br", "Micros3700v41", C, Byte, 0, Handler},
      {"NovaTime", "NovaTime", C, Byte, 0, Handler},
      {"Sorrelin 2868", "Sorrelin2868", C, Byte, 0, Handler},
      {"PCI Paper", "PCIPaper", C, Byte, 0, Handler},
      {"POSiTouch (.csv)", "POSiTouchCSV", C, Byte, 0, Handler},
      {"PRC", "PRC", C, Byte, 0, Handler},
      {"QsrSoft", "QsrSoft", C, Byte, 0, Handler},
      {"Qwest", "Qwest", C, Byte, 0, Handler},
      {"Sage (Mas90)", "SAGEMAS90", C, Byte, 0, Handler},
      {"TimeCentre", "TimeCentre", C, Byte, 0, Handler},
      {"Timeclock Plus", "TimeClockPlus", C, Byte, 0, Handler},
      {"Timeclock Plus Pro v5.0", "TimeClockPlus5", C, Byte, 0, Handler},
      {"Timeclock Plus Pro v5.0.2.189", "TimeClockPlus502189", C, Byte, 0, Handler},
      {"Timeforce DCOG", "TimeforceDCOG", C, Byte, 0, Handler},
      {"Time Guardian", "TimeGuardian", C, Byte, 0, Handler},
      {"Time-in-a-Box", "TimeInABox", C, Byte, 0, Handler},
      {"TruQC", "TruQC", C, Byte, 0, Handler},

      // F: fixed records of the length the open mode gives.
      {"ADI v9.4.1", "ADI941", F, Fixed, 129, NoHandler},
      {"ADP (extpaydt)", "ADP", F, Fixed, 82, NoHandler},
      {"ADS Custom", "ADSCustom", F, Fixed, 106, NoHandler},
      {"AE v1.0.27.6", "AEv10276", F, Fixed, 131, NoHandler},
      {"Ave OT", "AveOT", F, Fixed, 222, NoHandler},
      {"Ceridian Web", "CeridianWeb", F, Fixed, 131, NoHandler},
      {"Homewatch 2", "Homewatch2", F, Fixed, 139, NoHandler},
      {"Homewatch 3", "Homewatch3", F, Fixed, 121, NoHandler},
      {"Konetix v4.1", "Konetix", F, Fixed, 117, NoHandler},
      {"Kronos/ADP", "KronosADP", F, Fixed, 82, NoHandler},
      {"PaySuite", "PaySuite", F, Fixed, 83, NoHandler},
      {"POSiTouch (.flt)", "POSiTouch", F, Fixed, 122, NoHandler},
      {"PXP-Golden Corral", "PXP", F, Fixed, 215, NoHandler},
      {"Q-quest ETC 200", "Qquest", F, Fixed, 211, NoHandler},
      {"RapidPay", "RapidPay", F, Fixed, 129, NoHandler},
      {"Shelby", "Shelby", F, Fixed, 117, NoHandler},
      {"Time Manager v2.x", "TMv2x", F, Fixed, 1312, NoHandler},
      {"Time Manager v2.0", "TMv20", F, Fixed, 1310, NoHandler},
      {"Time Manager v1.8", "TMv18", F, Fixed, 1187, NoHandler},
      {"Time Management Systems", "TimeManagementSystems", F, Fixed, 72, NoHandler},
      {"TimeTrak", "TT", F, Fixed, 103, NoHandler},
      {"TLH", "TLH", F, Fixed, 103, NoHandler},
      {"TMX", "TMX", F, Fixed, 116, NoHandler},

      // S: self-reading: the translator holds the loop and opens the input where the branch does
      // not.
      {"ADP-AS400", "ADPas400", S, Byte, 0, NoHandler},
      {"ADP (BST)", "ADPBST", S, Byte, 0, NoHandler},
      {"Aloha v6.1.1.3", "Alohav6113", S, Byte, 0, NoHandler},
      {"Aloha v5.3.17", "Alohav5317", S, Byte, 0, NoHandler},
      {"Aloha v5.3.20", "Alohav5320", S, Byte, 0, NoHandler},
      {"Aloha v5.3.26", "Alohav5326", S, Byte, 0, NoHandler},
      {"Aloha v5.3.46", "Alohav5346", S, Byte, 0, NoHandler},
      {"Aloha v6.2", "Alohav62", S, Byte, 0, NoHandler},
      {"Aloha v6.2.12", "Alohav6212", S, Byte, 0, NoHandler},
      {"Aloha v6.2.27", "Alohav6227", S, Byte, 0, NoHandler},
      {"Aloha v6.5.42", "Alohav6542", S, Byte, 0, NoHandler},
      {"Aloha v6.5.44", "Alohav6544", S, Byte, 0, NoHandler},
      {"Aloha v6.7.22", "Alohav6722", S, Fixed, 129, NoHandler},
      {"Aloha v6.7.38", "Alohav6738", S, Byte, 0, NoHandler},
      {"Aloha Enterprise", "AlohaEnterprise", S, None, 0, NoHandler},
      {"Aloha Labor Scheduler (5.3.19)", "AlohaLaborSched", S, Byte, 0, NoHandler},
      {"Aloha WGL", "AlohaWGL", S, Text, 0, NoHandler},
      {"Brioso", "Brioso", S, Byte, 0, NoHandler},
      {"Cleaning Authority", "CleaningAuthority", S, Byte, 0, NoHandler},
      {"Dairy Queen", "DQ", S, Text, 0, NoHandler},
      {"Deltek (Galloway)", "DTGal", S, Fixed, 131, NoHandler},
      {"Deltek v6.15", "Deltek615", S, Byte, 0, NoHandler},
      {"Deltek v8.3", "Deltek83", S, Byte, 0, NoHandler},
      {"Deltek v8.3 Fixed", "Deltek83Fix", S, Fixed, 630, NoHandler},
      {"Digital Dining", "DigitalDining", S, None, 0, NoHandler},
      {"Dinnerware", "Dinnerware", S, Byte, 0, NoHandler},
      {"Dos Coyote", "DosCoyote", S, None, 0, NoHandler},
      {"Five Guys", "FiveGuys", S, None, 0, NoHandler},
      {"FWA", "FWA", S, Byte, 0, NoHandler},
      {"Generations", "Generations", S, Byte, 0, NoHandler},
      {"Great Plains", "GreatPlains", S, Byte, 0, NoHandler},
      {"Hill csv", "HillCsv", S, Byte, 0, NoHandler},
      {"Hill-TMW", "HillTMW", S, Byte, 0, NoHandler},
      {"HomePro", "HomePro", S, None, 0, NoHandler},
      {"HomeTrak", "HomeTrak", S, Byte, 0, NoHandler},
      {"Insperity", "Insperity", S, Fixed, 83, NoHandler},
      {"Jantek v9.0", "JantekV90", S, Fixed, 259, NoHandler},
      {"KanTime", "KTime", S, Byte, 0, NoHandler},
      {"Karmak", "Karmak", S, Byte, 0, NoHandler},
      {"Kronos v2C (Short)", "Kronosv2cShort", S, Byte, 0, NoHandler},
      {"Kronos v5a", "Kronosv5a", S, Text, 0, NoHandler},
      {"Kronos v6", "Kronosv6", S, Text, 0, NoHandler},
      {"Kronos v6 Column M", "Kronosv6M", S, Text, 0, NoHandler},
      {"Kronos (14 Columns)", "Kronos14Col", S, Byte, 0, NoHandler},
      {"Kronos Penn", "KronPenn", S, None, 0, NoHandler},
      {"Millennium", "Millennium", S, Byte, 0, NoHandler},
      {"Millennium Soneto", "MillenniumSoneto", S, Byte, 0, NoHandler},
      {"Millennium v2", "Millenniumv2", S, Byte, 0, NoHandler},
      {"OnePOS", "OnePOS", S, Byte, 0, NoHandler},
      {"Prevail Pay", "PrevPay", S, Byte, 0, NoHandler},
      {"Prevail Pay 2", "PrevPay2", S, Byte, 0, NoHandler},
      {"Procede", "Procede", S, None, 0, NoHandler},
      {"QSRSoft v2", "QSRSoftv2", S, Byte, 0, NoHandler},
      {"Resource", "Resource", S, None, 0, NoHandler},
      {"ROM", "ROM", S, Text, 0, NoHandler},
      {"Sage vX", "SageVx", S, Byte, 0, NoHandler},
      {"Sicom (.csv)", "SicomCSV", S, Byte, 0, NoHandler},
      {"Sonic", "Sonic", S, Byte, 0, NoHandler},
      {"Soule", "Soule", S, Byte, 0, NoHandler},
      {"Squirrel POS 1.45", "Squirrel145", S, Byte, 0, NoHandler},
      {"Squirrel v3.2", "Squirrel32", S, Byte, 0, NoHandler},
      {"Student Study", "StudentStudy", S, Byte, 0, NoHandler},
      {"Taste Bistro", "TasteBistro", S, Text, 0, NoHandler},
      {"Timeclock Plus (Bezion)", "TimeclockPlusVieDel", S, Byte, 0, NoHandler},
      {"Toast", "Toast", S, Text, 0, NoHandler},
      {"TSVC", "TSVC", S, Text, 0, NoHandler},
      {"VBP", "VBP", S, None, 0, NoHandler},
      {"VFN", "VFN", S, Text, 0, NoHandler},
      {"Yellow Dog", "YellowDog", S, Byte, 0, NoHandler},
  }};
}();

// A record length belongs to the fixed mode alone, and a fixed-record reader needs one.
constexpr bool LengthsAgreeWithModes() {
  for (const ClockEntry& entry : kClocks) {
    if ((entry.mode == OpenMode::Fixed) != (entry.record_length > 0)) return false;
    if (entry.shape == Shape::F && entry.mode != OpenMode::Fixed) return false;
  }
  return true;
}
static_assert(LengthsAgreeWithModes());

// Keys in byte order; the lookup is exact, so case and blanks count.
const std::array<const ClockEntry*, kClockCount>& SortedIndex() {
  static const std::array<const ClockEntry*, kClockCount> index = [] {
    std::array<const ClockEntry*, kClockCount> sorted{};
    for (std::size_t i = 0; i < kClockCount; ++i) sorted[i] = &kClocks[i];
    std::sort(sorted.begin(), sorted.end(),
              [](const ClockEntry* a, const ClockEntry* b) { return a->key < b->key; });
    return sorted;
  }();
  return index;
}

}  // namespace

std::span<const ClockEntry> DispatchTable() {
  return kClocks;
}

const ClockEntry* FindClock(std::string_view key) {
  const auto& index = SortedIndex();
  auto it =
      std::lower_bound(index.begin(), index.end(), key,
                       [](const ClockEntry* entry, std::string_view k) { return entry->key < k; });
  if (it == index.end() || (*it)->key != key) return nullptr;
  return *it;
}

char ShapeLetter(Shape shape) {
  switch (shape) {
    case Shape::W:
      return 'W';
    case Shape::L:
      return 'L';
    case Shape::H:
      return 'H';
    case Shape::C:
      return 'C';
    case Shape::F:
      return 'F';
    case Shape::S:
      return 'S';
  }
  return '?';
}

std::string_view ModeName(OpenMode mode) {
  switch (mode) {
    case OpenMode::None:
      return "none";
    case OpenMode::Text:
      return "text";
    case OpenMode::Byte:
      return "byte";
    case OpenMode::Fixed:
      return "fixed";
  }
  return "";
}

std::string_view FrameName(Frame frame) {
  switch (frame) {
    case Frame::NoHandler:
      return "no handler";
    case Frame::Handler:
      return "handler";
    case Frame::Ignore:
      return "ignore";
  }
  return "";
}

}  // namespace corvane
