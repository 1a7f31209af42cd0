#include "fuzz/fuzz_input.h"
#include "media/editor/tag_form.h"
#include "media/tpsi.h"
#include "platform/forwarding_file_system.h"
#include "support/fake_picture_codec.h"
#include "support/memory_file.h"

using namespace qublet;

namespace {

const std::string kPath = "c:\\a.mp3";

// Holds one file, which nothing is written to.
class OneFile : public ForwardingFileSystem {
 public:
  OneFile(FileSystem& files, Bytes content) : ForwardingFileSystem(files), content_(std::move(content)) {}

  std::optional<unsigned> Attributes(const std::string&) const override { return 0; }
  std::int64_t FileLength(const std::string&) const override { return static_cast<std::int64_t>(content_.size()); }
  bool IsReadOnly(const std::string&) const override { return false; }
  std::unique_ptr<InputFile> OpenForReading(const std::string&) const override {
    return std::make_unique<MemoryFile>(content_);
  }

  Bytes Changed(const EndsChange& change) const {
    const auto at = [this](std::int64_t place) { return content_.begin() + static_cast<std::ptrdiff_t>(place); };
    const auto size = static_cast<std::int64_t>(content_.size());
    return Joined({Bytes(at(0), at(change.before)), change.head,
                   Bytes(at(change.before + change.old_head), at(size - change.old_tail)), change.tail});
  }

 private:
  Bytes content_;
};

TagForm Shown(const FileSystem& files) {
  TagObject tag(files);
  tag.ReadTags(kPath, false);
  TagForm form;
  ShowTag(tag, form);
  return form;
}

// As the editor's lists hand it over.
void TakeThroughLists(TagForm& form) {
  const FakePictureCodec codec;
  StoreTpsi(TpsiRecords(form.comments), form.comments);
  for (TagPicture& image : form.images) {
    if (auto bitmap = codec.AsBitmap(image.data, kMaxSyncSafe)) {
      image.data = std::move(*bitmap);
      image.mime_type = "image/bmp";
    }
  }
}

// A picture that is there already keeps whatever it is called.
bool SamePictures(const std::vector<TagPicture>& a, const std::vector<TagPicture>& b) {
  return std::ranges::equal(a, b, [](const TagPicture& one, const TagPicture& other) {
    return one.description == other.description && one.data == other.data;
  });
}

}  // namespace

// What the editor shows of a file, through its lists and back into the file, is what it shows then.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<FileSystem> system = OpenFileSystem();
  ResumeNext([&] {
    const OneFile before(*system, Bytes(data, data + size));
    TagForm form = Shown(before);
    TakeThroughLists(form);
    const TagWrite write = PlanUpdate(before, kPath, form);
    write.id3v2.OrThrow();
    const OneFile after(*system, before.Changed(write.change));
    const TagForm shown = Shown(after);
    Require(!form.id3v2_present || shown.comments == form.comments);
    Require(!form.id3v2_present || SamePictures(shown.images, form.images));
    Require(TpsiRecords(shown.comments) == TpsiRecords(form.comments));
  });
  return 0;
}
