#pragma once

#include <functional>
#include <string>

#include "generators/disc/wizard_settings.h"
#include "generators/report/report_engine.h"
#include "platform/feedback.h"
#include "playlist/paths/collections.h"

namespace qublet {

// The browser program as it stands on a disc.
inline constexpr const char* kBrowserOnDisc = "qubbrows.exe";
// The same as it lies in the program's folder, with the case it has there. The file may be missing.
std::string BrowserProgram(const FileSystem& files, const std::string& program_folder);

// A disc that is to be made. Paths are in drive form.
struct DiscPlan {
  std::string AssembleLoc;  // "\" at its end
  std::string CDROMLoc;
  DiscExtras extras;
  std::string icon_file;  // the user's own .ico file, copied as it is; "" for `icon`
  std::string icon;       // the bytes of the icon file that is written otherwise
  ReportSettings ReportRec;

  std::string CDRoot() const { return AssembleLoc + CDROMLoc; }
};

struct DiscServices {
  const FileSystem& files;
  Feedback& feedback;
  const Clock& clock;
  const std::string& thousands_separator;
  const std::string& program_folder;
};

// What is to be shown on the way.
struct DiscWatch {
  std::function<void(const std::string& text)> lblReport = [](const std::string&) {};
  std::function<void(int value)> ProgressBar2 = [](int) {};  // of kDiscStages
  ReportProgress ProgressBar1 = [](int, int) {};
};
inline constexpr int kDiscStages = 5;

struct BuiltDisc {
  bool BuildOk = true;
  Collection CreatedFiles;  // what the run made
  Collection BurnList;      // what stands in the folder at the top
};

// Adds what the plan asks for to the folder of the disc. A part that fails doesn't keep the others from being made,
// but at the end everything that was made goes away again; the music is never touched. After a success `keep` runs.
BuiltDisc BuildCompilation(const DiscServices& services, const DiscPlan& plan, const DiscWatch& watch,
                           const std::function<void()>& keep);

// The settings of the page's report unless the user has others. RepType stays.
void SetDefaultReport(const std::string& title, ReportSettings& record);
// What the page is called: the disc's name, and when it was made.
std::string DiscTitle(const std::string& name, const Clock& clock);

}  // namespace qublet
