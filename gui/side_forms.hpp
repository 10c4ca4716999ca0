// The side forms as windows over their models: the earning-code grid, the two
// customisations, and the about box. Like the main window they only show and edit fields;
// every button runs the model's own handler through the main window.
#pragma once

#include <QDialog>
#include <array>

class QLabel;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace corvane {
class CompanyChoices;
struct Control;
}  // namespace corvane

namespace corvane::gui {

class TimeImportWindow;

// frmECode: modeless, over the table the main screen's "Assign Earning Codes" bound.
class ECodeWindow : public QDialog {
 public:
  explicit ECodeWindow(TimeImportWindow& main);
  // Rebuilds the grid from the bound table and shows or hides the form as the model says.
  void ShowModel();
  QTableWidget* Grid() const { return grid_; }
  QPushButton* AddRowButton() const { return add_row_; }
  QPushButton* DeleteRowButton() const { return delete_row_; }
  QPushButton* SaveButton() const { return save_; }
  QPushButton* CancelButton() const { return cancel_; }
  // The line at the foot of the grid that says why Escape did not close it.
  QLabel* NoteLine() const { return note_; }

 protected:
  // Closing the form from its frame is its Cancel.
  void reject() override;
  // Escape is the Cancel of a grid with nothing typed into it; a stray Escape never loses
  // rows being typed.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void CellEdited(int row, int column);

  TimeImportWindow& main_;
  QLabel* heading_;
  QLabel* note_;
  // Rows added, deleted or typed into since the grid was opened.
  bool edited_ = false;
  QTableWidget* grid_;
  QPushButton *add_row_, *delete_row_, *save_, *cancel_;
  bool showing_ = false;
};

// The three choices the two customisations share, each a frame of two option buttons.
class ChoiceFrames {
 public:
  ChoiceFrames(QWidget* parent, CompanyChoices& model, const Control& dept_frame);
  void Show(const Control& dept_frame);
  QGroupBox *empno, *pay_rate, *dept;
  QRadioButton *emp, *badge, *pr_yes, *pr_no, *dept_yes, *dept_no;

 private:
  CompanyChoices& model_;
};

// frmKv8: the Kronos v8 customisation of the company in the main screen's CoNum.
class Kv8Window : public QDialog {
 public:
  explicit Kv8Window(TimeImportWindow& main);
  void ShowModel();
  ChoiceFrames& Choices() { return choices_; }
  QListWidget* List(int n) const { return lists_[n - 1]; }
  QPushButton* SaveButton() const { return save_; }
  QPushButton* CancelButton() const { return cancel_; }

 protected:
  void reject() override;

 private:
  TimeImportWindow& main_;
  QLabel *title_, *custom_heading_;
  ChoiceFrames choices_;
  std::array<QListWidget*, 6> lists_{};
  std::array<QLabel*, 6> labels_{};
  QPushButton *save_, *cancel_;
  bool showing_ = false;
};

// frmTMdept: the Time Manager customisation, and the department breakout of the clocks
// that borrow it.
class TMdeptWindow : public QDialog {
 public:
  explicit TMdeptWindow(TimeImportWindow& main);
  void ShowModel();
  ChoiceFrames& Choices() { return choices_; }
  // The boxes by segment (0 Division, 1 Branch, 2 Department, 3 Team).
  QLineEdit* Length(int segment) const { return lengths_[segment]; }
  QLineEdit* Include(int segment) const { return includes_[segment]; }
  QLabel* SegmentLabel(int segment) const { return segment_labels_[segment]; }
  QPushButton* SaveButton() const { return save_; }
  QPushButton* CancelButton() const { return cancel_; }

 protected:
  void reject() override;

 private:
  std::array<Control*, 4> LengthModels();
  std::array<Control*, 4> IncludeModels();
  std::array<Control*, 4> LabelModels();

  TimeImportWindow& main_;
  QLabel *title_, *breakout_heading_, *length_head_, *include_head_;
  ChoiceFrames choices_;
  std::array<QLabel*, 4> segment_labels_{};
  std::array<QLineEdit*, 4> lengths_{}, includes_{};
  QPushButton *save_, *cancel_;
  bool showing_ = false;
};

// frmAbout: the program's title and version.
class AboutBox : public QDialog {
 public:
  explicit AboutBox(QWidget* parent);
  QLabel* Title() const { return title_; }
  QLabel* Version() const { return version_; }

 private:
  QLabel *title_, *version_;
};

}  // namespace corvane::gui
