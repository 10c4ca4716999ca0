#include "runtime/filesystem.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

#include "runtime/errors.hpp"

namespace corvane {

namespace {

constexpr std::size_t kStreamBuffer = 1 << 16;

FileOps system_ops;
std::atomic<FileOps*> ops_in_force{&system_ops};

FileOps& Ops() {
  return *ops_in_force.load();
}

std::filesystem::path Absolute(std::string_view path) {
  std::error_code ec;
  auto p = std::filesystem::absolute(std::filesystem::path(path), ec);
  return ec ? std::filesystem::path(path) : p.lexically_normal();
}

// A name in the target's folder that no other saver uses: the process and a count within it
// tell savers apart, and the exclusive create makes sure of it.
std::string ReplacementName(const std::filesystem::path& target, int attempt) {
  static std::atomic<unsigned long> count{0};
  std::string name = "." + target.filename().string() + "." + std::to_string(::getpid()) + "." +
                     std::to_string(count.fetch_add(1)) + "." + std::to_string(attempt) + ".new";
  return (target.parent_path() / name).string();
}

// The folder entry of a rename is made durable where the system allows; a folder that cannot
// be synced still holds the new name.
void SyncFolder(const std::filesystem::path& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

int FileOps::Open(const char* path, int flags, unsigned mode) {
  int fd;
  do {
    fd = ::open(path, flags, static_cast<mode_t>(mode));
  } while (fd < 0 && errno == EINTR);
  return fd;
}

long FileOps::Write(int fd, const char* data, std::size_t size) {
  return static_cast<long>(::write(fd, data, size));
}

int FileOps::Sync(int fd) {
  return ::fsync(fd);
}

int FileOps::Close(int fd) {
  return ::close(fd);
}

int FileOps::Rename(const char* from, const char* to) {
  return std::rename(from, to);
}

int FileOps::Unlink(const char* path) {
  return ::unlink(path);
}

FileOps* SetFileOps(FileOps* ops) {
  return ops_in_force.exchange(ops != nullptr ? ops : &system_ops);
}

int FileErrorNumber(int error_code) {
  switch (error_code) {
    case ENOSPC:
    case EDQUOT:
      return kDiskFull;
    case EIO:
      return kDeviceIO;
    case EACCES:
    case EPERM:
    case EROFS:
      return kPermissionDenied;
    default:
      return kPathFileAccess;
  }
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path += folder;
  path += kPathSeparator;
  path += name;
  return path;
}

namespace {

// Writes all of data to fd; 0, or the error number of what stopped it.
int WriteAll(int fd, const char* data, std::size_t size) noexcept {
  while (size > 0) {
    const long n = Ops().Write(fd, data, size);
    if (n < 0) {
      if (errno == EINTR) continue;
      return FileErrorNumber(errno);
    }
    // a disk that takes nothing more without saying why is full
    if (n == 0) return kDiskFull;
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return 0;
}

}  // namespace

class TextStream::Behind {
 public:
  explicit Behind(int fd) : fd_(fd), thread_([this] { Run(); }) {}
  ~Behind() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      stop_ = true;
    }
    changed_.notify_all();
    thread_.join();
  }
  Behind(const Behind&) = delete;
  Behind& operator=(const Behind&) = delete;

  // Waits for the buffer handed over last; returns the error it met, 0 when none.
  int Wait() {
    std::unique_lock<std::mutex> lock(mutex_);
    if (pending_) {
      writer_waits_ = true;
      changed_.wait(lock, [this] { return !pending_; });
      writer_waits_ = false;
    }
    return error_;
  }
  // Takes size bytes of buffer to write, giving its own empty buffer in exchange. Only
  // once Wait has returned 0.
  void Take(std::unique_ptr<char[]>& buffer, std::size_t size) {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      std::swap(buffer, buffer_);
      size_ = size;
      pending_ = true;
    }
    changed_.notify_all();
  }

