// The subcommands that read and edit the stored settings as their forms do, so that a bureau
// can script them: earning codes, the Kronos v8 and Time Manager customisations, and the
// location table.
#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <string>

namespace corvane {

class SettingsCommands {
 public:
  // Adds codes, kronos8, timemanager and locations to the command.
  void AddTo(CLI::App& app, const std::string& default_settings_dir);
  // Runs the one that was given; false when none of them was.
  bool Run(int& status);

 private:
  int CodesList();
  int CodesSet();
  int CodesDelete();
  int Kronos8(bool set);
  int TimeManager(bool set);
  int LocationsList();

  std::string settings_dir_;
  std::string company_;
  std::string format_;
  int category_ = 0;
  std::string de_, code_, hours_or_amount_, shift_, skip_;
  std::string employee_number_, pay_rate_, department_;
  std::array<std::string, 6> custom_;
  std::array<std::string, 4> length_, include_;

  CLI::App *codes_list_ = nullptr, *codes_set_ = nullptr, *codes_delete_ = nullptr;
  CLI::App *kronos8_show_ = nullptr, *kronos8_set_ = nullptr;
  CLI::App *timemanager_show_ = nullptr, *timemanager_set_ = nullptr;
  CLI::App* locations_list_ = nullptr;
  CLI::Option *de_opt_ = nullptr, *code_opt_ = nullptr, *hours_opt_ = nullptr,
              *shift_opt_ = nullptr, *skip_opt_ = nullptr;
};

}  // namespace corvane
