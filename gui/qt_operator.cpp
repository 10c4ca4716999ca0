#include "gui/qt_operator.hpp"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "gui/widgets.hpp"
#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"

namespace corvane::gui {

QtOperator::QtOperator(QWidget* owner, QLabel* progress_line)
    : owner_(owner), progress_line_(progress_line) {
  since_painted_.start();
}

QWidget* QtOperator::Owner() const {
  QWidget* active = QApplication::activeWindow();
  return active != nullptr ? active : owner_;
}

QtOperator::ArrowWhileAsking::ArrowWhileAsking(const QtOperator& ui) : hourglass_(ui.hourglass_) {
  if (hourglass_) QApplication::setOverrideCursor(Qt::ArrowCursor);
}

QtOperator::ArrowWhileAsking::~ArrowWhileAsking() {
  if (hourglass_) QApplication::restoreOverrideCursor();
}

MsgAnswer QtOperator::MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) {
  last_message_ = text;
  QMessageBox box(Owner());
  box.setWindowTitle(Q(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(Lines(text));
  box.setIcon(QMessageBox::NoIcon);
  // One role for all keeps the buttons in the order the message asks for them.
  const std::vector<std::string_view> captions = ButtonCaptions(buttons);
  QPushButton* escape = nullptr;
  for (std::string_view caption : captions) {
    QPushButton* b = box.addButton(Q(caption), QMessageBox::ActionRole);
    // Escape answers Cancel where the box has it, and a lone OK; a Yes/No question waits.
    if (caption == "Cancel" || buttons == MsgButtons::OKOnly) escape = b;
    if (box.defaultButton() == nullptr) box.setDefaultButton(b);
  }
  if (escape != nullptr) box.setEscapeButton(escape);
  {
    ArrowWhileAsking arrow(*this);
    box.exec();
  }
  MsgAnswer answer = MsgAnswer::OK;
  const auto* clicked = qobject_cast<QPushButton*>(box.clickedButton());
  if (clicked == nullptr || !AnswerFromCaption(buttons, L(clicked->text()), answer)) {
    AnswerFromCaption(buttons, captions.front(), answer);
  }
  return answer;
}

std::string QtOperator::InputBox(std::string_view prompt, std::string_view title,
                                 std::string_view default_text) {
  QInputDialog box(Owner());
  box.setWindowTitle(Q(title));
  box.setLabelText(Lines(prompt));
  box.setTextValue(Q(default_text));
  box.setOkButtonText(QStringLiteral("OK"));
  box.setCancelButtonText(QStringLiteral("Cancel"));
  int result = QDialog::Rejected;
  {
    ArrowWhileAsking arrow(*this);
    result = box.exec();
  }
  return result == QDialog::Accepted ? L(box.textValue()) : std::string();
}

void QtOperator::Progress(std::string_view text) {
  if (progress_line_ == nullptr) return;
  progress_line_->setText(Q(text));
  // A long file reports every record: the line is painted a few times a second, not each time.
  if (since_painted_.elapsed() >= 100) {
    progress_line_->repaint();
    since_painted_.restart();
  }
}

void QtOperator::Hourglass(bool on) {
  if (on == hourglass_) return;
  hourglass_ = on;
  if (on) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtOperator::RuntimeErrorReport(const RuntimeError& error) {
  Hourglass(false);
  QMessageBox box(Owner());
  box.setWindowTitle(Q(kAppTitle));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Critical);
  box.setText(
      QStringLiteral("Run-time error '%1':\n\n%2").arg(error.number()).arg(Q(error.description())));
  box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace corvane::gui
