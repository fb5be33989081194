#pragma once

#include <QWidget>
#include <QWindow>
#include <memory>

#include "ui/widgets/FitToScreen.h"

namespace orvex {

/// Brings a form to the front. Refreshing comes last: a focus wish needs a form that can have it.
template <typename Form>
void Present(Form& form) {
  form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
  if (!form.isVisible()) FitToScreen(form);
  // A form that comes back stands where it stood; only its first place is the window manager's.
  // Told without the frame, which a hidden window does not have.
  if (form.windowHandle() && !form.isVisible()) {
    form.windowHandle()->setPosition(form.geometry().topLeft());
  }
  form.show();
  form.raise();
  form.activateWindow();
  form.Refresh();
}

/// The operation that closes a form may have come from it, and goes on in it.
template <typename Form>
void Unload(std::unique_ptr<Form>& form) {
  if (!form) return;
  form->hide();
  form.release()->deleteLater();
}

}  // namespace orvex
