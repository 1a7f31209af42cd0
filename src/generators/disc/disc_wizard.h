#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/engine.h"
#include "generators/disc/disc_build.h"
#include "generators/disc/icon_picture.h"
#include "generators/disc/wizard_settings.h"

namespace qublet {

// What the wizard shows.
struct DiscView {
  int frame = 0;
  bool back = false;
  bool next = false;
  bool closes_next = false;  // the keyboard belongs to the button that closes

  std::string CDROMLoc;  // the build folder's name; the rest of the first and third step stands in `choices`
  DiscChoices choices;
  IconPicture CDIcon;
  bool browser_usable = true;  // the program for the disc is there
  bool drag = false;           // the disc is ready to be dragged

  std::string lblReport;
  std::string Label7;

  // Which controls of the third step can be used.
  bool UsesAutorun() const { return choices.extras.chkCreateAutorun; }
  bool UsesIcon() const { return UsesAutorun() && choices.extras.chkAutoIcon; }
  bool UsesIndex() const { return UsesAutorun() && browser_usable && choices.extras.chkCopyBrowser; }
};

// The wizard that prepares a folder to be burned as a music disc, without its window.
class DiscWizard {
 public:
  // The frames by their numbers.
  enum Frame { kFoldersFrame, kFilesFrame, kExtrasFrame, kFinishFrame };

  // What is to be painted at once.
  struct Watch {
    std::function<void()> view = [] {};
    std::function<void(int value)> ProgressBar2 = [](int) {};
    ReportProgress ProgressBar1 = [](int, int) {};
  };

  explicit DiscWizard(Engine& engine);

  DiscView view;

  // The window opens, or begins with another disc.
  void Load();

  void CmdNext_Click(const Watch& watch);
  void CmdBack_Click();

  void BrowseAssembleLoc_Click();
  void BrowseImageLoc_Click();
  void CDROMLoc_Change(const std::string& text);
  void ImSize_Click(int row) { view.choices.ImSize = row; }
  void OpenImageLoc_Click();

  void Box_Click(bool DiscExtras::*box, bool ticked) { view.choices.extras.*box = ticked; }
  void ShowSoftware_Click();
  void IconChooser_Click(int row);
  void LoadReportSet_Click();
  void DefReportSet_Click();
  void PrevReportSet_Click(const Watch& watch);

  void OpenFol_Click();
  const Collection& BurnList() const { return BurnList_; }

 private:
  std::string CDRoot() const { return view.choices.AssembleLoc + view.CDROMLoc; }
  DiscServices Services() const;
  void Tell(const std::string& text, MessageIcon icon);
  void EnableNext();
  bool LeaveStep();
  bool PrepareBuildFolder();
  void AddRecentFolder();
  bool CheckCompilation();
  void PrepareExtras();
  void PrepareReport();
  void GiveUpBrowser();
  void Show(int frame);
  bool ShowIconFile();
  void ShowNumberedIcon(int number);
  void BuildCompilation(const Watch& watch);
  DiscPlan Plan() const;

  Engine& engine_;
  int Step = 0;
  int number_ = kUsualDiscIcon;  // of the icon that CDIcon shows; kCustomIcon for another picture
  ReportSettings ReportRec;
  Collection CompileFiles_;
  Collection BurnList_;
};

// What becomes of a build folder's name when `before` is changed to `now` at the keyboard: it takes up to 230
// characters, and what would make a path of it is dropped.
std::string TypedFolderName(std::string_view before, std::string_view now);

}  // namespace qublet
