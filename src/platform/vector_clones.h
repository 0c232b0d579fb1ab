// Functions that are compiled twice, for the processor at hand to choose from.
// SPDX-License-Identifier: MIT
#pragma once

// Ahead of a function: compile it for the base instruction set and for AVX2, the choice being made
// when the program is loaded. Both give the same bits, since products and sums are never fused.
// Nothing where the tools cannot do it. The sanitizers must be up before any such choice runs.
#if defined(__x86_64__) && defined(__linux__) && defined(__GLIBC__) && defined(__GNUC__) && \
    !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define VELMORANKITE_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define VELMORANKITE_VECTOR_CLONES
#endif
