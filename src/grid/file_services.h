// Small file services that the grid library offers its callers.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

// Trailing blanks of all names and folders are dropped.

// Deletes the file if it exists.
void GRDFILEDEL(std::string_view path);

// Copies a file and replaces the target, which keeps its old contents if the copy fails. True for
// success. Throws IoError where both names mean one file.
[[nodiscard]] bool GRDFILECOPY(std::string_view source, std::string_view target);

inline constexpr Status temporary_name_failed{-1};

// Makes an empty file of a new name in a folder: the prefix, four hexadecimal digits, ".tmp".
//   folder  blank: the current folder.
//   prefix  no separator of folders in it.
//   result  out: the path of the file, which is the caller's to delete; blank on failure.
Status GRDOSTEMP(std::string_view folder, std::string_view prefix, std::string& result);

inline constexpr Status command_failed{-1};

// Passes a command to the system's shell and waits. A longer command is cut at 255 characters, and
// one that holds a NUL at the NUL.
// Status: success if the command ran and ended with status 0.
Status FSYSTEM(std::string_view command);

// Looks for a file in the folders of the environment variable "PATH", in their order.
//   result  out: its full path; blank if there is none.
// Gives the length of the path, 0 if there is none.
[[nodiscard]] std::int32_t FINDFILEINPATH(std::string_view name, std::string& result);

// The version of the library's interface: 32, 5, 5.
void ZRV_DLL_VERSION(std::int32_t& a, std::int32_t& b, std::int32_t& c) noexcept;

}  // namespace velmorankite
