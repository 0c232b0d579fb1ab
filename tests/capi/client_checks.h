/* What the clients of the C interface share: checks that count what is not so.
 * SPDX-License-Identifier: MIT */
#ifndef CLIENT_CHECKS_H
#define CLIENT_CHECKS_H

#include <stdio.h>
#include <string.h>
#include <velmorankite/velmorankite.h>

static int failures = 0;

static void check(int holds, const char* what) {
  if (!holds) {
    char words[VELMORANKITE_WORDS + 1];
    const int32_t length = VELMORANKITE_LAST_ERROR(words, sizeof words);
    fprintf(stderr, "not so: %s (last error: %.*s)\n", what, (int)length, words);
    ++failures;
  }
}

#endif
