#include "settings/window_state.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

AppSettings Defaults() {
  AppSettings settings;
  LoadDefaultSettings(settings, {255, 60, 80, 400, 80, 80, 80, 100, 100});
  return settings;
}

WindowState Present() {
  return {2000, 900, 8000, 7000, {250, 61, 82, 403, 84, 85, 86, 107, 108}, true, true};
}

TEST(CopyWindowState, TakesPlaceSizeWidthsAndBars) {
  AppSettings settings = Defaults();
  CopyWindowState(Present(), settings);
  AppSettings expected = Defaults();
  expected.T = 2000;
  expected.L = 900;
  expected.W = 8000;
  expected.H = 7000;
  expected.TV = {250, 61, 82, 403, 84, 85, 86, 107, 108};
  EXPECT_EQ(settings, expected);
}

TEST(CopyWindowState, TakesHiddenBars) {
  AppSettings settings = Defaults();
  WindowState window = Present();
  window.toolbar_shown = false;
  CopyWindowState(window, settings);
  EXPECT_FALSE(settings.TA);
  EXPECT_TRUE(settings.SA);
  window.status_bar_shown = false;
  CopyWindowState(window, settings);
  EXPECT_FALSE(settings.SA);
}

TEST(CopyWindowState, LeavesTheWidthOfAHiddenColumnAlone) {
  AppSettings settings = Defaults();
  settings.TX[3] = false;
  WindowState window = Present();
  window.column_widths[3] = 0;
  CopyWindowState(window, settings);
  EXPECT_EQ(settings.TV[3], 400);
  EXPECT_EQ(settings.TV[4], 84);
}

TEST(CopyWindowState, KeepsTheOldValueWhereTheNewOneDoesNotFit) {
  AppSettings settings = Defaults();
  WindowState window = Present();
  window.top = 32768;
  window.left = -32769;
  window.width = 57600;
  window.height = 32767;
  window.column_widths[0] = 40000;
  CopyWindowState(window, settings);
  EXPECT_EQ(settings.T, 1900);
  EXPECT_EQ(settings.L, 800);
  EXPECT_EQ(settings.W, 7920);
  EXPECT_EQ(settings.H, 32767);
  EXPECT_EQ(settings.TV[0], 255);
}

}  // namespace
}  // namespace qublet
