#include <gtest/gtest.h>

#include "support/filter_form_test_base.h"

namespace qublet {
namespace {

constexpr const char* kNone = "Done: No items were restored...";

class FilterFormTest : public FilterFormTestBase {
 protected:
  std::string Entries(const char* list) {
    std::string text;
    for (int row = 0; row < Find<QComboBox>(list).count(); ++row)
      text += (row > 0 ? "|" : "") + Find<QComboBox>(list).itemText(row).toStdString();
    return text;
  }
  std::string Selection() { return SelectionOf(Rows()); }
};

TEST_F(FilterFormTest, HasTheTabsAndTheCaption) {
  Open();
  EXPECT_EQ(form_->windowTitle().toStdString(), "Purge Playlist Items...");
  ASSERT_EQ(Pages().count(), 2);
  EXPECT_EQ(Pages().tabText(0).toStdString(), "Non-Existent");
  EXPECT_EQ(Pages().tabText(1).toStdString(), "Duplicates");
  EXPECT_EQ(Pages().currentIndex(), 0);
}

TEST_F(FilterFormTest, HasTheGivenCaptionsAndHints) {
  Open();
  struct Caption {
    const char* name;
    const char* text;
    const char* hint;
  };
  for (const Caption& c :
       {Caption{"NxtPath", "Next>", "Move to the next folder of missing items that has been found"},
        {"AbortPath", "Abort", "Stop attempting to restore missing items"},
        {"DupCase", "Case Sensitive matching...", "for matching the filenames exactly of duplicate items"},
        {"DontUsePath", "Exclude Folder Info of missing Items during the search.",
         "If any path info is available in the playlist it will be ignored"}}) {
    EXPECT_EQ(Find<QAbstractButton>(c.name).text().toStdString(), c.text);
    EXPECT_EQ(Find<QAbstractButton>(c.name).toolTip().toStdString(), c.hint);
  }
  for (const Caption& c : {Caption{"CmdSearch", "&Process", ""},
                           {"SkipPath", "Skip>", ""},
                           {"EnbPurge", "Search Non-Existent Items", ""},
                           {"EnbDuplicate", "Search Duplicate Items", ""}})
    EXPECT_EQ(Find<QAbstractButton>(c.name).text().toStdString(), c.text);
  for (const Caption& c :
       {Caption{"Label1", "Compare:", ""},
        {"Label2", "Action:", ""},
        {"Label3", "Action:", ""},
        {"Label4", "Missing Item:", ""},
        {"Label5",
         "Note: Selecting or Removing ALL but the first Duplicate item will result in the first item in the list of "
         "matching items to be ignored. Choosing to Select or Remove ALL items will remove every item that there are "
         "present more than once...",
         ""},
        {"FoundPathsInfo",
         "Select the Folder that contained the missing item above then click 'Next>'. If you wish to add the MP3 "
         "Files "
         "from other folders found, put a checkmark next to it.",
         ""}})
    EXPECT_EQ(Find<QLabel>(c.name).text().toStdString(), c.text);
  EXPECT_EQ(Entries("DupBase"), "Filename|Path Only|Full Path");
  EXPECT_EQ(Entries("DupAction"),
            "Select All Duplicate Items|Remove All Duplicate Items|Select All but first of Duplicate Items|"
            "Remove All but first of Duplicate Items");
  EXPECT_EQ(Entries("MissAction"), "Select All Missing Items|Remove All Missing Items|Search For Missing Items");
}

TEST_F(FilterFormTest, BeginsWithItsDefaults) {
  Open();
  EXPECT_TRUE(Find<QCheckBox>("EnbPurge").isChecked());
  EXPECT_FALSE(Find<QCheckBox>("EnbDuplicate").isChecked());
  EXPECT_FALSE(Find<QCheckBox>("DupCase").isChecked());
  EXPECT_TRUE(Find<QCheckBox>("DontUsePath").isChecked());
  EXPECT_EQ(Find<QComboBox>("DupBase").currentIndex(), 2);
  EXPECT_EQ(Find<QComboBox>("DupAction").currentIndex(), 3);
  EXPECT_EQ(Find<QComboBox>("MissAction").currentIndex(), 1);
  EXPECT_EQ(Report(), kNone);
  EXPECT_TRUE(Enabled("CmdSearch"));
}

TEST_F(FilterFormTest, EachBoxEnablesItsTab) {
  Open();
  EXPECT_EQ(Usable({"Label3", "MissAction", "DontUsePath"}), "xxx");
  EXPECT_EQ(Usable({"DupBase", "DupAction", "DupCase", "Label1", "Label2", "Label5"}), "------");
  Click("EnbPurge");
  EXPECT_EQ(Usable({"Label3", "MissAction", "DontUsePath", "CmdSearch"}), "----");
  Pages().setCurrentIndex(1);
  Click("EnbDuplicate");
  EXPECT_EQ(Usable({"DupBase", "DupAction", "DupCase", "Label1", "Label2", "Label5", "CmdSearch"}), "xxxxxxx");
  Click("EnbDuplicate");
  EXPECT_FALSE(Enabled("CmdSearch"));
}

TEST_F(FilterFormTest, TheSearchsControlsShowAndHideTogether) {
  Open();
  const std::initializer_list<const char*> names = {"DontUsePath",    "Label4",  "MissingPath", "FoundPaths",
                                                    "FoundPathsInfo", "NxtPath", "SkipPath",    "AbortPath"};
  for (const int action : {2, 1, 2, 0}) {
    Choose("MissAction", action);
    for (const char* name : names) EXPECT_EQ(Find<QWidget>(name).isVisible(), action == 2) << name;
  }
  EXPECT_EQ(Usable({"NxtPath", "SkipPath", "AbortPath"}), "---");
}

TEST_F(FilterFormTest, NothingMovesWhenTheSearchIsChosen) {
  Open();
  const QSize size = form_->size();
  const QRect process = Find<QWidget>("CmdSearch").geometry();
  const QRect action = Find<QWidget>("MissAction").geometry();
  Choose("MissAction", 2);
  QCoreApplication::processEvents();
  EXPECT_EQ(form_->size(), size);
  EXPECT_EQ(Find<QWidget>("CmdSearch").geometry(), process);
  EXPECT_EQ(Find<QWidget>("MissAction").geometry(), action);
}

TEST_F(FilterFormTest, TheFirstScreenFitsSmallDesktops) {
  Open();
  EXPECT_LE(form_->width(), 1000);
  EXPECT_LE(form_->height(), 640);
  EXPECT_LE(form_->minimumSizeHint().width(), 800);
}

TEST_F(FilterFormTest, RemovesDuplicatesByKeyboard) {
  Touch({"a.mp3", "b.mp3"});
  AddPaths({"c:\\a.mp3", "c:\\b.mp3", "c:\\a.mp3"});
  Open();
  Press(Qt::Key_Tab, Qt::ControlModifier);
  ASSERT_EQ(Pages().currentIndex(), 1);
  Find<QCheckBox>("EnbDuplicate").setFocus();
  Press(Qt::Key_Space);
  Process();
  EXPECT_EQ(Paths(), "c:\\a.mp3|c:\\b.mp3");
  EXPECT_EQ(Report(), "Done: No missing Items Found...");
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").value(), 0);
}

TEST_F(FilterFormTest, TakesTheChoicesOfTheDuplicates) {
  AddPaths({"c:\\a\\1.mp3", "d:\\b\\1.MP3", "c:\\a\\2.mp3"});
  Open();
  Click("EnbPurge");
  Pages().setCurrentIndex(1);
  Click("EnbDuplicate");
  Click("DupCase");
  Choose("DupBase", 0);
  Choose("DupAction", 0);
  Click("CmdSearch");
  EXPECT_EQ(Selection(), "xx-");
  EXPECT_EQ(Report(), "Done: Selected 2 Duplicate Items");
  Choose("DupBase", 1);
  Choose("DupAction", 2);
  Click("CmdSearch");
  EXPECT_EQ(Selection(), "--x");
  EXPECT_EQ(Report(), "Done: Selected 1 Duplicate Items");
}

TEST_F(FilterFormTest, RemovesMissingItemsAndSaysWhichPlacesArentThere) {
  Touch({"a.mp3"});
  AddPaths({"c:\\a.mp3", "e:\\b.mp3", "c:\\c.mp3"});
  Open();
  Click("CmdSearch");
  EXPECT_EQ(Paths(), "c:\\a.mp3");
  EXPECT_EQ(Report(), "Done: 2 Items Removed");
  auto& places = Find<ReportLine>("lbPlaces");
  EXPECT_EQ(places.Reported().toStdString(), "1 of them lie on places that aren't there now: e:");
  EXPECT_GT(places.mapTo(form_.get(), QPoint()).y(), Find<QWidget>("lbReport").mapTo(form_.get(), QPoint()).y());
  Click("CmdSearch");
  EXPECT_EQ(places.Reported().toStdString(), "");
}

TEST_F(FilterFormTest, SelectsMissingItems) {
  Touch({"a.mp3"});
  AddPaths({"c:\\a.mp3", "c:\\b.mp3"});
  Open();
  Choose("MissAction", 0);
  Click("CmdSearch");
  EXPECT_EQ(Selection(), "-x");
  EXPECT_EQ(Report(), "Done: 1 Items Selected");
  EXPECT_TRUE(Enabled("CmdSearch"));
}

TEST_F(FilterFormTest, ClosesByKeyAndKeepsItsChoices) {
  Open();
  Choose("MissAction", 0);
  Click("EnbPurge");
  window_.shown.clear();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(window_.shown, std::vector<std::string>{"click"});
  Open();
  EXPECT_EQ(Find<QComboBox>("MissAction").currentIndex(), 0);
  EXPECT_FALSE(Find<QCheckBox>("EnbPurge").isChecked());
  EXPECT_FALSE(Enabled("CmdSearch"));
  Click("CmdClose");
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FilterFormTest, EnterDoesNothingByItself) {
  AddPaths({"c:\\gone.mp3"});
  Open();
  for (const char* name : {"EnbPurge", "MissAction"}) {
    Find<QWidget>(name).setFocus();
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(Rows().Count(), 1);
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(FilterFormTest, TheTabKeyGoesAsTheEyeDoes) {
  Open();
  Choose("MissAction", 2);
  Find<QWidget>("EnbPurge").setFocus();
  std::string order;
  for (int i = 0; i < 7; ++i) {
    order += QApplication::focusWidget()->objectName().toStdString() + " ";
    Press(Qt::Key_Tab);
  }
  EXPECT_EQ(order, "EnbPurge MissAction DontUsePath FoundPaths CmdSearch CmdClose qt_tabwidget_tabbar ");
}

}  // namespace
}  // namespace qublet
