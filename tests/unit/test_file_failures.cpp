// The file layer when the disk says no: a stream that could not be written whole never passes
// for a finished one, and a replacement that fails leaves the old file as it was.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "error_of.hpp"
#include "faulty_disk.hpp"
#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::ErrorOf;
using testing::FaultyDisk;
using testing::TempFolder;

// The names in a folder, so that a test can see that no half-written file is left behind.
std::vector<std::string> Names(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& e : std::filesystem::directory_iterator(folder)) {
    names.push_back(e.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

TEST(FileFailures, ADiskThatFillsMidWayFailsTheStreamForGood) {
  TempFolder tmp;
  FaultyDisk disk("out.txt");
  disk.room = 10;
  FileSystem fs;
  auto out = fs.createtextfile(tmp / "out.txt", true);
  // Small lines wait in the stream's buffer: the disk is met at the close.
  out->WriteLine("12345678");
  out->WriteLine("abcdef");
  EXPECT_EQ(ErrorOf([&] { out->Close(); }), 61);
  // The ten bytes the disk took, and nothing after them.
  EXPECT_EQ(TempFolder::Read(tmp / "out.txt"), "12345678\r\n");
  // The failure stays with the stream: no later write or close passes for a good one.
  EXPECT_EQ(ErrorOf([&] { out->WriteLine("more"); }), 61);
  EXPECT_EQ(ErrorOf([&] { out->Close(); }), 61);
  EXPECT_EQ(ErrorOf([&] { out->Flush(); }), 61);
  // The program no longer holds the file, so a new run can create it again.
  disk.room = -1;
  EXPECT_EQ(ErrorOf([&] { fs.createtextfile(tmp / "out.txt", true)->Close(); }), 0);
}

TEST(FileFailures, ALongRunMeetsTheFullDiskAtAFullBuffer) {
  // 100-byte lines, 655 to a buffer, on a disk that takes 1,000 bytes
  for (const bool behind : {false, true}) {
    SCOPED_TRACE(behind ? "written behind" : "written in place");
    TempFolder tmp;
    FaultyDisk disk("out.txt");
    disk.room = 1000;
    disk.write_error = EIO;
    FileSystem fs;
    auto out = fs.createtextfile(tmp / "out.txt", true);
    if (behind) out->WriteBehind();
    const std::string line(98, 'x');
    int written = 0;
    const int error = ErrorOf([&] {
      for (; written < 10000; ++written) out->WriteLine(line);
    });
    EXPECT_EQ(error, 57);
    // In place, the write that fails is the one that hands the first full buffer to the
    // disk. Written behind, that buffer goes to the disk while the next fills, and what the
    // disk said of it is raised when that one is full too, whatever the timing. Either way
    // long before the end and long before any close.
    EXPECT_EQ(written, behind ? 2 * 655 : 655);
    EXPECT_EQ(disk.bytes_written, 1000);
    EXPECT_EQ(ErrorOf([&] { out->WriteLine(line); }), 57);
    EXPECT_EQ(ErrorOf([&] { out->Close(); }), 57);
    EXPECT_EQ(std::filesystem::file_size(tmp / "out.txt"), 1000u);
  }
}

TEST(FileFailures, AStreamWrittenBehindKeepsEveryLineInItsOrder) {
  TempFolder tmp;
  FileSystem fs;
  auto out = fs.createtextfile(tmp / "out.txt", true);
  out->WriteBehind();
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    // lines of many lengths, one longer than a buffer, and a flush now and then
    const std::string line =
        i == 7000 ? std::string(100000, 'L') : std::to_string(i) + std::string(i % 97, '.');
    out->WriteLine(line);
    expected += line + "\r\n";
    if (i % 5000 == 4999) {
      out->Flush();
      EXPECT_EQ(std::filesystem::file_size(tmp / "out.txt"), expected.size()) << i;
    }
  }
  out->Close();
  EXPECT_TRUE(TempFolder::Read(tmp / "out.txt") == expected);
}

TEST(FileFailures, AStreamWrittenBehindMeetsTheFullDiskAtItsClose) {
  TempFolder tmp;
  FaultyDisk disk("out.txt");
  disk.room = 70000;
  FileSystem fs;
  auto out = fs.createtextfile(tmp / "out.txt", true);
  out->WriteBehind();
  // 1,000 lines of 100 bytes: one buffer goes behind, the rest waits for the close
  for (int i = 0; i < 1000; ++i) out->WriteLine(std::string(98, 'y'));
  EXPECT_EQ(ErrorOf([&] { out->Close(); }), 61);
  EXPECT_EQ(std::filesystem::file_size(tmp / "out.txt"), 70000u);
  // given up without a close, a stream written behind lets its thread go
  disk.room = -1;
  auto other = fs.createtextfile(tmp / "out2.txt", true);
  other->WriteBehind();
  for (int i = 0; i < 3000; ++i) other->WriteLine(std::string(98, 'z'));
  other.reset();
  EXPECT_EQ(std::filesystem::file_size(tmp / "out2.txt"), 300000u);
}

TEST(FileFailures, AFailedCloseIsSeenAtEveryClose) {
  TempFolder tmp;
  FaultyDisk disk("out.txt");
  disk.close_error = EIO;
  FileSystem fs;
  auto out = fs.createtextfile(tmp / "out.txt", true);
  out->WriteLine("a");
  EXPECT_EQ(ErrorOf([&] { out->Close(); }), 57);
  EXPECT_EQ(ErrorOf([&] { out->Close(); }), 57);
}

TEST(FileFailures, AnExclusiveCreateNeverEmptiesAnExistingFile) {
  TempFolder tmp;
  const std::string path = tmp.Write("kept.dat", "old\r\n");
  FileSystem fs;
  EXPECT_EQ(ErrorOf([&] { fs.createtextfile(path, false); }), 58);
  EXPECT_EQ(TempFolder::Read(path), "old\r\n");
}

class Replacement : public ::testing::Test {
 protected:
  Replacement() : path(tmp.Write("settings.dat", kOld)) {}
  // Writes three lines through a replacement of the file and closes it; the error of the
  // close, or 0.
  int Save() {
    auto out = fs.createreplacement(path);
    out->WriteLine("new 1");
    out->WriteLine("new 2");
    out->WriteLine("new 3");
    return ErrorOf([&] { out->Close(); });
  }
  static constexpr const char* kOld = "old 1\r\nold 2\r\n";
  TempFolder tmp;
  FileSystem fs;
  std::string path;
};

TEST_F(Replacement, ASaveThatFailsAnywhereLeavesTheOldFileWholeAndNothingBeside) {
  struct Fault {
    const char* what;
    long room;
    int close_error, sync_error, rename_error;
    int expected;
  };
  const Fault faults[] = {
      {"disk full after 9 bytes", 9, 0, 0, 0, 61}, {"disk full at once", 0, 0, 0, 0, 61},
      {"sync fails", -1, 0, EIO, 0, 57},           {"close fails", -1, EIO, 0, 0, 57},
      {"rename refused", -1, 0, 0, EACCES, 70},    {"rename fails otherwise", -1, 0, 0, EXDEV, 75},
  };
  for (const Fault& f : faults) {
    SCOPED_TRACE(f.what);
    FaultyDisk disk("settings.dat");
    disk.room = f.room;
    disk.close_error = f.close_error;
    disk.sync_error = f.sync_error;
    disk.rename_error = f.rename_error;
    EXPECT_EQ(Save(), f.expected);
    EXPECT_EQ(TempFolder::Read(path), kOld);
    EXPECT_EQ(Names(tmp.path()), std::vector<std::string>{"settings.dat"});
  }
  // With the disk well again the same save goes through.
  EXPECT_EQ(Save(), 0);
  EXPECT_EQ(TempFolder::Read(path), "new 1\r\nnew 2\r\nnew 3\r\n");
  EXPECT_EQ(Names(tmp.path()), std::vector<std::string>{"settings.dat"});
}

TEST_F(Replacement, ASaveGivenUpBeforeItsCloseChangesNothing) {
  {
    auto out = fs.createreplacement(path);
    out->WriteLine("half");
  }
  EXPECT_EQ(TempFolder::Read(path), kOld);
  EXPECT_EQ(Names(tmp.path()), std::vector<std::string>{"settings.dat"});
}

TEST_F(Replacement, TwoSaversAtOnceLeaveOneWholeFile) {
  // Both are open together, their lines interleaved, each big enough to reach the disk
  // before its close; the last to close wins, whole.
  auto first = fs.createreplacement(path);
  auto second = fs.createreplacement(path);
  const std::string a(200, 'a'), b(200, 'b');
  std::string whole_a, whole_b;
  for (int i = 0; i < 1000; ++i) {
    first->WriteLine(a);
    second->WriteLine(b);
    whole_a += a + "\r\n";
    whole_b += b + "\r\n";
  }
  second->Close();
  EXPECT_EQ(TempFolder::Read(path), whole_b);
  first->Close();
  EXPECT_EQ(TempFolder::Read(path), whole_a);
  EXPECT_EQ(Names(tmp.path()), std::vector<std::string>{"settings.dat"});
}

TEST_F(Replacement, TheNewFileKeepsTheOldOnesPermissions) {
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  EXPECT_EQ(Save(), 0);
  struct stat st;
  ASSERT_EQ(::stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0640u);
}

TEST_F(Replacement, AFolderMadeReadOnlyRefusesTheSaveAndKeepsTheFile) {
  // Permissions do not bind the superuser, so there is nothing to see when run as root.
  if (::geteuid() == 0) GTEST_SKIP() << "permissions do not bite for root";
  ASSERT_EQ(::chmod(tmp.path().c_str(), 0555), 0);
  const int error = ErrorOf([&] { Save(); });
  ::chmod(tmp.path().c_str(), 0755);
  EXPECT_EQ(error, 70);
  EXPECT_EQ(TempFolder::Read(path), kOld);
  EXPECT_EQ(Names(tmp.path()), std::vector<std::string>{"settings.dat"});
}

}  // namespace
}  // namespace corvane
