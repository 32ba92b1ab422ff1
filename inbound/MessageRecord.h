#pragma once

#include <QString>

// A received message as a modem in text mode lists it (3GPP TS 27.005, +CMGL), and the numbers in
// it. A header line looks so, with the body on the lines behind it:
//
//   +CMGL: 7,"REC UNREAD","+4791234567",,"26/12/01,12:34:56+04"

/// The header without the blanks that some modems put behind its commas.
QString closedUp(QString header);
/// Whether the header is that of a received message: a status word that ends in D, and a sender in
/// quotes behind it. Messages that were stored to be sent have none of the two, reports no quote.
bool isReceivedMessage(const QString &header);
/// The sender as the modem gave it, a number or a word.
/// @throws RuntimeFailure when the sender's text doesn't end in quote-comma.
QString senderOf(const QString &header);
/// The service centre's stamp, yy/MM/dd,hh:mm:ss, 17 characters.
/// @throws RuntimeFailure when the header holds no "/", or holds it in its first two characters.
QString stampOf(const QString &header);

/// The characters that a line's codes stand for in the program's own set, Windows-1252. Only the
/// codes 80 to 9F hexadecimal change; codes of the modem's alphabet stay what they are.
QString ownCharacters(const QString &lineText);

/// A number with a leading "+" from its fourth character on: every country code is taken to have
/// two digits. Any other number as it stands.
QString withoutCountry(const QString &number);
/// Nine characters from the fourth on, trimmed; cut whether or not there is a "+".
QString shortSender(const QString &number);
