#include "platform/qt/file_urls.h"

#include <gtest/gtest.h>

#include <QSysInfo>

namespace qublet {
namespace {

std::string Encoded(const std::string& native) {
  return FileUrl(native).toEncoded().toStdString();
}

TEST(FileUrl, EncodesWhatAnAddressCannotHold) {
  EXPECT_EQ(Encoded("/m/a b.mp3"), "file:///m/a%20b.mp3");
  EXPECT_EQ(Encoded("/m/100%25#1?.mp3"), "file:///m/100%2525%231%3F.mp3");
  EXPECT_EQ(Encoded("/m/line\nend\r.mp3"), "file:///m/line%0Aend%0D.mp3");
  EXPECT_EQ(Encoded("/m/\xC3\xA9.mp3"), "file:///m/%C3%A9.mp3");
}

TEST(FileUrl, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(Encoded("/m/\xE9 #\xFF.mp3"), "file:///m/%E9%20%23%FF.mp3");
}

TEST(NativePath, GivesBackEveryNameThatFileUrlWasGiven) {
  for (const std::string name :
       {"/m/a b.mp3", "/m/100%25#1?&;=+[x]{y}|~`'\"<>^\\.mp3", "/m/line\nend\r\t.mp3", "/m/\xC3\xA9.mp3",
        "/m/e\xCC\x81.mp3", "/m/\xE9\xFF.mp3", "/m/\xF0\x9F\x8E\xB5.mp3", "/m/\xEF\xBF\xBD.mp3", "/m/a:b.mp3", "/"}) {
    EXPECT_EQ(NativePath(FileUrl(name)), name);
    // As it travels between programs.
    EXPECT_EQ(NativePath(QUrl::fromEncoded(FileUrl(name).toEncoded())), name);
  }
}

TEST(NativePath, TakesThisMachineByName) {
  EXPECT_EQ(NativePath(QUrl("file://localhost/m/a.mp3")), "/m/a.mp3");
  EXPECT_EQ(NativePath(QUrl("file://" + QSysInfo::machineHostName() + "/m/a.mp3")), "/m/a.mp3");
  EXPECT_EQ(NativePath(QUrl("file:/m/a.mp3")), "/m/a.mp3");
}

TEST(NativePath, GivesNothingForWhatIsNoFileOfThisMachine) {
  for (const char* address :
       {"http://example.org/a.mp3", "ftp://localhost/a.mp3", "file://elsewhere.invalid/a.mp3",
        "smb://server/share/a.mp3", "/m/a.mp3", "a.mp3", "#comment", "", "file://", "data:,x"}) {
    EXPECT_EQ(NativePath(QUrl(QString::fromUtf8(address))), std::nullopt) << address;
  }
  EXPECT_EQ(NativePath(QUrl::fromEncoded("file:///m/a%00.mp3")), std::nullopt);
}

TEST(NativePaths, LeavesOutOtherAddressesAndKeepsTheOrder) {
  QMimeData data;
  data.setData(
      "text/uri-list",
      "# a comment\r\nfile:///m/b.mp3\r\nhttp://example.org/x.mp3\r\nfile:///m/%E9.mp3\r\nfile:///m/a.mp3\r\n");
  EXPECT_EQ(NativePaths(data), (std::vector<std::string>{"/m/b.mp3", "/m/\xE9.mp3", "/m/a.mp3"}));
}

}  // namespace
}  // namespace qublet
