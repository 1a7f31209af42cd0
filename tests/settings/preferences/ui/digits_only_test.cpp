#include "settings/preferences/ui/digits_only.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

namespace qublet {
namespace {

class DigitsOnlyTest : public testing::Test {
 protected:
  DigitsOnlyTest() { box.setValidator(new DigitsOnly(&box)); }
  void Paste(const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    box.paste();
  }

  QLineEdit box;
};

TEST_F(DigitsOnlyTest, TakesDigitsAndBackspace) {
  QTest::keyClicks(&box, QStringLiteral("1a2.-+ e3"));
  EXPECT_EQ(box.text().toStdString(), "123");
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(box.text().toStdString(), "12");
}

TEST_F(DigitsOnlyTest, FiltersWhatIsPasted) {
  Paste("1,234 MB\n5");
  EXPECT_EQ(box.text().toStdString(), "12345");
  Paste("none \u0663");
  EXPECT_EQ(box.text().toStdString(), "12345");
}

TEST_F(DigitsOnlyTest, PutsTheCursorBehindWhatWasPasted) {
  box.setText(QStringLiteral("19"));
  box.setCursorPosition(1);
  Paste("x2y3z");
  EXPECT_EQ(box.text().toStdString(), "1239");
  EXPECT_EQ(box.cursorPosition(), 3);
}

}  // namespace
}  // namespace qublet
