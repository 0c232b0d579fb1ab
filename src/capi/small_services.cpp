// The C interface of the small services: scratch names, files, commands, the version.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <span>
#include <string>
#include <string_view>

#include "capi/failures.h"
#include "capi/texts.h"
#include "grid/file_services.h"
#include "grid/scratch_names.h"
#include "platform/scratch_file.h"

using namespace velmorankite::capi;

namespace {

// The stem of a scratch name gets no room that it does not have: the buffer is then left alone.
velmorankite::Status complete_name(std::span<char> buffer, std::int32_t& length) {
  std::string name(text_in(buffer.data(), buffer.size()));
  if (name.empty()) {
    name = velmorankite::default_scratch_stem;
  }
  const std::size_t completed = name.size() + velmorankite::platform::scratch_ending_length;
  length = static_cast<std::int32_t>(name.size());
  if (completed > buffer.size()) {
    return velmorankite::scratch_names_taken;
  }
  const velmorankite::Status status = velmorankite::GRDTMPNAME(name);
  text_out(name, buffer);
  if (!status.failed()) {
    length = static_cast<std::int32_t>(completed);
  }
  return status;
}

}  // namespace

void GRDTMPNAME(char* name, std::int32_t* length, std::int32_t* status, std::size_t name_length) {
  *length = 0;
  *status = guarded("GRDTMPNAME", [&] { return complete_name({name, name_length}, *length); });
}

// Nothing tells of a failure: a file that cannot be deleted stays.
void GRDFILEDEL(const char* path, std::size_t path_length) {
  (void)guarded("GRDFILEDEL", [&] {
    velmorankite::GRDFILEDEL(text_in(path, path_length));
    return velmorankite::success;
  });
}

std::int32_t GRDFILECOPY(const char* source, const char* target, std::size_t source_length,
                         std::size_t target_length) {
  const std::int32_t copied = guarded("GRDFILECOPY", [&] {
    return velmorankite::Status{
        velmorankite::GRDFILECOPY(text_in(source, source_length), text_in(target, target_length))
            ? 1
            : 0};
  });
  return copied > 0 ? 1 : 0;
}

std::int32_t GRDOSTEMP(const char* directory, const char* prefix, char* result,
                       std::size_t directory_length, std::size_t prefix_length,
                       std::size_t result_length) {
  const std::int32_t number = guarded("GRDOSTEMP", [&] {
    std::string path;
    const velmorankite::Status status = velmorankite::GRDOSTEMP(
        text_in(directory, directory_length), text_in(prefix, prefix_length), path);
    velmorankite::platform::ScratchFile file(path);  // gone again if its name does not fit
    text_out(path, {result, result_length});
    file.keep();
    return status;
  });
  return number < 0 ? -1 : 0;
}

std::int32_t FSYSTEM(const char* command, std::size_t command_length) {
  return guarded("FSYSTEM",
                 [&] { return velmorankite::FSYSTEM(std::string_view(command, command_length)); });
}

std::int32_t FINDFILEINPATH(const char* name, char* result, std::size_t name_length,
                            std::size_t result_length) {
  const std::int32_t length = guarded("FINDFILEINPATH", [&] {
    std::string path;
    const velmorankite::Status found{
        velmorankite::FINDFILEINPATH(text_in(name, name_length), path)};
    text_out(path, {result, result_length});
    return found;
  });
  return length < 0 ? 0 : length;
}

void ZRV_DLL_VERSION(std::int32_t* a, std::int32_t* b, std::int32_t* c) {
  velmorankite::ZRV_DLL_VERSION(*a, *b, *c);
}
