#pragma once

#include "platform/Clock.h"

#include <QByteArray>
#include <QString>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// A message on its way. The text holds codes of the GSM 7-bit default alphabet, one in a byte
/// (0 to 127; 3GPP TS 23.038, 6.2.1).
struct SmsMessage {
    QString from;
    QString to;
    QByteArray text;
    /// The service centre's time stamp.
    QDateTime sentAt;
    /// Set when the sender wants a status report: the sender's own reference for the message.
    std::optional<quint8> reportReference;
};

/// What became of a message whose sender asked for a report.
struct SmsReport {
    quint8 reference = 0;
    QString recipient;
    QDateTime sentAt;
    QDateTime settledAt;
    /// TP-Status of 3GPP TS 23.040, 9.2.3.15: 0 delivered, 64 and above given up.
    quint8 status = 0;
};

/// A telephone on the network. Both functions answer false when there is no room: the network
/// then keeps what it has for the phone until memoryAvailable().
struct SmsPhone {
    std::function<bool(const SmsMessage &)> takeMessage;
    std::function<bool(const SmsReport &)> takeReport;
};

/// An SMS network with one service centre. Everything takes the same time, so that the order
/// of messages between two phones is kept; the same calls give the same deliveries.
///
/// Numbers are compared as they stand, apart from "00" in front, which counts as "+".
class SmsNetwork {
public:
    static constexpr quint8 kDelivered = 0;
    static constexpr quint8 kNotObtainable = 67;
    /// Time from sending to delivery, and again from delivery to the sender's report.
    static constexpr milliseconds kDelay = 2s;

    explicit SmsNetwork(Clock &clock);
    ~SmsNetwork();
    SmsNetwork(const SmsNetwork &) = delete;
    SmsNetwork &operator=(const SmsNetwork &) = delete;

    /// A second phone with the same number takes the place of the first.
    void addPhone(const QString &number, SmsPhone phone);
    void removePhone(const QString &number);

    /// Sends a message that arrives after the network's delay and the one given here.
    /// Nobody at the number: the message is lost, and the report says kNotObtainable.
    void send(const QString &from, const QString &to, const QByteArray &text,
              milliseconds extraDelay = 0ms);
    void sendWithReport(const QString &from, const QString &to, const QByteArray &text,
                        quint8 reference);

    /// The phone has room again: what was kept for it is offered once more, oldest first.
    void memoryAvailable(const QString &number);

    /// Decides for each message how much later than usual it comes, or that it comes more than
    /// once, or not at all.
    void setFate(std::function<std::vector<milliseconds>(const SmsMessage &)> fate);
    /// Sees every message at the moment it reaches (or fails to reach) its phone.
    void setObserver(std::function<void(const SmsMessage &, bool delivered)> observer);

private:
    struct Parcel {
        milliseconds due{0};
        QString recipient;
        std::optional<SmsMessage> message;
        std::optional<SmsReport> report;
    };

    void post(Parcel parcel, milliseconds after);
    void submit(SmsMessage message, milliseconds extraDelay);
    void deliverDue();
    void deliver(const Parcel &parcel);
    bool hand(const SmsPhone &phone, const Parcel &parcel);
    void settle(const SmsMessage &message, quint8 status);
    void arm();

    Clock &clock_;
    std::unique_ptr<Timer> timer_;
    std::map<QString, SmsPhone> phones_;
    std::vector<Parcel> underway_; ///< by due time, those of one time in the order of sending
    std::map<QString, std::deque<Parcel>> kept_;
    std::function<std::vector<milliseconds>(const SmsMessage &)> fate_;
    std::function<void(const SmsMessage &, bool)> observer_;
};
