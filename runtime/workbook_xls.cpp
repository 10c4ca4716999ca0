// Reading the old binary workbook format (.xls) through FreeXL.
#include <freexl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#if !defined(_WIN32)
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "runtime/workbook.hpp"

namespace corvane::workbook_detail {

namespace {

// The binary format's library trusts the lengths written in the file, and a damaged or
// crafted file can make it read past its buffers. So on POSIX systems it runs in a child
// process of its own: the child hands the sheets over through a pipe in the form below,
// and the parent checks every length of that form again. A child that crashes, hangs past
// the deadline or hands over anything malformed makes the file unreadable; the program
// itself never runs the library's code.
//
// The form: u32 sheet count; per sheet a u32 name length and the name, a u32 cell count,
// and per cell u32 row, u16 column, u8 kind (1 text, 2 number), then a u32 length and the
// text, or the 8 bytes of the number. All in the machine's byte order.

constexpr std::uint8_t kTextCell = 1;
constexpr std::uint8_t kNumberCell = 2;
constexpr std::uint32_t kMaxSheets = 65535;
constexpr std::uint32_t kMaxNameBytes = 4096;
constexpr std::uint64_t kMaxFormBytes =
    8 + kMaxSheets * (8 + kMaxNameBytes) + kMaxCells * 15 + kMaxTextBytes;
constexpr int kXlsDeadlineSeconds = 60;

template <typename T>
void Put(std::string& out, T v) {
  char bytes[sizeof(T)];
  std::memcpy(bytes, &v, sizeof(T));
  out.append(bytes, sizeof(T));
}

class FormReader {
 public:
  explicit FormReader(std::string_view form) : form_(form) {}
  template <typename T>
  T Get() {
    T v;
    std::memcpy(&v, Take(sizeof(T)).data(), sizeof(T));
    return v;
  }
  std::string_view Take(std::size_t n) {
    if (n > form_.size() - pos_) Unreadable();
    const std::string_view out = form_.substr(pos_, n);
    pos_ += n;
    return out;
  }
  bool AtEnd() const { return pos_ == form_.size(); }

