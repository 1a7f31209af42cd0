#include "settings/tips/tip_of_the_day.h"

#include <gtest/gtest.h>

#include "support/list_test_base.h"

namespace qublet {
namespace {

class TipOfTheDayTest : public ListTestBase {
 protected:
  void WriteTips(const std::string& text) const { drives_.Write("program/QUBLET20.htd", text); }
  void Keep(const std::string& value) {
    fakes_.store.SaveSetting("QUBLET2021", "Options", "Show Tips at Startup", value);
  }
  std::string Kept() const { return fakes_.store.GetSetting("QUBLET2021", "Options", "Show Tips at Startup"); }

  // Number and text on show, "2: two".
  static std::string Shown(const TipOfTheDay& tips) { return tips.view.CurTip + ": " + tips.view.lblTipText; }

  Engine engine_{services_, {"QUBLET2021", "c:\\program", ""}, ","};
};

TEST_F(TipOfTheDayTest, LoadsTheLinesAndShowsTheFirst) {
  WriteTips("one\r\ntwo\r\nthree\r\n");
  const TipOfTheDay tips(engine_);
  EXPECT_EQ(Shown(tips), "1: one");
  EXPECT_EQ(tips.AllTips(), (Collection{"one", "two", "three"}));
}

TEST_F(TipOfTheDayTest, TakesEveryLineAsItIs) {
  WriteTips("<b>one</b>\n\n  three");
  EXPECT_EQ(TipOfTheDay(engine_).AllTips(), (Collection{"<b>one</b>", "", "  three"}));
}

TEST_F(TipOfTheDayTest, ReadsTheCodePageAndUtf8) {
  WriteTips("\xE4\n");
  EXPECT_EQ(TipOfTheDay(engine_).AllTips(), Collection{"\xC3\xA4"});
  WriteTips("\xEF\xBB\xBF\xC3\xA4\n");
  EXPECT_EQ(TipOfTheDay(engine_).AllTips(), Collection{"\xC3\xA4"});
}

TEST_F(TipOfTheDayTest, StepsGoRound) {
  WriteTips("one\ntwo\nthree\n");
  TipOfTheDay tips(engine_);
  for (const char* next : {"2: two", "3: three", "1: one"}) {
    tips.CmdNext_Click();
    EXPECT_EQ(Shown(tips), next);
  }
  for (const char* previous : {"3: three", "2: two", "1: one"}) {
    tips.CmdPrev_Click();
    EXPECT_EQ(Shown(tips), previous);
  }
}

TEST_F(TipOfTheDayTest, ARandomTipIsAnyOfThem) {
  WriteTips("one\ntwo\nthree\nfour\n");
  TipOfTheDay tips(engine_);
  fakes_.random.draws = {0, 0.24, 0.25, 0.999};
  for (const char* tip : {"1: one", "1: one", "2: two", "4: four"}) {
    tips.cmdNextTip_Click();
    EXPECT_EQ(Shown(tips), tip);
  }
}

TEST_F(TipOfTheDayTest, ComingToTheFrontShowsARandomTip) {
  WriteTips("one\ntwo\n");
  TipOfTheDay tips(engine_);
  EXPECT_EQ(fakes_.random.reseeded, 1);
  fakes_.random.draws = {0.5};
  tips.Activate();
  EXPECT_EQ(Shown(tips), "2: two");
}

TEST_F(TipOfTheDayTest, StaysOnASingleTip) {
  WriteTips("one");
  TipOfTheDay tips(engine_);
  tips.CmdNext_Click();
  EXPECT_EQ(Shown(tips), "1: one");
  tips.CmdPrev_Click();
  EXPECT_EQ(Shown(tips), "1: one");
}

TEST_F(TipOfTheDayTest, WithoutAFileOnlyTellsSo) {
  TipOfTheDay tips(engine_);
  const std::string missing =
      ": Cannot find the Tip-Of-Day Data File. Please reinstall the application if you wish to use this feature.";
  EXPECT_EQ(Shown(tips), missing);
  tips.Activate();
  tips.CmdNext_Click();
  tips.CmdPrev_Click();
  EXPECT_EQ(Shown(tips), missing);
}

TEST_F(TipOfTheDayTest, AFolderOfThatNameIsNoFile) {
  std::filesystem::create_directories(drives_.C() / "program/QUBLET20.htd");
  EXPECT_TRUE(TipOfTheDay(engine_).view.lblTipText.starts_with("Cannot find"));
}

TEST_F(TipOfTheDayTest, AFileWithoutLinesLeavesTheLabelAsDesigned) {
  WriteTips("");
  TipOfTheDay tips(engine_);
  tips.Activate();
  tips.CmdNext_Click();
  tips.CmdPrev_Click();
  EXPECT_EQ(tips.view.lblTipText, TipView().lblTipText);
}

TEST_F(TipOfTheDayTest, TheTickIsTheStoredOne) {
  EXPECT_TRUE(TipOfTheDay(engine_).view.chkLoadTipsAtStartup);
  Keep("0");
  EXPECT_FALSE(TipOfTheDay(engine_).view.chkLoadTipsAtStartup);
  Keep("1");
  EXPECT_TRUE(TipOfTheDay(engine_).view.chkLoadTipsAtStartup);
}

TEST_F(TipOfTheDayTest, EachClickOnTheTickIsKeptAtOnce) {
  TipOfTheDay tips(engine_);
  tips.chkLoadTipsAtStartup_Click(false);
  EXPECT_EQ(Kept(), "0");
  tips.chkLoadTipsAtStartup_Click(true);
  EXPECT_EQ(Kept(), "1");
}

}  // namespace
}  // namespace qublet
