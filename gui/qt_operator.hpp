// The operator at the desktop: message boxes and input boxes as dialogs, the wait cursor for
// the hourglass, and the progress line in the window's status bar.
#pragma once

#include <QElapsedTimer>
#include <string>

#include "screen/operator.hpp"

class QLabel;
class QWidget;

namespace corvane::gui {

class QtOperator : public Operator {
 public:
  // Dialogs open over the active window, or over `owner` when none is active.
  QtOperator(QWidget* owner, QLabel* progress_line);

  MsgAnswer MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  void Progress(std::string_view text) override;
  void Hourglass(bool on) override;
  void RuntimeErrorReport(const RuntimeError& error) override;

  bool HourglassOn() const { return hourglass_; }
  // The text of the last message box since Forget(), "" when none was shown: the window
  // puts the keyboard in the box a refusal is about.
  const std::string& LastMessage() const { return last_message_; }
  void Forget() { last_message_.clear(); }

 private:
  QWidget* Owner() const;
  // A question needs the arrow: the wait cursor steps aside while a dialog is open.
  class ArrowWhileAsking {
   public:
    explicit ArrowWhileAsking(const QtOperator& ui);
    ~ArrowWhileAsking();
    ArrowWhileAsking(const ArrowWhileAsking&) = delete;
    ArrowWhileAsking& operator=(const ArrowWhileAsking&) = delete;

   private:
    bool hourglass_;
  };

  QWidget* owner_;
  QLabel* progress_line_;
  bool hourglass_ = false;
  std::string last_message_;
  QElapsedTimer since_painted_;
};

}  // namespace corvane::gui
