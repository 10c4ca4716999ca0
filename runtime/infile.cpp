#include "runtime/infile.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "runtime/digits.hpp"
#include "runtime/errors.hpp"

namespace corvane {

namespace {

// Exports run to a million records: they stream through this window, never whole.
constexpr std::size_t kBufferSize = 64 * 1024;

constexpr int kCtrlZ = 0x1A;

bool IsBlank(int c) {
  return c == ' ' || c == '\t';
}

bool IsLineEnd(int c) {
  return c == '\r' || c == '\n';
}

// The bytes that end an unquoted field: a comma, a line end, and in text mode a Ctrl-Z.
using ByteSet = std::array<bool, 256>;
constexpr ByteSet FieldEnds(bool text_mode) {
  ByteSet ends{};
  ends[static_cast<unsigned char>(',')] = true;
  ends[static_cast<unsigned char>('\r')] = true;
  ends[static_cast<unsigned char>('\n')] = true;
  ends[kCtrlZ] = text_mode;
  return ends;
}
constexpr ByteSet kTextFieldEnds = FieldEnds(true);
constexpr ByteSet kByteFieldEnds = FieldEnds(false);

// The end of an unquoted field: the first byte of ends in [p, stop), or stop.
const char* FieldEnd(const char* p, const char* stop, bool text_mode) {
  const ByteSet& ends = text_mode ? kTextFieldEnds : kByteFieldEnds;
  while (p != stop && !ends[static_cast<unsigned char>(*p)]) ++p;
  return p;
}

// The field ends among 64 bytes: bit i is set when block[i] ends an unquoted field.
std::uint64_t FieldEndsOf64(const char* block, bool text_mode) {
#if defined(__SSE2__)
  const __m128i comma = _mm_set1_epi8(',');
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  // outside text mode a Ctrl-Z is data: the comma stands in its place
  const __m128i ctrl_z = _mm_set1_epi8(text_mode ? static_cast<char>(kCtrlZ) : ',');
  std::uint64_t found = 0;
  for (int i = 0; i < 4; ++i) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + 16 * i));
    const __m128i hits =
        _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(bytes, comma), _mm_cmpeq_epi8(bytes, cr)),
                     _mm_or_si128(_mm_cmpeq_epi8(bytes, lf), _mm_cmpeq_epi8(bytes, ctrl_z)));
    found |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(hits))) << (16 * i);
  }
  return found;
#else
  const ByteSet& ends = text_mode ? kTextFieldEnds : kByteFieldEnds;
  std::uint64_t found = 0;
  for (int i = 0; i < 64; ++i) {
    if (ends[static_cast<unsigned char>(block[i])]) found |= std::uint64_t{1} << i;
  }
  return found;
#endif
}

// The first `byte` in [begin, end), or end when there is none.
const char* FindByte(const char* begin, const char* end, char byte) {
  const void* at = std::memchr(begin, byte, static_cast<std::size_t>(end - begin));
  return at != nullptr ? static_cast<const char*>(at) : end;
}

// The figure test of an unquoted field's text [p, last): number is set for a short plain
// figure ("[sign]digits[.digits]", 15 digits at most), converted in the same pass;
// plain_number_left when it is no such figure but may still be a plain number (an
// exponent, more digits), which the full test then decides.
template <class Field>
void TakeFigure(const char* p, const char* const last, Field& field) {
  const detail::FigureScan f = detail::ScanFigure(p, last);
  if (f.WholeShortFigure(last)) {
    field.kind = Field::kNumber;
    field.number = f.Value();
  } else if (f.count > 0 && (f.stop == last || *f.stop == 'e' || *f.stop == 'E')) {
    // a plain number needs a digit, and after its digits only an exponent
    field.kind = Field::kPlainNumberLeft;
  } else {
    field.kind = 0;
  }
}

}  // namespace

const char* InputFile::FieldEnds::FindBeyond(const char* data, std::size_t at, std::size_t end,
                                             bool text_mode) {
  for (;;) {
    // wraps to a large figure when at lies before the block or no block is held
    const std::size_t into = at - block_at;
    if (into < 64) {
      const std::uint64_t rest = ends >> into;
      if (rest != 0) return data + at + __builtin_ctzll(rest);
      at = block_at + 64;
    }
    if (end - at < 64) break;
    block_at = at;
    ends = FieldEndsOf64(data + at, text_mode);
  }
  return FieldEnd(data + at, data + end, text_mode);
}

