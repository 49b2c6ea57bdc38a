// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <functional>
#include <map>
#include <string>

namespace benchmark {

/// Calls \a body, and in a process that instructionsOf() has started notes what it took as \a name.
void countInstructions(const char *name, const std::function<void()> &body);

/// Runs this program once more with \a arguments, under callgrind: what the calls of
/// countInstructions() took there, by their names. Unlike times, instructions do not depend on the
/// load of the machine. Empty where they cannot be counted, which is said on the standard output.
std::map<std::string, double> instructionsOf(const QStringList &arguments);

} // namespace benchmark
