#pragma once

#include "simulator/DoorSettings.h"

#include <QStringList>

enum class DoorLanguage { Norwegian, Danish, Swedish };

/// What a unit says in one language. Readers look for these words by the codes of the GSM
/// alphabet, so that a sentence that must be recognised has no letters but those its readers know
/// by their codes, ä and ö.
struct DoorSentences {
    /// Behind a user's number and a blank.
    QStringView added;
    QStringView exists;
    QStringView deleted;
    QStringView unknown;
    QStringView end; ///< the line behind a balance
    QStringView administrator;
    QStringView handedOn;
    QStringView noUsers;
    QStringView noLog;
};

const DoorSentences &sentences(DoorLanguage language);

// The same in every language: there is no other form that readers know, and "Välkommen" would be
// none of theirs.
inline const QString kWelcomeAdministrator = QStringLiteral("Velkommen ADMIN.");
inline const QString kWelcomeAssistant = QStringLiteral("Velkommen som NY Assistent");

/// The name as it stands on top of an answer. Marks that readers of the lines below look for are
/// left out, and it is long enough for a reader who steps back from a sentence behind the number
/// by the longest number to stay inside the text.
QString topLine(const QString &name, const QString &number = {});

/// Administrator, assistants and own number, in one message whatever a unit was told. An open
/// place is the number 0. Its other labels are the same in every language.
QString administratorReport(const DoorSettings &settings, DoorLanguage language);

/// The records, in order and none of them parted, in as few messages as hold them.
QStringList inMessages(const QStringList &records);
