#include <QFontDialog>
#include <QStatusBar>
#include <map>

#include "desk/report_line.h"
#include "settings/preferences/ui/option_controls.h"
#include "support/options_test_base.h"

namespace qublet {
namespace {

constexpr int kSettled = 500;  // milliseconds: a window manager has a word in where a window stands

const char* NodeOf(SettingPage page) {
  static const std::map<SettingPage, const char*> kNodes{
      {SettingPage::kGeneral, "General"},   {SettingPage::kPlaylistView, "Playlist"},
      {SettingPage::kElements, "Elements"}, {SettingPage::kInterface, "Interface"},
      {SettingPage::kStartup, "Startup"},   {SettingPage::kPrompting, "Prompting"}};
  return kNodes.at(page);
}

// What becomes of the settings that were changed in the preferences: stored with "Save settings on exit", and there
// again after a restart. What isn't theirs stays as it is.
class PreferencesKept : public OptionsTestBase {
 protected:
  // Gives the control another value, as a user does.
  static void Touch(const OptionsHand& hand, const SettingRow& row) {
    auto& control = hand.Find<QWidget>(row.place.control.name);
    if (qobject_cast<QCheckBox*>(&control) != nullptr) hand.Click(row.place.control.name);
    if (qobject_cast<QRadioButton*>(&control) != nullptr)
      hand.Click(hand.Ticked(row.place.control.name) ? row.place.other.name : row.place.control.name);
    if (qobject_cast<QComboBox*>(&control) != nullptr) QTest::keyClick(&control, Qt::Key_End);
    if (qobject_cast<QSlider*>(&control) != nullptr) QTest::keyClick(&control, Qt::Key_End);
    if (qobject_cast<QLineEdit*>(&control) != nullptr)
      hand.Type(row.place.control.name, row.code == SettingCode::kText ? "c:\\mine" : "77");
  }
  // All but those in `without`.
  static void TouchAll(const OptionsHand& hand, QWidget& form, const std::vector<std::string_view>& without) {
    hand.Turn("Playlist");
    hand.Click("schPastel");
    QTimer::singleShot(0, &form, [] {
      auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      QFont font(QStringLiteral("DejaVu Sans"), 14, QFont::Bold, true);
      font.setStrikeOut(true);
      font.setUnderline(true);
      dialog->setCurrentFont(font);
      dialog->accept();
    });
    hand.Click("FontChange");
    for (const SettingRow& row : SettingRows()) {
      if (row.place.page == SettingPage::kNone || std::ranges::count(without, row.key) > 0) continue;
      hand.Turn(NodeOf(row.place.page));
      Touch(hand, row);
    }
  }
  QRect PlaceOfMain() const { return {window.main->pos(), window.main->size()}; }
};

TEST_F(PreferencesKept, EveryControlIsStoredAndThereAgainAfterARestart) {
  const std::vector<std::string_view> without{"TA", "V"};  // else nothing would be stored, or the menu comes back
  const AppSettings before = *window.settings;
  Open([&](const OptionsHand& hand, QWidget& form) {
    TouchAll(hand, form, without);
    hand.Click("cmdOK");
  });
  const AppSettings changed = *window.settings;
  Restart();
  int seen = 0;
  for (const SettingRow& row : SettingRows()) {
    if (row.place.page == SettingPage::kNone || std::ranges::count(without, row.key) > 0) continue;
    EXPECT_NE(row.field.Get(changed), row.field.Get(before)) << row.key;
    EXPECT_EQ(Stored(row.section, row.key), WriteSetting(row, row.field.Get(changed))) << row.key;
    EXPECT_EQ(row.field.Get(*window.settings), row.field.Get(changed)) << row.key;
    ++seen;
  }
  EXPECT_GT(seen, 40);
  Open([&](const OptionsHand& hand, QWidget& form) {
    for (const SettingRow& row : SettingRows()) {
      if (row.place.page == SettingPage::kNone) continue;
      EXPECT_EQ(ShownOption(form, row).value_or(row.field.Get(changed)), row.field.Get(changed)) << row.key;
    }
    EXPECT_EQ(hand.Find<ReportLine>("FontText").Reported().toStdString(), "DejaVu Sans 14");
    EXPECT_EQ(hand.Find<QPushButton>("BackColorChange").text().toStdString(), "#E8E8FF");
  });
}

TEST_F(PreferencesKept, WithoutSavingTheLastSavedOnesComeBack) {
  Click("Elements", "chkShowToolbar");
  Restart();
  Open([](const OptionsHand& hand, QWidget& form) {
    hand.Turn("Startup");
    hand.Click("chkSaveSettings");
    TouchAll(hand, form, {"TA", "V", "Visible"});
    hand.Click("cmdOK");
  });
  const int saves = window.store.saves;
  const std::string grid = Stored("SSE", "GRID");
  EXPECT_TRUE(window.settings->GRID) << "until the end";
  Restart();
  EXPECT_GT(window.store.saves, saves) << "the recent files are kept all the same";
  EXPECT_EQ(Stored("SSE", "GRID"), grid);
  EXPECT_EQ(Stored("SSE", "V"), "1");
  EXPECT_FALSE(window.settings->GRID);
  EXPECT_FALSE(window.settings->TA) << "what was saved before";
}

TEST_F(PreferencesKept, CancelAfterApplyKeepsWhatApplyDid) {
  Open([](const OptionsHand& hand, QWidget&) {
    hand.Turn("Playlist");
    hand.Click("schPastel");
    hand.Click("cmdApply");
    hand.Click("schDJ");
    hand.Click("CmdClose");
  });
  EXPECT_EQ(window.List().palette().color(QPalette::Base), QColor(0xE8, 0xE8, 0xFF));
  Restart();
  EXPECT_EQ(window.settings->BC, 0xFFE8E8);
}

TEST_F(PreferencesKept, ApplyMovesNothingAndResetsNoWidth) {
  window.main->move(93, 141);
  window.main->resize(611, 377);
  window.List().setColumnWidth(kPath, 234);
  QTest::qWait(kSettled);
  const QRect before = PlaceOfMain();
  Open([](const OptionsHand& hand, QWidget&) {
    hand.Click("cmdApply");
    hand.Click("cmdOK");
  });
  EXPECT_EQ(PlaceOfMain(), before);
  EXPECT_EQ(window.List().columnWidth(kPath), 234);
}

// A place is kept in 16 bits: what is farther out can't be.
TEST_F(PreferencesKept, ApplyMovesNothingFarOutEither) {
  window.main->move(2500, 141);
  window.main->resize(2300, 377);
  QTest::qWait(kSettled);
  const QRect before = PlaceOfMain();
  Open([](const OptionsHand& hand, QWidget&) { hand.Click("cmdApply"); });
  EXPECT_EQ(PlaceOfMain(), before);
}

TEST_F(PreferencesKept, ApplyLeavesAMaximisedWindowMaximised) {
  window.main->showMaximized();
  QTest::qWait(kSettled);
  const QRect before = PlaceOfMain();
  Open([](const OptionsHand& hand, QWidget&) { hand.Click("cmdApply"); });
  EXPECT_TRUE(window.main->isMaximized());
  EXPECT_EQ(PlaceOfMain(), before);
}

TEST_F(PreferencesKept, ApplyBringsBackNoBarThatTheViewMenuHid) {
  window.Run("MViewStatusBar");
  window.Run("MViewToolbar");
  Open([](const OptionsHand& hand, QWidget&) {
    hand.Turn("Elements");
    EXPECT_FALSE(hand.Ticked("chkShowStatusBar"));
    EXPECT_FALSE(hand.Ticked("chkShowToolbar"));
    hand.Click("cmdApply");
  });
  EXPECT_TRUE(window.main->findChild<QStatusBar*>()->isHidden());
  EXPECT_TRUE(window.main->findChild<Toolbar*>()->isHidden());
}

TEST_F(PreferencesKept, AColumnThatIsHiddenKeepsItsWidthForTheNextSession) {
  window.List().setColumnWidth(kBitrate, 171);
  Click("Elements", "chkColumnVis6");
  Restart();
  EXPECT_TRUE(window.List().isColumnHidden(kBitrate));
  Click("Elements", "chkColumnVis6");
  EXPECT_EQ(window.List().columnWidth(kBitrate), 171);
}

TEST_F(PreferencesKept, AStoreThatHidesMenuAndToolbarLeavesAProgramThatCanBeOperated) {
  window.main->close();
  window.store.SaveSettings("QUBLET2021", {{"Menu", "Visible", "False"}, {"VE", "TA", "0"}});
  window.Restart();
  ASSERT_TRUE(window.main->findChild<QMenu*>(QStringLiteral("MTools"))->menuAction()->isVisible());
  Open([](const OptionsHand& hand, QWidget&) {
    hand.Turn("Elements");
    EXPECT_TRUE(hand.Ticked("chkShowMenu"));
    hand.Click("chkShowToolbar");
    hand.Click("cmdOK");
  });
  EXPECT_FALSE(window.main->findChild<Toolbar*>()->isHidden());
}

TEST_F(PreferencesKept, FlushEndsTheProgramAndStoresNothing) {
  int ended = 0;
  QObject::connect(window.main, &Main::ended, window.main, [&] { ++ended; });
  window.main->close();
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(Stored("RF", "20"), "c:\\list.m3u");
  EXPECT_FALSE(window.drives.Read("program/last.m3u").empty());
  window.drives.Write("program/tmp.txt", "x");
  const std::vector<Setting> stored = window.store.AllSettings("QUBLET2021");
  window.dialogs.answers = {MessageAnswer::kOk, MessageAnswer::kYes};
  Open([&](const OptionsHand& hand, QWidget&) {
    hand.Turn("Playlist");
    hand.Click("schDJ");
    hand.Click("cmdApply");
    hand.Turn("General");
    hand.Click("cmdFlushReg");
  });
  EXPECT_EQ(ended, 2);
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/last.m3u"));
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/tmp.txt"));
  for (const Setting& setting : stored) {
    const bool recent = setting.section == "RF" && setting.key != "W" && setting.key != "Wkdir";
    EXPECT_EQ(Stored(setting.section, setting.key), recent ? "" : setting.value) << setting.key;
  }
}

}  // namespace
}  // namespace qublet
