#include "media/editor/ui/form_box.h"

#include <gtest/gtest.h>

#include <QTest>

namespace qublet {
namespace {

// What a toolkit's box doesn't give back as it was given.
const std::string kOdd[] = {"a\r\nb\rc\nd",
                            "no\xC2\xA0"
                            "break",
                            "\xE2\x80\xA8line",
                            "broken \xFF byte",
                            "",
                            "tab\tbed"};

TEST(FormBox, GivesAnUntouchedTextBackByteForByte) {
  QLineEdit line;
  QPlainTextEdit text;
  QComboBox combo;
  combo.setEditable(true);
  combo.addItems({QStringLiteral("Rock"), QStringLiteral("Blues")});
  FormBox boxes[] = {FormBox(line), FormBox(text), FormBox(combo)};
  for (const std::string& odd : kOdd) {
    for (FormBox& box : boxes) {
      box.Show(odd);
      EXPECT_EQ(box.Text(), odd);
      box.Show("Rock");
      EXPECT_EQ(box.Text(), "Rock");
    }
  }
}

TEST(FormBox, GivesWhatTheUserHasWritten) {
  QLineEdit line;
  FormBox box(line);
  box.Show("One");
  line.setText(QStringLiteral("Zwei é"));
  EXPECT_EQ(box.Text(), "Zwei é");
  box.Show("One");
  EXPECT_EQ(line.text().toStdString(), "One");
  EXPECT_EQ(line.cursorPosition(), 0);
}

TEST(FormBox, ShowsAGenreThatIsInTheListAndOneThatIsNot) {
  QComboBox combo;
  combo.setEditable(true);
  combo.addItems({QString(), QStringLiteral("Blues"), QStringLiteral("Rock")});
  FormBox box(combo);
  box.Show("Rock");
  EXPECT_EQ(combo.currentIndex(), 2);
  box.Show("(17)rock");
  EXPECT_EQ(combo.currentText().toStdString(), "(17)rock");
  box.Show("");
  EXPECT_EQ(combo.currentText().toStdString(), "");
}

}  // namespace
}  // namespace qublet
