// SPDX-License-Identifier: MIT
#include "capi/failures.h"

#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <span>
#include <stdexcept>

#include "capi/status_table.h"
#include "capi/texts.h"
#include "platform/io_error.h"

namespace velmorankite::capi {
namespace {

// A plain array, so that keeping the words of a failure cannot fail itself.
struct kept_words {
  std::array<char, VELMORANKITE_WORDS> text{};
  std::size_t length = 0;

  void append(std::string_view words) noexcept {
    const std::size_t count = std::min(words.size(), text.size() - length);
    std::copy_n(words.begin(), count, text.begin() + static_cast<std::ptrdiff_t>(length));
    length += count;
  }
};

kept_words& words_of_this_thread() noexcept {
  thread_local kept_words words;
  return words;
}

}  // namespace

void remember_failure(std::string_view routine, std::string_view words) noexcept {
  kept_words& kept = words_of_this_thread();
  kept.length = 0;
  kept.append(routine);
  kept.append(": ");
  kept.append(words);
}

std::string_view last_failure() noexcept {
  const kept_words& kept = words_of_this_thread();
  return {kept.text.data(), kept.length};
}

std::int32_t failure_in_flight(std::string_view routine) noexcept {
  try {
    throw;
  } catch (const platform::IoError& error) {
    remember_failure(routine, error.what());
    return VELMORANKITE_FILE_FAILED;
  } catch (const std::bad_alloc&) {
    remember_failure(routine, out_of_memory_words);
    return VELMORANKITE_OUT_OF_MEMORY;
  } catch (const TextTooLong& error) {
    remember_failure(routine, error.what());
    return VELMORANKITE_TEXT_TOO_LONG;
  } catch (const std::exception& error) {
    remember_failure(routine, error.what());
    return VELMORANKITE_FAILED;
  } catch (...) {
    remember_failure(routine, unforeseen_words);
    return VELMORANKITE_FAILED;
  }
}

std::int32_t number_of(std::string_view routine, Status status, std::int32_t format_code) {
  if (status.failed()) {
    remember_failure(routine, status_words(capi_statuses, routine, status, format_code));
  }
  return status.code;
}

std::int32_t number_of(std::string_view routine, const Outcome& outcome) {
  if (outcome.failed()) {
    remember_failure(routine, outcome.why);
  }
  return outcome.status.code;
}

}  // namespace velmorankite::capi

std::int32_t VELMORANKITE_LAST_ERROR(char* text, std::size_t text_length) {
  const std::string_view words = velmorankite::capi::last_failure();
  velmorankite::capi::fill_padded({text, text_length}, words);
  return static_cast<std::int32_t>(words.size());
}
