// The run summary beside the main window: after a press, what the writers wrote and dropped
// and the pre-import check's warnings, to read, copy and save. It only shows what the form
// holds of its last press; nothing of the run changes by it.
#pragma once

#include <QDialog>
#include <QString>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace corvane {
class ImportCheck;
class RunSummary;
}  // namespace corvane

namespace corvane::gui {

class SummaryPanel : public QDialog {
 public:
  SummaryPanel(QWidget* main, const RunSummary& summary, const ImportCheck& check);

  // The last press as the form holds it. `reported` says whether the press ended with its
  // report: a press that was refused or failed opens the panel only when its summary says
  // something. A press that says nothing closes a panel still showing an earlier one.
  void ShowPress(bool reported);
  // Whether the summary of the form's last press has anything to show.
  bool SaysAnything() const;

  // The whole summary with every warning kept, as Copy puts it on the clipboard.
  QString FullText() const;
  // Writes the summary to `path`: its text when the name ends ".txt", else its JSON. The
  // Save button's dialog ends here. False, with `error` set, when the file cannot be written.
  bool SaveTo(const QString& path, QString* error = nullptr) const;
  // Shows the flagged line of warning `index` in the view of its import file.
  void ChooseWarning(int index);

  QPlainTextEdit* SummaryView() const { return table_; }
  QLabel* WarningCount() const { return count_; }
  QTreeWidget* Warnings() const { return warnings_; }
  QLabel* LineHeading() const { return line_heading_; }
  QPlainTextEdit* FileView() const { return file_view_; }
  QPushButton* CopyButton() const { return copy_; }
  QPushButton* SaveButton() const { return save_; }
  QPushButton* CloseButton() const { return close_; }

 private:
  void Fill();
  // Loads import file `file` of the check into the view, once per file shown.
  bool LoadFile(int file);
  void Save();

  const RunSummary& summary_;
  const ImportCheck& check_;
  QPlainTextEdit* table_;
  QLabel* count_;
  QTreeWidget* warnings_;
  QLabel* line_heading_;
  QPlainTextEdit* file_view_;
  QPushButton *copy_, *save_, *close_;
  int shown_file_ = -1;  // the check's file in the view; -1 none
  bool placed_ = false;  // put beside the main window once; after that where the operator left it
};

}  // namespace corvane::gui
