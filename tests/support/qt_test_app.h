#pragma once

#include <QApplication>

namespace qx::test {

// The one application object of the test run, made by whichever test needs it first.
inline void EnsureApp() {
  static int argc = 1;
  static char name[] = "qx_qt_tests";
  static char* argv[] = {name, nullptr};
  if (!QApplication::instance()) new QApplication(argc, argv);
}

}  // namespace qx::test
