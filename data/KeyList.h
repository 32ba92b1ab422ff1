#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>
#include <variant>
#include <vector>

/// Keys of rows by number. Each takes four bytes as long as all of them are small, which halves
/// what a list of a million rows needs.
class KeyList {
public:
    std::size_t size() const
    {
        return std::visit([](const auto &keys) { return keys.size(); }, keys_);
    }
    qint64 operator[](std::size_t row) const
    {
        return std::visit([row](const auto &keys) { return static_cast<qint64>(keys[row]); },
                          keys_);
    }
    void add(qint64 key)
    {
        if (auto *small = std::get_if<Small>(&keys_)) {
            if (key >= 0 && key <= std::numeric_limits<quint32>::max()) {
                small->push_back(static_cast<quint32>(key));
                return;
            }
            keys_ = Large(small->begin(), small->end());
        }
        std::get<Large>(keys_).push_back(key);
    }
    void remove(std::size_t row)
    {
        std::visit([row](auto &keys) { keys.erase(keys.begin() + static_cast<qsizetype>(row)); },
                   keys_);
    }
    void cutTo(std::size_t size)
    {
        std::visit([size](auto &keys) { keys.resize(size); }, keys_);
    }
    /// Takes no more room than the keys need.
    void squeeze()
    {
        std::visit([](auto &keys) { keys.shrink_to_fit(); }, keys_);
    }
    /// The row of a key, size() without one. Keys that ascend are found at once.
    std::size_t find(qint64 key, bool ascending) const
    {
        const auto search = [=](const auto &keys) {
            const auto less = [](auto left, qint64 right) { return qint64{left} < right; };
            auto found = ascending ? std::lower_bound(keys.begin(), keys.end(), key, less)
                                   : std::find(keys.begin(), keys.end(), key);
            if (found != keys.end() && *found != key) {
                found = keys.end();
            }
            return static_cast<std::size_t>(found - keys.begin());
        };
        return std::visit(search, keys_);
    }

private:
    using Small = std::vector<quint32>;
    using Large = std::vector<qint64>;
    std::variant<Small, Large> keys_;
};
