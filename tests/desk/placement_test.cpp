#include "desk/placement.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

constexpr QRect kScreen(0, 0, 1000, 600);

QPoint Place(const QRect& main, QSize frm) {
  return PlaceBeside(main, frm, kScreen, {7, 8});
}

TEST(PlaceBeside, GoesToTheLeftWhereItFits) {
  EXPECT_EQ(Place({300, 50, 200, 300}, {300, 100}), QPoint(0, 50));
}

TEST(PlaceBeside, GoesToTheRightWhereTheLeftIsTooNarrow) {
  EXPECT_EQ(Place({299, 50, 200, 300}, {300, 100}), QPoint(499, 50));
  EXPECT_EQ(Place({299, 50, 200, 300}, {501, 100}), QPoint(499, 50));
}

TEST(PlaceBeside, StaysAsItIsSidewaysWhereNeitherSideFits) {
  EXPECT_EQ(Place({299, 50, 200, 300}, {502, 100}), QPoint(7, 50));
}

TEST(PlaceBeside, AlignsTheLowerEdgesWhereItWouldLeaveTheScreen) {
  EXPECT_EQ(Place({300, 200, 200, 300}, {300, 400}), QPoint(0, 200));
  EXPECT_EQ(Place({300, 201, 200, 300}, {300, 400}), QPoint(0, 101));
}

TEST(PlaceBeside, GoesToTheMiddleOfAWindowThatIsWideOrHigh) {
  EXPECT_EQ(Place({100, 50, 401, 300}, {100, 100}), QPoint(250, 150));
  EXPECT_EQ(Place({100, 50, 400, 300}, {100, 100}), QPoint(0, 50));
  EXPECT_EQ(Place({100, 50, 300, 501}, {100, 100}), QPoint(200, 250));
  EXPECT_EQ(Place({100, 50, 300, 500}, {100, 100}), QPoint(0, 50));
}

TEST(PlaceBeside, KeepsToTheScreenOfTheMainWindow) {
  const QRect second(1000, 0, 1000, 600);
  EXPECT_EQ(PlaceBeside({1100, 50, 200, 300}, {300, 100}, second, {7, 8}), QPoint(1300, 50));
}

}  // namespace
}  // namespace qublet
