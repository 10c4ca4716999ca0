#include "settings/settings_file.hpp"

#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"

namespace corvane {

std::string SettingsPath(std::string_view folder, std::string_view name) {
  return JoinPath(folder, name);
}

void OpenSettingsFile(InputFile& in, const std::string& folder, const std::string& path) {
  try {
    in.Open(path, OpenMode::Text);
    return;
  } catch (const RuntimeError&) {
  }
  FileSystem fs;
  try {
    if (!fs.folderexists(folder)) fs.CreateFolder(folder);
  } catch (const RuntimeError&) {
  }
  // The create is exclusive: a file that exists but could not be read is never emptied, and
  // the second open raises its own error.
  try {
    fs.createtextfile(path, false)->Close();
  } catch (const RuntimeError&) {
  }
  in.Open(path, OpenMode::Text);
}

std::string SaveFailedText(std::string_view headline, const RuntimeError& error) {
  std::string text(headline);
  text += "\r\r";
  text += error.description();
  text += "\r\r";
  text += kSavedBeforeKept;
  return text;
}

}  // namespace corvane
