#include "desk/report_line.h"

#include <gtest/gtest.h>

#include <QTest>

namespace qublet {
namespace {

class ReportLineTest : public testing::Test {
 protected:
  ReportLineTest() {
    line.resize(200, 20);
    line.show();
  }

  ReportLine line;
};

TEST_F(ReportLineTest, ShowsAShortTextAsItIs) {
  line.Report(QStringLiteral("Done: 3/5 <b>"));
  EXPECT_EQ(line.text(), QStringLiteral("Done: 3/5 <b>"));
  EXPECT_EQ(line.textFormat(), Qt::PlainText);
  EXPECT_TRUE(line.toolTip().isEmpty());
}

TEST_F(ReportLineTest, CutsALongTextInTheMiddleAndKeepsItWholeInTheTip) {
  const QString path = QStringLiteral("c:\\") + QString(200, u'x') + QStringLiteral("\\<img src=a>.mp3");
  line.Report(path);
  EXPECT_TRUE(line.text().contains(QChar(0x2026)));
  EXPECT_TRUE(line.text().endsWith(QStringLiteral(".mp3")));
  EXPECT_EQ(line.toolTip(), QStringLiteral("<p>%1</p>").arg(path.toHtmlEscaped()));
  EXPECT_EQ(line.accessibleName(), path);
  line.resize(4000, 20);
  EXPECT_EQ(line.text(), path);
}

TEST_F(ReportLineTest, IsToldToScreenReadersAtMostTenTimesASecondAndTheLastTextAlways) {
  for (int i = 0; i < 50; ++i) line.Report(QString::number(i));
  EXPECT_EQ(line.text(), QStringLiteral("49"));
  EXPECT_EQ(line.accessibleName(), QStringLiteral("0"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return line.accessibleName() == QStringLiteral("49"); }, 1000));
}

}  // namespace
}  // namespace qublet
