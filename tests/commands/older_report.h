#pragma once

#include <QJsonObject>

#include "store/eps_file.h"

namespace orvex::test {

/// What `orvex report --json` says of an observation, in the keys and texts that the samples'
/// expectations have: names of fields and controls, texts as they are shown, twips. What the JSON
/// leaves to the reports' texts is taken from them.
QJsonObject InOlderKeys(const QJsonObject& report, const EpsObservation& observation);

}  // namespace orvex::test
