#include "media/editor/tag_editor.h"

#include "media/editor/form_texts.h"
#include "media/editor/tag_copies.h"
#include "media/editor/tag_journal.h"
#include "media/editor/web_queries.h"
#include "media/tag_file.h"

namespace qublet {

TagEditor::TagEditor(Engine& engine, const PictureCodec& codec, Background& background)
    : comments(engine.services.dialogs),
      pictures(engine, codec, background),
      positions(engine, comments, background),
      engine_(engine),
      clipboard_(engine.services.files) {
  view.mpeg.fill(kUnknownLabel);
  view.ogg.fill(kUnknownLabel);
}

void TagEditor::LoadSelection() {
  TakeNeutralState();
  engine_.view.Refresh();
  const RowStore& rows = engine_.document.ListView1;
  view.update = BuildSelection(rows, engine_.services.files, files_);
  view.prev = files_.FirstSelected != 1;
  view.next = files_.LastSelected != rows.Count();
  if (files_.SelectedPaths.empty()) return ShowUnusable();
  view.file.attributes_enabled = true;
  ShowFile();
  view.attributes_shown = true;
}

// No other file's facts stay.
void TagEditor::TakeNeutralState() {
  view.prev = view.next = view.paste = view.copy = view.update = false;
  view.tag_pages = view.presence_boxes = false;
  view.mpeg_shown = view.ogg_shown = view.attributes_shown = false;
  view.unusable = false;
  view.mpeg.fill("");
  view.ogg.fill(kUnknownLabel);
  view.undo = NewestTagRun(engine_.services.files, kWindowRun).has_value();
}

void TagEditor::ShowUnusable() {
  ShowHint("Unable to Update/Read files...", "Check the item(s) exist and are of the same type.");
  view.unusable = true;
  ShowTagInForm(TagObject(engine_.services.files));
  page = EditorPage::kGeneral;
}

void TagEditor::ShowFile() {
  const FileSystem& files = engine_.services.files;
  const std::string& path = files_.SelectedPaths.front();
  const std::string& extension = files_.SelectedExtension;
  if (extension == ".mp3") return ShowMp3();

  page = EditorPage::kGeneral;
  ShowTagInForm(TagObject(files));
  view.mpeg_shown = extension == ".wav" || extension == ".vqf";
  view.ogg_shown = extension == ".ogg";
  if (extension == ".wav") view.mpeg_caption = "WAV File Info";
  const bool known = view.mpeg_shown || view.ogg_shown;
  if (!known) {
    ShowHint("", "");
    view.file.read_only = view.file.archive = false;
  } else if (!OneFile()) {
    if (view.ogg_shown)
      return ShowHint("Multiple OGG Files Selected...", "Updating OGG files is currently unsupported.");
    return ShowHint(extension == ".wav" ? "Multiple WAV Files Selected..." : "Multiple VQF Files Selected...",
                    "Choose a single file to view the file info.");
  } else {
    ShowFileInfo(files, path, engine_.thousands_separator, view.file);
  }
  if (OneFile() && view.ogg_shown) {
    VorbisComments found;
    ReadVorbisComments(files, path, found);
    ShowOggInfo(path, found, view.ogg);
  }
  if (OneFile() && extension == ".wav") {
    WavHeader header;
    ReadWavHeader(files, path, header);
    ShowWavInfo(files, path, header, view.mpeg);
  }
}

// With several files the tag object stays unread, which leaves a blank form.
void TagEditor::ShowMp3() {
  const FileSystem& files = engine_.services.files;
  TagObject tag(files);
  if (OneFile()) {
    const std::string& path = files_.SelectedPaths.front();
    Outcome ok;
    GetID3Tag(files, path, tag, ok);
    ShowFileInfo(files, path, engine_.thousands_separator, view.file);
    ShowMpegInfo(files, path, tag.Stream(), view.mpeg);
  } else {
    page = EditorPage::kGeneral;
    ShowHint("Multiple MP3 Files Selected...", "Click 'Paste' then 'Update' to update all items.");
  }
  view.mpeg_shown = true;
  view.mpeg_caption = "MPEG Info";
  ShowTagInForm(tag);
  view.copy = tag.HasID3v1() || tag.HasID3v2();
  view.tag_pages = view.presence_boxes = true;
  view.paste = clipboard_.ClipboardFull;
}

void TagEditor::ShowHint(const char* first, const char* second) {
  view.file.FileInfo = {first, second};
}

void TagEditor::ShowTagInForm(const TagObject& tag) {
  ShowTag(tag, view.form);
  ShowLists();
  ShowPresence();
}

void TagEditor::ShowLists() {
  comments.Show(std::move(view.form.comments));
  pictures.Show(std::move(view.form.images));
  positions.LoadTpsi();
}

void TagEditor::CollectLists() {
  if (!view.form.id3v2_present) return;
  positions.SaveTpsi();
  view.form.images = pictures.Collect();
  view.form.comments = comments.Rows();
}

void TagEditor::ShowPresence() {
  SetV1Enabled(view.form.id3v1_present);
  SetV2Enabled(view.form.id3v2_present);
}

void TagEditor::SetV2Enabled(bool enabled) {
  view.v2_enabled = enabled;
  view.positions_played = enabled && engine_.player.PlayerAssociated;
}

void TagEditor::CmdCopy_Click() {
  if (!view.form.id3v1_present && !view.form.id3v2_present) return;
  CollectLists();
  CollectToClipboard(view.form, clipboard_);
  view.paste = true;
}

void TagEditor::CmdPaste_Click() {
  ShowClipboard(clipboard_, view.form);
  ShowLists();
  ShowPresence();
  if (view.form.id3v1_present || view.form.id3v2_present) view.update = view.copy = true;
}

void TagEditor::ID3v1Present_Click(bool checked) {
  view.form.id3v1_present = checked;
  SetV1Enabled(checked);
  view.copy = checked || (view.copy && view.form.id3v2_present);
}

void TagEditor::ID3v2Present_Click(bool checked) {
  view.form.id3v2_present = checked;
  SetV2Enabled(checked);
  view.copy = checked || (view.copy && view.form.id3v1_present);
}

void TagEditor::ID3v1Duplicate_Click() {
  if (!view.form.id3v1_present) return;
  ID3v2Present_Click(true);
  CopyFromId3v1(view.form);
  const std::string& comment = view.form.v1[kV1Comment];
  if (!comment.empty()) comments.Append({"", comment});
}

void TagEditor::ID3v2Duplicate_Click() {
  if (!view.form.id3v2_present) return;
  ID3v1Present_Click(true);
  CopyFromId3v2(view.form);
  if (!comments.Rows().empty()) view.form.v1[kV1Comment] = comments.Rows().front().text;
}

void TagEditor::CmdListen_Click() {
  engine_.preview.Play(kPlaySelected);
}

// The names of the ID3v1 tag win.
void TagEditor::CmdInfo_Click() {
  MusicNames names;
  const auto take = [](std::string& name, const std::string& text) {
    if (!text.empty()) name = text;
  };
  const TagForm& form = view.form;
  if (form.id3v2_present) names = {form.v2[kV2Title], form.v2[kV2Artist], form.v2[kV2Album]};
  if (form.id3v1_present) {
    take(names.title, form.v1[kV1Title]);
    take(names.artist, form.v1[kV1Artist]);
    take(names.album, form.v1[kV1Album]);
  }
  WebSearch(QueryFor(names, view.file.FileInfo[0]));
}

void TagEditor::OpenUrl(const std::string& text) {
  if (!text.empty()) engine_.services.shell.OpenAddress(AddressOf(text));
}

void TagEditor::WebSearch(const std::string& text) {
  if (!text.empty()) engine_.services.shell.OpenAddress(SearchAddress(text));
}

void TagEditor::CmdPrev_Click() {
  if (files_.FirstSelected > 1) SelectAlone(files_.FirstSelected - 1);
}

void TagEditor::CmdNext_Click() {
  if (files_.LastSelected >= 1 && files_.LastSelected <= engine_.document.ListView1.Count() - 1)
    SelectAlone(files_.LastSelected + 1);
}

void TagEditor::SelectAlone(int row) {
  engine_.items.MEditSelNone_Click();
  engine_.document.ListView1.SetSelected(row, true);
  engine_.document.ListView1.EnsureVisible(row);
  LoadSelection();
}

void TagEditor::ChangeAttribute(std::string FileAttributeChanges::*field, bool set) {
  FileAttributeChanges changes;
  changes.*field = set ? "SET" : "CLR";
  for (const std::string& path : files_.SelectedPaths) ApplyFileAttributes(engine_.services.files, path, changes);
}

std::optional<std::string> TagEditor::TitleOfFile() const {
  if (!OneFile()) return std::nullopt;
  return TitleFromFileName(view.file.FileInfo[0]);
}

std::optional<std::string> TagEditor::NameOfFolder() const {
  if (!OneFile()) return std::nullopt;
  return ParentFolderName(files_.SelectedPaths.front());
}

}  // namespace qublet
