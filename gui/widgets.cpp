#include "gui/widgets.hpp"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

namespace corvane::gui {

QString Lines(std::string_view text) {
  QString out = Q(text);
  out.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  out.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return out;
}

namespace {

// Replaces a list's entries only when they differ, so that the operator's scroll position
// and any rows hidden by a filter survive a refresh.
void ShowItems(const std::vector<std::string>& items, QListWidget* list) {
  bool same = list->count() == static_cast<int>(items.size());
  for (int i = 0; same && i < list->count(); ++i) same = list->item(i)->text() == Q(items[i]);
  if (same) return;
  list->clear();
  for (const std::string& item : items) list->addItem(Q(item));
}

void ShowItems(const std::vector<std::string>& items, QComboBox* box) {
  bool same = box->count() == static_cast<int>(items.size());
  for (int i = 0; same && i < box->count(); ++i) same = box->itemText(i) == Q(items[i]);
  if (same) return;
  box->clear();
  for (const std::string& item : items) box->addItem(Q(item));
}

}  // namespace

void ShowControl(const Control& c, QWidget* w) {
  const QSignalBlocker hold(w);
  w->setToolTip(Q(c.tooltip));
  if (auto* label = qobject_cast<QLabel*>(w)) {
    if (c.kind != kImage) label->setText(Q(c.caption));
  } else if (auto* check = qobject_cast<QCheckBox*>(w)) {
    check->setText(Q(c.caption));
    // 2 is the greyed state a stored value may give
    check->setCheckState(c.value == 1   ? Qt::Checked
                         : c.value == 2 ? Qt::PartiallyChecked
                                        : Qt::Unchecked);
  } else if (auto* button = qobject_cast<QAbstractButton*>(w)) {
    button->setText(Q(c.caption));
    if (button->isCheckable()) button->setChecked(c.value == 1);
  } else if (auto* edit = qobject_cast<QLineEdit*>(w)) {
    // the cursor stays where the operator left it unless the text really changed
    if (edit->text() != Q(c.text)) {
      edit->setText(Q(c.text));
      // a path or a sample row set by an event reads from its start
      edit->setCursorPosition(0);
    }
  } else if (auto* list = qobject_cast<QListWidget*>(w)) {
    ShowItems(c.items, list);
    list->setCurrentRow(c.list_index);
    if (c.list_index < 0) list->clearSelection();
  } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
    ShowItems(c.items, combo);
    combo->setCurrentIndex(c.list_index);
  }
  w->setVisible(c.visible);
}

}  // namespace corvane::gui
