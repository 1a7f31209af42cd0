#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>

#include "generators/autocreate/ui/AutoCreateWizard.h"
#include "platform/qt/qt_dialogs.h"
#include "playlist/ui/PlaylistStats.h"
#include "settings/preferences/ui/frmOptions.h"
#include "support/main_window.h"
#include "tools/search/ui/frmSearch.h"

namespace qublet {
namespace {

// Windows on a screen of 1280 by 800, or of half of that in the toolkit's own pixels at 200 %, under a window
// manager.
class SmallScreen : public testing::Test {
 protected:
  SmallScreen() { window.Start(); }

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
    const QSize screen = window.main->screen()->size();
    ASSERT_TRUE(screen == QSize(1280, 800) || screen == QSize(640, 400))
        << screen.width() << " by " << screen.height();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.main));
  }

  // Looks at the modal window once it has come to rest, then closes it.
  template <typename Window, typename Look>
  void WhenOpen(Look look) {
    QTimer::singleShot(1000, window.main, [this, look] {
      auto* modal = qobject_cast<Window*>(QApplication::activeModalWidget());
      ASSERT_NE(modal, nullptr);
      const QRect screen = modal->screen()->availableGeometry();
      const QRect stands = modal->frameGeometry();
      // At 200 % a frame of an odd width is half a pixel out.
      EXPECT_TRUE(screen.adjusted(0, 0, 1, 1).contains(stands))
          << stands.x() << ' ' << stands.y() << ' ' << stands.width() << ' ' << stands.height();
      looked = true;
      look(*modal);
      modal->reject();
    });
  }
  static bool IsInside(const QWidget& part, const QWidget& window) {
    return window.rect().contains(QRect(part.mapTo(&window, QPoint()), part.size()));
  }

  // As long as file systems allow, without a place to break.
  static std::string LongName() { return std::string(180, 'x') + "<b>&amp;" + std::string(50, 'W') + ".m3u"; }

  MainWindow window;
  bool looked = false;
};

TEST_F(SmallScreen, HoldsThePropertiesOfAPlaylistWithALongNameInALongFolder) {
  window.associations.program = {"c:\\" + std::string(250, 'p'), std::string(250, 'p'), true};
  std::string folder;
  for (int i = 0; i < 3; ++i) folder += std::string(220, static_cast<char>('a' + i)) + "/";
  window.drives.Write(folder + "1.mp3", kNoise);
  for (char& letter : folder) letter = letter == '/' ? '\\' : letter;
  window.Add("c:\\" + folder + "1.mp3");
  window.dialogs.save_names = {"c:\\" + folder + LongName()};
  window.Run("MFileSaveAs");
  ASSERT_NE(window.Caption().find("WWW"), std::string::npos);

  for (const QPoint place : {QPoint(60, 60), QPoint(9000, 9000)}) {
    const QRect screen = window.main->screen()->availableGeometry();
    window.main->resize(window.main->minimumSize());
    window.main->move(std::min(place.x(), screen.width() / 2), std::min(place.y(), screen.height() / 2));
    QTest::qWait(300);
    looked = false;
    WhenOpen<PlaylistStats>([&](PlaylistStats& stats) {
      auto* close = stats.findChild<QPushButton*>("cmdClose");
      EXPECT_TRUE(IsInside(*close, stats));
      const auto* page = stats.findChild<QScrollArea*>("GeneralPage");
      // What doesn't fit can be scrolled to, down only.
      const int hidden = page->widget()->height() - page->viewport()->height();
      EXPECT_EQ(page->verticalScrollBar()->maximum(), std::max(0, hidden));
      EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0);
    });
    window.Run("MViewDetails");
    EXPECT_TRUE(looked);
  }
}

TEST_F(SmallScreen, HoldsThePreferencesOnEveryPage) {
  WhenOpen<frmOptions>([](frmOptions& form) {
    auto& tree = *form.findChild<QTreeWidget*>("OptionsTree");
    const auto& area = *form.findChild<QScrollArea*>("PageArea");
    for (tree.setCurrentItem(tree.topLevelItem(0)); tree.itemBelow(tree.currentItem()) != nullptr;
         tree.setCurrentItem(tree.itemBelow(tree.currentItem()))) {
      QCoreApplication::processEvents();
      for (const char* button : {"cmdOK", "cmdApply", "CmdClose"})
        EXPECT_TRUE(IsInside(*form.findChild<QPushButton*>(button), form)) << button;
      EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0) << tree.currentItem()->text(0).toStdString();
    }
  });
  window.Run("MToolOptions");
  EXPECT_TRUE(looked);
}

TEST_F(SmallScreen, HoldsTheSearch) {
  window.drives.Write("a.mp3", kNoise);
  window.Add("c:\\a.mp3");
  WhenOpen<frmSearch>([](frmSearch& form) {
    for (const QPushButton* button : form.findChildren<QPushButton*>()) EXPECT_TRUE(IsInside(*button, form));
  });
  window.Run("MToolsSearch");
  EXPECT_TRUE(looked);
}

TEST_F(SmallScreen, HoldsEveryStepOfTheWizardForPlaylists) {
  window.drives.Write("a.mp3", kNoise);
  window.Add("c:\\a.mp3");
  WhenOpen<AutoCreateWizard>([](AutoCreateWizard& form) {
    for (int step = 0; step < 4; ++step) {
      for (const char* button : {"CmdBack", "CmdNext", "CmdClose"})
        EXPECT_TRUE(IsInside(*form.findChild<QPushButton*>(button), form)) << button << " in step " << step;
      form.findChild<QPushButton*>("CmdNext")->click();
    }
    EXPECT_TRUE(IsInside(*form.findChild<QPushButton*>("cmdUndo"), form));
  });
  window.Run("MToolsM3UWiz");
  EXPECT_TRUE(looked);
}

TEST_F(SmallScreen, HoldsAQuestionAboutAVeryLongPathWithItsName) {
  QtDialogs dialogs(window.main, *window.files, QStringLiteral("title"), {});
  std::string path = "c:\\";
  for (int i = 0; i < 16; ++i) path += std::string(250, static_cast<char>('a' + i)) + "\\";
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    EXPECT_TRUE(box.text().contains(QStringLiteral("the end.m3u exists")));
    for (const QPushButton* button : box.findChildren<QPushButton*>()) EXPECT_TRUE(IsInside(*button, box));
  });
  dialogs.ShowMessage(path + "the end.m3u exists, do you want to replace it?", MessageIcon::kQuestion,
                      MessageButtons::kYesNoCancel);
  EXPECT_TRUE(looked);
}

}  // namespace
}  // namespace qublet
