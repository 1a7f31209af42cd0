#include "settings/schemes/look.h"

#include <gtest/gtest.h>

#include <tuple>

#include "settings/setting_rows.h"

namespace qublet {
namespace {

Look SomeLook() {
  return {0x123456, 0x654321, "Courier", 9.5, true, false, true, false, true};
}

TEST(Schemes, AreTheSevenInTheirOrder) {
  std::vector<std::tuple<std::string, std::uint32_t, std::uint32_t, std::string, double, bool>> rows;
  for (const Scheme& scheme : Schemes()) {
    const Look look = LookOf(scheme);
    rows.emplace_back(scheme.caption, look.background, look.text, look.font, look.size, look.grid);
    EXPECT_FALSE(look.bold || look.italic || look.underline || look.strikethrough);
  }
  EXPECT_EQ(rows, (decltype(rows){{"Default", 0x80000005, 0x80000008, "Tahoma", 8, false},
                                  {"Green LCD", 0x00533A, 0x00DFC4, "Arial Narrow", 8, false},
                                  {"Blue Studio", 0x800000, 0xFF0000, "Arial", 8, false},
                                  {"Pastel", 0xFFE8E8, 0, "Arial Narrow", 9, false},
                                  {"Old Skool", 0x00002B, 0x0000FF, "Verdana", 6.75, true},
                                  {"DJ", 0x37371C, 0xFF5151, "Verdana", 6.75, true},
                                  {"Clear", 0x974B00, 0xFFCF6A, "Arial Narrow", 8, false}}));
}

TEST(FindScheme, WantsTheCaptionAsItIs) {
  EXPECT_EQ(FindScheme("Old Skool")->name, "schOldSkool");
  EXPECT_EQ(FindScheme("old skool"), nullptr);
  EXPECT_EQ(FindScheme(""), nullptr);
}

TEST(LookOf, GivesTheLookThatTheSettingsStartWith) {
  AppSettings settings;
  LoadDefaultSettings(settings, {});
  EXPECT_EQ(LookOf(settings), LookOf(*FindScheme("Green LCD")));
}

TEST(StoreLook, KeepsAllOfALook) {
  AppSettings settings;
  Look look = SomeLook();
  StoreLook(look, settings);
  look.size = 10;
  EXPECT_EQ(LookOf(settings), look);
}

TEST(StoreLook, RoundsASizeToWholePoints) {
  AppSettings settings;
  for (const auto& [size, whole] : {std::pair{6.75, 7}, {6.5, 6}, {7.5, 8}, {7.49, 7}}) {
    Look look;
    look.size = size;
    StoreLook(look, settings);
    EXPECT_EQ(settings.Size, whole) << size;
  }
}

TEST(StoreLook, LeavesASizeThatIsNone) {
  AppSettings settings;
  settings.Size = 8;
  Look look = SomeLook();
  look.size = 40000;
  StoreLook(look, settings);
  EXPECT_EQ(settings.Size, 8);
  EXPECT_EQ(settings.Name, "Courier");
}

TEST(StoredLook, IsColoursFontAndGrid) {
  AppSettings settings;
  LoadDefaultSettings(settings, {});
  std::vector<std::string> keys;
  for (const Setting& setting : StoredLook(settings))
    keys.push_back(setting.section + " " + setting.key + " " + setting.value);
  EXPECT_EQ(keys,
            (std::vector<std::string>{"TableB BC 21306", "TableB FC 57284", "TableFont Name Arial Narrow",
                                      "TableFont Size 8", "TableFont Italic False", "TableFont Bold False",
                                      "TableFont Strikethrough False", "TableFont Underline False", "SSE GRID 0"}));
}

TEST(TakeLook, StopsAtAFontWithoutAName) {
  Look from = SomeLook();
  from.font = "";
  Look to = LookOf(*FindScheme("DJ"));
  Look wanted = to;
  wanted.background = from.background;
  wanted.text = from.text;
  EXPECT_FALSE(TakeLook(from, to));
  EXPECT_EQ(to, wanted);
}

TEST(TakeLook, StopsAtASizeBelowOne) {
  Look from = SomeLook();
  from.size = 0;
  Look to = LookOf(*FindScheme("DJ"));
  Look wanted = to;
  wanted.background = from.background;
  wanted.text = from.text;
  wanted.font = from.font;
  EXPECT_FALSE(TakeLook(from, to));
  EXPECT_EQ(to, wanted);
}

TEST(TakeLook, StopsAtASizeThatTheSettingsDoNotOffer) {
  Look from = SomeLook();
  from.size = 200;
  Look to;
  EXPECT_TRUE(TakeLook(from, to));
  from.size = 201;
  EXPECT_FALSE(TakeLook(from, to));
  EXPECT_EQ(to.size, 200);
}

TEST(ShownSize, IsOneThatCanBePainted) {
  for (const auto& [size, shown] : {std::pair{6.75, 6.75}, {0.0, 1.0}, {-5.0, 1.0}, {32767.0, 200.0}}) {
    Look look;
    look.size = size;
    EXPECT_EQ(ShownSize(look), shown);
  }
}

TEST(TakeLook, TakesAWholeOneAsItIs) {
  Look to = LookOf(*FindScheme("DJ"));
  EXPECT_TRUE(TakeLook(SomeLook(), to));
  EXPECT_EQ(to, SomeLook());
}

}  // namespace
}  // namespace qublet
