#pragma once

#include <QString>
#include <QStringList>

namespace orvex {

/// Where the manual explains a form.
struct ManualPlace {
  QString chapter;  ///< a file of the manual, and behind "#" the heading in it
  QString keys;     ///< the heading of the form's keys on the page of keys; may be empty
};

/// The place for the form with this objectName; the first page for one that is unknown.
ManualPlace ManualPlaceOf(const QString& form);

/// The names of all forms that have a place.
QStringList ExplainedForms();

/// How a heading is named in a link: "Files, names" is "files-names".
QString HeadingName(const QString& heading);

}  // namespace orvex
