// SPDX-License-Identifier: MIT
#include "platform/binary_file.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <string>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite::platform {
namespace {

using testing::FailingSystem;
using testing::system_call;
using testing::TemporaryFolder;

// The message of the IoError that `work` throws; empty if it throws none.
template <typename Work>
std::string failure_of(Work work) {
  try {
    work();
  } catch (const IoError& error) {
    return error.what();
  }
  return {};
}

TEST(BinaryFile, positions_count_from_one_and_values_are_little_endian) {
  const TemporaryFolder folder;
  BinaryFile file(folder / "a", open_mode::create);
  file.write_value<std::int32_t>(3, 0x01020304);
  file.close();
  EXPECT_EQ(testing::read_file(folder / "a"), std::string("\0\0\4\3\2\1", 6));
}

TEST(BinaryFile, a_read_past_the_end_says_what_was_expected_where) {
  const TemporaryFolder folder;
  testing::write_file(folder / "a", "12345");
  const BinaryFile file(folder / "a", open_mode::read);
  std::array<std::byte, 4> bytes{};
  EXPECT_EQ(failure_of([&] { file.read(3, bytes); }),
            (folder / "a").string() +
                ": the file ends too early: 4 bytes expected at byte 3, 3 are there");
  EXPECT_EQ(file.read_some(3, bytes), 3U);
}

TEST(BinaryFile, names_that_cannot_be_opened_give_the_systems_reason) {
  const TemporaryFolder folder;
  const auto open = [](const std::filesystem::path& path) {
    return failure_of([&] { const BinaryFile file(path, open_mode::read); });
  };
  EXPECT_EQ(open(folder / "missing"),
            (folder / "missing").string() + ": cannot be opened: No such file or directory");
  EXPECT_EQ(open(folder.path()), folder.path().string() + ": cannot be opened: Is a directory");
  EXPECT_NE(open("/dev/null"), "");
}

TEST(BinaryFile, a_full_disk_is_an_error_with_path_and_reason) {
  const TemporaryFolder folder;
  BinaryFile file(folder / "a", open_mode::create);
  FailingSystem system(system_call::write, 1, ENOSPC);
  const SystemOverride override(system);
  EXPECT_EQ(failure_of([&] { file.write_value<float>(1, 1.0F); }),
            (folder / "a").string() + ": cannot be written: No space left on device");
}

TEST(BinaryFile, positions_beyond_four_gigabytes_hold) {
  const TemporaryFolder folder;
  BinaryFile file(folder / "a", open_mode::create);
  constexpr std::int64_t far = (std::int64_t{1} << 32) + 7;
  file.write_value<std::int16_t>(far, 258);
  EXPECT_EQ(file.size(), far + 1);
  EXPECT_EQ(file.read_value<std::int16_t>(far), 258);
  EXPECT_EQ(file.read_value<std::int16_t>(7), 0);
}

TEST(BinaryFile, a_locked_file_is_refused_to_a_second_opening) {
  const TemporaryFolder folder;
  BinaryFile first(folder / "a", open_mode::create);
  first.lock();
  BinaryFile second(folder / "a", open_mode::read_write);
  EXPECT_NE(failure_of([&] { second.lock(); }).find("in use by another run"), std::string::npos);
}

}  // namespace
}  // namespace velmorankite::platform
