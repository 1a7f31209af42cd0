#include "platform/associations.h"

#include <gtest/gtest.h>

#include "platform/windows/registry.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

// The kind "QubletTest" owns *.qublettest, and a program opens it.
class ShellAssociationsTest : public testing::Test {
 protected:
  ShellAssociationsTest() {
    drives_.Write("player/play er.exe", "MZ");
    RegistryKey::Create(HKEY_CLASSES_ROOT, kExtension, KEY_SET_VALUE).SetText("", "QubletTest");
    RegistryKey::Create(HKEY_CLASSES_ROOT, std::string(kKind) + "\\shell\\open\\command", KEY_SET_VALUE)
        .SetText("", "\"" + Player() + "\" \"%1\"");
    drives_.Write("tmp.qublettest", "#");
  }
  ~ShellAssociationsTest() override {
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kExtension);
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kKind);
  }

  std::string Player() const { return (drives_.C() / "player" / "play er.exe").string(); }

  static constexpr const char* kExtension = ".qublettest";
  static constexpr const char* kKind = "QubletTest";
  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<Associations> associations_ = OpenAssociations(*files_);
};

TEST_F(ShellAssociationsTest, GiveTheProgramInDriveForm) {
  EXPECT_EQ(associations_->FindAssociatedProgram("c:\\tmp.qublettest"), "c:\\player\\play er.exe");
  EXPECT_EQ(associations_->ProgramFor("c:\\tmp.qublettest").id, "");
}

TEST_F(ShellAssociationsTest, AskForTheExtensionWhetherTheFileIsThereOrNot) {
  EXPECT_EQ(associations_->FindAssociatedProgram("c:\\none\\gone.qublettest"), "c:\\player\\play er.exe");
}

TEST_F(ShellAssociationsTest, GiveNothingWhereNoProgramIs) {
  EXPECT_EQ(associations_->FindAssociatedProgram("c:\\a.nobodyopensthis"), "");
  EXPECT_EQ(associations_->FindAssociatedProgram("c:\\noextension"), "");
  EXPECT_EQ(associations_->FindAssociatedProgram(""), "");
}

}  // namespace
}  // namespace qublet
