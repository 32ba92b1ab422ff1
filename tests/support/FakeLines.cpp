#include "support/FakeLines.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

#include <utility>

void FakeSerialPort::open(const QString &name)
{
    device = name;
    if (!present_ || name == missing) {
        throw RuntimeFailure(u"No such port: "_qs + name);
    }
    waiting_.clear();
    open_ = true;
}

void FakeSerialPort::close()
{
    open_ = false;
    waiting_.clear();
}

void FakeSerialPort::write(const QByteArray &bytes)
{
    if (!open_ || !present_) {
        throw RuntimeFailure(u"The port is not open"_qs);
    }
    written += bytes;
    if (onWrite) {
        onWrite(bytes);
    }
}

qint64 FakeSerialPort::bytesAvailable()
{
    if (!open_) {
        return 0;
    }
    if (!present_) {
        open_ = false;
        throw RuntimeFailure(u"The port is gone"_qs);
    }
    return static_cast<qint64>(waiting_.size());
}

unsigned char FakeSerialPort::takeCharacter()
{
    if (waiting_.empty()) {
        ADD_FAILURE() << "A character was taken from an empty port";
        return 0;
    }
    const unsigned char character = waiting_.front();
    waiting_.pop_front();
    return character;
}

void FakeSerialPort::feed(const QByteArray &bytes)
{
    if (open_ && present_) {
        for (const char byte : bytes) {
            waiting_.push_back(static_cast<unsigned char>(byte));
        }
    }
}

void FakeTcpSocket::later(std::function<void()> event)
{
    clock_.after(1ms, [this, mine = connection_, event = std::move(event)] {
        if (mine == connection_) {
            event();
        }
    });
}

void FakeTcpSocket::connectTo(const QString &toHost, quint16 toPort)
{
    host = toHost;
    port = toPort;
    ++connection_;
    state_ = State::Connecting;
    if (silent) {
        return;
    }
    later([this] {
        if (answers) {
            state_ = State::Connected;
            events_.connected();
        } else {
            events_.failure(10061, u"Connection refused"_qs);
        }
    });
}

void FakeTcpSocket::write(const QByteArray &bytes)
{
    if (state_ != State::Connected) {
        ADD_FAILURE() << "Something was written to a socket that is not connected";
        return;
    }
    written += bytes;
    if (onWrite) {
        onWrite(bytes);
    }
}

void FakeTcpSocket::close()
{
    ++connection_;
    state_ = State::Closed;
}

void FakeTcpSocket::feed(const QByteArray &bytes)
{
    later([this, bytes] {
        if (state_ == State::Connected) {
            events_.data(bytes);
        }
    });
}

void FakeTcpSocket::closeByFarSide()
{
    later([this] {
        state_ = State::Closed;
        events_.closedByFarSide();
    });
}

void FakeTcpSocket::fail(int number, const QString &description)
{
    later([this, number, description] { events_.failure(number, description); });
}
