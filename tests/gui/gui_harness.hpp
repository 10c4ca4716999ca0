// What the window's tests share: a stand-in for the operator's hand at the dialogs, and a
// window started over a settings folder of its own.
#pragma once

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <deque>
#include <memory>

#include "gui/main_window.hpp"

namespace corvane::gui::test {

// One dialog the window showed, as the operator saw it.
struct Seen {
  QString kind;  // "message", "input", or "file" (text: its folder; buttons: its filters)
  QString title;
  QString text;  // the message, or the input box's prompt
  QStringList buttons;
  QString default_text;  // input boxes
};

// The answer that cancels an input box.
inline const QString kCancel = QStringLiteral("<cancel>");

// Answers the dialogs as they open: each takes the next answer (a button's caption, or an
// input box's text), and the first button or the default text when none is left.
class Operator : public QObject {
 public:
  explicit Operator(std::deque<QString> answers = {});
  ~Operator() override;
  void Answer(const QString& answer) { answers_.push_back(answer); }
  std::vector<Seen> seen;

 private:
  void Poll();
  std::deque<QString> answers_;
  QTimer timer_;
};

// A window over a fresh settings folder, with the pickers starting in a fresh home folder.
class Session {
 public:
  Session();
  // The window over the settings folder; Start() runs with `op` at the dialogs.
  std::unique_ptr<TimeImportWindow> Open(Operator& op);
  QString Settings() const { return settings_.path(); }
  QString Home() const { return home_.path(); }

 private:
  QTemporaryDir settings_, home_;
  QByteArray old_home_;
};

// The operator's keyboard and mouse on one widget.
void TypeInto(QWidget* box, const QString& text);
void Click(QWidget* button);
// Chooses a time clock as an operator does: the filter, then the name in the list.
void ChooseTimeClock(TimeImportWindow& w, const QString& name);

// The file's bytes, "" when it cannot be read.
QByteArray Contents(const QString& path);

}  // namespace corvane::gui::test
