// SPDX-License-Identifier: MIT
#include "transform/run_names.h"

#include <gtest/gtest.h>

#include <string>

namespace velmorankite {
namespace {

TEST(RunNames, logs_and_saved_grids_are_named_after_the_output_or_the_reuse_base) {
  struct example {
    const char* out;
    const char* base;
    std::int32_t detrend;
    const char* log;
    const char* power;
    const char* padded;
  };
  const example examples[] = {
      {"a.b.grd", "", 2, "a.b_trs.log", "a.b_power", ""},
      {"d.x/out", "", 2, "d.x/out_trs.log", "d.x/out_power", ""},
      {"a_WDtmp.1.grd", "", 2, "a_trs.log", "a_power", ""},
      {"~out0000.tmp", "", 2, "trs_filter_101.log", "power", ""},
      {"~out0000.tmp", "mag.v2.grd", 0, "mag.v2_trs.log", "mag.v2_power", "mag.v2_trs_det_ext_011"},
      {"a.grd", "mag  ", 11, "a_trs.log", "a_power", "mag_trs_det_all_ext_011"},
      {"a.grd", "mag.grd", 12, "a_trs.log", "a_power", "mag_trs_ext_011"}};
  for (const example& e : examples) {
    transform_request r;
    r.filter = 101;
    r.pad_width = 11;
    r.fft_mode = 1;
    r.out_grid = e.out;
    r.reuse_base = e.base;
    r.detrend = e.detrend;
    EXPECT_EQ(name_run(r).log, e.log);
    EXPECT_EQ(name_run(r).power_stem, e.power);
    const std::string stem = e.padded;
    EXPECT_EQ(name_reuse(r).padded, stem.empty() ? "" : stem + ".grd");
    EXPECT_EQ(name_reuse(r).spectrum, stem.empty() ? "" : stem + "_fft.grd");
    r.fft_mode = fft_mode_convolution;
    EXPECT_EQ(name_reuse(r).spectrum, "");
  }
}

TEST(RunNames, components_stand_beside_the_output) {
  EXPECT_EQ(component_names("a_WDtmp.x_WDtmp.grd.grd  ")[0], "a_WDtmp.x_Tx.grd");
  EXPECT_EQ(component_names("/v1.2/plain  ")[1], "/v1.2/plain_Ty.grd");
  EXPECT_EQ(component_names("/v1.2/a.b.grd")[2], "/v1.2/a.b_Tz.grd");
}

}  // namespace
}  // namespace velmorankite
