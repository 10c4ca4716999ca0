#include <QApplication>

int RunWindowTests(int argc, char** argv);
int RunFormTests(int argc, char** argv);
int RunSummaryPanelTests(int argc, char** argv);

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  int failed = RunWindowTests(argc, argv);
  failed += RunSummaryPanelTests(argc, argv);
  // last: a failed save there ends the program, and the application opens no dialog after
  failed += RunFormTests(argc, argv);
  return failed == 0 ? 0 : 1;
}
