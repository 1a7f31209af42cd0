#include <gtest/gtest.h>

#include <QComboBox>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>

#include "platform/qt/BrowseForm.h"
#include "support/help_book.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

class HelpTest : public testing::Test {
 protected:
  HelpTest() {
    window.drives.Write("m/a.mp3", kNoise);
    window.drives.Write("list.m3u", "c:\\m\\a.mp3\r\n");
    window.Start("\"c:\\list.m3u\"");
    window.main->activateWindow();
  }

  // F1 as the window system sends it to the window.
  static void PressF1(QWidget& form) { QTest::keyClick(form.windowHandle(), Qt::Key_F1); }

  // Presses F1 in the modal window that a command opens, and tells the title of the page that is shown then.
  std::string TitleInModal(const char* command) {
    std::string title = "no help";
    EXPECT_TRUE(WorkInModal([&] { window.Run(command); },
                            [&](QWidget& form) {
                              PressF1(form);
                              QWidget* help = ShownHelp();
                              if (help == nullptr) return;
                              title = ComesForward(*help) ? help->windowTitle().toStdString() : "not in front";
                              help->close();
                            }));
    return title;
  }

  MainWindow window;
};

TEST_F(HelpTest, F1OpensTheContentsFromTheMainWindow) {
  PutBookInto(window);
  ASSERT_TRUE(ComesForward(*window.main));
  PressF1(*window.main);
  EXPECT_TRUE(HelpShows("Contents"));
}

TEST_F(HelpTest, TheWindowIsWholeOnTheScreenWhereverTheMainOneIs) {
  PutBookInto(window);
  const QRect screen = window.main->screen()->availableGeometry();
  window.main->move(screen.center());
  QCoreApplication::processEvents();
  window.Run("MHelpHelp");
  ASSERT_TRUE(HelpShows("Contents"));
  EXPECT_TRUE(screen.contains(ShownHelp()->geometry())) << ShownHelp()->x() << ", " << ShownHelp()->y();
}

TEST_F(HelpTest, TheQuickGuideOpensTheContentsToo) {
  PutBookInto(window);
  window.Run("MHelpQuickguide");
  EXPECT_TRUE(HelpShows("Contents"));
}

TEST_F(HelpTest, NothingHappensWithoutABook) {
  window.Run("MHelpHelp");
  window.Run("MHelpQuickguide");
  EXPECT_EQ(TitleInModal("MToolsSearch"), "no help");
  EXPECT_EQ(ShownHelp(), nullptr);
  EXPECT_TRUE(window.dialogs.messages.empty());
}

TEST_F(HelpTest, F1OpensThePageOfEachModalWindow) {
  PutBookInto(window);
  window.Rows().SetSelected(1, true);
  emit window.List().rowsSelected();
  const std::pair<const char*, const char*> pages[] = {
      {"MViewDetails", "Playlist properties"},
      {"MEditId3", "The tag editor"},
      {"MToolsSearch", "Searching the list"},
      {"MToolsFilter", "Duplicates and missing items"},
      {"MToolsRename", "Renaming files by rules"},
      {"MToolsReport", "Writing a report"},
      {"MToolsM3UWiz", "A playlist for each folder"},
      {"MToolsMP3CDWiz", "Preparing a music disc"},
      {"MToolsBookmarkAdd", "Bookmarks"},
      {"MToolOptions", "Preferences"},
  };
  for (const auto& [command, title] : pages) EXPECT_EQ(TitleInModal(command), std::string(title) + " - Help");
}

TEST_F(HelpTest, F1OpensThePageOfAWindowBesideTheMainOne) {
  PutBookInto(window);
  window.Run("MToolsBookmarkImport");
  auto& form = *window.main->findChild<QDialog*>("BookmarksWizard");
  ASSERT_TRUE(ComesForward(form));
  PressF1(form);
  EXPECT_TRUE(HelpShows("Bookmarks"));
}

TEST_F(HelpTest, AMessageHasThePageOfItsWindow) {
  PutBookInto(window);
  BrowseForm browser(QStringLiteral("Select"), {}, {}, window.main);
  browser.show();
  QMessageBox message(&browser);
  message.open();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&message));
  PressF1(message);
  EXPECT_TRUE(HelpShows("Choosing a file or folder"));
  message.close();
}

TEST_F(HelpTest, ThePageOfTheHelpItselfIsOneKeyAway) {
  PutBookInto(window);
  window.Run("MHelpHelp");
  ASSERT_TRUE(ComesForward(*ShownHelp()));
  PressF1(*ShownHelp());
  EXPECT_TRUE(HelpShows("Reading this help"));
}

TEST_F(HelpTest, LeavesTheMainWindowTheOneNativeWindowThatItIs) {
  PutBookInto(window);
  window.Run("MHelpHelp");
  EXPECT_EQ(window.List().internalWinId(), WId{});
}

TEST_F(HelpTest, EveryPageOfTheBookOpens) {
  PutBookInto(window);
  window.Run("MHelpHelp");
  auto& browser = *ShownHelp()->findChild<QTextBrowser*>();
  const QDir pages(QString::fromStdString((window.drives.C() / "program" / "help").string()));
  const QStringList names = pages.entryList({QStringLiteral("*.html")});
  ASSERT_GT(names.size(), 30);
  for (const QString& name : names) {
    emit browser.anchorClicked(QUrl(QStringLiteral("help/") + name));
    EXPECT_EQ(browser.source().fileName(), name);
    window.Run("MHelpHelp");
  }
}

TEST_F(HelpTest, TheHelpClosesWithTheProgram) {
  PutBookInto(window);
  window.Run("MHelpHelp");
  const QPointer<QWidget> help = ShownHelp();
  ASSERT_FALSE(help.isNull());
  window.program.reset();
  EXPECT_TRUE(help.isNull());
}

TEST_F(HelpTest, AToolDoesNotTakeTheReaderForSomebodyWhoComesBack) {
  PutBookInto(window);
  EXPECT_TRUE(WorkInModal([&] { window.Run("MToolsSearch"); },
                          [&](QWidget& form) {
                            auto& box = *form.findChild<QComboBox*>("txtSearch");
                            QTest::keyClicks(&box, QStringLiteral("mp3"));
                            QTest::keyClick(&box, Qt::Key_Return);
                            PressF1(form);
                            EXPECT_TRUE(ComesForward(*ShownHelp()));
                            ShownHelp()->close();
                            form.activateWindow();
                            EXPECT_TRUE(ComesForward(form));
                            EXPECT_EQ(form.windowTitle(), QStringLiteral("Found: 1 Items."));
                          }));
}

}  // namespace
}  // namespace qublet
