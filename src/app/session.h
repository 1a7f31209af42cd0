#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/settings_store.h"
#include "platform/startup_entry.h"
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
    virtual ColumnWidths DefColumnWidths() const = 0;
    virtual ScreenSize Screen() const = 0;
    virtual void ShowRecentFiles() = 0;
    virtual void Relayout() = 0;
  };

  struct Places {
    std::string AppKey;
    std::string program_folder;  // drive form, no trailing "\"; "" when there is none
    std::string program = {};    // drive form of QUBLET20 itself; "" for one of that name in the program folder
  };

  Session(Document& document, AppSettings& settings, Items& items, FileSystem& files, SettingsStore& store,
          StartupEntries& startup, Places places, Window& window);

  // True on the first start for this user: no earlier start has left its mark in the store. Marks this one.
  bool FirstStart() const { return first_start_; }

  // Stores what is to be kept (`SetReg` True) or brings it back. A step that fails is skipped and the next one runs.
  void SetFormState(bool SetReg);
  // The defaults of a first start, shown and written at once.
  void BeginFirstStart();

  // A value that is kept apart from the record, "" when there is none; and keeps it at once, or gives up quietly.
  std::string Kept(const SettingAddress& address) const { return GetSetting(store_, places_.AppKey, address); }
  void Keep(const SettingAddress& address, const std::string& value) {
    SaveSetting(store_, places_.AppKey, address, value);
  }

  // "last.m3u" in the program folder: the list of the last session.
  std::string LastPlaylist() const { return places_.program_folder + "\\last.m3u"; }

 private:
  void LoadRecord();
  void RestoreWorkFolder();
  void RestoreRecentFiles();
  void StoreList();
  void StoreTwin();  // of the last list, for whatever the system opens at logon

  Document& document_;
  AppSettings& settings_;
  Items& items_;
  FileSystem& files_;
  SettingsStore& store_;
  StartupEntries& startup_;
  Places places_;
  Window& window_;
  bool first_start_ = false;
};

}  // namespace qublet
