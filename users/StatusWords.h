#pragma once

#include <QString>

class OutboundQueue;
struct Module1;

/// A user of a door, or a period that waits to become one, as a row of the grid shows it.
struct ShownUser {
    QString status;
    QString door; ///< full number, as the user's
    QString number;
    bool isWaiting = false; ///< a row of NYEbrukere
};

/// What the word of the status stands for: what was sent when, and what is awaited. Read now from
/// the messages to the door, for a tool tip; days in the form of dateFormat (Host.h). Empty for a
/// word of the operator's own, and while the file cannot be read.
QString statusWords(const Module1 &module, const OutboundQueue &queue, const QString &dateFormat,
                    const ShownUser &user);
