// What the window's widgets share: the model's single-byte text in Qt strings, and one way of
// putting a model control onto its widget.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "screen/screen.hpp"

class QWidget;

namespace corvane::gui {

// The model keeps single-byte text, each byte the character of the same number.
inline QString Q(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string L(const QString& text) {
  return text.toLatin1().toStdString();
}
// A message's carriage returns as the line breaks a dialog shows.
QString Lines(std::string_view text);

// Puts a control's caption, tool tip, text, value, entries, selection and visibility onto its
// widget, as far as the widget's kind has them. Signals are held back, so that showing the
// model never reads as an edit of the operator's.
void ShowControl(const Control& c, QWidget* w);

}  // namespace corvane::gui
