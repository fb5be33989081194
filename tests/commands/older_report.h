#pragma once

#include <QJsonObject>

#include "store/eps_file.h"

namespace orvex::test {

/// Translates the output of `orvex report --json` into the form of the samples' expectations: keys
/// named after fields and controls, texts as shown, lengths in twips. Takes texts that the JSON
/// does not contain from the reports on `observation`.
QJsonObject InOlderKeys(const QJsonObject& report, const EpsObservation& observation);

}  // namespace orvex::test
