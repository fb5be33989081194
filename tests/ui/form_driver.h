#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QSize>
#include <QString>
#include <QTest>
#include <QWidget>
#include <stdexcept>
#include <string>

namespace orvex::test {

/// The space available to a form on a screen of 1366 x 768 at 200 %.
inline constexpr QSize kSmallestScreen(667, 344);

/// The control of `form` with this objectName, which must exist.
template <typename Control = QWidget>
Control* Find(const QWidget& form, const char* name) {
  auto* control = form.findChild<Control*>(QLatin1String(name));
  if (!control) throw std::runtime_error(std::string("no control ") + name);
  return control;
}

/// The objectName of the focused control.
inline std::string FocusedName() {
  const QWidget* focused = QApplication::focusWidget();
  return focused ? focused->objectName().toStdString() : "nothing";
}

inline void Click(QWidget* control) {
  QTest::mouseClick(control, Qt::LeftButton);
}

/// Shows `form` and makes it the active window.
inline void Activate(QWidget& form) {
  form.show();
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

}  // namespace orvex::test
