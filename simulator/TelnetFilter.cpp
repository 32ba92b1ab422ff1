#include "simulator/TelnetFilter.h"

namespace {

constexpr unsigned char kEndOfParameters = 240;
constexpr unsigned char kParameters = 250;
constexpr unsigned char kWill = 251;
constexpr unsigned char kWont = 252;
constexpr unsigned char kDo = 253;
constexpr unsigned char kDont = 254;
constexpr unsigned char kCommand = 255;

QByteArray refusal(unsigned char verb, unsigned char option)
{
    QByteArray bytes;
    for (const unsigned char byte : {kCommand, verb, option}) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

} // namespace

QByteArray TelnetFilter::take(const QByteArray &bytes)
{
    QByteArray data;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        switch (state_) {
        case State::Data:
            if (byte == kCommand) {
                state_ = State::Command;
            } else {
                data += character;
            }
            break;
        case State::Command:
            takeCommand(byte, data);
            break;
        case State::Option:
            // Only what asks for something is answered, so that two refusers don't go on forever.
            if (verb_ == kWill) {
                answers_ += refusal(kDont, byte);
            } else if (verb_ == kDo) {
                answers_ += refusal(kWont, byte);
            }
            state_ = State::Data;
            break;
        case State::Parameters:
            if (byte == kCommand) {
                state_ = State::ParametersCommand;
            }
            break;
        case State::ParametersCommand:
            state_ = byte == kEndOfParameters ? State::Data : State::Parameters;
            break;
        }
    }
    return data;
}

void TelnetFilter::takeCommand(unsigned char byte, QByteArray &data)
{
    state_ = State::Data;
    if (byte == kCommand) {
        data += static_cast<char>(byte);
    } else if (byte == kParameters) {
        state_ = State::Parameters;
    } else if (byte >= kWill) {
        verb_ = byte;
        state_ = State::Option;
    }
}

QByteArray TelnetFilter::escaped(QByteArray bytes)
{
    return bytes.replace('\xff', "\xff\xff");
}
