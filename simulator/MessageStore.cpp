#include "simulator/MessageStore.h"

QByteArray MessageRecord::statusWord() const
{
    if (kind == Kind::Unsent) {
        return "STO UNSENT";
    }
    return read ? "REC READ" : "REC UNREAD";
}

std::optional<int> MessageStore::add(MessageRecord record)
{
    if (isFull()) {
        return std::nullopt;
    }
    int index = 1;
    for (const auto &entry : records_) {
        if (entry.first != index) {
            break;
        }
        ++index;
    }
    records_.emplace(index, std::move(record));
    return index;
}

MessageRecord *MessageStore::find(int index)
{
    const auto found = records_.find(index);
    return found == records_.end() ? nullptr : &found->second;
}