[[gnu::always_inline]] inline const char* InputFile::FieldEnds::Find(const char* data,
                                                                     std::size_t at,
                                                                     std::size_t end,
                                                                     bool text_mode) {
  // most fields end within the block held
  const std::size_t into = at - block_at;
  if (into < 64) {
    const std::uint64_t rest = ends >> into;
    if (rest != 0) return data + at + __builtin_ctzll(rest);
  }
  return FindBeyond(data, at, end, text_mode);
}

[[gnu::always_inline]] inline bool InputFile::ScanField(const char* data, std::size_t pos,
                                                        std::size_t end, bool text_mode,
                                                        FieldEnds& ends, Field& field,
                                                        std::size_t& next) {
  const char* const stop = data + end;
  const char* p = data + pos;
  while (p != stop && IsBlank(static_cast<unsigned char>(*p))) ++p;
  if (p == stop || (text_mode && *p == kCtrlZ)) return false;

  if (*p == '"') {
    const char* const first = p + 1;
    const char* const close = FindByte(first, stop, '"');
    // the byte after the closing quote must tell the field's end without a refill
    if (close == stop || close + 1 == stop) return false;
    if (text_mode && FindByte(first, close, static_cast<char>(kCtrlZ)) != close) return false;
    const char* after = close + 1;
    if (*after == ',' || *after == '\n') {
      ++after;
    } else if (*after == '\r' && after + 1 != stop) {
      after += after[1] == '\n' ? 2 : 1;
    } else {
      return false;
    }
    field.text = std::string_view(first, static_cast<std::size_t>(close - first));
    field.kind = Field::kQuoted;
    next = static_cast<std::size_t>(after - data);
    return true;
  }

  // The end first, from the buffer's blocks of field ends; then the figure, if it is one.
  const char* const start = p;
  p = ends.Find(data, static_cast<std::size_t>(p - data), end, text_mode);
  if (p == stop || *p == kCtrlZ) return false;
  const char* after = p + 1;
  if (*p == '\r') {
    if (after == stop) return false;
    if (*after == '\n') ++after;
  }
  const char* last = p;
  while (last != start && IsBlank(static_cast<unsigned char>(last[-1]))) --last;
  field.text = std::string_view(start, static_cast<std::size_t>(last - start));
  TakeFigure(start, last, field);
  next = static_cast<std::size_t>(after - data);
  return true;
}

namespace {

// Exports of a megabyte or more; small ones gain nothing from a second thread.
std::atomic<std::uintmax_t> read_ahead_from{1024 * 1024};

}  // namespace

void InputFile::SetReadAheadFrom(std::uintmax_t bytes) {
  read_ahead_from = bytes;
}

class InputFile::ReadAhead {
  static_assert(sizeof(Token) == 16, "a field found ahead takes sixteen bytes");

 public:
  struct Chunk {
    std::vector<char> bytes = std::vector<char>(kBufferSize);
    std::size_t size = 0;
    bool failed = false;  // the read of this chunk failed; nothing follows it
    // the fields found, in order of place: room for as many as are ever kept
    std::unique_ptr<Token[]> tokens = std::make_unique<Token[]>(kMostTokens);
    std::size_t token_count = 0;
  };

  // Comma fields are looked for unless the file is read as fixed records.
  ReadAhead(std::FILE* file, OpenMode mode)
      : file_(file),
        text_mode_(mode == OpenMode::Text),
        find_fields_(mode != OpenMode::Fixed),
        thread_([this] { Run(); }) {}

