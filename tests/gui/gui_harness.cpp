#include "gui_harness.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace corvane::gui::test {

Operator::Operator(std::deque<QString> answers) : answers_(std::move(answers)) {
  timer_.setInterval(5);
  QObject::connect(&timer_, &QTimer::timeout, this, [this] { Poll(); });
  timer_.start();
}

Operator::~Operator() = default;

void Operator::Poll() {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr || !modal->isVisible()) return;
  QString answer;
  const bool given = !answers_.empty();
  if (given) {
    answer = answers_.front();
    answers_.pop_front();
  }
  if (auto* box = qobject_cast<QMessageBox*>(modal)) {
    Seen s{QStringLiteral("message"), box->windowTitle(), box->text(), {}, {}};
    QAbstractButton* press = nullptr;
    for (QAbstractButton* b : box->buttons()) {
      s.buttons << b->text();
      if ((given && b->text() == answer) || (!given && press == nullptr)) press = b;
    }
    seen.push_back(s);
    if (press != nullptr) press->click();
  } else if (auto* input = qobject_cast<QInputDialog*>(modal)) {
    seen.push_back({QStringLiteral("input"),
                    input->windowTitle(),
                    input->labelText(),
                    {},
                    input->textValue()});
    if (given && answer == kCancel) return input->reject();
    if (given) input->setTextValue(answer);
    input->accept();
  } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
    // the folder it opens in and its filters; the answer is the path chosen, none cancels
    seen.push_back({QStringLiteral("file"),
                    files->windowTitle(),
                    files->directory().absolutePath(),
                    files->nameFilters(),
                    {}});
    if (!given) return files->reject();
    files->selectFile(answer);
    static_cast<QDialog*>(files)->accept();
  } else if (auto* dialog = qobject_cast<QDialog*>(modal)) {
    seen.push_back({QStringLiteral("dialog"), dialog->windowTitle(), {}, {}, {}});
    dialog->accept();
  }
}

Session::Session() : old_home_(qgetenv("HOME")) {
  // the pickers start at the home folder
  qputenv("HOME", home_.path().toLocal8Bit());
}

std::unique_ptr<TimeImportWindow> Session::Open(Operator& op) {
  (void)op;
  // the period end date is checked against today; the model's today is the system's
  auto w = std::make_unique<TimeImportWindow>(
      Environment{settings_.path().toStdString(), SystemToday()});
  w->Start();
  w->show();
  QApplication::setActiveWindow(w.get());
  if (!QTest::qWaitForWindowActive(w.get())) qWarning("the window did not become active");
  return w;
}

void TypeInto(QWidget* box, const QString& text) {
  auto* edit = qobject_cast<QLineEdit*>(box);
  QVERIFY(edit != nullptr);
  QVERIFY2(edit->isVisible(), "the operator cannot type into a hidden box");
  edit->setFocus(Qt::MouseFocusReason);
  edit->selectAll();
  if (text.isEmpty()) {
    QTest::keyClick(edit, Qt::Key_Delete);
  } else {
    QTest::keyClicks(edit, text);
  }
}

void Click(QWidget* button) {
  QTest::mouseClick(button, Qt::LeftButton);
}

void ChooseTimeClock(TimeImportWindow& w, const QString& name) {
  TypeInto(w.PickTCFilter(), name);
  auto* list = static_cast<QListWidget*>(w.Widget(PickTC));
  const QList<QListWidgetItem*> found = list->findItems(name, Qt::MatchExactly);
  QCOMPARE(found.size(), 1);
  QVERIFY(!found.front()->isHidden());
  const QRect where = list->visualItemRect(found.front());
  QVERIFY(where.isValid());
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where.center());
}

QByteArray Contents(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll();
}

}  // namespace corvane::gui::test
