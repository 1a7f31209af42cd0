#include "media/editor/picture_rows.h"

#include <algorithm>

#include "media/id3/bytes.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr const char* kPictureFiles = "Bitmap Files (*.bmp)|*.bmp|JPEG Files (*.jpg)|*.jpg|GIF Files (*.gif)|*.gif";
constexpr const char* kBitmapFiles = "Bitmap Files (*.bmp)|*.bmp";
constexpr std::size_t kLongestBitmap = kMaxSyncSafe;  // of what a tag can hold

}  // namespace

std::shared_ptr<const TagPicture> PictureRows::Shown() const {
  return selected_ > 0 ? rows_[static_cast<std::size_t>(selected_) - 1].picture : nullptr;
}

void PictureRows::Show(std::vector<TagPicture> images) {
  rows_.clear();
  for (TagPicture& image : images) {
    auto picture = std::make_shared<const TagPicture>(std::move(image));
    rows_.push_back(
        {picture->description, static_cast<std::int64_t>(picture->data.size()), picture->mime_type, picture});
  }
  selected_ = rows_.empty() ? 0 : 1;
}

std::vector<TagPicture> PictureRows::Collect() {
  std::vector<TagPicture> images;
  for (const Row& row : rows_) {
    if (row.picture) images.push_back(Written(row));
  }
  if (!images.empty()) ResumeNext([&] { engine_.services.files.DeleteFile(ScratchFile()); });
  return images;
}

TagPicture PictureRows::Written(const Row& row) {
  std::optional<Bytes> bitmap;
  background_.Do([&] { bitmap = codec_.AsBitmap(row.picture->data, kLongestBitmap); });
  if (!bitmap) return {row.description, row.picture->mime_type, row.picture->data, row.picture->type};
  return {row.description, "image/bmp", std::move(*bitmap), row.picture->type};
}

void PictureRows::ID3v2ImageAdd_Click() {
  const auto path = engine_.services.dialogs.ShowOpen({"", kPictureFiles, "bmp"});
  if (!path) return;
  const auto description = engine_.services.dialogs.AskText("Enter description.", "Add Image");
  if (description) ResumeNext([&] { AddRow(*path, *description); });
}

void PictureRows::AddRow(const std::string& path, const std::string& description) {
  const FileSystem& files = engine_.services.files;
  std::string extension = GetExtension(GetFileName(path));
  if (!extension.empty()) extension.erase(0, 1);
  rows_.push_back({description, files.FileLength(path), "image/" + extension, nullptr});
  selected_ = static_cast<int>(rows_.size());
  TagImages loaded(files);
  loaded.Add(path, description);
  bool shown = false;
  background_.Do([&] { shown = codec_.IsPicture(loaded.At(1).data); });
  if (shown) rows_.back().picture = std::make_shared<const TagPicture>(loaded.At(1));
}

void PictureRows::ID3v2ImageRemove_Click() {
  if (selected_ == 0) return;
  rows_.erase(rows_.begin() + selected_ - 1);
  selected_ = rows_.empty() ? 0 : std::max(1, selected_ - 1);
}

void PictureRows::ID3v2ImageSave_Click() {
  if (!Shown()) return;
  const auto path = engine_.services.dialogs.ShowSave({"", kBitmapFiles, "bmp"});
  if (path && !engine_.playlist_files.CheckExists(*path))
    ResumeNext([&] { SaveShown(engine_.services.files, *path); });
}

void PictureRows::ID3v2ImageOpen_Click() {
  if (!Shown()) return;
  ResumeNext([&] {
    SaveShown(engine_.services.files.OwnFiles(), ScratchFile());
    engine_.services.shell.Open(ScratchFile());
  });
}

void PictureRows::SaveShown(const FileSystem& files, const std::string& path) {
  std::optional<Bytes> bitmap;
  const auto shown = Shown();
  background_.Do([&] { bitmap = codec_.AsBitmap(shown->data, Bytes().max_size()); });
  if (!bitmap) throw Failure("not a picture");
  const auto file = files.BeginReplacement(path);
  file->Write(*bitmap);
  file->Commit();
}

}  // namespace qublet
