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
  fs.createtextfile(path, true)->Close();
  in.Open(path, OpenMode::Text);
}

}  // namespace corvane
