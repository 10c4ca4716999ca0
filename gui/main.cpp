// corvane-desktop: the main screen as a window, for operators at a desktop.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include "gui/main_window.hpp"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("corvane-desktop"));
  QApplication::setApplicationVersion(QStringLiteral("%1.%2.%3")
                                          .arg(corvane::kVersionMajor)
                                          .arg(corvane::kVersionMinor)
                                          .arg(corvane::kVersionRevision));
  QCommandLineParser options;
  options.setApplicationDescription(
      QString::fromLatin1(corvane::kFormCaption.data(), corvane::kFormCaption.size()));
  options.addHelpOption();
  options.addVersionOption();
  const QCommandLineOption settings_dir(
      QStringLiteral("settings-dir"), QStringLiteral("Folder of the settings files"),
      QStringLiteral("folder"), QDir::home().filePath(QStringLiteral("Corvane")));
  options.addOption(settings_dir);
  options.process(app);

  corvane::Environment env{QDir(options.value(settings_dir)).absolutePath().toStdString(),
                           corvane::SystemToday()};
  corvane::gui::TimeImportWindow window(std::move(env));
  window.Start();
  if (window.Ended()) return 3;
  window.show();
  return QApplication::exec();
}
