// SPDX-License-Identifier: MIT
#include "grid/status_words.h"

#include <algorithm>

namespace velmorankite {
namespace {

// Of which formats a row or family speaks, seen from the grid at hand.
enum bearing : unsigned { this_format = 1, all_formats = 2, other_formats = 4 };

bearing bearing_of(const format_group* formats, std::int32_t format_code) noexcept {
  if (formats == nullptr) {
    return all_formats;
  }
  const auto& codes = formats->codes;
  return format_code != 0 && std::find(codes.begin(), codes.end(), format_code) != codes.end()
             ? this_format
             : other_formats;
}

// The meanings of one number for a format.
class Meanings {
 public:
  Meanings(const status_table& table, Status status, std::int32_t format_code) noexcept
      : table_(table), number_(status.code), format_code_(format_code) {}

  // The words of one routine; empty where the number has none.
  [[nodiscard]] std::string of(std::string_view routine) const {
    if (format_code_ == 0) {
      return of(routine, this_format | all_formats | other_formats);
    }
    std::string words;
    for (const unsigned wanted : {this_format, all_formats, other_formats}) {
      words = of(routine, wanted);
      if (!words.empty()) {
        break;
      }
    }
    return words;
  }

 private:
  [[nodiscard]] std::string of(std::string_view routine, unsigned wanted) const {
    std::string words = rows(routine, wanted);
    return !words.empty() ? words : counted(routine, wanted);
  }

  [[nodiscard]] std::string rows(std::string_view routine, unsigned wanted) const {
    std::string words;
    for (const status_table* floor = &table_; floor != nullptr; floor = floor->below) {
      for (const status_row& row : floor->rows) {
        if (row.routine == routine && row.status.code == number_ &&
            (bearing_of(row.formats, format_code_) & wanted) != 0) {
          words.append(words.empty() ? "" : "; ").append(label(row.formats)).append(row.words);
        }
      }
    }
    return words;
  }

  // Where one family begins another of the same routine goes on: the nearest base counts.
  [[nodiscard]] std::string counted(std::string_view routine, unsigned wanted) const {
    const status_family* nearest = nullptr;
    for (const status_table* floor = &table_; floor != nullptr; floor = floor->below) {
      for (const status_family& family : floor->families) {
        if (family.routine == routine && number_ <= family.base - family.first_count &&
            number_ >= family.last && (bearing_of(family.formats, format_code_) & wanted) != 0 &&
            (nearest == nullptr || family.base < nearest->base)) {
          nearest = &family;
        }
      }
    }
    if (nearest == nullptr) {
      return {};
    }
    std::string words = label(nearest->formats).append(nearest->before);
    words.append(std::to_string(std::int64_t{nearest->base} - number_));
    return words.append(nearest->behind);
  }

  // Words for the format at hand need not name it.
  [[nodiscard]] std::string label(const format_group* formats) const {
    return bearing_of(formats, format_code_) == other_formats
               ? std::string(formats->name).append(": ")
               : std::string();
  }

  const status_table& table_;
  std::int32_t number_;
  std::int32_t format_code_;
};

std::string_view numbers_of(const status_table& table, std::string_view routine) noexcept {
  for (const status_table* floor = &table; floor != nullptr; floor = floor->below) {
    for (const status_handover& handover : floor->handovers) {
      if (handover.routine == routine) {
        return handover.numbers_of;
      }
    }
  }
  return {};
}

}  // namespace

std::string status_words(const status_table& table, std::string_view routine, Status status,
                         std::int32_t format_code) {
  if (!status.failed()) {
    return "success";
  }
  const Meanings meanings(table, status, format_code);
  for (std::string_view asked = routine;; asked = numbers_of(table, asked)) {
    if (std::string words = meanings.of(asked); !words.empty()) {
      return words;
    }
    if (asked.empty()) {  // the last that is asked: all of the C interface
      return "status " + std::to_string(status.code);
    }
  }
}

}  // namespace velmorankite
