// Files: what opening, reading and writing give, and the codes of their failures.

#include "kestxml/platform/file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/model/scratch_folder.h"

namespace KestXmlLib20::platform {
namespace {

TEST(File, OpensOrGivesTheCode) {
  ScratchFolder const scratch;
  std::filesystem::create_directory(scratch.Path("folder"));
  scratch.MakeFile("file", "abc");
  struct {
    std::string name;
    ErrorCode forReading, forWriting;
  } const rows[] = {
      {"file", kErrorNone, kErrorNone},
      {"other", kErrorFileNotFound, kErrorNone},
      {"none/file", kErrorPathNotFound, kErrorPathNotFound},
      {"file/file", kErrorPathNotFound, kErrorPathNotFound},
      {"folder", kErrorAccessDenied, kErrorAccessDenied},
      {std::string(300, 'n'), kErrorNameTooLong, kErrorNameTooLong},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    auto const read = File::OpenForReading(scratch.Path(row.name));
    EXPECT_EQ(read.error, row.forReading);
    EXPECT_EQ(read.value.IsOpen(), read.error == kErrorNone);
    EXPECT_EQ(File::CreateForWriting(scratch.Path(row.name)).error, row.forWriting);
  }
}

TEST(File, NeedsRightsAndDescriptors) {
  ScratchFolder const scratch;
  std::string const path = scratch.MakeFile("file", "abc");
  rlimit before;
  getrlimit(RLIMIT_NOFILE, &before);
  rlimit const none{0, before.rlim_max};
  setrlimit(RLIMIT_NOFILE, &none);
  ErrorCode const error = File::OpenForReading(path).error;
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(error, kErrorTooManyOpenFiles);

  chmod(path.c_str(), 0);
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may open anything";
  EXPECT_EQ(File::OpenForReading(path).error, kErrorAccessDenied);
  EXPECT_EQ(File::CreateForWriting(path).error, kErrorAccessDenied);
}

TEST(File, IsWrittenAndReadAtPositions) {
  ScratchFolder const scratch;
  std::string const path = scratch.MakeFile("file", "what was there before");
  File written = File::CreateForWriting(path).value;
  EXPECT_EQ(written.WriteAt(3, "defg", 4).value, 4u);
  EXPECT_EQ(written.WriteAt(0, "abc", 3).value, 3u);
  EXPECT_EQ(written.Close(), kErrorNone);
  EXPECT_EQ(written.WriteAt(0, "x", 1).error, kErrorGeneralFailure);

  File const file = File::OpenForReading(path).value;
  EXPECT_EQ(file.GetSize().value, 7u);
  char buffer[8] = {};
  auto const read = file.ReadAt(4, buffer, sizeof buffer);
  EXPECT_EQ(read.error, kErrorNone);
  EXPECT_EQ(std::string_view(buffer, read.value), "efg");
}

// Such names come from shells that pass a program's output on.
TEST(File, MayBeAPipeToWriteTo) {
  ScratchFolder const scratch;
  std::string const path = scratch.Path("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  File const reading = File::OpenForReading(path).value;  // no writer yet, and no wait for one
  EXPECT_EQ(File::CreateForWriting(path).value.WriteAt(100, "abc", 3).value, 3u);
  char byte;
  EXPECT_EQ(reading.ReadAt(0, &byte, 1).error, kErrorGeneralFailure);
  EXPECT_EQ(reading.GetSize().error, kErrorGeneralFailure);
}

TEST(File, FinishesItsReadRequestInTheWait) {
  ScratchFolder const scratch;
  std::string const path = scratch.MakeFile("file", "0123456789");
  struct {
    std::string path;
    std::uint64_t offset;
    std::size_t count;
    ErrorCode error;
  } const rows[] = {
      {path, 2, 4, kErrorNone},
      {path, 8, 2, kErrorNone},
      {path, 10, 0, kErrorHandleEof},
      {path, std::uint64_t{1} << 40, 0, kErrorHandleEof},
      {path, ~std::uint64_t{0}, 0, kErrorInvalidParameter},
      {"/proc/self/mem", 0, 0, kErrorGeneralFailure},  // opens, but has nothing mapped there
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::Message() << row.path << " at " << row.offset);
    File const file = File::OpenForReading(row.path).value;
    char buffer[4];
    ReadRequest request = file.StartRead(row.offset, buffer, sizeof buffer);
    auto const read = request.Wait();
    EXPECT_EQ(read.value, row.count);
    EXPECT_EQ(read.error, row.error);
    EXPECT_EQ(request.Wait().value, 0u) << "a request is finished once";
  }
}

}  // namespace
}  // namespace KestXmlLib20::platform
