#include "media/editor/attributes.h"

#include "platform/forwarding_file_system.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

// Keeps every attribute in memory, as the described file system does.
class AttributeStore : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::optional<unsigned> Attributes(const std::string&) const override { return bits; }
  void SetAttributes(const std::string&, unsigned attributes) const override {
    if (refuses) throw Failure("refused");
    bits = attributes;
  }
  mutable std::optional<unsigned> bits = kArchive;
  bool refuses = false;
};

class AttributesTest : public EditorTestBase {
 protected:
  AttributeStore store_{*files_};
  unsigned After(unsigned before, const FileAttributeChanges& changes) {
    store_.bits = before;
    EXPECT_TRUE(ApplyFileAttributes(store_, "c:\\a.mp3", changes));
    return store_.bits.value();
  }
};

TEST_F(AttributesTest, SetAndClearEachBitAlone) {
  EXPECT_EQ(After(32, {"", "SET", "", "", ""}), 33u);
  EXPECT_EQ(After(33, {"", "CLR", "", "", ""}), 32u);
  EXPECT_EQ(After(1, {"", "", "SET", "", ""}), 33u);
  EXPECT_EQ(After(1, {"", "", "", "SET", "SET"}), 7u);
  EXPECT_EQ(After(39, {"", "", "CLR", "CLR", "CLR"}), 1u);
  EXPECT_EQ(After(0, {"SET", "", "", "", ""}), 128u);
}

TEST_F(AttributesTest, StayWithoutAChange) {
  for (const unsigned bits : {0u, 1u, 32u, 39u, 128u}) EXPECT_EQ(After(bits, {}), bits);
}

TEST_F(AttributesTest, LoseTheBitsBeyondTheTable) {
  EXPECT_EQ(After(32 | 0x2000, {}), 32u);
}

TEST_F(AttributesTest, SayWhenTheyCanNotBeReadOrSet) {
  store_.refuses = true;
  EXPECT_FALSE(ApplyFileAttributes(store_, "c:\\a.mp3", {}));
  store_.bits.reset();
  store_.refuses = false;
  EXPECT_FALSE(ApplyFileAttributes(store_, "c:\\a.mp3", {}));
}

TEST_F(AttributesTest, OfAFileOnTheDiskAreItsRightToBeWritten) {
  drives_.Write("a.mp3", "abc");
  EXPECT_TRUE(ApplyFileAttributes(*files_, "c:\\a.mp3", {"", "SET", "", "", ""}));
  EXPECT_TRUE(files_->IsReadOnly("c:\\a.mp3"));
  EXPECT_TRUE(ApplyFileAttributes(*files_, "c:\\a.mp3", {"", "CLR", "", "", ""}));
  EXPECT_FALSE(files_->IsReadOnly("c:\\a.mp3"));
  EXPECT_FALSE(ApplyFileAttributes(*files_, "c:\\gone.mp3", {"", "CLR", "", "", ""}));
}

}  // namespace
}  // namespace qublet
