// The file system service the run needs: folderexists, CreateFolder, createtextfile and
// text streams that write lines ended by CR LF.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace corvane {

// The platform's path separator.
inline constexpr char kPathSeparator =
    static_cast<char>(std::filesystem::path::preferred_separator);

// The system's path join: folder, one separator, name, whatever the folder ends in (a folder
// typed with a trailing separator gives a doubled one).
std::string JoinPath(std::string_view folder, std::string_view name);

class FileSystem;

// A text file open for writing. Lines end with CR LF on every platform.
class TextStream {
 public:
  ~TextStream();
  TextStream(const TextStream&) = delete;
  TextStream& operator=(const TextStream&) = delete;

  void WriteLine(std::string_view line);
  // Flushes and closes; writing after Close raises 52.
  void Close();
  const std::string& path() const { return path_; }

 private:
  friend class FileSystem;
  TextStream(FileSystem* owner, std::string path, std::FILE* file);
  FileSystem* owner_;
  std::string path_;
  std::FILE* file_;
  std::unique_ptr<char[]> buffer_;
};

class FileSystem {
 public:
  bool folderexists(std::string_view path) const;
  bool fileexists(std::string_view path) const;
  // Creates one folder level; a missing parent raises 76, an existing folder 58.
  void CreateFolder(std::string_view path);
  // Creates (or with overwrite replaces) a text file. A file this program still holds open
  // for writing cannot be created anew (70); a missing folder raises 76; an existing file
  // without overwrite 58; other failures 75.
  std::unique_ptr<TextStream> createtextfile(std::string_view path, bool overwrite);

 private:
  friend class TextStream;
  std::set<std::string> open_;  // files held open for writing
};

}  // namespace corvane
