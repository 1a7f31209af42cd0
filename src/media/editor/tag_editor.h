#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "media/editor/attributes.h"
#include "media/editor/comment_rows.h"
#include "media/editor/file_pages.h"
#include "media/editor/picture_rows.h"
#include "media/editor/selected_files.h"
#include "media/editor/tag_form.h"
#include "media/editor/time_positions.h"

namespace qublet {

enum class EditorPage { kGeneral, kId3v1, kId3v2 };

// All that the tag editor's window shows. The window puts it on the screen and brings back what the user has written
// into the form; what a command makes of it is up to TagEditor.
struct EditorView {
  bool prev = false, next = false, copy = false, paste = false, update = false;
  bool undo = false;

  bool tag_pages = false;  // the pages "ID3v1" and "ID3v2"
  bool presence_boxes = false;
  bool v1_enabled = false;  // the controls of the page, and its indicator
  bool v2_enabled = false;
  bool positions_played = false;  // what works with the player on the page "TPSI"
  bool unusable = false;          // the page "General" is marked red

  bool mpeg_shown = false;
  bool ogg_shown = false;
  bool attributes_shown = false;
  std::string mpeg_caption = "MPEG Info";
  FilePage file;
  MpegLabels mpeg;
  OggLabels ogg;

  TagForm form;        // its comments and pictures stand in the lists
  std::string report;  // the line beside the progress
};

// The tag editor without its window.
class TagEditor {
 public:
  // While files are updated.
  struct Watch {
    std::function<void(int value, int maximum)> progress = [](int, int) {};
    std::function<bool()> stopped = [] { return false; };
  };

  // All of them outlive it.
  TagEditor(Engine& engine, const PictureCodec& codec, Background& background);

  EditorView view;
  CommentRows comments;
  PictureRows pictures;
  TimePositions positions;
  // The page that is to come to the front; the window sets it when the user turns to another one.
  EditorPage page = EditorPage::kGeneral;

  void LoadSelection();
  void CmdRefresh_Click() { LoadSelection(); }
  void CmdCopy_Click();
  void CmdPaste_Click();
  // Stopped between two files, those done stay done; the rest is no failure.
  void CmdUpdate_Click(const Watch& watch);
  void CmdUndo_Click();
  void CmdListen_Click();
  void CmdInfo_Click();
  void CmdPrev_Click();
  void CmdNext_Click();

  void ID3v1Present_Click(bool checked);
  void ID3v2Present_Click(bool checked);
  // "<<Copy from ...": what one tag's page holds goes into the other's.
  void ID3v1Duplicate_Click();
  void ID3v2Duplicate_Click();

  // The signature into the box of a page, and the box's text kept as the signature.
  std::string Signature() const { return engine_.session.Kept(kTagSignature); }
  void KeepSignature(const std::string& text) { engine_.session.Keep(kTagSignature, text); }

  // The boxes are to hold what the user has set before this.
  void FileInfoReadOnly_Click() { ChangeAttribute(&FileAttributeChanges::read_only, view.file.read_only); }
  void FileInfoArchive_Click() { ChangeAttribute(&FileAttributeChanges::archive, view.file.archive); }

  // What a double click puts into a box, when exactly one file is selected.
  std::optional<std::string> TitleOfFile() const;
  std::optional<std::string> NameOfFolder() const;
  void OpenUrl(const std::string& text);
  void WebSearch(const std::string& text);

 private:
  void TakeNeutralState();
  void ShowUnusable();
  void ShowFile();
  void ShowMp3();
  void ShowHint(const char* first, const char* second);
  void SetV1Enabled(bool enabled) { view.v1_enabled = enabled; }
  void SetV2Enabled(bool enabled);
  void ShowTagInForm(const TagObject& tag);
  void ShowLists();
  void CollectLists();
  void ShowPresence();
  void RebuildRow(int row);
  void RebuildRows(const std::vector<int>& indexes, const std::function<void()>& step);
  void SelectAlone(int row);
  void ChangeAttribute(std::string FileAttributeChanges::*field, bool set);
  bool OneFile() const { return files_.SelectedPaths.size() == 1; }

  Engine& engine_;
  SelectedFiles files_;
  TagClipboard clipboard_;
};

}  // namespace qublet
