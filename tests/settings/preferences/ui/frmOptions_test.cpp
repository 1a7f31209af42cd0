#include "settings/preferences/ui/frmOptions.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <set>

#include "playlist/paths/text.h"
#include "support/options_hand.h"
#include "support/preferences_test_base.h"

namespace qublet {
namespace {

class OptionsTest : public PreferencesTestBase {
 protected:
  OptionsHand& Open() {
    form_ = std::make_unique<frmOptions>(engine_, nullptr);
    form_->show();
    form_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    hand_.emplace(*form_);
    return *hand_;
  }
  void Close(const char* button) {
    hand_->Click(button);
    EXPECT_FALSE(form_->isVisible());
  }

  std::unique_ptr<frmOptions> form_;
  std::optional<OptionsHand> hand_;
};

const char* const kPages[] = {"General", "Appearance", "Playlist", "Elements",
                              "Misc",    "Interface",  "Startup",  "Prompting"};

std::string TreeOf(const QTreeWidgetItem& node, int depth) {
  std::string text;
  for (int i = 0; i < node.childCount(); ++i) {
    const QTreeWidgetItem& child = *node.child(i);
    text += std::string(static_cast<std::size_t>(depth), ' ') + child.text(0).toStdString() + "|" +
            child.data(0, Qt::UserRole).toString().toStdString() + (child.isExpanded() ? " expanded" : "") + "\n" +
            TreeOf(child, depth + 1);
  }
  return text;
}

TEST_F(OptionsTest, HaveATreeOfEightPages) {
  Open();
  EXPECT_EQ(form_->windowTitle().toStdString(), "Playlist Editor Preferences...");
  const auto& tree = hand_->Find<QTreeWidget>("OptionsTree");
  EXPECT_EQ(
      TreeOf(*tree.invisibleRootItem(), 0),
      "General|General expanded\nAppearance|Appearance expanded\n Playlist|PLV expanded\n Elements|GUE expanded\n"
      "Misc|Misc expanded\n Interface|INO expanded\n Startup|SUO expanded\nPrompting|Prompting expanded\n");
}

TEST_F(OptionsTest, ShowTheFirstPageAndThenTheOneThatIsClicked) {
  Open();
  EXPECT_EQ(hand_->PageCaption(), "General Options");
  std::string captions;
  for (const char* page : kPages) {
    hand_->Turn(page);
    captions += hand_->PageCaption() + "|";
    const auto& frames = hand_->Find<QStackedWidget>("frameOption");
    int shown = 0;
    for (int frame = 0; frame < frames.count(); ++frame) shown += frames.widget(frame)->isVisible() ? 1 : 0;
    EXPECT_EQ(shown, 1) << page;
    EXPECT_TRUE(frames.currentWidget()->isVisible()) << page;
  }
  EXPECT_EQ(captions,
            "General Options|Appearance|Playlist View|GUI Elements|Misc Options|Interface Options|Startup Options|"
            "Prompting|");
}

TEST_F(OptionsTest, TurnTheirPagesByTheKeyboard) {
  Open();
  EXPECT_EQ(QApplication::focusWidget(), &hand_->Find<QTreeWidget>("OptionsTree"));
  std::string captions;
  for (std::size_t page = 0; page < std::size(kPages); ++page) {
    captions += hand_->PageCaption() + "|";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  }
  EXPECT_EQ(captions,
            "General Options|Appearance|Playlist View|GUI Elements|Misc Options|Interface Options|Startup Options|"
            "Prompting|");
}

// The Tab key goes from the tree over what the page shows to the buttons, in the order in which one reads.
TEST_F(OptionsTest, LetTheTabKeyFollowTheEye) {
  Open();
  const std::pair<const char*, const char*> orders[] = {
      {"General", "chkUpdate chkRecentFullPath chkRecentPurge cmbRecentCount cmdDefault cmdFlushReg"},
      {"Appearance", ""},
      {"Playlist",
       "lblTestArea BackColorChange ForeColorChange FontChange chkShowGrid chkHotTracking schDefault schGreenLCD "
       "schBlueStudio schPastel schOldSkool schDJ schClear schLoad schSave"},
      {"Elements",
       "chkShowMenu chkShowStatusBar chkShowToolbar ToolbarFlat Toolbar3D ToolbarAlignBottom chkColumnVis0 "
       "chkColumnVis1 chkColumnVis2 chkColumnVis3 chkColumnVis4 chkColumnVis5 chkColumnVis6 chkColumnVis7 "
       "chkColumnVis8"},
      {"Misc", ""},
      {"Interface", "optSaveRel optPlaySel slideShuffleIntensity txtImportLoc Command1 txtSaveName"},
      {"Startup", "chkPlaylistRestore chkPlayPlaylist chkSaveSettings"},
      {"Prompting",
       "chkExtSortNag chkMissWarn chkPlaylistSize txtPlaylistSize chkPlaylistTime txtPlaylistTime chkPlaylistCount "
       "txtPlaylistCount"}};
  for (const auto& [page, controls] : orders) {
    hand_->Turn(page);
    hand_->Find<QTreeWidget>("OptionsTree").setFocus();
    QStringList order;
    do {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      order << QApplication::focusWidget()->objectName();
    } while (order.back() != u"OptionsTree" && order.size() < 30);
    EXPECT_EQ(order.join(u' ').toStdString(),
              std::string(controls) + (*controls != '\0' ? " " : "") + "cmdOK cmdApply CmdClose OptionsTree")
        << page;
  }
}

TEST_F(OptionsTest, HaveTheirButtonsAndTexts) {
  Open();
  for (const auto& [name, text] : std::vector<std::pair<const char*, const char*>>{{"cmdOK", "&Ok"},
                                                                                   {"cmdApply", "&Apply"},
                                                                                   {"CmdClose", "&Cancel"},
                                                                                   {"cmdDefault", "Restore Defaults"},
                                                                                   {"cmdFlushReg", "Flush Registry"},
                                                                                   {"FontChange", "Aa"},
                                                                                   {"Command1", ".."},
                                                                                   {"schLoad", "Load"},
                                                                                   {"schSave", "Save"}})
    EXPECT_EQ(hand_->Find<QPushButton>(name).text().toStdString(), text);
  const std::pair<const char*, const char*> texts[] = {
      {"Appearance",
       "These options specify parameters that will configure the look and feel of the program interface. Please "
       "click "
       "the sub-headings to view the available settings."},
      {"Misc",
       "These options specify startup and close macros, interface operations and program attributes. Please click "
       "the "
       "relevant sub-group to configure these."},
      {"Startup",
       "The open last playlist when Windows starts option will copy the last playlist into Windows startup..."},
      {"Startup",
       "If it is left unchecked, the last saved settings will be re-applied (Ideal for use with multiple "
       "instances)."},
      {"General",
       "NOTE: For settings made in this dialogue to be reloaded next time the program is run, the \"Save settings on "
       "exit\" option MUST be checked."},
      {"General", "Requires Internet Access and Microsoft Windows networking components installed."},
      {"General", "Recent files count:"},
      {"Prompting", "Show warning in statusbar if playlist exceeds:"},
      {"Prompting",
       "Thresholds can be used to indicate if the playlist will fit into a certain amount of time onto a CD-ROM of a "
       "certain capacity for example."},
      {"Playlist", "Background Color:"},
      {"Playlist", "Text Colour:"},
      {"Playlist", "Table Font:"},
      {"Interface", "Default Toolbar Button \"Save\" Action:"},
      {"Interface", "Shuffle Intensity:"},
      {"Interface", "Small"},
      {"Interface", "Large"},
      {"Interface", "Default import directory/folder:"},
      {"Interface", "Default Playlist Filename for Saving:"}};
  for (const auto& [page, text] : texts) {
    hand_->Turn(page);
    std::set<std::string> shown;
    for (const QLabel* label : hand_->Find<QStackedWidget>("frameOption").currentWidget()->findChildren<QLabel*>())
      shown.insert(label->text().toStdString());
    EXPECT_TRUE(shown.contains(text)) << page << ": " << text;
  }
}

// The caption of a control or of the label in front of it is the one that the table of settings has.
TEST_F(OptionsTest, BearTheCaptionsOfTheTable) {
  Open();
  int captions = 0;
  for (const SettingRow& row : SettingRows()) {
    for (const SettingControl& control : {row.place.control, row.place.other}) {
      if (control.name.empty()) continue;
      QWidget& widget = hand_->Find<QWidget>(control.name);
      std::string text = widget.accessibleName().toStdString();
      if (auto* button = qobject_cast<QAbstractButton*>(&widget); button != nullptr && text.empty())
        text = button->text().toStdString();
      for (const QLabel* label : form_->findChildren<QLabel*>()) {
        if (label->buddy() == &widget) text = label->text().toStdString();
      }
      EXPECT_EQ(text, control.caption) << control.name;
      ++captions;
    }
  }
  EXPECT_GT(captions, 45);
}

TEST_F(OptionsTest, ShowTheRecordAndPutItBackUnchanged) {
  AppSettings changed;
  for (const SettingRow& row : SettingRows()) {
    if (row.code == SettingCode::kInteger16 || row.code == SettingCode::kInteger32) {
      row.field.Set(changed, row.limits.least);
    } else if (row.code == SettingCode::kText) {
      row.field.Set(changed, std::string("text \u00E9"));
    }
  }
  changed.T = changed.L = changed.W = changed.H = 0;
  AppSettings defaults;
  LoadDefaultSettings(defaults, {});
  for (const AppSettings& record : {changed, defaults}) {
    Settings() = record;
    Open();
    hand_->Click("cmdApply");
    EXPECT_EQ(StoredSettings(Settings()), StoredSettings(record));
  }
  EXPECT_EQ(state_.applied, 2);
}

TEST_F(OptionsTest, StoreNothingUntilOkOrApply) {
  Open();
  const AppSettings before = Settings();
  hand_->Turn("Startup");
  hand_->Click("chkPlaylistRestore");
  hand_->Turn("Playlist");
  hand_->Click("schDJ");
  EXPECT_EQ(Settings(), before);
  Close("CmdClose");
  EXPECT_EQ(Settings(), before);
  EXPECT_EQ(state_.applied, 0);
}

TEST_F(OptionsTest, OkStoresAndCloses) {
  Open();
  hand_->Turn("Startup");
  hand_->Click("chkPlaylistRestore");
  Close("cmdOK");
  EXPECT_FALSE(Settings().RESPLAYLIST);
  EXPECT_EQ(state_.applied, 1);
}

TEST_F(OptionsTest, CancelAfterApplyKeepsWhatApplyDid) {
  Open();
  hand_->Turn("Startup");
  hand_->Click("chkPlaylistRestore");
  hand_->Click("cmdApply");
  EXPECT_TRUE(form_->isVisible());
  hand_->Click("chkSaveSettings");
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_FALSE(Settings().RESPLAYLIST);
  EXPECT_TRUE(Settings().V);
}

TEST_F(OptionsTest, DefaultsFollowedByCancelChangeNothing) {
  Settings().SHUFFLEINT = 9;
  Settings().BC = 1;
  Settings().RCount = 3;
  Open();
  const AppSettings before = Settings();
  Asked().answers = {MessageAnswer::kYes};
  hand_->Click("cmdDefault");
  EXPECT_EQ(hand_->Find<QSlider>("slideShuffleIntensity").value(), 1);
  EXPECT_EQ(hand_->Find<QComboBox>("cmbRecentCount").currentText().toStdString(), "10");
  Close("CmdClose");
  EXPECT_EQ(Settings(), before);
}

TEST_F(OptionsTest, DefaultsFollowedByOkAreTheSettings) {
  for (const SettingRow& row : SettingRows()) {
    if (row.code == SettingCode::kWord || row.code == SettingCode::kFlag)
      row.field.Set(Settings(), !std::get<bool>(row.field.Get(Settings())));
  }
  Settings().BC = Settings().FC = Settings().PLTCP = 5;
  Settings().DefSName = "%1";
  Settings().TV[3] = 77;
  Open();
  Asked().answers = {MessageAnswer::kYes};
  hand_->Click("cmdDefault");
  Close("cmdOK");
  AppSettings expected;
  LoadDefaultSettings(expected, {});
  expected.TV[3] = 77;
  EXPECT_EQ(Settings(), expected);
}

TEST_F(OptionsTest, DefaultsRefusedLeaveTheControls) {
  Open();
  hand_->Turn("Startup");
  hand_->Click("chkPlaylistRestore");
  Asked().answers = {MessageAnswer::kNo};
  hand_->Turn("General");
  hand_->Click("cmdDefault");
  EXPECT_FALSE(hand_->Ticked("chkPlaylistRestore"));
}

TEST_F(OptionsTest, FlushEndsTheProgramAndRefusedDoesNot) {
  Open();
  Asked().answers = {MessageAnswer::kOk, MessageAnswer::kNo};
  hand_->Click("cmdFlushReg");
  EXPECT_EQ(state_.ended_unsaved, 0);
  EXPECT_TRUE(form_->isVisible());
  Asked().answers = {MessageAnswer::kOk, MessageAnswer::kYes};
  hand_->Click("cmdFlushReg");
  EXPECT_EQ(state_.ended_unsaved, 1);
}

TEST_F(OptionsTest, NeverHideMenuAndToolbarBoth) {
  Open();
  hand_->Turn("Elements");
  hand_->Click("chkShowMenu");
  EXPECT_FALSE(hand_->Ticked("chkShowMenu"));
  EXPECT_TRUE(Asked().messages.empty());
  hand_->Click("chkShowToolbar");
  ASSERT_EQ(Asked().messages.size(), 1U);
  EXPECT_EQ(Asked().messages[0].text, "Either the Toolbar or Menu must be visible...");
  EXPECT_TRUE(hand_->Ticked("chkShowMenu"));
  EXPECT_FALSE(hand_->Ticked("chkShowToolbar"));
  hand_->Click("chkShowMenu");
  EXPECT_TRUE(hand_->Ticked("chkShowMenu"));
  EXPECT_EQ(Asked().messages.size(), 2U);
}

TEST_F(OptionsTest, OfferOneToTwentyRecentFilesAndTenShuffles) {
  Open();
  const auto& counts = hand_->Find<QComboBox>("cmbRecentCount");
  EXPECT_EQ(counts.count(), 20);
  EXPECT_EQ(counts.itemText(0).toStdString(), "1");
  EXPECT_EQ(counts.itemText(19).toStdString(), "20");
  EXPECT_EQ(counts.currentText().toStdString(), "10");
  EXPECT_EQ(hand_->Find<QSlider>("slideShuffleIntensity").minimum(), 1);
  EXPECT_EQ(hand_->Find<QSlider>("slideShuffleIntensity").maximum(), 10);
}

TEST_F(OptionsTest, KeepACountThatIsNotOnOffer) {
  Settings().RCount = 25;
  Open();
  auto& counts = hand_->Find<QComboBox>("cmbRecentCount");
  EXPECT_EQ(counts.placeholderText().toStdString(), "25");
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().RCount, 25);
  QTest::keyClick(&counts, Qt::Key_End);
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().RCount, 20);
}

