#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/colours.h"
#include "settings/about/about_texts.h"
#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

class AboutTest : public testing::Test {
 protected:
  AboutTest() {
    setenv("QUBLET_SITE", "http://a.invalid/b&c", 1);
    window.Start();
  }
  ~AboutTest() override { unsetenv("QUBLET_SITE"); }

  void Open(const std::function<void(QWidget& form)>& look) {
    EXPECT_TRUE(WorkInModal([this] { window.Run("MHelpAbout"); }, look));
  }
  static QLabel& Label(const QWidget& form, const char* name) {
    return *form.findChild<QLabel*>(QString::fromUtf8(name));
  }
  static std::string Text(const QWidget& form, const char* name) { return Label(form, name).text().toStdString(); }

  MainWindow window;
};

TEST_F(AboutTest, SaysWhatTheProgramIs) {
  Open([](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "frmAbout");
    EXPECT_EQ(form.windowTitle().toStdString(), "About [Velmora] M3U Playlist Editor v2.1b");
    EXPECT_EQ(Text(form, "Label1"), form.windowTitle().toStdString());
    EXPECT_EQ(Text(form, "lblVersion"), VersionLine());
    EXPECT_EQ(Text(form, "lblDescription"),
              " If you require support, have feedback, or would like to suggest possible feature suggestions please "
              "visit the website.");
    EXPECT_EQ(form.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->text().toStdString(), "Sys &Info>");
  });
}

TEST_F(AboutTest, TheCreditsAndTheDotsWander) {
  Open([](QWidget& form) {
    const std::string credits = Credits(), dots = Dots();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text(form, "Text1").size() + 3 <= credits.size(); }, 2000));
    const std::string shown = Text(form, "Text1");
    EXPECT_TRUE(credits.ends_with(shown));
    EXPECT_EQ(dots.size() - Text(form, "Text2").size(), credits.size() - shown.size());
  });
}

TEST_F(AboutTest, TheAddressOpensTheSite) {
  Open([this](QWidget& form) {
    QLabel& site = Label(form, "lblWebsite");
    QTest::mouseClick(&site, Qt::LeftButton, Qt::NoModifier, QPoint(8, site.height() / 2));
    EXPECT_EQ(window.shell.addresses, std::vector<std::string>{"http://a.invalid/b&c"});
  });
}

TEST_F(AboutTest, TheAddressIsOpenedByTheKeyboardToo) {
  Open([this](QWidget& form) {
    QLabel& site = Label(form, "lblWebsite");
    form.findChild<QPushButton*>(QStringLiteral("cmdOK"))->setFocus();
    QTest::keyClick(form.windowHandle(), Qt::Key_Tab);
    ASSERT_TRUE(site.hasFocus());
    QTest::keyClick(&site, Qt::Key_Return);
    EXPECT_EQ(window.shell.addresses, std::vector<std::string>{"http://a.invalid/b&c"});
    EXPECT_TRUE(form.isVisible());
  });
}

TEST_F(AboutTest, SysInfoStartsTheSystemsTool) {
  window.fakes.machine_values = [](const std::string& key, const std::string& name) {
    const bool known = key == "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO" && name == "PATH";
    return known ? std::optional<MachineValue>({MachineValue::Kind::kText, "C:\\tool.exe"}) : std::nullopt;
  };
  Open([](QWidget& form) { form.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->click(); });
  EXPECT_EQ(window.shell.opened, std::vector<std::string>{"c:\\tool.exe"});
}

TEST_F(AboutTest, SysInfoSaysThatThereIsNone) {
  Open([](QWidget& form) { form.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->click(); });
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_EQ(window.dialogs.messages.front().text, "System Information Is Unavailable At This Time");
  EXPECT_EQ(window.dialogs.messages.front().icon, MessageIcon::kExclamation);
}

TEST_F(AboutTest, TheAddressCanBeReadOnADarkDesktop) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(0x35, 0x37, 0x3a), QColor(0x2b, 0x2d, 0x30)));
  Open([](QWidget& form) {
    QLabel& site = Label(form, "lblWebsite");
    const QColor background = site.palette().color(QPalette::Window);
    const QImage picture = site.grab().toImage();
    double best = 1;
    for (int x = 0; x < picture.width(); ++x) {
      for (int y = 0; y < picture.height(); ++y)
        best = std::max(best, Contrast(picture.pixelColor(x, y), background));
    }
    EXPECT_GE(best, 4.5);
  });
  QApplication::setPalette(before);
}

TEST_F(AboutTest, EscapeClosesIt) {
  Open([](QWidget& form) {
    QTest::keyClick(form.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
  });
}

TEST_F(AboutTest, TheEntryOfTheWebsiteOpensIt) {
  window.Run("MHelpWebsite");
  EXPECT_EQ(window.shell.addresses, std::vector<std::string>{"http://a.invalid/b&c"});
}

TEST_F(AboutTest, TheEntryOfTheReadMeFileOpensIt) {
  window.Run("MHelpReadme");
  EXPECT_TRUE(window.shell.opened.empty()) << "there is none";
  window.drives.Write("program/ReadMe.txt", "hello");
  window.Run("MHelpReadme");
  EXPECT_EQ(window.shell.opened, std::vector<std::string>{"c:\\program\\ReadMe.txt"});
}

}  // namespace
}  // namespace qublet
