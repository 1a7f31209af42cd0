#include "platform/qt/redraw.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace qublet {
namespace {

TEST(SetRedraw, HoldsThePaintingBackUntilTheLastLetsGo) {
  QWidget control;
  SetRedraw(control, false);
  SetRedraw(control, false);
  SetRedraw(control, true);
  EXPECT_FALSE(control.updatesEnabled());
  SetRedraw(control, true);
  EXPECT_TRUE(control.updatesEnabled());
}

TEST(SetRedraw, TakesOneTrueTooMany) {
  QWidget control;
  SetRedraw(control, true);
  SetRedraw(control, false);
  EXPECT_FALSE(control.updatesEnabled());
}

TEST(LockRedraw, LetsGoWhateverHappens) {
  QWidget control;
  try {
    const LockRedraw lock(control);
    EXPECT_FALSE(control.updatesEnabled());
    throw std::runtime_error("in the middle");
  } catch (const std::runtime_error&) {
  }
  EXPECT_TRUE(control.updatesEnabled());
}

TEST(SetWindowOpacity, CountsTo255) {
  QWidget window;
  window.show();
  SetWindowOpacity(window, 230);
  EXPECT_NEAR(window.windowOpacity(), 230 / 255.0, 0.01);
}

}  // namespace
}  // namespace qublet
