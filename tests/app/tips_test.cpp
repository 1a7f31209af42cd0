#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/shown_text.h"
#include "support/main_window.h"
#include "support/modal_work.h"
#include "support/slow_file_system.h"

namespace qublet {
namespace {

constexpr int kPatience = 5000, kWhile = 700;  // milliseconds
constexpr int kPastTheFirst = 250;             // milliseconds; a start looks once whether a tip is wanted
constexpr const char* kTips = "one\r\n<b>two</b> & more\r\nthree\r\n";

class TipsTest : public testing::Test {
 protected:
  void WriteTips(const std::string& text) { window.drives.Write("program/QUBLET20.htd", text); }
  void Keep(const char* value) { window.store.SaveSetting("QUBLET2021", "Options", "Show Tips at Startup", value); }
  std::string Kept() { return window.store.GetSetting("QUBLET2021", "Options", "Show Tips at Startup"); }

  void Open(const std::function<void(QWidget& form)>& look) {
    window.Start();
    QTest::qWait(kPastTheFirst);
    window.main->activateWindow();
    ASSERT_TRUE(ComesForward(*window.main));
    EXPECT_TRUE(WorkInModal([this] { window.Run("MHelpTip"); }, look));
  }
  // Number and text on show, "2: two".
  static std::string Shown(const QWidget& form) {
    const auto& text = *form.findChild<QLabel*>(QStringLiteral("lblTipText"));
    EXPECT_EQ(text.textFormat(), Qt::PlainText);
    const auto& number = *form.findChild<QLineEdit*>(QStringLiteral("CurTip"));
    return number.text().toStdString() + ": " + WithoutBreaks(text.text()).toStdString();
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QAbstractButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }
  // Whether the tip comes up by itself within a while of a start.
  static bool ComesUp(const std::function<void()>& start, const std::function<void(QWidget& form)>& look,
                      int patience = kPatience) {
    bool looked = false;
    return WorkInModal(
        [&] {
          start();
          EXPECT_EQ(QTest::qWaitFor([&] { return looked; }, patience), looked);
        },
        [&](QWidget& form) {
          looked = true;
          look(form);
        });
  }
  bool ComesUpAgain(int patience) {
    return ComesUp([this] { window.Restart(); }, [](QWidget&) {}, patience);
  }

  MainWindow window;
};

TEST_F(TipsTest, TheEntryShowsARandomTip) {
  WriteTips(kTips);
  window.random.otherwise = 0.9;
  Open([](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "frmTip");
    EXPECT_EQ(form.windowTitle().toStdString(), "Tip of the Day");
    EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("Label1"))->text().toStdString(), "Tips and Hints...");
    EXPECT_EQ(Shown(form), "3: three");
  });
}

TEST_F(TipsTest, TipsArePlainText) {
  WriteTips(kTips);
  window.random.otherwise = 0.5;
  Open([](QWidget& form) { EXPECT_EQ(Shown(form), "2: <b>two</b> & more"); });
}

TEST_F(TipsTest, TheButtonsStepAndDraw) {
  WriteTips(kTips);
  Open([&](QWidget& form) {
    EXPECT_EQ(Shown(form), "1: one");
    Click(form, "CmdPrev");
    EXPECT_EQ(Shown(form), "3: three");
    Click(form, "CmdNext");
    EXPECT_EQ(Shown(form), "1: one");
    window.random.otherwise = 0.99;
    QTest::keyClick(form.windowHandle(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(form) == "3: three"; }));
    Click(form, "cmdOK");
    EXPECT_FALSE(form.isVisible());
  });
}

TEST_F(TipsTest, NothingMovesFromTipToTip) {
  WriteTips("short\n" + std::string(300, 'x') + "\n");
  Open([](QWidget& form) {
    const auto* button = form.findChild<QPushButton*>(QStringLiteral("CmdNext"));
    const QRect before(button->mapToGlobal(QPoint()), form.size());
    Click(form, "CmdNext");
    QCoreApplication::processEvents();
    EXPECT_EQ(QRect(button->mapToGlobal(QPoint()), form.size()), before);
  });
}

TEST_F(TipsTest, ComingBackFromAnotherProgramKeepsTheTip) {
  WriteTips(kTips);
  Open([&](QWidget& form) {
    window.random.otherwise = 0.99;
    QEvent gone(QEvent::WindowDeactivate), back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &gone);
    QCoreApplication::sendEvent(&form, &back);
    EXPECT_EQ(Shown(form), "1: one");
  });
}

TEST_F(TipsTest, EachClickOnTheTickIsKeptAtOnce) {
  Open([this](QWidget& form) {
    const auto& tick = *form.findChild<QCheckBox*>(QStringLiteral("chkLoadTipsAtStartup"));
    EXPECT_EQ(tick.text().toStdString(), "&Show Tips at Startup");
    EXPECT_FALSE(tick.isChecked());
    for (const char* kept : {"1", "0"}) {
      QTest::keyClick(form.windowHandle(), Qt::Key_S, Qt::AltModifier);
      EXPECT_TRUE(QTest::qWaitFor([&] { return Kept() == kept; }));
    }
  });
}

TEST_F(TipsTest, WithoutItsFileTheWindowSaysSo) {
  Open([](QWidget& form) {
    for (const char* button : {"CmdNext", "CmdPrev", "cmdNextTip"}) Click(form, button);
    EXPECT_EQ(Shown(form),
              ": Cannot find the Tip-Of-Day Data File. Please reinstall the application if you wish to "
              "use this feature.");
  });
}

TEST_F(TipsTest, AnEmptyFileHurtsNobody) {
  WriteTips("");
  Open([](QWidget& form) {
    for (const char* button : {"CmdNext", "CmdPrev", "cmdNextTip"}) Click(form, button);
    EXPECT_FALSE(Shown(form).starts_with(": Cannot"));
  });
}

TEST_F(TipsTest, AStartShowsOneUnlessTold) {
  WriteTips(kTips);
  window.store.applications.clear();
  EXPECT_TRUE(ComesUp([this] { window.Start(); },
                      [](QWidget& form) {
                        EXPECT_EQ(form.objectName().toStdString(), "frmTip");
                        EXPECT_TRUE(form.findChild<QCheckBox*>(QStringLiteral("chkLoadTipsAtStartup"))->isChecked());
                        Click(form, "chkLoadTipsAtStartup");
                      }));
  EXPECT_EQ(Kept(), "0");
  EXPECT_FALSE(ComesUpAgain(kWhile));
  Keep("1");
  EXPECT_TRUE(ComesUpAgain(kPatience));
  Keep("2");
  EXPECT_FALSE(ComesUpAgain(kWhile));
}

TEST_F(TipsTest, ItWaitsForTheFilesOfTheCommandLine) {
  MainWindow slow([] { return std::make_unique<SlowFileSystem>(std::chrono::milliseconds(100)); });
  std::string list;
  for (int i = 10; i < 20; ++i) {
    slow.drives.Write(std::to_string(i) + ".mp3", kNoise);
    list += "c:\\" + std::to_string(i) + ".mp3\r\n";
  }
  slow.drives.Write("list.m3u", list);
  slow.store.applications.clear();
  EXPECT_TRUE(
      ComesUp([&] { slow.Start("\"c:\\list.m3u\""); }, [&](QWidget&) { EXPECT_EQ(slow.Rows().Count(), 10); }));
}

}  // namespace
}  // namespace qublet
