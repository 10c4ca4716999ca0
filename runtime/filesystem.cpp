#include "runtime/filesystem.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "runtime/errors.hpp"

namespace corvane {

namespace {

constexpr std::size_t kStreamBuffer = 1 << 16;

std::filesystem::path Absolute(std::string_view path) {
  std::error_code ec;
  auto p = std::filesystem::absolute(std::filesystem::path(path), ec);
  return ec ? std::filesystem::path(path) : p.lexically_normal();
}

}  // namespace

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path += folder;
  path += kPathSeparator;
  path += name;
  return path;
}

TextStream::TextStream(FileSystem* owner, std::string path, std::FILE* file)
    : owner_(owner), path_(std::move(path)), file_(file), buffer_(new char[kStreamBuffer]) {
  std::setvbuf(file_, buffer_.get(), _IOFBF, kStreamBuffer);
}

TextStream::~TextStream() {
  Close();
}

void TextStream::WriteLine(std::string_view line) {
  if (file_ == nullptr) Raise(kBadFileNameOrNumber);
  if (std::fwrite(line.data(), 1, line.size(), file_) != line.size() ||
      std::fwrite("\r\n", 1, 2, file_) != 2) {
    Raise(kPathFileAccess);
  }
}

void TextStream::Close() {
  if (file_ == nullptr) return;
  std::fclose(file_);
  file_ = nullptr;
  if (owner_ != nullptr) owner_->open_.erase(path_);
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
  if (!std::filesystem::create_directory(p, ec) || ec) Raise(kPathFileAccess);
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
  if (!overwrite && std::filesystem::exists(p, ec)) Raise(kFileAlreadyExists);
  std::FILE* f = std::fopen(std::string(path).c_str(), "wb");
  if (f == nullptr) Raise(errno == EACCES ? kPermissionDenied : kPathFileAccess);
  open_.insert(key);
  auto stream = std::unique_ptr<TextStream>(new TextStream(this, key, f));
  return stream;
}

}  // namespace corvane
