#pragma once

#include "simulator/SimulatedModem.h"
#include "support/FakeMachine.h"

/// The simulated modem and its network, at the far end of whichever line a machine has open.
struct FarModem {
    explicit FarModem(FakeMachine &machine)
        : network(machine.clock), modem(machine.clock, network, u"+4799000000"_qs)
    {
        const auto onNetwork = [&machine] {
            return machine.socket.state() == TcpSocket::State::Connected;
        };
        machine.port.onWrite =
            machine.socket.onWrite = [this](const QByteArray &bytes) { modem.receive(bytes); };
        modem.setOutput([&machine, onNetwork](const QByteArray &bytes) {
            onNetwork() ? machine.socket.feed(bytes) : machine.port.feed(bytes);
        });
        modem.setLineDrop([this, &machine, onNetwork] {
            onNetwork() ? machine.socket.closeByFarSide() : machine.port.unplug();
            modem.lineClosed();
        });
        modem.setSubmissionTime(500ms);
    }

    SmsNetwork network;
    SimulatedModem modem;
};