  ~ReadAhead() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      stop_ = true;
    }
    changed_.notify_all();
    thread_.join();
  }

  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  // The next chunk of the file, waiting for it; the chunk handed out before goes back to be
  // filled again. Past the end (or a failure), the last chunk, empty, is handed out again.
  const Chunk& Next() {
    std::unique_lock<std::mutex> lock(mutex_);
    released_ = taken_;
    // a wake-up costs a call into the system: only a thread that waits is woken
    if (filler_waits_) changed_.notify_all();
    const auto ready = [this] { return filled_ > taken_ || finished_; };
    if (!ready()) {
      reader_waits_ = true;
      changed_.wait(lock, ready);
      reader_waits_ = false;
    }
    if (filled_ == taken_) return chunks_[(taken_ - 1) % kChunks];
    return chunks_[taken_++ % kChunks];
  }

 private:
  static constexpr std::size_t kChunks = 3;
  // At most one field for every four bytes is kept; past that, the read finds the rest.
  static constexpr std::size_t kMostTokens = kBufferSize / 4;

  void Run() {
    for (std::size_t n = 0;; ++n) {
      {
        std::unique_lock<std::mutex> lock(mutex_);
        const auto free = [&] { return stop_ || n - released_ < kChunks; };
        if (!free()) {
          filler_waits_ = true;
          changed_.wait(lock, free);
          filler_waits_ = false;
        }
        if (stop_) return;
      }
      Chunk& chunk = chunks_[n % kChunks];
      chunk.size = std::fread(chunk.bytes.data(), 1, chunk.bytes.size(), file_);
      chunk.failed = chunk.size == 0 && std::ferror(file_) != 0;
      chunk.token_count = 0;
      if (find_fields_) FindFields(chunk);
      bool wake = false;
      {
        std::lock_guard<std::mutex> lock(mutex_);
        filled_ = n + 1;
        finished_ = chunk.size == 0;
        wake = reader_waits_;
      }
      if (wake) changed_.notify_all();
      if (chunk.size == 0) return;
    }
  }

  // The fields of a chunk, from its first byte on. A chunk after the first may begin inside
  // a field, so some of what is found may be no field the read ever takes: the read uses
  // only a field found at the very place it stands.
  void FindFields(Chunk& chunk) const {
    const char* const data = chunk.bytes.data();
    // In text mode the data ends at a Ctrl-Z: no field is looked for from there on. A field
    // told short of it is the same field the read tells with every byte in view.
    std::size_t limit = chunk.size;
    if (text_mode_) {
      if (const void* at = std::memchr(data, kCtrlZ, chunk.size)) {
        limit = static_cast<std::size_t>(static_cast<const char*>(at) - data);
      }
    }
    FieldEnds ends;
    Field field;
    std::size_t pos = 0;
    std::size_t comma = 0, line_feed = 0;  // the next found, or limit when there is none
    Token* const tokens = chunk.tokens.get();
    std::size_t count = 0;
    while (pos < limit && count < kMostTokens) {
      std::size_t next = 0;
      if (ScanField(data, pos, limit, text_mode_, ends, field, next)) {
        const auto skip = static_cast<std::size_t>(field.text.data() - (data + pos));
        // a field too long for the token's figures is left for the read to find
        if (next - pos <= 0xFFFF && skip <= 0xFF) {
          tokens[count++] = Token{field.number,
                                  static_cast<std::uint16_t>(pos),
                                  static_cast<std::uint16_t>(next - pos),
                                  static_cast<std::uint16_t>(field.text.size()),
                                  static_cast<std::uint8_t>(skip),
                                  field.kind};
        }
        pos = next;
        continue;
      }
      // No field can be told here: go on after the next comma or line feed. Each is looked
      // for again only once the search has passed it.
      if (comma <= pos) comma = Find(data, pos, limit, ',');
      if (line_feed <= pos) line_feed = Find(data, pos, limit, '\n');
      pos = std::min(comma, line_feed) + 1;
    }
    chunk.token_count = count;
  }

  // The place of the first `byte` in data[from, limit), or limit.
  static std::size_t Find(const char* data, std::size_t from, std::size_t limit, char byte) {
    const void* at = std::memchr(data + from, byte, limit - from);
    return at != nullptr ? static_cast<std::size_t>(static_cast<const char*>(at) - data) : limit;
  }

  std::FILE* const file_;
  const bool text_mode_;
  const bool find_fields_;
  std::array<Chunk, kChunks> chunks_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t filled_ = 0;    // chunks filled so far
  std::size_t taken_ = 0;     // chunks handed to the read so far
  std::size_t released_ = 0;  // chunks the read is done with
  bool finished_ = false;     // the last chunk is filled: the file ended or failed
  bool stop_ = false;
  bool reader_waits_ = false;  // for a chunk to be filled
  bool filler_waits_ = false;  // for a chunk to be released
  std::thread thread_;         // last: it starts once everything above is ready
};

InputFile::InputFile() = default;

InputFile::~InputFile() {
  Close();
}

