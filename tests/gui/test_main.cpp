#include <QApplication>

int RunWindowTests(int argc, char** argv);
int RunFormTests(int argc, char** argv);

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  int failed = RunWindowTests(argc, argv);
  failed += RunFormTests(argc, argv);
  return failed == 0 ? 0 : 1;
}
