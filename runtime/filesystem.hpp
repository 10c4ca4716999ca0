// The file system service the run needs: folderexists, CreateFolder, createtextfile and
// text streams that write lines ended by CR LF. Every write and close is checked: a disk that
// fills, a drive that fails or a permission taken away raises the system's own error.
#pragma once

#include <cstddef>
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

// The calls beneath the text streams, each passed straight to the operating system. They
// answer as the system calls do: -1 with errno set on failure. A test puts its own in force
// to have a disk fill up, a close fail or a rename be refused.
class FileOps {
 public:
  virtual ~FileOps() = default;
  virtual int Open(const char* path, int flags, unsigned mode);
  virtual long Write(int fd, const char* data, std::size_t size);
  virtual int Sync(int fd);
  virtual int Close(int fd);
  virtual int Rename(const char* from, const char* to);
  virtual int Unlink(const char* path);
};

// Puts ops in force for every stream opened from now on (nullptr: the operating system's own)
// and returns the ones in force before.
FileOps* SetFileOps(FileOps* ops);

// The system's error for a failed file call: 61 for a full disk, 57 for a device that fails,
// 70 where permission is refused, 75 for the rest.
int FileErrorNumber(int error_code);

class FileSystem;

// A text file open for writing. Lines end with CR LF on every platform. The first failure of
// a write is kept: every later WriteLine, Flush and Close raises it again, so a file that
// could not be written whole is never taken for a finished one.
class TextStream {
 public:
  ~TextStream();
  TextStream(const TextStream&) = delete;
  TextStream& operator=(const TextStream&) = delete;

  void WriteLine(std::string_view line);
  // Hands everything written so far to the file, leaving it open.
  void Flush();
  // Flushes and closes; writing after Close raises 52. A replacement is synced to the disk
  // and only then takes the name of the file it replaces.
  void Close();
  const std::string& path() const { return path_; }

  // From now on a full buffer goes to the disk on a second thread while the next one fills:
  // for the large files of a run. What the disk refuses there is raised at the next full
  // buffer, Flush or Close, and nothing written after it reaches the file.
  void WriteBehind() { write_behind_ = true; }

 private:
  friend class FileSystem;
  class Behind;  // the second thread and its buffer
  TextStream(FileSystem* owner, std::string path, int fd, std::string temp);
  void Drain();
  // The full buffer handed to the second thread, once the buffer before it is on the disk.
  void HandOff();
  // Waits until the second thread has nothing left to write, then raises what it met.
  void Settle();
  void WriteOut(const char* data, std::size_t size);
  [[noreturn]] void Fail(int number);
  void Release() noexcept;

  FileSystem* owner_;
  std::string path_;
  std::string temp_;  // a replacement is written under this name until Close
  int fd_;
  int failure_ = 0;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  bool write_behind_ = false;
  std::unique_ptr<Behind> behind_;  // started at the first full buffer
};

class FileSystem {
 public:
  bool folderexists(std::string_view path) const;
  bool fileexists(std::string_view path) const;
  // Creates one folder level; a missing parent raises 76, an existing folder 58.
  void CreateFolder(std::string_view path);
  // Creates (or with overwrite replaces) a text file. A file this program still holds open
  // for writing cannot be created anew (70); a missing folder raises 76; an existing file
  // without overwrite 58; other failures as FileErrorNumber tells.
  std::unique_ptr<TextStream> createtextfile(std::string_view path, bool overwrite);
  // A stream whose lines replace the file at path whole at Close: they go to a new file of
  // a name of its own in the same folder, which is synced and then renamed over the old
  // one. A stream given up before Close, or whose Close fails, leaves the old file as it was.
  // A missing folder raises 76.
  std::unique_ptr<TextStream> createreplacement(std::string_view path);

 private:
  friend class TextStream;
  std::set<std::string> open_;  // files held open for writing
};

}  // namespace corvane
