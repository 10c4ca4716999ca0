// Input files in the system's open modes, read once, in order, through a buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/value.hpp"

namespace corvane {

enum class OpenMode {
  None,   // the branch or the translator opens the file itself (workbooks and the like)
  Text,   // lines and comma fields; a Ctrl-Z byte ends the file
  Byte,   // lines and comma fields; no end mark in the data
  Fixed,  // whole records of a stated length, line ends included as data
};

class InputFile {
 public:
  InputFile();
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // Opens path; a missing file raises 53, a folder or an unreadable file 75, an empty path
  // 52. An open file is closed first. record_length is used in Fixed mode (at least 1).
  void Open(const std::string& path, OpenMode mode, int record_length = 0);
  // Closing a file that is not open does nothing.
  void Close();
  bool IsOpen() const;
  OpenMode mode() const { return mode_; }
  int record_length() const { return record_length_; }

  // Lines and fields: true once nothing is left to read (in Text mode, also at Ctrl-Z).
  // Fixed records: false until a Get could not fetch a whole record.
  bool Eof();

  // Whole-line read: the text up to the next line end (CR LF, LF or CR); the line end is
  // consumed. Raises 62 when nothing is left.
  void LineInput(std::string& line);
  std::string LineInput();

  // Delimited read of one field; raises 62 when nothing is left. Fields end at a comma or
  // a line end (a field that ends at a line end consumes it). Unquoted fields lose blanks
  // around them; a quoted field runs to the next double quote and keeps its text, and what
  // follows up to the next comma or line end is passed over.
  void Input(Value& into) {  // becomes a number, blank or text by FieldValue
    // most fields of a large export were found ahead, at the very place the read stands
    if (token_next_ < token_count_ && tokens_[token_next_].pos == pos_) {
      TakeToken(into);
    } else {
      InputScanned(into);
    }
  }
  void Input(std::string& into);  // keeps the characters

  // Files of at least this many bytes are read through a second thread; 1 MiB unless set.
  // The setting holds for the files opened after it.
  static void SetReadAheadFrom(std::uintmax_t bytes);

  // Fixed records: fetches the next record_length bytes into record. A short read fills
  // what it got, blanks the rest, and sets end-of-file.
  void Get(std::string& record);

 private:
  // Reads the raw field; quoted says whether it began with a double quote.
  void ReadField(std::string& text, bool& quoted);
  bool Fill();  // refills the buffer; false at the true end of data
  int Peek();   // next byte or -1 at the end of data (Ctrl-Z counts as the end in Text mode)
  int Next();
  // Raises 52 when no file is open.
  void RequireOpen() const;
  // After a consumed CR or LF: takes the LF of a CR LF pair.
  void ConsumeLineEnd(int c);
  // Appends to text the field's characters up to its end (the closing quote of a quoted
  // field; a comma or line end of a plain one), then consumes that byte and returns it; -1
  // at the end of data.
  int TakeField(std::string& text, bool quoted);
  // Passes over the rest of a field, its terminator included.
  void SkipToFieldEnd();
  // The delimited read of a field that lies whole in the buffer, its terminator and line
  // end included: sets the field (its text a view into the buffer, valid until the next
  // read), consumes it, and returns true. Returns false, consuming nothing, for a field that
  // the buffer's end, a Ctrl-Z or an unusual tail after a closing quote leave to ReadField.
  // Its kind is kNumber when it is a short plain figure ("[sign]digits[.digits]", 15 digits
  // at most), which the same pass converts into number; kPlainNumberLeft when it is no such
  // figure but may still be a plain number (an exponent, more digits), which the full test
  // then decides. Any other unquoted field is text, or blank when empty.
  struct Field {
    static constexpr std::uint8_t kQuoted = 1, kNumber = 2, kPlainNumberLeft = 4;
    std::string_view text;
    double number = 0.0;
    std::uint8_t kind = 0;  // kQuoted, kNumber, kPlainNumberLeft or none of them
  };
  bool FieldInBuffer(Field& field);
  // Which bytes of the buffer end an unquoted field (a comma, a line end, and in text mode
  // a Ctrl-Z), found 64 at a time and kept for the fields that follow: most fields are a
  // few bytes long, and a byte-by-byte search pays a mispredicted branch at each.
  static constexpr std::size_t kNoBlock = static_cast<std::size_t>(-1) / 2;
  struct FieldEnds {
    std::size_t block_at = kNoBlock;  // bit i of ends is byte block_at + i; kNoBlock: none
    std::uint64_t ends = 0;
    // The first field end in data[at, end), or data + end.
    const char* Find(const char* data, std::size_t at, std::size_t end, bool text_mode);
    // The same, beyond the block held.
    const char* FindBeyond(const char* data, std::size_t at, std::size_t end, bool text_mode);
  };
  // The field FieldInBuffer takes at pos in data[0, end), computed from those bytes alone:
  // false when it cannot be told there; otherwise sets field and next, the place after it.
  static bool ScanField(const char* data, std::size_t pos, std::size_t end, bool text_mode,
                        FieldEnds& ends, Field& field, std::size_t& next);

  // A field found ahead of the read, in the buffer the read-ahead filled: sixteen bytes,
  // for the fields of a buffer pass from one processor to the other.
  struct Token {
    double number;            // the field's number, when it is a short plain figure
    std::uint16_t pos;        // where the field's read begins
    std::uint16_t length;     // how far the read goes, terminator and line end included
    std::uint16_t text_size;  // its text, after
    std::uint8_t text_skip;   // the blanks and opening quote before it
    std::uint8_t kind;        // as Field::kind
  };
  // The read of a field found ahead.
  void TakeToken(Value& into) {
    const Token& t = tokens_[token_next_++];
    // the fields were written on another processor: ask for those ahead early
    __builtin_prefetch(&t + 32);
    SetValue(into, std::string_view(data_ + pos_ + t.text_skip, t.text_size), t.kind, t.number);
    pos_ += t.length;
  }
  // A field told in the buffer into a value, by its kind (Field::kind).
  static void SetValue(Value& into, std::string_view text, std::uint8_t kind, double number) {
    if (kind & Field::kNumber) {
      into.SetNumber(number);
    } else if (kind & Field::kPlainNumberLeft) {
      AssignFieldValue(into, text, false);
    } else if ((kind & Field::kQuoted) || !text.empty()) {
      into.SetText(text);
    } else {
      into.SetBlank();
    }
  }
  // The read of any other field.
  void InputScanned(Value& into);

  // A second thread that reads the file a buffer or two ahead and finds the comma fields
  // of each buffer, for exports large enough to pay for it.
  class ReadAhead;

  std::FILE* file_ = nullptr;
  OpenMode mode_ = OpenMode::None;
  int record_length_ = 0;
  std::vector<char> buffer_;
  const char* data_ = nullptr;  // the bytes held: buffer_, or the read-ahead's buffer
  std::size_t pos_ = 0;
  std::size_t end_ = 0;
  FieldEnds ends_;  // of the bytes held; a new fill drops them
  std::unique_ptr<ReadAhead> ahead_;
  // The fields the read-ahead found in the bytes held, in order of place, and the first
  // the read has not passed.
  const Token* tokens_ = nullptr;
  std::size_t token_count_ = 0;
  std::size_t token_next_ = 0;
  bool data_end_ = false;    // no more bytes in the file (or Ctrl-Z met in Text mode)
  bool record_eof_ = false;  // Fixed mode: a Get came up short
  std::string field_;        // scratch for delimited reads
};

}  // namespace corvane
