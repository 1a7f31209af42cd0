#include "fuzz/fuzz_input.h"
#include "fuzz/one_file.h"
#include "media/editor/tag_form.h"
#include "media/tpsi.h"
#include "support/fake_picture_codec.h"

using namespace qublet;

namespace {

const std::string kPath = "c:\\a.mp3";

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
