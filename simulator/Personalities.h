#pragma once

#include "simulator/ModemFaults.h"

#include <QList>
#include <QString>

#include <span>

/// One way in which a modem breaks, or is unlike what one expects of it.
struct Personality {
    QStringView name;
    QStringView arguments; ///< as help shows them; numbers from 0 up
    QStringView meaning;
    void (*set)(ModemFaults &faults, const QList<int> &numbers);
};

/// All of them: for the person at the simulator, its command line and the tests.
extern const std::span<const Personality> kPersonalities;

/// Adds a personality to what the modem has already.
/// @param words its name and numbers, as "refuse 500 2"
/// @throws RuntimeFailure when there is no such name, or a value is no number.
void addPersonality(ModemFaults &faults, const QString &words);
