#pragma once

#include <QByteArray>

/// Takes the telnet commands out of what the far end of a line sends (RFC 854 and 855), so that
/// the line's own bytes are left. Every option is refused; commands may be split anywhere. One
/// filter serves one connection, on either side of it.
///
/// A far end that knows no telnet is no different: byte 255, the only one with a meaning here, is
/// none that stands in a dialogue in text mode.
class TelnetFilter {
public:
    struct Result {
        QByteArray data;   ///< what was said
        QByteArray answer; ///< refusals for the far end
    };
    Result receive(const QByteArray &bytes);
    /// What to send so that these bytes arrive: byte 255 is doubled.
    static QByteArray escaped(const QByteArray &bytes);

private:
    enum class State { Data, Command, Refused, Ignored, Subnegotiation, SubnegotiationCommand };
    void command(unsigned char byte, Result &result);

    State state_ = State::Data;
    char refusal_ = 0;
    int subnegotiated_ = 0;
    int refusals_ = 0;
};
