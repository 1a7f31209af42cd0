#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/recovery.h"
#include "platform/services.h"
#include "playlist/items.h"
#include "settings/app_settings.h"
#include "settings/kept_values.h"

namespace qublet {

// What is kept from one session to the next, and what a start brings back.
class Session {
 public:
  // The window's part in it.
  class Window {
   public:
    virtual ~Window() = default;
    virtual void ApplyQUBLETSettings() = 0;
    virtual void CopyState(AppSettings& settings) = 0;  // what the window looks like now, into the record
    virtual bool Maximised() const = 0;
    virtual ColumnWidths DefColumnWidths() const = 0;
    virtual ScreenSize Screen() const = 0;
    virtual void Relayout() = 0;
    virtual void EndUnsaved() = 0;  // the process ends, and nothing is stored on the way
  };

  struct Places {
    std::string AppKey;
    std::string program_folder;  // drive form, no trailing "\"; "" when there is none
    std::string program = {};    // drive form of QUBLET20 itself; "" for one of that name in the program folder
    std::string recovery = {};   // folder of the recovery lists, drive form, no trailing "\"; "" for none
    std::vector<std::string> companions = {};  // where files that came with the program stand, beside its own folder
  };

  Session(Document& document, AppSettings& settings, Items& items, Recovery& recovery, const Services& services,
          MainView& view, Places places)
      : document_(document),
        settings_(settings),
        items_(items),
        recovery_(recovery),
        services_(services),
        view_(view),
        places_(std::move(places)) {}

  // The window that the rest is about; it outlives all calls below.
  void Show(Window& window) { window_ = &window; }

  // Leaves the mark of a start in the store, and where the program lies for those who look for it.
  void Begin();
  // What the last session left; on the first start for this user (no mark of an earlier one) the defaults, shown and
  // written at once.
  void RestoreOrBeginAnew();
  // Stores what is to be kept (`SetReg` True) or brings it back. A step that fails is skipped and the next one runs.
  void SetFormState(bool SetReg);

  // Says in passing that the store keeps nothing, where it doesn't: storing itself never says so.
  void TellOfSettingsNotKept();

  // Takes what the window looks like now into the record, as an end does.
  void TakeWindowState() { window_->CopyState(settings_); }
  // Has the window follow a record that has changed.
  void ApplyRecord();
  // Empties the stored list of recent files.
  void ForgetRecentFiles();
  // Ends the process at once, without a question and without storing anything.
  void EndUnsaved() { window_->EndUnsaved(); }

  // Adds the list of the last session: "last.m3u", or the newest recovery list that nobody owns when that is not
  // older. True when it was such a one.
  bool RestoreLastList();

  // A value that is kept apart from the record, "" when there is none; and keeps it at once, or gives up quietly.
  std::string Kept(const SettingAddress& address) const {
    return GetSetting(services_.store, places_.AppKey, address);
  }
  void Keep(const SettingAddress& address, const std::string& value) {
    SaveSetting(services_.store, places_.AppKey, address, value);
  }

 private:
  void StoreState();
  void RestoreState();
  void LoadRecord();
  void RestoreWorkFolder();
  void RestoreRecentFiles();
  bool StoreList();
  void StoreTwin();  // of the last list, for whatever the system opens at logon

  Document& document_;
  AppSettings& settings_;
  Items& items_;
  Recovery& recovery_;
  Services services_;
  MainView& view_;
  Places places_;
  Window* window_ = nullptr;
  bool first_start_ = false;
};

}  // namespace qublet
