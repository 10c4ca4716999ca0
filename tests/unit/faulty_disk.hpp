// A disk for tests that fails on demand beneath the text streams: it fills up after a number
// of bytes, fails a close, a sync or a rename. Only the files whose path holds `target` are
// touched; everything else goes to the real disk. In force from construction to destruction.
// A stream may write from a second thread: each call holds the disk's lock.
#pragma once

#include <cerrno>
#include <map>
#include <mutex>
#include <string>

#include "runtime/filesystem.hpp"

namespace corvane::testing {

class FaultyDisk : public FileOps {
 public:
  explicit FaultyDisk(std::string target_ = "") : target(std::move(target_)) {
    before_ = SetFileOps(this);
  }
  ~FaultyDisk() override { SetFileOps(before_); }
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

  std::string target;
  long room = -1;            // bytes the target files may still take; -1 no limit
  int write_error = ENOSPC;  // what a write beyond the room meets
  int close_error = 0;
  int sync_error = 0;
  int rename_error = 0;
  long bytes_written = 0;  // taken by the target files

  int Open(const char* path, int flags, unsigned mode) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    const int fd = FileOps::Open(path, flags, mode);
    if (fd >= 0) hit_[fd] = Hit(path);
    return fd;
  }
  long Write(int fd, const char* data, std::size_t size) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!hit_[fd] || room < 0) {
      const long n = FileOps::Write(fd, data, size);
      if (hit_[fd] && n > 0) bytes_written += n;
      return n;
    }
    if (room == 0) {
      errno = write_error;
      return -1;
    }
    const std::size_t take = size < static_cast<std::size_t>(room) ? size : room;
    const long n = FileOps::Write(fd, data, take);
    if (n > 0) {
      room -= n;
      bytes_written += n;
    }
    return n;
  }
  int Sync(int fd) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    return Refuse(fd, sync_error, [&] { return FileOps::Sync(fd); });
  }
  int Close(int fd) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    const bool hit = hit_[fd];
    hit_.erase(fd);
    const int result = FileOps::Close(fd);  // the descriptor is let go either way
    if (hit && close_error != 0) {
      errno = close_error;
      return -1;
    }
    return result;
  }
  int Rename(const char* from, const char* to) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (Hit(to) && rename_error != 0) {
      errno = rename_error;
      return -1;
    }
    return FileOps::Rename(from, to);
  }

 private:
  bool Hit(const std::string& path) const { return path.find(target) != std::string::npos; }
  template <class Real>
  int Refuse(int fd, int error, Real real) {
    if (hit_[fd] && error != 0) {
      errno = error;
      return -1;
    }
    return real();
  }

  FileOps* before_;
  std::mutex mutex_;
  std::map<int, bool> hit_;
};

}  // namespace corvane::testing
