#pragma once

#include <QByteArray>

#include <utility>

/// The far end of a telnet line that wants no options (RFC 854, RFC 855): takes the commands out of
/// what the client sends, in pieces of any size, and refuses every option.
class TelnetFilter {
public:
    /// What is left of the bytes without the telnet commands among them.
    QByteArray take(const QByteArray &bytes);
    /// What take() has to say to the client since the last call.
    QByteArray takeAnswers() { return std::exchange(answers_, {}); }
    /// A byte 255 of the data travels doubled.
    static QByteArray escaped(QByteArray bytes);
    /// A new client has come.
    void reset() { *this = TelnetFilter(); }

private:
    enum class State { Data, Command, Option, Parameters, ParametersCommand };

    void takeCommand(unsigned char byte, QByteArray &data);

    State state_ = State::Data;
    unsigned char verb_ = 0;
    QByteArray answers_;
};
