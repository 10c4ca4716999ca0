// Every translator written so far, by the name the dispatch table gives it.
#include "pipeline/translator.hpp"

namespace corvane {

extern const Translator kAccessTranslator;
extern const Translator kABRATranslator;
extern const Translator kAlohaV5313Translator;
extern const Translator kAlohav6542Translator;
extern const Translator kAlohav6544Translator;
extern const Translator kAlohav6722Translator;
extern const Translator kAlohav5326Translator;
extern const Translator kAlohav6738Translator;
extern const Translator kADPas400Translator;
extern const Translator kADPAspectTranslator;
extern const Translator kADPcsvTranslator;
extern const Translator kADPBSTTranslator;
extern const Translator kADPTranslator;
extern const Translator kADPEZLaborTranslator;
extern const Translator kCostaViewEZLaborTranslator;
extern const Translator kADPv1123Translator;
extern const Translator kADSCustomTranslator;
extern const Translator kKronosADPTranslator;
extern const Translator kKronosTimeKeeper3Translator;
extern const Translator kKronosTimeKeeper3aTranslator;
extern const Translator kKronosHoursSummaryTranslator;
extern const Translator kKronosSummaryTranslator;
extern const Translator kKronosV3Translator;
extern const Translator kKronosv2cShortTranslator;
extern const Translator kKronosv2cTranslator;
extern const Translator kKronosv5aTranslator;
extern const Translator kKronosv6Translator;
extern const Translator kKronosv6MTranslator;
extern const Translator kKronosV6csvTranslator;
extern const Translator kKronos14ColTranslator;
extern const Translator kKronosv8Translator;
extern const Translator kKronosV8DTranslator;
extern const Translator kTMv28Translator;
extern const Translator kTMv2xTranslator;
extern const Translator kTMv20Translator;
extern const Translator kTMv18Translator;
extern const Translator kTimeManagementSystemsTranslator;
// Squirrel, Micros and Maitre'D
extern const Translator kSquirrel145Translator;
extern const Translator kSquirrel32Translator;
extern const Translator kMicros3700v41Translator;
extern const Translator kMaitreDTranslator;
// Aloha cross-reference versions
extern const Translator kAlohav62Translator;
extern const Translator kAlohav6212Translator;
extern const Translator kAlohav6227Translator;
extern const Translator kAlohav5317Translator;
extern const Translator kAlohav5320Translator;
extern const Translator kAlohav5346Translator;
extern const Translator kAlohav6113Translator;
extern const Translator kAlohaTranslator;
extern const Translator kAlohaEnterpriseTranslator;
extern const Translator kAlohaLaborSchedTranslator;
extern const Translator kAlohaWGLTranslator;
// QsrSoft
extern const Translator kQsrSoftTranslator;
extern const Translator kQSRSoftv2Translator;
// POSiTouch
extern const Translator kPOSiTouchPRNTranslator;
extern const Translator kPOSiTouchPRNLong_GetRecTranslator;
extern const Translator kPOSiTouchCSVTranslator;
extern const Translator kPOSiTouchTranslator;
extern const Translator kPOSiTouchOTBTranslator;
// Workbook-driven
extern const Translator kKronPennTranslator;
// Deltek and Monolith
extern const Translator kDeltekTranslator;
extern const Translator kDeltek615Translator;
extern const Translator kDeltek83Translator;
extern const Translator kDeltek83FixTranslator;
extern const Translator kMonolithTranslator;
// Timeclock Plus, Infotronics and AE
extern const Translator kTimeClockPlusTranslator;
extern const Translator kTimeclockPlusVieDelTranslator;
extern const Translator kTimeClockPlus5Translator;
extern const Translator kTimeClockPlus502189Translator;
extern const Translator kInfotronicsTranslator;
extern const Translator kInfotronics2Translator;
extern const Translator kInfotronicsAEv103Translator;
extern const Translator kAEv10276Translator;
extern const Translator kAEv1028616Translator;
// Report scrapers
extern const Translator kDataTrakTranslator;
extern const Translator kDrakeWilliamsTranslator;
extern const Translator kHILLTranslator;
extern const Translator kHillCsvTranslator;
extern const Translator kHillTMWTranslator;
extern const Translator kGreatPlainsTranslator;

// comma restaurant formats: the back-office column maps, and Denny's DINE
extern const Translator kDDMGRTranslator;
extern const Translator kQwestTranslator;
extern const Translator kESITranslator;
extern const Translator kSorrelin2868Translator;
extern const Translator kPCIPaperTranslator;
extern const Translator kCTuitRadarTranslator;
extern const Translator kHootersTranslator;
extern const Translator kRBITranslator;
extern const Translator kRestaurantMagicTranslator;
extern const Translator kDennysDINETranslator;
extern const Translator kDennysDINErelcoTranslator;

// AccroPrint, Aspect, CLI, NovaTime, TimeCentre, Timeforce, Time Guardian, Time-in-a-Box,
// TruQC, Angel Fire and ChronoTek
extern const Translator kAccroPrintV20Translator;
extern const Translator kASPTranslator;
extern const Translator kCLITranslator;
extern const Translator kNovaTimeTranslator;
extern const Translator kTimeCentreTranslator;
extern const Translator kTimeforceDCOGTranslator;
extern const Translator kTimeGuardianTranslator;
extern const Translator kTimeInABoxTranslator;
extern const Translator kTruQCTranslator;
extern const Translator kAngelFireTranslator;
extern const Translator kChronoTekTranslator;

// Payroll, accounting and staffing exports
extern const Translator kAmpayTranslator;
extern const Translator kPRCTranslator;
extern const Translator kSAGEMAS90Translator;
extern const Translator kDarwinTranslator;
extern const Translator kdataSIGNTranslator;
extern const Translator keWorksTranslator;
extern const Translator kGenerationsXREFTranslator;
extern const Translator kOmniChromeTranslator;
extern const Translator kQuickBooksTranslator;
extern const Translator kTempWizardTranslator;

// ADI, BGS, Gradience, Homewatch and Lathem line and fixed exports
extern const Translator kADITranslator;
extern const Translator kADI941Translator;
extern const Translator kBGSTranslator;
extern const Translator kGradienceTranslator;
extern const Translator kHomewatchTranslator;
extern const Translator kHomewatch2Translator;
extern const Translator kHomewatch3Translator;
extern const Translator kLathemTranslator;
extern const Translator kLathem6Translator;
extern const Translator kLathemPayClockProTranslator;
extern const Translator kLathernTranslator;

// IHOP8, Shoneys, Wheatfields, Archaic Beef, SAILOR Poll, PXP-Golden Corral, TMX, TimeTrax,
// Lake Austin, Maddock and SEI
extern const Translator kArchaicBeefTranslator;
extern const Translator kIHOP8Translator;
extern const Translator kLakeAustinTranslator;
extern const Translator kMaddockTranslator;
extern const Translator kSAILORPollTranslator;
extern const Translator kSEITranslator;
extern const Translator kShoneysTranslator;
extern const Translator kTimeTraxTranslator;
extern const Translator kWheatfieldsTranslator;
extern const Translator kPXPTranslator;
extern const Translator kTMXTranslator;

// payroll services and punch clocks of fixed records and whole lines
extern const Translator kPayChoiceTranslator;
extern const Translator kPaySuiteTranslator;
extern const Translator kRapidPayTranslator;
extern const Translator kCeridianWebTranslator;
extern const Translator kShelbyTranslator;
extern const Translator kAveOTTranslator;
extern const Translator kTruTimeTranslator;
extern const Translator kQquestTranslator;
extern const Translator kTTTranslator;
extern const Translator kTLHTranslator;
extern const Translator kKonetixTranslator;

const Translator* FindTranslator(std::string_view name) {
  static const Translator* const kAll[] = {
      &kAccessTranslator,
      &kABRATranslator,
      &kAlohaV5313Translator,
      &kAlohav6542Translator,
      &kAlohav6544Translator,
      &kAlohav6722Translator,
      &kAlohav5326Translator,
      &kAlohav6738Translator,
      // ADP
      &kADPas400Translator,
      &kADPAspectTranslator,
      &kADPcsvTranslator,
      &kADPBSTTranslator,
      &kADPTranslator,
      &kADPEZLaborTranslator,
      &kCostaViewEZLaborTranslator,
      &kADPv1123Translator,
      &kADSCustomTranslator,
      // Kronos
      &kKronosADPTranslator,
      &kKronosTimeKeeper3Translator,
      &kKronosTimeKeeper3aTranslator,
      &kKronosHoursSummaryTranslator,
      &kKronosSummaryTranslator,
      &kKronosV3Translator,
      &kKronosv2cShortTranslator,
      &kKronosv2cTranslator,
      &kKronosv5aTranslator,
      &kKronosv6Translator,
      &kKronosv6MTranslator,
      &kKronosV6csvTranslator,
      &kKronos14ColTranslator,
      // Kronos v8
      &kKronosv8Translator,
      &kKronosV8DTranslator,
      // Time Manager
      &kTMv28Translator,
      &kTMv2xTranslator,
      &kTMv20Translator,
      &kTMv18Translator,
      &kTimeManagementSystemsTranslator,
      // Squirrel, Micros and Maitre'D
      &kSquirrel145Translator,
      &kSquirrel32Translator,
      &kMicros3700v41Translator,
      &kMaitreDTranslator,
      // Aloha cross-reference versions
      &kAlohav62Translator,
      &kAlohav6212Translator,
      &kAlohav6227Translator,
      &kAlohav5317Translator,
      &kAlohav5320Translator,
      &kAlohav5346Translator,
      &kAlohav6113Translator,
      &kAlohaTranslator,
      &kAlohaEnterpriseTranslator,
      &kAlohaLaborSchedTranslator,
      &kAlohaWGLTranslator,
      // QsrSoft
      &kQsrSoftTranslator,
      &kQSRSoftv2Translator,
      // POSiTouch
      &kPOSiTouchPRNTranslator,
      &kPOSiTouchPRNLong_GetRecTranslator,
      &kPOSiTouchCSVTranslator,
      &kPOSiTouchTranslator,
      &kPOSiTouchOTBTranslator,
      // Workbook-driven
      &kKronPennTranslator,
      // Deltek and Monolith
      &kDeltekTranslator,
      &kDeltek615Translator,
      &kDeltek83Translator,
      &kDeltek83FixTranslator,
      &kMonolithTranslator,
      // Timeclock Plus, Infotronics and AE
      &kTimeClockPlusTranslator,
      &kTimeclockPlusVieDelTranslator,
      &kTimeClockPlus5Translator,
      &kTimeClockPlus502189Translator,
      &kInfotronicsTranslator,
      &kInfotronics2Translator,
      &kInfotronicsAEv103Translator,
      &kAEv10276Translator,
      &kAEv1028616Translator,
      // Report scrapers
      &kDataTrakTranslator,
      &kDrakeWilliamsTranslator,
      &kHILLTranslator,
      &kHillCsvTranslator,
      &kHillTMWTranslator,
      &kGreatPlainsTranslator,

      // comma restaurant formats: the back-office column maps, and Denny's DINE
      &kDDMGRTranslator,
      &kQwestTranslator,
      &kESITranslator,
      &kSorrelin2868Translator,
      &kPCIPaperTranslator,
      &kCTuitRadarTranslator,
      &kHootersTranslator,
      &kRBITranslator,
      &kRestaurantMagicTranslator,
      &kDennysDINETranslator,
      &kDennysDINErelcoTranslator,

      // AccroPrint, Aspect, CLI, NovaTime, TimeCentre, Timeforce, Time Guardian,
      // Time-in-a-Box, TruQC, Angel Fire and ChronoTek
      &kAccroPrintV20Translator,
      &kASPTranslator,
      &kCLITranslator,
      &kNovaTimeTranslator,
      &kTimeCentreTranslator,
      &kTimeforceDCOGTranslator,
      &kTimeGuardianTranslator,
      &kTimeInABoxTranslator,
      &kTruQCTranslator,
      &kAngelFireTranslator,
      &kChronoTekTranslator,

      // Payroll, accounting and staffing exports
      &kAmpayTranslator,
      &kPRCTranslator,
      &kSAGEMAS90Translator,
      &kDarwinTranslator,
      &kdataSIGNTranslator,
      &keWorksTranslator,
      &kGenerationsXREFTranslator,
      &kOmniChromeTranslator,
      &kQuickBooksTranslator,
      &kTempWizardTranslator,

      // ADI, BGS, Gradience, Homewatch and Lathem line and fixed exports
      &kADITranslator,
      &kADI941Translator,
      &kBGSTranslator,
      &kGradienceTranslator,
      &kHomewatchTranslator,
      &kHomewatch2Translator,
      &kHomewatch3Translator,
      &kLathemTranslator,
      &kLathem6Translator,
      &kLathemPayClockProTranslator,
      &kLathernTranslator,

      // IHOP8, Shoneys, Wheatfields, Archaic Beef, SAILOR Poll, PXP-Golden Corral, TMX,
      // TimeTrax, Lake Austin, Maddock and SEI
      &kArchaicBeefTranslator,
      &kIHOP8Translator,
      &kLakeAustinTranslator,
      &kMaddockTranslator,
      &kSAILORPollTranslator,
      &kSEITranslator,
      &kShoneysTranslator,
      &kTimeTraxTranslator,
      &kWheatfieldsTranslator,
      &kPXPTranslator,
      &kTMXTranslator,

      // payroll services and punch clocks of fixed records and whole lines
      &kPayChoiceTranslator,
      &kPaySuiteTranslator,
      &kRapidPayTranslator,
      &kCeridianWebTranslator,
      &kShelbyTranslator,
      &kAveOTTranslator,
      &kTruTimeTranslator,
      &kQquestTranslator,
      &kTTTranslator,
      &kTLHTranslator,
      &kKonetixTranslator,

  };
  if (name.empty()) return nullptr;
  for (const Translator* t : kAll) {
    if (t->name == name) return t;
  }
  return nullptr;
}

}  // namespace corvane