TEST_F(OptionsTest, LeaveALimitThatIsNoNumber) {
  Open();
  hand_->Turn("Prompting");
  hand_->Type("txtPlaylistSize", "");
  hand_->Type("txtPlaylistTime", "2147483648");
  hand_->Type("txtPlaylistCount", "2147483647");
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().PLTSP, 120);
  EXPECT_EQ(Settings().PLTTP, 4800);
  EXPECT_EQ(Settings().PLTCP, 2147483647);
}

TEST_F(OptionsTest, TakeDigitsAloneInTheLimits) {
  Open();
  hand_->Turn("Prompting");
  for (const char* box : {"txtPlaylistSize", "txtPlaylistTime", "txtPlaylistCount"}) {
    hand_->Type(box, "-1x2.5");
    EXPECT_EQ(hand_->Text(box), "125") << box;
  }
}

TEST_F(OptionsTest, BrowseForTheImportFolder) {
  Settings().Idir = "c:\\old";
  Open();
  hand_->Turn("Interface");
  Asked().folders = {std::nullopt, "c:\\new"};
  hand_->Click("Command1");
  EXPECT_EQ(hand_->Text("txtImportLoc"), "c:\\old");
  hand_->Click("Command1");
  EXPECT_EQ(hand_->Text("txtImportLoc"), "c:\\new\\");
  EXPECT_EQ(Asked().browse_titles.back(), "Select Folder...");
  hand_->Type("txtImportLoc", "");
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().Idir, "");
}

}  // namespace
}  // namespace qublet
