#include "settings/schemes/look_file.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

using namespace std::string_literals;

Look SomeLook() {
  return {0x123456, -0x7FFFFFF8, "Verdana", 6.75, true, false, true, false, true};
}

// Made by hand.
std::string SomeRecord() {
  return "Verdana" + std::string(93, ' ') + "\x07\0"s + "\xFF\xFF\0\0\xFF\xFF\0\0\xFF\xFF"s + "\x56\x34\x12\0"s +
         "\x08\0\0\x80"s;
}

class LookFileTest : public testing::Test {
 protected:
  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(LookFileTest, IsWrittenByteForByte) {
  EXPECT_TRUE(WriteLook(*files_, "c:\\a.dps", SomeLook()));
  EXPECT_EQ(SomeRecord().size(), 120u);
  EXPECT_EQ(drives_.Read("a.dps"), SomeRecord());
}

struct FieldPlace {
  const char* name;
  std::size_t offset;
  void (*set)(Look& look);
  std::string bytes;
};

class LookField : public testing::TestWithParam<FieldPlace> {};

TEST_P(LookField, StandsAtItsPlace) {
  Look look;
  look.font = "x";
  look.size = 1;
  std::string wanted = "x" + std::string(99, ' ') + "\x01"s + std::string(19, '\0');
  EXPECT_EQ(LookRecord(look), wanted);
  GetParam().set(look);
  wanted.replace(GetParam().offset, GetParam().bytes.size(), GetParam().bytes);
  EXPECT_EQ(LookRecord(look), wanted);
  EXPECT_EQ(LookOfRecord(wanted), look);
}

const std::string kYes = "\xFF\xFF";

INSTANTIATE_TEST_SUITE_P(
    , LookField,
    testing::Values(FieldPlace{"Font", 0, [](Look& l) { l.font = "\u00C9tat 2"; }, "\xC9tat 2"},
                    FieldPlace{"Size", 100, [](Look& l) { l.size = 0x1234; }, "\x34\x12"},
                    FieldPlace{"NegativeSize", 100, [](Look& l) { l.size = -2; }, "\xFE\xFF"},
                    FieldPlace{"Bold", 102, [](Look& l) { l.bold = true; }, kYes},
                    FieldPlace{"Italic", 104, [](Look& l) { l.italic = true; }, kYes},
                    FieldPlace{"Strikethrough", 106, [](Look& l) { l.strikethrough = true; }, kYes},
                    FieldPlace{"Underline", 108, [](Look& l) { l.underline = true; }, kYes},
                    FieldPlace{"Grid", 110, [](Look& l) { l.grid = true; }, kYes},
                    FieldPlace{"Background", 112, [](Look& l) { l.background = 0x12345678; }, "\x78\x56\x34\x12"},
                    FieldPlace{"Text", 116, [](Look& l) { l.text = -0x7FFFFFFB; }, "\x05\0\0\x80"s}),
    [](const auto& place) { return place.param.name; });

TEST_F(LookFileTest, KeepsTheSchemesButForBrokenSizes) {
  for (const Scheme& scheme : Schemes()) {
    Look look = LookOf(scheme);
    EXPECT_TRUE(WriteLook(*files_, "c:\\a.dps", look));
    if (scheme.size == 6.75) look.size = 7;
    EXPECT_EQ(ReadLook(*files_, "c:\\a.dps"), look) << scheme.caption;
  }
}

TEST_F(LookFileTest, HoldsNoCharacterWithoutAPlaceInTheCodePage) {
  Look look = SomeLook();
  look.font = "\u6F22 Sans\u00E9";
  EXPECT_EQ(LookRecord(look).substr(0, 8), "? Sans\xE9 ");
}

TEST_F(LookFileTest, CutsALongFontName) {
  Look look = SomeLook();
  look.font = std::string(120, 'f');
  EXPECT_EQ(LookRecord(look).size(), 120u);
  EXPECT_EQ(LookOfRecord(LookRecord(look)).font, std::string(100, 'f'));
}

TEST_F(LookFileTest, TakesAnyNumberButZeroForTrue) {
  std::string record = SomeRecord();
  record.replace(104, 2, "\0\x01"s);
  EXPECT_TRUE(LookOfRecord(record).italic);
}

TEST_F(LookFileTest, FillsAShortOneUpWithZeros) {
  drives_.Write("a.dps", SomeRecord().substr(0, 113));
  Look wanted = SomeLook();
  wanted.size = 7;
  wanted.background = 0x56;
  wanted.text = 0;
  EXPECT_EQ(ReadLook(*files_, "c:\\a.dps"), wanted);
  drives_.Write("a.dps", "");
  EXPECT_EQ(ReadLook(*files_, "c:\\a.dps"), Look());
}

TEST_F(LookFileTest, KeepsTheTailOfALongerOne) {
  drives_.Write("a.dps", std::string(130, 'o'));
  EXPECT_TRUE(WriteLook(*files_, "c:\\a.dps", SomeLook()));
  EXPECT_EQ(drives_.Read("a.dps"), SomeRecord() + std::string(10, 'o'));
}

TEST_F(LookFileTest, StaysAsItIsWhenTheSizeCanNotBeKept) {
  drives_.Write("a.dps", "old");
  Look look = SomeLook();
  look.size = 1e9;
  EXPECT_FALSE(WriteLook(*files_, "c:\\a.dps", look));
  EXPECT_EQ(drives_.Read("a.dps"), "old");
}

TEST_F(LookFileTest, ThatIsNotThereIsAFailure) {
  EXPECT_THROW(ReadLook(*files_, "c:\\none.dps"), Failure);
}

}  // namespace
}  // namespace qublet