 private:
  std::string_view form_;
  std::size_t pos_ = 0;
};

struct FreexlHandle {
  const void* handle = nullptr;
  ~FreexlHandle() {
    if (handle != nullptr) freexl_close(handle);
  }
};

// Reads the file with the library and returns the sheets in the form above.
std::string ExtractXls(const std::string& path) {
  FreexlHandle xls;
  if (freexl_open(path.c_str(), &xls.handle) != FREEXL_OK) Unreadable();
  unsigned int info = 0;
  if (freexl_get_info(xls.handle, FREEXL_BIFF_PASSWORD, &info) != FREEXL_OK ||
      info != FREEXL_BIFF_PLAIN)
    Unreadable();
  unsigned int sheet_count = 0;
  if (freexl_get_info(xls.handle, FREEXL_BIFF_SHEET_COUNT, &sheet_count) != FREEXL_OK ||
      sheet_count == 0 || sheet_count > kMaxSheets)
    Unreadable();

  std::string form;
  Put<std::uint32_t>(form, sheet_count);
  std::size_t total_cells = 0;
  for (unsigned int s = 0; s < sheet_count; ++s) {
    const auto index = static_cast<unsigned short>(s);
    const char* raw_name = nullptr;
    if (freexl_get_worksheet_name(xls.handle, index, &raw_name) != FREEXL_OK) Unreadable();
    std::string name = Utf8ToLatin1(raw_name != nullptr ? raw_name : "");
    if (name.size() > kMaxNameBytes) Unreadable();
    Put<std::uint32_t>(form, static_cast<std::uint32_t>(name.size()));
    form += name;

    if (freexl_select_active_worksheet(xls.handle, index) != FREEXL_OK) Unreadable();
    unsigned int rows = 0;
    unsigned short columns = 0;
    if (freexl_worksheet_dimensions(xls.handle, &rows, &columns) != FREEXL_OK) Unreadable();
    rows = std::min<unsigned int>(rows, kMaxRow);
    columns = std::min<unsigned short>(columns, kMaxColumn);

    const std::size_t count_at = form.size();
    Put<std::uint32_t>(form, 0);
    std::uint32_t count = 0;
    for (unsigned int r = 0; r < rows; ++r) {
      for (unsigned short c = 0; c < columns; ++c) {
        FreeXL_CellValue cell;
        if (freexl_get_cell_value(xls.handle, r, c, &cell) != FREEXL_OK) continue;
        std::optional<std::string> text;
        std::optional<double> number;
        switch (cell.type) {
          case FREEXL_CELL_INT:
            number = cell.value.int_value;
            break;
          case FREEXL_CELL_DOUBLE:
            if (std::isfinite(cell.value.double_value)) number = cell.value.double_value;
            break;
          case FREEXL_CELL_TEXT:
          case FREEXL_CELL_SST_TEXT:
            if (cell.value.text_value != nullptr) text = Utf8ToLatin1(cell.value.text_value);
            break;
          case FREEXL_CELL_DATE:
          case FREEXL_CELL_DATETIME:
          case FREEXL_CELL_TIME:
            if (cell.value.text_value != nullptr) text = IsoDateText(cell.value.text_value);
            break;
          default:
            break;
        }
        if (!text && !number) continue;
        if (++total_cells > kMaxCells || form.size() > kMaxFormBytes) Unreadable();
        ++count;
        Put<std::uint32_t>(form, r + 1);
        Put<std::uint16_t>(form, static_cast<std::uint16_t>(c + 1));
        if (number) {
          Put<std::uint8_t>(form, kNumberCell);
          Put<double>(form, *number);
        } else {
          Put<std::uint8_t>(form, kTextCell);
          Put<std::uint32_t>(form, static_cast<std::uint32_t>(text->size()));
          form += *text;
        }
      }
    }
    std::memcpy(form.data() + count_at, &count, sizeof count);
  }
  return form;
}

// The sheets of the form, checked as untrusted input.
std::vector<Sheet> DecodeXls(std::string_view form) {
  FormReader in(form);
  const auto sheet_count = in.Get<std::uint32_t>();
  if (sheet_count == 0 || sheet_count > kMaxSheets) Unreadable();
  Budget budget;
  std::vector<Sheet> sheets;
  for (std::uint32_t s = 0; s < sheet_count; ++s) {
    const auto name_size = in.Get<std::uint32_t>();
    if (name_size > kMaxNameBytes) Unreadable();
    std::string name(in.Take(name_size));
    const auto count = in.Get<std::uint32_t>();
    if (count > kMaxCells) Unreadable();
    std::vector<Sheet::Entry> cells;
    for (std::uint32_t i = 0; i < count; ++i) {
      const auto row = in.Get<std::uint32_t>();
      const auto column = in.Get<std::uint16_t>();
      if (row < 1 || row > kMaxRow || column < 1 || column > kMaxColumn) Unreadable();
      Value value;
      switch (in.Get<std::uint8_t>()) {
        case kNumberCell: {
          const auto number = in.Get<double>();
          if (!std::isfinite(number)) Unreadable();
          value = Value(number);
          break;
        }
        case kTextCell:
          value = Value(in.Take(in.Get<std::uint32_t>()));
          break;
        default:
          Unreadable();
      }
      budget.Add(value);
      cells.push_back({static_cast<long>(row), column, std::move(value)});
    }
    sheets.emplace_back(std::move(name), std::move(cells));
  }
  if (!in.AtEnd()) Unreadable();
  return sheets;
}

}  // namespace

#if defined(_WIN32)

std::vector<Sheet> ReadXls(const std::string& path) {
  return DecodeXls(ExtractXls(path));
}

#else

namespace {

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = write(fd, bytes.data(), bytes.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

// Reads the child's form to its end; false at the deadline or beyond the bound.
bool ReadForm(int fd, std::string& form) {
  const auto deadline =
      std::chrono::steady_clock::now() + std::chrono::seconds(kXlsDeadlineSeconds);
  std::array<char, 65536> buffer;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd p{fd, POLLIN, 0};
    const int ready = poll(&p, 1, static_cast<int>(left.count()));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return false;
    const ssize_t n = read(fd, buffer.data(), buffer.size());
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) return true;
    form.append(buffer.data(), static_cast<std::size_t>(n));
    if (form.size() > kMaxFormBytes) return false;
  }
}

}  // namespace

std::vector<Sheet> ReadXls(const std::string& path) {
  int fds[2];
  if (pipe(fds) != 0) Unreadable();
  // Other programs started meanwhile must not hold the pipe open.
  fcntl(fds[0], F_SETFD, FD_CLOEXEC);
  fcntl(fds[1], F_SETFD, FD_CLOEXEC);
  const pid_t pid = fork();
  if (pid < 0) {
    close(fds[0]);
    close(fds[1]);
    Unreadable();
  }
  if (pid == 0) {
    // The child: no exceptions, exit handlers or buffered output of the parent's past it.
    close(fds[0]);
    int code = 1;
    try {
      if (WriteAll(fds[1], ExtractXls(path))) code = 0;
    } catch (...) {
    }
    _exit(code);
  }
  close(fds[1]);
  std::string form;
  const bool complete = ReadForm(fds[0], form);
  close(fds[0]);
  if (!complete) kill(pid, SIGKILL);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) break;  // reaped elsewhere: the form is checked all the same
  }
  if (!complete || !WIFEXITED(status) || WEXITSTATUS(status) != 0) Unreadable();
  return DecodeXls(form);
}

#endif

}  // namespace corvane::workbook_detail