 private:
  void Run() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
      changed_.wait(lock, [this] { return pending_ || stop_; });
      if (!pending_) return;
      const char* const data = buffer_.get();
      const std::size_t size = size_;
      lock.unlock();
      const int error = WriteAll(fd_, data, size);
      lock.lock();
      error_ = error;
      pending_ = false;
      // a wake-up costs a call into the system: only a waiting writer is woken
      if (writer_waits_) changed_.notify_all();
    }
  }

  const int fd_;
  std::unique_ptr<char[]> buffer_ = std::make_unique<char[]>(kStreamBuffer);
  std::size_t size_ = 0;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool pending_ = false;
  bool stop_ = false;
  bool writer_waits_ = false;  // the stream's writer, for the buffer handed over last
  int error_ = 0;
  std::thread thread_;  // last: it starts once everything above is ready
};

TextStream::TextStream(FileSystem* owner, std::string path, int fd, std::string temp)
    : owner_(owner),
      path_(std::move(path)),
      temp_(std::move(temp)),
      fd_(fd),
      buffer_(new char[kStreamBuffer]) {}

TextStream::~TextStream() {
  // A stream let go without Close keeps what it can; a replacement never finished is
  // dropped, and the file it was to replace stays as it was.
  if (fd_ >= 0 && temp_.empty() && failure_ == 0) {
    try {
      Settle();
      Drain();
    } catch (const RuntimeError&) {
    }
  }
  Release();
}

void TextStream::Release() noexcept {
  behind_.reset();  // its thread writes to the file: it stops before the file is closed
  if (fd_ >= 0) {
    Ops().Close(fd_);
    fd_ = -1;
    if (!temp_.empty()) Ops().Unlink(temp_.c_str());
  }
  if (owner_ != nullptr) {
    owner_->open_.erase(path_);
    owner_ = nullptr;
  }
}

void TextStream::Fail(int number) {
  if (failure_ == 0) failure_ = number;
  Raise(failure_);
}

void TextStream::WriteOut(const char* data, std::size_t size) {
  while (size > 0) {
    const long n = Ops().Write(fd_, data, size);
    if (n < 0) {
      if (errno == EINTR) continue;
      Fail(FileErrorNumber(errno));
    }
    // a disk that takes nothing more without saying why is full
    if (n == 0) Fail(kDiskFull);
    data += n;
    size -= static_cast<std::size_t>(n);
  }
}

void TextStream::Drain() {
  const std::size_t size = used_;
  used_ = 0;
  WriteOut(buffer_.get(), size);
}

void TextStream::HandOff() {
  if (!behind_) {
    try {
      behind_ = std::make_unique<Behind>(fd_);
    } catch (const std::system_error&) {
      // no thread to be had: the stream writes its buffers itself
      write_behind_ = false;
      Drain();
      return;
    }
  }
  Settle();
  behind_->Take(buffer_, used_);
  used_ = 0;
}

void TextStream::Settle() {
  if (!behind_) return;
  if (const int error = behind_->Wait(); error != 0) {
    used_ = 0;
    Fail(error);
  }
}

void TextStream::WriteLine(std::string_view line) {
  if (failure_ != 0) Raise(failure_);
  if (fd_ < 0) Raise(kBadFileNameOrNumber);
  const std::size_t size = line.size() + 2;
  if (used_ + size > kStreamBuffer) {
    if (write_behind_) {
      HandOff();
    } else {
      Drain();
    }
  }
  if (size > kStreamBuffer) {
    Settle();  // what the second thread holds goes first
    WriteOut(line.data(), line.size());
    WriteOut("\r\n", 2);
    return;
  }
  char* at = buffer_.get() + used_;
  std::memcpy(at, line.data(), line.size());
  at[line.size()] = '\r';
  at[line.size() + 1] = '\n';
  used_ += size;
}

void TextStream::Flush() {
  if (failure_ != 0) Raise(failure_);
  if (fd_ < 0) return;
  Settle();
  Drain();
}