void InputFile::Open(const std::string& path, OpenMode mode, int record_length) {
  Close();
  if (path.empty()) Raise(kBadFileNameOrNumber);
  if (mode == OpenMode::Fixed && record_length < 1) Raise(kInvalidCall);

  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (status.type() == std::filesystem::file_type::not_found) Raise(kFileNotFound);
  if (ec || std::filesystem::is_directory(status)) Raise(kPathFileAccess);

  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) Raise(kPathFileAccess);

  file_ = file;
  mode_ = mode;
  record_length_ = record_length;
  pos_ = 0;
  end_ = 0;
  ends_ = FieldEnds{};
  data_end_ = false;
  record_eof_ = false;
  struct stat info {};
  if (::fstat(fileno(file), &info) == 0 && S_ISREG(info.st_mode) &&
      static_cast<std::uintmax_t>(info.st_size) >= read_ahead_from) {
    try {
      ahead_ = std::make_unique<ReadAhead>(file, mode);
    } catch (const std::system_error&) {
      // no thread to be had: the file is read in place
    }
  }
  if (!ahead_) {
    if (buffer_.size() != kBufferSize) buffer_.assign(kBufferSize, '\0');
    data_ = buffer_.data();
  }
}

void InputFile::Close() {
  ahead_.reset();  // its thread reads the file: it stops before the file is closed
  if (file_ != nullptr) std::fclose(file_);
  file_ = nullptr;
  mode_ = OpenMode::None;
  record_length_ = 0;
  data_ = nullptr;
  pos_ = 0;
  end_ = 0;
  ends_ = FieldEnds{};
  tokens_ = nullptr;
  token_count_ = 0;
  token_next_ = 0;
  data_end_ = false;
  record_eof_ = false;
}

bool InputFile::IsOpen() const {
  return file_ != nullptr;
}

void InputFile::RequireOpen() const {
  if (file_ == nullptr) Raise(kBadFileNameOrNumber);
}

bool InputFile::Fill() {
  if (data_end_) return false;
  pos_ = 0;
  ends_ = FieldEnds{};
  bool failed = false;
  if (ahead_) {
    const ReadAhead::Chunk& chunk = ahead_->Next();
    data_ = chunk.bytes.data();
    end_ = chunk.size;
    failed = chunk.failed;
    tokens_ = chunk.tokens.get();
    token_count_ = chunk.token_count;
    token_next_ = 0;
  } else {
    end_ = std::fread(buffer_.data(), 1, buffer_.size(), file_);
    failed = end_ == 0 && std::ferror(file_) != 0;
  }
  if (end_ == 0) {
    // A failing disk is not the end of an export: say so rather than stop short quietly.
    if (failed) Raise(kPathFileAccess);
    data_end_ = true;
    return false;
  }
  return true;
}

int InputFile::Peek() {
  if (pos_ == end_ && !Fill()) return -1;
  const int c = static_cast<unsigned char>(data_[pos_]);
  if (c == kCtrlZ && mode_ == OpenMode::Text) {
    // Old DOS exports mark their end with Ctrl-Z; whatever trails it is not data.
    pos_ = end_;
    data_end_ = true;
    return -1;
  }
  return c;
}

int InputFile::Next() {
  const int c = Peek();
  if (c != -1) ++pos_;
  return c;
}

void InputFile::ConsumeLineEnd(int c) {
  // A CR may close one buffer and its LF open the next: Peek refills, so the pair still
  // counts as a single line end.
  if (c == '\r' && Peek() == '\n') ++pos_;
}

bool InputFile::Eof() {
  RequireOpen();
  if (mode_ == OpenMode::Fixed) return record_eof_;
  return Peek() == -1;
}

void InputFile::LineInput(std::string& line) {
  RequireOpen();
  if (Peek() == -1) Raise(kInputPastEnd);
  line.clear();
  const bool text_mode = mode_ == OpenMode::Text;
  for (;;) {
    const char* const begin = data_ + pos_;
    const char* const stop = data_ + end_;
    // the first line end, or in text mode a Ctrl-Z before it; each search stops where the
    // one before found something
    const char* p = stop;
    p = FindByte(begin, p, '\n');
    p = FindByte(begin, p, '\r');
    if (text_mode) p = FindByte(begin, p, static_cast<char>(kCtrlZ));
    line.append(begin, p);
    pos_ += static_cast<std::size_t>(p - begin);
    if (p != stop) {
      if (*p == kCtrlZ) {
        Peek();  // marks the end of data
      } else {
        const int c = static_cast<unsigned char>(*p);
        ++pos_;
        ConsumeLineEnd(c);
      }
      return;
    }
    // A last line without a line end is still a line.
    if (!Fill()) return;
  }
}

