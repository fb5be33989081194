#pragma once

#include <QStringList>

#include "app/command_line.h"

namespace orvex {

/// Interpret the arguments of a command: the request that they make, help, or a mistake in them.
Request ReadExport(const QStringList& arguments);
Request ReadTable(const QStringList& arguments);
Request ReadCheck(const QStringList& arguments);
Request ReadReport(const QStringList& arguments);
Request ReadAgree(const QStringList& arguments);
Request ReadPicture(const QStringList& arguments);

}  // namespace orvex