void TextStream::Close() {
  if (failure_ != 0) {
    Release();
    Raise(failure_);
  }
  if (fd_ < 0) return;
  try {
    Settle();
    Drain();
    if (!temp_.empty() && Ops().Sync(fd_) != 0) Fail(FileErrorNumber(errno));
  } catch (const RuntimeError&) {
    Release();
    throw;
  }
  const int fd = fd_;
  fd_ = -1;
  const bool closed = Ops().Close(fd) == 0;
  const int close_error = errno;
  if (!temp_.empty()) {
    if (closed && Ops().Rename(temp_.c_str(), path_.c_str()) == 0) {
      SyncFolder(std::filesystem::path(path_).parent_path());
      temp_.clear();
    } else {
      const int rename_error = errno;
      Ops().Unlink(temp_.c_str());
      temp_.clear();
      failure_ = FileErrorNumber(closed ? rename_error : close_error);
    }
  } else if (!closed) {
    failure_ = FileErrorNumber(close_error);
  }
  Release();
  if (failure_ != 0) Raise(failure_);
}

bool FileSystem::folderexists(std::string_view path) const {
  std::error_code ec;
  return !path.empty() && std::filesystem::is_directory(std::filesystem::path(path), ec);
}

bool FileSystem::fileexists(std::string_view path) const {
  std::error_code ec;
  return !path.empty() && std::filesystem::is_regular_file(std::filesystem::path(path), ec);
}

void FileSystem::CreateFolder(std::string_view path) {
  std::filesystem::path p(path);
  std::error_code ec;
  if (path.empty()) Raise(kPathNotFound);
  if (std::filesystem::exists(p, ec)) Raise(kFileAlreadyExists);
  std::filesystem::path parent = Absolute(path).parent_path();
  if (!std::filesystem::is_directory(parent, ec)) Raise(kPathNotFound);
  if (!std::filesystem::create_directory(p, ec) || ec) {
    Raise(ec ? FileErrorNumber(ec.value()) : kPathFileAccess);
  }
}

std::unique_ptr<TextStream> FileSystem::createtextfile(std::string_view path, bool overwrite) {
  if (path.empty()) Raise(kBadFileNameOrNumber);
  std::string key = Absolute(path).string();
  if (open_.count(key) != 0) Raise(kPermissionDenied);
  std::error_code ec;
  std::filesystem::path p(path);
  std::filesystem::path parent = Absolute(path).parent_path();
  if (!std::filesystem::is_directory(parent, ec)) Raise(kPathNotFound);
  if (std::filesystem::is_directory(p, ec)) Raise(kPathFileAccess);
  // Without overwrite the create is exclusive: an existing file is never emptied.
  const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (overwrite ? O_TRUNC : O_EXCL);
  const int fd = Ops().Open(std::string(path).c_str(), flags, 0666);
  if (fd < 0) Raise(errno == EEXIST ? kFileAlreadyExists : FileErrorNumber(errno));
  open_.insert(key);
  return std::unique_ptr<TextStream>(new TextStream(this, key, fd, ""));
}

std::unique_ptr<TextStream> FileSystem::createreplacement(std::string_view path) {
  if (path.empty()) Raise(kBadFileNameOrNumber);
  std::error_code ec;
  const std::filesystem::path target = Absolute(path);
  if (!std::filesystem::is_directory(target.parent_path(), ec)) Raise(kPathNotFound);
  if (std::filesystem::is_directory(target, ec)) Raise(kPathFileAccess);
  for (int attempt = 0;; ++attempt) {
    std::string temp = ReplacementName(target, attempt);
    const int fd = Ops().Open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
      if (errno == EEXIST && attempt < 100) continue;
      Raise(FileErrorNumber(errno));
    }
    // The new file keeps the old one's permissions.
    struct stat old;
    if (::stat(target.c_str(), &old) == 0) ::fchmod(fd, old.st_mode & 07777);
    return std::unique_ptr<TextStream>(new TextStream(nullptr, target.string(), fd, temp));
  }
}

}  // namespace corvane