std::string InputFile::LineInput() {
  std::string line;
  LineInput(line);
  return line;
}

void InputFile::SkipToFieldEnd() {
  for (int c = Next(); c != -1; c = Next()) {
    if (c == ',') return;
    if (IsLineEnd(c)) {
      ConsumeLineEnd(c);
      return;
    }
  }
}

void InputFile::ReadField(std::string& text, bool& quoted) {
  RequireOpen();
  if (Peek() == -1) Raise(kInputPastEnd);
  text.clear();
  quoted = false;

  int c = Peek();
  while (IsBlank(c)) {
    ++pos_;
    c = Peek();
  }

  if (c == '"') {
    // Quoted: commas and line ends inside belong to the field; a missing closing quote
    // lets the field run to the end of the data.
    quoted = true;
    ++pos_;
    if (TakeField(text, true) == '"') SkipToFieldEnd();
    return;
  }

  c = TakeField(text, false);
  if (IsLineEnd(c)) ConsumeLineEnd(c);
  std::size_t keep = text.size();
  while (keep > 0 && IsBlank(static_cast<unsigned char>(text[keep - 1]))) --keep;
  text.resize(keep);
}

int InputFile::TakeField(std::string& text, bool quoted) {
  const bool text_mode = mode_ == OpenMode::Text;
  // a quoted field ends at its closing quote, a plain one at a comma or a line end
  const auto ends = [quoted](char ch) {
    return quoted ? ch == '"' : ch == ',' || ch == '\r' || ch == '\n';
  };
  for (;;) {
    if (pos_ == end_ && !Fill()) return -1;
    const char* const begin = data_ + pos_;
    const char* const stop = data_ + end_;
    const char* p = begin;
    while (p != stop && !ends(*p) && !(text_mode && *p == kCtrlZ)) ++p;
    text.append(begin, p);
    pos_ += static_cast<std::size_t>(p - begin);
    if (p != stop) return Next();  // Next sees a Ctrl-Z as the end of data
  }
}

[[gnu::always_inline]] inline bool InputFile::FieldInBuffer(Field& field) {
  if (file_ == nullptr) return false;
  // A field the read-ahead found at this very place is the field a scan would find here.
  if (token_next_ < token_count_) {
    while (token_next_ < token_count_ && tokens_[token_next_].pos < pos_) ++token_next_;
    if (token_next_ < token_count_ && tokens_[token_next_].pos == pos_) {
      const Token& t = tokens_[token_next_++];
      // the fields were written on another processor: ask for those ahead early
      __builtin_prefetch(&t + 32);
      field.text = std::string_view(data_ + pos_ + t.text_skip, t.text_size);
      field.number = t.number;
      field.kind = t.kind;
      pos_ += t.length;
      return true;
    }
  }
  std::size_t next = 0;
  if (!ScanField(data_, pos_, end_, mode_ == OpenMode::Text, ends_, field, next)) return false;
  pos_ = next;
  return true;
}

void InputFile::InputScanned(Value& into) {
  Field field;
  if (!FieldInBuffer(field)) {
    bool quoted = false;
    ReadField(field_, quoted);
    AssignFieldValue(into, field_, quoted);
  } else {
    SetValue(into, field.text, field.kind, field.number);
  }
}

void InputFile::Input(std::string& into) {
  Field field;
  if (FieldInBuffer(field)) {
    into.assign(field.text.data(), field.text.size());
  } else {
    bool quoted = false;
    ReadField(into, quoted);
  }
}

void InputFile::Get(std::string& record) {
  RequireOpen();
  if (record_length_ < 1) Raise(kInvalidCall);
  const auto want = static_cast<std::size_t>(record_length_);
  record.resize(want);
  std::size_t got = 0;
  while (got < want) {
    if (pos_ == end_ && !Fill()) break;
    const std::size_t take = std::min(want - got, end_ - pos_);
    std::memcpy(record.data() + got, data_ + pos_, take);
    pos_ += take;
    got += take;
  }
  if (got < want) {
    // The partial last record is blanked out beyond what was read and is never translated.
    std::memset(record.data() + got, ' ', want - got);
    record_eof_ = true;
  }
}

}  // namespace corvane
