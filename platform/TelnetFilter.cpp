#include "platform/TelnetFilter.h"

namespace {

// RFC 854, "TELNET COMMAND STRUCTURE".
constexpr unsigned char kSe = 240;
constexpr unsigned char kSb = 250;
constexpr unsigned char kWill = 251;
constexpr unsigned char kWont = 252;
constexpr unsigned char kDo = 253;
constexpr unsigned char kDont = 254;
constexpr unsigned char kIac = 255;

// No option that a refusing side could be told about is longer. A far end without telnet may send
// the two opening bytes as garbage; it must not stay deaf for good.
constexpr int kLongestSubnegotiation = 1024;

// Who asks for more doesn't listen, and the answers would pile up in the socket.
constexpr int kMostRefusals = 1000;

} // namespace

TelnetFilter::Result TelnetFilter::receive(const QByteArray &bytes)
{
    Result result;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        switch (state_) {
        case State::Data:
            if (byte == kIac) {
                state_ = State::Command;
            } else {
                result.data += character;
            }
            break;
        case State::Command:
            command(byte, result);
            break;
        case State::Refused:
            if (++refusals_ <= kMostRefusals) {
                result.answer += static_cast<char>(kIac);
                result.answer += refusal_;
                result.answer += character;
            }
            state_ = State::Data;
            break;
        case State::Ignored:
            state_ = State::Data;
            break;
        case State::Subnegotiation:
            if (byte == kIac) {
                state_ = State::SubnegotiationCommand;
            } else if (++subnegotiated_ > kLongestSubnegotiation) {
                state_ = State::Data;
            }
            break;
        case State::SubnegotiationCommand:
            state_ = byte == kSe ? State::Data : State::Subnegotiation;
            break;
        }
    }
    return result;
}

void TelnetFilter::command(unsigned char byte, Result &result)
{
    state_ = State::Data;
    switch (byte) {
    case kIac:
        result.data += static_cast<char>(kIac);
        break;
    case kWill:
        refusal_ = static_cast<char>(kDont);
        state_ = State::Refused;
        break;
    case kDo:
        refusal_ = static_cast<char>(kWont);
        state_ = State::Refused;
        break;
    case kWont:
    case kDont:
        // Nothing is ever on here, so there is nothing to agree to; an answer could start a loop.
        state_ = State::Ignored;
        break;
    case kSb:
        subnegotiated_ = 0;
        state_ = State::Subnegotiation;
        break;
    default: // a command of two bytes, as "no operation"
        break;
    }
}

QByteArray TelnetFilter::escaped(const QByteArray &bytes)
{
    QByteArray result = bytes;
    return result.replace("\xFF", "\xFF\xFF");
}
