#pragma once

#include "simulator/MessageStore.h"

/// How text mode writes the records of a storage (3GPP TS 27.005, 3.4.2 and 3.4.3). Header and
/// body are parted by CR LF; behind the last there is none.

struct ListStyle {
    /// The fields that "AT+CSDH=1" adds; a status report names its recipient only with them.
    bool details = false;
    /// What the modem's phone book calls the sender; raw alphabet codes.
    QByteArray name{};
};

/// One entry of "AT+CMGL".
QByteArray listLines(const QByteArray &place, const MessageRecord &record, const ListStyle &style);

/// The answer to "AT+CMGR".
QByteArray readLines(const MessageRecord &record, bool details, const QByteArray &serviceCentre);

/// Type of address octet (3GPP TS 24.008, 10.5.4.7): 145 international, 129 unknown, 208 letters.
QByteArray addressType(const QString &number);
