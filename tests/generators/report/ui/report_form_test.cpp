#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeWidget>

#include "desk/report_line.h"
#include "generators/report/ui/ReportForm.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

class ReportFormTest : public EditorTestBase {
 protected:
  ReportFormTest() {
    drives_.Write("music/a.mp3", "aa");
    drives_.Write("music/b.mp3", "bb");
    AddRows({"music\\a.mp3", "music\\b.mp3"});
  }
  void Open() {
    form_ = std::make_unique<ReportForm>(engine_, nullptr);
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  void Click(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  void Next(int times = 1) {
    for (int i = 0; i < times; ++i) Click("CmdNext");
  }
  int Frame() { return Find<QStackedWidget>("FrameStep").currentIndex(); }
  std::string Report() { return Find<ReportLine>("lblReport").Reported().toStdString(); }
  QTreeWidget& Columns() { return Find<QTreeWidget>("ColumnList"); }
  std::string ColumnTexts(int most) {
    std::string texts;
    for (int row = 0; row < most; ++row) {
      const QTreeWidgetItem& item = *Columns().topLevelItem(row);
      texts += (item.checkState(0) == Qt::Checked ? "[x] " : "[ ] ") + item.text(0).toStdString() + "\n";
    }
    return texts;
  }
  void Choose(const char* list, const char* text) {
    auto& box = Find<QComboBox>(list);
    box.setFocus();
    box.setCurrentIndex(box.findText(QString::fromUtf8(text)));
    emit box.activated(box.currentIndex());
  }
  // What the controls hold, by way of a file.
  ReportSettings Saved() {
    fakes_.dialogs.save_names.emplace_back("c:\\saved.rpt");
    std::filesystem::remove(drives_.C() / "saved.rpt");
    while (Frame() > 0) Click("CmdBack");
    Click("SaveCurrent");
    return ReportSettingsOf(drives_.Read("saved.rpt"));
  }
  void Load(const ReportSettings& settings) {
    EXPECT_TRUE(SaveReportSettings(*files_, "c:\\load.rpt", settings));
    fakes_.dialogs.open_names.emplace_back("c:\\load.rpt");
    Click("LoadCurrent");
  }
  static ReportSettings Defaults() {
    ReportSettings settings;
    LoadDefaults(settings);
    return settings;
  }

  std::unique_ptr<ReportForm> form_;
};

TEST_F(ReportFormTest, HasItsCaptions) {
  Open();
  const char* const headings[] = {"STEP 1 -  Report Options...", "STEP 2 - Item Details...",
                                  "STEP 3 - HTML Table Settings...", "STEP 3 - TXT File Setup...",
                                  "STEP 4 - Generate Report..."};
  for (int i = 0; i < 5; ++i) {
    const QByteArray name = "Heading" + QByteArray::number(i);
    EXPECT_EQ(Find<QLabel>(name.constData()).text().toStdString(), headings[i]);
  }
  for (const auto& [name, text] : {std::pair{"LoadCurrent", "Load"},
                                   {"SaveCurrent", "Save"},
                                   {"LoadDefault", "Default"},
                                   {"cmdUp", "/\\"},
                                   {"cmdDown", "\\/"},
                                   {"cmdAll", "All"},
                                   {"cmdNone", "Clr"},
                                   {"ColumnHeaders", "Create Column Headers"},
                                   {"Summary", "Create Summary"},
                                   {"ColorTable", "Colour Table"},
                                   {"CmdNext", "Next>"},
                                   {"CmdClose", "&Close"}})
    EXPECT_EQ(Find<QAbstractButton>(name).text().toStdString(), text);
  EXPECT_EQ(Find<QLabel>("FontTest").text().toStdString(), "AaBbCc");
  EXPECT_EQ(Find<QCheckBox>("SaveRel").text().remove(u'&').toStdString(), "Save to Relative Directory.");
  EXPECT_TRUE(form_->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(ReportFormTest, FillsItsLists) {
  Open();
  EXPECT_EQ(Find<QComboBox>("ValWidth").count(), 126);
  EXPECT_EQ(Find<QComboBox>("ValWidth").itemText(1).toStdString(), "16");
  EXPECT_EQ(Find<QComboBox>("ValWidth").itemText(125).toStdString(), "2000");
  EXPECT_EQ(Find<QComboBox>("ValBorder").count(), 25);
  EXPECT_EQ(Find<QComboBox>("FontSizer").count(), 7);
  EXPECT_EQ(ColumnTexts(3), "[x] FileName\n[ ] Folder\n[x] Time\n");
  EXPECT_EQ(Columns().topLevelItemCount(), 21);
}

TEST_F(ReportFormTest, BeginsWithTheDefaults) {
  Open();
  EXPECT_EQ(Frame(), 0);
  EXPECT_EQ(QApplication::focusWidget(), &Find<QComboBox>("RepType"));
  EXPECT_EQ(Saved(), Defaults());
}

TEST_F(ReportFormTest, BringsBackWhatItSaved) {
  ReportSettings settings = Defaults();
  settings.RepType = kTextReport;
  settings.Title = "Songs";
  settings.Description = "one\r\ntwo";
  settings.Summary = settings.ColumnHeaders = settings.SaveRel = settings.ColorTable = false;
  settings.TableWidth = "32";
  settings.TableBorder = "7";
  settings.TableSpacing = "99";  // the list doesn't offer that
  settings.TablePadding = "0";
  std::swap(settings.ColumnOrder[0], settings.ColumnOrder[20]);
  settings.ColumnChecked[3] = false;
  settings.Delimiter = ";;";
  settings.SpaceAligned = false;
  settings.CommaDelimited = settings.CustomDelimited = true;
  settings.FontName = "A font of nobody";
  settings.FontSize = 4;
  Open();
  Load(settings);
  EXPECT_EQ(Find<QComboBox>("RepType").currentText().toStdString(), "TXT File");
  EXPECT_EQ(ColumnTexts(4), "[x] Link\n[ ] Folder\n[x] Time\n[ ] Size\n");
  EXPECT_TRUE(Find<QRadioButton>("CustomDelimited").isChecked());
  EXPECT_EQ(Find<QComboBox>("FontSizer").currentText().toStdString(), "18");
  EXPECT_EQ(Saved(), settings);
  Click("LoadDefault");
  EXPECT_EQ(Saved(), Defaults());
}

TEST_F(ReportFormTest, KeepsColumnsThatAreNone) {
  ReportSettings settings = Defaults();
  settings.ColumnOrder[2] = 0;
  Open();
  Load(settings);
  EXPECT_EQ(ColumnTexts(3), "[x] FileName\n[ ] Folder\n[x] \n");
  EXPECT_EQ(Saved(), settings);
}

TEST_F(ReportFormTest, TakesTheFolderForTheTitle) {
  Open();
  auto& title = Find<QLineEdit>("txtTitle");
  QTest::mouseDClick(&title, Qt::LeftButton);
  EXPECT_EQ(title.text().toStdString(), "music");
  title.setFocus();
  QTest::keyClicks(&title, "x");
  QTest::keyClick(&title, Qt::Key_F4);
  EXPECT_EQ(Saved().Title, "music");
}

TEST_F(ReportFormTest, TakesNoMoreTextThanFits) {
  Open();
  Find<QLineEdit>("txtTitle").setFocus();
  Find<QLineEdit>("txtTitle").selectAll();
  Find<QLineEdit>("txtTitle").insert(QString(250, u't'));
  auto& text = Find<QPlainTextEdit>("txtDesc");
  text.selectAll();
  text.insertPlainText(QString(998, u'd') + "\nmore");
  EXPECT_EQ(Saved().Title, std::string(200, 't'));
  EXPECT_EQ(Saved().Description, std::string(998, 'd') + "\r\n");
}

TEST_F(ReportFormTest, MovesColumnsByButtonAndKey) {
  Open();
  Next();
  Columns().setFocus();
  Columns().setCurrentItem(Columns().topLevelItem(2));
  Click("cmdUp");
  Click("cmdUp");
  EXPECT_EQ(ColumnTexts(3), "[x] Time\n[x] FileName\n[ ] Folder\n");
  Click("cmdUp");
  Columns().setFocus();
  QTest::keyClick(&Columns(), Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(ColumnTexts(3), "[x] FileName\n[x] Time\n[ ] Folder\n");
  Columns().setCurrentItem(Columns().topLevelItem(20));
  Click("cmdDown");
  EXPECT_EQ(Columns().topLevelItem(20)->text(0).toStdString(), "Link");
}

TEST_F(ReportFormTest, TicksColumns) {
  Open();
  Next();
  Columns().setFocus();
  QTest::keyClick(&Columns(), Qt::Key_Space);
  EXPECT_EQ(ColumnTexts(2), "[ ] FileName\n[ ] Folder\n");
  Click("cmdAll");
  EXPECT_EQ(ColumnTexts(2), "[x] FileName\n[x] Folder\n");
  Click("cmdNone");
  EXPECT_EQ(ColumnTexts(3), "[ ] FileName\n[ ] Folder\n[ ] Time\n");
}

TEST_F(ReportFormTest, ChoosesAFontByTheNameThatIsReallyTaken) {
  Open();
  Next(2);
  auto& fonts = Find<QComboBox>("FontList");
  const std::string name = fonts.itemText(0).toStdString();
  Choose("FontList", name.c_str());
  Choose("FontSizer", "24");
  EXPECT_EQ(Find<QLabel>("FontTest").font().pointSize(), 24);
  const ReportSettings saved = Saved();
  EXPECT_EQ(saved.FontName, QFontInfo(Find<QLabel>("FontTest").font()).family().left(20).toStdString());
  EXPECT_EQ(saved.FontSize, 5);
}

TEST_F(ReportFormTest, ChoosesOneWayToPartCells) {
  Open();
  Choose("RepType", "TXT File");
  Next(2);
  EXPECT_EQ(Frame(), 3);
  Click("TabDelimited");
  EXPECT_TRUE(Saved().TabDelimited);
  EXPECT_FALSE(Saved().SpaceAligned);
  Next(2);
  Find<QLineEdit>("txtDelimiter").setFocus();
  QTest::keyClicks(&Find<QLineEdit>("txtDelimiter"), "abcd");
  EXPECT_TRUE(Saved().CustomDelimited);
  EXPECT_EQ(Saved().Delimiter, ":ab");
}

TEST_F(ReportFormTest, EnterPressesTheButtonThatHasTheKeyboard) {
  Open();
  Find<QPushButton>("LoadCurrent").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Frame(), 0);
  EXPECT_EQ(fakes_.dialogs.open_requests.size(), 1U);
  Next(2);
  Find<QPushButton>("CmdBack").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Frame(), 1);
}

TEST_F(ReportFormTest, ShowsNoFontForARecordWithoutOne) {
  ReportSettings settings = Defaults();
  settings.FontName.clear();
  Open();
  Load(settings);
  EXPECT_EQ(Find<QComboBox>("FontList").currentText().toStdString(), "");
  EXPECT_EQ(Saved(), settings);
}

TEST_F(ReportFormTest, RunsByTheKeyboardAlone) {
  Open();
  fakes_.dialogs.answers.push_back(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back("c:\\kept.htm");
  for (int step = 0; step < 4; ++step) QTest::keyClick(form_.get(), Qt::Key_Return);
  EXPECT_EQ(Frame(), 4);
  EXPECT_EQ(Report(), "Done: Report Generator. Click 'Next>' to restart...");
  EXPECT_EQ(QApplication::focusWidget(), &Find<QPushButton>("CmdClose"));
  EXPECT_FALSE(Find<QPushButton>("CmdBack").isEnabled());
  EXPECT_NE(drives_.Read("kept.htm").find("2 Items"), std::string::npos);
  Click("CmdNext");
  EXPECT_EQ(Frame(), 0);
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

}  // namespace
}  // namespace qublet
