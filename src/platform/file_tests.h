// What the system knows of files without opening them, and the plain file services.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>

namespace velmorankite::platform {

[[nodiscard]] bool file_exists(const std::filesystem::path& path);
// Bytes of a regular file; -1 for anything else.
[[nodiscard]] std::int64_t bytes_of_file(const std::filesystem::path& path);
// Bytes that a file in this folder can take; the largest number where the system does not tell.
[[nodiscard]] std::int64_t free_bytes(const std::filesystem::path& folder);
// Whether a file of `bytes` fits in.
[[nodiscard]] bool has_room(const std::filesystem::path& folder, std::int64_t bytes);
// Whether both names lead to one existing file, through links too.
[[nodiscard]] bool same_file(const std::filesystem::path& a, const std::filesystem::path& b);
// Whether both names mean one place, existing or not; a blank name means none.
[[nodiscard]] bool same_place(const std::filesystem::path& a, const std::filesystem::path& b);
// Where a name leads: through links, one to a file that does not exist yet among them.
[[nodiscard]] std::filesystem::path link_target(std::filesystem::path path);
// Deletes the file if it exists; a failure is not an error.
void delete_file(const std::filesystem::path& path) noexcept;
// Copies the bytes of a file, replacing the target; false on failure, then without a target.
[[nodiscard]] bool copy_whole_file(const std::filesystem::path& source,
                                   const std::filesystem::path& target) noexcept;

}  // namespace velmorankite::platform
