// The settings folder and its five files: names, and the open that makes a missing file.
#pragma once

#include <string>
#include <string_view>

#include "runtime/errors.hpp"
#include "runtime/infile.hpp"

namespace corvane {

inline constexpr std::string_view kControlFileName = "Corvane_Control.dat";
inline constexpr std::string_view kLocFileName = "LocFile.dat";
inline constexpr std::string_view kEarnCodesFileName = "TimeImport_EarnCodes.dat";
inline constexpr std::string_view kK8FileName = "TimeImport_K8settings.dat";
inline constexpr std::string_view kTMFileName = "TimeImport_TMsettings.dat";

// What a form's Save says when its file could not be replaced: the headline names the
// settings, the system's error follows, and the operator is told that the file holds what
// was saved before. Shown with an OK button and the title "Corvane".
inline constexpr std::string_view kEarnCodesNotSaved = "The earning codes could not be saved.";
inline constexpr std::string_view kK8NotSaved = "The Kronos 8 settings could not be saved.";
inline constexpr std::string_view kTMNotSaved = "The Time Manager settings could not be saved.";
inline constexpr std::string_view kSavedBeforeKept =
    "The settings saved before are kept as they were.";
std::string SaveFailedText(std::string_view headline, const RuntimeError& error);

// The path of a settings file in the settings folder.
std::string SettingsPath(std::string_view folder, std::string_view name);

// Opens a settings file for reading in text mode. When that fails, the folder is made if it
// is missing (a failure there is ignored), the file is made empty, and the open is tried
// again; a second failure raises as the open does. No message either way.
void OpenSettingsFile(InputFile& in, const std::string& folder, const std::string& path);

}  // namespace corvane
