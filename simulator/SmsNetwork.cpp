#include "simulator/SmsNetwork.h"

#include <algorithm>

namespace {

QString international(const QString &number)
{
    return number.startsWith(u"00") ? u'+' + number.mid(2) : number;
}

} // namespace

SmsNetwork::SmsNetwork(Clock &clock) : clock_(clock), timer_(clock.timer([this] { deliverDue(); }))
{
}

SmsNetwork::~SmsNetwork() = default;

void SmsNetwork::addPhone(const QString &number, SmsPhone phone)
{
    phones_[international(number)] = std::move(phone);
}

void SmsNetwork::removePhone(const QString &number)
{
    phones_.erase(international(number));
    kept_.erase(international(number));
}

void SmsNetwork::setObserver(std::function<void(const SmsMessage &, bool)> observer)
{
    observer_ = std::move(observer);
}

void SmsNetwork::setFate(std::function<std::vector<milliseconds>(const SmsMessage &)> fate)
{
    fate_ = std::move(fate);
}

void SmsNetwork::send(const QString &from, const QString &to, const QByteArray &text,
                      milliseconds extraDelay)
{
    submit({from, to, text, {}, std::nullopt}, extraDelay);
}

void SmsNetwork::sendWithReport(const QString &from, const QString &to, const QByteArray &text,
                                quint8 reference)
{
    submit({from, to, text, {}, reference}, 0ms);
}

void SmsNetwork::submit(SmsMessage message, milliseconds extraDelay)
{
    message.sentAt = clock_.now().addMSecs(extraDelay.count());
    const QString recipient = international(message.to);
    for (const milliseconds late : fate_ ? fate_(message) : std::vector{0ms}) {
        post({0ms, recipient, message, std::nullopt}, kDelay + extraDelay + late);
    }
}

void SmsNetwork::post(Parcel parcel, milliseconds after)
{
    parcel.due = clock_.elapsed() + after;
    const auto behind = std::ranges::upper_bound(underway_, parcel.due, {}, &Parcel::due);
    underway_.insert(behind, std::move(parcel));
    arm();
}

void SmsNetwork::arm()
{
    timer_->setEnabled(false);
    if (underway_.empty()) {
        return;
    }
    timer_->setInterval(std::max(underway_.front().due - clock_.elapsed(), 1ms));
    timer_->setEnabled(true);
}

void SmsNetwork::deliverDue()
{
    while (!underway_.empty() && underway_.front().due <= clock_.elapsed()) {
        const Parcel parcel = std::move(underway_.front());
        underway_.erase(underway_.begin());
        deliver(parcel);
    }
    arm();
}

void SmsNetwork::deliver(const Parcel &parcel)
{
    const auto phone = phones_.find(parcel.recipient);
    if (phone == phones_.end()) {
        if (parcel.message) {
            settle(*parcel.message, kNotObtainable);
        }
        return;
    }
    // What came first stays in front of what is kept already.
    auto &kept = kept_[parcel.recipient];
    if (!kept.empty() || !hand(phone->second, parcel)) {
        kept_[parcel.recipient].push_back(parcel);
    }
}

bool SmsNetwork::hand(const SmsPhone &phone, const Parcel &parcel)
{
    // A copy: what the phone does may take it off the network.
    const SmsPhone taker = phone;
    if (parcel.report) {
        return !taker.takeReport || taker.takeReport(*parcel.report);
    }
    if (taker.takeMessage && !taker.takeMessage(*parcel.message)) {
        return false;
    }
    settle(*parcel.message, kDelivered);
    return true;
}

void SmsNetwork::settle(const SmsMessage &message, quint8 status)
{
    if (observer_) {
        observer_(message, status == kDelivered);
    }
    if (!message.reportReference) {
        return;
    }
    const SmsReport report{*message.reportReference, message.to, message.sentAt, clock_.now(),
                           status};
    post({0ms, international(message.from), std::nullopt, report}, kDelay);
}

void SmsNetwork::memoryAvailable(const QString &number)
{
    const QString recipient = international(number);
    while (true) {
        const auto kept = kept_.find(recipient);
        const auto phone = phones_.find(recipient);
        if (kept == kept_.end() || kept->second.empty() || phone == phones_.end()) {
            return;
        }
        Parcel parcel = std::move(kept->second.front());
        kept->second.pop_front();
        if (!hand(phone->second, parcel)) {
            kept_[recipient].push_front(std::move(parcel));
            return;
        }
    }
}
