#pragma once

#include <QString>

class QWidget;

namespace orvex {

/// Has a screen reader say `text`, about a state of `source` that the user has not asked for.
void Announce(QWidget& source, const QString& text);

}  // namespace orvex
