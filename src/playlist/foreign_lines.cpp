#include "playlist/foreign_lines.h"

#include <algorithm>
#include <utility>

#include "media/media_info.h"
#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/row_filling.h"

namespace qublet {
namespace {

// Exactly and by letter case; the row's own path is looked up in both ways too.
constexpr std::size_t kMostCandidates = ForeignLines::kMostLookUps / 2 - 1;

// Where a line is read.
struct Place {
  const FileSystem& files;
  const LanguageCodePage& page;
  const std::string& folder;  // that it is relative to, drive form, with its "\"
  bool native;                // the list is in this system's own form
};

// A line on its way to a path. Bytes that are no UTF-8 are a name of just these bytes.
struct Form {
  std::string text;
  bool unescaped = false;  // it stood in an address: whether "%" escapes was looked at there
};
using Forms = std::vector<Form>;

void Append(Forms& forms, std::string text, bool unescaped = false) {
  const auto same = [&](const Form& form) { return form.text == text; };
  if (!text.empty() && std::none_of(forms.begin(), forms.end(), same)) forms.push_back({std::move(text), unescaped});
}

// In this system's own form a name is first of all its bytes.
void ReadEncodings(const Place& place, const Form& line, Forms& forms) {
  if (place.native) Append(forms, line.text);
  Append(forms, LineText(line.text, place.page));
  if (IsAscii(line.text)) return;
  Append(forms, line.text);
  Append(forms, place.page.Decode(line.text));
  Append(forms, FromCodePage(line.text));
}

void ReadWithoutBlanks(const Place&, const Form& form, Forms& forms) {
  constexpr std::string_view kBlanks = " \t";
  constexpr std::string_view kBehind = " \t\x1A";
  const std::string front = form.text.substr(0, form.text.find_last_not_of(kBehind) + 1);
  Append(forms, form.text);
  Append(forms, front);
  Append(forms, front.substr(std::min(front.find_first_not_of(kBlanks), front.size())));
}

// Whether escapes are meant isn't sure: some programs put a path behind "file://" as it stands.
void ReadAddress(const Place& place, const Form& form, Forms& forms) {
  const auto file = FileOfAddress(form.text);
  if (!file && !IsAddress(form.text)) return Append(forms, form.text);
  if (!file || !file->host.empty()) return;
  for (const std::string& path : {PercentDecoded(file->path), file->path}) {
    Append(forms, HasDrive(std::string_view(path).substr(1)) ? LineText(path, place.page).substr(1) : path, true);
  }
  Append(forms, form.text, true);  // a folder may bear that name
}

void ReadEscapes(const Place& place, const Form& form, Forms& forms) {
  Append(forms, form.text, form.unescaped);
  if (form.unescaped) return;
  const std::string decoded = PercentDecoded(form.text);
  Append(forms, LineText(decoded, place.page));
  Append(forms, decoded);
}

// In drive form no name holds a ":".
void ReadDrivePath(const Place& place, const Form& form, Forms& forms) {
  const std::string& text = form.text;
  if (!IsValidUtf8(text)) return;
  std::string path = place.folder + text;
  if (HasDrive(text)) {
    path = text;
  } else if (IsSeparator(text[0])) {
    const bool server = text.size() > 1 && IsSeparator(text[1]);
    path = server ? text : place.folder.substr(0, 2) + text;
  }
  path = PlainDrivePath(path);
  if (path.find(':', 2) != path.npos) ResumeNext([&] { path = place.files.FromNative(place.files.ToNative(path)); });
  Append(forms, path);
}

void AppendNative(const Place& place, const std::string& native, Forms& forms) {
  ResumeNext([&] {
    const std::string base = native.starts_with('/') ? "" : place.files.ToNative(place.folder) + "/";
    Append(forms, place.files.FromNative(base + native));
  });
}

void ReadOwnPath(const Place& place, const Form& form, Forms& forms) {
  const bool drive = HasDrive(form.text);
  if (drive && form.text.size() > 2 && IsSeparator(form.text[2])) return;
  AppendNative(place, form.text, forms);
  if (!drive) AppendNative(place, ReplaceAll(form.text, "\\", "/"), forms);
}

// The readings build on each other: each takes every form that the ones before have made. Those of a path come last,
// and each makes paths of a text, relative ones first from the list's folder, then from that of the file that the
// list is a link to. What they give is looked for exactly, then in any letter case.
enum class Makes { kTexts, kPaths };
enum class Where { kEverywhere, kOwnFormWithoutDrives };

struct Reading {
  Makes makes;
  Where where;
  std::string_view reason;
  void (*read)(const Place&, const Form&, Forms&);
};

constexpr Reading kReadings[] = {
    {Makes::kTexts, Where::kEverywhere,
     "lists are joined from several programs, and names keep what they were made in", ReadEncodings},
    {Makes::kTexts, Where::kEverywhere, "lists are written by hand and by scripts, and old editors end with Ctrl-Z",
     ReadWithoutBlanks},
    {Makes::kTexts, Where::kEverywhere, "players of desktops write addresses", ReadAddress},
    {Makes::kTexts, Where::kEverywhere, "a well-known player escapes plain paths", ReadEscapes},
    {Makes::kPaths, Where::kEverywhere, "portable players write \"/\" behind a drive, or both separators in a line",
     ReadDrivePath},
    {Makes::kPaths, Where::kOwnFormWithoutDrives, "\":\" and \"\\\" stand in names here", ReadOwnPath},
};

bool NamesFile(const FileSystem& files, const std::string& path) {
  if (!files.Exists(path)) return false;
  const auto attributes = files.Attributes(path);
  return attributes && (*attributes & kFolder) == 0;
}

// Whether a line of a plain list can't mean anything else than what it was taken in as.
bool HasOneMeaning(std::string_view bytes) {
  const auto is_plain = [](char c) { return c >= ' ' && c <= '~' && c != '/' && c != '%' && c != ':'; };
  const bool drive = HasDrive(bytes) && bytes.size() > 2 && bytes[2] == '\\';
  const std::string_view rest = bytes.substr(drive ? 3 : 0);
  return std::all_of(rest.begin(), rest.end(), is_plain) && !bytes.starts_with(' ') && !bytes.ends_with(' ') &&
         rest.find(drive ? "\\." : "\\") == rest.npos && !rest.starts_with('\\') && !rest.starts_with('.') &&
         rest.find("\\\\") == rest.npos;
}

// Whether a row's full path and the path that it was made of are the same words.
bool IsSamePath(const std::string& full, const std::string& path) {
  return full == path || (!Contains(path, ":") && !path.starts_with('\\') && full.ends_with("\\" + path));
}

bool IsOfAServer(const std::string& path) {
  return path.starts_with("\\\\");
}

// A "/" in a cell never is a name's.
bool HoldsSlash(const MediaInfo& info) {
  return Contains(info.FileName, "/") || Contains(info.Path, "/");
}

}  // namespace

ForeignLines::ForeignLines(const FileSystem& files, const PlaylistLines& playlist, std::string thousands_separator)
    : files_(files),
      playlist_(playlist),
      servers_(files, playlist),
      thousands_separator_(std::move(thousands_separator)),
      own_form_has_drives_(OwnFormHasDrives(files)),
      names_(files.FindRealNames()) {}

Collection ForeignLines::Candidates(std::string_view bytes) const {
  Forms texts{{std::string(bytes)}};
  Forms paths;
  for (const Reading& reading : kReadings) {
    if (reading.makes != Makes::kTexts) continue;
    Forms further;
    for (const Form& form : texts) reading.read({files_, page_, playlist_.folder, playlist_.native}, form, further);
    texts = std::move(further);
  }
  for (const std::string* folder : {&playlist_.folder, &playlist_.linked_folder}) {
    if (folder->empty()) continue;
    for (const Form& text : texts) {
      for (const Reading& reading : kReadings) {
        const bool applies = reading.where == Where::kEverywhere || !own_form_has_drives_;
        if (reading.makes == Makes::kPaths && applies)
          reading.read({files_, page_, *folder, playlist_.native}, text, paths);
      }
    }
  }
  Collection candidates;
  for (Form& path : paths) candidates.push_back(std::move(path.text));
  return candidates;
}

// Whether the name may be one of just these bytes, which the row's isn't.
bool ForeignLines::MayBeOwnBytes(std::string_view bytes) const {
  return playlist_.native && !own_form_has_drives_ && !IsValidUtf8(bytes);
}

std::optional<ForeignLines::Found> ForeignLines::Find(std::string_view bytes, const std::string& as_taken) const {
  const bool certain = !playlist_.native && playlist_.linked_folder.empty() && HasOneMeaning(bytes) &&
                       as_taken.ends_with(bytes.substr(1));
  Collection candidates = certain ? Collection{} : Candidates(bytes);
  if (!MayBeOwnBytes(bytes)) std::erase(candidates, as_taken);
  std::erase_if(candidates, [&](const std::string& path) { return !servers_.MayBeLookedFor(path); });
  if (candidates.size() > kMostCandidates) candidates.resize(kMostCandidates);
  for (const std::string& path : candidates)
    if (NamesFile(files_, path)) return Found{path, path};

  if (HasDrive(as_taken) && !Contains(as_taken, "/")) candidates.insert(candidates.begin(), as_taken);
  for (const std::string& path : candidates) {
    const std::optional<std::string> real = names_->Of(path);
    if (real && NamesFile(files_, *real)) return Found{path, *real};
  }
  return std::nullopt;
}

bool ForeignLines::IsOnAnotherHost(std::string_view bytes) const {
  const auto file = FileOfAddress(bytes);
  return file && !file->host.empty();
}

// Missing files mostly come in numbers: behind one it costs less to ask first whether the next is there.
void ForeignLines::ReadUnlessMissing(const std::string& path, MediaInfo& info) const {
  if (last_is_missing_ && !files_.Exists(path)) {
    NameFacts(files_, path, info);
  } else {
    ReadFacts(files_, path, info);
  }
  last_is_missing_ = !info.Found;
}

bool ForeignLines::FillRow(std::size_t place, const std::string& path, int original_order, Row& row) const {
  const std::string_view bytes = playlist_.lines[place];
  MediaInfo info;
  std::optional<Found> found;
  bool there = false;
  if (IsOnAnotherHost(bytes)) {  // it may be asleep: nothing of it is looked at
    NameExactly(path, info);
  } else {
    if (servers_.MayBeLookedFor(path)) {
      ReadUnlessMissing(path, info);
    } else {
      NameExactly(path, info);
    }
    const std::string full = info.Path + info.FileName;
    there = info.Found && (IsSamePath(full, path) || NamesFile(files_, full));
    if (!there || HoldsSlash(info) || MayBeOwnBytes(bytes)) found = Find(bytes, full);
    if (!there && !found && IsOfAServer(path)) NameExactly(path, info);
  }
  if (found) {
    ReadFacts(files_, found->real, info);
    NameExactly(found->path, info);
  }
  WriteRow(std::move(info), original_order, thousands_separator_, row);
  if (found) NoteRealFile(found->real, row);
  return there || found;
}

std::string ForeignLines::WholePathOf(std::string_view bytes, const std::string& row_path) const {
  if (HasDrive(row_path) || IsOfAServer(row_path) || IsAddress(bytes)) return "";
  for (std::string& path : Candidates(bytes))
    if (HasDrive(path)) return std::move(path);
  return "";
}

std::string ForeignLines::FileOf(std::size_t place, const std::string& path) const {
  const std::string_view bytes = playlist_.lines[place];
  if (IsOnAnotherHost(bytes)) return path;
  MediaInfo info;
  NameFacts(files_, path, info);
  std::string full = info.Path + info.FileName;
  const bool at_home = !HoldsSlash(info) && !MayBeOwnBytes(bytes) && servers_.MayBeLookedFor(path);
  if (at_home && NamesFile(files_, full)) return full;
  const auto found = Find(bytes, full);
  if (found) return found->real;
  return IsOfAServer(path) ? path : full;
}

}  // namespace qublet
