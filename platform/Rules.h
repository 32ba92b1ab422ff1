#pragma once

#include <QString>

#include <functional>
#include <initializer_list>

class Operator;

// The rules by which an event handler ends a failure. Every handler names one of them and nothing
// else in the program catches a RuntimeFailure (the interpreter's own rule stands with the
// interpreter). All of them also end a handler in silence when the program ends under it.

/// Shows the description in a message box; the handler ends. While the box of a failure is open
/// the same failure opens no second one. The advice stands behind the description. Gives false when
/// it failed.
bool shown(Operator &person, const QString &title, const std::function<void()> &handler,
           const QString &advice = {});

/// Leaves a failing step out and goes on with the next, in silence.
void skipped(std::initializer_list<std::function<void()>> steps);

/// Ends in silence, with what was done so far standing.
void kept(const std::function<void()> &handler);
