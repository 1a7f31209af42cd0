#include "settings/about/system_info.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "support/fake_services.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

using Kind = MachineValue::Kind;

class SystemInfoTest : public testing::Test {
 protected:
  SystemInfoTest() {
    fakes_.machine_values = [this](const std::string& key, const std::string& name) {
      const auto value = values_.find({key, name});
      return value == values_.end() ? std::nullopt : std::optional(value->second);
    };
  }
  // What GetKeyValue gives for a value; "none" for none.
  std::string Got(Kind kind, const std::string& bytes) {
    values_[{"key", "name"}] = {kind, bytes};
    std::string text;
    return GetKeyValue(fakes_.machine_values, "key", "name", text) ? text : "none";
  }
  void Start() {
    Feedback feedback;
    StartSysInfo(fakes_.Over(*files_, feedback));
  }

  std::map<std::pair<std::string, std::string>, MachineValue> values_;
  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  FakeServices fakes_;
};

TEST_F(SystemInfoTest, ATextEndsAtItsFirstZero) {
  EXPECT_EQ(Got(Kind::kText, std::string("c:\\a b\0c\0", 9)), "c:\\a b");
  EXPECT_EQ(Got(Kind::kText, ""), "");
}

TEST_F(SystemInfoTest, ANumberIsDecimal) {
  EXPECT_EQ(Got(Kind::kNumber, std::string("\x02\x01\0\0", 4)), "258");
  EXPECT_EQ(Got(Kind::kNumber, "\xFF\xFF\xFF\xFF"), "4294967295");
  EXPECT_EQ(Got(Kind::kNumber, std::string(4, '\0')), "0");
}

TEST_F(SystemInfoTest, BytesAreHexadecimal) {
  EXPECT_EQ(Got(Kind::kBytes, std::string("\x00\x0F\xA0", 3)), "&h000FA0");
  EXPECT_EQ(Got(Kind::kBytes, ""), "&h");
}

TEST_F(SystemInfoTest, AMissingValueIsFalse) {
  std::string text = "before";
  EXPECT_FALSE(GetKeyValue(fakes_.machine_values, "key", "name", text));
  EXPECT_EQ(text, "");
  EXPECT_FALSE(GetKeyValue(OpenMachineValues(), "SOFTWARE\\Velmora", "no such value", text));
}

TEST_F(SystemInfoTest, StartsTheToolThatIsNamed) {
  values_[{"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH"}] = {Kind::kText, "C:\\Common\\MSINFO32.EXE"};
  Start();
  EXPECT_EQ(fakes_.shell.opened, std::vector<std::string>{"c:\\Common\\MSINFO32.EXE"});
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
}

TEST_F(SystemInfoTest, ElseTheOneInTheFolderThatIsNamed) {
  drives_.Write("Shared/MSINFO32.EXE", "");
  values_[{"SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO"}] = {Kind::kText, "C:\\Shared"};
  Start();
  EXPECT_EQ(fakes_.shell.opened, std::vector<std::string>{"c:\\Shared\\MSINFO32.EXE"});
}

TEST_F(SystemInfoTest, SaysWhereThereIsNone) {
  const std::vector<ScriptedDialogs::Message> none{
      {"System Information Is Unavailable At This Time", MessageIcon::kExclamation, MessageButtons::kOk}};
  Start();
  EXPECT_EQ(fakes_.dialogs.messages, none);
  fakes_.dialogs.messages.clear();
  values_[{"SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO"}] = {Kind::kText, "C:\\Shared"};
  Start();
  EXPECT_EQ(fakes_.dialogs.messages, none);
  EXPECT_TRUE(fakes_.shell.opened.empty());
}

}  // namespace
}  // namespace qublet
