// frmTimeImport as a window: every named field of the main screen as a widget over the
// screen model. The window keeps no state of its own beyond what the widgets show: edits go
// into the model as they are made, and after each event the model is shown again.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>

#include "gui/qt_operator.hpp"
#include "pipeline/time_import.hpp"

class QLabel;
class QLineEdit;
class QListWidget;
class QAction;

namespace corvane::gui {

class ECodeWindow;
class Kv8Window;
class SummaryPanel;
class TMdeptWindow;

class TimeImportWindow : public QMainWindow {
 public:
  explicit TimeImportWindow(Environment env, QWidget* parent = nullptr);
  ~TimeImportWindow() override;

  // The start of the program: Form_Load, then the screen as it left it.
  void Start();

  frmTimeImport& Form() { return F_; }
  QtOperator& Ui() { return ui_; }
  // The widget of a named control.
  QWidget* Widget(Ctl c) const { return widgets_[c]; }
  QLineEdit* PickTCFilter() const { return filter_; }
  QLabel* ProgressLine() const { return progress_line_; }
  // What the screen's state means for the next press, at the foot of the window.
  QLabel* HintLine() const { return hint_line_; }
  ECodeWindow& ECode() const { return *ecode_; }
  Kv8Window& Kv8() const { return *kv8_; }
  TMdeptWindow& TMdept() const { return *tm_; }
  SummaryPanel& Summary() const { return *summary_; }
  QAction* ExitAction() const { return exit_; }
  QAction* AboutAction() const { return about_; }

  // Runs one event of the model and shows the screen again. A run-time error is reported
  // and ends the program at once, without storing the screen; false then.
  bool Event(const std::function<void()>& handler);
  // The model onto every widget of the main screen.
  void ShowModel();
  // Set once a run-time error has ended the program.
  bool Ended() const { return ended_; }

  // The menu's About: frmAbout, modal.
  void About();
  // The menu's Exit: the side forms, then the main form.
  void Exit();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  QWidget* BuildPickPanel();
  QWidget* BuildFieldsPanel();
  QWidget* BuildCodesPanel();
  void Connect();
  void ConnectButtons();
  // After a press: the keyboard in the box its refusal is about.
  void FocusRefusedBox();
  // The folder list shows its folder's subfolders, and ".." above them.
  void ShowFolder(Ctl dir);
  void ShowFileChoice();
  void ShowDrives(Ctl drive);
  // The status line's word on the behaviour a press keeps, and the mark on the output box.
  void ShowHints();
  // The time clocks whose press stops at once for want of a translator, greyed in the list.
  void MarkUnwritten();
  // The pickers' native dialogs, beside the lists.
  void BrowseInput();
  void BrowseOutput();
  // A run-time error: the report, then the end.
  void End(const RuntimeError& error);

  QLabel* progress_line_;
  QLabel* hint_line_ = nullptr;
  QtOperator ui_;
  frmTimeImport F_;
  std::array<QWidget*, kControlCount> widgets_{};
  QLineEdit* filter_ = nullptr;
  QAction* exit_ = nullptr;
  QAction* about_ = nullptr;
  std::unique_ptr<ECodeWindow> ecode_;
  std::unique_ptr<Kv8Window> kv8_;
  std::unique_ptr<TMdeptWindow> tm_;
  std::unique_ptr<SummaryPanel> summary_;
  bool ended_ = false;   // a run-time error ended the program
  bool exited_ = false;  // Exit has run the exit path already
  bool showing_ = false;
};

}  // namespace corvane::gui
