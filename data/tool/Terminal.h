#pragma once

#include <QString>

#include <optional>

/// Asks on the terminal and reads one line from standard input; nothing at its end. A secret is
/// not echoed while it is typed.
std::optional<QString> ask(const QString &question, bool secret = false);
