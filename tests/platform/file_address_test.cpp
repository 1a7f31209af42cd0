#include "platform/file_address.h"

#include <gtest/gtest.h>

#include "platform/computer_name.h"

namespace qublet {
namespace {

TEST(FileAddress, EscapesAllThatIsNoPlainCharacter) {
  EXPECT_EQ(FileAddress("/m/a b#100%?\xC3\xA9.mp3"), "file:///m/a%20b%23100%25%3F%C3%A9.mp3");
  EXPECT_EQ(FileAddress("/m/it-is_~1.mp3"), "file:///m/it-is_~1.mp3");
}

TEST(FileAddress, GivesItsEscapesBack) {
  EXPECT_EQ(PercentDecoded("a%20b%2f%C3%A9%"), "a b/\xC3\xA9%");
  EXPECT_EQ(PercentDecoded("100%%20 %4 %zz %4g"), "100%  %4 %zz %4g");
  EXPECT_EQ(PercentDecoded(PercentEncoded("any \x01\xFF% text", "")), "any \x01\xFF% text");
}

TEST(FileAddress, TellsAddressesFromNames) {
  for (const char* text : {"http://host/a.mp3", "FILE:///a", "a1+-.://x"}) EXPECT_TRUE(IsAddress(text)) << text;
  for (const char* text : {"c://a.mp3", "my song://a.mp3", "a/b://c", "1ab://c", "://c", "http:/x", "", "a.mp3"})
    EXPECT_FALSE(IsAddress(text)) << text;
}

TEST(FileAddress, NamesAFileOfThisComputerOrOfAnother) {
  const auto parts = [](const std::string& address) {
    const auto file = FileOfAddress(address);
    return file ? file->host + "|" + file->path : "none";
  };
  EXPECT_EQ(parts("file:///m/a%20b.mp3"), "|/m/a%20b.mp3");
  EXPECT_EQ(parts("FILE://LocalHost/m/a.mp3"), "|/m/a.mp3");
  EXPECT_EQ(parts("file://" + ComputerName() + "/m/a.mp3"), "|/m/a.mp3");
  EXPECT_EQ(parts("file:/m/a.mp3"), "|/m/a.mp3");
  EXPECT_EQ(parts("file:///C:/m/a.mp3"), "|/C:/m/a.mp3");
  EXPECT_EQ(parts("file://C:/m/a.mp3"), "|/C:/m/a.mp3");
  EXPECT_EQ(parts("file://nas/m/a.mp3"), "nas|/m/a.mp3");
  EXPECT_EQ(parts("file://nas"), "nas|/");
  EXPECT_EQ(parts("file://"), "|/");
  EXPECT_EQ(parts("file:a.mp3"), "none");
  EXPECT_EQ(parts("http://host/a.mp3"), "none");
  EXPECT_EQ(parts(""), "none");
}

}  // namespace
}  // namespace qublet
