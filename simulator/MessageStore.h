#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <functional>
#include <map>
#include <optional>

/// One record of a modem's message storage.
struct MessageRecord {
    enum class Kind { Received, Unsent, Report };
    Kind kind = Kind::Received;
    bool read = false;
    QString number{};      ///< sender, or recipient of a record of our own or of a report
    QByteArray text{};     ///< raw alphabet codes; empty in a report
    QDateTime stamp{};     ///< the service centre's
    QDateTime settledAt{}; ///< reports only
    quint8 reference = 0;  ///< reports only
    quint8 status = 0;     ///< reports only, TP-Status
    int firstOctet = 4;    ///< 4 deliver, 17 submit, 6 status report (3GPP TS 23.040, 9.2.2)

    /// The status word of text mode, as "REC UNREAD".
    QByteArray statusWord() const;
};

/// A storage with numbered places from 1; a new record takes the lowest free one.
class MessageStore {
public:
    /// At least 1.
    explicit MessageStore(int capacity) : capacity_(capacity) {}

    int capacity() const { return capacity_; }
    int used() const { return static_cast<int>(records_.size()); }
    bool isFull() const { return used() >= capacity_; }
    const std::map<int, MessageRecord> &records() const { return records_; }

    /// The new record's index; nothing when the storage is full.
    std::optional<int> add(MessageRecord record);
    /// Nothing at an empty or unknown place.
    MessageRecord *find(int index);
    bool remove(int index)
    {
        return std::erase_if(records_, [&](const auto &entry) {
                   return entry.first == index && goes(entry.second);
               }) > 0;
    }
    /// Removes every record that the condition holds for.
    template <class Condition> void removeIf(Condition condition)
    {
        std::erase_if(records_, [&](const auto &entry) {
            return condition(entry.second) && goes(entry.second);
        });
    }
    void setCapacity(int capacity) { capacity_ = capacity; }

    /// Sees each record that is removed.
    std::function<void(const MessageRecord &)> onRemoval;

private:
    bool goes(const MessageRecord &record)
    {
        if (onRemoval) {
            onRemoval(record);
        }
        return true;
    }

    int capacity_;
    std::map<int, MessageRecord> records_;
};
