// The spectrum of the padded grid of a run: computed, or a saved one.
// SPDX-License-Identifier: MIT
#pragma once
#include "transform/transform_run.h"

namespace velmorankite {

// Brings the spectrum into the array of the run, and leaves a file that holds it: a saved spectrum
// that fits, else the transform of the padded grid, which is saved.
//   keeps_padded  false: nothing reads the padded grid behind its transform, and it goes.
// Throws IoError.
void provide_spectrum(transform_run& run, bool keeps_padded);

}  // namespace velmorankite
