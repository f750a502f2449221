#pragma once
// What the program remembers for a user from run to run: the file settings.ini in the user's configuration
// folder, UTF-8, in the INI format of QSettings, so that windows and console share it.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvek {

// The path of the settings file, which need not exist; empty for a user without a home.
std::string SettingsFile();

// The value of a key in a section, in UTF-8; `fallback` where there is none or the file can not be read.
// Sections and keys are ASCII without control characters, their letter case counts, and section "" is the one
// that QSettings calls General: Fault::InvalidCall for any other text.
std::string GetSetting(std::string_view section, std::string_view key, std::string_view fallback);

// Stores values and leaves every other line as it is. False, and the file as it was, where it can not be
// written; nobody is told, since a forgotten choice is no fault of the work done.
using SettingValues = std::vector<std::pair<std::string_view, std::string_view>>;  // keys with their values
bool PutSettings(std::string_view section, const SettingValues& values);
bool PutSetting(std::string_view section, std::string_view key, std::string_view value);

}  // namespace tarvek
